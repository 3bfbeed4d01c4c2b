#pragma once
// What the status bar says.
#include "state/shared.h"
#include <array>

namespace nubo {

inline constexpr int status_coordinates = 0, status_bar_only = -1;  // values of `status_message` without a text
inline constinit Shared<int> status_message = 0, status_timer = 0;  // message index and GUI ticks left
inline constinit std::array<char, 96> told_text{};                  // what MESSAGE_TOLD says

}  // namespace nubo
