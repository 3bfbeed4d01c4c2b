#pragma once
// Text fields: their text, their cursor, the keys that edit them. Called by the timer handler, and by the windows that
// give a field the keyboard. A slot outside the table is logged, and the call does nothing.
#include "state/gui.h"
#include <string_view>

namespace nubo {

/// Gives the field the keyboard, with its text selected as `field_selects` says and the cursor behind the last
/// character. Without `to_end`, for a press, the cursor goes to the character under the mouse where nothing is to be
/// selected: in prose, and in the field that has the keyboard already.
void GUI_set_key_focus(int slot, bool to_end);

/// The cursor behind the last character, with as much of the text before it as the field shows.
void scroll_field_to_end(int slot);

/// Inserts all bytes of a character before `position`; 1 if they went in, 0 when the field has no room for them, in
/// characters or in bytes, or the position lies outside.
int GUI_insert_field(int slot, std::string_view character, int position);

/// Deletes the character before `position`: all bytes of it.
void GUI_delete_field(int slot, int position);

/// Deletes the character at `position`.
struct Forward {};
void GUI_delete_field(int slot, int position, Forward);

/// Deletes the bytes from `start` to before `end`, both inside the text.
void delete_bytes(int slot, int start, int end);

/// Inserts a text at the cursor, as if typed: its first line, as much of it as the field takes, in the place of what is
/// selected.
void type_text(int slot, std::string_view text);

/// Bytes in the field. Its numbers, as `cursor` and `field_scroll`, count bytes; a character may have several.
int field_length(int slot);

/// The position behind the character at `position`, and that of the character before it.
int field_step_on(int slot, int position);
int field_step_back(int slot, int position);

/// The position `columns` characters further, at most the end of the text.
int step_by_columns(int slot, int position, int columns);

/// Characters between two positions: each is drawn in one cell.
int field_columns(int slot, int from, int to);

/// One tick of the keyboard for the slot in `key_focus`: each key acts when it goes down, and after 29 ticks every 5.
/// The focus outlives its window: where no text field stands any more, nothing happens.
void run_text_input(int slot);

}  // namespace nubo
