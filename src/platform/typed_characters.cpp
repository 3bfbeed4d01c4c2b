#include "platform/typed_characters.h"

#include <algorithm>
#include <array>
#include <string_view>

namespace nubo {
namespace {

// ---- Symbols -------------------------------------------------------------------------------------------------------

/// Symbols that are their own characters, or are so less an offset.
struct SymbolRange {
    unsigned long first, last, less;
};
constexpr std::array<SymbolRange, 4> plain_ranges{{
    {0x20, 0x7e, 0},                    // ASCII
    {0xa0, 0xff, 0},                    // Latin-1
    {0xffaa, 0xffb9, 0xff80},           // of the number pad
    {0x10000a0, 0x110ffff, 0x1000000},  // all that have no older number
}};

/// Characters of symbols with older numbers, from the first on; a blank: there is none.
struct SymbolTable {
    unsigned long first;
    std::u32string_view characters;
};
constexpr std::array<SymbolTable, 3> tables{{{0x1a1, U"Ą˘Ł¤ĽŚ§¨ŠŞŤŹ\u00adŽŻ°ą˛ł´ľśˇ¸šşťź˝žżŔÁÂĂÄĹĆÇČÉĘËĚÍÎĎĐ"
                                                     U"ŃŇÓÔŐÖ×ŘŮÚŰÜÝŢßŕáâăäĺćçčéęëěíîďđńňóôőö÷řůúűüýţ˙"},
                                             {0x6a1, U"ђѓёєѕіїјљњћќґўџ№ЂЃЁЄЅІЇЈЉЊЋЌҐЎЏюабцдефгхийклмноп"
                                                     U"ярстужвьызшэщчъЮАБЦДЕФГХИЙКЛМНОПЯРСТУЖВЬЫЗШЭЩЧЪ"},
                                             {0x7a1, U"ΆΈΉΊΪ ΌΎΫ Ώ  ΅― άέήίϊΐόύϋΰώ     ΑΒΓΔΕΖΗΘΙΚΛΜΝΞΟΠ"
                                                     U"ΡΣ ΤΥΦΧΨΩ       αβγδεζηθικλμνξοπρσςτυφχψω"}}};

struct SingleSymbol {
    unsigned long symbol;
    char32_t character;
};
constexpr std::array<SingleSymbol, 12> single_symbols{{{0x13bc, U'Œ'},
                                                       {0x13bd, U'œ'},
                                                       {0x13be, U'Ÿ'},
                                                       {0x20ac, U'€'},
                                                       {0xaa9, U'—'},
                                                       {0xaaa, U'–'},
                                                       {0xaae, U'…'},
                                                       {0xad0, U'‘'},
                                                       {0xad1, U'’'},
                                                       {0xad2, U'“'},
                                                       {0xad3, U'”'},
                                                       {0xafe, U'„'}}};

// ---- Accents -------------------------------------------------------------------------------------------------------

/// An accent, the character that it is alone, and the letters that take it, without and with it.
struct Accent {
    unsigned long symbol;
    char32_t alone;
    std::u32string_view bare, worn;
};
constexpr std::array<Accent, 11> accents{{
    {0xfe50, U'`', U"aeinouAEINOU", U"àèìǹòùÀÈÌǸÒÙ"},
    {0xfe51, U'´', U"aceginlorsuyzACEGINLORSUYZαεηιουωϊϋΑΕΗΙΟΥΩ", U"áćéǵíńĺóŕśúýźÁĆÉǴÍŃĹÓŔŚÚÝŹάέήίόύώΐΰΆΈΉΊΌΎΏ"},
    {0xfe52, U'^', U"acegiosuyACEGIOSUY", U"âĉêĝîôŝûŷÂĈÊĜÎÔŜÛŶ"},
    {0xfe53, U'~', U"ainouAINOU", U"ãĩñõũÃĨÑÕŨ"},
    {0xfe56, U'˙', U"acegozACEGIOZ", U"ȧċėġȯżȦĊĖĠİȮŻ"},
    {0xfe57, U'¨', U"aeiouyAEIOUYιυΙΥ", U"äëïöüÿÄËÏÖÜŸϊϋΪΫ"},
    {0xfe58, U'°', U"auAU", U"åůÅŮ"},
    {0xfe59, U'˝', U"ouOU", U"őűŐŰ"},
    {0xfe5a, U'ˇ', U"aceginlorstuzACEGINLORSTUZ", U"ǎčěǧǐňľǒřšťǔžǍČĚǦǏŇĽǑŘŠŤǓŽ"},
    {0xfe5b, U'¸', U"cegnlrstCEGNLRST", U"çȩģņļŗşţÇȨĢŅĻŖŞŢ"},
    {0xfe5c, U'˛', U"aeiouAEIOU", U"ąęįǫųĄĘĮǪŲ"},
}};

const Accent* find_accent(unsigned long symbol) {
    const auto found = std::ranges::find(accents, symbol, &Accent::symbol);
    return found == accents.end() ? nullptr : &*found;
}

}  // namespace

char32_t character_of_symbol(unsigned long symbol) {
    for (const SymbolRange& range : plain_ranges)
        if (symbol >= range.first && symbol <= range.last) return static_cast<char32_t>(symbol - range.less);
    for (const SymbolTable& table : tables) {
        if (symbol < table.first || symbol - table.first >= table.characters.size()) continue;
        const char32_t character = table.characters[symbol - table.first];
        return character == U' ' ? 0 : character;
    }
    const auto single = std::ranges::find(single_symbols, symbol, &SingleSymbol::symbol);
    return single == single_symbols.end() ? 0 : single->character;
}

bool is_dead_symbol(unsigned long symbol) { return find_accent(symbol) != nullptr; }

char32_t Typist::strike(unsigned long symbol) {
    const char32_t character = character_of_symbol(symbol);
    if (is_dead_symbol(symbol)) accent_ = symbol;
    if (character == 0) return 0;  // SHIFT between the two takes no accent away
    const Accent* const accent = find_accent(accent_);
    accent_ = 0;
    if (accent == nullptr) return character;
    if (character == U' ') return accent->alone;
    const std::size_t place = accent->bare.find(character);
    return place == std::u32string_view::npos ? character : accent->worn[place];
}

}  // namespace nubo
