#pragma once
// Picture effects of the framework: which actors are drawn in which order, ripples, fog, and the bitmaps that they work
// in. The editor draws no actor and none of these.
#include "state/actors.h"
#include "state/run.h"
#include "state/shared.h"
#include <array>
#include <cstdint>

namespace nubo {

// ---- Actors --------------------------------------------------------------------------------------------------------

/// The actors in the order in which they are drawn, the farthest first; `actor_none` in an entry without one. Filled by
/// who shows them, before each `UA_draw_actors`.
inline constinit auto draw_list = filled<int, actor_count>(actor_none);

// ---- Ripples -------------------------------------------------------------------------------------------------------

inline constexpr int ripple_count = 3, ripple_none = -1;
/// The heights of a ripple, `[row][column]`, one for each pixel of a field as large as the screen.
using RippleField = std::array<std::array<std::int32_t, view_w>, view_h>;

/// `active` is written last, with release. The script tick counts, the main flow does the rest.
namespace ripple {
inline constinit std::array<Shared<int>, ripple_count> ready{};         // the script tick has seen the time run out
inline constinit std::array<Shared<int>, ripple_count> active{};        // the ripple runs
inline constinit std::array<Shared<int>, ripple_count> limit{};         // 100 Hz ticks between two steps
inline constinit std::array<Shared<int>, ripple_count> counter{};       // those counted since the last one
inline constinit std::array<int, ripple_count> origin_x{}, origin_y{};  // screen place of the field's corner
inline constinit std::array<int, ripple_count> front{}, back{};         // which field is which, 0 or 1
inline constinit std::array<int, ripple_count> damping{};               // a shift
inline constinit std::array<std::array<RippleField, 2>, ripple_count> height{};  // memory only once one was added
}  // namespace ripple

// ---- Fog -----------------------------------------------------------------------------------------------------------

inline constexpr int fog_w = 320, fog_h = 200;
inline constexpr int fog_densities = 331;     // from 1: what the fog may be
inline constinit Shared<int> fog_on = 0;      // set and cleared by `BE_control_fog`
inline constinit BITMAP* fog_mask = nullptr;  // fog_w x fog_h, values 1 to 255, drawn by job 8

// ---- Work bitmaps, made with the screen's --------------------------------------------------------------------------

inline constexpr int sprite_scratch_w = 80, sprite_scratch_h = 64;
inline constexpr int letter_scratch_w = 32, letter_scratch_h = 15;
inline constinit BITMAP* sprite_scratch = nullptr;   // one actor's picture on its way to the screen
inline constinit BITMAP* letter_scratch = nullptr;   // one letter, before it is posed
inline constinit BITMAP* polygon_scratch = nullptr;  // 2x2, then as large as the largest polygon drawn
inline constinit BITMAP* ripple_scratch = nullptr;   // 2x2, then the screen as it was before a ripple's step

}  // namespace nubo
