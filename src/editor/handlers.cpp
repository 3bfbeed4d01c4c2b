#include "editor/handlers.h"

#include "base/jobs.h"
#include "base/log.h"
#include "base/timebase.h"
#include "game/actors.h"
#include "game/bubbles.h"
#include "game/script_tick.h"
#include "game/sound.h"
#include "gui/tick.h"
#include "state/run.h"
#include "state/shown.h"
#include "state/stroke.h"
#include <algorithm>
#include <allegro.h>

namespace nubo {
namespace {

constexpr int period_500_hz = 2386, period_140_hz = 8522, period_120_hz = 9943, period_100_hz = 11931;
constexpr int period_60_hz = 19886, period_45_hz = 26515, period_10_hz = 119318, period_5_hz = 238636;

/// What the paint engine and the ants live by.
void editor_tick() {
    constexpr int stripe_period = 32;
    stripe_phase = (stripe_phase + 1) % stripe_period;
    refresh_ticks += 1;
    spray_tick = 1;
}

int installed_period = 0;  // of `GUI_tick`; 0 as long as no handler is

int GUI_tick_period() { return power_saving == POWER_OFF ? period_120_hz : period_60_hz; }

}  // namespace

void UA_framework_tick() {
    if (handlers_locked != 0 || editor_running == 0) return;
    editor_tick();
    count_job_delays();
}

std::array<Handler, 8> timer_handlers() {
    return {{{UA_bubble_tick, period_45_hz},
             {UA_script_tick, period_100_hz},
             {UA_framework_tick, period_45_hz},
             {UA_behavior_handler, period_140_hz},
             {GUI_tick, GUI_tick_period()},
             {cursor_tick, period_10_hz},
             {UA_sound_tick, period_5_hz},
             {UA_timebase_tick, period_500_hz}}};
}

bool install_handlers() {
    const auto handlers = timer_handlers();
    const bool installed = std::all_of(handlers.begin(), handlers.end(), [](const Handler& handler) {
        return install_int_ex(handler.run, handler.period) == 0;
    });
    if (!installed) UA_log("[ ERROR ] : A timer handler couldn't be installed!");
    if (installed) installed_period = GUI_tick_period();
    if (frame_pacing == 0) install_int_ex(GUI_tick, period_60_hz);
    return installed;
}

void keep_GUI_tick_rate() {
    if (installed_period == 0 || installed_period == GUI_tick_period()) return;
    installed_period = GUI_tick_period();
    install_int_ex(GUI_tick, installed_period);
}

}  // namespace nubo
