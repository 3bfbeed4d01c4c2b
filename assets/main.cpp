// nubo-assets: makes the files that the program reads at its start from the sources of the artwork.
#include "base/color.h"
#include "codecs/png.h"
#include "contact_sheet.h"
#include "font_sheet.h"
#include "gui_sheet.h"
#include "logo.h"
#include "schemes.h"
#include "specimen.h"
#include "tip_sheet.h"
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>

namespace nubo {
namespace {

namespace fs = std::filesystem;

struct Places {
    fs::path sources, program_folder, contact_sheet;
};

std::string file_bytes(const fs::path& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

/// Moves a new file to its place. One that says what stands there already goes, so that what depends on it isn't
/// remade.
bool put_in_place(const fs::path& made, const fs::path& place) {
    std::error_code error;
    if (fs::exists(place, error) && file_bytes(made) == file_bytes(place))
        fs::remove(made, error);
    else
        fs::rename(made, place, error);
    if (error) std::fprintf(stderr, "%s: %s\n", place.c_str(), error.message().c_str());
    return !error;
}

fs::path name_while_made(const fs::path& place) { return place.string() + ".new"; }

bool write_bytes(const fs::path& place, const std::string& bytes) {
    const fs::path made = name_while_made(place);
    std::ofstream file(made, std::ios::binary);
    file.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    file.close();
    if (!file) std::fprintf(stderr, "%s: can't be written\n", made.c_str());
    return file && put_in_place(made, place);
}

bool write_png(const fs::path& place, BITMAP* picture) {
    const fs::path made = name_while_made(place);
    if (save_png(made.c_str(), picture, nullptr) == 0) return put_in_place(made, place);
    std::fprintf(stderr, "%s: %s\n", made.c_str(), png_error);
    return false;
}

// ---- The files, one function each
// ------------------------------------------------------------------------------------

/// What is made on the way: later files are drawn in the palette, and the contact sheet shows everything.
struct Studio {
    Places places;
    ArtPalette palette{};
    OwnedBitmap wide_font, narrow_font, gui;
    std::vector<ArtScheme> schemes;
    std::vector<ContactPanel> panels;
};

std::optional<ArtSource> source_of(const Studio& studio, const char* name) {
    return read_art(studio.places.sources / name);
}

/// Draws a picture from its source, writes it as PNG and shows it on the contact sheet.
bool make_picture(Studio& studio, const char* source_name, const char* place, OwnedBitmap (*draw)(const ArtSource&),
                  int cell_width, int cell_height) {
    const auto source = source_of(studio, source_name);
    OwnedBitmap picture = source ? draw(*source) : nullptr;
    if (!picture || !write_png(studio.places.program_folder / place, picture.get())) return false;
    studio.panels.push_back({std::move(picture), cell_width, cell_height});
    return true;
}

bool make_logo(Studio& studio) { return make_picture(studio, "logo.txt", "resource/N_HD_1X.RES", draw_logo, 0, 0); }

bool make_tips(Studio& studio) {
    return make_picture(studio, "tips.txt", "resource/brushie.PNG", draw_tip_sheet, 17, 15);
}

/// The display mode of a fresh program folder: a window of 960 by 720.
bool make_config(Studio& studio) { return write_bytes(studio.places.program_folder / "config.def", "3"); }

bool make_palette(Studio& studio) {
    const auto source = source_of(studio, "palette.txt");
    const auto palette = source ? read_palette(*source) : std::nullopt;
    if (!palette) return false;
    studio.palette = *palette;
    studio.panels.push_back({draw_palette(*palette), palette_square, palette_square});
    return true;
}

bool make_font(Studio& studio, const char* source_name, OwnedBitmap& sheet) {
    const auto source = source_of(studio, source_name);
    if (source) sheet = draw_font_sheet(*source);
    if (!sheet) return false;
    OwnedBitmap picture = to_true_color(sheet.get(), studio.palette);
    studio.panels.push_back({std::move(picture), getpixel(sheet.get(), 0, 0) + 1, getpixel(sheet.get(), 1, 0) + 1});
    return true;
}

bool make_fonts(Studio& studio) {
    return make_font(studio, "font_05.txt", studio.wide_font) && make_font(studio, "font_04.txt", studio.narrow_font);
}

bool make_gui(Studio& studio) {
    const auto source = source_of(studio, "gui.txt");
    if (source) studio.gui = draw_gui_sheet(*source, studio.palette);
    if (!studio.gui) return false;
    studio.panels.push_back({to_true_color(studio.gui.get(), studio.palette), 10, 10});
    return true;
}

bool make_schemes(Studio& studio) {
    const auto source = source_of(studio, "schemes.txt");
    auto schemes = source ? read_schemes(*source) : std::nullopt;
    if (!schemes) return false;
    for (const ArtScheme& scheme : *schemes)
        if (!write_bytes(studio.places.program_folder / "SCHEMES" / scheme.name, scheme_file(scheme))) return false;
    studio.schemes = std::move(*schemes);
    return true;
}

bool make_objects(Studio& studio) {
    const auto source = source_of(studio, "objects.txt");
    const auto text = source ? object_library(*source) : std::nullopt;
    return text && write_bytes(studio.places.program_folder / "resource/obj_lib.def", *text);
}

bool make_contact_sheet(Studio& studio) {
    const SpecimenSheets sheets{studio.wide_font.get(), studio.narrow_font.get(), studio.gui.get(), &studio.palette};
    studio.panels.push_back({draw_font_specimen(sheets), 0, 0});
    studio.panels.push_back({draw_scheme_specimen(sheets, studio.schemes), 0, 0});
    const OwnedBitmap sheet = draw_contact_sheet(studio.panels);
    return sheet && write_png(studio.places.contact_sheet, sheet.get());
}

// The palette comes before all that is drawn in it, the contact sheet last.
constexpr bool (*makers[])(Studio& studio) = {make_config, make_logo,    make_tips,    make_palette,      make_fonts,
                                              make_gui,    make_schemes, make_objects, make_contact_sheet};

bool make_all(const Places& places) {
    std::error_code error;
    for (const char* folder : {"resource", "fonts", "SCHEMES"}) {
        fs::create_directories(places.program_folder / folder, error);
        if (error) return std::fprintf(stderr, "%s: %s\n", folder, error.message().c_str()), false;
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
    if (argument_count != 4) {
        std::fprintf(stderr, "Usage: nubo-assets SOURCE_FOLDER PROGRAM_FOLDER CONTACT_SHEET.png\n");
        return 2;
    }
    if (install_allegro(SYSTEM_NONE, &errno, nullptr) != 0) return 1;
    set_color_depth(32);
    nubo::use_window_color_order();
    const bool made = nubo::make_all({arguments[1], arguments[2], arguments[3]});
    allegro_exit();
    return made ? 0 : 1;
}
