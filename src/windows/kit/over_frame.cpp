#include "windows/kit/over_frame.h"

#include "gui/elements.h"
#include "gui/snapshot.h"
#include "state/colors.h"
#include "state/overlay.h"
#include "state/run.h"
#include "windows/kit/run_window.h"
#include <allegro.h>

namespace nubo {
namespace {

void show_overlay(int is_shown, OverlayDrawer draw) {
    clear_to_color(overlay, static_cast<int>(transparent_color));
    tool_preview_on = is_shown;
    draw_over_frame = draw;
}

}  // namespace

OverlayShown::OverlayShown(OverlayDrawer draw) : shown_before_(tool_preview_on), draw_before_(draw_over_frame) {
    show_overlay(1, draw);
}
OverlayShown::~OverlayShown() { show_overlay(shown_before_, draw_before_); }

void run_over_shadow(void (*command)()) {
    if (gui::active[slot_window] != 0 && gui::hidden[slot_window] == 0) take_menu_snapshot(menu_snapshot);
    {
        const ClearedScreen cleared;
        command();
    }
    clear_menu_shadow();
}

}  // namespace nubo
