#include "windows/colors/hex_field.h"

#include "gui/elements.h"
#include <algorithm>
#include <array>
#include <cctype>
#include <cstdio>
#include <cstdlib>

namespace nubo {
namespace {

constexpr int digits = static_cast<int>(hex_digit_count);
constexpr FieldLayout layout{.visible = digits, .max = 2 * digits + 1, .font = FONT_WIDE};  // room to paste "#" and six

/// Digits, and how many of them stand before the cursor.
struct Digits {
    std::string text;
    std::size_t cursor = 0;
};

Digits digits_of(int slot, const char* text) {
    Digits found;
    const auto cursor = static_cast<std::size_t>(std::max<int>(gui::cursor[at(slot)], 0));
    for (std::size_t i = 0; text[i] != '\0'; ++i) {
        const auto letter = static_cast<unsigned char>(text[i]);
        if (std::isxdigit(letter) == 0) continue;
        found.text += static_cast<char>(std::toupper(letter));
        if (i < cursor) ++found.cursor;
    }
    while (found.text.size() > hex_digit_count) {
        const bool at_end = found.cursor == found.text.size();
        found.text.erase(at_end ? 0 : found.cursor, 1);
        if (at_end) --found.cursor;
    }
    return found;
}

}  // namespace

std::string read_hex_field(int slot) {
    std::array<char, layout.max + 1> text{};
    GUI_read_field(slot, text);
    const Digits found = digits_of(slot, text.data());
    if (found.text != text.data()) {
        GUI_set_field(slot, layout, found.text.c_str());
        gui::cursor[at(slot)] = static_cast<int>(found.cursor);
    }
    gui::invalid[at(slot)] = found.text.size() < hex_digit_count ? 1 : 0;
    return found.text;
}

std::string show_hex_color(int slot, Color color) {
    std::array<char, hex_digit_count + 1> text{};
    std::snprintf(text.data(), text.size(), "%06X", color & 0xffffffU);
    GUI_set_field(slot, layout, text.data());
    gui::invalid[at(slot)] = 0;
    return text.data();
}

std::optional<Color> color_of_digits(const std::string& digits) {
    constexpr int sixteen = 16;
    if (digits.size() < hex_digit_count) return std::nullopt;
    return static_cast<Color>(std::strtoul(digits.c_str(), nullptr, sixteen));
}

}  // namespace nubo
