#include "base/timebase.h"

#include "state/run.h"

namespace nubo {

void UA_timebase_tick() {
    constexpr int idle_limit = 1000, phase_wrap = 500;
    UA_wait_ticks += 1;
    UA_clock_ticks += 1;
    if (UA_idle_ticks < idle_limit) UA_idle_ticks += 1;
    const int count = (UA_phase_counter + 1) % phase_wrap;
    UA_phase_counter = count;
    for (std::size_t n = 1; n < UA_phase.size(); ++n)
        if (count % static_cast<int>(n) == 0) UA_phase[n] = (UA_phase[n] + 1) & 255;
}

void UA_wait_with(int ticks, void (*update)()) {
    UA_wait_ticks = 0;
    while (UA_wait_ticks < ticks) update();
}

}  // namespace nubo
