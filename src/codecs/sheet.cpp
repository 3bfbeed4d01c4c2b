#include "codecs/sheet.h"

#include "base/utf8.h"
#include "state/frames.h"

#include <algorithm>
#include <cstdint>
#include <string_view>

namespace nubo {
namespace {

std::int64_t side_of(int cells, int cell, const SheetOptions& options) {
    return std::int64_t{cells} * cell + std::int64_t{cells - 1} * options.gap + std::int64_t{2} * options.border;
}

constexpr int rows_for(int frames, int columns) { return (frames + columns - 1) / columns; }

/// The longer side is the shortest that can be; of those that are as good, the one with the fewest empty cells, and the
/// widest of these.
int columns_of_square(int frames, int frame_w, int frame_h, const SheetOptions& options) {
    int best = 1;
    const auto cost = [&](int columns) {
        const int rows = rows_for(frames, columns);
        return std::pair{std::max(side_of(columns, frame_w, options), side_of(rows, frame_h, options)), rows * columns};
    };
    for (int columns = 2; columns <= frames; ++columns)
        if (cost(columns) <= cost(best)) best = columns;
    return best;
}

int columns_of(int frames, int frame_w, int frame_h, const SheetOptions& options) {
    if (options.order == SHEET_ROWS) return frames;
    return options.order == SHEET_COLUMNS ? 1 : columns_of_square(frames, frame_w, frame_h, options);
}

/// A text between quotation marks; bytes that are no character become '?'.
std::string json_text(std::string_view text) {
    std::string json = "\"";
    for (Utf8Character next; !text.empty(); text.remove_prefix(next.size)) {
        next = first_character(text);
        const bool is_loose_byte = next.size == 1 && next.code >= U'\x7f';
        if (next.code < U' ' || is_loose_byte)
            json += '?';
        else if (next.code == U'"' || next.code == U'\\')
            json += {'\\', static_cast<char>(next.code)};
        else
            json += text.substr(0, next.size);
    }
    return json + '"';
}

std::string size_json(int w, int h) { return "\"w\": " + std::to_string(w) + ", \"h\": " + std::to_string(h); }

std::string place_json(const ImagePlace& place) {
    return "{ \"x\": " + std::to_string(place.x) + ", \"y\": " + std::to_string(place.y) + ", " +
           size_json(place.w, place.h) + " }";
}

std::string frame_json(const ImagePlace& cell, FrameTime time, const std::string& name) {
    constexpr int milliseconds = 1000;
    return "  { \"filename\": " + json_text(name) + ", \"frame\": " + place_json(cell) +
           ", \"rotated\": false, \"trimmed\": false, \"spriteSourceSize\": " + place_json({0, 0, cell.w, cell.h}) +
           ", \"sourceSize\": { " + size_json(cell.w, cell.h) +
           " }, \"duration\": " + std::to_string(time.in_parts(milliseconds)) + " }";
}

/// A repeat of 0 is for ever.
std::string tag_json(const std::string& name, std::size_t frames, AnimationLoop loop) {
    const char* const direction = loop == LOOP_PING_PONG ? "pingpong" : "forward";
    return "{ \"name\": " + json_text(name) + ", \"from\": 0, \"to\": " + std::to_string(frames - 1) +
           ", \"direction\": \"" + direction + "\", \"repeat\": \"" + (loop == LOOP_ONCE ? "1" : "0") + "\" }";
}

}  // namespace

std::optional<SheetLayout> lay_out_sheet(int frames, int frame_w, int frame_h, const SheetOptions& options) {
    const int columns = columns_of(frames, frame_w, frame_h, options);
    const std::int64_t width = side_of(columns, frame_w, options),
                       height = side_of(rows_for(frames, columns), frame_h, options);
    if (width > max_frame_side || height > max_frame_side) return std::nullopt;
    SheetLayout layout{.width = static_cast<int>(width), .height = static_cast<int>(height)};
    for (int i = 0; i < frames; ++i)
        layout.cells.push_back({options.border + i % columns * (frame_w + options.gap),
                                options.border + i / columns * (frame_h + options.gap), frame_w, frame_h});
    return layout;
}

std::string sheet_json(const SheetLayout& layout, const std::vector<FrameTime>& times, const SheetNames& names,
                       AnimationLoop loop) {
    const int count = static_cast<int>(layout.cells.size());
    std::string json = "{ \"frames\": [\n";
    for (int i = 0; i < count; ++i) {
        const auto at = static_cast<std::size_t>(i);
        json += frame_json(layout.cells[at], times[at], numbered_name(names.name, i));
        json += i + 1 < count ? ",\n" : "\n";
    }
    return json + " ],\n \"meta\": {\n  \"app\": \"Nubo\",\n  \"image\": " + json_text(names.image) +
           ",\n  \"format\": \"RGBA8888\",\n  \"size\": { " + size_json(layout.width, layout.height) +
           " },\n  \"scale\": \"1\",\n  \"frameTags\": [\n   " + tag_json(names.name, layout.cells.size(), loop) +
           "\n  ]\n }\n}\n";
}

std::string numbered_name(const std::string& name, int number) {
    const std::string digits{static_cast<char>('0' + number / 10), static_cast<char>('0' + number % 10)};
    const std::size_t at = name.rfind('#');
    return at == std::string::npos ? name + digits : name.substr(0, at) + digits + name.substr(at + 1);
}

}  // namespace nubo
