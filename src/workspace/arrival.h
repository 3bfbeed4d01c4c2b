#pragma once
// What the Workspace held when LOAD or NEW put it there, noted beside it as sums: one in which nothing has changed
// since needn't be put away, as long as the archive that it came from is still there. Main flow only.
#include <cstdint>
#include <string>
#include <utility>

namespace nubo {

/// Where a Workspace came from. Told apart by size and time, since an archive that was put away takes other names.
struct ArrivalSource {
    std::string path{};                            // absolute; empty for a new, blank one
    std::uintmax_t size = 0;                       // bytes
    std::pair<std::int64_t, std::int64_t> time{};  // of its last change
};
ArrivalSource source_of_archive(const std::string& path);

/// Notes the Workspace in memory and on disk as one that has just come. Without the note, where the disk doesn't let
/// it, the Workspace counts as changed.
void note_arrival(const ArrivalSource& source);

/// True if Frames, Cel, CustomTip, colours, favourites and texts are as they came, and what it came from is still
/// there. What is in memory has been saved.
bool is_as_it_came();

}  // namespace nubo
