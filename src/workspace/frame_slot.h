#pragma once
// The names of the Workspace's files, and a slot of the row of Frames, which gives the paths of its own.
#include "platform/folder.h"
#include <array>
#include <string>
#include <string_view>

namespace nubo {

/// What a file of a Workspace is called in front of its point: "current.007". The first three are Workspaces' own; the
/// others stand for moments only: a Frame's state against a crash, and files on their way into the Workspace or out of
/// it; but for the history of a Frame, which goes where it goes, and is dropped where it goes.
enum FrameStem : int {
    STEM_CURRENT,
    STEM_ALTERNATE,
    STEM_BACKUP,
    STEM_RESCUE,
    STEM_INSERTED,
    STEM_DELETED,
    STEM_LOADED,
    STEM_HISTORY,
    STEM_DROPPED,
    STEM_COUNT
};
std::string frame_file_name(FrameStem stem, int slot);

/// The files beside the Frames, in the order in which an archive holds them. The state is the last: with it a Workspace
/// that comes is whole.
inline constexpr std::array side_endings{"cel", "nal", "tip", "spa"};
std::string side_file_name(FrameStem stem, const char* ending);

/// True for what one of the Workspace's own files is called in front of its point.
bool is_stem(std::string_view name);

/// A slot of the row of Frames that lies in a folder: WORKSPACE, or one of rescue. A value, whether it has files or
/// not.
struct FrameSlot {
    Folder folder;
    int number = 0;  // 0 to 99

    /// The path of its file under a stem.
    std::string path(FrameStem stem) const { return folder.file(frame_file_name(stem, number)); }
    std::string frame() const { return path(STEM_CURRENT); }
    std::string rescue() const { return path(STEM_RESCUE); }
    std::string history() const { return path(STEM_HISTORY); }
    bool has_frame() const;
    bool has_rescue() const;
};

/// The number of slots of a folder that have a Frame.
int count_frames_in(const Folder& folder);

}  // namespace nubo
