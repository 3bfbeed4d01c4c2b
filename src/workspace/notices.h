#pragma once
// What the Workspace has to tell the user: a box, or a flash of the status bar.
#include "state/boxes.h"
#include "state/messages.h"
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>

namespace nubo {

/// Leaves a box with one OKAY button for the loop that draws windows. The same box twice, or one too many, is dropped.
void queue_box(Label first, Label second = LABEL_NONE);

/// The oldest waiting box, which is taken off the queue. The loop of the main flow shows it.
std::optional<PendingBox> take_box();

/// Flashes a message in the status bar.
void flash_message(Message message);

/// Flashes a text that isn't in the table, in capitals, of at most `told_text`'s length; a long one until it is read. A
/// bar in it, which would begin a colour code, shows as a "!".
void flash_text(const std::string& text);

/// Such a text for a prompt, which is MESSAGE_TOLD then.
void set_told_text(const std::string& text);

/// As long as it lives, the status bar asks for patience, shown at once: around work on `amount` pixels to be written
/// or bytes to be read, if that may take half a second; without an amount always.
class BusyNotice {
public:
    explicit BusyNotice(std::size_t amount = SIZE_MAX);
    ~BusyNotice();
    BusyNotice(const BusyNotice&) = delete;
    BusyNotice& operator=(const BusyNotice&) = delete;
};

/// Something on disk was missing, damaged or out of range and has been repaired: the user is told once, on entering
/// the program loop, by a box that the start leaves.
void mark_damage();

}  // namespace nubo
