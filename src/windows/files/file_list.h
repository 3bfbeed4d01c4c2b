#pragma once
// The list of the file browser: its rows, its scroll bar, its keys. Main flow only.
#include "platform/folder_listing.h"
#include <string>

namespace nubo {

inline FolderListing file_names;  // what stands in `image_dir`, of the kinds that the filter lets through

inline int file_cursor = -1;  // the entry that was chosen last, by a click or a key; -1 none

inline constexpr int file_rows = 11, file_row_h = 7;

/// Makes the element the list of `file_names`, shown from its first row on, with a scroll bar where there are more.
void set_file_list(int list);

/// Before each picture: the rows about to be shown are looked at, and those that aren't offered go.
void settle_file_list(int list);

/// The entry under the mouse, -1 none: beside the rows, on the scroll bar or below the last name.
int file_under_mouse(int list);

/// The entry of that name, -1 none.
int find_file(const std::string& name);

/// Scrolls by as little as shows the entry.
void show_file(int list, int index);

/// The entry that a key moves to from `index` (-1 none): the arrow keys, Page Up and Down, Home, End. `index` for any
/// other key.
int file_of_key(int key_code, int index);

/// The first entry from `first` on, and round, whose name begins so, capitals like small letters; -1 none, as for no
/// text.
int find_beginning(const std::string& text, int first);

}  // namespace nubo
