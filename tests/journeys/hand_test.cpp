// A hasty hand on the program in its window: everything comes in one instant, as from a pen or over a slow line.
#include "journeys/program.h"

#include <algorithm>
#include <chrono>
#include <csignal>
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
    /// Presses on the way, with the button still down at its end; from `certain_from` pixels on it is white.
    void begin_line() {
        journey.move_to(60, 50);
        desktop.press(MOUSE_LEFT);
        const auto goes_to_and_fro = [this] {
            for (const int step : {2 * Journey::certain_from, 0}) {
                const Spot to = journey.spot(60 + step, 50 + step);
                desktop.move_to(to);
            }
            return journey.pixel(60 + Journey::certain_from, 50 + Journey::certain_from) == white;
        };
        ASSERT_TRUE(wait_until(goes_to_and_fro));
    }
    /// Closes the program and counts what was painted.
    int painted() {
        EXPECT_EQ(journey.close(), 0);
        return paint_on_disk();
    }
    int paint_on_disk() {
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

TEST_F(Hand, AWindowThatIsDestroyedInAStrokeEndsTheProgramWithTheWorkSaved) {
    constexpr int exit_display_lost = 4;
    ASSERT_TRUE(journey.start());
    begin_line();
    desktop.destroy_window(journey.window());
    EXPECT_EQ(journey.program().wait_for_exit(), exit_display_lost);
    EXPECT_GT(paint_on_disk(), Journey::certain_from);
}

TEST_F(Hand, AWindowThatIsMinimisedInAStrokeEndsTheStroke) {
    ASSERT_TRUE(journey.start());
    begin_line();
    desktop.minimise(journey.window());
    ASSERT_TRUE(wait_until([&] { return !desktop.find_window("Nubo v1.3"); }));
    let_it_act();
    desktop.release(MOUSE_LEFT);
    let_it_act();
    desktop.bring_back(journey.window());
    ASSERT_TRUE(wait_until([&] { return desktop.find_window("Nubo v1.3").has_value(); }));
    let_it_act();
    for (int x = 200; x < 240; ++x) desktop.move_to(journey.spot(x, 60));
    let_it_act();
    const int painted_before = 3 * Journey::certain_from;
    EXPECT_LE(painted(), painted_before);
}

TEST_F(Hand, ASignalEndsTheProgramWhileAnotherHoldsTheServer) {
    ASSERT_TRUE(journey.start());
    ASSERT_TRUE(journey.draw_line({60, 50}, {150, 140}, white));
    desktop.grab_server();
    let_it_act();
    journey.program().send_signal(SIGTERM);
    EXPECT_EQ(journey.program().wait_for_exit(Milliseconds(2'000)), 0);
    desktop.end_grab();
    EXPECT_GT(paint_on_disk(), Journey::certain_from);
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
