// Loading font sheets.
#include "base/bitmap.h"
#include "base/log.h"
#include "framework/effects.h"
#include "framework/resources.h"
#include "framework/text.h"
#include <vector>

namespace nubo {
namespace {

constexpr int sheet_w = 320, sheet_h = 200;  // pixels of a sheet that count
constexpr int font_cells = 255;              // cells that a slot holds
constexpr int character_codes = 254;         // cells with a code from here up are not of a character
enum HeaderPixel : int { HEADER_CELL_W, HEADER_CELL_H, HEADER_SHADOW_X, HEADER_SHADOW_Y };
enum InfoPixel : int { INFO_CODE, INFO_DY, INFO_ADVANCE };

/// The value that a pixel of a sheet stands for.
int value_at(BITMAP* sheet, int x, int y) { return UA_palette_index(*pixels_at(sheet, x, y)); }

bool is_usable(BITMAP* sheet) {
    return sheet != nullptr && sheet->w >= sheet_w && sheet->h >= sheet_h && bitmap_color_depth(sheet) == 32;
}

/// Sizes, shadow and tones of a font from its first sheet.
FontSlot read_header(BITMAP* sheet) {
    FontSlot font;
    font.cell_w = value_at(sheet, HEADER_CELL_W, 0);
    font.cell_h = value_at(sheet, HEADER_CELL_H, 0);
    font.shadow_dx = value_at(sheet, HEADER_SHADOW_X, 0);
    font.shadow_dy = value_at(sheet, HEADER_SHADOW_Y, 0);
    for (int tone = 0; tone < text_tones; ++tone)
        font.tones[static_cast<std::size_t>(tone)] = value_at(sheet, tone, sheet_h - 1);
    font.advance.fill(advance_default);
    return font;
}

/// Copies the cells of one sheet behind the `first_cell` of the font's. Those that the slot can't hold are left out.
void read_cells(FontSlot& font, BITMAP* sheet, int first_cell, int columns, int rows) {
    for (int cell = 1; cell < columns * rows && first_cell + cell < font_cells; ++cell) {
        const int x = cell % columns * (font.cell_w + 1), y = cell / columns * (font.cell_h + 1);
        const int glyph_x = font.cell_w * (first_cell + cell);
        blit(sheet, font.sheet, x + 1, y + 1, glyph_x, 0, font.cell_w, font.cell_h);
        const int code = value_at(sheet, x + INFO_CODE, y);
        if (code >= character_codes) continue;
        const auto character = static_cast<std::size_t>(code);
        font.glyph_x[character] = glyph_x;
        font.glyph_dy[character] = value_at(sheet, x + INFO_DY, y);
        font.advance[character] = value_at(sheet, x + INFO_ADVANCE, y);
    }
}

}  // namespace

bool build_font(int slot, std::span<BITMAP* const> sheets) {
    bool is_possible = slot >= 0 && slot < font_slot_count && !sheets.empty();
    for (BITMAP* const sheet : sheets) is_possible = is_possible && is_usable(sheet);
    FontSlot font = is_possible ? read_header(sheets[0]) : FontSlot{};
    const int columns = sheet_w / (font.cell_w + 1), rows = sheet_h / (font.cell_h + 1);
    OwnedBitmap glyphs = make_bitmap(font.cell_w * font_cells, font.cell_h);
    if (columns < 1 || rows < 1 || !glyphs) {
        UA_log("[ ERROR ] : Font sheet can't be used! Slot = %d", slot);
        return false;
    }
    FontSlot& place = font_slots[static_cast<std::size_t>(slot)];
    if (place.sheet != nullptr) destroy_bitmap(place.sheet);
    font.sheet = glyphs.release();
    font.generation = place.generation + 1;
    for (std::size_t i = 0; i < sheets.size(); ++i)
        read_cells(font, sheets[i], static_cast<int>(i) * columns * rows, columns, rows);
    place = font;
    return true;
}

bool UA_load_font(const Folder& folder, int slot, std::initializer_list<const char*> names) {
    std::vector<OwnedBitmap> owned;
    std::vector<BITMAP*> sheets;
    for (const char* const name : names) {
        owned.emplace_back(UA_load_resource_bitmap(folder, name));
        set_palette(global_palette.data());
        if (owned.back()) UA_black_to_mask(owned.back().get());
        sheets.push_back(owned.back().get());
    }
    return build_font(slot, sheets);
}

}  // namespace nubo
