#pragma once
// What is drawn over the Frame in passing. Main flow only.

namespace nubo {

inline constexpr int nodes_preview = 50;  // the nodes of a gradient ink
/// BrushTool whose preview is drawn over the Frame, `nodes_preview` + ink; -1 none.
inline constinit int tool_preview = -1;
inline constinit int tool_preview_on = 0;  // the overlay is blended over the frame
using OverlayDrawer = void (*)();
inline constinit OverlayDrawer draw_over_frame = nullptr;  // what else each picture draws on the overlay, null none
inline constinit int picking_color = 0;                    // the next update draws no cursor, crosshairs or tint

// ---- A distance ----------------------------------------------------------------------------------------------------

inline constinit int measure_x = -1, measure_y = -1;  // its anchor, -1 none
inline constinit int measure_state = 0;               // 0 none, 1 first press, 2 running, 3 last press

// ---- A rectangle ---------------------------------------------------------------------------------------------------

inline constexpr int rectangle_unset = -9000;  // as x: a cross through the mouse instead of a rectangle
/// The rectangle from a corner that the user has set to the mouse. The corner may lie beyond the Frame.
struct RectanglePreview {
    int x = rectangle_unset, y = rectangle_unset;  // frame pixels
};
inline constinit RectanglePreview rectangle_preview;

}  // namespace nubo
