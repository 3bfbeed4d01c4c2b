#include "windows/colors/color_files.h"

#include "codecs/palette.h"
#include "platform/input_file.h"
#include "platform/safe_file.h"
#include "state/colors.h"
#include <algorithm>
#include <array>
#include <cctype>
#include <cstdint>
#include <span>
#include <string_view>
#include <vector>

namespace nubo {
namespace {

// ---- The program's own form: three letters and big-endian words -----------------------------------------------------

constexpr std::string_view favorites_letters = "COL", scheme_letters = "SCH";
constexpr std::size_t letter_count = 3, color_size = 4;

std::vector<Color> read_own(std::span<const std::uint8_t> bytes, std::string_view letters, std::size_t count) {
    if (bytes.size() < letter_count + color_size * count) return {};
    if (!std::equal(letters.begin(), letters.end(), bytes.begin())) return {};
    std::vector<Color> colors;
    for (const std::uint8_t* next = bytes.data() + letter_count; colors.size() < count; next += color_size)
        colors.push_back(Color{next[1]} << 16 | Color{next[2]} << 8 | Color{next[3]});  // the first byte is no colour's
    return colors;
}

void write_own(std::span<const Color> colors, std::string_view letters, Bytes& bytes) {
    bytes.assign(letters.begin(), letters.end());
    for (const Color color : colors)
        for (int shift = 24; shift >= 0; shift -= 8) bytes.push_back(static_cast<std::uint8_t>(color >> shift));
}

// ---- The forms of the favourites ------------------------------------------------------------------------------------

struct FavoritesFormat {
    std::string_view ending;  // in capitals, with its point; empty: of any other name
    std::vector<Color> (*read)(std::span<const std::uint8_t> bytes);  // empty: of another form
    void (*write)(std::span<const Color> colors, Bytes& bytes);
};
constexpr std::array<FavoritesFormat, 3> favorites_formats{{
    {".GPL", read_gpl, write_gpl},
    {".PAL", read_pal, write_pal},
    {"", [](std::span<const std::uint8_t> bytes) { return read_own(bytes, favorites_letters, favorites.size()); },
     [](std::span<const Color> colors, Bytes& bytes) { write_own(colors, favorites_letters, bytes); }},
}};

bool has_ending(std::string_view path, std::string_view ending) {
    return path.size() >= ending.size() &&
           std::equal(ending.begin(), ending.end(), path.end() - static_cast<std::ptrdiff_t>(ending.size()),
                      [](char a, char b) { return a == std::toupper(static_cast<unsigned char>(b)); });
}

Bytes bytes_of(const std::string& path) {
    constexpr std::size_t size_max = std::size_t{1} << 16;  // 256 lines with long names
    Bytes bytes;
    if (!read_file(path, size_max, bytes)) bytes.clear();
    return bytes;
}

bool write_bytes(const std::string& path, const Bytes& bytes) { return write_file(path, bytes.data(), bytes.size()); }

}  // namespace

int load_favorites(const std::string& path) {
    const Bytes bytes = bytes_of(path);
    for (const FavoritesFormat& format : favorites_formats) {
        const std::vector<Color> colors = format.read(bytes);
        if (colors.empty()) continue;
        favorites.fill(color_scheme[SCHEME_BACKGROUND]);  // behind a palette of fewer they are blank
        std::copy(colors.begin(), colors.end(), favorites.begin());
        return 1;
    }
    return -1;
}

bool save_favorites(const std::string& path) {
    Bytes bytes;
    const auto format = std::find_if(favorites_formats.begin(), favorites_formats.end(),
                                     [&](const FavoritesFormat& row) { return has_ending(path, row.ending); });
    format->write(favorites, bytes);
    return write_bytes(path, bytes);
}

int load_scheme(const std::string& path) {
    const std::vector<Color> colors = read_own(bytes_of(path), scheme_letters, color_scheme.size());
    if (colors.empty()) return -1;
    std::copy(colors.begin(), colors.end(), color_scheme.begin());
    return 1;
}

bool save_scheme(const std::string& path) {
    Bytes bytes;
    write_own(color_scheme, scheme_letters, bytes);
    return write_bytes(path, bytes);
}

}  // namespace nubo
