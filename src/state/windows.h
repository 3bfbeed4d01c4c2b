#pragma once
// The windows by number, and where they stand.
#include "state/shared.h"
#include <array>

namespace nubo {

/// A number of a window, as `menu_id` holds it.
enum Window : int {
    WINDOW_KEPT = -1,  // of a window built beside another one: `menu_id` stays
    WINDOW_DRAWING_MENU = 0,
    WINDOW_PIC_MENU = 1,
    WINDOW_CEL_MENU = 2,
    WINDOW_USER_MENU = 3,
    WINDOW_FRAME_MENU = 4,
    WINDOW_FILE_BROWSER = 6,
    WINDOW_ABOUT = 7,
    WINDOW_COLOR = 8,
    WINDOW_RESIZE = 10,
    WINDOW_TIP = 11,
    WINDOW_TOOL = 11,
    WINDOW_INK = 13,
    WINDOW_SUPERSHAPE = 14,
    WINDOW_HOTKEYS = 15,
    WINDOW_OPTIONS = 16,
    WINDOW_TEXT = 17,
    WINDOW_SPRITE_SHEET = 19,
    WINDOW_BOX = 20,  // confirm box, key prompt, help, option slider, gradient and progress boxes
    WINDOW_WORKSPACE = 21,
    WINDOW_POLYGON = 22,
    WINDOW_SPIRAL = 23,
    WINDOW_JPG_QUALITY = 24,
    WINDOW_FAVORITES = 26,
    WINDOW_COLOR_SCHEME = 27
};
inline constinit Shared<int> menu_id = 0;  // number of the window on screen, 0 the drawing menu

/// Row of `window_pos`: where a window was left. Two windows of one size share a row.
enum WindowPosRow : int {
    POS_NONE = -1,  // opens at its computed place each time; a drag of it lasts until it closes
    POS_DRAWING_MENU = 0,
    POS_FILE_BROWSER = 6,
    POS_ABOUT = 7,
    POS_COLOR = 8,
    POS_TIP = 11,
    POS_TOOL_AND_INK = 12,
    POS_SUPERSHAPE = 14,
    POS_HOTKEYS_AND_OPTIONS = 15,
    POS_SPRITE_SHEET = 19,
    POS_WORKSPACE = 21,
    POS_POLYGON = 22,
    POS_SPIRAL = 23,
    POS_JPG_QUALITY = 24,
    POS_ZOOM_PREVIEW = 25,
    POS_FAVORITES = 26,
    POS_COLOR_SCHEME = 27
};

inline constexpr int window_rows = 64;
struct WindowPos {
    int x = -1, y = -1;  // -1: the window's default place
};
inline constinit std::array<WindowPos, window_rows> window_pos{};  // last position of each window

struct MenuShadow {
    int x = -1, y = -1, w = -1, h = -1;
};
inline constinit MenuShadow menu_shadow;  // rectangle of the drawing menu's snapshot under an activity menu

}  // namespace nubo
