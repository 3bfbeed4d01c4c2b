#pragma once
// The window in which all files are chosen. Main flow only.
#include "state/files.h"

namespace nubo {

/// Lets the user choose a file in a folder, and loads or saves it as the purpose asks. `image_dir` and `image_file`
/// are left as the user left them, also after CANCEL, where he has looked for a picture; all other kinds of files have
/// folders of their own (windows/files/browser_start.h).
void file_browser(BrowserMode mode, FilePurpose purpose);

/// The commands of the PIC menu and their keys.
void load_frame_command();
void save_frame_command();

}  // namespace nubo
