#pragma once
// The picture of the speech bubbles. Main flow only.

namespace nubo {

/// Draws the open bubbles into `screen_buffer`, each over its actor as the snapshot has it, with the tip of its tail at
/// the actor's place and its box within the screen. By who shows actors, after `UA_draw_actors`.
void UA_draw_bubbles();

}  // namespace nubo
