#pragma once
// Text fields: their text, their cursor, the keys that edit them. Called by the timer handler, and by the windows that
// give a field the keyboard. A slot outside the table is logged, and the call does nothing.
#include "state/gui.h"

namespace nubo {

/// Gives the field the keyboard. The cursor goes to the character under the mouse, or with `to_end` behind the last.
void GUI_set_key_focus(int slot, bool to_end);

/// Inserts the character before `position`; 1 if it went in, 0 when the field is full or the position lies outside.
int GUI_insert_field(int slot, char character, int position);

/// Deletes the character before `position`.
void GUI_delete_field(int slot, int position);

/// Deletes the character at `position`.
struct Forward {};
void GUI_delete_field(int slot, int position, Forward);

/// Characters in the field.
int field_length(int slot);

/// One tick of the keyboard for the slot in `key_focus`: each key acts when it goes down, and after 29 ticks every 5.
/// The focus outlives its window: where no text field stands any more, nothing happens.
void run_text_input(int slot);

}  // namespace nubo
