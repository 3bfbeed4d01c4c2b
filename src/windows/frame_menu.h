#pragma once
// The commands of the FRAME menu that the hotkeys share. Each keeps the state file up to date with the Frames on disk.

namespace nubo {

/// A copy of the Frame in memory, or a blank one, behind the current Frame. The status bar tells; when nothing was
/// inserted a waiting box or a log line tells why.
void clone_frame();
void insert_blank_frame();

/// Asks whether the current Frame may go, and deletes it; the last one can't.
void ask_to_delete_frame();

}  // namespace nubo
