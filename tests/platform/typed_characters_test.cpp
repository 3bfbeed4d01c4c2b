// What keys type, against X's own list of its symbols, which names the character beside each.
#include "harness/harness.h"
#include "platform/typed_characters.h"

namespace nubo {
namespace {

/// German, French, Polish, Greek and Russian, capitals and small ones.
constexpr std::u32string_view letters = U"äöüßÄÖÜàâæçèéêëîïôœùûÿÀÂÆÇÈÉÊËÎÏÔŒÙÛŸąćęłńóśźżĄĆĘŁŃÓŚŹŻ€„”«»"
                                        U"αβγδεζηθικλμνξοπρσςτυφχψωάέήίόύώϊϋΐΰΑΒΓΔΕΖΗΘΙΚΛΜΝΞΟΠΡΣΤΥΦΧΨΩΆΈΉΊΌΎΏΪΫ"
                                        U"абвгдеёжзийклмнопрстуфхцчшщъыьэюяАБВГДЕЁЖЗИЙКЛМНОПРСТУФХЦЧШЩЪЫЬЭЮЯ";

TEST(TypedCharactersTest, SymbolsAreTheCharactersOfXsList) {
    std::ifstream list("/usr/include/X11/keysymdef.h");
    std::u32string found;
    for (std::string line; std::getline(list, line);) {
        unsigned long symbol = 0, character = 0;
        std::array<char, 64> name{};
        if (std::sscanf(line.c_str(), "#define XK_%63s %lx /* U+%lx", name.data(), &symbol, &character) != 3) continue;
        const char32_t typed = character_of_symbol(symbol);
        if (letters.find(static_cast<char32_t>(character)) == std::u32string_view::npos) {
            EXPECT_TRUE(typed == 0 || typed == character) << line;
            continue;
        }
        EXPECT_EQ(typed, character) << line;
        found += typed;
    }
    for (const char32_t letter : letters) {
        EXPECT_NE(found.find(letter), std::u32string::npos) << static_cast<unsigned>(letter);
        EXPECT_EQ(character_of_symbol(0x1000000 + letter), letter);
    }
    constexpr unsigned long left_arrow = 0xff51, shift = 0xffe1, pad_7 = 0xffb7, backspace = 0xff08;
    for (const unsigned long symbol : {left_arrow, shift, backspace, 0x0UL}) EXPECT_EQ(character_of_symbol(symbol), 0u);
    EXPECT_EQ(character_of_symbol(pad_7), U'7');
}

TEST(TypedCharactersTest, AnAccentWaitsForItsLetter) {
    constexpr unsigned long acute = 0xfe51, circumflex = 0xfe52, diaeresis = 0xfe57, shift = 0xffe1,
                            greek_alpha = 0x7e1;
    Typist typist;
    EXPECT_EQ(typist.strike(circumflex), 0u);
    EXPECT_EQ(typist.strike('e'), U'ê');
    EXPECT_EQ(typist.strike('e'), U'e');
    EXPECT_EQ(typist.strike(diaeresis), 0u);
    EXPECT_EQ(typist.strike(shift), 0u) << "on the way to a capital";
    EXPECT_EQ(typist.strike('E'), U'Ë');
    EXPECT_EQ(typist.strike(acute), 0u);
    EXPECT_EQ(typist.strike(greek_alpha), U'ά');
    EXPECT_EQ(typist.strike(acute), 0u);
    EXPECT_EQ(typist.strike('q'), U'q') << "no letter wears it";
    EXPECT_EQ(typist.strike(circumflex), 0u);
    EXPECT_EQ(typist.strike(' '), U'^');
}

}  // namespace
}  // namespace nubo
