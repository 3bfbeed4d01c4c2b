#include "base/jobs.h"

#include "base/log.h"
#include "base/timebase.h"
#include "state/flow.h"

namespace nubo {
namespace {

void wait_as_told(int slot) {
    const int ticks = job::arg[static_cast<std::size_t>(slot)][0];
    UA_clear_job(slot);
    UA_wait_with(ticks, [] { update_screen(UPDATE_NORMAL); });
}

constexpr std::size_t job_types = 64;
constexpr std::array<JobHandler, job_types> handlers_of_the_start() {
    std::array<JobHandler, job_types> handlers{};
    handlers[JOB_NOTHING] = UA_clear_job;
    handlers[JOB_WAIT] = wait_as_told;
    return handlers;
}
constinit std::array<JobHandler, job_types> job_handlers = handlers_of_the_start();

constexpr int being_filled = -1;  // the type of a slot that is filled, or run, just now; no job to anyone else

/// Takes the lowest free slot, -1 if none. Both flows push, and may look at the same slot at the same time.
int claim_slot() {
    for (std::size_t slot = 0; slot < job_slots; ++slot)
        if (job::type[slot].claim(JOB_NONE, being_filled)) return static_cast<int>(slot);
    return -1;
}

}  // namespace

int fill_job_slot(int type, const std::array<int, job_arguments>& arguments, int script_slot, int delay) {
    const int slot = claim_slot();
    if (slot < 0) return -1;
    const auto at = static_cast<std::size_t>(slot);
    for (std::size_t i = 0; i < arguments.size(); ++i) job::arg[at][i] = arguments[i];
    job::script_slot[at] = script_slot;
    job::delay[at] = delay;
    job::type[at].publish(type);
    return slot;
}

int push_to_job(int type, int a1, int a2, int a3, int a4, int a5, int a6, int a7, int script_slot, int delay) {
    const int slot = fill_job_slot(type, {a1, a2, a3, a4, a5, a6, a7}, script_slot, delay);
    if (slot < 0) UA_log("[ ERROR ] : Ran out of job queue slots in call to push_to_job! Job = %d", type);
    return slot;
}

int UA_free_job_slot() { return UA_find_job(JOB_NONE); }

int UA_find_job(int type) {
    for (std::size_t slot = 0; slot < job_slots; ++slot) {
        const int held = job::type[slot].acquire();
        if (type == -1 ? held > JOB_NONE : held == type) return static_cast<int>(slot);
    }
    return -1;
}

bool renew_job(JobType type, const std::array<int, job_arguments>& arguments) {
    const int slot = UA_find_job(type);
    if (slot < 0 || !job::type[at(slot)].claim(type, being_filled)) return false;
    for (std::size_t i = 0; i < arguments.size(); ++i) job::arg[at(slot)][i] = arguments[i];
    job::type[at(slot)].publish(type);
    return true;
}

void UA_clear_job(int slot) {
    const auto at = static_cast<std::size_t>(slot);
    for (auto& argument : job::arg[at]) argument = 0;
    job::script_slot[at] = 0;
    job::delay[at] = 0;
    job::type[at].publish(JOB_NONE);
}

void set_job_handler(JobType type, JobHandler handler) { job_handlers[static_cast<std::size_t>(type)] = handler; }

void UA_run_jobs() {
    for (std::size_t slot = 0; slot < job_slots; ++slot) {
        const int type = job::type[slot].acquire();
        if (type <= JOB_NONE || type >= static_cast<int>(job_types) || job::delay[slot] > 0) continue;
        const JobHandler handler = job_handlers[static_cast<std::size_t>(type)];
        if (handler != nullptr && job::type[slot].claim(type, being_filled)) handler(static_cast<int>(slot));
    }
}

void count_job_delays() {
    for (std::size_t slot = 0; slot < job_slots; ++slot)
        if (job::type[slot].acquire() > JOB_NONE && job::delay[slot] > 0) job::delay[slot] -= 1;
}

}  // namespace nubo
