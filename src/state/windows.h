#pragma once
// The windows by number.

namespace nubo {

/// `menu_id`: the window on screen.
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

}  // namespace nubo
