#pragma once
// The surfaces of a stroke: the Frame, its coverage map, and the snapshot that the inks read. Who writes into the Frame
// says where (`note_touched`): by that the next step of undo finds what has changed without looking at all of it. A
// write that wasn't told is found by the sanitized builds, at the next `save_undo`.
#include "base/bitmap.h"
#include "paint/tiles.h"
#include "state/frames.h"

namespace nubo {

/// Makes `frame` the Frame in memory and `stroke_mask` one of its size, whose content means nothing until a stroke or a
/// commit clears it; the old ones are destroyed. This is the one place that replaces `current_frame`. False, with
/// nothing changed, when the memory can't be had.
bool adopt_frame(OwnedBitmap frame);

// ---- What has been written to --------------------------------------------------------------------------------------

/// Pixels of the Frame are written to, or were just now; what lies beyond the Frame is left out.
void note_touched(const Area& area);
void note_all_touched();

/// The same of a row that an ink paints, and the coverage map's with it. All of it lies in the Frame.
void note_painted(int x, int y, int length);

/// Where the Frame may differ from the snapshot. Undo takes tiles out as it makes the snapshot equal, and says so by
/// `renew_notes`.
inline TileSet touched_tiles;
void renew_notes();

// ---- The coverage map ----------------------------------------------------------------------------------------------

/// What every stroke starts with: all of `stroke_mask` becomes 0, so that no pixel is covered yet, and the geometry of
/// the gradients follows their nodes.
void clear_stroke_mask();

/// Ends what `clear_stroke_mask` began: nobody reads the map any more, and it may be cleared for the next stroke while
/// the program rests.
void release_stroke_mask();

/// A step toward a coverage map that is new or was released, well below a millisecond's work; false when it is clear or
/// in use.
bool prepare_stroke_mask();

/// The Frame as it was at the last `save_undo`. Null before the first one.
inline BITMAP* stroke_snapshot() { return undo_snapshot; }

}  // namespace nubo
