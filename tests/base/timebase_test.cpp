#include "base/timebase.h"

#include "base/log.h"
#include "base/refresh.h"
#include "harness/harness.h"
#include "state/run.h"

#include <gtest/gtest.h>

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

TEST(TimeBase, WaitsWithUpdates) {
    static int updates = 0;
    UA_wait_ticks = 99;
    UA_wait_with(30, [] {
        ++updates;
        for (int i = 0; i < 4; ++i) UA_timebase_tick();
    });
    EXPECT_EQ(updates, 8);  // 7 make 28 ticks
    UA_wait_with(0, [] { ++updates; });
    EXPECT_EQ(updates, 8);
}

TEST(Refresh, MatchesTheFramesOfASecond) {
    const ScratchFolder folder;
    UA_log_open();
    EXPECT_EQ(UA_estimate_refresh([] {
                  EXPECT_EQ(frame_pacing, 0);
                  for (int i = 0; i < 7; ++i) UA_timebase_tick();  // 72 frames make 504 ticks
              }),
              75);
    EXPECT_EQ(frame_pacing, 1);
    EXPECT_EQ(log_text(), "[ INIT ] : Benchmark frame test   = 72\n[ INIT ] : Estimated refresh rate = 75\n");
    EXPECT_EQ(refresh_rate_of(71), 70);
    EXPECT_EQ(refresh_rate_of(125), 120);
    for (const int unknown : {57, 63, 109, 126, 300, 301}) EXPECT_EQ(refresh_rate_of(unknown), 60) << unknown;
    const std::string log = log_text();
    EXPECT_NE(log.find("= 300\n[ INIT ] : Couldn't locate compatible refresh rate. Assuming 60Hz refresh.\n"
                       "[ INIT ] : Vsync appears to be nonfunctional. Assuming 60Hz refresh.\n"),
              std::string::npos);
}

}  // namespace
}  // namespace nubo
