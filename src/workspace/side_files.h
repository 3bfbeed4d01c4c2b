#pragma once
// The three picture files beside the state file: the Cel, the CustomTip and the Nail; and their repair.
#include "platform/folder.h"
#include <string>

namespace nubo {

enum SideFile : int { SIDE_CEL = 0, SIDE_NAIL = 1, SIDE_TIP = 2, SIDE_COUNT };

/// Writes one of them to a folder under the name `stem` + its ending. False after a failure, which is logged.
bool save_side_file(const Folder& folder, SideFile kind, const std::string& stem);

/// Reads one of them. False if it is missing, or was set aside because it is malformed. For one that is sound but can't
/// be read now black content stands in, which isn't written over it; the user is told.
bool load_side_file(const Folder& folder, SideFile kind, const std::string& stem);

/// Puts black content in place of a missing `current.cel`, `.nal` or `.tip`, on disk and in memory, and marks the
/// damage. Any other kind does nothing.
void repair_workspace(const Folder& folder, int kind);

/// Black content in memory, without a word: the Cel of a new Workspace keeps its size, a missing one is 16 by 16.
void blank_side_content();

}  // namespace nubo
