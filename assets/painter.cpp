#include "painter.h"

#include "base/color.h"
#include "base/random.h"
#include "framework/text.h"
#include "paint/stroke.h"
#include "paint/surfaces.h"
#include "paint/undo.h"
#include "state/stroke.h"
#include "state/texts_labels.h"
#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>

namespace nubo {

namespace {

constexpr std::uint32_t frame_seed = 2001;

/// One row of a frame's source, its word for the command taken off.
struct Command {
    const Words& words;
    std::vector<int> numbers;  // the words that are whole numbers, in their order
    const Stamps& stamps;
};
int whole(const Command& command, std::size_t index) { return command.numbers[index]; }

/// One stroke: a snapshot and a clear coverage map, then the paint.
template <typename Paint> bool stroke(Paint paint) {
    if (!save_undo(false)) return false;
    clear_stroke_mask();
    paint();
    return true;
}

// ---- What strokes are painted with ---------------------------------------------------------------------------------

bool take_color(const Command& command) {
    const auto color = command.words.size() == 2 ? color_from_hex(command.words[1]) : std::nullopt;
    if (color) brush_color = *color;
    return color.has_value();
}

/// The number of the ink of that name, or `INK_COUNT`.
int ink_named(std::string_view name) {
    for (int ink = 0; ink < INK_COUNT; ++ink)
        if (name == label_text[static_cast<std::size_t>(LABEL_INK_FIRST + ink)]) return ink;
    return INK_COUNT;
}

bool take_ink(const Command& command) {
    const int ink = command.words.size() < 2 ? INK_COUNT : ink_named(command.words[1]);
    if (ink == INK_COUNT || command.numbers.size() > option_slots) return false;
    active_ink_slot = 0;
    ink_slots[0] = ink;
    for (std::size_t slot = 0; slot < command.numbers.size(); ++slot)
        ink_options[static_cast<unsigned>(ink)][slot] = command.numbers[slot];
    return true;
}

bool take_tip(const Command& command) {
    brush_tip = whole(command, 0);
    return brush_tip >= 0 && brush_tip <= tip_custom;
}

bool take_spectrum(const Command& command) {
    if (command.words.size() != 4) return false;
    const auto first = color_from_hex(command.words[1]), last = color_from_hex(command.words[2]);
    if (!first || !last) return false;
    spectrum_start = *first;
    spectrum_end = *last;
    spectrum_fold = command.words[3][0] - '0';
    return spectrum_fold >= 0 && spectrum_fold <= 3;
}

// ---- Shapes --------------------------------------------------------------------------------------------------------

void take_tool(BrushTool tool, int is_filled) {
    active_tool_slot = 0;
    tool_slots[0] = tool;
    tool_option(tool, OPTION_FILLED) = is_filled;
}

/// BOX and CIRCLE, the second point given or the radius: through the tools themselves.
bool draw_two_points(BrushTool tool, int is_filled, Point first, Point second) {
    take_tool(tool, is_filled);
    click_points[0] = first;
    click_points[1] = second;
    draw_to_frame(0, 0, tool, active_ink(), brush_tip, brush_color);
    return true;
}
bool draw_box(const Command& c) {
    return draw_two_points(TOOL_BOX, 1, {whole(c, 0), whole(c, 1)}, {whole(c, 2), whole(c, 3)});
}
bool draw_rim(const Command& c) {
    return draw_two_points(TOOL_BOX, 0, {whole(c, 0), whole(c, 1)}, {whole(c, 2), whole(c, 3)});
}
bool draw_disc(const Command& c) {
    return draw_two_points(TOOL_CIRCLE, 1, {whole(c, 0), whole(c, 1)}, {whole(c, 0) + whole(c, 2), whole(c, 1)});
}
bool draw_ring(const Command& c) {
    return draw_two_points(TOOL_CIRCLE, 0, {whole(c, 0), whole(c, 1)}, {whole(c, 0) + whole(c, 2), whole(c, 1)});
}

bool draw_path(const Command& command) {
    if (command.numbers.size() % 2 != 0) return false;
    take_tool(TOOL_LINE, 0);
    return stroke([&] {
        for (std::size_t i = 0; i + 3 < command.numbers.size(); i += 2)
            do_line(current_frame, whole(command, i), whole(command, i + 1), whole(command, i + 2),
                    whole(command, i + 3), static_cast<int>(brush_color), stamp_callback);
    });
}

/// Columns where the outline crosses the middle of row `y`, from the left.
std::vector<double> crossings(const std::vector<int>& outline, int y) {
    std::vector<double> columns;
    const std::size_t points = outline.size() / 2;
    for (std::size_t i = 0; i < points; ++i) {
        const std::size_t j = (i + 1) % points;
        const double x1 = outline[2 * i], y1 = outline[2 * i + 1], x2 = outline[2 * j], y2 = outline[2 * j + 1];
        const double middle = y + 0.5;
        if ((y1 <= middle) != (y2 <= middle)) columns.push_back(x1 + (middle - y1) * (x2 - x1) / (y2 - y1));
    }
    std::ranges::sort(columns);
    return columns;
}

bool draw_shape(const Command& command) {
    if (command.numbers.size() % 2 != 0) return false;
    return stroke([&] {
        for (int y = 0; y < current_frame->h; ++y) {
            const auto columns = crossings(command.numbers, y);
            for (std::size_t i = 0; i + 1 < columns.size(); i += 2)
                stamp_row(static_cast<int>(std::ceil(columns[i] - 0.5)),
                          static_cast<int>(std::ceil(columns[i + 1] - 0.5)) - 1, y, active_ink(), brush_color);
        }
    });
}

bool fill_area(const Command& command) {
    take_tool(TOOL_FILL, whole(command, 2));
    draw_to_frame(whole(command, 0), whole(command, 1), TOOL_FILL, active_ink(), brush_tip, brush_color);
    return true;
}

bool spray(const Command& c) {
    const int radius = whole(c, 2);
    return stroke([&] {
        for (int i = 0; i < whole(c, 3); ++i) {
            const int dx = UA_random(2 * radius + 1) - radius, dy = UA_random(2 * radius + 1) - radius;
            if (dx * dx + dy * dy <= radius * radius)
                stamp_row(whole(c, 0) + dx, whole(c, 0) + dx, whole(c, 1) + dy, active_ink(), brush_color);
        }
    });
}

/// Single pixels of ink, strewn over a rectangle.
bool strew(const Command& c) {
    return stroke([&] {
        for (int i = 0; i < whole(c, 4); ++i) {
            const int x = whole(c, 0) + UA_random(whole(c, 2) - whole(c, 0) + 1);
            stamp_row(x, x, whole(c, 1) + UA_random(whole(c, 3) - whole(c, 1) + 1), active_ink(), brush_color);
        }
    });
}

/// Heights of a ridge between two given ones, by halving: each middle moves by chance, less the shorter its piece is.
void raise_ridge(std::vector<double>& heights, std::size_t left, std::size_t right, double reach) {
    if (right - left < 2) return;
    constexpr int steps = 1000;
    const std::size_t middle = (left + right) / 2;
    heights[middle] = (heights[left] + heights[right]) / 2 + reach * (UA_random(2 * steps + 1) - steps) / steps;
    constexpr double smoother = 0.55;
    raise_ridge(heights, left, middle, reach * smoother);
    raise_ridge(heights, middle, right, reach * smoother);
}

/// A range of hills over the whole width, filled down to `bottom`: left, right, reach, bottom.
bool draw_ridge(const Command& c) {
    const auto width = static_cast<std::size_t>(current_frame->w);
    std::vector<double> heights(width);
    heights.front() = whole(c, 0);
    heights.back() = whole(c, 1);
    raise_ridge(heights, 0, width - 1, whole(c, 2));
    return stroke([&] {
        for (int x = 0; x < current_frame->w; ++x)
            for (int y = static_cast<int>(heights[static_cast<std::size_t>(x)]); y <= whole(c, 3); ++y)
                stamp_row(x, x, y, active_ink(), brush_color);
    });
}

// ---- Pictures and text ---------------------------------------------------------------------------------------------

BITMAP* stamp_named(const Command& command) {
    const auto found = command.words.size() > 1 ? command.stamps.find(command.words[1]) : command.stamps.end();
    return found == command.stamps.end() ? nullptr : found->second.get();
}

bool lay_stamp(const Command& command) {
    BITMAP* const picture = stamp_named(command);
    if (picture != nullptr) draw_sprite(current_frame, picture, whole(command, 0), whole(command, 1));
    return picture != nullptr;
}

/// A picture many times over, from back to front, its foot inside a rectangle: count, left, top, right, bottom.
bool scatter(const Command& c) {
    BITMAP* const picture = stamp_named(c);
    if (picture == nullptr) return false;
    std::vector<Point> feet;
    for (int i = 0; i < whole(c, 0); ++i) {
        const int x = whole(c, 1) + UA_random(whole(c, 3) - whole(c, 1) + 1);
        feet.push_back({x, whole(c, 2) + UA_random(whole(c, 4) - whole(c, 2) + 1)});
    }
    std::ranges::sort(feet, {}, &Point::y);
    for (const Point& foot : feet)
        draw_sprite(current_frame, picture, foot.x - picture->w / 2, foot.y - picture->h + 1);
    return true;
}

/// A rectangle upside down, as in water: left, top, right, bottom of the original; the mirror stands below.
bool mirror(const Command& c) {
    const int width = whole(c, 2) - whole(c, 0) + 1, height = whole(c, 3) - whole(c, 1) + 1;
    const OwnedBitmap part(create_sub_bitmap(current_frame, whole(c, 0), whole(c, 1), width, height));
    if (!part) return false;
    const OwnedBitmap copy = copy_bitmap(part.get());
    for (int y = 0; copy && y < height; ++y)
        blit(copy.get(), current_frame, 0, height - 1 - y, whole(c, 0), whole(c, 3) + 1 + y, width, 1);
    return copy != nullptr;
}

/// Text in the brush colour; an underscore is a blank.
bool write_text(const Command& command) {
    if (command.words.size() != 5) return false;
    std::string text = command.words[4];
    std::ranges::replace(text, '_', ' ');
    set_text_color(TEXT_BUTTON, brush_color);
    set_font(command.words[1] == "wide" ? FONT_WIDE : FONT_NARROW, TEXT_BUTTON);
    UA_text(current_frame, whole(command, 0), whole(command, 1), text);
    return true;
}

// ---- The language --------------------------------------------------------------------------------------------------

struct CommandRow {
    const char* word;
    std::size_t numbers;  // that the command takes at least
    bool (*run)(const Command& command);
    const char* wish;
};
constexpr std::array<CommandRow, 18> commands{{
    {"color", 0, take_color, "color RRGGBB"},
    {"ink", 0, take_ink, "ink NAME OPTION..."},
    {"tip", 1, take_tip, "tip NUMBER, 0 to 36"},
    {"spectrum", 0, take_spectrum, "spectrum RRGGBB RRGGBB FOLD"},
    {"box", 4, draw_box, "box LEFT TOP RIGHT BOTTOM"},
    {"rim", 4, draw_rim, "rim LEFT TOP RIGHT BOTTOM"},
    {"disc", 3, draw_disc, "disc X Y RADIUS"},
    {"ring", 3, draw_ring, "ring X Y RADIUS"},
    {"path", 4, draw_path, "path X Y X Y..."},
    {"shape", 6, draw_shape, "shape X Y X Y X Y..."},
    {"fill", 3, fill_area, "fill X Y TOLERANCE"},
    {"spray", 4, spray, "spray X Y RADIUS COUNT"},
    {"strew", 5, strew, "strew LEFT TOP RIGHT BOTTOM COUNT"},
    {"ridge", 4, draw_ridge, "ridge LEFT_Y RIGHT_Y REACH BOTTOM"},
    {"stamp", 2, lay_stamp, "stamp NAME X Y"},
    {"scatter", 5, scatter, "scatter NAME COUNT LEFT TOP RIGHT BOTTOM"},
    {"mirror", 4, mirror, "mirror LEFT TOP RIGHT BOTTOM"},
    {"write", 2, write_text, "write wide|narrow X Y TEXT_WITHOUT_BLANKS"},
}};

std::vector<int> whole_numbers(const Words& words) {
    std::vector<int> numbers;
    for (const std::string& word : words) {
        int value = 0;
        const char* const end = word.data() + word.size();
        if (std::from_chars(word.data(), end, value).ptr == end) numbers.push_back(value);
    }
    return numbers;
}

bool run_command(const ArtSource& source, const ArtBlock& block, const Words& words, const Stamps& stamps) {
    for (const CommandRow& row : commands) {
        if (words[0] != row.word) continue;
        const Command command{words, whole_numbers(words), stamps};
        const bool has_run = command.numbers.size() >= row.numbers && row.run(command);
        note_all_touched();  // many a command paints without a stroke
        if (has_run) return true;
        return art_fault(source, block, (words[0] + " is not as in: " + row.wish).c_str());
    }
    return art_fault(source, block, ("there is no command " + words[0]).c_str());
}

bool paint_block(const ArtSource& source, const ArtBlock& block, const Stamps& stamps) {
    const auto width = head_number(block, 1, 1, max_frame_side), height = head_number(block, 2, 1, max_frame_side);
    if (!width || !height || !adopt_frame(make_bitmap(*width, *height)))
        return art_fault(source, block, "a frame has a width and a height");
    reset_undo_slots();
    random_first.seed(frame_seed);
    return std::ranges::all_of(block.rows,
                               [&](const Words& words) { return run_command(source, block, words, stamps); });
}

}  // namespace

bool paint_frame(const ArtSource& source, const Stamps& stamps) {
    for (const ArtBlock& block : source.blocks)
        if (block.head[0] == "frame") return paint_block(source, block, stamps);
    std::fprintf(stderr, "%s: no frame\n", source.path.c_str());
    return false;
}

}  // namespace nubo
