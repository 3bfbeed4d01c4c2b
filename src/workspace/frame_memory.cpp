#include "workspace/frame_memory.h"

#include "base/color.h"
#include "base/log.h"
#include "paint/surfaces.h"
#include "paint/undo.h"
#include "state/frames.h"
#include "state/view.h"
#include "view/view.h"
#include <algorithm>
#include <utility>

namespace nubo {
namespace {

/// The mean lightness of all pixels picks one of the three backdrops. A pixel's lightness in HLS is half the sum of its
/// largest and its smallest component.
int backdrop_of(BITMAP* frame) {
    constexpr unsigned long long levels_per_backdrop = 86;
    unsigned long long doubled = 0;
    for (int y = 0; y < frame->h; ++y) {
        const Color* const row = pixels_at(frame, 0, y);
        for (int x = 0; x < frame->w; ++x) {
            const auto [low, high] = std::minmax({red_of(row[x]), green_of(row[x]), blue_of(row[x])});
            doubled += static_cast<unsigned>(low + high);
        }
    }
    const auto pixels = static_cast<unsigned long long>(frame->w) * static_cast<unsigned long long>(frame->h);
    return static_cast<int>(doubled / (2 * pixels) / levels_per_backdrop);
}

bool same_size(const BITMAP* a, const BITMAP* b) { return a != nullptr && a->w == b->w && a->h == b->h; }

}  // namespace

bool place_picture(OwnedBitmap picture) {
    if (!picture || !adopt_frame(std::move(picture))) {
        UA_log("[ ERROR ] : There isn't memory enough for the frame");
        return false;
    }
    view_clamp();
    if (frame_w < view_w || frame_h < view_h) checker_index = backdrop_of(current_frame);
    reset_undo_slots();
    return true;
}

// Both are replaced or none. A bitmap of the right size is used again, since fresh memory costs more than the copy.
bool place_frame(OwnedBitmap picture) {
    if (!picture) return false;
    OwnedBitmap original;
    if (!same_size(original_frame, picture.get())) {
        original = copy_bitmap(picture.get());
        if (!original) return false;
    }
    if (!place_picture(std::move(picture))) return false;
    if (original)
        replace_bitmap(original_frame, std::move(original));
    else
        blit(current_frame, original_frame, 0, 0, 0, 0, frame_w, frame_h);
    return true;
}

void end_frame_preview() {
    if (frame_behind_preview == nullptr) return;
    blit(frame_behind_preview, current_frame, 0, 0, 0, 0, frame_w, frame_h);
    frame_behind_preview = nullptr;
}

void show_slot(int slot) {
    frame_index = slot;
    const FrameView& view = frame_view[static_cast<unsigned>(slot)];
    pan_x = view.pan_x;
    pan_y = view.pan_y;
    zoom = std::max(view.zoom, zoom_min);
}

bool place_blank_frame() { return place_frame(make_bitmap(view_w, view_h)); }

}  // namespace nubo
