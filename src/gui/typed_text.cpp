#include "gui/typed_text.h"

#include "base/keys.h"
#include "base/utf8.h"
#include "state/typing.h"
#include <allegro.h>
#include <array>

namespace nubo {
namespace {

struct CharacterKey {
    int code;
    char plain, shifted;
};
constexpr std::array<CharacterKey, 21> character_keys{{
    {KEY_0, '0', ')'},     {KEY_1, '1', '!'},         {KEY_2, '2', '@'},          {KEY_3, '3', '#'},
    {KEY_4, '4', '$'},     {KEY_5, '5', '%'},         {KEY_6, '6', '^'},          {KEY_7, '7', '&'},
    {KEY_8, '8', '*'},     {KEY_9, '9', '('},         {KEY_MINUS, '-', '_'},      {KEY_EQUALS, '=', '+'},
    {KEY_COLON, ';', ':'}, {KEY_OPENBRACE, '[', '{'}, {KEY_CLOSEBRACE, ']', '}'}, {KEY_QUOTE, '\'', '"'},
    {KEY_COMMA, ',', '<'}, {KEY_STOP, '.', '>'},      {KEY_SLASH, '/', '?'},      {KEY_BACKSLASH, '\\', '|'},
    {KEY_SPACE, ' ', ' '},
}};

/// The character that the key has on a US keyboard, '\0' for a key without one.
char character_of(int code) {
    if (code >= KEY_A && code <= KEY_Z) {
        const bool upper = shift_is_down() || (key_shifts & KB_CAPSLOCK_FLAG) != 0;
        return static_cast<char>((upper ? 'A' : 'a') + code - KEY_A);
    }
    for (const CharacterKey& row : character_keys)
        if (row.code == code) return shift_is_down() ? row.shifted : row.plain;
    return '\0';
}

}  // namespace

std::string typed_by(int code) {
    const char32_t typed = key_character[at(code)];
    if (typed != character_unknown) return typed == 0 ? std::string() : utf8_of(typed);
    const char character = character_of(code);
    return character == '\0' ? std::string() : std::string(1, character);
}

}  // namespace nubo
