#include "framework/framework_jobs.h"

#include "base/jobs.h"
#include "framework/screen_effects.h"
#include "framework/sound.h"
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

}  // namespace

void install_framework_jobs() {
    set_job_handler(JOB_SOUND, run_sound);
    set_job_handler(JOB_FOG, run_fog);
    for (const JobType type : {JOB_SCRIPT_WAIT, JOB_DUST}) set_job_handler(type, UA_clear_job);
}

}  // namespace nubo
