#include "game/console_window.h"

#include "framework/resources.h"
#include "game/console.h"
#include "gui/gui_kit.h"
#include "gui/present.h"
#include "state/console.h"
#include <atomic>
#include <thread>

namespace nubo {
namespace {

std::string line(int number) { return Console_lines[at(number)].data(); }
std::string entered(int number) { return Console_history[at(number)].data(); }

void enter(std::string_view text) {
    for (const char character : text) type_console_character(character);
    enter_console_line();
}

void run_console() { UA_console(0); }

std::string asked;
ConsoleAnswer answer_of_game(std::string_view token, std::string_view line) {
    asked += std::string(token) + "(" + std::string(line) + ")";
    if (token == "QUIT") return CONSOLE_LEAVES;
    if (token == "PUT") UA_console_print("PUT IT");
    return token == "PUT" || token == "ZOOM" ? CONSOLE_HANDLED : CONSOLE_UNKNOWN;
}

class ConsoleTest : public GuiTest {};

TEST_F(ConsoleTest, LinesMoveUpBeforeTheOneBeingTyped) {
    UA_console_print("A");
    UA_console_print("B");
    type_console_character('X');
    UA_console_print(std::string(100, 'C'));
    EXPECT_EQ(line(0), "");
    EXPECT_EQ(line(1), std::string(79, 'C'));
    EXPECT_EQ(line(2), "X");
    EXPECT_EQ(line(3), "B");
    EXPECT_EQ(line(4), "A");
    for (int i = 0; i < 20; ++i) UA_console_print("D");
    EXPECT_EQ(line(7), "D");
    for (int i = 0; i < 100; ++i) type_console_character('E');
    EXPECT_EQ(line(0), std::string(76, 'E'));
    delete_console_character();
    EXPECT_EQ(line(0).size(), 75U);
}

TEST_F(ConsoleTest, CommandsAreWholeWordsInUpperCase) {
    struct Case {
        std::string typed, answer;  // "": none
    };
    const Case cases[] = {
        {"MOUSE4", "|c32-> MOUSE SPEED IS NOW 4 - VERY SLOW|c21"},
        {"MOUSE0", "|c32-> MOUSE SPEED IS NOW 0 - VERY FAST|c21"},
        {"SHOWFPS", "|c32-> FPS display is active|c21"},
        {" ,SHOWFPS,NOW", "|c32-> FPS display disabled|c21"},
        {"ZOOM ON", "|c32-> Zoom in|c21"},
        {"ZOOM", "|c32-> Zoom out|c21"},
        {"zoom", ""},
        {"ZOOMS", ""},
        {"MOUSE5", ""},
    };
    Console_running = 1;
    for (const Case& c : cases) {
        enter(c.typed);
        EXPECT_EQ(line(0), "") << c.typed;
        EXPECT_EQ(line(1), c.answer.empty() ? c.typed : c.answer);
        EXPECT_TRUE(c.answer.empty() || line(2) == c.typed) << line(2);
        EXPECT_EQ(entered(0), c.typed);
    }
    EXPECT_EQ(show_fps + Console_zoom, 0);
    enter(" , ");
    EXPECT_EQ(line(2), "MOUSE5");
    EXPECT_EQ(entered(0), "MOUSE5");  // an empty line isn't remembered
    EXPECT_EQ(Console_running, 1);
    enter("EXIT");
    EXPECT_EQ(Console_running, 0);
    EXPECT_EQ(entered(0), "MOUSE5");
}

TEST_F(ConsoleTest, TheHistoryKeepsTheLastTenAndIsWalked) {
    for (char name = 'A'; name <= 'L'; ++name) enter(std::string(1, name));
    EXPECT_EQ(entered(9), "C");
    walk_console_history(1);
    walk_console_history(1);
    EXPECT_EQ(line(0), "K");
    walk_console_history(-1);
    EXPECT_EQ(line(0), "L");
    for (int i = 0; i < 20; ++i) walk_console_history(1);
    EXPECT_EQ(line(0), "C");
    enter("");
    EXPECT_EQ(entered(0), "C");
    walk_console_history(-1);
    EXPECT_EQ(line(0), "");
}

TEST_F(ConsoleTest, TheProgramIsAskedFirst) {
    set_console_hook(answer_of_game);
    Console_running = 1;
    enter("PUT 3,4");
    EXPECT_EQ(line(1), "PUT IT");
    enter("ZOOM");
    EXPECT_EQ(Console_zoom, 0);
    EXPECT_EQ(line(1), "ZOOM");
    enter("SHOWFPS");
    EXPECT_EQ(show_fps, 1);
    enter("QUIT");
    EXPECT_EQ(Console_running, 0);
    EXPECT_EQ(entered(0), "QUIT");
    EXPECT_EQ(asked, "PUT(PUT 3,4)ZOOM(ZOOM)SHOWFPS(SHOWFPS)QUIT(QUIT)");
}

TEST_F(ConsoleTest, IsTypedIntoOverAnInterfaceThatComesBack) {
    add(5, ELEMENT_BUTTON, 100, 100, 40, 9);
    gui::active[127] = 3;
    play_on(run_console, [](User& user) -> Script {
        co_await user.wait(3);
        EXPECT_EQ(gui::type[127], ELEMENT_CONSOLE);
        EXPECT_EQ(gui::active[5], 0);
        EXPECT_EQ(editor_running, 0);
        co_await user.tap_left(110, 104);
        co_await user.tap_key(KEY_A);
        co_await user.hold_key(KEY_LSHIFT);
        co_await user.tap_key(KEY_1);
        co_await user.release_key(KEY_LSHIFT);
        co_await user.tap_key(KEY_SPACE);
        co_await user.tap_key(KEY_9);
        EXPECT_EQ(line(0), "A! 9");
        co_await user.tap_key(KEY_BACKSPACE);
        EXPECT_EQ(line(0), "A! ");
        co_await user.tap_key(KEY_ENTER);
        EXPECT_EQ(line(1), "A! ");
        co_await user.tap_key(KEY_UP);
        EXPECT_EQ(line(0), "A! ");
        co_await user.tap_key(KEY_ESC);
    });
    EXPECT_EQ(gui::click[5], 0);
    EXPECT_EQ(gui::active[5], 1);
    EXPECT_EQ(gui::active[127], 3);
    EXPECT_EQ(gui::type[127], ELEMENT_NONE);
    EXPECT_EQ(editor_running, 1);
    EXPECT_EQ(line(0), "");
}

TEST_F(ConsoleTest, BackspaceThatIsHeldGoesOnEvery62Ticks) {
    for (const char character : std::string("ABCDEFGH")) type_console_character(character);
    play_on(run_console, [](User& user) -> Script {
        co_await user.hold_key(KEY_BACKSPACE);
        co_await user.wait_until([] { return line(0).size() == 7; });
        static int before = 0;
        before = UA_clock_ticks;
        co_await user.wait_until([] { return line(0).size() == 4; });
        EXPECT_NEAR(UA_clock_ticks - before, 3 * 62, 3 * 5);  // a picture is 5 ticks
        co_await user.release_key(KEY_BACKSPACE);
        co_await user.wait(50);
        EXPECT_EQ(line(0).size(), 4U);
        co_await user.tap_key(KEY_TILDE);
    });
    EXPECT_EQ(line(0), "ABCD");
}

int pictures = 0;

TEST_F(ConsoleTest, APausedOneShowsNoPictureWhileItWaits) {
    set_present_hook([] { ++pictures; });
    std::atomic<bool> is_left = false;
    std::thread timers([&] {
        constexpr int tilde_at = 60;  // ms, in which pictures would come
        for (int tick = 0; !is_left; ++tick, rest(1)) {
            if (tick == tilde_at) note_key(KEY_TILDE, true);
            GUI_tick();
        }
    });
    UA_console(1);
    is_left = true;
    timers.join();
    EXPECT_EQ(pictures, 2);  // the one that shows it, and the one without it
}

TEST_F(ConsoleTest, ShowsItsLinesAndTheRateWhereTheyBelong) {
    {
        const ScratchFolder folder;
        std::filesystem::copy(NUBO_FOLDER "/resource", ".", std::filesystem::copy_options::recursive);
        UA_load_framework_video(Folder("."));
    }
    UA_console_print("|c32GREEN");
    type_console_character('X');
    build_element({.slot = 127, .type = ELEMENT_CONSOLE, .w = 312, .h = 61}, 3, 3);
    draw_on(0);
    const auto has_color = [](TextColor color, int top, int bottom) {
        for (int y = top; y < bottom; ++y)
            for (int x = 4; x < 300; ++x)
                if (screen_pixel(x, y) == static_cast<Color>(text_colors[color][0])) return true;
        return false;
    };
    EXPECT_TRUE(has_color(TEXT_GREEN, 48, 55));
    EXPECT_TRUE(has_color(TEXT_GRAY, 55, 62));
    EXPECT_FALSE(has_color(TEXT_GREEN, 55, 62));
    EXPECT_FALSE(has_color(TEXT_GRAY, 0, 55));
    GUI_clear_element(127);
    show_fps = 1;
    update_screen(UPDATE_NORMAL);
    const auto is_orange = [](int left, int top) {
        for (int y = top; y < top + 6; ++y)
            for (int x = left; x < left + 6; ++x)
                if (screen_pixel(x, y) == static_cast<Color>(text_colors[TEXT_FRAME_RATE][0])) return true;
        return false;
    };
    EXPECT_TRUE(is_orange(160, 5) && is_orange(160, 15));
}

}  // namespace
}  // namespace nubo
