#pragma once
// The two calls that lower rooms make upward, from every loop that waits. Both are defined in editor/.

namespace nubo {

/// Draws the frame, its overlays, the GUI and the status bar, presents the picture and runs the queued jobs. Every loop
/// that waits on the main flow calls it. Main flow only.
enum UpdateMode : int {
    UPDATE_NORMAL = 0,
    UPDATE_STROKE = 1
};  // STROKE: while a stroke paints; no overlay, no crosshairs
void update_screen(int mode);

/// One scan of the key table; the mode says which rows may act.
enum HotkeyMode : int {
    HOTKEYS_MAIN = 0,
    HOTKEYS_MODAL = 1,
    HOTKEYS_PAN = 2,
    HOTKEYS_NODES = 3,
    HOTKEYS_TOOL = 4,     // while a tool waits for a point
    HOTKEYS_PLACING = 5,  // while a Cel floats
};
void check_hotkeys(int mode);

}  // namespace nubo
