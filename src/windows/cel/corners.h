#pragma once
// Two opposite corners of an area of the Frame, asked for by GET, MOVE and the quick crop. Main flow only.
#include "paint/cel_pixels.h"
#include "state/messages.h"
#include "state/overlay.h"
#include "state/stroke.h"
#include <optional>

namespace nubo {

struct CornerPrompts {
    Message first, second;
};
inline constexpr CornerPrompts grab_prompts{MESSAGE_GRAB_FIRST, MESSAGE_GRAB_SECOND};
inline constexpr CornerPrompts crop_prompts{MESSAGE_CROP_FIRST, MESSAGE_CROP_SECOND};
inline constexpr Point no_corner{rectangle_unset, rectangle_unset};

/// The area between two corners that the user clicks, the first of them only if it is `no_corner`. It may reach beyond
/// the Frame. None if the user leaves. SHIFT makes it a square.
std::optional<Area> ask_corners(Point first, const CornerPrompts& prompts);

}  // namespace nubo
