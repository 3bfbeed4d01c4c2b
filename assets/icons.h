#pragma once
// The icons of the desktop: the program's own, and that of a Workspace in a file.
#include "base/bitmap.h"
#include <filesystem>

namespace nubo {

/// Writes `nubo-SIDE.png` and `workspace-SIDE.png` in all sizes that desktops ask for, and both as `.svg`, into
/// `folder`, which stands. False after a failure, which is printed.
bool make_icons(BITMAP* logo, const std::filesystem::path& folder);

}  // namespace nubo
