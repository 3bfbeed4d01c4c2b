#pragma once
// What is selected in a text field: the bytes between `field_anchor` and the cursor. Both flows, as text_field.h.

namespace nubo {

/// From `start` to before `end`; empty where the two are equal.
struct FieldPart {
    int start = 0, end = 0;
    bool is_empty() const { return start == end; }
};
FieldPart selected_part(int slot);

/// Where the cursor goes from now on is the other end of what is selected.
void begin_selection(int slot);
void unselect(int slot);
void select_all(int slot);

/// Deletes what is selected and puts the cursor there. False where nothing was.
bool delete_selected(int slot);

}  // namespace nubo
