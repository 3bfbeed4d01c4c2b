// The hotkey window and its prompt, by the hand of a user.
#include "windows/hotkey_window.h"

#include "menus_kit.h"

namespace nubo {
namespace {

class HotkeyWindowTest : public MenuTest {
protected:
    static const char* prompt_text() { return gui::value_text[PROMPT_TEXT]; }
    static bool is_red(int slot) { return gui::color[at(slot)] == static_cast<int>(ui_red); }
    /// Slots of the keys of a row shown.
    static int primary(int row) { return HOTKEYS_KEY_FIRST + 2 * row; }
    static int alternate(int row) { return primary(row) + 1; }
};

TEST_F(HotkeyWindowTest, OnlyAnotherRowWithTheSameKeyIsADuplicate) {
    const ScratchFolder folder;
    UA_log_open();
    hotkeys[44][KEY_ALTERNATE] = KEY_X;  // by default the primary of row 6
    hotkeys[50][KEY_PRIMARY] = hotkeys[50][KEY_ALTERNATE] = key_ctrl | KEY_Z;
    EXPECT_TRUE(dupe_hotkey_check(HOTKEY_PIC_CLEAR, KEY_PRIMARY));
    EXPECT_TRUE(dupe_hotkey_check(44, KEY_ALTERNATE));
    EXPECT_FALSE(dupe_hotkey_check(50, KEY_PRIMARY)) << "both sides of one row";
    EXPECT_FALSE(dupe_hotkey_check(HOTKEY_CEL_BELOW, KEY_PRIMARY)) << "unmapped, as many rows are";
    EXPECT_FALSE(dupe_hotkey_check(HOTKEY_COLOR_MENU, KEY_PRIMARY)) << "C is not Ctrl+C";
    EXPECT_EQ(log_text().find("OOB"), std::string::npos);
    EXPECT_FALSE(dupe_hotkey_check(64, KEY_PRIMARY));
    EXPECT_FALSE(dupe_hotkey_check(0, 2));
    EXPECT_NE(log_text().find("Major OOB in call to dupe_hotkey_check! Major = 64"), std::string::npos);
    EXPECT_NE(log_text().find("Minor OOB in call to dupe_hotkey_check! Minor = 2"), std::string::npos);
}

TEST_F(HotkeyWindowTest, AKeyOfAScrolledRowIsRemappedAndCleared) {
    play_on(hotkey_window, [](User& user) -> Script {
        co_await user.wait(8);
        EXPECT_EQ(menu_id, WINDOW_HOTKEYS);
        EXPECT_EQ(status_message, MESSAGE_REMAP_KEY);
        co_await user.move_to(middle_x(primary(4)), middle_y(primary(4)));
        co_await user.turn_wheel(-1);
        EXPECT_EQ(gui::slider_value[HOTKEYS_LIST], 2) << "over a key too the wheel turns the list";
        co_await click(user, primary(1));  // row 3
        EXPECT_EQ(menu_id, WINDOW_BOX);
        EXPECT_STREQ(prompt_text(), "AWAITING INPUT");
        EXPECT_STREQ(gui::value_text[PROMPT_ACTION], "CEL MENU - BELOW") << "row 3 of the table";
        for (const int code : {KEY_LSHIFT, KEY_ALTGR, KEY_RCONTROL}) co_await user.hold_key(code);
        EXPECT_STREQ(prompt_text(), "AWAITING INPUT") << "modifiers alone are no key";
        co_await user.hold_key(KEY_Z);
        co_await user.hold_key(KEY_G);
        EXPECT_STREQ(prompt_text(), "CTRL+ALT+SHIFT+Z") << "the last code wins, not the last press";
        co_await user.release_key(KEY_ALTGR);
        for (const int code : {KEY_Z, KEY_G, KEY_LSHIFT, KEY_RCONTROL}) co_await user.release_key(code);
        EXPECT_STREQ(prompt_text(), "CTRL+SHIFT+G") << "the last key down stands when all are up";
        co_await click(user, PROMPT_OKAY);
        EXPECT_EQ(hotkeys[3][KEY_PRIMARY], 0x1407);  // Shift 0x1000, Ctrl 0x400, G is the 7th letter
        EXPECT_EQ(gui::slider_value[HOTKEYS_LIST], 2) << "the list comes back where it stood";
        EXPECT_EQ(gui::label[at(primary(1))], 0x1407);
        co_await click(user, primary(4), right_button);  // row 6
        EXPECT_EQ(hotkeys[6][KEY_PRIMARY], 0);
        co_await click(user, alternate(4));
        co_await user.hold_key(KEY_Z);
        co_await user.release_key(KEY_Z);
        co_await click(user, PROMPT_CANCEL);
        EXPECT_EQ(hotkeys[6][KEY_ALTERNATE], 0) << "a prompt cancelled changes nothing";
        co_await click(user, HOTKEYS_OKAY);
    });
    EXPECT_EQ(hotkeys[3][KEY_PRIMARY], 0x1407);
    EXPECT_EQ(menu_id, WINDOW_DRAWING_MENU);
    EXPECT_EQ(status_message, status_coordinates);
    EXPECT_EQ(slot_of(LABEL_UNDO), DRAWING_UNDO);
}

TEST_F(HotkeyWindowTest, DuplicatesAreRedAndOkayAsksForThem) {
    hotkeys[1][KEY_ALTERNATE] = hotkeys[60][KEY_PRIMARY] = KEY_J;  // the other one is out of the list's reach
    play_on(hotkey_window, [](User& user) -> Script {
        co_await user.wait(8);
        EXPECT_TRUE(is_red(alternate(1)));
        EXPECT_FALSE(is_red(primary(1)));
        co_await click(user, HOTKEYS_OKAY);
        EXPECT_NE(slot_of(LABEL_DUPLICATE_KEYS), -1);
        co_await click(user, slot_of(LABEL_CANCEL));
        EXPECT_EQ(menu_id, WINDOW_HOTKEYS);
        EXPECT_EQ(gui::type[HOTKEYS_LIST], ELEMENT_LIST);
        co_await click(user, HOTKEYS_OKAY);
        co_await click(user, slot_of(LABEL_OKAY));
        EXPECT_EQ(menu_id, WINDOW_DRAWING_MENU);
    });
    EXPECT_EQ(hotkeys[1][KEY_ALTERNATE], KEY_J);
}

TEST_F(HotkeyWindowTest, DefaultsLeaveTheRapidExitAndLeavingTakesAllBack) {
    hotkeys[HOTKEY_UNDO][KEY_PRIMARY] = KEY_J;
    hotkeys[HOTKEY_CEL_FLIP_DOWN][KEY_PRIMARY] = 0;
    hotkeys[HOTKEY_RAPID_EXIT][KEY_PRIMARY] = KEY_F3;
    play_on(
        [] {
            hotkey_window();
            EXPECT_EQ(hotkeys[HOTKEY_UNDO][KEY_PRIMARY], KEY_J);
            hotkey_window();
        },
        [](User& user) -> Script {
            co_await user.wait(8);
            co_await click(user, HOTKEYS_DEFAULTS);
            EXPECT_EQ(hotkeys[HOTKEY_UNDO][KEY_PRIMARY], KEY_U);
            EXPECT_EQ(hotkeys[HOTKEY_CEL_FLIP_DOWN][KEY_PRIMARY], KEY_V) << "of the rows that came later too";
            EXPECT_EQ(hotkeys[HOTKEY_RAPID_EXIT][KEY_PRIMARY], KEY_F3);
            co_await click(user, HOTKEYS_CANCEL);
            co_await click(user, HOTKEYS_DEFAULTS);
            EXPECT_EQ(hotkeys[HOTKEY_UNDO][KEY_PRIMARY], KEY_U);
            co_await right_click_outside(user);
        });
    EXPECT_EQ(hotkeys[HOTKEY_UNDO][KEY_PRIMARY], KEY_J);
}

}  // namespace
}  // namespace nubo
