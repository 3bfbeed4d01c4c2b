#include "windows/files/jpeg_quality_window.h"

#include "base/bitmap.h"
#include "base/memory.h"
#include "codecs/jpeg.h"
#include "paint/surfaces.h"
#include "state/frames.h"
#include "state/options.h"
#include "state/run.h"
#include "windows/kit/run_window.h"
#include "workspace/frame_memory.h"
#include <array>

namespace nubo {
namespace {

enum QualitySlot : int { QUALITY_SLIDER = slot_content, QUALITY_OKAY, QUALITY_VIEW, QUALITY_CANCEL, QUALITY_SLOTS };

constexpr SliderRange quality_range{.highest = 100, .step = 5};

constexpr ElementRow button_row(int slot, int x, Label label) {
    return {.slot = slot, .type = ELEMENT_BUTTON_LIT, .x = x, .y = 24, .w = 44, .label = label, .left = ACTION_CLICK};
}
constexpr std::array<ElementRow, QUALITY_SLOTS - slot_content> rows{{
    {.slot = QUALITY_SLIDER, .type = ELEMENT_BOX, .x = 2, .y = 12, .w = 138, .range = quality_range},
    button_row(QUALITY_OKAY, 2, LABEL_OKAY),
    button_row(QUALITY_VIEW, 49, LABEL_VIEW),
    button_row(QUALITY_CANCEL, 96, LABEL_CANCEL),
}};
static_assert(rows_in_order(rows, &ElementRow::slot, slot_content));

constexpr WindowRow window{.id = WINDOW_JPG_QUALITY,
                           .place = POS_JPG_QUALITY,
                           .x = view_w - 157,
                           .y = view_h - 51,
                           .w = 142,
                           .h = 36,
                           .child_count = QUALITY_SLOTS,
                           .title = LABEL_JPG_QUALITY,
                           .title_w = 138,
                           .elements = rows,
                           .base = high_slot,
                           .okay = QUALITY_OKAY,
                           .cancel = QUALITY_CANCEL,
                           .prompt = MESSAGE_JPG_QUALITY};

constexpr std::size_t slider = at(high_slot + QUALITY_SLIDER);

/// Puts into the Frame what a JPEG of the slider's quality makes of `picture`.
void view_quality(BITMAP* picture) {
    const auto make = [picture] {
        Bytes bytes;
        return write_jpeg(picture, gui::slider_value[slider], bytes) ? read_jpeg(bytes) : ReadPicture{};
    };
    const ReadPicture shown_as = unless_memory_ends(make, {});
    if (!shown_as.bitmap) return;
    blit(shown_as.bitmap.get(), current_frame, 0, 0, 0, 0, frame_w, frame_h);
    note_all_touched();
}

}  // namespace

int jpeg_quality_window() {
    OwnedBitmap kept = copy_bitmap(current_frame);
    if (!kept) return jpeg_quality;  // without memory to show it the last quality stands
    frame_behind_preview = kept.release();
    const ClearedScreen cleared;
    int quality = jpeg_quality;
    const auto open = [&] {
        gui::slider_value[slider] = int{jpeg_quality};
        view_quality(frame_behind_preview);
    };
    const auto serve = [&] {
        quality = gui::slider_value[slider];
        if (take_click(high_slot + QUALITY_VIEW) > 0) view_quality(frame_behind_preview);
        return WINDOW_STAYS;
    };
    const WindowPass end = run_window(window, {.built = open, .serve = serve});
    end_frame_preview();
    if (end != WINDOW_DONE) return -1;
    jpeg_quality = quality;
    return quality;
}

}  // namespace nubo
