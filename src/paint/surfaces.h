#pragma once
// The surfaces of a stroke: the Frame, its coverage map, and the snapshot that the inks read.
#include "base/bitmap.h"
#include "state/frames.h"

namespace nubo {

/// Makes `frame` the Frame in memory and `stroke_mask` one of its size, whose content means nothing until a stroke or a
/// commit clears it; the old ones are destroyed. This is the one place that replaces `current_frame`. False, with
/// nothing changed, when the mask's memory can't be had.
bool adopt_frame(OwnedBitmap frame);

/// What every stroke starts with: all of `stroke_mask` becomes 0, so that no pixel is covered yet, and the geometry of
/// the gradients follows their nodes.
void clear_stroke_mask();

/// Ends what `clear_stroke_mask` began: nobody reads the map any more, and it may be cleared for the next stroke while
/// the program rests.
void release_stroke_mask();

/// Zeroes the next rows of a bitmap whose first `rows` rows are done, about a millisecond's work; false when all are.
/// The system hands new memory over page by page: so it is there before a stroke has to wait for it.
bool clear_some_rows(BITMAP* bitmap, int& rows);

/// Such a step toward a coverage map that is new or was released; false when it is clear or in use.
bool prepare_stroke_mask();

/// The snapshot of the running stroke: the undo slot last saved. Null before the first save.
inline BITMAP* stroke_snapshot() { return undo_slots[static_cast<std::size_t>(newest_undo)]; }

}  // namespace nubo
