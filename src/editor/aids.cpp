#include "editor/aids.h"

#include "base/keys.h"
#include "codecs/blend.h"
#include "framework/text.h"
#include "gui/mouse_text.h"
#include "paint/tool_preview.h"
#include "state/colors.h"
#include "state/frames.h"
#include "state/options.h"
#include "state/overlay.h"
#include "state/run.h"
#include "state/shown.h"
#include "state/view.h"
#include "view/frame_tiles.h"
#include <algorithm>
#include <allegro.h>
#include <array>
#include <cstdio>

namespace nubo {
namespace {

int shown_scale() { return zoom_scale[static_cast<std::size_t>(shown.zoom)]; }

Color crosshair_color() {
    constexpr std::array<Color, 3> colors{0xffffff, 0x808080, fixed_black};
    if (opt_crosshair_color < 0 || opt_crosshair_color >= static_cast<int>(colors.size())) opt_crosshair_color = 0;
    return colors[static_cast<std::size_t>(opt_crosshair_color)];
}

/// The largest multiple of `grid` that is at most `value`.
int floor_to(int value, int grid) { return value - ((value % grid) + grid) % grid; }

// ---- Cursor --------------------------------------------------------------------------------------------------------

struct CursorDot {
    int dx, dy;
    Color color;
};
constexpr std::array<CursorDot, 12> cursor_dots{{{-3, 0, fixed_light},
                                                 {-4, 0, fixed_light},
                                                 {3, 0, fixed_light},
                                                 {4, 0, fixed_light},
                                                 {0, -3, fixed_light},
                                                 {0, -4, fixed_light},
                                                 {0, 3, fixed_light},
                                                 {0, 4, fixed_light},
                                                 {-2, 0, fixed_black},
                                                 {2, 0, fixed_black},
                                                 {0, -2, fixed_black},
                                                 {0, 2, fixed_black}}};

void draw_cursor_dot(int x, int y, int size, Color color) {
    rectfill(screen_buffer, x, y, x + size - 1, y + size - 1, static_cast<int>(color));
}

// ---- Measuring -----------------------------------------------------------------------------------------------------

enum MeasureState : int { MEASURE_NONE, MEASURE_PRESSED, MEASURE_RUNNING, MEASURE_ENDING };

/// The first press and release of the key starts the measure, the second press and release ends it.
void step_measure() {
    const bool down = hotkey_held(HOTKEY_MEASURE);
    if (measure_state == MEASURE_PRESSED && !down) {
        measure_state = MEASURE_RUNNING;
    } else if (measure_state == MEASURE_RUNNING && down) {
        measure_state = MEASURE_ENDING;
    } else if (measure_state == MEASURE_ENDING && !down) {
        measure_state = MEASURE_NONE;
        measure_x = measure_y = -1;
    }
}

bool anchor_in_frame() { return measure_x >= 0 && measure_y >= 0 && measure_x < frame_w && measure_y < frame_h; }

void draw_measure_lines() {
    const int x = measure_x - shown.pan_x, y = measure_y - shown.pan_y;
    preview_line(overlay, x, y, x, y - view_h);
    preview_line(overlay, x, y, x, y + view_h);
    preview_line(overlay, x, y, x - view_w, y);
    preview_line(overlay, x, y, x + view_w, y);
}

void draw_measured_distance() {
    std::array<char, 32> text;
    const Point pixel = real_pixel({shown.pixel_x, shown.pixel_y});
    std::snprintf(text.data(), text.size(), "%d, %d", pixel.x - measure_x, pixel.y - measure_y);
    put_mouse_text(text.data(), measure_x, measure_y);
}

}  // namespace

void draw_crosshairs() {
    constexpr int gap = 4;
    const int scale = shown_scale(), strength = std::min<int>(opt_crosshair_strength, 254);
    const Color color = crosshair_color();
    const int x = (shown.pixel_x - shown.pan_x) * scale, y = (shown.pixel_y - shown.pan_y) * scale;
    const int grid = opt_crosshair_scaling != 0 && shown.zoom > zoom_min ? scale : 1;
    // The cell `gap` before the centre is the last of the bars that end there.
    const int left_end = x - (gap - 1) * grid, top_end = y - (gap - 1) * grid;
    const int left = floor_to(left_end - view_w, grid), top = floor_to(top_end - view_h, grid);
    trans_rectfill(screen_buffer, x, top, grid, top_end - top, color, strength);
    trans_rectfill(screen_buffer, x, y + gap * grid, grid, view_h, color, strength);
    trans_rectfill(screen_buffer, left, y, left_end - left, grid, color, strength);
    trans_rectfill(screen_buffer, x + gap * grid, y, view_w, grid, color, strength);
}

void draw_cursor(CursorForm form) {
    const bool scaled = form == CURSOR_FRAME_PIXELS;
    const int size = scaled ? shown_scale() : 1;
    const int x = scaled ? (shown.pixel_x - shown.pan_x) * size : shown.mouse_x;
    const int y = scaled ? (shown.pixel_y - shown.pan_y) * size : shown.mouse_y;
    draw_cursor_dot(x, y, size, brush_color);
    for (const CursorDot& dot : cursor_dots) draw_cursor_dot(x + dot.dx * size, y + dot.dy * size, size, dot.color);
}

void draw_stroke_cursor() {
    set_font(FONT_WIDE, TEXT_GRAY);
    UA_text(screen_buffer, shown.mouse_x, shown.mouse_y, "X");
}

void draw_measure() {
    if (measure_x == -1) return;
    step_measure();
    const bool preview_active = shown.cel_place.mode != -1 || tool_preview != -1 || draw_over_frame != nullptr;
    if (!preview_active) clear_to_color(overlay, static_cast<int>(transparent_color));
    if (!anchor_in_frame()) return;  // of a larger Frame
    if (measure_state != MEASURE_NONE) draw_measure_lines();
    draw_measured_distance();
}

}  // namespace nubo
