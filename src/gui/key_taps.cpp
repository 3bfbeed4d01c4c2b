#include "gui/key_taps.h"

#include "state/run.h"

namespace nubo {

KeyTaps::KeyTaps() {
    for (int code = 0; code < key_codes; ++code) down_[at(code)] = key_down[at(code)];
}

bool KeyTaps::repeats(int code) {
    constexpr int next_repeat = clock_hz / 12;
    if (code != held_ || UA_wait_ticks - acts_at_ < 0) return false;
    acts_at_ = UA_wait_ticks + next_repeat;
    return true;
}

int KeyTaps::take() {
    constexpr int first_repeat = clock_hz / 2;
    int acting = 0;
    for (int code = 1; code < key_codes; ++code) {
        const char before = down_[at(code)];
        down_[at(code)] = key_down[at(code)];
        if (down_[at(code)] == 0) {
            if (code == held_) held_ = 0;
        } else if (before == 0) {
            acting = held_ = code;
            acts_at_ = UA_wait_ticks + first_repeat;
        } else if (acting == 0 && repeats(code)) {
            acting = code;
        }
    }
    return acting;
}

}  // namespace nubo
