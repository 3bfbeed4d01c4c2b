#pragma once
// The view of the frame on the logical screen, the mouse, and what is drawn over the frame in passing.
#include "state/cel.h"
#include "state/shared.h"
#include "state/tools.h"
#include <array>

namespace nubo {

// ---- Zoom levels ---------------------------------------------------------------------------------------------------

inline constexpr int zoom_min = 1, zoom_max = 6;
inline constexpr std::array<int, 8> zoom_scale{1, 1, 2, 4, 8, 16, 32, 64};  // logical pixels to a frame pixel
/// The logical screen in frame pixels at each level.
inline constexpr std::array<float, 7> zoom_view_w{320, 320, 160, 80, 40, 20, 10};
inline constexpr std::array<float, 7> zoom_view_h{240, 240, 120, 60, 30, 15, 7.5F};
inline constexpr std::array<int, 8> pan_step{3, 3, 2, 1, 1, 1, 1, 1};  // frame pixels that one pan tick moves

// ---- The view, moved by both flows ---------------------------------------------------------------------------------

inline constinit Shared<int> zoom = 1;                              // 1 to 6
inline constinit Shared<int> pan_x = 0, pan_y = 0;                  // frame pixel at the top left of the screen
inline constinit Shared<int> pixel_x = 0, pixel_y = 0;              // frame pixel under the mouse
inline constinit Shared<int> view_center_x = 0, view_center_y = 0;  // frame pixel at the centre of the view
inline constinit Shared<int> checker_index = 1;                     // pattern behind the frame, 0 to 2
inline constinit Shared<int> stripe_phase = 0;                      // the ants: 0 to 31, 45 steps a second
inline constinit Shared<int> refresh_ticks = 0;                     // 45 Hz ticks since the last update_screen
inline constinit Shared<int> spray_tick = 0;                        // set at 45 Hz, cleared by SPRAY

// ---- Mouse ---------------------------------------------------------------------------------------------------------
// Allegro has variables of its own by the names `mouse_x` and `mouse_y`, in real pixels: there they are `::mouse_x`.

inline constinit Shared<int> mouse_x = 0, mouse_y = 0;  // logical pixels, 0 to 319 and 0 to 239
inline constinit Shared<int> mouse_left = 0, mouse_right = 0, mouse_middle = 0;  // the physical buttons
inline constinit Shared<int> last_wheel = 0;                                     // wheel position of the last GUI tick

// ---- Windows -------------------------------------------------------------------------------------------------------

inline constinit Shared<int> menu_id = 0;  // number of the window on screen, 0 the drawing menu
inline constexpr int window_rows = 64;
struct WindowPos {
    int x = -1, y = -1;
};                                                                 // -1: the window's default place
inline constinit std::array<WindowPos, window_rows> window_pos{};  // last position of each window

// ---- Transient -----------------------------------------------------------------------------------------------------

inline constinit int tool_preview =
    -1;  // BrushTool whose preview is drawn over the frame, `nodes_preview` + ink; -1 none
inline constexpr int nodes_preview = 50;   // the nodes of a gradient ink
inline constinit int tool_preview_on = 0;  // the overlay is blended over the frame
using OverlayDrawer = void (*)();
inline constinit OverlayDrawer draw_over_frame = nullptr;  // what else each picture draws on the overlay, null none
inline constinit int picking_color = 0;                    // the next update draws no cursor, crosshairs or tint
inline constinit Shared<int> hotkeys_busy = 0;             // `check_hotkeys` is running
inline constinit Shared<int> status_message = 0, status_timer = 0;  // message index and GUI ticks left
inline constinit std::array<char, 96> told_text{};                  // what MESSAGE_TOLD says
inline constexpr int status_coordinates = 0, status_bar_only = -1;  // values of `status_message` without a text
inline constinit int measure_x = -1, measure_y = -1;                // anchor of the distance, -1 none
inline constinit int measure_state = 0;                             // 0 none, 1 first press, 2 running, 3 last press
struct MenuShadow {
    int x = -1, y = -1, w = -1, h = -1;
};
inline constinit MenuShadow menu_shadow;       // rectangle of the drawing menu's snapshot under an activity menu
inline constexpr int rectangle_unset = -9000;  // as x: a cross through the mouse instead of a rectangle
/// The rectangle from a corner that the user has set to the mouse. The corner may lie beyond the Frame.
struct RectanglePreview {
    int x = rectangle_unset, y = rectangle_unset;  // frame pixels
};
inline constinit RectanglePreview rectangle_preview;

// ---- The picture being drawn ---------------------------------------------------------------------------------------

/// Copies of the words that the handlers go on changing, taken at the start of each update, so that one picture is
/// drawn with one set of values.
struct ViewSnapshot {
    int pan_x = 0, pan_y = 0, zoom = 1;
    int pixel_x = 0, pixel_y = 0, mouse_x = 0, mouse_y = 0;
    int status_message = 0, checker_index = 1, stripe_phase = 0, hover = -1;
    CelPlace cel_place{};
    MenuShadow menu_shadow{};
};
inline constinit ViewSnapshot shown;  // main flow only; all that draws into `screen_buffer` or `overlay` reads it

}  // namespace nubo
