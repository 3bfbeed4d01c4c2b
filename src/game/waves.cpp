#include "game/waves.h"

#include "base/log.h"
#include "base/random.h"
#include "framework/traps.h"
#include "game/actors.h"
#include "state/drawn_actors.h"

namespace nubo {
namespace {

struct WaveRow {
    int entry;  // of `Wave`
    const char *tag, *full;
};
constexpr WaveRow horizontal{wave_horizontal, "UA_set_wave_h()!",
                             "[ ERROR ] : Couldn't locate free behavior when setting actor H wave!"};
constexpr WaveRow vertical{wave_vertical, "UA_set_wave_v()!",
                           "[ ERROR ] : Couldn't locate free behavior when setting actor V wave!"};

enum ModifyParam : std::size_t { MODIFY_VARIABLE, MODIFY_AMOUNT, MODIFY_COUNT, MODIFY_INDEX };
constexpr int wave_phase = 30;  // variable of `BE_modify_variable`
constexpr int any_slot = -1;

void set_wave(const WaveRow& row, int who, int slot, const Wave& wave, int rate, int delay) {
    if (slot == any_slot) slot = get_free_behavior(who);
    if (slot == any_slot) {
        UA_log(row.full);
        return;
    }
    if (!UA_check_who_slot(who, slot, row.tag)) return;
    const std::size_t w = at(who), s = at(slot);
    actor::BEHAVIOR[w][s] = BEHAVIOR_NONE;  // what ran there must not run on the parameters of this one
    WaveWords& words = actor::Wave[w][at(row.entry)];
    words.frequency = static_cast<std::int16_t>(wave.frequency);
    words.amplitude = static_cast<std::int16_t>(wave.amplitude);
    words.phase = static_cast<std::int16_t>(wave.phase);
    auto& param = actor::Behavior_param[w][s];
    param[MODIFY_VARIABLE] = wave_phase;
    param[MODIFY_AMOUNT] = static_cast<std::int16_t>(rate);
    param[MODIFY_COUNT] = 0;
    param[MODIFY_INDEX] = static_cast<std::int16_t>(row.entry);
    actor::Behavior_delay[w][s] = static_cast<std::int16_t>(delay);
    actor::Behavior_accum[w][s] = 0;
    actor::BEHAVIOR[w][s].publish(BEHAVIOR_MODIFY_VARIABLE);
}

}  // namespace

void UA_set_wave_h(int who, int slot, int frequency, int amplitude, int rate, int delay) {
    set_wave(horizontal, who, slot, {frequency, amplitude, UA_random_b(circle_steps)}, rate, delay);
}

void UA_set_wave_v(int who, int slot, int frequency, int amplitude, int rate, int delay) {
    set_wave(vertical, who, slot, {frequency, amplitude, UA_random_b(circle_steps)}, rate, delay);
}

}  // namespace nubo
