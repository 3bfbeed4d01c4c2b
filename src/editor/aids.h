#pragma once
// What is drawn over the frame as an aid: crosshairs, cursor, the measured distance.

namespace nubo {

/// Four translucent bars from the pixel under the mouse, on `screen_buffer`.
void draw_crosshairs();

/// The mark of 13 dots on `screen_buffer`: in frame pixels, so that it grows with the zoom, or in logical pixels.
enum CursorForm : int { CURSOR_FRAME_PIXELS, CURSOR_LOGICAL_PIXELS };
void draw_cursor(CursorForm form);

/// The letter that stands for the cursor while a stroke paints.
void draw_stroke_cursor();

/// Steps the measuring with its key, and draws it on `overlay`. At each update.
void draw_measure();

}  // namespace nubo
