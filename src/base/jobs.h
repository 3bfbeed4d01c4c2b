#pragma once
// The job queue: what a timer handler must not do itself it pushes here, and the main flow runs it.
#include "state/run.h"

namespace nubo {

/// Fills the lowest free slot; `delay` in framework ticks of 45 Hz. The slot, or -1 after a log line when all are
/// taken.
int push_to_job(int type, int a1, int a2, int a3, int a4, int a5, int a6, int a7, int script_slot, int delay);

/// The same for callers that have words of their own for a full queue: -1 without a log line.
int fill_job_slot(int type, const std::array<int, job_arguments>& arguments, int script_slot, int delay);

/// The lowest free slot, -1 if none. Another flow may take it before the caller does: who wants it fills it by the
/// calls above.
int UA_free_job_slot();

/// The lowest slot of that type, or of any when `type` is -1; -1 if none.
int UA_find_job(int type);

/// Gives the waiting job of a type new arguments; its delay stays. False when none waits, or when it is run just now.
bool renew_job(JobType type, const std::array<int, job_arguments>& arguments);

/// Zeroes the fields of a slot.
void UA_clear_job(int slot);

/// One job type's action, on the main flow. It clears the slot by `UA_clear_job` before it acts, so that the action may
/// push a job.
using JobHandler = void (*)(int slot);

/// Names the action of a type, 0 to 63. Called at start by the rooms that own the actions; waiting and doing nothing
/// are known here. A type that no one knows keeps its slot.
void set_job_handler(JobType type, JobHandler handler);

/// Runs each job without a delay left, in ascending order. At the end of every screen update.
void UA_run_jobs();

/// The counting down of the delays, by the 45 Hz framework tick.
void count_job_delays();

}  // namespace nubo
