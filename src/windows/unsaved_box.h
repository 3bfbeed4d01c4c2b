#pragma once
// The box at an end that would lose the user's work.

namespace nubo {

enum UnsavedChoice : int { UNSAVED_AGAIN, UNSAVED_GO_ON, UNSAVED_LOST };

/// Tells that the work can be saved nowhere, and asks what is to be done: saving it again, going on with it, or ending
/// without it, which is asked once more. ESC and a further end that is asked for go on. Main flow only.
UnsavedChoice unsaved_box();

}  // namespace nubo
