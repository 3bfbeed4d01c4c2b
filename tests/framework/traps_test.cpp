#include "framework/traps.h"

#include "harness/harness.h"

namespace nubo {
namespace {

class TrapsTest : public testing::Test {
protected:
    TrapsTest() { UA_log_open(); }
    ~TrapsTest() override { UA_log_close(); }
    ScratchFolder folder_;
};

TEST_F(TrapsTest, RefuseActorsThatMayNotBeKilled) {
    EXPECT_TRUE(UA_trap_object(1) && UA_trap_object(48));
    for (const int who : {0, 49, -1, 50}) EXPECT_FALSE(UA_trap_object(who)) << who;
    EXPECT_EQ(log_text(), "[ TRAP ] : A process tried to kill object (0)\n"
                          "[ TRAP ] : A process tried to kill object (MAX-1)\n"
                          "[ TRAP ] : A process tried to kill an object < 0!\n"
                          "[ TRAP ] : A process tried to kill an object > MAX!\n");
}

TEST_F(TrapsTest, RefuseSlotsInPairsOfLines) {
    EXPECT_TRUE(UA_check_who_slot(49, 3, "a()!") && GUI_check_window(127, "b") && UA_trap_gui_window(0));
    EXPECT_FALSE(UA_check_who_slot(50, 9, "a()!"));  // `who` is tested first
    EXPECT_FALSE(UA_check_who_slot(0, 4, "a()!"));
    EXPECT_FALSE(GUI_check_window(128, "b"));
    EXPECT_FALSE(UA_trap_gui_window(-1) || UA_trap_gui_window(128));
    EXPECT_EQ(log_text(), "[ ERROR ] : WHO parameter OOB in call to a()!\n[ STATS ] : who = 50\n"
                          "[ ERROR ] : SLOT parameter OOB in call to a()!\n[ STATS ] : slot = 4\n"
                          "[ ERROR ] : GUI window parameter OOB in call to b\n[ STATS ] : slot = 128\n"
                          "[ TRAP ] : A process tried to access GUI WINDOW < 0!\n"
                          "[ TRAP ] : A process tried to access GUI WINDOW > MAX!\n");
}

}  // namespace
}  // namespace nubo
