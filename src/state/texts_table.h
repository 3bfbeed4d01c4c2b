#pragma once
// Tables of texts, built by the compiler of rows that name their index.
#include <array>
#include <string_view>

namespace nubo {

struct TextRow {
    int index;
    std::string_view text;  // of a literal: zero-terminated, so that `data()` is a C string
};

inline constexpr std::string_view spare_text = "...";  // of an index that no row fills; shows nowhere

/// A table of N texts. A row whose index stands twice or lies outside does not compile.
template <std::size_t N, std::size_t Rows>
consteval std::array<std::string_view, N> fill_texts(const TextRow (&rows)[Rows]) {
    std::array<std::string_view, N> table{};
    for (const TextRow& row : rows) {
        std::string_view& place = table.at(static_cast<std::size_t>(row.index));
        if (!place.empty()) throw "an index stands twice";
        place = row.text;
    }
    for (std::string_view& text : table)
        if (text.empty()) text = spare_text;
    return table;
}

}  // namespace nubo
