#include "windows/color_files.h"

#include "platform/input_file.h"
#include "platform/safe_file.h"
#include "state/colors.h"
#include <algorithm>
#include <cstdint>
#include <span>
#include <string_view>
#include <vector>

namespace nubo {
namespace {

constexpr std::string_view favorites_letters = "COL", scheme_letters = "SCH";
constexpr std::size_t letter_count = 3, color_size = 4;

int load_colors(const std::string& path, std::string_view letters, std::span<Color> colors) {
    const std::size_t size = letter_count + color_size * colors.size();
    std::vector<std::uint8_t> bytes;
    if (!read_file(path, size, bytes) || bytes.size() < size) return -1;
    if (!std::equal(letters.begin(), letters.end(), bytes.begin())) return -1;
    const std::uint8_t* next = bytes.data() + letter_count;
    for (Color& color : colors) {
        color = Color{next[1]} << 16 | Color{next[2]} << 8 | Color{next[3]};  // the first byte is no colour's
        next += color_size;
    }
    return 1;
}

bool save_colors(const std::string& path, std::string_view letters, std::span<const Color> colors) {
    std::vector<std::uint8_t> bytes(letters.begin(), letters.end());
    for (const Color color : colors)
        for (int shift = 24; shift >= 0; shift -= 8) bytes.push_back(static_cast<std::uint8_t>(color >> shift));
    return write_file(path, bytes.data(), bytes.size());
}

}  // namespace

int load_favorites(const std::string& path) { return load_colors(path, favorites_letters, favorites); }
int load_scheme(const std::string& path) { return load_colors(path, scheme_letters, color_scheme); }
bool save_favorites(const std::string& path) { return save_colors(path, favorites_letters, favorites); }
bool save_scheme(const std::string& path) { return save_colors(path, scheme_letters, color_scheme); }

}  // namespace nubo
