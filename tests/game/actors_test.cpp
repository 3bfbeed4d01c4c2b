#include "game/actors.h"

#include "game/screen_effects.h"
#include "harness/harness.h"
#include "state/colors.h"
#include "state/drawn_actors.h"
#include "state/run.h"

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

TEST_F(ActorsTest, DestroyingGivesEveryFieldBackAndTakesTheBuddyAlong) {
    const auto who = static_cast<std::size_t>(UA_spawn_blank_element(2, 3));
    const int buddy = UA_spawn_blank_element(0, 0);
    actor::Health[who] = 7;
    actor::Stamina[who] = 1.5F;
    actor::Move_queue[who][255].z = 3;
    actor::Plasma_cells[who][31][31] = 19;
    actor::Wave[who][3].phase = 5;
    actor::Behavior_param[who][3][9] = 4;
    actor::Suicide_buddy[who] = static_cast<std::int16_t>(buddy);
    actor::Suicide_buddy[at(buddy)] = 0;  // and a chain ends at a protected one
    UA_destroy_actor(static_cast<int>(who), "a test");
    EXPECT_EQ(actor::Health[who], 100);
    EXPECT_EQ(actor::Stamina[who], 0.0F);
    EXPECT_EQ(actor::Move_queue[who][255].z, -1);
    EXPECT_EQ(actor::Plasma_cells[who][31][31], 255);
    EXPECT_EQ(actor::Wave[who][3].phase, 0);
    EXPECT_EQ(actor::Behavior_param[who][3][9], 0);
    EXPECT_EQ(actor::Suicide_buddy[who], -1);
    EXPECT_EQ(actor::Type[at(buddy)], ACTOR_FREE);
    EXPECT_EQ(actor::Type[0], ACTOR_PROTECTED);
    EXPECT_EQ(log_text(), "[ ERROR ] : A process tried to destroy object (0) -- this object is protected!\n"
                          "[ REFER ] : UA_destroy_actor (recursive)\n");
}

TEST_F(ActorsTest, BuddiesInARingEnd) {
    const int first = UA_spawn_blank_element(0, 0), second = UA_spawn_blank_element(0, 0);
    actor::Suicide_buddy[at(first)] = static_cast<std::int16_t>(second);
    actor::Suicide_buddy[at(second)] = static_cast<std::int16_t>(first);
    UA_destroy_actor(first, "a test");
    EXPECT_EQ(UA_count_actors(), 1);
}

TEST_F(ActorsTest, AGrabbedRowIsKeptUntilItsSpawnerIsDone) {
    EXPECT_EQ(UA_grab_object(), 1);
    UA_destroy_actor(1, "its spawner");
    EXPECT_EQ(UA_grab_object(), 2);
    actor::Type[1] = ACTOR_FREE;
    EXPECT_EQ(UA_grab_object(), 1);
    EXPECT_EQ(log_text(), "");
}

TEST_F(ActorsTest, KindsAreDestroyedAndPickedTogether) {
    for (int i = 0; i < 3; ++i) UA_spawn_blank_element(0, 0);
    actor::Profession[2] = 8;
    actor::Rank[3] = 4;
    actor::Rank[1] = 5;
    actor::Rank[actor_last] = 6;
    EXPECT_EQ(UA_pick_actor(-1, -1, 5), 1);
    EXPECT_EQ(UA_pick_actor(-1, -1, 6), actor_last);
    EXPECT_EQ(UA_pick_actor(-1, -1, 4), 3);
    EXPECT_EQ(UA_pick_actor(12, 8, 1), 2);
    EXPECT_EQ(UA_pick_actor(13, -1, -1), -1);
    EXPECT_EQ(UA_destroy_actor_type(12, 8), 1);
    EXPECT_EQ(actor::Type[1], ACTOR_SPRITE);
    EXPECT_EQ(UA_destroy_actor_type(-1, -1), 48);
    EXPECT_EQ(UA_count_actors(), 1);
    actor::Type[4] = actor::Type[5] = ACTOR_LETTER;
    actor::Type[6] = ACTOR_SPRITE;
    actor::View_window[5] = actor::View_window[6] = 9;
    GUI_killed_captured_actors(9);
    EXPECT_EQ(actor::Type[4], ACTOR_LETTER);
    EXPECT_EQ(actor::Type[5], ACTOR_FREE);
    EXPECT_EQ(actor::Type[6], ACTOR_SPRITE);
    actor::Puppet_id[6] = 3;
    UA_manually_kill_puppet_suicides(-1);
    UA_manually_kill_puppet_suicides(3);
    EXPECT_EQ(actor::Type[4], ACTOR_LETTER);
    EXPECT_EQ(actor::Type[6], ACTOR_FREE);
    EXPECT_EQ(log_text(), "[ ERROR ] : A process tried to destroy object (MAX-1) -- this object is protected!\n"
                          "[ REFER ] : UA_destroy_actor_type\n");
}

TEST_F(ActorsTest, TheGameIsToldOfTheEndOfItsOwn) {
    static int told = 0;
    app_hook::destroyed = [](int who) { told = who * 1000 + actor::Health[at(who)]; };
    const int who = UA_spawn_blank_element(0, 0);
    actor::Health[at(who)] = 55;
    UA_destroy_actor(who, "a test");
    EXPECT_EQ(told, 0);
    actor::App_link[at(who)] = 2;
    UA_destroy_actor(who, "a test");
    EXPECT_EQ(told, 1100);
    actor::App_link[at(who)] = 2;
    actor::Suicide_buddy[at(who)] = 0;
    actor::Type[49] = ACTOR_SPRITE;
    told = 0;
    UA_initialize_actors();  // the sweep neither calls out nor spares the last one
    EXPECT_EQ(told, 0);
    EXPECT_EQ(actor::Type[49], ACTOR_FREE);
    EXPECT_EQ(log_text(), "");
    app_hook::destroyed = nullptr;
}

TEST_F(ActorsTest, APuppetDiesWhenItsActorIsSteeredAgain) {
    const auto who = static_cast<std::size_t>(UA_spawn_blank_element(0, 0));
    actor::Puppet_id[who] = 5;
    actor::Puppet_state[who] = PUPPET_WATCHED;
    Controlled_actor = 5;
    UA_behavior_handler();
    EXPECT_EQ(actor::Puppet_state[who], PUPPET_WATCHED);
    Controlled_actor = 6;
    UA_behavior_handler();
    UA_behavior_handler();
    EXPECT_EQ(actor::Type[who], ACTOR_SPRITE);
    Controlled_actor = 5;
    UA_behavior_handler();
    EXPECT_EQ(actor::Type[who], ACTOR_FREE);
    EXPECT_EQ(log_text(), "Puppet suicide status change! obj= 1\nPuppet suicide status tracker = 5\n"
                          "Puppet suicide activation!\n");
}

TEST_F(ActorsTest, DrawingSeesTheSnapshotInWhichRidersHaveFollowed) {
    const auto horse = static_cast<std::size_t>(UA_spawn_blank_element(1, 2)),
               rider = static_cast<std::size_t>(UA_spawn_blank_element(0, 0));
    actor::Pos_x[horse] = 100;
    actor::Pos_y[horse] = 50;
    actor::Pos_y[rider] = 7;
    actor::Attach_to[rider] = static_cast<int>(horse);
    actor::Attach_dx[rider] = -3;
    actor::Attach_dz[rider] = 12;
    actor::Attach_lock_y[rider] = 1;
    actor::Attach_to[20] = 50;  // no such actor
    actor::Vertex_count[horse] = 100;
    actor::Vertex_angle[horse][63] = 9;
    actor::Wave[horse][1].amplitude = 4;
    UA_snapshot_actors();
    actor::Pos_x[horse] = 0;
    actor::Frame_x[horse] = 0;
    EXPECT_EQ(drawn::Pos_x[horse], 100);
    EXPECT_EQ(drawn::Frame_x[horse], 1);
    EXPECT_EQ(drawn::Wave[horse][1].amplitude, 4);
    EXPECT_EQ(drawn::Vertex_count[horse], 64);
    EXPECT_EQ(drawn::Vertex_angle[horse][63], 9);
    EXPECT_EQ(drawn::Pos_x[rider], 97);
    EXPECT_EQ(drawn::Pos_y[rider], 7);
    EXPECT_EQ(drawn::Pos_z[rider], 12);
    UA_destroy_actor(static_cast<int>(horse), "a test");
    UA_grab_object();
    UA_snapshot_actors();
    EXPECT_EQ(drawn::Mode[horse], ACTOR_HIDDEN) << "not yet whole";
}

TEST_F(ActorsTest, DustFliesAndRises) {
    const auto emitter = static_cast<std::size_t>(IS_spawn_dust_emitter(10, 20, 0, 8, 0, 14, 150));
    const auto cloud = static_cast<std::size_t>(UA_spawn_dust_cloud(1, 2, 3, 4, 5, 1, 0));
    for (int tick = 0; tick < 15; ++tick) UA_behavior_handler();
    EXPECT_GT(actor::Particle[emitter][7].life, 0);
    EXPECT_EQ(actor::Particle[emitter][8].life, 0);
    EXPECT_EQ(actor::Pos_z[cloud], 18);
    EXPECT_EQ(actor::Sprite_angle[cloud], 7 * 8);  // every second tick
    UA_behavior_handler();
    EXPECT_EQ(actor::Type[cloud], ACTOR_FREE);
    for (int tick = 16; tick < 150; ++tick) UA_behavior_handler();
    EXPECT_EQ(actor::Type[emitter], ACTOR_FREE);
    while (UA_grab_object() != -1) {
    }
    const std::string before = log_text(), none = "[ ERROR ] : Attempted to grab object, but none available!\n";
    EXPECT_EQ(IS_spawn_dust_emitter(0, 0, 0, 0, 0, 0, 0), -1);
    EXPECT_EQ(UA_spawn_dust_cloud(0, 0, 0, 0, 0, 0, 0), -1);
    EXPECT_EQ(log_text(), before + none + "ERROR: No free actors while spawning dust emitter! slot = -1\n" + none +
                              "ERROR: No free actors while spawning dust cloud! slot = -1\n");
}

TEST_F(ActorsTest, ListsOfCelsEndWithTheirMark) {
    const int who = UA_spawn_blank_element(0, 0);
    std::vector<int> full(32 * 3, 1);
    UA_store_cels(who, CELS_RUNNING, 0, full);
    EXPECT_EQ(actor::Anim_cels[at(who)][31].frame_y, 1);
    EXPECT_EQ(actor::Anim_cels[at(who)][32].frame_x, 999);
    UA_store_anim(who, CELS_IDLE, 1, 2, 1, 2, 3, 4, 5, 6);
    EXPECT_EQ(actor::Idle_cels[at(who)][1].delay, 6);
    EXPECT_EQ(actor::Idle_cels[at(who)][2].frame_x, 99);
    actor::BEHAVIOR[at(who)][2] = BEHAVIOR_STANDING_ANIMATION;
    set_random_source([](int n) { return n - 1; });
    UA_randomize_anim(who, CELS_IDLE);
    EXPECT_EQ(actor::Behavior_param[at(who)][2][2], 1);
    UA_randomize_anim(who, CELS_RUNNING);  // nothing walks there
    set_random_source(nullptr);
    UA_store_cels(who, CELS_IDLE, 1, std::span(full).first(17 * 3));
    full.resize(33 * 3);
    UA_store_cels(who, CELS_RUNNING, 1, full);
    UA_store_cels(0, CELS_IDLE, 1, full);
    UA_randomize_anim(50, CELS_IDLE);
    pause_for_object(49);
    EXPECT_EQ(log_text(), "[ WARNING] : Too many animation cels passed to store_anim!\n"
                          "[ WARNING] : Too many animation cels passed to store_anim!\n"
                          "[ TRAP ] : A process tried to kill object (0)\n"
                          "[ ERROR ] : Invalid actor # passed to UA_store_anim()\n"
                          "[ TRAP ] : A process tried to kill an object > MAX!\n"
                          "[ ERROR ] : Invalid actor # passed to UA_randomize_anim()\n"
                          "[ TRAP ] : A process tried to kill object (MAX-1)\n"
                          "[ ERROR ] : slot OOB in call to pause_for_object()! slot = 49\n");
}

/// A template whose line n, from 1, holds n, but for the lines of `other`.
std::string template_text(int lines, const std::map<int, std::string>& other = {}) {
    std::string text;
    for (int line = 1; line <= lines; ++line) {
        const auto found = other.find(line);
        text += "a label of 30 characters 12 34" + (found != other.end() ? found->second : std::to_string(line)) + "\n";
    }
    return text;
}

TEST_F(ActorsTest, ATemplateFillsARowLineByLine) {
    const Folder here(std::filesystem::current_path().string());
    UA_load_actor_list(here, 5);
    std::ofstream("actor.lst") << template_text(146);
    UA_load_actor_list(here, 5);
    EXPECT_EQ(actor::Type[5], ACTOR_FREE);
    std::ofstream("actor.lst") << template_text(147, {{5, "-99999"}, {56, "0"}, {92, "25"}});
    UA_load_actor_list(here, 5);
    EXPECT_EQ(actor::Type[5], 1);
    EXPECT_EQ(actor::Opacity[5], -32767) << "held to what the field has room for";
    EXPECT_EQ(actor::Pos_x[5], 16);
    EXPECT_TRUE(actor::Mask[5]);
    EXPECT_FALSE(actor::Reserved_c[5]);
    EXPECT_EQ(actor::Stamina[5], 33.0F);
    EXPECT_EQ(actor::Self_Destruct[5], 47);
    EXPECT_EQ(actor::Reserved_d_4[5], 61);
    EXPECT_EQ(actor::Attach_lock_z[5], 75);
    EXPECT_EQ(actor::Letter_code[5], 83);
    EXPECT_EQ(actor::Shift_y[5], 91);
    EXPECT_EQ(actor::BEHAVIOR[5][0], BEHAVIOR_BLINK);
    EXPECT_EQ(actor::Behavior_accum[5][1], 108);
    EXPECT_TRUE(actor::Kill_on_end[5][3]);
    EXPECT_EQ(actor::Behavior_param[5][3][9], 147);
    EXPECT_EQ(log_text(), "[ ERROR ] : Failed to find actor list file!\n"
                          "[ ERROR ] : Actor list file is too short! Lines wanted = 147\n");
}

TEST_F(ActorsTest, ADumpHasAColumnForEachGroup) {
    actor::Health[9] = 88;
    actor::Disposition[9] = 3;
    actor::Move_queue[9][63].y = 6;
    UA_dump_actor(9);
    const std::string text = log_text();
    EXPECT_TRUE(text.starts_with("Object Number 9\nPsuedo =0\nName   =0\nTeam   =-1\nHealth =88\nMask   =0\nMode   =0\n"
                                 "Type   =0\nAbs_x       =-1\n"));
    EXPECT_NE(text.find("\nDisposition =3\n"), std::string::npos);
    EXPECT_NE(text.find("\nBEHAVIOR [3]  =0\nMOVE QUEUE_x -1\nMOVE QUEUE_y -1\nMOVE QUEUE_z -1\n0 \n"),
              std::string::npos);
    EXPECT_TRUE(text.ends_with("MOVE QUEUE_x -1\nMOVE QUEUE_y 6\nMOVE QUEUE_z -1\n0 \n"));
}

}  // namespace
}  // namespace nubo
