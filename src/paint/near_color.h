#pragma once
// `colors_match` for loops over many pixels.
#include "base/color.h"
#include <algorithm>
#include <array>
#include <cstdint>
#include <cstdlib>

namespace nubo {

/// Tells the colours whose components differ from one colour's, each, by less than a tolerance: 1 asks for equality, 0
/// matches nothing. Without a branch, so that a loop tests four pixels in one step.
class NearColor {
public:
    NearColor(Color color, int tolerance)
        : red_(red_of(color)), green_(green_of(color)), blue_(blue_of(color)), tolerance_(tolerance) {}

    bool operator()(Color pixel) const {
        const int red = std::abs(red_ - red_of(pixel)), green = std::abs(green_ - green_of(pixel)),
                  blue = std::abs(blue_ - blue_of(pixel));
        return std::max(std::max(red, green), blue) < tolerance_;
    }

private:
    int red_, green_, blue_, tolerance_;
};

/// Tells whether a whole chunk of pixels matches. Byte by byte, sixteen in one step, where `NearColor` takes four
/// pixels.
class NearChunk {
public:
    static constexpr int pixels = 64;

    NearChunk(Color color, int tolerance) : matches_any_(tolerance > 0) {
        for (std::size_t i = 0; i < bytes; ++i) {
            constexpr int top_byte = 24;
            const int bits = static_cast<int>(i % sizeof(Color)) * 8,
                      component = static_cast<int>(color >> bits & 0xff);
            const bool counts = bits < top_byte;
            lowest_[i] = static_cast<std::uint8_t>(counts ? std::max(component - tolerance + 1, 0) : 0);
            highest_[i] = static_cast<std::uint8_t>(counts ? std::min(component + tolerance - 1, 255) : 255);
        }
    }

    bool operator()(const Color* chunk) const {
        const auto* const byte = reinterpret_cast<const std::uint8_t*>(chunk);
        std::uint8_t moved = 0;  // by being held to the range of what matches
        for (std::size_t i = 0; i < bytes; ++i) {
            const std::uint8_t value = byte[i], lowest = lowest_[i], highest = highest_[i];
            const std::uint8_t raised = value < lowest ? lowest : value;
            moved |= (raised > highest ? highest : raised) ^ value;
        }
        return moved == 0 && matches_any_;
    }

private:
    static constexpr std::size_t bytes = pixels * sizeof(Color);
    std::array<std::uint8_t, bytes> lowest_, highest_;
    bool matches_any_;
};

}  // namespace nubo
