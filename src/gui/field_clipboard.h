#pragma once
// CTRL+C, CTRL+X and CTRL+V in a text field. The keys are heard by the timer handler; the clipboard is the main flow's.
#include "state/run.h"

namespace nubo {

/// The job that is pushed: a number that no other job has.
inline constexpr JobType JOB_FIELD_CLIPBOARD{33};

enum FieldClipboard : int { FIELD_COPIES, FIELD_PASTES, FIELD_CUTS };

/// Leaves it to the main flow to copy or cut what is selected in the field, or all of its text where nothing is, or to
/// paste at its cursor. Either flow.
void ask_field_clipboard(int slot, FieldClipboard what);

/// Names what the job does. At start.
void install_field_clipboard();

}  // namespace nubo
