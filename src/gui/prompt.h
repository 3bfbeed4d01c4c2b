#pragma once
// A message that stands in the status bar for as long as something waits for the user. Main flow only.
#include "state/messages.h"
#include "state/view.h"

namespace nubo {

/// Sets the message, without the timer of a flash that may be running. At its end the coordinates come back, or the
/// prompt that stood before.
class Prompt {
public:
    explicit Prompt(Message message) : before_(status_timer > 0 ? status_coordinates : int{status_message}) {
        show(message);
    }
    ~Prompt() { show(before_); }
    Prompt(const Prompt&) = delete;
    Prompt& operator=(const Prompt&) = delete;

private:
    static void show(int message) {
        status_timer = 0;
        status_message = message;
    }
    int before_;
};

}  // namespace nubo
