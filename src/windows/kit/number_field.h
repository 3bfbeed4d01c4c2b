#pragma once
// Text fields that hold a number. Main flow only.

namespace nubo {

/// Makes the element a text field that holds the number and takes as many digits as it has, but four at the least.
void set_number(int slot, int number);

/// The number at the start of the field's text; 0 if there is none.
int read_number(int slot);

/// True for a slot of the table that is a text field.
bool is_number_field(int slot);

}  // namespace nubo
