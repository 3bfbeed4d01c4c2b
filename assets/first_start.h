#pragma once
// The first start: the settings and the Workspace that stand in a fresh program folder, written by the editor's own
// writers.
#include "painter.h"
#include <filesystem>

namespace nubo {

/// The sources of the first Workspace, and the pictures made before that it needs.
struct FirstSources {
    std::filesystem::path folder;  // of the sources
    BITMAP* tips;                  // the sheet of the built-in tips
    BITMAP* logo;                  // stands as the stamp `logo`
};

/// Writes `resource/user.def` and the alternate set in `WORKSPACE` below `program_folder`, both folders standing; the
/// Frames go to `pictures` as well. False after a failure, which is printed.
bool make_first_start(const FirstSources& sources, const std::filesystem::path& program_folder,
                      std::vector<OwnedBitmap>& pictures);

}  // namespace nubo
