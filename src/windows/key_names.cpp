#include "windows/key_names.h"

#include "state/texts_keys.h"

namespace nubo {

std::string key_name(int key_value) {
    constexpr int modifiers = key_ctrl | key_alt | key_shift;
    const int code = key_value & ~modifiers;
    if (code < 0 || code > key_code_max) return {};
    std::string name(key_prefixes[static_cast<std::size_t>((key_value & modifiers) >> key_modifier_shift)]);
    name += key_names[static_cast<std::size_t>(code)];
    return name.substr(0, key_name_length);
}

}  // namespace nubo
