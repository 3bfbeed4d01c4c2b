// Effects on the whole picture: ripples, fog, the screenshot, the tint.
#include "game/screen_effects.h"

#include "codecs/png.h"
#include "game/actors.h"
#include "game/ripples.h"
#include "harness/harness.h"
#include "state/options.h"
#include "state/run.h"

namespace nubo {
namespace {

/// A screen on which each pixel tells its place.
class ScreenEffectsTest : public testing::Test {
protected:
    ScreenEffectsTest() {
        UA_log_open();
        replace_bitmap(screen_buffer, make_bitmap(view_w, view_h));
        create_effect_bitmaps();
        UA_initialize_actors();
        draw_places();
    }
    ~ScreenEffectsTest() override { UA_log_close(); }
    static Color place(int x, int y) { return static_cast<Color>(y << 16 | x); }
    static void draw_places() {
        for (int y = 0; y < view_h; ++y)
            for (int x = 0; x < view_w; ++x) *pixels_at(screen_buffer, x, y) = place(x, y);
    }
    static Color screen(int x, int y) { return *pixels_at(screen_buffer, x, y); }
    ScratchFolder folder_;
};

// ---- Ripples -------------------------------------------------------------------------------------------------------

TEST_F(ScreenEffectsTest, TwoStepsOfADropAreTheseHeightsAndPlaces) {
    EXPECT_EQ(UA_add_ripple(160, 120), 2);
    ripple::ready[2] = 1;
    UA_step_ready_ripples();
    EXPECT_EQ(ripple::ready[2], 0);
    const RippleField &first = ripple::height[2][1], &second = ripple::height[2][0];
    EXPECT_EQ(ripple::front[2], 1);
    EXPECT_EQ(first[120][161], 4922);  // 10000 / 2 - 0 = 5000, less 5000 >> 6 = 78
    EXPECT_EQ(first[119][160], 4922);
    EXPECT_EQ(first[120][160], 0);
    EXPECT_EQ(screen(160, 120), place(160, 120));  // the other field was flat
    UA_step_ripple(2);
    EXPECT_EQ(screen(160, 120), place(319, 239));  // slopes of 10000 / 32 = 312 lead over the edge
    EXPECT_EQ(screen(160, 119), place(0, 119));    // below it stands 10000: across by -312
    EXPECT_EQ(screen(159, 120), place(159, 0));    // to the right of it: down by -312
    EXPECT_EQ(screen(161, 120), place(161, 120));  // it sees neither
    EXPECT_EQ(second[120][160], -153);             // 4 * 4922 / 2 - 10000 = -156, less -156 >> 6 = -3
    EXPECT_EQ(second[121][161], 4846);             // 2 * 4922 / 2 = 4922, less 76
    EXPECT_EQ(second[120][162], 2423);             // 4922 / 2 = 2461, less 38
}

TEST_F(ScreenEffectsTest, AFieldBeyondTheScreenBendsWhatLiesOnIt) {
    const int slot = UA_add_ripple(0, 0);  // the screen's corner is the field's middle
    UA_step_ripple(slot);
    UA_step_ripple(slot);
    EXPECT_EQ(screen(0, 0), place(159, 119));  // the end of the field lies half a screen away
    EXPECT_EQ(screen(1, 1), place(1, 1));
}

TEST_F(ScreenEffectsTest, ThreeRipplesRunAndOneAtRestEnds) {
    for (const int slot : {2, 1, 0}) EXPECT_EQ(UA_add_ripple(50, 50), slot);
    EXPECT_EQ(UA_add_ripple(50, 50), ripple_none);
    EXPECT_EQ(log_text(), "[ WARNING ] : No slot to assign wave displacer!\n");
    ripple::height[1][0][120][160] = 0;
    UA_step_ripple(1);
    EXPECT_EQ(ripple::active[1], 0);
    EXPECT_EQ(ripple::active[2], 1);
    EXPECT_EQ(UA_add_ripple(50, 50), 1);
    EXPECT_EQ(ripple::height[1][0][120][160], 10000);
}

// ---- Fog -----------------------------------------------------------------------------------------------------------

TEST_F(ScreenEffectsTest, TheFogClearsTowardTheMiddleByItsDensity) {
    struct Case {
        int density, x;  // in the row of the middle
        Color value;
    };
    // The ring of radius r round 159 is the last to set the pixel r to the left of it. Its value is density + 1 - r
    // down to a radius of density - 149; then come 176, 208, 240, and the core.
    const Case cases[] = {{100, 58, 1},    {100, 59, 1},    {100, 109, 51},  {100, 160, 101},
                          {200, 109, 176}, {200, 110, 208}, {200, 111, 240}, {200, 112, 255},
                          {200, 160, 255}, {331, 0, 255},   {1, 159, 2},     {1, 157, 1}};
    for (const Case& one : cases) {
        UA_draw_fog(one.density);
        EXPECT_EQ(*pixels_at(fog_mask, one.x, 99), one.value) << one.density << " at " << one.x;
    }
}

TEST_F(ScreenEffectsTest, AFogThatDriftsIsTurned) {
    UA_set_fog(3, 2);
    EXPECT_EQ(actor::BEHAVIOR[48][0], BEHAVIOR_CONTROL_FOG);
    EXPECT_EQ(actor::Behavior_param[48][0][0], 1);
    UA_set_fog(-4, 0);
    EXPECT_EQ(actor::BEHAVIOR[48][1], BEHAVIOR_NONE);
    EXPECT_EQ(actor::Behavior_param[48][0][0], 330);
    EXPECT_EQ(actor::Behavior_param[48][0][1], -4);
    EXPECT_EQ(actor::Behavior_delay[48][0], 0);
}

// ---- The screenshot ------------------------------------------------------------------------------------------------

TEST_F(ScreenEffectsTest, AScreenshotTakesTheNextFreeNumberOrNone) {
    std::snprintf(program_dir.data(), program_dir.size(), "%s", folder_.path().c_str());
    std::ofstream("screen_002.png") << "someone's";
    EXPECT_EQ(UA_screen_capture(), 1);
    EXPECT_EQ(UA_screen_capture(), 3);
    const OwnedBitmap picture(load_png("screen_003.png", nullptr));
    ASSERT_NE(picture, nullptr);
    EXPECT_EQ(*pixels_at(picture.get(), 319, 239), place(319, 239));
    for (int number = 4; number <= 999; ++number) {
        std::array<char, 16> name{};
        std::snprintf(name.data(), name.size(), "screen_%03d.png", number);
        std::ofstream(name.data()) << "taken";
    }
    EXPECT_EQ(UA_screen_capture(), -1);
    EXPECT_EQ(log_text(), "[ WARNING] : I are confused. Can't find slot for screen capture! Count = 999\n");
}

// ---- The tint ------------------------------------------------------------------------------------------------------

TEST_F(ScreenEffectsTest, WithoutAFreeActorTheTintStaysAsItIs) {
    while (UA_spawn_blank_element(0, 0) != actor_none) {
    }
    const std::size_t told = log_text().size();
    tint_r = tint_g = tint_b = 0;
    tint_strength = 254;
    UA_tint_screen(0, 0, 0, 0, 0, 8);
    EXPECT_NE(log_text().find("[ ERROR ] : Couldn't assign object for screen tint\n", told), std::string::npos);
    handlers_locked = 0;
    UA_behavior_handler();
    EXPECT_EQ(tint_strength, 254);
    UA_draw_tint();
    EXPECT_EQ(screen(255, 239), 0x000000U);  // one part in 256 is left, of each channel nothing
}

}  // namespace
}  // namespace nubo
