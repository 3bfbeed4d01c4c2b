#include "base/utf8.h"

#include <array>

namespace nubo {
namespace {

constexpr int continuation_bits = 6;
constexpr char32_t code_max = 0x10ffff, surrogate_first = 0xd800, surrogate_last = 0xdfff;

/// How characters of one length are written: which bits mark the first byte, and the least code that needs so many.
struct Form {
    std::size_t size;
    unsigned mask, mark;
    char32_t lowest;
};
constexpr std::array<Form, 4> forms{
    {{1, 0x80, 0x00, 0}, {2, 0xe0, 0xc0, 0x80}, {3, 0xf0, 0xe0, 0x800}, {4, 0xf8, 0xf0, 0x10000}}};

bool is_character(char32_t code) { return code <= code_max && (code < surrogate_first || code > surrogate_last); }

}  // namespace

Utf8Character first_character(std::string_view text) {
    const auto first = static_cast<unsigned char>(text.front());
    const Utf8Character itself{first, 1};
    for (const Form& form : forms) {
        if ((first & form.mask) != form.mark) continue;
        if (text.size() < form.size) return itself;
        char32_t code = first & ~form.mask;
        for (const char byte : text.substr(1, form.size - 1)) {
            if (!continues_character(byte)) return itself;
            code = code << continuation_bits | (static_cast<unsigned char>(byte) & 0x3fU);
        }
        return code >= form.lowest && is_character(code) ? Utf8Character{code, form.size} : itself;
    }
    return itself;
}

std::string utf8_of(char32_t code) {
    std::string bytes;
    if (!is_character(code)) return bytes;
    for (auto form = forms.rbegin(); form != forms.rend(); ++form) {
        if (code < form->lowest) continue;
        for (int left = static_cast<int>(form->size) - 1; left >= 0; --left) {
            const char32_t part = code >> continuation_bits * left;
            const bool is_first = left == static_cast<int>(form->size) - 1;
            bytes += static_cast<char>(is_first ? part | form->mark : (part & 0x3f) | 0x80);
        }
        return bytes;
    }
    return bytes;
}

}  // namespace nubo
