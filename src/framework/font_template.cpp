// The empty sheet on which an artist draws a font.
#include "base/bitmap.h"
#include "base/log.h"
#include "framework/resources.h"
#include "framework/text.h"
#include "state/run.h"

namespace nubo {
namespace {

constexpr int page_w = 320, page_h = 200, window_w = 960, window_h = 720;
constexpr int narrowest_cell = 3, highest_value = 255;  // the first cell's top row holds four values, each an index
constexpr int grid_color = 255, template_shadow = 2;
constexpr std::string_view template_characters = "ABCDEFGHIJKLMNOPQRSTUVWXYZ0123456789.,':;!?+-[]()<>/%_=";
static_assert(template_characters.size() == 55);

void put_values(BITMAP* page, int x, int y, std::initializer_list<int> values) {
    for (const int value : values) putpixel(page, x++, y, value);
}

/// Draws on an 8-bit page up to the end of the list or of the page.
void draw_template(BITMAP* page, int cell_w, int cell_h, int advance) {
    const int columns = page_w / (cell_w + 1), rows = page_h / (cell_h + 1);
    const int right = columns * (cell_w + 1) - 1, bottom = rows * (cell_h + 1) - 1;
    for (int column = 0; column < columns; ++column) vline(page, column * (cell_w + 1), 0, bottom, grid_color);
    for (int row = 0; row < rows; ++row) hline(page, 0, row * (cell_h + 1), right, grid_color);
    put_values(page, 0, 0, {cell_w, cell_h, template_shadow, template_shadow});
    int cell = 1;
    for (const char character : template_characters) {
        if (cell == columns * rows) return;
        const int x = cell % columns * (cell_w + 1), y = cell / columns * (cell_h + 1);
        put_values(page, x, y, {character, 0, advance});
        ++cell;
    }
}

}  // namespace

void UA_make_font_template(int cell_w, int cell_h, int advance) {
    const bool is_possible = cell_w >= narrowest_cell && cell_w <= highest_value && cell_h >= 1 && cell_h < page_h &&
                             advance >= 0 && advance <= highest_value;
    if (!is_possible) {
        UA_log("[ ERROR ] : A font template can't have cells of %d by %d!", cell_w, cell_h);
        return;
    }
    set_color_depth(8);
    if (set_gfx_mode(GFX_AUTODETECT_WINDOWED, window_w, window_h, 0, 0) != 0) UA_log("[ ERROR ] : %s", allegro_error);
    const OwnedBitmap page(create_bitmap_ex(8, page_w, page_h));
    if (page) {
        clear_bitmap(page.get());
        draw_template(page.get(), cell_w, cell_h, advance);
        if (save_pcx("font.pcx", page.get(), global_palette.data()) != 0)
            UA_log("[ ERROR ] : font.pcx can't be saved!");
    }
    exit_requested = EXIT_BY_HAND;
}

}  // namespace nubo
