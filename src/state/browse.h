#pragma once
// Where the user looks for files.
#include "state/options.h"

namespace nubo {

inline constinit std::array<char, path_size> browse_dir{};  // in which the file browser opens where no home is set

/// What the user looks for in folders of its own, beside pictures (`browse_dir`) and fonts (`font_dir`). The order is
/// that of the file that keeps them.
enum BrowseKind : int { BROWSE_WORKSPACES, BROWSE_PALETTES, BROWSE_SCHEMES, BROWSE_KINDS };

struct BrowsePlace {
    std::array<char, path_size> folder{};     // the last one; empty: none yet
    std::array<char, file_name_size> file{};  // picked there last
};
inline constinit std::array<BrowsePlace, BROWSE_KINDS> browse_places{};

}  // namespace nubo
