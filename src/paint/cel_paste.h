#pragma once
// From the Cel to the Frame: the preview of the running placement (`cel_place`), and its commit through the active ink.
#include "base/bitmap.h"
#include "state/cel.h"
#include "state/inks.h"

namespace nubo {

/// Draws the running placement on `overlay`, which has been cleared: the Cel pasted, turned or stretched, its outline
/// if it is selected. Sets the placement's box, in pixels of `overlay`, and `cel_visible`. By `update_screen`.
void draw_cel(int mode);

/// Whether a commit saves undo, or the open step, taken before a cut, counts as what was there before.
enum UndoSave : int { UNDO_IS_TAKEN, UNDO_TO_SAVE };

/// Paints the placement into the Frame. Undo is saved in any case if the open step isn't of this Frame, since inks read
/// the newest state. False, with nothing changed but a status message, when there is no memory for it.
bool commit_cel(CelMode mode, UndoSave save);

/// Paints the bitmap with its corner at the Frame pixel (x, y) by an ink, row by row; pixels of 0xff00ff and those
/// beyond the Frame are left out. Undo is saved and the coverage map clear.
void paste_by_ink(BITMAP* bitmap, int x, int y, Ink ink);

/// Puts the pixels of `source` where `target` is of `color`, within 4 of each component: through the active ink, for
/// which `target` is the Frame, or as they are. Where a Cel that isn't whole has no pixel nothing is put.
void paste_under_frame(BITMAP* source, BITMAP* target, Color color, int x, int y, bool through_ink);

}  // namespace nubo
