#pragma once
// Actors: what moves or fades on its own, driven by the behaviours in its four slots. The editor's one actor is the
// screen tint, and these are the fields that it needs. A row is free while its `Type` is 0.
#include "state/shared.h"
#include <array>

namespace nubo {

inline constexpr int actor_count = 50, behavior_slots = 4, behavior_params = 10;
inline constexpr int actor_first = 0,
                     actor_last = actor_count - 1;  // these two are protected: never handed out or freed
inline constexpr int actor_none = -1, forever = -1;

enum ActorType : int { ACTOR_FREE = 0, ACTOR_SPRITE = 12, ACTOR_PROTECTED = 99, ACTOR_TINT = 666 };
enum ActorMode : int { ACTOR_HIDDEN = 0, ACTOR_DRAWN = 1 };
enum Profession : int { PROFESSION_NONE = -1, PROFESSION_ELEMENT = 206, PROFESSION_TINT = 666 };
enum Behavior : int { BEHAVIOR_NONE = 0, BEHAVIOR_PALETTE_CONTROL = 22 };

namespace actor {
inline constinit std::array<Shared<int>, actor_count> Type{};  // an ActorType
inline constinit std::array<Shared<int>, actor_count> Mode{};  // an ActorMode
inline constinit auto Profession = filled<Shared<int>, actor_count>(nubo::PROFESSION_NONE);
inline constinit std::array<Shared<int>, actor_count> Frame_x{}, Frame_y{};       // cel in the actor's sheet
inline constinit std::array<Shared<int>, actor_count> Psuedo{};                   // set by all spawners
inline constinit auto Self_Destruct = filled<Shared<int>, actor_count>(forever);  // behaviour ticks left to live

/// `[who][slot]`, of each of the four behaviours. BEHAVIOR is written last, with release, and read first, with acquire.
template <typename T> using SlotColumn = std::array<std::array<T, behavior_slots>, actor_count>;
inline constinit SlotColumn<Shared<int>> BEHAVIOR{};        // a Behavior
inline constinit SlotColumn<Shared<int>> Behavior_delay{};  // ticks of 140 Hz to skip between two runs
inline constinit SlotColumn<Shared<int>> Behavior_accum{};  // ticks counted since the last run
inline constinit SlotColumn<std::array<Shared<int>, behavior_params>> Behavior_param{};
inline constinit SlotColumn<Shared<int>> Kill_on_end{};  // the actor goes when this slot's behaviour ends
}  // namespace actor

}  // namespace nubo
