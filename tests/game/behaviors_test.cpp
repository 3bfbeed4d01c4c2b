#include "game/behaviors.h"

#include "base/jobs.h"
#include "game/actors.h"
#include "harness/harness.h"
#include "state/colors.h"
#include "state/effects.h"
#include "state/run.h"
#include <span>

namespace nubo {
namespace {

constexpr int who = 7;
constexpr std::size_t w = who;

enum End : bool { STAYS, ENDS };

/// What a slot does to one value, run by run.
struct Case {
    Behavior behavior;
    std::vector<int> params;
    int (*value)();
    std::vector<int> trace;  // the value after each tick
    End end;                 // whether the behaviour ends with the last of them
    void (*prepare)() = [] {};
};

template <auto& column> int of() { return static_cast<int>(column[w]); }
int strength() { return tint_strength; }
int red() { return tint_r; }
int bloom_width() { return bloom_w; }
int wave_phase() { return actor::Wave[w][1].phase; }
int cell_above_bottom() { return actor::Plasma_cells[w][29][31]; }
int cell_at_bottom() { return actor::Plasma_cells[w][31][31]; }
int particle_x() { return actor::Particle[w][0].x; }
int delay_of_3() { return actor::Behavior_delay[w][3]; }
int p3_of_2() { return actor::Behavior_param[w][2][3]; }

template <auto& column, int value> void with() { column[w] = value; }
void at_strength_6() { tint_strength = 6; }
void start(std::size_t slot, Behavior behavior, const std::vector<int>& params) {
    for (std::size_t i = 0; i < params.size(); ++i) actor::Behavior_param[w][slot][i] = params[i];
    actor::BEHAVIOR[w][slot] = behavior;
}
void glowing() {
    actor::Glow_col[w] = 2;
    start(2, BEHAVIOR_GLOW_CYCLE, {});
}
void splashing() { actor::Plasma_growth[w] = 2, actor::Plasma_decay[w] = 4; }
void turned() { actor::Angle[w] = 35, actor::Rotation_Mode[w] = ROTATION_BY_ANGLE; }
void burning() { actor::Plasma_cooling[w] = 5, actor::Plasma_feeds[w] = 1; }
void burning_slowly() {
    burning();
    actor::Plasma_feed_period[w] = 2, actor::Plasma_shift_period[w] = 5;
}
void with_a_particle() {
    actor::Angle[w] = 64;  // to the right
    actor::Particle_total[w] = 1, actor::Particle_spread_x[w] = 2;
    actor::Particle_rest[w] = 1, actor::Particle_life[w] = 3;
}

class BehaviorsTest : public testing::Test {
protected:
    BehaviorsTest() {
        UA_log_open();
        handlers_locked = 0;
        set_random_source([](int n) { return n - 1; });
        new_actor();
    }
    ~BehaviorsTest() override {
        set_random_source(nullptr);
        UA_log_close();
    }
    static void new_actor() {
        UA_initialize_actors();
        actor::Type[w] = ACTOR_SPRITE;
        actor::Mode[w] = ACTOR_DRAWN;
    }
    static void run(std::span<const Case> cases) {
        for (const Case& each : cases) {
            SCOPED_TRACE("number " + std::to_string(each.behavior) + " of " + testing::PrintToString(each.params));
            new_actor();
            each.prepare();
            start(0, each.behavior, each.params);
            std::vector<int> trace;
            while (trace.size() < each.trace.size()) {
                EXPECT_EQ(actor::BEHAVIOR[w][0], each.behavior) << "ended before tick " << trace.size();
                UA_behavior_handler();
                trace.push_back(each.value());
            }
            EXPECT_EQ(trace, each.trace);
            EXPECT_EQ(actor::BEHAVIOR[w][0] == BEHAVIOR_NONE, each.end == ENDS);
        }
    }
    ScratchFolder folder_;
};

TEST_F(BehaviorsTest, MovesComeToTheirPlaces) {
    using namespace actor;
    const Case cases[] = {
        {BEHAVIOR_FLOAT, {10, 0, 20, 64}, of<Pos_z>, {10, 30, 10, -10, 10}, STAYS},  // a quarter of a circle a run
        {BEHAVIOR_FLOAT, {0, 0, 1000}, of<Pos_z>, {0, 25}, STAYS},                   // 1000 * sin(2 pi / 256) is 24.54
        {BEHAVIOR_RISER, {3, 2}, of<Pos_z>, {2, 4, 6}, ENDS},
        {BEHAVIOR_JITTER, {50, 60, 0, 2}, of<Pos_x>, {51, 51}, ENDS},  // the last of the 8 neighbours
        // Out with waits of 0, 1, 2, 3, a rest behind 3, back with 3, 2, 1, 0.
        {BEHAVIOR_SLIDE_UNIT,
         {1, 0, 0, 1},
         of<Pos_x>,
         {1, 1, 2, 2, 2, 3, 3, 3, 3, 4, 4, 4, 4, 4, 4, 4, 4, 3, 3, 3, 2, 2, 1, 0, 0},
         ENDS},
        {BEHAVIOR_SLIDE_ROTATE, {64}, of<Pos_y>, {-2, -2, 0}, STAYS, with<Sprite_angle, 6 - 64>},
        {BEHAVIOR_LINEAR_MOVE, {3, -2, 2}, of<Pos_y>, {-2, -4}, ENDS},
        {BEHAVIOR_PROJECTILE, {2}, of<Pos_x>, {1, 3}, ENDS, with<Vel_x, 15000>},
        {BEHAVIOR_PROJECTILE, {3, 0, 1}, of<Fine_z>, {150, 200, 150}, ENDS, with<Vel_z, -150>},
        // Two steps a run, pushed by 10 from the second run on.
        {BEHAVIOR_VECTOR_MOVEMENT, {3, 10, 0, 0, 0, 1, 0, 2}, of<Fine_x>, {200, 410, 660}, ENDS, with<Vel_x, 100>},
        // Braked to rest, and not back.
        {BEHAVIOR_VECTOR_MOVEMENT,
         {4, -40, 0, 0, 1, 0, 0, 1},
         of<Fine_x>,
         {100, 160, 180, 180},
         ENDS,
         with<Vel_x, 100>},
        {BEHAVIOR_VECTOR_MOVEMENT, {3, 0, 0, 0, 0, 0, 1, 1}, of<Fine_z>, {0, 100, 300}, ENDS},
    };
    run(cases);
}

TEST_F(BehaviorsTest, FadesKeepToTheirLevels) {
    using namespace actor;
    const Case cases[] = {
        {BEHAVIOR_FADE, {12, 0}, of<Mode>, {ACTOR_TRANSLUCENT, ACTOR_HIDDEN}, ENDS},
        {BEHAVIOR_FADE, {1, 1}, of<Mode>, {ACTOR_TRANSLUCENT, ACTOR_TRANSLUCENT}, ENDS},
        {BEHAVIOR_INDEX_FADE, {0, 10, 3, 0}, of<actor::Color>, {15, 5, 0}, ENDS, with<actor::Color, 25>},
        {BEHAVIOR_INDEX_FADE, {1, 100, 2, 2}, of<Color_alpha>, {254, 254}, ENDS, with<Color_alpha, 200>},
        {BEHAVIOR_INDEX_FADE, {1, 300, 1, 1}, of<Opacity>, {300}, ENDS},  // this one isn't held
        {BEHAVIOR_PALETTE_CONTROL, {1, 2, 3, 13, 3}, strength, {9, 12, 13}, ENDS, at_strength_6},  // a move to spare
        {BEHAVIOR_PALETTE_CONTROL, {1, 2, 3, 0, 3}, strength, {3, 0, 0}, ENDS, at_strength_6},  // one run more to end
        {BEHAVIOR_PALETTE_CONTROL, {9, 2, 3, 7, 0}, red, {9, 9}, STAYS},
        // Rises, holds for a run, flashes.
        {BEHAVIOR_FLASH_FADE_IN_OUT,
         {233, 0, 0, 1},
         of<Opacity>,
         {244, 255, 255, 255, 255, 255, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14},
         ENDS},
        {BEHAVIOR_BLINK, {}, of<Mode>, {0, 1, 0}, STAYS},
        {BEHAVIOR_BLINK, {}, of<Mode>, {4, 4}, STAYS, with<Mode, ACTOR_TRANSLUCENT>},
        {BEHAVIOR_TOGGLE_MODE, {0}, of<Mode>, {1}, ENDS, with<Mode, ACTOR_TRANSLUCENT>},
        {BEHAVIOR_TOGGLE_MODE, {1}, of<Mode>, {0, 1, 0}, STAYS},
        {BEHAVIOR_GLOW_FADE, {11, 0}, of<Glow_col>, {2, -1}, ENDS, glowing},
        {BEHAVIOR_GLOW_FADE, {5, 1, 3, 2}, of<Glow_phase>, {4, 3, 3, 3, 4, 5}, STAYS},  // to 3, two runs of rest
        {BEHAVIOR_GLOW_CYCLE, {0}, of<Glow_frame>, {31, 0, 1}, STAYS, with<Glow_frame, 30>},
        {BEHAVIOR_GLOW_CYCLE, {1}, of<Glow_frame>, {0, 31}, STAYS, with<Glow_frame, 1>},
        {BEHAVIOR_WHITE_FADE, {250, 0, 5}, of<Mode>, {ACTOR_WHITE_FADE, ACTOR_DRAWN}, ENDS},
        {BEHAVIOR_TRUE_FADE, {-60}, of<Mode>, {ACTOR_TRANSLUCENT, ACTOR_HIDDEN}, ENDS, with<Opacity, 100>},
        {BEHAVIOR_TRUE_FADE, {77}, of<Opacity>, {177, 254, 254}, ENDS, with<Opacity, 100>},
    };
    run(cases);
    new_actor();
    start(0, BEHAVIOR_FLASH_FADE_IN_OUT, {255});
    for (int tick = 0; tick < 2; ++tick) UA_behavior_handler();
    EXPECT_NE(actor::Wave[w][wave_horizontal].amplitude * actor::Wave[w][wave_vertical].amplitude, 0);
    EXPECT_EQ(check_behavior(who, BEHAVIOR_MODIFY_VARIABLE), 2);
}

TEST_F(BehaviorsTest, ShapesGrowTurnAndBurn) {
    using namespace actor;
    const Case cases[] = {
        {BEHAVIOR_EXPANDER, {0, 5, 2}, of<Diameter>, {5, 10}, ENDS},
        {BEHAVIOR_EXPANDER, {1, 5, 1}, of<Diameter>, {-5}, ENDS},
        {BEHAVIOR_POLY_DIAMETER_PULSE, {2}, of<Diameter>, {1, 2, 1, 0, 1}, STAYS},
        {BEHAVIOR_SPLASH, {2, 1}, of<Plasma_diameter>, {4, 8, 10, 6, 2, -2}, ENDS, splashing},
        {BEHAVIOR_ROTATE, {100}, of<Sprite_angle>, {200, 44}, STAYS, with<Sprite_angle, 100>},
        {BEHAVIOR_ROTATE, {-10, 1, 5}, of<Rotation_Mode>, {1, 1, 0}, ENDS, turned},  // 25, 15, 5
        {BEHAVIOR_BLOOM_CONTROL, {5, 6, 50, 10, 20, 90}, bloom_width, {1, 1, 0, -1}, ENDS},
        // Started at the spread's end it rests for a run between two steps and starts again after a life of three.
        {BEHAVIOR_PARTICLE, {}, particle_x, {20000, 30000, 30000, 40000, 20000}, STAYS, with_a_particle},
        // Each run cools by 5, feeds the last column with 19 and lifts it; later only every third and sixth do.
        {BEHAVIOR_PLASMA, {}, cell_above_bottom, {255, 14, 14}, STAYS, burning},
        {BEHAVIOR_PLASMA, {}, cell_at_bottom, {255, 255, 19, 14, 9, 255}, STAYS, burning_slowly},
    };
    run(cases);
    EXPECT_EQ(actor::Plasma_height[w][31], 2);  // of the last case: what was fed in its sixth run and lifted
}

TEST_F(BehaviorsTest, VariablesFollowTheirRules) {
    using namespace actor;
    constexpr Behavior MODIFY = BEHAVIOR_MODIFY_VARIABLE;
    const Case cases[] = {
        {MODIFY, {5, -60}, of<Health>, {40, 0, 0}, STAYS},
        {MODIFY, {12, 2, 3}, of<Frame_x>, {2, 4}, ENDS},  // at a count of 1
        {MODIFY, {18, 200}, of<Opacity>, {200, 254}, STAYS},
        {MODIFY, {20, 4}, of<Mode>, {4, 4}, STAYS},
        {MODIFY, {30, 100, 0, 1}, wave_phase, {100, 200, 44}, STAYS},
        {MODIFY, {30, 100, 0, 4}, of<Health>, {100}, STAYS},  // no such wave
        {MODIFY, {34, 3, 1}, of<Shift_x>, {3, 6}, ENDS},      // when it has passed 0
        {MODIFY, {37, -3, 0}, of<Abs_y>, {7}, ENDS, with<Abs_y, 10>},
        {MODIFY, {40, -1}, of<Poly_wobble_phase>, {255, 254}, STAYS},
        {MODIFY, {43, -7}, of<Poly_fade_end>, {-7, -14}, STAYS},
        {MODIFY, {79, 2, 0, 3}, delay_of_3, {2}, ENDS},
        {MODIFY, {82, 5, 1}, p3_of_2, {5, 10}, ENDS},
        {MODIFY, {11, 5, 1}, of<Frame_a>, {0, 0}, STAYS},  // no such variable
    };
    run(cases);
}

TEST_F(BehaviorsTest, CelsAreWalkedToTheirMark) {
    UA_store_anim(who, CELS_RUNNING, 1, 3, 4, 1, 2, -1, 0, 0, 6, 3, 1);  // the second one is skipped, but has its place
    actor::Anim_cels[w][1] = AnimCel{};
    actor::Anim_cels[w][1].delay = 3;
    start(1, BEHAVIOR_ANIMATE, {0, 0, -2});
    start(2, BEHAVIOR_ANIMATE, {});
    UA_behavior_handler();  // slot 2 walks while slot 1 waits
    EXPECT_EQ(actor::Frame_x[w], 4);
    UA_behavior_handler();
    EXPECT_EQ(check_behavior(who, BEHAVIOR_ANIMATE), 1) << "the walk that starts ends the other";
    std::vector<int> cels;
    for (int tick = 0; tick < 8; ++tick) {
        UA_behavior_handler();
        cels.push_back(actor::Frame_x[w]);
    }
    EXPECT_EQ(cels, (std::vector<int>{4, 0, 0, 0, 6, 4, 4, 0}));

    UA_store_anim(who, CELS_IDLE, 0, 1, 9, 9, 2);
    start(3, BEHAVIOR_STANDING_ANIMATION, {});
    actor::Kill_on_end[w][3] = true;
    UA_behavior_handler();
    EXPECT_NE(actor::Frame_x[w], 9) << "it stands still while another walks";
    start(0, BEHAVIOR_DELAYED_ANIMATION, {0, 0, 2});
    UA_behavior_handler();
    EXPECT_EQ(check_behavior(who, BEHAVIOR_ANIMATE), 1);
    UA_behavior_handler();
    EXPECT_EQ(check_behavior(who, BEHAVIOR_ANIMATE), -1);
    EXPECT_EQ(actor::Frame_x[w], 9);
    UA_behavior_handler();
    EXPECT_EQ(actor::Type[w], ACTOR_FREE) << "the end of the list takes the actor with it";
}

TEST_F(BehaviorsTest, ALinearMoveEndsTheWalkIfItIsToldTo) {
    for (const bool stops : {false, true}) {
        new_actor();
        actor::Move_stops_anim[w] = stops;
        start(0, BEHAVIOR_ANIMATE, {});
        start(1, BEHAVIOR_LINEAR_MOVE, {1, 0, 1});
        UA_behavior_handler();
        EXPECT_EQ(check_behavior(who, BEHAVIOR_ANIMATE), stops ? -1 : 0);
    }
    start(0, BEHAVIOR_ANIMATE, {});
    start(1, BEHAVIOR_LINEAR_MOVE_KILL_ANIM, {1, 0, 1});
    actor::Move_stops_anim[w] = false;
    UA_behavior_handler();
    EXPECT_EQ(check_behavior(who, BEHAVIOR_ANIMATE), -1);
}

TEST_F(BehaviorsTest, AWayToAPlaceSlowsDownAndArrives) {
    vector_move_threshold(who, 4, -2, 4, 10000, 0, 50);
    // Two pixels of four are half of the way: 0.75 of the speed. 75 percent are reached with 3.5 pixels, cut to 3.
    struct Tick {
        int x, y, z, vel_x, threshold;
    };
    const Tick ticks[] = {
        {1, 0, 1, 10000, 50}, {2, -1, 2, 7500, 75}, {2, -1, 2, 7500, 75}, {3, -1, 3, 5625, 87}, {4, -2, 4, 4218, 93}};
    for (const Tick& tick : ticks) {
        UA_behavior_handler();
        EXPECT_EQ(actor::Pos_x[w], tick.x);
        EXPECT_EQ(actor::Pos_y[w], tick.y);
        EXPECT_EQ(actor::Pos_z[w], tick.z);
        EXPECT_EQ(actor::Vel_x[w], tick.vel_x);
        EXPECT_EQ(actor::Behavior_param[w][1][6], tick.threshold);
    }
    // Over a long way the threshold comes to 100 before the last pixel, or the actor would starve there.
    vector_move_threshold(who, 304, -2, 4, 30000, 0, 50);
    for (int tick = 0; tick < 2000; ++tick) UA_behavior_handler();
    EXPECT_EQ(actor::Pos_x[w], 304);
    vector_move_threshold(50, 0, 0, 0, 1, 0, 50);
    EXPECT_EQ(log_text(), "[ ERROR ] : slot OOB in call to vector_move_threshold()!\n[ STATS ] : slot = 50\n");
}

TEST_F(BehaviorsTest, ATrailLeavesClonesThatStandAndLeaveNone) {
    actor::Vel_x[w] = 10000;
    actor::Health[w] = 42;
    actor::Particle[w][127].life = 5;
    start(0, BEHAVIOR_SPAWN_TRAIL, {0, 2, 0, 1, 2});
    start(1, BEHAVIOR_PROJECTILE, {100});
    for (int tick = 0; tick < 4; ++tick) UA_behavior_handler();
    EXPECT_EQ(actor::Pos_x[w], 4);
    EXPECT_EQ(actor::BEHAVIOR[w][0], BEHAVIOR_NONE) << "two clones are all";
    const std::size_t first = 1, second = 2;
    EXPECT_EQ(actor::Pos_x[first], 1);  // it was left in the second tick, before the actor's second step
    EXPECT_EQ(actor::Pos_x[second], 3);
    EXPECT_EQ(actor::Type[first], ACTOR_SPRITE);
    EXPECT_EQ(actor::Health[first], 42);
    EXPECT_EQ(actor::Particle[first][127].life, 5);
    EXPECT_EQ(actor::BEHAVIOR[first][0], BEHAVIOR_NONE);
    EXPECT_EQ(actor::BEHAVIOR[first][1], BEHAVIOR_PROJECTILE);
    EXPECT_EQ(UA_count_actors(), 4);
}

TEST_F(BehaviorsTest, AFullPoolAndAFullQueueAreToldOnce) {
    while (UA_grab_object() != actor_none) {
    }
    for (int slot = 0; slot < job_slots; ++slot) push_to_job(JOB_NOTHING, slot, 0, 0, 0, 0, 0, 0, 0, 9);
    const std::string before = log_text();
    start(0, BEHAVIOR_SPAWN_TRAIL, {0, 1, 0, 0, -1});
    start(1, BEHAVIOR_FRAMEWORK_EVENT, {JOB_DUST, 1});
    for (int tick = 0; tick < 5; ++tick) UA_behavior_handler();
    EXPECT_EQ(log_text(), before + "[ ERROR ] : Attempted to grab object, but none available!\n"
                                   "[ ERROR ] : Ran out of job queue slots in call to push_to_job! Job = 53\n");
}

TEST_F(BehaviorsTest, EventsAndFogKeepOneJobWaiting) {
    start(0, BEHAVIOR_FRAMEWORK_EVENT, {JOB_SOUND, 5, 11, 12, 13, 14, 15, 16, 17, 3});
    start(1, BEHAVIOR_CONTROL_FOG, {329, 1});
    for (int tick = 0; tick < 2; ++tick) UA_behavior_handler();
    EXPECT_EQ(fog_on, 1);
    const auto event = static_cast<std::size_t>(UA_find_job(JOB_SOUND)),
               fog = static_cast<std::size_t>(UA_find_job(JOB_FOG));
    EXPECT_EQ(job::arg[event][6], 17);
    EXPECT_EQ(job::script_slot[event], 3);
    EXPECT_EQ(job::delay[event], 4);
    EXPECT_EQ(job::arg[fog][0], 331);
    EXPECT_EQ(UA_free_job_slot(), 2) << "no second job of either";
    UA_behavior_handler();
    EXPECT_EQ(fog_on, 0);
    EXPECT_EQ(actor::BEHAVIOR[w][1], BEHAVIOR_NONE);
    EXPECT_EQ(actor::BEHAVIOR[w][0], BEHAVIOR_FRAMEWORK_EVENT);
}

TEST_F(BehaviorsTest, APauseHoldsTheSlotsBehindItBack) {
    start(1, BEHAVIOR_FORCE_PAUSE, {2});
    start(0, BEHAVIOR_RISER, {9, 1});
    start(2, BEHAVIOR_RISER, {9, 100});
    std::vector<int> heights;
    for (int tick = 0; tick < 3; ++tick) {
        UA_behavior_handler();
        heights.push_back(actor::Pos_z[w]);
    }
    EXPECT_EQ(heights, (std::vector<int>{1, 2, 103}));
}

TEST_F(BehaviorsTest, DelaysSkipTicks) {
    start(0, BEHAVIOR_RISER, {99, 1});
    start(1, BEHAVIOR_RISER, {99, 100});
    actor::Behavior_delay[w][1] = 1;
    for (int tick = 0; tick < 4; ++tick) UA_behavior_handler();
    EXPECT_EQ(actor::Pos_z[w], 4 + 200);
}

TEST_F(BehaviorsTest, AGameMaySteerTheTurnAndNotHangIt) {
    start(0, BEHAVIOR_RISER, {99, 1});
    start(1, BEHAVIOR_RISER, {99, 10});
    start(2, BEHAVIOR_RISER, {99, 100});
    app_hook::behavior_ran = [](int, int slot) { return slot == 0 ? 2 : 0; };
    UA_behavior_handler();
    EXPECT_EQ(actor::Pos_z[w], 101);
    app_hook::behavior_ran = [](int, int) { return 1; };
    UA_behavior_handler();
    EXPECT_EQ(actor::Pos_z[w], 101 + 1 + 15 * 10);
    app_hook::behavior_ran = nullptr;
}

TEST_F(BehaviorsTest, EndsLeaveTheSlotAsItWas) {
    start(3, BEHAVIOR_BLINK, {1, 2, 3, 4, 5, 6, 7, 8, 9, 10});
    actor::Behavior_delay[w][3] = 4;
    start(1, BEHAVIOR_BLINK, {});
    EXPECT_EQ(check_behavior(who, BEHAVIOR_BLINK), 3);
    EXPECT_EQ(get_free_behavior(who), 0);
    BE_clear_behavior(who, 3);
    EXPECT_EQ(actor::Behavior_param[w][3], actor::ParamWords{});
    EXPECT_EQ(actor::Behavior_delay[w][3], 0);
    for (std::size_t slot = 0; slot < behavior_slots; ++slot) start(slot, BEHAVIOR_BLINK, {});
    actor::Opacity[w] = 99;
    EXPECT_EQ(UA_fade_actor(who, 1, 2, 0), -1);
    EXPECT_EQ(actor::Opacity[w], 99);
    BE_clear_behavior(who, 2);
    EXPECT_EQ(UA_fade_actor(who, 0, 2, 5), 2);
    EXPECT_EQ(actor::Opacity[w], 254);
    EXPECT_EQ(actor::Behavior_param[w][2][0], -2);
    actor::Kill_on_end[49][2] = true;
    actor::BEHAVIOR[49][2] = BEHAVIOR_BLINK;
    actor::Health[49] = 5;
    BE_clear_behavior(49, 2);
    EXPECT_EQ(actor::BEHAVIOR[49][2], BEHAVIOR_NONE);
    EXPECT_EQ(actor::Health[49], 5);
    EXPECT_EQ(log_text(), "[ ERROR ] : Couldn't locate free behavior when fading actor!\n"
                          "[ ERROR ] : A process tried to destroy object (MAX-1) -- this object is protected!\n"
                          "[ REFER ] : BE_clear_behavior\n");
}

TEST_F(BehaviorsTest, BadNumbersAreToldUnderTheBehavioursName) {
    EXPECT_EQ(run_behavior(BEHAVIOR_BLINK, 50, 9), 0);
    EXPECT_EQ(run_behavior(BEHAVIOR_DELAYED_ANIMATION, 0, 4), 0);
    EXPECT_EQ(run_behavior(3, 50, 9), 0);  // no such behaviour
    EXPECT_EQ(UA_check_behaviors(-1, 0), 0);
    EXPECT_EQ(get_free_behavior(50), -1);
    EXPECT_EQ(check_behavior(-1, BEHAVIOR_BLINK), 0);
    EXPECT_EQ(log_text(), "[ ERROR ] : WHO parameter OOB in call to BE_blink()!\n[ STATS ] : who = 50\n"
                          "[ ERROR ] : SLOT parameter OOB in call to BE_delayed_animation)!\n[ STATS ] : slot = 4\n"
                          "[ ERROR ] : WHO parameter OOB in call to UA_check_behaviors\n[ STATS ] : who = -1\n"
                          "[ ERROR ] : WHO parameter OOB in call to get_free_behavior()! who = 50\n"
                          "[ ERROR ] : WHO parameter OOB in call to check_behavior()! who = -1\n");
}

/// No table of a game may lead a behaviour out of the actor's fields: run under the sanitizers.
TEST_F(BehaviorsTest, AnyParametersAreBorne) {
    set_random_source(nullptr);
    random_second.seed(7U);
    const auto any = [] { return UA_random_b(3) == 0 ? UA_random_b(65536) - 32768 : UA_random_b(12) - 2; };
    for (int trial = 0; trial < 400; ++trial) {
        new_actor();
        actor::Particle_total[w] = any();
        actor::Particle_life[w] = any();
        actor::Plasma_feeds[w] = any();
        for (AnimCel& cel : actor::Anim_cels[w]) cel.frame_x = cel.delay = any();
        actor::Idle_cels[w].fill(actor::Anim_cels[w][1]);
        for (std::size_t slot = 0; slot < behavior_slots; ++slot) {
            actor::BEHAVIOR[w][slot] = UA_random_b(100);
            for (auto& param : actor::Behavior_param[w][slot]) param = any();
        }
        for (auto& slot : actor::Behavior_param[w]) slot[7] = UA_random_b(20);  // steps in a run: many take long
        for (int tick = 0; tick < 20; ++tick) UA_behavior_handler();
    }
    EXPECT_EQ(actor::Type[0], ACTOR_PROTECTED);
}

}  // namespace
}  // namespace nubo
