// Numbers that no game would write: the sanitizers see where a sum of them is none.
#include "framework/font_sheet.h"
#include "framework/outline_font.h"
#include "game/actors.h"
#include "game/behaviors.h"
#include "game/draw_actors.h"
#include "game/screen_effects.h"
#include "game/spawn_text.h"
#include "harness/harness.h"
#include "state/drawn_actors.h"
#include "state/effects.h"
#include "state/run.h"
#include "state/shown.h"
#include <climits>

namespace nubo {
namespace {

constexpr std::size_t w = 7;
constexpr int extremes[] = {INT_MIN, INT16_MIN, -1, INT16_MAX, INT_MAX};

/// Each number of a shape that has 32 bits, and the small ones at their own ends.
void fill_shape(int wide, std::int16_t narrow) {
    for (auto* const column :
         {&actor::Color, &actor::Color_alpha, &actor::Effect_param, &actor::Particle_total, &actor::Particle_spread_x,
          &actor::Particle_spread_y, &actor::Particle_rest, &actor::Particle_life, &actor::Particle_life_spread,
          &actor::Plasma_width, &actor::Plasma_feeds, &actor::Plasma_cooling, &actor::Plasma_diameter,
          &actor::Plasma_growth, &actor::Plasma_decay})
        (*column)[w] = wide;
    for (auto* const column : {&actor::Pos_x, &actor::Pos_y, &actor::Pos_z, &actor::Diameter}) (*column)[w] = narrow;
    actor::Abs_x[w] = actor::Abs_y[w] = static_cast<std::int16_t>(~narrow);
    for (ParticleWords& one : actor::Particle[w]) one.x = one.y = one.speed = wide, one.age = INT_MIN, one.life = wide;
}

TEST(Nonsense, ShapesOfItMoveAndAreDrawn) {
    ScratchFolder folder;
    UA_log_open();
    set_test_palette();
    replace_bitmap(screen_buffer, make_bitmap(view_w, view_h));
    create_effect_bitmaps();
    UA_initialize_actors();
    for (const int wide : extremes)
        for (const int narrow : {INT16_MIN, 300, INT16_MAX}) {
            fill_shape(wide, static_cast<std::int16_t>(narrow));
            for (const Behavior behavior : {BEHAVIOR_PARTICLE, BEHAVIOR_PLASMA, BEHAVIOR_EXPANDER})
                run_behavior(behavior, w, 0);
            for (const int stage : {0, 1, 2}) {
                actor::Behavior_param[w][0][3] = static_cast<std::int16_t>(stage);
                actor::Plasma_diameter[w] = wide;
                run_behavior(BEHAVIOR_SPLASH, w, 0);
            }
            draw_list[0] = w;
            actor::Mode[w] = ACTOR_FILLED;
            for (const ActorType type :
                 {ACTOR_RAY, ACTOR_PARTICLES, ACTOR_PLASMA, ACTOR_DISC, ACTOR_RECTANGLE, ACTOR_PIXEL}) {
                actor::Type[w] = type;
                actor::Frame_b[w] = 0;
                UA_snapshot_actors();
                shown.pan_x = shown.pan_y = wide;
                UA_draw_actors(0);
            }
        }
    EXPECT_EQ(UA_count_actors(), 2);
    UA_log_close();
}

TEST(Nonsense, TextsOfItAreSpawnedAndMeasured) {
    ScratchFolder folder;
    UA_log_open();
    UA_initialize_actors();
    for (const int far : extremes)
        for (const int effect : {ENTRY_SLIDE, ENTRY_SLIDE_SLOWS, ENTRY_FLY, ENTRY_SCATTER}) {
            const TextEntrance entrance{effect, far, far, far, far, far, effect == ENTRY_FLY};
            EXPECT_EQ(UA_spawn_text(far, far, far, "AB", entrance), 2);
            UA_initialize_actors();
        }
    ASSERT_EQ(font_system_init(), 0);
    OutlineFont* const font = font_load(NUBO_FOLDER "/fonts/system.ttf");
    const OwnedBitmap page = make_bitmap(20, 20);
    ASSERT_NE(font, nullptr);
    EXPECT_EQ(font_set_height(font, INT_MAX), -1);
    EXPECT_EQ(font_set_height(font, INT_MAX / 4), -1);
    for (const int x : extremes)
        for (const int y : extremes) font_textout(page.get(), font, "AB", x, y, 1);
    EXPECT_EQ(font_set_height(font, 16'000), 0);
    font_set_spacing(font, 4'096);
    EXPECT_EQ(font_text_length(font, std::string(1'000'000, 'A')), INT_MAX);
    font_destroy(font);
    font_system_exit();
    UA_log_close();
}

}  // namespace
}  // namespace nubo
