#pragma once
// Keys for a window whose own list has the keyboard. Main flow only.
#include "state/hotkeys.h"
#include <array>

namespace nubo {

/// Tells the keys that go down, and a key that is held again and again, as text fields have it.
class KeyTaps {
public:
    /// Keys that are down now count from their next press on, so that the key that opened a window does nothing in it.
    KeyTaps();

    /// Once a pass: Allegro's code of the key that acts now, 0 none.
    int take();

private:
    bool repeats(int code);

    std::array<char, key_codes> down_{};
    int held_ = 0, acts_at_ = 0;  // the key that went down last, and the 500 Hz tick at which it acts again
};

}  // namespace nubo
