#pragma once
// Characters of UTF-8.
#include <cstddef>
#include <string>
#include <string_view>

namespace nubo {

/// The character with which `text` begins, and its bytes; a byte that begins none stands for itself.
struct Utf8Character {
    char32_t code = 0;
    std::size_t size = 1;
};
Utf8Character first_character(std::string_view text);

/// True for the second and later bytes of a character.
constexpr bool continues_character(char byte) { return (static_cast<unsigned char>(byte) & 0xc0) == 0x80; }

/// The bytes of a character; none for a code that is none.
std::string utf8_of(char32_t code);

}  // namespace nubo
