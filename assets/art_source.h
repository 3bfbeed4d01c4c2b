#pragma once
// The sources of the artwork: text files that a person edits. A line that begins with ';' is a comment; a line that
// begins with ':' opens a block with a word that names its kind, and more words; each other line is a row of the block,
// of one or several columns with blanks between them.
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace nubo {

using Words = std::vector<std::string>;

struct ArtBlock {
    Words head;               // the words behind ':'; the first names the kind, there is always one
    std::vector<Words> rows;  // without the empty lines
    int line;                 // of the head, from 1
};

struct ArtSource {
    std::string path;
    std::vector<ArtBlock> blocks;
};

/// Reads the source at `path`. Nothing when it can't be read or has rows before its first block; the cause is printed.
std::optional<ArtSource> read_art(const std::string& path);

/// Prints what is wrong with a block, with file and line. Always false, so that a drawing function can return it.
bool art_fault(const ArtSource& source, const ArtBlock& block, const char* what);

/// True when the block is pictures side by side: `columns` of them, each `height` rows of `width` characters.
bool is_picture_row(const ArtBlock& block, std::size_t columns, std::size_t width, std::size_t height);

/// The number that word `index` of the head holds. Nothing when there is none, or it is not from `low` to `high`.
std::optional<int> head_number(const ArtBlock& block, std::size_t index, int low, int high);

/// The colour that six hexadecimal digits name, as in "9e9e9e". Nothing for any other text.
std::optional<std::uint32_t> color_from_hex(const std::string& word);

}  // namespace nubo
