#include "game/script_tick.h"

#include "game/script_commands.h"
#include "game/script_log.h"
#include "state/effects.h"
#include "state/run.h"
#include "state/scripts.h"

namespace nubo {
namespace {

constexpr int last_pc = 1000;  // beyond it a script is taken for one that never ends

bool is_waiting(std::size_t slot) { return script::waiting[slot] != 0 || script::wait_pending[slot] != 0; }

ScriptTick stop_endless_script(int slot) {
    log_script_line("[ ERROR ] : Infinite loop encountered in script slot %d", slot);
    script::active[at(slot)] = 0;
    return TICK_ENDS;
}

ScriptTick run_script(int slot) {
    const std::size_t s = at(slot);
    if (script::pause[s] > 0) {
        script::pause[s] -= 1;
        return TICK_GOES_ON;
    }
    ScriptTick tick = TICK_GOES_ON;
    if (is_waiting(s))
        wait_for_behavior(slot);
    else
        tick = run_script_command(slot);
    if (script::active[s] == 0 || is_waiting(s)) return tick;
    return (script::pc[s] += 1) > last_pc ? stop_endless_script(slot) : tick;
}

/// True when all scripts have had their turn.
bool run_scripts() {
    for (int slot = 0; slot < script_slots; ++slot)
        if (script::active[at(slot)].acquire() != 0 && run_script(slot) == TICK_ENDS) return false;
    return true;
}

void time_ripples() {
    for (std::size_t i = 0; i < ripple_count; ++i)
        if (ripple::active[i].acquire() != 0 && (ripple::counter[i] += 1) > ripple::limit[i]) ripple::ready[i] = 1;
}

}  // namespace

void UA_script_tick() {
    if (handlers_locked != 0) return;
    const bool all_ran = run_scripts();
    flush_script_lines();
    if (all_ran) time_ripples();
}

}  // namespace nubo
