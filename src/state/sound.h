#pragma once
// Samples that are in memory. The editor has none; the two volumes stand with the options that are stored.
#include "state/shared.h"
#include <array>

struct SAMPLE;

namespace nubo {

inline constexpr int sample_slots = 100;
enum SampleState : int { SAMPLE_EMPTY = -1, SAMPLE_LOADED = 1 };

namespace sound {
inline constinit std::array<SAMPLE*, sample_slots> sample{};  // null in an empty slot; lives to the end
inline constinit auto valid = filled<Shared<int>, sample_slots>(SAMPLE_EMPTY);
inline constinit std::array<float, sample_slots> gain{};          // a cut from 0 to 1 of the effects volume
inline constinit std::array<Shared<int>, sample_slots> played{};  // sounded since the last 5 Hz tick
}  // namespace sound

}  // namespace nubo
