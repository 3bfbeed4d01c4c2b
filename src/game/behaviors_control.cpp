// Behaviours that start something elsewhere: clones, jobs, the fog, a pause.
#include "base/jobs.h"
#include "base/random.h"
#include "game/actor_fields.h"
#include "game/actors.h"
#include "game/behavior_steps.h"
#include "game/behaviors.h"
#include "state/effects.h"
#include <algorithm>

namespace nubo {
namespace {

// ---- Clones --------------------------------------------------------------------------------------------------------

bool is_pool_full() {
    return std::none_of(actor::Type.begin() + actor_first + 1, actor::Type.begin() + actor_last,
                        [](const auto& type) { return type == ACTOR_FREE; });
}

void copy_fields(std::size_t from, std::size_t to) {
    const auto copy = [&](auto& column) { column[to] = column[from]; };
    visit_template_fields(copy);
    visit_further_fields(copy);
    visit_list_fields(copy);
}

/// Lets a copy of the actor go, which is the caller's alone until its `Type` is written.
void release_clone(const BehaviorRun& run, std::size_t clone, bool stands) {
    copy_fields(run.who, clone);
    if (stands) actor::Vel_x[clone] = actor::Vel_y[clone] = actor::Vel_z[clone] = 0;
    for (std::size_t slot = 0; slot < behavior_slots; ++slot)
        if (!stands || slot != run.slot) actor::BEHAVIOR[clone][slot].publish(actor::BEHAVIOR[run.who][slot]);
    actor::Type[clone].publish(actor::Type[run.who]);
}

// ---- Jobs ----------------------------------------------------------------------------------------------------------

using JobArguments = std::array<int, job_arguments>;

bool is_same_job(std::size_t slot, int type, const JobArguments& arguments, int script) {
    return job::type[slot].acquire() == type && job::script_slot[slot] == script &&
           std::equal(arguments.begin(), arguments.end(), job::arg[slot].begin());
}

bool is_job_waiting(int type, const JobArguments& arguments, int script) {
    for (std::size_t slot = 0; slot < job_slots; ++slot)
        if (is_same_job(slot, type, arguments, script)) return true;
    return false;
}

/// Pushes a job. A full queue is told of once, not on every tick until there is room.
void push_job_once_told(int type, const JobArguments& a, int script, int delay) {
    static constinit Shared<bool> is_told = false;
    if (is_told && UA_free_job_slot() < 0) return;
    is_told = push_to_job(type, a[0], a[1], a[2], a[3], a[4], a[5], a[6], script, delay) < 0;
}

}  // namespace

void BE_control_fog(const BehaviorRun& run) {
    enum { DENSITY, STEP };
    const int density = run.param[DENSITY] += run.param[STEP];
    const bool is_on = density >= 1 && density <= fog_densities;
    fog_on = is_on ? 1 : 0;
    if (!is_on) return run.end();
    if (!renew_job(JOB_FOG, {density})) push_job_once_told(JOB_FOG, {density}, 0, 0);
}

void BE_spawn_trail(const BehaviorRun& run) {
    enum { TIMER, PERIOD, STANDS = 3, REMAINING, IS_TOLD };  // the last one: that there was no room
    auto& p = run.param;
    if ((p[TIMER] += 1) < p[PERIOD]) return;
    p[TIMER] = 0;
    if (p[REMAINING] == 0) return run.end();
    if (p[REMAINING] > 0) p[REMAINING] -= 1;
    if (p[IS_TOLD] == 0 || !is_pool_full()) {
        const int clone = UA_grab_object();
        p[IS_TOLD] = clone == actor_none ? 1 : 0;
        if (clone != actor_none) release_clone(run, at(clone), p[STANDS] != 0);
    }
    if (p[REMAINING] == 0) run.end();
}

void BE_framework_event(const BehaviorRun& run) {
    enum { JOB, DELAY_RANGE, ARGUMENTS, SCRIPT = ARGUMENTS + job_arguments };
    const int type = run.param[JOB], script = run.param[SCRIPT];
    if (type <= JOB_NONE) return;
    JobArguments arguments{};
    std::copy_n(run.param.begin() + ARGUMENTS, job_arguments, arguments.begin());
    if (!is_job_waiting(type, arguments, script))
        push_job_once_told(type, arguments, script, UA_random_b(run.param[DELAY_RANGE]));
}

void BE_force_pause(const BehaviorRun& run) {
    enum { RUNS };
    if (counts_out(run.param[RUNS])) run.end();
}

}  // namespace nubo
