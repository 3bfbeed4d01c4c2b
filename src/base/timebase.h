#pragma once
// The time base: counters that the 500 Hz clock advances.

namespace nubo {

/// The clock tick, 500 Hz: advances the counters of state/run.h and does nothing else. Timer handler.
void UA_timebase_tick();

/// Zeroes `UA_wait_ticks` and calls `update` until it has reached `ticks`, in 500ths of a second. Main flow.
void UA_wait_with(int ticks, void (*update)());

}  // namespace nubo
