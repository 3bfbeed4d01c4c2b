#pragma once
// The timer handlers: what runs beside the main flow, one at a time, on Allegro's timer thread.
#include <array>

namespace nubo {

/// A periodic handler; `period` in Allegro's hardware ticks, of which a second has `timer_hz`.
struct Handler {
    void (*run)();
    int period;
};

/// All handlers in the order of installing, `GUI_tick` at the rate that `power_saving` asks.
std::array<Handler, 8> timer_handlers();

/// Installs them all. Once, late in the start. False if Allegro has no room for one, after a log line.
bool install_handlers();

/// Installs `GUI_tick` again when `power_saving` asks for another rate than it has. By the program loop on each pass.
void keep_GUI_tick_rate();

/// The 45 Hz tick: the ants, the ticks that pace paint work, the delays of the jobs. Timer handler.
void UA_framework_tick();

}  // namespace nubo
