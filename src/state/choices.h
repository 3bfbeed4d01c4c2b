#pragma once
// What a row of the tables of tools and inks is made of: a name, a description, options.
#include "state/labels.h"
#include "state/messages.h"
#include "state/shared.h"
#include <algorithm>
#include <array>
#include <string_view>
#include <type_traits>
#include <utility>

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

// A rule that is broken is told by its words and, in the compiler's note, by the enumerator of the row. One file of
// paint/ asks for each table, so that it is told once.

constexpr bool options_lie_in_slots(const ChoiceOptions& options) {
    return std::ranges::all_of(options, [](const ChoiceOption& o) { return 0 <= o.slot && o.slot < option_slots; });
}
constexpr bool options_begin_in_range(const ChoiceOptions& options) {
    return std::ranges::all_of(
        options, [](const ChoiceOption& o) { return o.stored_lowest() <= o.first && o.first <= o.highest; });
}
constexpr bool options_share_no_slot(const ChoiceOptions& options) {
    return std::ranges::all_of(options, [&](const ChoiceOption& option) {
        return option.kind == KIND_NONE || find_option(options, option.slot) == &option;
    });
}
constexpr bool lines_fit(const Description& description) {
    for (std::size_t line = 0; line < description_lines; ++line)
        if (description[line].size() > description_width) return false;
    return true;
}

/// `number` is the row's place as an enumerator, so that the compiler writes its name.
template <const auto& rows, auto number> consteval bool row_is_in_place() {
    static_assert(rows[at(number)].number == number, "no row for this enumerator, or not in its place");
    return true;
}
template <const auto& rows, auto number> consteval bool choice_is_sound() {
    constexpr auto& row = rows[at(number)];
    static_assert(lines_fit(row.description), "a line of this row's description is longer than the box");
    static_assert(options_lie_in_slots(row.options), "an option of this row lies in none of the slots");
    static_assert(options_begin_in_range(row.options), "an option of this row begins out of its range");
    static_assert(options_share_no_slot(row.options), "two options of this row share a slot");
    return row_is_in_place<rows, number>();
}

template <const auto& rows> using NumberOf = std::remove_cvref_t<decltype(rows[0].number)>;

/// `rows` by the rule of their places alone, or by all rules of a table of tools or inks.
template <const auto& rows> consteval bool rows_are_in_place() {
    return []<std::size_t... row>(std::index_sequence<row...>) {
        return (row_is_in_place<rows, static_cast<NumberOf<rows>>(row)>() && ...);
    }
    (std::make_index_sequence<std::size(rows)>{});
}
template <const auto& rows> consteval bool choices_are_sound() {
    return []<std::size_t... row>(std::index_sequence<row...>) {
        return (choice_is_sound<rows, static_cast<NumberOf<rows>>(row)>() && ...);
    }
    (std::make_index_sequence<std::size(rows)>{});
}

}  // namespace nubo
