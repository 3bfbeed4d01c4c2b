#include "paint/surfaces.h"

#include "base/bitmap_memory.h"
#include "paint/gradient_geometry.h"
#include "state/messages.h"
#include "state/status.h"
#include <algorithm>
#include <cstring>
#include <utility>

namespace nubo {

namespace {

int mask_rows = 0;          // of `stroke_mask`, that are clear
bool mask_is_used = false;  // since it was cleared: none of them may be

}  // namespace

bool adopt_frame(OwnedBitmap frame) {
    if (stroke_mask == nullptr || stroke_mask->w != frame->w || stroke_mask->h != frame->h) {
        OwnedBitmap mask = make_uncleared_bitmap(frame->w, frame->h);
        if (!mask) return false;
        replace_bitmap(stroke_mask, std::move(mask));
        release_stroke_mask();
    }
    replace_bitmap(current_frame, std::move(frame));
    frame_w = current_frame->w;
    frame_h = current_frame->h;
    if (status_message == MESSAGE_RESIZED) status_message = status_timer = 0;  // it told of the Frame before
    return true;
}

void clear_stroke_mask() {
    if (mask_is_used) mask_rows = 0;
    while (clear_some_rows(stroke_mask, mask_rows)) {
    }
    mask_is_used = true;
    update_gradient_geometry();
}

void release_stroke_mask() {
    mask_rows = 0;
    mask_is_used = false;
}

bool clear_some_rows(BITMAP* bitmap, int& rows) {
    constexpr int bytes_at_once = 4 << 20;
    const auto row_bytes = static_cast<std::size_t>(bitmap->w) * sizeof(Color);
    const int end = std::min(rows + 1 + bytes_at_once / static_cast<int>(row_bytes), bitmap->h);
    if (rows >= end) return false;
    take_rows(bitmap, rows, end - rows);
    for (; rows < end; ++rows) std::memset(bitmap->line[rows], 0, row_bytes);
    return true;
}

bool prepare_stroke_mask() {
    return stroke_mask != nullptr && !mask_is_used && clear_some_rows(stroke_mask, mask_rows);
}

}  // namespace nubo
