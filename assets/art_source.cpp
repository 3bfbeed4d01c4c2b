#include "art_source.h"

#include <algorithm>
#include <charconv>
#include <cstdio>
#include <fstream>
#include <sstream>

namespace nubo {

namespace {

Words split_at_blanks(const std::string& line) {
    std::istringstream stream(line);
    Words words;
    for (std::string word; stream >> word;) words.push_back(word);
    return words;
}

/// The number that all of `word` is, in the given base.
std::optional<unsigned> whole_number(const std::string& word, int base) {
    unsigned value = 0;
    const auto [end, error] = std::from_chars(word.data(), word.data() + word.size(), value, base);
    if (error != std::errc() || end != word.data() + word.size()) return std::nullopt;
    return value;
}

}  // namespace

std::optional<ArtSource> read_art(const std::string& path) {
    std::ifstream file(path);
    if (!file) {
        std::fprintf(stderr, "%s: can't be read\n", path.c_str());
        return std::nullopt;
    }
    ArtSource source{path, {}};
    int number = 0;
    for (std::string line; std::getline(file, line);) {
        ++number;
        if (line.empty() || line[0] == ';') continue;
        const bool is_head = line[0] == ':';
        Words words = split_at_blanks(is_head ? line.substr(1) : line);
        if (words.empty() && !is_head) continue;
        if (words.empty() || (!is_head && source.blocks.empty())) {
            std::fprintf(stderr, "%s:%d: a block begins with ':' and the word for its kind\n", path.c_str(), number);
            return std::nullopt;
        }
        if (is_head)
            source.blocks.push_back({std::move(words), {}, number});
        else
            source.blocks.back().rows.push_back(std::move(words));
    }
    return source;
}

bool art_fault(const ArtSource& source, const ArtBlock& block, const char* what) {
    std::fprintf(stderr, "%s:%d: %s\n", source.path.c_str(), block.line, what);
    return false;
}

bool is_picture_row(const ArtBlock& block, std::size_t columns, std::size_t width, std::size_t height) {
    return block.rows.size() == height && std::ranges::all_of(block.rows, [&](const Words& row) {
               return row.size() == columns &&
                      std::ranges::all_of(row, [&](const std::string& cells) { return cells.size() == width; });
           });
}

std::optional<int> head_number(const ArtBlock& block, std::size_t index, int low, int high) {
    if (index >= block.head.size()) return std::nullopt;
    const auto value = whole_number(block.head[index], 10);
    if (!value || *value > static_cast<unsigned>(high) || static_cast<int>(*value) < low) return std::nullopt;
    return static_cast<int>(*value);
}

std::optional<std::uint32_t> color_from_hex(const std::string& word) {
    if (word.size() != 6) return std::nullopt;
    return whole_number(word, 16);
}

}  // namespace nubo
