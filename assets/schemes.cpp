#include "schemes.h"

#include <algorithm>

namespace nubo {

namespace {

struct ColorRow {
    SchemeColor color;
    const char* word;  // that the source names it with
};
constexpr std::array<ColorRow, SCHEME_COUNT> scheme_colors{{
    {SCHEME_BACKGROUND, "ground"},
    {SCHEME_BORDER, "border"},
    {SCHEME_SHADOW, "shadow"},
    {SCHEME_HIGHLIGHT_FORE, "mark"},
    {SCHEME_HIGHLIGHT_BACK, "lit"},
    {SCHEME_TEXT_LIGHT, "light"},
    {SCHEME_TEXT_BUTTON, "button"},
    {SCHEME_TEXT_HIGHLIGHT, "strong"},
    {SCHEME_TEXT_LIGHT_ALT, "title"},
    {SCHEME_TEXT_SELECTED, "chosen"},
}};
static_assert(rows_in_order(scheme_colors, &ColorRow::color));

/// A name of letters that is a file name everywhere.
bool is_scheme_name(const std::string& name) {
    return name.size() <= 8 && std::ranges::all_of(name, [](char c) { return c >= 'A' && c <= 'Z'; });
}

std::optional<ArtScheme> read_scheme(const ArtBlock& block) {
    if (block.head.size() != 2 || block.head[0] != "scheme" || !is_scheme_name(block.head[1])) return std::nullopt;
    ArtScheme scheme{block.head[1], {}};
    if (block.rows.size() != scheme_colors.size()) return std::nullopt;
    for (std::size_t i = 0; i < scheme_colors.size(); ++i) {
        const Words& row = block.rows[i];
        const auto color = row.size() == 2 && row[0] == scheme_colors[i].word ? color_from_hex(row[1]) : std::nullopt;
        if (!color) return std::nullopt;
        scheme.colors[i] = *color;
    }
    return scheme;
}

constexpr std::size_t object_limit = 200, vertex_limit = 253;
constexpr int unread_numbers = 4;  // stand before each object's count of vertices

/// A whole number from 0 to 9999, as a vertex holds it.
bool is_number(const std::string& word) {
    return word.size() <= 4 && std::ranges::all_of(word, [](char c) { return c >= '0' && c <= '9'; });
}

bool is_object(const ArtBlock& block) {
    return block.head[0] == "object" && block.rows.size() >= 3 && block.rows.size() <= vertex_limit &&
           std::ranges::all_of(block.rows,
                               [](const Words& row) { return row.size() == 2 && std::ranges::all_of(row, is_number); });
}

}  // namespace

std::optional<std::vector<ArtScheme>> read_schemes(const ArtSource& source) {
    std::vector<ArtScheme> schemes;
    for (const ArtBlock& block : source.blocks) {
        auto scheme = read_scheme(block);
        if (!scheme) {
            art_fault(source, block, "a scheme has a name of up to 8 capitals and the ten colors in their order");
            return std::nullopt;
        }
        schemes.push_back(std::move(*scheme));
    }
    return schemes;
}

std::string scheme_file(const ArtScheme& scheme) {
    std::string bytes = "SCH";
    for (const Color color : scheme.colors)
        for (const int shift : {24, 16, 8, 0}) bytes += static_cast<char>(color >> shift & 0xff);
    return bytes;
}

std::optional<std::string> object_library(const ArtSource& source) {
    std::string text;
    const auto add_line = [&text](const std::string& number) { text += (text.empty() ? "" : "\n") + number; };
    for (const ArtBlock& block : source.blocks) {
        if (!is_object(block) || source.blocks.size() > object_limit) {
            art_fault(source, block, "an object has 3 to 253 vertices of an angle and a distance; there are up to 200");
            return std::nullopt;
        }
        for (int i = 0; i < unread_numbers; ++i) add_line("0");
        add_line(std::to_string(block.rows.size()));
        for (const Words& row : block.rows)
            for (const std::string& number : row) add_line(number);
    }
    return text;
}

}  // namespace nubo
