#pragma once
// The box with two ways back to something that has left the view: the nodes of a gradient, the Cel. Main flow only.
#include "state/labels.h"

namespace nubo {

struct OffscreenBox {
    Label title, first, second;
};
enum OffscreenPress : int { OFFSCREEN_NONE, OFFSCREEN_FIRST, OFFSCREEN_SECOND };

/// Shows the box as long as the thing is not seen, over whatever window stands, and tells which of its buttons was
/// pressed. On each pass.
OffscreenPress serve_offscreen_box(const OffscreenBox& box, bool is_seen);

/// Takes the box away, if it stands there.
void close_offscreen_box();

}  // namespace nubo
