// Which key is which on the keyboards of the world.
#include "harness/harness.h"
#include "platform/keyboard.h"

#include <allegro.h>

namespace nubo {
namespace {

constexpr int first_of_row[] = {10, 24, 38, 51,
                                94};     // the X keys of "1", "q", "a", the key left of "z" or above it, "<"
constexpr unsigned long other = 0x1000;  // a symbol that is no ASCII character

/// A keyboard by what is printed on it, row by row; '#' is something that has no key code.
KeyPrints keyboard(const std::string_view (&rows)[5]) {
    KeyPrints prints{};
    for (std::size_t row = 0; row < 5; ++row)
        for (std::size_t i = 0; i < rows[row].size(); ++i) {
            const char printed = rows[row][i];
            const std::size_t key = static_cast<std::size_t>(first_of_row[row]) + i;
            prints[key].plain = printed == '#' ? other : static_cast<unsigned char>(printed);
        }
    return prints;
}

// As `setxkbmap` gives them.
const KeyPrints german = keyboard({"1234567890##", "qwertzuiop#+", "asdfghjkl###", "#yxcvbnm,.-", "<"});
const KeyPrints turkish = keyboard({"1234567890*-", "qwertyu#op##", "asdfghjkl#i\"", ",zxcvbnm##.", "<"});
const KeyPrints greek = keyboard({"1234567890-=", ";#########[]", "##########'`", "\\#######,./", "<"});
const KeyPrints russian = keyboard({"1234567890-=", "############", "############", "\\#########.", "/"});

KeyPrints french() {
    KeyPrints prints = keyboard({"&#\"'(-####)=", "azertyuiop#$", "qsdfghjklm##", "*wxcvbn,;:!", "<"});
    for (unsigned long i = 0; i < 10; ++i) prints[10 + i].shifted = '0' + (i + 1) % 10;
    return prints;
}

TEST(KeyboardTest, KeysGoByTheirPrintOrElseByTheirPlace) {
    struct Case {
        const char* what;
        const KeyPrints& prints;
        int key, code;
    };
    const KeyPrints azerty = french();
    const Case cases[] = {{"German z", german, 29, KEY_Z},
                          {"German y", german, 52, KEY_Y},
                          {"German minus, where US has a slash", german, 61, KEY_MINUS},
                          {"German hash, where US has a backslash", german, 51, KEY_BACKSLASH},
                          {"German sharp s, where US has a minus", german, 20, KEY_SLASH},
                          {"German circumflex, left of 1", german, 49, KEY_TILDE},
                          {"German u umlaut", german, 34, KEY_OPENBRACE},
                          {"Turkish comma, where US has a backslash", turkish, 51, KEY_COMMA},
                          {"Turkish less, beside it", turkish, 94, KEY_BACKSLASH2},
                          {"French a", azerty, 24, KEY_A},
                          {"French 1, with shift", azerty, 10, KEY_1},
                          {"French 0, with shift", azerty, 19, KEY_0},
                          {"French asterisk, where US has a backslash", azerty, 51, KEY_BACKSLASH},
                          {"Greek semicolon, at the place of Q", greek, 24, KEY_Q},
                          {"Greek alpha", greek, 38, KEY_A},
                          {"Russian, at the place of U", russian, 30, KEY_U},
                          {"Russian stop, at the place of the slash", russian, 61, KEY_SLASH}};
    for (const Case& one : cases)
        EXPECT_EQ(key_codes_of(one.prints, {})[static_cast<std::size_t>(one.key)], one.code) << one.what;
}

TEST(KeyboardTest, EveryLetterCanBeTypedAndByOneKey) {
    for (const KeyPrints& prints : {german, turkish, greek, russian, french()}) {
        const KeyCodes codes = key_codes_of(prints, {});
        for (int code = KEY_A; code <= KEY_9; ++code)
            EXPECT_EQ(std::count(codes.begin(), codes.end(), code), 1) << code;
        for (std::size_t key = 0; key < codes.size(); ++key) {
            if (prints[key].plain == 0) continue;
            EXPECT_EQ(std::count(codes.begin(), codes.end(), codes[key]), 1) << key;
            EXPECT_NE(codes[key], 0) << "heard, whatever it prints: " << key;
        }
    }
}

TEST(KeyboardTest, AKeyForTheVolumeIsNoLetter) {
    constexpr std::size_t volume = 122, f1 = 67, unnamed = 123;
    KeyCodes dealt{};
    dealt[volume] = KEY_OPENBRACE;
    dealt[f1] = KEY_F1;
    dealt[unnamed] = 100;
    const KeyCodes codes = key_codes_of(german, dealt);
    EXPECT_EQ(codes[volume], 0);
    EXPECT_EQ(codes[f1], KEY_F1);
    EXPECT_EQ(codes[unnamed], 100);
}

}  // namespace
}  // namespace nubo
