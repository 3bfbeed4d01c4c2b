#pragma once
// The few calls that lower rooms make upward. Each is declared here and defined where it belongs.
#include "state/hotkeys.h"

namespace nubo {

// ---- editor/ -------------------------------------------------------------------------------------------------------

/// Draws the frame, its overlays, the GUI and the status bar, presents the picture and runs the queued jobs. Every loop
/// that waits on the main flow calls it. Main flow only.
enum UpdateMode : int {
    UPDATE_NORMAL = 0,
    UPDATE_STROKE = 1
};  // STROKE: while a stroke paints; no overlay, no crosshairs
void update_screen(int mode);

/// One scan of the key table; the mode says which rows may act.
enum HotkeyMode : int { HOTKEYS_MAIN = 0, HOTKEYS_MODAL = 1, HOTKEYS_PAN = 2, HOTKEYS_NODES = 3 };
void check_hotkeys(int mode);

/// True while a key of the action's row is down with exactly its modifiers.
bool hotkey_held(Hotkey action);

/// The per-tick work of the view: pan keys, limits, pixel under the mouse, wheel zoom. Called first by `GUI_tick`.
void view_tick();

/// Applies the pan limits to `pan_x` and `pan_y`.
void view_clamp();

/// Recomputes the frame pixel under the mouse and the centre of the view. Called by every view tick, and by the
/// freehand tools on each pass, so that a stroke doesn't lag behind the hand.
void view_update_pixel();

/// Shows the whole Frame as a map as long as the middle button or the key is held; the place under the mouse becomes
/// the view.
void quick_pan();

/// Zoom level 1, with the middle of the Frame in the middle of the screen.
void center_frame();

/// Sets the default keys of all rows of the key table that have one; the others keep theirs.
void default_hotkeys();

/// Installs `GUI_tick` again at the rate that `power_saving` asks. After the options were changed.
void reinstall_GUI_tick();

}  // namespace nubo
