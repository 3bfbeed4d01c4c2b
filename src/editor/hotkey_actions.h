#pragma once
// What the keys do. Each is a row's command in the key table of editor/hotkeys.cpp. Main flow only, but for the pan
// keys, which run in the view tick of the timer thread.

namespace nubo {

// ---- View ----------------------------------------------------------------------------------------------------------

void pan_up_by_key();
void pan_down_by_key();
void pan_left_by_key();
void pan_right_by_key();
void zoom_in_by_key();
void zoom_out_by_key();
void measure_by_key();

// ---- Frames: stepping needs more than one, and never goes to the one that is there ---------------------------------

void next_frame();
void previous_frame();
void first_frame();
void last_frame();
void resize_by_key();
void delete_frame_by_key();

// ---- Windows and colours -------------------------------------------------------------------------------------------

void pick_brush_color();
void pick_mask_color();
void color_window_by_key();
void tool_window_by_key();
void ink_window_by_key();
void exit_by_key();
void rapid_exit_by_key();

}  // namespace nubo
