// Text fields under the keyboard.
#include "gui/text_field.h"

#include "base/jobs.h"
#include "framework/resources.h"
#include "gui_kit.h"
#include "platform/clipboard.h"

namespace nubo {
namespace {

constexpr int field = 6, next_field = 9;

class FieldTest : public GuiTest {
protected:
    FieldTest() {
        font_slots[FONT_WIDE].cell_w = 6;
        font_slots[FONT_WIDE].advance.fill(6);
        for (const int slot : {field, next_field}) add(slot, ELEMENT_TEXT_FIELD, 100, 10 * slot, 60, 9);
        set_text("");
    }
    static void set_text(const char* text) {
        GUI_set_field(field, {.visible = 5, .max = 8}, text);
        GUI_set_field(next_field, {.visible = 5, .max = 8}, "XY");
        key_focus = field;
    }
    static std::string text() {
        std::array<char, field_size> bytes{};
        GUI_read_field(field, bytes);
        return bytes.data();
    }
    /// Strikes keys one after the other.
    static void strike(std::initializer_list<int> codes) {
        for (const int code : codes) {
            ::key[code] = 1;
            tick();
            ::key[code] = 0;
            tick();
        }
    }
};

TEST_F(FieldTest, KeysTypeTheirCharacters) {
    strike({KEY_A, KEY_7, KEY_SPACE, KEY_BACKSLASH});
    EXPECT_EQ(text(), "a7 \\");
    set_text("");
    ::key[KEY_RSHIFT] = 1;
    tick();
    strike({KEY_Z, KEY_7, KEY_SLASH, KEY_BACKSLASH, KEY_QUOTE});
    ::key[KEY_RSHIFT] = 0;
    tick();
    EXPECT_EQ(text(), "Z&?|\"");
    set_text("");
    ::key_shifts = KB_CAPSLOCK_FLAG;
    strike({KEY_Q, KEY_1, KEY_F5, KEY_ESC});  // caps lock is for letters; other keys are no characters
    ::key_shifts = 0;
    EXPECT_EQ(text(), "Q1");
}

TEST_F(FieldTest, KeysStruckBetweenTwoTicksTypeInTheirOrder) {
    for (const int code : {KEY_N, KEY_U, KEY_B, KEY_O, KEY_O})
        for (const bool down : {true, false}) note_key(code, down);
    tick(20);
    EXPECT_EQ(text(), "nuboo");
}

// What X tells of a key goes before its place. The field takes 8 characters, of however many bytes.
TEST_F(FieldTest, KeysTypeWhatIsPrintedOnThem) {
    const auto strike_key = [](int code, char32_t character) {
        note_key(code, true, character);
        note_key(code, false, 0);
        tick(4);
    };
    strike_key(KEY_QUOTE, U'\u00e4');
    strike_key(KEY_OPENBRACE, 0);  // an accent
    strike_key(KEY_A, U'\u0436');
    strike_key(KEY_2, U'"');
    EXPECT_EQ(text(), "\u00e4\u0436\"");
    strike_key(KEY_E, U'\u20ac');
    EXPECT_EQ(text(), "\u00e4\u0436\"\u20ac");
    for (int i = 0; i < 4; ++i) strike_key(KEY_E, U'\u00e9');
    strike_key(KEY_A, U'a');
    EXPECT_EQ(text(), "\u00e4\u0436\"\u20ac\u00e9\u00e9\u00e9\u00e9");
    strike_key(KEY_BACKSPACE, 0);
    strike_key(KEY_A, U'a');
    EXPECT_EQ(text(), "\u00e4\u0436\"\u20ac\u00e9\u00e9\u00e9"
                      "a");
}

TEST_F(FieldTest, EditingKeysMoveAndDelete) {
    set_text("abcdef");
    struct Case {
        std::initializer_list<int> keys;
        const char* text;
        int cursor, scroll;
    };
    // The field shows 5 characters and takes 8.
    const Case cases[] = {{{KEY_BACKSPACE}, "abcdef", 0, 0},
                          {{KEY_END}, "abcdef", 6, 1},
                          {{KEY_X}, "abcdefx", 7, 2},
                          {{KEY_Y, KEY_Z}, "abcdefxy", 8, 3},  // z finds it full
                          {{KEY_BACKSPACE}, "abcdefx", 7, 3},
                          {{KEY_LEFT, KEY_LEFT, KEY_LEFT, KEY_LEFT, KEY_LEFT}, "abcdefx", 2, 2},
                          {{KEY_DEL}, "abdefx", 2, 2},
                          {{KEY_HOME}, "abdefx", 0, 0},
                          {{KEY_LEFT, KEY_DEL}, "bdefx", 0, 0},
                          {{KEY_RIGHT, KEY_Q}, "bqdefx", 2, 0},
                          {{KEY_END, KEY_RIGHT, KEY_DEL}, "bqdefx", 6, 1}};
    for (const Case& one : cases) {
        strike(one.keys);
        EXPECT_EQ(text(), one.text);
        EXPECT_EQ(gui::cursor[field], one.cursor) << one.text;
        EXPECT_EQ(gui::field_scroll[field], one.scroll) << one.text;
    }
}

// Each begins as the field gets the keyboard, with all of its text selected.
TEST_F(FieldTest, WhatIsSelectedGivesWayToWhatIsTyped) {
    constexpr int shift = 1000, ctrl = 2000;  // added to a key's code: it is struck with that one down
    const auto strike_each = [](const std::vector<int>& codes) {
        for (const int code : codes) {
            const int held = code >= ctrl ? KEY_LCONTROL : KEY_LSHIFT;
            ::key[held] = code >= shift ? 1 : 0;
            tick();
            strike({code % shift});
            ::key[held] = 0;
            tick();
        }
    };
    struct Case {
        std::vector<int> keys;
        const char* text;
    };
    for (const Case& one : {Case{{KEY_X}, "x"},
                            {{KEY_BACKSPACE}, ""},
                            {{KEY_DEL, KEY_Y}, "y"},
                            {{KEY_F5, KEY_LEFT, KEY_X}, "abcdexf"},
                            {{KEY_RIGHT, KEY_X}, "abcdefx"},
                            {{KEY_HOME, KEY_X}, "xabcdef"},
                            {{KEY_END, KEY_X}, "abcdefx"},
                            {{KEY_HOME, shift + KEY_RIGHT, shift + KEY_RIGHT, KEY_X}, "xcdef"},
                            {{KEY_END, shift + KEY_LEFT, shift + KEY_LEFT, KEY_DEL}, "abcd"},
                            {{KEY_HOME, shift + KEY_RIGHT, shift + KEY_LEFT, KEY_X}, "xabcdef"},
                            {{KEY_HOME, KEY_RIGHT, shift + KEY_END, KEY_X}, "ax"},
                            {{KEY_LEFT, shift + KEY_HOME, KEY_BACKSPACE}, "f"},
                            {{shift + KEY_LEFT, KEY_X}, "xf"},
                            {{KEY_HOME, ctrl + KEY_A, KEY_X}, "x"}}) {
        set_text("abcdef");
        GUI_set_key_focus(field, true);
        strike_each(one.keys);
        EXPECT_EQ(text(), one.text) << one.text;
    }
}

TEST_F(FieldTest, AFirstPressSelectsAndTheNextOnePlacesTheCursor) {
    set_text("abcdef");
    key_focus = next_field;
    click_at(112, 62);
    strike({KEY_X});
    EXPECT_EQ(text(), "x");
    set_text("abcd");
    key_focus = next_field;
    for (int i = 0; i < 2; ++i) click_at(112, 62);  // behind the second character
    strike({KEY_X});
    EXPECT_EQ(text(), "abxcd");
}

TEST_F(FieldTest, SelectedTextIsDrawnReversedAndAFullFieldBlinks) {
    constexpr Color ink = 0x123456, paper = 0x000042;
    text_colors[TEXT_LIGHT].fill(ink);
    ui_highlight_fore = 0x990000;
    gui::color[field] = static_cast<int>(paper);
    cursor_phase = 6;  // unseen
    set_text("abcdefgh");
    const auto pixel_of_character = [](int column) {  // above its letter
        draw_on(0);
        return screen_pixel(100 + 3 + 6 * column + 2, 60 + 1);
    };
    GUI_set_key_focus(field, true);
    EXPECT_EQ(pixel_of_character(0), ink);
    EXPECT_EQ(pixel_of_character(4), ink);
    strike({KEY_END});
    EXPECT_EQ(pixel_of_character(4), paper);
    strike({KEY_X});
    EXPECT_EQ(pixel_of_character(4), ui_highlight_fore);
    tick(40);
    EXPECT_EQ(pixel_of_character(4), paper);
}

TEST_F(FieldTest, WhatIsDeletedToStaysInView) {
    set_text("abcdefgh");
    strike({KEY_END, KEY_BACKSPACE, KEY_BACKSPACE});
    EXPECT_EQ(text(), "abcdef");
    EXPECT_EQ(gui::field_scroll[field], 2);  // "cdef" stands before the cursor
    strike({KEY_BACKSPACE, KEY_BACKSPACE, KEY_BACKSPACE});
    EXPECT_EQ(text(), "abc");
    EXPECT_EQ(gui::field_scroll[field], 0);
}

TEST_F(FieldTest, ACharacterOfSeveralBytesIsOne) {
    set_text("\xc3\xa9\xe2\x82\xac"
             "ab");  // e with acute, Euro
    strike({KEY_RIGHT, KEY_RIGHT, KEY_X});
    EXPECT_EQ(text(), "\xc3\xa9\xe2\x82\xacxab");
    EXPECT_EQ(gui::cursor[field], 6);
    strike({KEY_LEFT, KEY_BACKSPACE});
    EXPECT_EQ(text(), "\xc3\xa9xab");
    EXPECT_EQ(gui::cursor[field], 2);
    strike({KEY_HOME, KEY_DEL});
    EXPECT_EQ(text(), "xab");
    set_text("\xc3\xa9\xe9"
             "abcd");  // six characters, of which one is a byte of Latin-1; five show
    strike({KEY_END});
    EXPECT_EQ(gui::field_scroll[field], 2);
    click_at(100 + 5 + 1, 62);  // behind the first that shows
    EXPECT_EQ(gui::cursor[field], 3);
}

TEST_F(FieldTest, CtrlWithCAndVCopiesAndPastes) {
    static std::string copied, there, kind;  // the one that is there, empty: what is asked for first
    static const ClipboardStandIn stand_in{
        [](const ClipboardOffer& offer) {
            Bytes bytes;
            offer.encode(offer.kinds.front(), bytes);
            return copied = offer.kinds.front() + ":" + std::string(bytes.begin(), bytes.end()), true;
        },
        [](std::span<const std::string> kinds, const std::function<bool()>&) {
            const bool has_it = kind.empty() || std::ranges::find(kinds, kind) != kinds.end();
            return Fetched{has_it ? FETCH_DONE : FETCH_NOTHING, kind.empty() ? kinds.front() : kind,
                           Bytes(there.begin(), there.end())};
        }};
    set_clipboard_stand_in(&stand_in);
    const auto strike_with_ctrl = [](int code) {
        ::key[KEY_LCONTROL] = 1;
        tick();
        ::key[code] = 1;
        tick();
        ::key[KEY_LCONTROL] = 0;
        tick(60);  // the letter stays down and types nothing
        ::key[code] = 0;
        tick();
        UA_run_jobs();
    };
    set_text("abcdef");
    gui::cursor[field] = 4;
    ::key[KEY_LSHIFT] = 1;
    tick();
    strike({KEY_END});
    ::key[KEY_LSHIFT] = 0;
    tick();
    strike_with_ctrl(KEY_X);
    EXPECT_EQ(copied, "UTF8_STRING:ef");
    EXPECT_EQ(text(), "abcd");
    strike({KEY_BACKSPACE});
    strike_with_ctrl(KEY_C);
    EXPECT_EQ(copied, "UTF8_STRING:abc") << "all where nothing is selected";
    struct Case {
        const char *there, *text;
    };
    // The field takes 8 characters; what doesn't fit is left out whole.
    for (const Case& one : {Case{"12\n34", "abc12"},
                            {"", "abc12"},
                            {"\t\x7fx", "abc12x"},
                            {"y\xc3\xa4z", "abc12xy\xc3\xa4"},
                            {"xyz", "abc12xy\xc3\xa4"}}) {
        there = one.there;
        strike_with_ctrl(KEY_V);
        EXPECT_EQ(text(), one.text);
    }
    EXPECT_EQ(gui::cursor[field], 9);
    strike_with_ctrl(KEY_A);
    strike_with_ctrl(KEY_V);
    EXPECT_EQ(text(), "xyz") << "in the place of all";
    for (const char* const only : {"STRING", "text/plain"})
        for (const char* const bytes : {"\xe4", "\xc3\xa4"}) {
            kind = only, there = bytes;
            set_text("");
            strike_with_ctrl(KEY_V);
            const bool is_latin = kind == "STRING" && there.size() == 2;  // two letters of that
            EXPECT_EQ(text(), is_latin ? "\xc3\x83\xc2\xa4" : "\xc3\xa4") << kind;
        }
}

TEST_F(FieldTest, ALongFieldEndsWithItsBytesAndWithWholeCharacters) {
    std::string euros;
    for (int i = 0; i < 100; ++i) euros += "\xe2\x82\xac";
    GUI_set_field(field, {.visible = 5, .max = 120}, euros.c_str());
    EXPECT_EQ(text(), euros.substr(0, 255));
    strike({KEY_END, KEY_A});
    EXPECT_EQ(text(), euros.substr(0, 255)) << "255 bytes are all that a field has";
    strike({KEY_BACKSPACE, KEY_A, KEY_B, KEY_C, KEY_D});
    EXPECT_EQ(text(), euros.substr(0, 252) + "abc");
}

TEST_F(FieldTest, AHeldKeyRepeatsAfter29TicksEvery5) {
    ::key[KEY_A] = 1;
    const auto length_after = [](int ticks) {
        tick(ticks);
        return field_length(field);
    };
    EXPECT_EQ(length_after(1), 1);
    EXPECT_EQ(length_after(27), 1);
    EXPECT_EQ(length_after(1), 2);  // the 29th
    EXPECT_EQ(length_after(4), 2);
    EXPECT_EQ(length_after(1), 3);
    EXPECT_EQ(length_after(100), 8);  // full
}

TEST_F(FieldTest, TabEnterAndTheMouseMoveTheKeyboard) {
    set_text("abcdef");
    strike({KEY_ENTER});
    EXPECT_EQ(take_click(field), 1);
    strike({KEY_TAB});
    EXPECT_EQ(key_focus, next_field);
    EXPECT_EQ(gui::cursor[next_field], 2);  // at the end
    strike({KEY_TAB});
    EXPECT_EQ(key_focus, field);                     // round from the top
    add(field, ELEMENT_BUTTON_LIT, 100, 60, 60, 9);  // another window's button, in the slot that keeps the focus
    strike({KEY_ENTER});
    EXPECT_EQ(take_click(field), 0);
    add(field, ELEMENT_TEXT_FIELD, 100, 60, 60, 9);
    set_text("abcdef");
    gui::field_scroll[field] = 0;
    // Characters of 6 pixels from x + 5 on, one more once the distance is positive: (112 - 5 - 100) / 6 + 1.
    click_at(112, 62);
    EXPECT_EQ(gui::cursor[field], 2);
    gui::field_scroll[field] = 3;
    click_at(112, 62);
    EXPECT_EQ(gui::cursor[field], 5);
    click_at(150, 62);
    EXPECT_EQ(gui::cursor[field], 6);  // no further than the text
    gui::field_scroll[field] = 0;
    click_at(150, 62);
    EXPECT_EQ(gui::cursor[field], 5);  // and no further than what shows
}

TEST_F(FieldTest, TheCursorIsSeenOnTheFieldsColor) {
    text_colors[TEXT_LIGHT][0] = 0x123456;
    gui::color[field] = static_cast<int>(ui_shadow);
    cursor_phase = 0;
    draw_on(0);
    EXPECT_EQ(screen_pixel(100 + 3 - 1, 60 + 4), 0x123456U);
}

}  // namespace
}  // namespace nubo
