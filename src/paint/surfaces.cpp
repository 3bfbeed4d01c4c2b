#include "paint/surfaces.h"

#include "paint/inks.h"
#include <utility>

namespace nubo {

bool adopt_frame(OwnedBitmap frame) {
    if (stroke_mask == nullptr || stroke_mask->w != frame->w || stroke_mask->h != frame->h) {
        OwnedBitmap mask = make_uncleared_bitmap(frame->w, frame->h);
        if (!mask) return false;
        replace_bitmap(stroke_mask, std::move(mask));
    }
    replace_bitmap(current_frame, std::move(frame));
    frame_w = current_frame->w;
    frame_h = current_frame->h;
    return true;
}

void clear_stroke_mask() {
    clear_to_color(stroke_mask, 0);
    update_gradient_geometry();
}

}  // namespace nubo
