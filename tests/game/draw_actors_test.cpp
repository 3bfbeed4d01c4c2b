// The families of actors against single pixels told by hand.
#include "game/draw_actors.h"

#include "framework/font_sheet.h"
#include "game/actors.h"
#include "game/screen_effects.h"
#include "game/waves.h"
#include "harness/harness.h"
#include "state/drawn_actors.h"
#include "state/effects.h"
#include "state/resources.h"
#include "state/run.h"
#include "state/shown.h"
#include <functional>

namespace nubo {
namespace {

constexpr Color ground = 0x000000, left_top = 0x800000, right_bottom = 0x008000, inside = 0x404040;

class DrawActorsTest : public testing::Test {
protected:
    DrawActorsTest() {
        UA_log_open();
        set_test_palette();
        replace_bitmap(screen_buffer, make_bitmap(view_w, view_h, ground));
        create_effect_bitmaps();
        UA_initialize_actors();
        // Two cels by two; that of column 1 and row 0 is the one with a mark in two of its corners.
        replace_bitmap(actor_sheet, make_bitmap(64, 64, transparent_color));
        *pixels_at(actor_sheet, 32, 0) = left_top;
        *pixels_at(actor_sheet, 63, 31) = right_bottom;
        *pixels_at(actor_sheet, 32, 2) = inside;
        shown.pan_x = 20;
        shown.pan_y = 5;
    }
    ~DrawActorsTest() override {
        UA_log_close();
        set_random_source(nullptr);
    }
    static std::size_t spawn(ActorType type, int x, int y) {
        const std::size_t who = at(UA_spawn_blank_element(1, 0));
        actor::Pos_x[who] = static_cast<std::int16_t>(x);
        actor::Pos_y[who] = static_cast<std::int16_t>(y);
        actor::Type[who] = static_cast<std::int16_t>(type);
        return who;
    }
    static void draw(std::size_t who) {
        clear_to_color(screen_buffer, ground);
        draw_again(who);
    }
    static void draw_again(std::size_t who) {
        draw_list[3] = static_cast<int>(who);
        UA_snapshot_actors();
        UA_draw_actors(0);
    }
    static Color screen(int x, int y) { return *pixels_at(screen_buffer, x, y); }
    static int painted() {
        int count = 0;
        for (int i = 0; i < view_w * view_h; ++i) count += screen(i % view_w, i / view_w) != ground ? 1 : 0;
        return count;
    }
    ScratchFolder folder_;
};

// ---- Sprites -------------------------------------------------------------------------------------------------------

TEST_F(DrawActorsTest, APosedSpriteHasItsPixelsHere) {
    struct Case {
        const char* what;
        std::function<void(std::size_t)> set;
        int x, y;  // where the mark of the left upper corner lies
        int pixels;
    };
    // At 120, 60 in the world, less a pan of 20, 5 and a height of 10.
    const Case cases[] = {
        {"as it is", [](std::size_t) {}, 100, 45, 3},
        {"a fixed place", [](std::size_t w) { actor::Abs_x[w] = 7, actor::Abs_y[w] = 9; }, 7, 9, 3},
        {"one fixed axis", [](std::size_t w) { actor::Abs_x[w] = 7; }, 7, 45, 3},
        {"a fixed cel", [](std::size_t w) { actor::Frame_x[w] = 0, actor::Abs_Frame_0[w] = 1; }, 100, 45, 3},
        {"an empty cel", [](std::size_t w) { actor::Frame_x[w] = 0; }, -1, 0, 0},
        {"a cel beside the sheet", [](std::size_t w) { actor::Frame_x[w] = 2; }, -1, 0, 0},
        {"facing, but not to be mirrored", [](std::size_t w) { actor::Facing[w] = 1; }, 100, 45, 3},
        {"mirrored", [](std::size_t w) { actor::Facing[w] = 1, actor::Can_flip[w] = true; }, 131, 45, 3},
        {"a quarter", [](std::size_t w) { actor::Rotation_Mode[w] = 1, actor::Sprite_angle[w] = 64; }, 131, 45, 3},
        {"a half", [](std::size_t w) { actor::Rotation_Mode[w] = 1, actor::Sprite_angle[w] = 128; }, 131, 76, 3},
        {"a half round its foot",
         [](std::size_t w) {
             actor::Rotation_Mode[w] = 1, actor::Sprite_angle[w] = 128;
             actor::Sprite_offset[w] = 4;  // by twice as much lower
         },
         131, 84, 3},
        {"mirrored and a quarter",
         [](std::size_t w) {
             actor::Facing[w] = 1, actor::Can_flip[w] = true;
             actor::Rotation_Mode[w] = 1, actor::Sprite_angle[w] = 64;
         },
         131, 76, 3},
        {"along a way to the left", [](std::size_t w) { actor::Rotation_Mode[w] = 2, actor::Vel_y[w] = -5; }, 131, 76,
         3},  // upward is half a circle from downward
        {"sunk by 30", [](std::size_t w) { actor::Pos_z[w] = -30; }, 100, 85, 1},  // two rows are left
        {"sunk whole", [](std::size_t w) { actor::Pos_z[w] = -32; }, -1, 0, 0},
        {"shifted", [](std::size_t w) { actor::Shift_x[w] = 5, actor::Shift_y[w] = -3; }, 105, 42, 3},
        {"shifted out at the left", [](std::size_t w) { actor::Shift_x[w] = -30; }, -1, 0, 1},
        {"waved", [](std::size_t w) { actor::Wave[w][0].amplitude = 10, actor::Wave[w][0].frequency = 64; }, 110, 45,
         3},
        {"waved by its columns", [](std::size_t w) { actor::Wave[w][1].amplitude = 10, actor::Wave[w][1].phase = 128; },
         100, 35, 3},
        {"out of the view", [](std::size_t w) { actor::Pos_x[w] = -12; }, -1, 0, 0},
    };
    for (const Case& one : cases) {
        UA_initialize_actors();
        const std::size_t who = spawn(ACTOR_SPRITE, 120, 60);
        actor::Pos_z[who] = 10;
        one.set(who);
        draw(who);
        EXPECT_EQ(painted(), one.pixels) << one.what;
        if (one.x < 0) continue;
        EXPECT_EQ(screen(one.x, one.y), left_top) << one.what;
    }
}

TEST_F(DrawActorsTest, EachRowOfAWaveMovesByItsCosine) {
    const std::size_t who = spawn(ACTOR_SPRITE, 120, 65);
    actor::Wave[who][0].amplitude = 10;
    actor::Wave[who][0].frequency = 64;
    draw(who);
    EXPECT_EQ(screen(110, 60), left_top);      // row 0: cosine 1
    EXPECT_EQ(screen(90, 62), inside);         // row 2: half a circle, cosine -1
    EXPECT_EQ(screen(131, 91), right_bottom);  // row 31: 31 * 64 = 192 of 256, cosine 0
}

TEST_F(DrawActorsTest, AnActorAimsAtAnother) {
    const std::size_t target = spawn(ACTOR_SPRITE, 500, 65), who = spawn(ACTOR_SPRITE, 120, 65);
    actor::Rotation_Mode[who] = static_cast<std::int16_t>(-static_cast<int>(target));
    draw(who);  // to the right of it: 192, three quarters
    EXPECT_EQ(screen(100, 91), left_top);
    actor::Rotation_Mode[who] = -99;  // none
    draw(who);
    EXPECT_EQ(screen(100, 60), left_top);
}

TEST_F(DrawActorsTest, LettersOfASpriteAreColorsAndAGlowAddsLight) {
    const std::size_t who = spawn(ACTOR_SPRITE, 120, 65);
    *pixels_at(actor_sheet, 40, 8) = UA_palette_color(10);
    actor::Letter_font[who] = 10;
    actor::Letter_outline[who] = 20;
    draw(who);
    EXPECT_EQ(screen(108, 68), UA_palette_color(20));
    EXPECT_EQ(screen(100, 60), left_top);
    replace_bitmap(glow_sheet, make_bitmap(128, 64, 0x906030));
    actor::Glow_col[who] = 1;
    actor::Glow_row[who] = 1;
    actor::Glow_frame[who] = 2;
    actor::Glow_phase[who] = glow_brightest;
    draw(who);
    EXPECT_EQ(screen(100, 60), 0xff6030U);  // 80 + 90 is more than there is
    EXPECT_EQ(screen(101, 60), ground);     // where the sprite has nothing, no light falls
    actor::Glow_phase[who] = 5;
    draw(who);
    EXPECT_EQ(screen(131, 91), 0x37a412U);  // 144 * 5 / 13 = 55, 128 + 96 * 5 / 13 = 164, 48 * 5 / 13 = 18
    actor::Glow_frame[who] = 3;             // beside the sheet
    draw(who);
    EXPECT_EQ(screen(100, 60), left_top);
}

TEST_F(DrawActorsTest, TheModeAndTheEffectTellHowThePixelsGoToTheScreen) {
    const std::size_t who = spawn(ACTOR_SPRITE, 120, 65);
    const auto look = [&](ActorMode mode, int opacity, int effect, int param) {
        actor::Mode[who] = mode;
        actor::Opacity[who] = static_cast<std::int16_t>(opacity);
        actor::Effect_mode[who] = effect;
        actor::Effect_param[who] = param;
        draw(who);
        return screen(100, 60);
    };
    EXPECT_EQ(look(ACTOR_DRAWN, 0, 0, 0), left_top);
    EXPECT_EQ(look(ACTOR_TRANSLUCENT, 127, 0, 0), 0x400000U);  // exactly half
    EXPECT_EQ(look(ACTOR_HIDDEN, 254, 0, 0), ground);
    EXPECT_EQ(look(ACTOR_WHITE_FADE, 128, 0, 0), 0xbf7f7fU);  // 128 / 2 + 255 / 2, and 255 / 2
    EXPECT_EQ(look(ACTOR_DRAWN, 0, EFFECT_OUTLINE, 7), left_top);
    EXPECT_EQ(screen(100, 59), UA_palette_color(7));
    EXPECT_EQ(screen(101, 60), UA_palette_color(7));
    // The pixel at 127, 128 * 128 >> 8 = 64, and once more over that: 64 * 128 >> 8 = 32, + 64.
    EXPECT_EQ(look(ACTOR_TRANSLUCENT, 127, EFFECT_FADED, 0), 0x600000U);
    EXPECT_EQ(look(ACTOR_TRANSLUCENT, 127, EFFECT_FADED_ALONE, 0), 0x400000U);
}

TEST_F(DrawActorsTest, OtherTypesOfSpriteAreRefusedAndToldOnce) {
    const std::size_t who = spawn(ACTOR_SPRITE_9, 120, 65);
    for (int picture = 0; picture < 3; ++picture) draw(who);
    EXPECT_EQ(painted(), 0);
    EXPECT_EQ(log_text(), "[ WARNING ] : Invalid target type passed to mask_object()!\n[ STATS ] : who  = 1\n"
                          "[ STATS ] : type = 9\n");
    mask_object(-1);
    mask_object(50);
}

TEST_F(DrawActorsTest, WithoutASheetNothingIsDrawn) {
    const std::size_t who = spawn(ACTOR_SPRITE, 120, 65), tile = spawn(ACTOR_TILE, 120, 65);
    replace_bitmap(actor_sheet, nullptr);
    draw(who);
    draw_again(tile);
    EXPECT_EQ(painted(), 0);
}

// ---- The list ------------------------------------------------------------------------------------------------------

int drawn_calls = 0, drawn_last = 0;

TEST_F(DrawActorsTest, TheListTellsTheOrderTheViewWhoIsDrawn) {
    const std::size_t first = spawn(ACTOR_RECTANGLE, 55, 69), second = spawn(ACTOR_RECTANGLE, 55, 69);
    for (const std::size_t who : {first, second}) {
        actor::Abs_Frame_0[who] = actor::Abs_Frame_1[who] = 4;
        actor::Color[who] = who == first ? 0x111111 : 0x222222;
    }
    app_hook::drawn = [](int who) { ++drawn_calls, drawn_last = who; };
    draw_list[0] = static_cast<int>(second);
    draw_list[9] = static_cast<int>(first);
    draw_list[10] = 77;
    UA_snapshot_actors();
    UA_draw_actors(0);
    EXPECT_EQ(screen(35, 64), 0x111111U);
    EXPECT_EQ(drawn_calls, 2);
    EXPECT_EQ(drawn_last, static_cast<int>(first));
    EXPECT_EQ(actor::Tile_x[first], 3);  // 55 / 16
    EXPECT_EQ(actor::Tile_y[first], 3);  // 49 / 16
    actor::View_window[first] = 12;
    actor::Profession[second] = 70;
    actor::Mode[second] = ACTOR_HIDDEN;
    UA_snapshot_actors();
    UA_draw_actors(0);
    EXPECT_EQ(drawn_calls, 2);
    EXPECT_EQ(actor::Tile_y[second], 2);  // a row higher
    UA_draw_actors(12);
    EXPECT_EQ(drawn_last, static_cast<int>(first));
}

// ---- Shapes --------------------------------------------------------------------------------------------------------

TEST_F(DrawActorsTest, ShapesHaveTheirPixelsHere) {
    const Color seventh = UA_palette_color(7);
    const auto shape = [](ActorType type, int diameter, int color) {
        UA_initialize_actors();
        const std::size_t who = spawn(type, 120, 65);
        actor::Diameter[who] = static_cast<std::int16_t>(diameter);
        actor::Color[who] = color;
        return who;
    };
    std::size_t who = shape(ACTOR_RAY, 10, 7);
    actor::Color_alpha[who] = 254;
    actor::Angle[who] = 64;  // sine 1: to the right
    draw(who);
    EXPECT_EQ(painted(), 10);
    EXPECT_EQ(screen(104, 60) >> 16, (seventh >> 16) * 153 >> 8);  // strength 254 * 6 / 10 = 152

    who = shape(ACTOR_DISC, 20, 7);
    draw(who);
    EXPECT_EQ(screen(110, 60), seventh);
    EXPECT_EQ(screen(100, 60), ground);
    actor::Mode[who] = ACTOR_FILLED;
    actor::Color_alpha[who] = 127;
    draw(who);
    EXPECT_EQ(screen(110, 60) >> 16, (seventh >> 16) * 128 >> 8);
    EXPECT_EQ(screen(100, 60), ground);
    actor::Facing[who] = 1;
    draw(who);
    EXPECT_EQ(screen(100, 60), seventh);

    who = shape(ACTOR_RECTANGLE, 0, 0xabcdef);
    actor::Abs_Frame_0[who] = 30;
    actor::Abs_Frame_1[who] = 2;
    draw(who);
    EXPECT_EQ(painted(), 60);
    EXPECT_EQ(screen(129, 61), 0xabcdefU);

    who = shape(ACTOR_PARTICLES, 0, 7);
    actor::Particle_total[who] = 1;
    actor::Particle[who][0].x = 5 * fine_per_pixel;
    actor::Particle[who][0].age = 50;
    actor::Particle[who][0].life = 100;
    draw(who);
    EXPECT_EQ(painted(), 5);
    EXPECT_EQ(screen(105, 60) >> 16, (seventh >> 16) * 128 >> 8);  // 255 * 50 / 100 = 127
    EXPECT_EQ(screen(105, 59) >> 16, (seventh >> 16) * 43 >> 8);   // 127 / 3 = 42

    who = shape(ACTOR_PLASMA, 0, 16);
    actor::Plasma_width[who] = 2;
    actor::Plasma_height[who][1] = 3;
    actor::Plasma_cells[who][31][1] = 19;
    actor::Plasma_cells[who][28][1] = 19;  // above the column's height
    draw(who);
    EXPECT_EQ(painted(), 1);
    EXPECT_EQ(screen(101, 91), UA_palette_color(23));  // 19 * 8 / 20 = 7 of the ramp
}

TEST_F(DrawActorsTest, ATileIsTwelvePixelsInTheMiddleOfItsCell) {
    replace_bitmap(tile_sheet, make_bitmap(32, 16, 0x555555));
    const std::size_t who = spawn(ACTOR_TILE, 120, 65);
    draw(who);
    EXPECT_EQ(painted(), 144);
    EXPECT_EQ(screen(102, 62), 0x555555U);
    EXPECT_EQ(screen(113, 73), 0x555555U);
}

TEST_F(DrawActorsTest, ASquareLiesRoundItsPlaceOrInAMagnifiedPicture) {
    const std::size_t who = spawn(ACTOR_PIXEL, 120, 65);
    actor::Diameter[who] = 5;
    actor::Color[who] = 0x777777;
    actor::Frame_b[who] = 1;
    draw(who);
    EXPECT_EQ(screen(98, 58), 0x777777U);
    EXPECT_EQ(screen(102, 62), 0x777777U);
    EXPECT_EQ(painted(), 25);
    actor::Frame_b[who] = 0;
    actor::Pos_x[who] = 3;
    actor::Pos_y[who] = 2;
    actor::Pos_z[who] = 4;
    actor::Abs_x[who] = actor::Abs_y[who] = 3;
    actor::Abs_Frame_0[who] = 100;
    actor::Abs_Frame_1[who] = 50;
    draw(who);  // c is 9: x is 27 - 13 + 100 + 2, y is 18 - 13 + 50 - 4
    EXPECT_EQ(screen(116, 51), 0x777777U);
    EXPECT_EQ(screen(120, 55), 0x777777U);
    EXPECT_EQ(painted(), 25);
    actor::Mode[who] = ACTOR_TRANSLUCENT;
    actor::Opacity[who] = 127;
    draw(who);
    EXPECT_EQ(screen(116, 51), 0x3b3b3bU);  // half of 119
    draw_pixel_element(49);
    EXPECT_EQ(log_text(), "[ TRAP ] : A process tried to kill object (MAX-1)\n"
                          "[ ERROR ] : Invalid actor # passed to draw_pixel_element()\n");
}

// ---- Polygons ------------------------------------------------------------------------------------------------------

/// A square of 40 by 40: vertices at 45 degrees and 28.3 pixels, which are 20 on each axis.
std::size_t with_square(std::size_t who) {
    object_library[0].pair_count = 4;
    for (int i = 0; i < 4; ++i) object_library[0].pairs[at(i)] = {32 + 64 * i, 283};
    library_count = 1;
    actor::Diameter[who] = 10;
    EXPECT_TRUE(UA_set_outline(static_cast<int>(who), 0));
    return who;
}

TEST_F(DrawActorsTest, ABeamFadesWithTheWayFromItsFirstTwoVertices) {
    const std::size_t who = with_square(spawn(ACTOR_POLYGON, 120, 65));
    actor::Poly_fade_start[who] = 250;
    actor::Poly_fade_end[who] = 50;
    draw(who);
    // Vertices 0 and 1 are 20, 20 and 20, -20; 2 is -20, -20. At half resolution a distance of d along an axis is that
    // of the odd place at or behind it: from 0 to 2, 41 and 41 give 57; from 0, 0 to both, 21 and 21 give 29.
    // 250 - 200 / 114 * 58 = 148.2, so that 148 + 1 parts of 256 are taken.
    const Color light = UA_palette_color(208);
    EXPECT_EQ(screen(100, 60) >> 16, (light >> 16) * 149 >> 8);
    // At vertex 0: 1 and 1 give 1, and to vertex 1, 1 and 41 give 41: 250 - 200 / 114 * 42 = 176.3.
    EXPECT_EQ(screen(120, 80) >> 16, (light >> 16) * 177 >> 8);
    EXPECT_EQ(screen(121, 80), ground);
    EXPECT_GT(painted(), 1500);
}

TEST_F(DrawActorsTest, AGlowingPolygonSparklesIsTranslucentAndWobbles) {
    const std::size_t who = with_square(spawn(ACTOR_GLOW_POLYGON, 120, 65));
    actor::Color[who] = 0x404040;
    actor::Opacity[who] = 127;
    set_random_source([](int n) { return n - 1; });
    draw(who);
    EXPECT_EQ(screen(100, 60), 0x282828U);  // 64 * 231 >> 8 = 57, + 24 of the speckle = 81, half of it 40
    EXPECT_EQ(painted(), 41 * 41);
    actor::Poly_wobble[who] = 1;
    actor::Poly_wobble_phase[who] = 32;    // vertex 0, at 32: sine of 64, 2 to the right
    actor::Poly_wobble_phase_2[who] = 32;  // cosine of 64: no move down
    draw(who);
    EXPECT_EQ(screen(122, 80), 0x282828U);
}

TEST_F(DrawActorsTest, APolygonWithoutVerticesIsToldOnce) {
    for (const ActorType type : {ACTOR_POLYGON, ACTOR_GLOW_POLYGON}) {
        const std::size_t who = spawn(type, 120, 65);
        draw(who);  // none at all
        actor::Vertex_count[who] = -1;
        draw(who);
        draw(who);
    }
    EXPECT_EQ(painted(), 0);
    EXPECT_EQ(log_text(), "ERROR: v3 object doesn't contain any vertices! slot = 1\n"
                          "ERROR: V3 object doesn't contain any vertices! slot = 2\n");
    EXPECT_FALSE(UA_set_outline(1, 5));
    EXPECT_FALSE(UA_set_outline(50, 0));
}

// ---- Letters and waves ---------------------------------------------------------------------------------------------

TEST_F(DrawActorsTest, ALetterIsDrawnByItsAttributes) {
    FontSheet sheet;
    sheet.add('A', 0, 6, {"0", "1"});
    BITMAP* const bitmap = sheet.bitmap();
    ASSERT_TRUE(build_font(FONT_WIDE, {&bitmap, 1}));
    UA_init_text_colors();
    const std::size_t who = spawn(ACTOR_LETTER, 120, 65);
    actor::Letter_font[who] = FONT_WIDE;
    actor::Letter_row[who] = TEXT_RED;
    actor::Letter_outline[who] = 3;
    actor::Letter_code[who] = 'A';
    draw(who);
    EXPECT_EQ(screen(100, 60), 0xfa0c0cU);
    EXPECT_EQ(screen(100, 61), 0xce0000U);
    EXPECT_EQ(screen(99, 60), UA_palette_color(3));
    EXPECT_EQ(painted(), 8);
    actor::Letter_outline[who] = 0;
    actor::Letter_blend[who] = 1;  // over what is on the screen
    actor::Letter_amount[who] = 127;
    draw(who);
    EXPECT_EQ(screen(100, 61), 0x670000U);
    actor::Shift_x[who] = 3;
    draw(who);
    EXPECT_EQ(screen(103, 61), 0x670000U);
    mask_text(0);
    EXPECT_EQ(log_text(),
              "[ TRAP ] : A process tried to kill object (0)\n[ ERROR ] : Invalid actor # passed to mask_text()\n");
}

TEST_F(DrawActorsTest, AWaveTakesAFreeSlotOrTheOneToldAndAFullActorStaysAsItIs) {
    const std::size_t who = spawn(ACTOR_SPRITE, 120, 65);
    const int number = static_cast<int>(who);
    UA_set_wave_h(number, 2, 12, 5, 3, 7);
    UA_set_wave_v(number, -1, 9, 4, -2, 0);
    EXPECT_EQ(actor::BEHAVIOR[who][2], BEHAVIOR_MODIFY_VARIABLE);
    EXPECT_EQ(actor::Behavior_delay[who][2], 7);
    EXPECT_EQ(actor::Behavior_param[who][2][0], 30);
    EXPECT_EQ(actor::Behavior_param[who][2][1], 3);
    EXPECT_EQ(actor::Behavior_param[who][0][3], 1);
    EXPECT_EQ(actor::Wave[who][1].amplitude, 4);
    for (const int slot : {1, 3}) actor::BEHAVIOR[who][at(slot)] = BEHAVIOR_BLINK;
    UA_set_wave_v(number, -1, 1, 1, 1, 1);
    EXPECT_EQ(actor::Wave[who][1].amplitude, 4);
    UA_set_wave_h(number, 4, 1, 1, 1, 1);
    EXPECT_EQ(log_text(), "[ ERROR ] : Couldn't locate free behavior when setting actor V wave!\n"
                          "[ ERROR ] : SLOT parameter OOB in call to UA_set_wave_h()!\n[ STATS ] : slot = 4\n");
}

}  // namespace
}  // namespace nubo
