#include "windows/kit/number_field.h"

#include "gui/elements.h"
#include <algorithm>
#include <array>
#include <cstdio>
#include <cstdlib>

namespace nubo {
namespace {

constexpr int digits = 4, cell_w = 6, margin = 5;
using NumberText = std::array<char, 16>;

}  // namespace

void set_number(int slot, int number) {
    NumberText text;
    const int length = std::snprintf(text.data(), text.size(), "%d", number);
    const int fit = (gui::w[at(slot)] - margin) / cell_w;
    GUI_set_field(slot, {.visible = fit, .max = std::max(digits, length), .font = FONT_WIDE}, text.data());
}

int read_number(int slot) {
    NumberText text{};
    GUI_read_field(slot, text);
    return std::atoi(text.data());
}

bool is_number_field(int slot) { return is_slot(slot) && gui::type[at(slot)] == ELEMENT_TEXT_FIELD; }

}  // namespace nubo
