#include "gui/snapshot.h"

#include "gui/draw.h"
#include "gui/elements.h"
#include "state/run.h"
#include "state/windows.h"

namespace nubo {

void take_menu_snapshot(BITMAP* bitmap) {
    clear_to_color(screen_buffer, static_cast<int>(transparent_color));
    GUI_draw_all();
    blit(screen_buffer, bitmap, 0, 0, 0, 0, view_w, view_h);
    constexpr int extra_w = 3, extra_h = 1;
    menu_shadow = {gui::x[slot_window], gui::y[slot_window], gui::w[slot_window] + extra_w,
                   gui::h[slot_window] + extra_h};
}

void clear_menu_shadow() { menu_shadow = {}; }

}  // namespace nubo
