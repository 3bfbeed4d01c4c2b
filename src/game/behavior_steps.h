#pragma once
// The small steps that behaviours are made of.
#include "state/actors.h"
#include <cmath>
#include <cstdint>
#include <numbers>

namespace nubo {

/// One run off a count; true when that was the last.
inline bool counts_out(ActorWord<std::int16_t>& count) { return (count -= 1) <= 0; }

/// True when `timer` has seen `runs` runs, not counting this one; it starts anew then.
inline bool has_waited(ActorWord<std::int16_t>& timer, int runs) {
    if (timer < runs) return timer += 1, false;
    timer = 0;
    return true;
}

/// Turns an angle; it stays within 0 to 255.
template <typename Angle> void turn_by(Angle& angle, int step) { angle = (angle + step) & (circle_steps - 1); }

inline double turn_of(int angle) { return angle * 2 * std::numbers::pi / circle_steps; }

/// `amplitude` times the sine of an angle.
inline int rounded_sine(int angle, int amplitude) {
    return static_cast<int>(std::lround(amplitude * std::sin(turn_of(angle))));
}

/// Sum and difference that turn over like the words that they go to.
constexpr int wrapped_sum(int a, int b) {
    return static_cast<int>(static_cast<unsigned>(a) + static_cast<unsigned>(b));
}
constexpr int wrapped_difference(int a, int b) {
    return static_cast<int>(static_cast<unsigned>(a) - static_cast<unsigned>(b));
}

}  // namespace nubo
