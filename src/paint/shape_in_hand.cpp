#include "paint/shape_in_hand.h"

#include "base/geometry.h"
#include "base/keys.h"
#include "gui/stripes.h"
#include "paint/shape_lines.h"
#include "paint/stroke.h"
#include "paint/tool_preview.h"
#include "state/frames.h"
#include "state/messages.h"
#include "state/run.h"
#include "state/status.h"
#include <algorithm>
#include <allegro.h>
#include <cstdio>
#include <cstdlib>

namespace nubo {

// ---- The shape -----------------------------------------------------------------------------------------------------

ShapeInHand::ShapeInHand(BrushTool tool, std::size_t capacity) : tool_(tool), preview_(tool) {
    point_list.reserve(capacity);
    shape_box = {};
}

void ShapeInHand::commit() {
    hide();
    if (!point_list.empty()) draw_to_frame(0, 0, tool_, active_ink(), brush_tip, brush_color);
}

bool KeyPress::happens() {
    const bool was_down = was_down_;
    was_down_ = key_down[at(code_)] != 0;
    return was_down_ && !was_down;
}

void say_shape_is_full() {
    status_message = MESSAGE_SHAPE_FULL;
    status_timer = flash_ticks;
}

void add_freehand_point(Point point) {
    if (point_list.empty()) {
        point_list.push_back(point);
        return;
    }
    const Point previous = point_list.back();
    if (point == previous) return;
    if (std::abs(point.x - previous.x) > 1 || std::abs(point.y - previous.y) > 1) point_list.push_back(previous);
    point_list.push_back(point);
}

// ---- Where SHIFT holds a point -------------------------------------------------------------------------------------

Point aligned_end(Point from, Point to) {
    constexpr double pi = 3.14159265358979323846, step = pi / 12;
    const double dx = to.x - from.x, dy = to.y - from.y;
    const double direction = std::round(std::atan2(dy, dx) / step) * step;
    const double length = dx * std::cos(direction) + dy * std::sin(direction);
    return {from.x + nearest_pixel(length * std::cos(direction)), from.y + nearest_pixel(length * std::sin(direction))};
}

Point square_end(Point from, Point to) {
    const int side = std::max(std::abs(to.x - from.x), std::abs(to.y - from.y));
    return {from.x + (to.x < from.x ? -side : side), from.y + (to.y < from.y ? -side : side)};
}

Point line_end(Point from, Point mouse, bool shift) { return shift ? aligned_end(from, mouse) : mouse; }
Point line_end(Point from, Point mouse) { return line_end(from, mouse, shift_is_down()); }

// ---- What the picture shows ----------------------------------------------------------------------------------------

void preview_points(Point corner, const std::bitset<supershape_steps>& gaps) {
    for (std::size_t i = 1; i < point_list.size(); ++i)
        if (i >= gaps.size() || !gaps[i - 1]) preview_edge(point_list[i], point_list[i - 1], corner);
}

void preview_edge(Point from, Point to, Point corner) {
    preview_line(overlay, from.x - corner.x, from.y - corner.y, to.x - corner.x, to.y - corner.y);
}

void tell_placing(const char* format, int a, int b, int c) {
    std::snprintf(placing_text.data(), placing_text.size(), format, a, b, c);
}

void tell_line(Point from, Point to) {
    constexpr double half_circle = 180, pi = 3.14159265358979323846;
    constexpr int full_circle = 360;
    const double angle = std::atan2(from.y - to.y, to.x - from.x) * half_circle / pi;
    const int degrees = (static_cast<int>(std::round(angle)) + full_circle) % full_circle;
    tell_placing("LENGTH > |c24%d, %d", UA_distance_2d(from.x, from.y, to.x, to.y), degrees);
}

void tell_size(int width, int height) {
    const auto beyond = [](int side) { return side > max_frame_side ? "> " : ""; };
    std::snprintf(placing_text.data(), placing_text.size(), "SIZE > |c24%s%d X %s%d", beyond(width),
                  std::min(width, max_frame_side), beyond(height), std::min(height, max_frame_side));
}

}  // namespace nubo
