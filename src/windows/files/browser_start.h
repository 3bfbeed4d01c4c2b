#pragma once
// Where the file browser begins for each kind of file, and what it remembers of where it was. Main flow only.
#include "state/files.h"
#include <string>
#include <vector>

namespace nubo {

struct BrowserStart {
    std::vector<std::string> folders;  // in which it opens, the next where one can't be entered
    std::string file;                  // the name that is offered, empty: none
};

/// At home, or where files of that kind were looked for last. A Frame that was opened from outside is offered its own
/// file in its own folder.
BrowserStart browser_start(BrowserMode mode, FilePurpose purpose);

/// Keeps where the user has looked for a Workspace, a palette or a scheme, and the name picked there, if there is one.
/// Pictures and fonts have told places.
void remember_browsing(FilePurpose purpose, const std::string& folder, const std::string& file);

}  // namespace nubo
