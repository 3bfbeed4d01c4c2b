#pragma once
// How a file that something else is to be written over gets out of the way: nothing that may be the user's is ever
// written over or removed for being in the way.
#include "base/bitmap.h"
#include <string>

namespace nubo {

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

/// Writes a picture of the Workspace, with a mark in its head, the only way in which one is written under a name that
/// may be taken. The black that stands in for a file kept unread is not worth its place: then nothing is done. False
/// after a failure.
bool save_picture(const std::string& file, BITMAP* picture, int mark = 0);

}  // namespace nubo
