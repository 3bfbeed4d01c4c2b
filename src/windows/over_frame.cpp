#include "windows/over_frame.h"

#include "state/colors.h"
#include "state/run.h"
#include "state/view.h"
#include <allegro.h>

namespace nubo {
namespace {

void show_overlay(int is_shown) {
    clear_to_color(overlay, static_cast<int>(transparent_color));
    tool_preview_on = is_shown;
}

}  // namespace

OverlayShown::OverlayShown() { show_overlay(1); }
OverlayShown::~OverlayShown() { show_overlay(0); }

}  // namespace nubo
