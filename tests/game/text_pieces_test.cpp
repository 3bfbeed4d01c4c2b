// Texts that are more than a line on the screen: letters that are actors, and the picture of bubbles.
#include "framework/font_sheet.h"
#include "game/actors.h"
#include "game/bubbles.h"
#include "game/draw_bubbles.h"
#include "game/spawn_text.h"
#include "harness/harness.h"
#include "state/run.h"
#include "state/shown.h"

namespace nubo {
namespace {

class TextPiecesTest : public testing::Test {
protected:
    TextPiecesTest() {
        UA_log_open();
        set_test_palette();
        UA_init_text_colors();
        FontSheet sheet;
        sheet.add('A', 0, 6, {"00000", "00000"});
        sheet.add('B', 0, 4, {"0"});
        BITMAP* const bitmap = sheet.bitmap();
        build_font(FONT_NARROW, {&bitmap, 1});
        UA_initialize_actors();
        replace_bitmap(screen_buffer, make_bitmap(view_w, view_h, paper));
        handlers_locked = 0;
        UA_set_font(FONT_NARROW, TEXT_GRAY, 2, 30, 0, 7, 1, 99);
    }
    ~TextPiecesTest() override { UA_log_close(); }
    static void run(int ticks) {
        for (int i = 0; i < ticks; ++i) UA_behavior_handler();
    }
    static std::string place(int who) {
        const std::size_t w = at(who);
        return std::to_string(actor::Pos_x[w]) + " " + std::to_string(actor::Pos_y[w]) + " " +
               std::to_string(actor::Pos_z[w]);
    }
    static constexpr Color paper = 0x123456;
    ScratchFolder folder_;
};

TEST_F(TextPiecesTest, EachLetterIsAnActorAtItsPlaceInTheText) {
    EXPECT_EQ(UA_spawn_text(10, 20, 3, "A|c24BA", {}), 3);
    EXPECT_EQ(place(1), "10 20 3");
    EXPECT_EQ(place(2), "16 20 3");
    EXPECT_EQ(place(3), "20 20 3");
    EXPECT_EQ(actor::Type[2], ACTOR_LETTER);
    EXPECT_EQ(actor::Mode[2], ACTOR_DRAWN);
    EXPECT_EQ(actor::Letter_code[2], 'B');
    EXPECT_EQ(actor::Letter_row[1], TEXT_GRAY);
    EXPECT_EQ(actor::Letter_row[2], TEXT_YELLOW);
    EXPECT_EQ(actor::Letter_shadow[2], 2);
    EXPECT_EQ(actor::Letter_outline[2], 7);
    EXPECT_EQ(actor::Letter_blend[2], 1);
    EXPECT_EQ(actor::Letter_amount[2], 99);
    EXPECT_EQ(text_attributes.color_row, TEXT_YELLOW);
    for (int i = 0; i < 4; ++i) EXPECT_EQ(Pixel_elements[at(i)], i < 3 ? i + 1 : actor_none);
    UA_destroy_actor(2, "test");
    EXPECT_EQ(UA_spawn_text(0, 0, 0, "A", {}), 1);
    EXPECT_EQ(Pixel_elements[3], actor_none);  // 2 is remembered once
}

TEST_F(TextPiecesTest, FromTheRightTheCodesAreReadFromTheirEnd) {
    EXPECT_EQ(UA_spawn_text(10, 0, 0, "A|c24B|c3", {.reverse = true}), 5);
    const std::string codes = "3c|BA";
    for (int i = 0; i < 5; ++i) EXPECT_EQ(actor::Letter_code[at(i + 1)], codes[at(i)]);
    EXPECT_EQ(place(5), "10 0 0");
    EXPECT_EQ(place(4), "16 0 0");
    EXPECT_EQ(place(3), "20 0 0");
    EXPECT_EQ(actor::Letter_row[4], TEXT_GRAY);
    EXPECT_EQ(actor::Letter_row[5], TEXT_YELLOW);
}

TEST_F(TextPiecesTest, LettersSlideInOneAfterAnother) {
    UA_spawn_text(100, 50, 9, "AB", {.effect = ENTRY_SLIDE, .dx = -30, .dy = 10, .dz = 3, .delay = 5, .speed = 20'000});
    EXPECT_EQ(place(1), "70 60 12");
    run(15);  // 30 pixels of two a tick
    EXPECT_EQ(place(1), "100 50 9");
    EXPECT_EQ(actor::BEHAVIOR[2][0], BEHAVIOR_NONE);
    EXPECT_NE(place(2), "106 50 9");
    run(5);
    EXPECT_EQ(place(2), "106 50 9");
    run(100);
    EXPECT_EQ(place(1), "100 50 9");
    EXPECT_EQ(place(2), "106 50 9");
    EXPECT_EQ(actor::BEHAVIOR[1][1], BEHAVIOR_NONE);
}

TEST_F(TextPiecesTest, LettersFlyInSlowingDownAndAppear) {
    for (const int effect : {ENTRY_SLIDE_SLOWS, ENTRY_FLY, ENTRY_SCATTER}) {
        UA_initialize_actors();
        UA_spawn_text(100, 50, 9, "AB", {.effect = effect, .dx = -40, .dy = 20, .dz = 6, .speed = 20'000});
        EXPECT_EQ(actor::Mode[1], effect == ENTRY_SLIDE_SLOWS ? ACTOR_DRAWN : ACTOR_TRANSLUCENT);
        EXPECT_EQ(actor::BEHAVIOR[1][1], BEHAVIOR_VECTOR_MOVEMENT_THRESHOLD);
        EXPECT_NE(place(1), "100 50 9");
        EXPECT_TRUE(effect == ENTRY_SCATTER || place(1) == "60 70 15") << place(1);
        run(600);
        EXPECT_EQ(place(1), "100 50 9") << effect;
        EXPECT_EQ(place(2), "106 50 9") << effect;
        EXPECT_EQ(actor::Mode[1], ACTOR_DRAWN);
    }
}

TEST_F(TextPiecesTest, ATextLongerThanThePoolIsCut) {
    EXPECT_EQ(UA_spawn_text(0, 0, 0, std::string(60, 'A'), {}), 48);
    EXPECT_NE(log_text().find("[ ERROR ] : Couldn't secure object while spawning animated text\n"), std::string::npos);
}

TEST_F(TextPiecesTest, ABubbleOpensOverItsActorAndPrints) {
    const auto pixel = [](int x, int y) { return *pixels_at(screen_buffer, x, y); };
    const auto draw = [&](int ticks) {
        for (int i = 0; i < ticks; ++i) UA_bubble_tick();
        clear_to_color(screen_buffer, static_cast<int>(paper));
        UA_snapshot_actors();
        shown.pan_x = 5;
        UA_draw_bubbles();
    };
    actor::Type[7] = ACTOR_DISC;
    actor::Pos_x[7] = 155;
    actor::Pos_y[7] = 110;
    actor::Pos_z[7] = 10;
    ASSERT_EQ(UA_spawn_bubble(7, 50, "|c24AA"), 1);  // 14 wide, 19 high, over the tail's tip at 150, 100
    draw(1);
    EXPECT_EQ(pixel(150, 91), paper);
    draw(5);  // 18 of 27 pixels are open, 8 of them the tail
    EXPECT_EQ(pixel(150, 90), fixed_black);
    EXPECT_EQ(pixel(150, 82), fixed_light);
    EXPECT_EQ(pixel(150, 81), paper);
    draw(3);
    EXPECT_EQ(pixel(150, 73), fixed_light);
    EXPECT_EQ(pixel(143, 80), fixed_light);
    EXPECT_EQ(pixel(156, 80), fixed_light);
    EXPECT_EQ(pixel(142, 80), paper);
    EXPECT_EQ(pixel(157, 80), paper);
    EXPECT_EQ(pixel(150, 98), fixed_black);
    const Color dim = pixel(146, 79), yellow = static_cast<Color>(text_colors[TEXT_YELLOW][0]);
    EXPECT_NE(dim, fixed_black);
    EXPECT_LT(dim, yellow);
    EXPECT_EQ(pixel(150 + 4, 79), fixed_black);  // the second letter comes later
    draw(15);
    EXPECT_EQ(pixel(146, 79), yellow);
    EXPECT_EQ(pixel(150 + 4, 79), yellow);
}

}  // namespace
}  // namespace nubo
