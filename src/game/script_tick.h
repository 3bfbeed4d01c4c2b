#pragma once
// The timer handler that runs the scripts.

namespace nubo {

/// The script tick, 100 Hz: one command of each script that neither sleeps nor waits, then the time of the ripples. A
/// script that was stopped for having no end, or a job that found the queue full, ends the tick for all. Does nothing
/// while `handlers_locked` is set.
void UA_script_tick();

}  // namespace nubo
