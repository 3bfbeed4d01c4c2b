#pragma once
// A text field that holds a colour as six hex digits. Main flow only.
#include "state/colors.h"
#include <optional>
#include <string>

namespace nubo {

inline constexpr std::size_t hex_digit_count = 6;

/// What the user has made of the field: at most six hex digits, in capitals. A digit typed takes the place of the one
/// behind the cursor, at the end it pushes the first one out; all else is dropped. Fewer than six mark the field.
std::string read_hex_field(int slot);

/// Puts the colour into the field; returns its digits.
std::string show_hex_color(int slot, Color color);

/// The colour of six digits; nothing for fewer.
std::optional<Color> color_of_digits(const std::string& digits);

}  // namespace nubo
