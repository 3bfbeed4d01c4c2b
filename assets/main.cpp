// nubo-assets: makes the files that the program reads at its start from the sources of the artwork.
#include "base/color.h"
#include "bdf_font.h"
#include "contact_sheet.h"
#include "first_start.h"
#include "font_sheet.h"
#include "framework/resources.h"
#include "framework/text.h"
#include "game/script_compiler.h"
#include "gui_sheet.h"
#include "icons.h"
#include "latin_glyphs.h"
#include "logo.h"
#include "program_files.h"
#include "schemes.h"
#include "specimen.h"
#include "stage_art.h"
#include "tip_sheet.h"
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>

namespace nubo {
namespace {

namespace fs = std::filesystem;

struct Places {
    fs::path sources, program_folder, contact_sheet, icons;
};

// ---- The files, one function each ----------------------------------------------------------------------------------

/// What is made on the way: later files are drawn in the palette, and the contact sheet shows everything.
struct Studio {
    Places places;
    ArtPalette palette{};
    BITMAP *gui = nullptr, *logo = nullptr, *tips = nullptr;  // in 32 bits; their panels own them
    std::vector<ArtScheme> schemes;
    std::vector<ContactPanel> panels;
};

std::optional<ArtSource> source_of(const Studio& studio, const char* name) {
    return read_art(studio.places.sources / name);
}

fs::path place_of(const Studio& studio, const std::string& name) { return studio.places.program_folder / name; }

/// Draws a picture from its source, writes it as PNG and shows it on the contact sheet.
bool make_picture(Studio& studio, const char* source_name, const char* place, OwnedBitmap (*draw)(const ArtSource&),
                  int cell_width, int cell_height) {
    const auto source = source_of(studio, source_name);
    OwnedBitmap picture = source ? draw(*source) : nullptr;
    if (!picture || !write_png(place_of(studio, place), picture.get())) return false;
    studio.panels.push_back({std::move(picture), cell_width, cell_height});
    return true;
}

bool make_logo(Studio& studio) {
    if (!make_picture(studio, "logo.txt", "resource/N_HD_1X.RES", draw_logo, 0, 0)) return false;
    studio.logo = studio.panels.back().picture.get();
    return true;
}

bool make_desktop_icons(Studio& studio) { return make_icons(studio.logo, studio.places.icons); }

bool make_tips(Studio& studio) {
    if (!make_picture(studio, "tips.txt", "resource/brushie.PNG", draw_tip_sheet, 17, 15)) return false;
    studio.tips = studio.panels.back().picture.get();
    return true;
}

/// The display mode of a fresh program folder: a window of 960 by 720.
bool make_config(Studio& studio) { return write_bytes(place_of(studio, "config.def"), "3"); }

/// The file is a picture only because it has a palette, which is all that the program takes of it.
bool make_palette(Studio& studio) {
    const auto source = source_of(studio, "palette.txt");
    const auto palette = source ? read_palette(*source) : std::nullopt;
    if (!palette) return false;
    studio.palette = *palette;
    set_palette(to_allegro_palette(*palette).data());
    const OwnedBitmap sheet = draw_palette_sheet();
    if (!sheet || !write_resource(place_of(studio, "resource/PALETTE"), sheet.get(), *palette)) return false;
    studio.panels.push_back({to_true_color(sheet.get()), palette_square, palette_square});
    return true;
}

/// Writes an 8-bit sheet and makes of it what the program will see: 32 bits, with black as transparent.
OwnedBitmap finish_sheet(const Studio& studio, const char* place, BITMAP* sheet) {
    if (!write_resource(place_of(studio, place), sheet, studio.palette)) return nullptr;
    OwnedBitmap picture = to_true_color(sheet);
    if (picture) UA_black_to_mask(picture.get());
    return picture;
}

struct FontRow {
    Font slot;
    const char* source;
    const char* place;
    const char* name;   // as a font for TEXT
    const char* latin;  // what it has beside its own letters there
};
constexpr FontRow fonts[] = {{FONT_WIDE, "font_05.txt", "resource/UA_FONT_05", "NuboWide", "latin_05.txt"},
                             {FONT_NARROW, "font_04.txt", "resource/UA_FONT_04", "NuboNarrow", "latin_04.txt"}};
constexpr int tail_rows = 2;  // of both, below the baseline

/// The font as one for TEXT.
bool make_text_font(Studio& studio, const FontRow& row, const ArtSource& letters) {
    constexpr int cell_w = 9, cell_h = 12;  // on the contact sheet
    const auto latin = source_of(studio, row.latin);
    const auto glyphs = latin ? read_latin_glyphs(letters, *latin) : std::nullopt;
    if (!glyphs) return false;
    studio.panels.push_back({draw_latin_glyphs(*glyphs, cell_w, cell_h), cell_w, cell_h});
    const FontSlot& font = font_slots[static_cast<std::size_t>(row.slot)];
    return write_bytes(place_of(studio, std::string("fonts/") + row.name + ".bdf"),
                       bdf_of(font, *glyphs, row.name, tail_rows));
}

bool make_fonts(Studio& studio) {
    UA_init_text_colors();
    for (const FontRow& row : fonts) {
        const auto source = source_of(studio, row.source);
        const OwnedBitmap sheet = source ? draw_font_sheet(*source) : nullptr;
        OwnedBitmap picture = sheet ? finish_sheet(studio, row.place, sheet.get()) : nullptr;
        BITMAP* const sheets[] = {picture.get()};
        if (!picture || !build_font(row.slot, sheets)) return false;
        const FontSlot& font = font_slots[static_cast<std::size_t>(row.slot)];
        // The tones in the last row would keep the empty rest of the sheet on the contact sheet.
        hline(picture.get(), 0, picture->h - 1, picture->w - 1, static_cast<int>(transparent_color));
        studio.panels.push_back({std::move(picture), font.cell_w + 1, font.cell_h + 1});
        if (!make_text_font(studio, row, *source)) return false;
    }
    return true;
}

bool make_gui(Studio& studio) {
    const auto source = source_of(studio, "gui.txt");
    const OwnedBitmap sheet = source ? draw_gui_sheet(*source, studio.palette) : nullptr;
    OwnedBitmap picture = sheet ? finish_sheet(studio, "resource/UA_GUI", sheet.get()) : nullptr;
    if (!picture) return false;
    studio.gui = picture.get();
    studio.panels.push_back({std::move(picture), 10, 10});
    return true;
}

bool make_schemes(Studio& studio) {
    const auto source = source_of(studio, "schemes.txt");
    auto schemes = source ? read_schemes(*source) : std::nullopt;
    if (!schemes) return false;
    for (const ArtScheme& scheme : *schemes)
        if (!write_bytes(place_of(studio, "SCHEMES/" + scheme.name), scheme_file(scheme))) return false;
    studio.schemes = std::move(*schemes);
    return true;
}

bool make_objects(Studio& studio) {
    const auto source = source_of(studio, "objects.txt");
    const auto text = source ? object_library(*source) : std::nullopt;
    return text && write_bytes(place_of(studio, "resource/obj_lib.def"), *text);
}

/// The scripts of nubo-stage as its interpreter takes them.
bool make_scripts(Studio& studio) {
    std::ifstream file(studio.places.sources / "scripts.txt");
    const std::string text{std::istreambuf_iterator<char>(file), {}};
    const Bytes code = compile_scripts(text);
    if (code.empty()) return std::fprintf(stderr, "scripts.txt holds no script\n"), false;
    return write_bytes(place_of(studio, "resource/mojo.def"), std::string(code.begin(), code.end()));
}

/// The sheets and the sound of nubo-stage.
bool make_stage(Studio& studio) {
    const auto source = source_of(studio, "stamps.txt");
    const auto stamps = source ? read_stamps(*source) : std::nullopt;
    if (!stamps) return false;
    const auto make_sheet = [&](const char* place, const OwnedBitmap& sheet, int cell) {
        OwnedBitmap picture = sheet ? finish_sheet(studio, place, sheet.get()) : nullptr;
        if (!picture) return false;
        studio.panels.push_back({std::move(picture), cell, cell});
        return true;
    };
    const OwnedBitmap glow = draw_glow_sheet(studio.palette);  // far too wide for the contact sheet
    return make_sheet("resource/UA_ACTORS", draw_actor_sheet(*stamps, studio.palette), 32) &&
           make_sheet("resource/UA_TILES", draw_tile_sheet(*stamps, studio.palette), 16) && glow &&
           write_resource(place_of(studio, "resource/UA_GLOW"), glow.get(), studio.palette) &&
           write_covered(place_of(studio, "resource/UA_CHIME"), chime_wav()) && make_scripts(studio);
}

/// The settings and the Workspace of a newcomer, painted with what was made before.
bool make_first(Studio& studio) {
    std::vector<OwnedBitmap> frames;
    if (!make_first_start({studio.places.sources, studio.tips, studio.logo}, studio.places.program_folder, frames))
        return false;
    for (OwnedBitmap& frame : frames) studio.panels.push_back({std::move(frame), 0, 0});
    return true;
}

bool make_contact_sheet(Studio& studio) {
    studio.panels.push_back({draw_font_specimen(), 0, 0});
    studio.panels.push_back({draw_scheme_specimen(studio.gui, studio.schemes), 0, 0});
    const OwnedBitmap sheet = draw_contact_sheet(studio.panels);
    return sheet && write_png(studio.places.contact_sheet, sheet.get());
}

// The palette comes before all that is drawn in it, the contact sheet last.
constexpr bool (*makers[])(Studio& studio) = {make_config,  make_logo,  make_desktop_icons, make_tips,
                                              make_palette, make_fonts, make_gui,           make_schemes,
                                              make_objects, make_stage, make_first,         make_contact_sheet};

bool make_all(const Places& places) {
    std::error_code error;
    const fs::path& program = places.program_folder;
    for (const fs::path& folder :
         {program / "resource", program / "fonts", program / "SCHEMES", program / "WORKSPACE", places.icons}) {
        fs::create_directories(folder, error);
        if (error) return std::fprintf(stderr, "%s: %s\n", folder.c_str(), error.message().c_str()), false;
    }
    Studio studio;
    studio.places = places;
    for (const auto make : makers)
        if (!make(studio)) return false;
    return true;
}

}  // namespace
}  // namespace nubo

int main(int argument_count, char** arguments) {
    if (argument_count != 5) {
        std::fprintf(stderr, "Usage: nubo-assets SOURCE_FOLDER PROGRAM_FOLDER CONTACT_SHEET.png ICONS_FOLDER\n");
        return 2;
    }
    if (install_allegro(SYSTEM_NONE, &errno, nullptr) != 0) return 1;
    set_color_depth(32);
    nubo::use_window_color_order();
    const bool made = nubo::make_all({arguments[1], arguments[2], arguments[3], arguments[4]});
    allegro_exit();
    return made ? 0 : 1;
}
