#include "game/game_jobs.h"

#include "base/jobs.h"
#include "game/actors.h"
#include "game/screen_effects.h"
#include "game/scripts.h"
#include "game/sound.h"
#include "state/shared.h"
#include <array>

namespace nubo {
namespace {

using Arguments = std::array<int, job_arguments>;

/// The arguments of a job, whose slot is free then: what they ask for may queue another.
Arguments take_arguments(int slot) {
    Arguments arguments{};
    for (std::size_t i = 0; i < arguments.size(); ++i) arguments[i] = job::arg[at(slot)][i];
    UA_clear_job(slot);
    return arguments;
}

void run_sound(int slot) {
    const Arguments arguments = take_arguments(slot);
    sfx_play(arguments[0], arguments[1], arguments[2]);
}

void run_fog(int slot) { UA_draw_fog(take_arguments(slot)[0]); }

void run_script_wait(int slot) {
    const int script_slot = job::script_slot[at(slot)];
    UA_clear_job(slot);
    tell_script_of_last_object(script_slot);
}

/// At the place of the first object, which the game moves.
void run_dust(int slot) {
    constexpr int particles = 8, heading = 0, delay = 14, self_destruct = 150;
    UA_clear_job(slot);
    IS_spawn_dust_emitter(actor::Pos_x[actor_first], actor::Pos_y[actor_first], 0, particles, heading, delay,
                          self_destruct);
}

}  // namespace

void install_framework_jobs() {
    set_job_handler(JOB_SOUND, run_sound);
    set_job_handler(JOB_FOG, run_fog);
    set_job_handler(JOB_SCRIPT_WAIT, run_script_wait);
    set_job_handler(JOB_DUST, run_dust);
}

}  // namespace nubo
