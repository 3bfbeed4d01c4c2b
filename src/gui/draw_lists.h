#pragma once
// Lists and text fields in the colours of the caller: the scheme window draws a second set in its own.
#include "gui/shapes.h"

namespace nubo {

struct ListColors {
    Color fill, border, row;
    TextColor text, marked;
};
void draw_list_in(int slot, const ListColors& colors);

struct FieldColors {
    Color fill, border;
    TextColor text;  // and of the cursor
};
void draw_field_in(int slot, const FieldColors& colors);

}  // namespace nubo
