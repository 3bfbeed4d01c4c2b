#pragma once
// The names of the Workspace's files, and how a file that something else is to be written over gets out of the way:
// nothing that may be the user's is ever written over or removed for being in the way.
#include "base/bitmap.h"
#include "platform/folder.h"
#include <array>
#include <string>
#include <string_view>

namespace nubo {

/// The name of a slot's file under one of the stems: "current.007". The first three are Workspaces' own; the others
/// stand for moments only: a Frame's state against a crash, and files on their way into the Workspace or out of it.
enum FrameStem : int {
    STEM_CURRENT,
    STEM_ALTERNATE,
    STEM_BACKUP,
    STEM_RESCUE,
    STEM_INSERTED,
    STEM_DELETED,
    STEM_LOADED,
    STEM_COUNT
};
std::string frame_file_name(FrameStem stem, int slot);

/// The files beside the Frames, in the order in which an archive holds them. The state is the last: with it a Workspace
/// that comes is whole.
inline constexpr std::array side_endings{"cel", "nal", "tip", "spa"};
std::string side_file_name(FrameStem stem, const char* ending);

/// True for what one of the Workspace's own files is called in front of its point.
bool is_stem(std::string_view name);

/// The path of a slot's file.
std::string frame_path(const Folder& folder, FrameStem stem, int slot);

/// The number of slots with a file under that stem in a folder.
int count_slot_files(const Folder& folder, FrameStem stem);

inline constexpr const char* aside_unreadable = "unreadable";  // can't be read, or couldn't when it was asked for
inline constexpr const char* aside_spare = "spare";            // another file was taken in its place

/// Gives a file, by its path, a name of its folder that nothing has: `stem`, a number from the second on, and its
/// ending. False, logged, if it stays where it is.
bool set_aside(const std::string& file, const char* stem = aside_unreadable);

/// A file that is there and sound, but can't be read at the moment: it stays where it is. Until it has been read, or
/// set aside, nothing may be written over it.
void keep_unread(const std::string& file);
bool is_kept_unread(const std::string& file);
void forget_unread(const std::string& file);

/// Before a file is written: one that was kept unread under that name is set aside. False if that fails.
bool make_way(const std::string& file);

bool is_black(BITMAP* picture);

/// Writes a picture of the Workspace, the only way in which one is written under a name that may be taken. The black
/// that stands in for a file kept unread is not worth its place: then nothing is done. False after a failure.
bool save_picture(const std::string& file, BITMAP* picture);

}  // namespace nubo
