#include "platform/keyboard.h"

#include <algorithm>
#include <allegro.h>
#include <iterator>
#include <string_view>
#include <xalleg.h>

namespace nubo {
namespace {

std::size_t index_of(int key) { return static_cast<std::size_t>(key); }

// ---- Characters ----------------------------------------------------------------------------------------------------

struct CharacterCode {
    char character;
    int code;
};
constexpr CharacterCode punctuation[] = {{'`', KEY_TILDE},     {'-', KEY_MINUS},      {'=', KEY_EQUALS},
                                         {'[', KEY_OPENBRACE}, {']', KEY_CLOSEBRACE}, {';', KEY_COLON},
                                         {'\'', KEY_QUOTE},    {'\\', KEY_BACKSLASH}, {'<', KEY_BACKSLASH2},
                                         {',', KEY_COMMA},     {'.', KEY_STOP},       {'/', KEY_SLASH}};

bool is_digit(unsigned long symbol) { return symbol >= '0' && symbol <= '9'; }

/// The code of a character, 0 for a symbol that has none.
int code_of_symbol(unsigned long symbol) {
    if (symbol >= 'a' && symbol <= 'z') return KEY_A + static_cast<int>(symbol - 'a');
    if (is_digit(symbol)) return KEY_0 + static_cast<int>(symbol - '0');
    const auto row = std::find_if(std::begin(punctuation), std::end(punctuation), [=](const CharacterCode& one) {
        return static_cast<unsigned long>(one.character) == symbol;
    });
    return row == std::end(punctuation) ? 0 : row->code;
}

/// French keyboards have the digits above, with shift.
int printed_code(const KeyPrint& print) {
    return is_digit(print.shifted) ? code_of_symbol(print.shifted) : code_of_symbol(print.plain);
}

// ---- Places --------------------------------------------------------------------------------------------------------

/// Keys beside one another on a US keyboard, from an X key on.
struct KeyRow {
    int first;
    std::string_view characters;
};
constexpr KeyRow us_rows[] = {
    {10, "1234567890-="}, {24, "qwertyuiop[]"}, {38, "asdfghjkl;'`"}, {51, "\\zxcvbnm,./"}, {94, "<"}};

/// The code of each X key by its place, 0 for keys without a character.
KeyCodes codes_of_places() {
    KeyCodes codes{};
    for (const KeyRow& row : us_rows)
        for (std::size_t i = 0; i < row.characters.size(); ++i)
            codes[index_of(row.first) + i] = code_of_symbol(static_cast<unsigned char>(row.characters[i]));
    return codes;
}

bool has(const KeyCodes& codes, int code) { return std::find(codes.begin(), codes.end(), code) != codes.end(); }

bool prints_all_letters(const KeyCodes& printed) {
    for (int code = KEY_A; code <= KEY_Z; ++code)
        if (!has(printed, code)) return false;
    return true;
}

/// The codes of places that no key has go to the keys left without one: so each is heard, also the German sharp s.
void deal_rest(KeyCodes& codes, const KeyCodes& places) {
    for (std::size_t key = 0; key < codes.size(); ++key) {
        if (codes[key] != 0 || places[key] == 0) continue;
        const auto is_free = [&](int code) { return code != 0 && !has(codes, code); };
        if (const auto rest = std::find_if(places.begin(), places.end(), is_free); rest != places.end())
            codes[key] = *rest;
    }
}

/// The codes by print, and by place for the keys whose print has none.
KeyCodes characters_of(const KeyPrints& prints, const KeyCodes& places) {
    KeyCodes codes{};
    std::transform(prints.begin(), prints.end(), codes.begin(), printed_code);
    if (!prints_all_letters(codes)) return places;
    const KeyCodes printed = codes;
    for (std::size_t key = 0; key < codes.size(); ++key)
        if (codes[key] == 0 && !has(printed, places[key])) codes[key] = places[key];
    deal_rest(codes, places);
    return codes;
}

// ---- The keyboard there is -----------------------------------------------------------------------------------------

KeyPrints printed_symbols() {
    int first = 0, last = 0, columns = 0;
    XDisplayKeycodes(_xwin.display, &first, &last);
    KeyPrints prints{};
    KeySym* const symbols = XGetKeyboardMapping(_xwin.display, static_cast<KeyCode>(first), last - first + 1, &columns);
    if (symbols == nullptr) return prints;
    for (int key = first; key <= last && columns > 1; ++key) {
        const KeySym* const row = symbols + static_cast<std::ptrdiff_t>(key - first) * columns;
        prints[index_of(key)] = {row[0], row[1]};
    }
    XFree(symbols);
    return prints;
}

KeyCodes codes_given;

}  // namespace

KeyCodes key_codes_of(const KeyPrints& prints, KeyCodes codes) {
    const KeyCodes places = codes_of_places(), characters = characters_of(prints, places);
    for (std::size_t key = 0; key < codes.size(); ++key) {
        // Allegro deals the codes left over to keys that it doesn't know: a key for the volume is no letter.
        if (characters[key] != 0 || has(places, codes[key])) codes[key] = characters[key];
    }
    return codes;
}

void map_keyboard() {
    if (_xwin.display == nullptr) return;
    std::copy_n(_xwin.keycode_to_scancode, x_keys, codes_given.begin());
    codes_given = key_codes_of(printed_symbols(), codes_given);
    std::copy_n(codes_given.begin(), x_keys, _xwin.keycode_to_scancode);
}

void keep_keyboard_map() {
    if (!std::equal(codes_given.begin(), codes_given.end(), _xwin.keycode_to_scancode)) map_keyboard();
}

}  // namespace nubo
