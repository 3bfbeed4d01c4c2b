#pragma once
// Effects on the whole picture: the tint, the fog and the screenshot. Main flow only, but for what says otherwise.

namespace nubo {

/// Makes the work bitmaps of the effects. With the screen's, once at start; false without memory.
bool create_effect_bitmaps();

// ---- The tint ------------------------------------------------------------------------------------------------------

/// Starts a fade of the whole screen in a colour toward the strength `target`, 0 to 254, by `step` on every tick of 140
/// Hz after `delay` others, or turns the running one there. With a `step` below 1 the colour is set and the fade stays.
/// Without a free actor the strength stays as it is, after a line in the log.
void UA_tint_screen(int r, int g, int b, int target, int delay, int step);

/// Lays the tint over `screen_buffer`, if there is one. The last step of a picture.
void UA_draw_tint();

// ---- The fog -------------------------------------------------------------------------------------------------------

/// Has actor 48 move the fog's density by `step` on every tick of 140 Hz after `delay` others: from 1 on, or, with a
/// step below 1, from 330 down. A fog that drifts already is turned. Without a free behaviour nothing happens.
void UA_set_fog(int step, int delay);

/// Draws `fog_mask`, whose values rise from 1 round about to 255 in the middle; `density`, 1 to 331, is how far from
/// there it reaches. Job 8 does it.
void UA_draw_fog(int density);

// ---- The screenshot ------------------------------------------------------------------------------------------------

/// Writes `screen_buffer` into the program's folder as "screen_NNN.png", by the first free number from the last one on.
/// The number, 1 to 999; -1 after a line in the log when all are taken or the file can't be written.
int UA_screen_capture();

}  // namespace nubo
