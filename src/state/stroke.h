#pragma once
// The running stroke and shape, and the brush tips.
#include "state/shared.h"
#include <array>
#include <limits>

namespace nubo {

struct Point {
    int x = 0, y = 0;
};
inline bool operator==(const Point& a, const Point& b) { return a.x == b.x && a.y == b.y; }

// ---- Tips ----------------------------------------------------------------------------------------------------------

inline constexpr int tip_w = 17, tip_h = 15, tip_columns = 12;          // a cell of `tip_sheet`; 12 cells a row
inline constexpr int tip_center_x = 8, tip_center_y = 7;                // the cell's centre
inline constexpr int tip_count = 36, tip_custom = 36, tip_single = -1;  // built in; the CustomTip; one pixel, no tip
inline constexpr int tip_sheet_w = 206, tip_sheet_h = 62, tip_image_h = 48;
inline constexpr int custom_tip_y = 45, custom_tip_w = 16, custom_tip_h = 14;  // the CustomTip, at x 0 of `tip_sheet`
inline constexpr int tip_outside = 200;  // tip value: 0 full, 1 to 199 partial, this and above outside
inline constinit int brush_tip = 0;      // 0 to 35, or `tip_custom`

// ---- Points --------------------------------------------------------------------------------------------------------

inline constexpr int click_slots = 256;
inline constinit std::array<Point, click_slots> click_points{};  // of the running tool, frame pixels
/// Of a point or an end that isn't set yet: no pixel lies there, while those left of the Frame begin at -1.
inline constexpr int no_coordinate = std::numeric_limits<int>::min();
inline constexpr Point no_point{no_coordinate, no_coordinate};
inline constinit Point previous_point = no_point;  // of a freehand stroke
inline constinit Shared<int> spray_tick = 0;       // set at 45 Hz, cleared by SPRAY

// ---- Gradients -----------------------------------------------------------------------------------------------------

/// The axis of L.GRAD, derived from its nodes at the start of a stroke.
struct LinearAxis {
    float angle = 0, length = 0, sin = 0, cos = 0;
};
inline constinit LinearAxis linear_axis;

}  // namespace nubo
