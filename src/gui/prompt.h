#pragma once
// A message that stands in the status bar for as long as something waits for the user. Main flow only.
#include "state/messages.h"
#include "state/status.h"

namespace nubo {

/// As long as it lives the status bar may be its own. A flash shows over it and then it comes back; at its end what
/// stood before comes back.
class Prompt {
public:
    explicit Prompt(int message = MESSAGE_NONE) : before_(status_timer > 0 ? status_coordinates : int{status_message}) {
        keep(message);
    }
    ~Prompt() { keep(MESSAGE_NONE); }
    Prompt(const Prompt&) = delete;
    Prompt& operator=(const Prompt&) = delete;

    /// Shows the message, a Message or `status_bar_only`; MESSAGE_NONE: what stood before. On each pass of what waits.
    void keep(int message) const {
        if (status_timer <= 0) status_message = message != MESSAGE_NONE ? message : before_;
    }

private:
    int before_;
};

}  // namespace nubo
