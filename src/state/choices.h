#pragma once
// What a row of the tables of tools and inks is made of: a name, a description, options.
#include "state/labels.h"
#include "state/messages.h"
#include <array>
#include <string_view>

namespace nubo {

// ---- Options -------------------------------------------------------------------------------------------------------

enum OptionKind : int {
    KIND_NONE,  // no option: ends the list
    KIND_SLIDER,
    KIND_TOGGLE,
    KIND_NODE  // a coordinate of a gradient's node; the one with a label is the button that moves the nodes
};

/// What the option key does with the option; nothing as long as it stands empty.
struct OptionKey {
    Label title = LABEL_NONE;       // of the slider that comes up
    int highest = 0;                // of that slider, which begins at 0
    std::array<Message, 2> told{};  // of a toggle: what the status bar says of 0 and of 1
};

/// One option: its slot in `tool_options` or `ink_options`, its control in the window, its range, the ends included.
struct ChoiceOption {
    OptionKind kind = KIND_NONE;
    int slot = 0;
    Label label = LABEL_NONE;
    int lowest = 0, highest = 0;
    int first = 0;  // in the Workspace of a first start; a new one holds 0 everywhere
    Message tooltip = MESSAGE_NONE;
    OptionKey key{};
    int toggle_w = 0;  // of a toggle that stands alone, pixels

    /// What may be stored: the range, and the 0 of a new Workspace.
    constexpr int stored_lowest() const { return lowest < 0 ? lowest : 0; }
};

inline constexpr int options_max = 6, option_slots = 8;
using ChoiceOptions = std::array<ChoiceOption, options_max>;

/// The option in a slot; null if nothing is there.
constexpr const ChoiceOption* find_option(const ChoiceOptions& options, int slot) {
    for (const ChoiceOption& option : options)
        if (option.kind != KIND_NONE && option.slot == slot) return &option;
    return nullptr;
}

// ---- Descriptions --------------------------------------------------------------------------------------------------

inline constexpr int description_lines = 10, description_width = 20;  // characters, the width of the box
using Description = std::array<std::string_view, description_lines>;  // the lines behind the last are empty

// ---- Checks --------------------------------------------------------------------------------------------------------

/// True when all that the row holds fits: slots, ranges, the width of the lines.
template <typename Row> constexpr bool row_is_sound(const Row& row) {
    for (const ChoiceOption& option : row.options) {
        if (option.kind == KIND_NONE) continue;
        const bool in_range = option.stored_lowest() <= option.first && option.first <= option.highest;
        if (!in_range || option.slot < 0 || option.slot >= option_slots) return false;
        if (find_option(row.options, option.slot) != &option) return false;
    }
    for (std::size_t line = 0; line < description_lines; ++line)
        if (row.description[line].size() > description_width) return false;
    return true;
}
template <typename Row, std::size_t N> constexpr bool rows_are_sound(const std::array<Row, N>& rows) {
    for (const Row& row : rows)
        if (!row_is_sound(row)) return false;
    return true;
}

}  // namespace nubo
