#include "base/timebase.h"

#include "base/refresh.h"
#include "harness/harness.h"
#include "state/run.h"

namespace nubo {
namespace {

TEST(TimeBase, CountersWrapOrStayAsEachMust) {
    for (int i = 0; i < 500; ++i) UA_timebase_tick();
    EXPECT_EQ(UA_clock_ticks, 500);
    EXPECT_EQ(UA_phase_counter, 0);
    // Of the counts 1 to 499 and 0, phase n steps on floor(499 / n) + 1.
    EXPECT_EQ(UA_phase[1], 500 - 256);
    EXPECT_EQ(UA_phase[2], 250);
    EXPECT_EQ(UA_phase[3], 167);
    EXPECT_EQ(UA_phase[7], 72);
    EXPECT_EQ(UA_phase[8], 63);
    EXPECT_EQ(UA_idle_ticks, 500);
    for (int i = 0; i < 700; ++i) UA_timebase_tick();
    EXPECT_EQ(UA_idle_ticks, 1000);
    EXPECT_EQ(UA_wait_ticks, 1200);
}

}  // namespace
}  // namespace nubo
