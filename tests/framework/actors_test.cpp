#include "framework/actors.h"

#include "base/log.h"
#include "framework/screen_effects.h"
#include "harness/harness.h"
#include "state/colors.h"
#include "state/run.h"
#include <gtest/gtest.h>

namespace nubo {
namespace {

class ActorsTest : public testing::Test {
protected:
    ActorsTest() {
        UA_log_open();
        UA_initialize_actors();
        handlers_locked = 0;
    }
    ~ActorsTest() override { UA_log_close(); }
    /// Ticks until only the protected actor is left, at most `most`.
    static int ticks_until_alone(int most) {
        int ticks = 0;
        while (UA_count_actors() > 1 && ticks < most) {
            UA_behavior_handler();
            ++ticks;
        }
        return ticks;
    }
    ScratchFolder folder_;
};

TEST_F(ActorsTest, ThePoolHandsOutRows1To48AndProtectsItsEnds) {
    for (int who = 1; who <= 48; ++who) EXPECT_EQ(UA_spawn_blank_element(2, 3), who);
    EXPECT_EQ(UA_spawn_blank_element(2, 3), -1);
    UA_destroy_actor(0, "a test");
    UA_destroy_actor(49, "a test");
    EXPECT_EQ(actor::Type[0], ACTOR_PROTECTED);
    UA_destroy_actor(7, "a test");
    EXPECT_EQ(UA_grab_object(), 7);
    EXPECT_EQ(log_text(),
              "[ ERROR ] : Attempted to grab object, but none available!\n"
              "ERROR: No free actors while spawning generic element! slot = -1\n"
              "[ ERROR ] : A process tried to destroy object (0) -- this object is protected!\n[ REFER ] : a test\n"
              "[ ERROR ] : A process tried to destroy object (MAX-1) -- this object is protected!\n"
              "[ REFER ] : a test\n");
}

TEST_F(ActorsTest, ALifeOfOneEndsOnTheNextTickUnlessTheHandlersAreLocked) {
    const auto who = static_cast<std::size_t>(UA_spawn_blank_element(0, 0));
    actor::Self_Destruct[who] = 1;
    handlers_locked = 1;
    UA_behavior_handler();
    EXPECT_EQ(actor::Type[who], ACTOR_SPRITE);
    handlers_locked = 0;
    UA_behavior_handler();
    EXPECT_EQ(actor::Type[who], ACTOR_FREE);
}

TEST_F(ActorsTest, TheFadeOfTheStartTakes32TicksAndLeavesNoActor) {
    // From 254 by 8: after 31 runs 254 - 248 = 6 are left; the 32nd makes 6 moves, fewer than 8, and ends.
    tint_strength = 254;
    UA_tint_screen(10, 20, 30, 0, 0, 8);
    UA_behavior_handler();
    EXPECT_EQ(tint_strength, 246);
    EXPECT_EQ(ticks_until_alone(100), 31);
    EXPECT_EQ(tint_strength, 0);
    EXPECT_EQ(tint_g, 20);
    EXPECT_EQ(log_text(), "");
}

TEST_F(ActorsTest, ASecondTintTurnsTheRunningOne) {
    tint_strength = 100;
    UA_tint_screen(0, 0, 0, 0, 0, 10);
    UA_behavior_handler();
    UA_tint_screen(255, 0, 0, 254, 0, 1);
    EXPECT_EQ(UA_count_actors(), 2);
    UA_behavior_handler();
    EXPECT_EQ(tint_strength, 91);
    EXPECT_EQ(tint_r, 255);
}

}  // namespace
}  // namespace nubo
