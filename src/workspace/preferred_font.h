#pragma once
// The font of TEXT: the one that the Workspace remembers, or the one that comes with the program. Main flow only.
#include "platform/folder.h"

namespace nubo {

/// Makes the font of that file the preferred one, at the size of TEXT, and returns 1. -1, with the one before kept,
/// when it is missing, which nobody is told, or no font: that is logged, and a box waits for whoever shows boxes.
int load_preferred_font(const std::string& path);

/// At each load of a Workspace: the font that it remembers, or else the program's own. False after a log line when
/// neither is there: then the font that was stays, at a start none.
bool select_preferred_font();

/// Where the preferred font lies: where none is named, in the program's `fonts`.
Folder font_folder();

/// The font at `path` is the user's choice, which the Workspace remembers. Where no file is, or none that can be read,
/// which is told, the font in use stays.
void choose_preferred_font(const std::string& path);

}  // namespace nubo
