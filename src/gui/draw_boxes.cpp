// Boxes without text.
#include "gui/draw_elements.h"
#include "gui/shapes.h"
#include "state/gui.h"
#include "state/options.h"
#include "state/run.h"
#include <allegro.h>

namespace nubo {
void draw_box(int slot) { GUI_box(slot, color_of(slot), ui_border); }

void draw_window(int slot) {
    if (opt_backless == 0) GUI_square_box(slot, color_of(slot), ui_border);
    if (gui::border_style[at(slot)] != border_ants) return;
    const int x = gui::x[at(slot)], y = gui::y[at(slot)];
    GUI_ants(x, y, x + gui::w[at(slot)], y + gui::h[at(slot)]);
}

void draw_failure_box(int slot) { GUI_box(slot, fixed_black, ui_red); }

void draw_progress(int slot) {
    constexpr int bar_h = 7;
    GUI_box(slot, color_of(slot), ui_border);
    const int x = gui::x[at(slot)] + 1, y = gui::y[at(slot)] + 1;
    const int width = static_cast<int>((gui::w[at(slot)] - 2) / 100.0 * gui::progress[at(slot)]);
    if (width > 0) rectfill(screen_buffer, x, y, x + width - 1, y + bar_h - 1, static_cast<int>(ui_highlight_fore));
    GUI_corner_dots(slot, ui_border);
}

void draw_swatch_wait(int slot) { GUI_box(slot, color_of(slot), border_waiting); }

}  // namespace nubo
