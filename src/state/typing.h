#pragma once
// What the keys type. Which of them are down stands in state/hotkeys.h.
#include "state/hotkeys.h"

namespace nubo {

/// Of a key of which only the code is known: it types what a US keyboard has there.
inline constexpr char32_t character_unknown = 0xffffffff;
/// The character that each key typed when it went down last, 0 none.
inline constinit auto key_character = filled<Shared<char32_t>, key_codes>(character_unknown);

}  // namespace nubo
