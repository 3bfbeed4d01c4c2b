#include "base/jobs.h"

#include "game/game_jobs.h"
#include "gui/window_drag.h"
#include "harness/harness.h"

#include <thread>

namespace nubo {
namespace {

constexpr int foreign_type = 77, none = 0;
int push(int type, int argument = none, int delay = none) {
    return push_to_job(type, argument, 2, 3, 4, 5, 6, 7, 9, delay);
}

std::vector<int> ran;  // the first arguments of the jobs that ran
void run_and_push_again(int slot) {
    const auto at = static_cast<std::size_t>(slot);
    ran.push_back(job::arg[at][0]);
    UA_clear_job(slot);
    const bool is_first = ran.back() == 1;
    EXPECT_EQ(is_first ? push(JOB_NOTHING, 100) : slot, slot);
}

TEST(Jobs, FillTheLowestSlotAndKeepTheirFields) {
    EXPECT_EQ(UA_find_job(-1), -1);
    EXPECT_EQ(push(JOB_FOG), 0);
    EXPECT_EQ(push(JOB_WAIT, -8, 4), 1);
    EXPECT_EQ(push(JOB_FOG), 2);
    EXPECT_EQ(job::arg[1][0], -8);
    EXPECT_EQ(job::arg[1][6], 7);
    EXPECT_EQ(job::script_slot[1], 9);
    EXPECT_EQ(job::delay[1], 4);
    UA_clear_job(0);
    EXPECT_EQ(UA_free_job_slot(), 0);
    EXPECT_EQ(UA_find_job(JOB_FOG), 2);
    EXPECT_EQ(UA_find_job(-1), 1);
    EXPECT_EQ(push(JOB_WAIT), 0);
    UA_clear_job(1);
    EXPECT_EQ(job::arg[1][6] + job::script_slot[1] + job::delay[1], 0);
}

TEST(Jobs, RunInOrderWhenTheirDelayIsUpAndMayPushIntoTheirOwnSlot) {
    set_job_handler(JOB_NOTHING, run_and_push_again);
    push(foreign_type);
    push(JOB_NOTHING, 1);
    push(JOB_NOTHING, 2, 3);
    push(JOB_NOTHING, 3);
    UA_run_jobs();
    EXPECT_EQ(ran, (std::vector{1, 3}));  // the job pushed into slot 1 waits for the next run
    UA_run_jobs();
    count_job_delays();
    count_job_delays();
    UA_run_jobs();
    EXPECT_EQ(ran, (std::vector{1, 3, 100}));
    count_job_delays();
    count_job_delays();  // a delay stays at 0
    UA_run_jobs();
    EXPECT_EQ(ran, (std::vector{1, 3, 100, 2}));
    EXPECT_EQ(UA_find_job(foreign_type), 0);  // unknown to all, it keeps its slot
}

TEST(Jobs, EachTypeToldLeavesItsSlot) {
    for (const JobType type : {JOB_SOUND, JOB_NOTHING, JOB_FOG, JOB_SCRIPT_WAIT, JOB_DUST, JOB_WAIT, JOB_WINDOW_DRAG})
        push(type);
    install_framework_jobs();
    install_window_drag();
    UA_run_jobs();
    EXPECT_EQ(UA_find_job(-1), -1);
}

TEST(Jobs, TwoFlowsFillAllSlotsAndTheNextIsRefused) {
    const ScratchFolder folder;
    UA_log_open();
    const auto push_half = [](int from) {
        for (int i = 0; i < job_slots / 2; ++i) EXPECT_GE(push(JOB_WAIT, from + i), 0);
    };
    std::thread other(push_half, job_slots / 2);
    push_half(0);
    other.join();
    std::set<int> arguments;
    for (const auto& argument : job::arg) arguments.insert(argument[0]);
    EXPECT_EQ(arguments.size(), std::size_t{job_slots});
    EXPECT_EQ(push(JOB_WINDOW_DRAG), -1);
    EXPECT_EQ(log_text(), "[ ERROR ] : Ran out of job queue slots in call to push_to_job! Job = 32\n");
}

}  // namespace
}  // namespace nubo
