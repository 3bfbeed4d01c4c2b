#pragma once
// What the PIC menu and the hotkeys do to the Frame as a whole.

namespace nubo {

/// Fills the Frame with `mask_color`; can be undone.
void clear_frame();

/// The Frame as it was last brought into memory, at the size that it had then; can be undone unless the size changes.
/// Without memory for it nothing changes, and the log tells.
void restore_frame();

/// UNDO and REDO, by button or key; the user is told when the Cel has changed along.
void undo_by_user();
void redo_by_user();

}  // namespace nubo
