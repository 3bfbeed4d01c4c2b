// A hasty hand on the program in its window: everything comes in one instant, as from a pen or over a slow line.
#include "journeys/program.h"

#include <algorithm>
#include <chrono>
#include <filesystem>
#include <gtest/gtest.h>
#include <thread>

namespace nubo {

namespace {

constexpr std::uint32_t black = 0x000000, white = 0xffffff;

class Hand : public testing::Test {
protected:
    Hand() {
        std::filesystem::create_directories(journey.path("WORKSPACE"));
        write_bmp(journey.path("WORKSPACE/current.000"), logical_width, logical_height, black);
    }
    /// As long as the program needs at most to act on what it was given.
    static void let_it_act() { std::this_thread::sleep_for(std::chrono::milliseconds(250)); }
    void click_at(Spot at) {
        desktop.move_to(journey.spot(at.x, at.y));
        desktop.click(MOUSE_LEFT);
    }
    /// A window manager that looks at each press first loses presses of the next click while it does, for every
    /// program.
    void click_and_see(Spot at) {
        click_at(at);
        desktop.move_to(journey.spot(10, 120));  // the cursor and the crosshairs hide what they stand on
        EXPECT_TRUE(journey.comes_to_show(at.x, at.y, white)) << at.x;
    }
    void tap_key(const char* key) {
        desktop.press_key(key);
        desktop.release_key(key);
    }
    /// Closes the program and counts what was painted.
    int painted() {
        EXPECT_EQ(journey.close(), 0);
        const Photo frame = read_bmp(journey.path("WORKSPACE/current.000"));
        EXPECT_EQ(frame.width, logical_width);
        return static_cast<int>(std::count_if(frame.pixels.begin(), frame.pixels.end(),
                                              [](std::uint32_t pixel) { return pixel != black; }));
    }

    Journey journey{'2'};
    Desktop& desktop = journey.desktop();
};

constexpr Spot tool_button{60, 224};

}  // namespace

TEST_F(Hand, EachClickPaintsItsPointAndOnlyThere) {
    ASSERT_TRUE(journey.start());
    for (int i = 0; i < 10; ++i) click_and_see({20 + 20 * i, 30 + 7 * i});
    EXPECT_EQ(painted(), 10);
}

TEST_F(Hand, APressOnTheMenuPaintsNothingUnderIt) {
    ASSERT_TRUE(journey.start());
    for (int i = 0; i < 10; ++i) {
        journey.move_to(100, 40 + i);
        click_at(tool_button);
        let_it_act();
    }
    EXPECT_EQ(painted(), 0);
}

TEST_F(Hand, KeysStruckInOneInstantActOnceEach) {
    ASSERT_TRUE(journey.start());
    for (const Spot at : {Spot{50, 50}, Spot{70, 60}, Spot{90, 70}}) click_and_see(at);
    for (int i = 0; i < 2; ++i) tap_key("u");
    EXPECT_TRUE(journey.comes_to_show(90, 70, black));
    EXPECT_TRUE(journey.comes_to_show(70, 60, black));
    EXPECT_EQ(painted(), 1);
}

}  // namespace nubo
