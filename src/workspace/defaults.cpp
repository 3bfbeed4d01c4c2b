#include "workspace/defaults.h"

#include "base/color.h"
#include "base/random.h"
#include "state/colors.h"
#include "state/frame_sources.h"
#include "state/frames.h"
#include "state/guides.h"
#include "state/overlay.h"
#include "state/tools.h"
#include "state/view.h"

namespace nubo {
namespace {

Color random_color() {
    constexpr int levels = 255;  // a component is at most 254
    const int red = UA_random(levels), green = UA_random(levels), blue = UA_random(levels);
    return pack_color(red, green, blue);
}

}  // namespace

void set_workspace_defaults() {
    frame_view.fill({});
    frame_source.fill({});
    for (Color& color : color_slots) color = random_color();
    favorites.fill(color_scheme[SCHEME_BACKGROUND]);
    spectrum_start = random_color();
    spectrum_end = random_color();
    tool_slots = default_tool_slots;
    ink_slots = default_ink_slots;
    active_tool_slot = active_ink_slot = 0;
    frame_count = 1;
    frame_index = 0;
    favorites_page = 0;
    pan_x = 0;
    pan_y = 0;
    tool_preview_on = 0;
    guides = Guides{};
}

}  // namespace nubo
