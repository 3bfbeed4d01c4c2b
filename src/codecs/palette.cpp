#include "codecs/palette.h"

#include "base/color.h"
#include "codecs/byte_view.h"
#include <algorithm>
#include <cstdio>
#include <optional>
#include <sstream>
#include <string>
#include <string_view>

namespace nubo {
namespace {

constexpr std::string_view gpl_head = "GIMP Palette", pal_head = "JASC-PAL", riff_head = "RIFF", riff_kind = "PAL data";
constexpr int component_max = 255;

std::string_view text_of(std::span<const std::uint8_t> bytes) {
    return {reinterpret_cast<const char*>(bytes.data()), bytes.size()};
}

// ---- Texts ---------------------------------------------------------------------------------------------------------

/// The colour that a line begins with; nothing for a comment, a name or a number out of range.
std::optional<Color> color_of_line(const std::string& line) {
    std::istringstream words(line);
    int red = 0, green = 0, blue = 0;
    if (!(words >> red >> green >> blue)) return std::nullopt;
    for (const int component : {red, green, blue})
        if (component < 0 || component > component_max) return std::nullopt;
    return pack_color(red, green, blue);
}

std::vector<Color> colors_of_lines(std::string_view text) {
    std::vector<Color> colors;
    std::istringstream lines{std::string(text)};
    for (std::string line; colors.size() < palette_colors_max && std::getline(lines, line);)
        if (const auto color = color_of_line(line)) colors.push_back(*color);
    return colors;
}

void append(Bytes& bytes, std::string_view text) { bytes.insert(bytes.end(), text.begin(), text.end()); }

void append_lines(Bytes& bytes, const char* form, std::span<const Color> colors) {
    for (const Color color : colors) {
        char line[32];
        std::snprintf(line, sizeof line, form, red_of(color), green_of(color), blue_of(color));
        append(bytes, line);
    }
}

// ---- RIFF ----------------------------------------------------------------------------------------------------------

std::vector<Color> read_riff(std::span<const std::uint8_t> bytes) {
    constexpr std::size_t kind_at = 8, count_at = 22, colors_at = 24, color_size = 4;
    if (text_of(bytes).substr(0, colors_at).find(riff_kind) != kind_at) return {};
    const ByteView view(bytes);
    const std::size_t there = (std::max(bytes.size(), colors_at) - colors_at) / color_size;
    const std::size_t count = std::min({std::size_t{view.little_16(count_at)}, there, palette_colors_max});
    std::vector<Color> colors;
    for (std::size_t at = colors_at; colors.size() < count; at += color_size)
        colors.push_back(view.byte(at) << 16 | view.byte(at + 1) << 8 | view.byte(at + 2));
    return colors;
}

}  // namespace

std::vector<Color> read_gpl(std::span<const std::uint8_t> bytes) {
    const std::string_view text = text_of(bytes);
    return text.starts_with(gpl_head) ? colors_of_lines(text) : std::vector<Color>();
}

/// Its head, a version and a count are no colours: each stands alone in its line.
std::vector<Color> read_pal(std::span<const std::uint8_t> bytes) {
    const std::string_view text = text_of(bytes);
    if (text.starts_with(riff_head)) return read_riff(bytes);
    return text.starts_with(pal_head) ? colors_of_lines(text) : std::vector<Color>();
}

void write_gpl(std::span<const Color> colors, Bytes& bytes) {
    append(bytes, gpl_head);
    append(bytes, "\nName: Nubo\nColumns: 18\n#\n");
    append_lines(bytes, "%3d %3d %3d\n", colors);
}

void write_pal(std::span<const Color> colors, Bytes& bytes) {
    append(bytes, pal_head);
    append(bytes, "\r\n0100\r\n" + std::to_string(colors.size()) + "\r\n");
    append_lines(bytes, "%d %d %d\r\n", colors);
}

}  // namespace nubo
