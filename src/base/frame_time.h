#pragma once
// How long a Frame of an animation stands: as a span of time, and as the byte that the Workspace keeps of it.
#include <algorithm>
#include <cstdint>

namespace nubo {

/// `numerator` / `denominator` seconds, each 1 to 65535.
struct FrameTime {
    std::int64_t numerator = 1, denominator = 1;

    /// In parts of a second, rounded; of two as near the longer.
    constexpr std::int64_t in_parts(int parts) const {
        return (2 * numerator * parts + denominator) / (2 * denominator);
    }
    constexpr bool operator==(const FrameTime& other) const {
        return numerator * other.denominator == other.numerator * denominator;
    }
};

// ---- The byte of a Frame's time ------------------------------------------------------------------------------------
// 0 the Workspace's speed, 1 to 100 hundredths of a second, from there on steps of six hundredths.

inline constexpr int animation_speed_min = 1, animation_speed_max = 60;  // frames a second
inline constexpr int time_by_speed = 0, time_fine_max = 100, time_max = 255, time_coarse_step = 6;

constexpr int hundredths_of_time(int time) {
    return time <= time_fine_max ? time : time_fine_max + (time - time_fine_max) * time_coarse_step;
}

constexpr FrameTime frame_time(int time, int speed) {
    return time == time_by_speed ? FrameTime{1, speed} : FrameTime{hundredths_of_time(time), 100};
}

/// The byte whose time is nearest; never 0, the shortest is a hundredth.
constexpr int nearest_time(FrameTime span) {
    const auto hundredths = static_cast<int>(span.in_parts(100));
    if (hundredths <= time_fine_max) return std::max(hundredths, 1);
    const int steps = (hundredths - time_fine_max + time_coarse_step / 2) / time_coarse_step;
    return std::min(time_fine_max + steps, time_max);
}

}  // namespace nubo
