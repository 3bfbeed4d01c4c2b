#pragma once
// Boxes that wait to be shown: lower rooms can't open a window, so they leave what it would say here.
#include "state/labels.h"
#include <array>

namespace nubo {

inline constexpr int box_slots = 4;
struct PendingBox {
    Label first = LABEL_NONE, second = LABEL_NONE;  // its two lines; LABEL_NONE as the second: one line only
};
inline constinit std::array<PendingBox, box_slots> pending_boxes{};
inline constinit int pending_box_count = 0;  // the oldest stands first

}  // namespace nubo
