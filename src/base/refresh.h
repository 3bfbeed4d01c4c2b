#pragma once
// The display's refresh rate, for programs that keep step with it. The editor paces itself otherwise and doesn't ask.

namespace nubo {

/// Shows frames for one second of the 500 Hz clock, with the pacing of the present step switched off, and gives the
/// rate that their number stands for. `present` shows one frame; each waits for the display's vertical blank first.
/// Main flow, with the timer handlers running.
int UA_estimate_refresh(void (*present)());

/// The rate that `frames` shown in one second stand for, 60 when they fit none; logged.
int refresh_rate_of(int frames);

}  // namespace nubo
