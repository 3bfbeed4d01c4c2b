#pragma once
// Speech bubbles: each hangs over an actor, prints its text letter by letter and is closed by the timer. Both flows may
// open one and read it.
#include "state/shared.h"
#include <array>
#include <cstdint>

namespace nubo {

inline constexpr int bubble_count = 32, bubble_first = 1;  // rows; the lowest one is never handed out
inline constexpr int bubble_none = -1;
inline constexpr int bubble_letters = 1500, bubble_lines = 255, bubble_tints = 10;  // what a row has room for
inline constexpr int bubble_free = -1, bubble_taken = -2;  // owners of a free row and of one that is being filled
inline constexpr int bubble_forever = -1;                  // a hold without end

enum BubbleState : int { BUBBLE_OPENS, BUBBLE_PRINTS, BUBBLE_HOLDS, BUBBLE_CLOSES };

namespace bubble {
template <typename T, std::size_t N> using Columns = std::array<std::array<Shared<T>, N>, bubble_count>;

/// An actor, or one of the two words above. Written last, with release, and read first, with acquire.
inline constinit auto owner = filled<Shared<int>, bubble_count>(bubble_free);
inline constinit std::array<Shared<int>, bubble_count> state{};         // a BubbleState
inline constinit std::array<Shared<int>, bubble_count> hold{};          // 45 Hz ticks left of BUBBLE_HOLDS
inline constinit std::array<Shared<int>, bubble_count> w{}, h{};        // pixels
inline constinit std::array<Shared<int>, bubble_count> shown_h{};       // pixels, up to 8 above `h`
inline constinit std::array<Shared<int>, bubble_count> shown{};         // letters printed so far
inline constinit std::array<Shared<int>, bubble_count> letter_count{};  // of all lines
inline constinit std::array<Shared<int>, bubble_count> line_count{};

/// `[row][letter]`, of all lines one behind the other, without the blanks at which lines are wrapped.
inline constinit Columns<char, bubble_letters> letters{};
inline constinit Columns<std::uint8_t, bubble_letters> color_row{};   // of `text_colors`
inline constinit Columns<std::uint8_t, bubble_letters> brightness{};  // 31, of a letter just printed, to 255
/// `[row][line]`.
inline constinit Columns<std::int16_t, bubble_lines> line_start{};  // the line's first letter
inline constinit Columns<std::uint8_t, bubble_tints> tint{};        // 0 to 99; lines beyond have none
}  // namespace bubble

}  // namespace nubo
