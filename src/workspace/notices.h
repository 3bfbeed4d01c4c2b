#pragma once
// What the Workspace has to tell the user: a box, or a flash of the status bar.
#include "state/boxes.h"
#include "state/messages.h"
#include <optional>

namespace nubo {

/// Leaves a box with one OKAY button for the loop that draws windows. The same box twice, or one too many, is dropped.
void queue_box(Label first, Label second = LABEL_NONE);

/// The oldest waiting box, which is taken off the queue. The loop of the main flow shows it.
std::optional<PendingBox> take_box();

/// Flashes a message in the status bar.
void flash_message(Message message);

/// Something on disk was missing, damaged or out of range and has been repaired: the user is told once, on entering
/// the program loop, by a box that the start leaves.
void mark_damage();

}  // namespace nubo
