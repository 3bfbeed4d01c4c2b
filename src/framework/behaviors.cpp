// Behaviours, the tick that runs them, and the one that the editor has: the screen tint.
#include "base/log.h"
#include "framework/actors.h"
#include "framework/traps.h"
#include "state/colors.h"
#include "state/run.h"

namespace nubo {
namespace {

enum TintParam : std::size_t { TINT_RED, TINT_GREEN, TINT_BLUE, TINT_TARGET, TINT_STEP };

bool is_actor(int who) { return who >= 0 && who < actor_count; }

/// Counts an actor's life down.
void age_actor(int who) {
    auto& left = actor::Self_Destruct[static_cast<std::size_t>(who)];
    if (left != forever && (left -= 1) < 1) UA_destroy_actor(who, "UA_behavior_handler");
}

/// True when a slot's delay is over; a free slot's is never.
bool is_due(std::size_t who, std::size_t slot) {
    if (actor::BEHAVIOR[who][slot].acquire() == BEHAVIOR_NONE) return false;
    auto& accum = actor::Behavior_accum[who][slot];
    if ((accum += 1) <= actor::Behavior_delay[who][slot]) return false;
    accum = 0;
    return true;
}

}  // namespace

int get_free_behavior(int who) {
    if (!is_actor(who)) {
        UA_log("[ ERROR ] : WHO parameter OOB in call to get_free_behavior()! who = %d", who);
        return -1;
    }
    for (int slot = 0; slot < behavior_slots; ++slot)
        if (actor::BEHAVIOR[static_cast<std::size_t>(who)][static_cast<std::size_t>(slot)] == BEHAVIOR_NONE)
            return slot;
    return -1;
}

int check_behavior(int who, Behavior behavior) {
    if (!is_actor(who)) {
        UA_log("[ ERROR ] : WHO parameter OOB in call to check_behavior()! who = %d", who);
        return 0;
    }
    for (int slot = behavior_slots - 1; slot >= 0; --slot)
        if (actor::BEHAVIOR[static_cast<std::size_t>(who)][static_cast<std::size_t>(slot)] == behavior) return slot;
    return -1;
}

void BE_clear_behavior(int who, int slot) {
    if (!UA_check_who_slot(who, slot, "BE_clear_behavior()!")) return;
    const std::size_t w = at(who), s = at(slot);
    actor::BEHAVIOR[w][s] = BEHAVIOR_NONE;
    actor::Behavior_delay[w][s] = 0;
    actor::Behavior_accum[w][s] = 0;
    for (auto& param : actor::Behavior_param[w][s]) param = 0;
    if (actor::Kill_on_end[w][s]) UA_destroy_actor(who, "BE_clear_behavior");
}

/// Moves the screen's tint toward a strength: red, green, blue, strength, step. It ends when the strength is reached
/// with moves to spare; with a step below 1 it only sets the colour, and stays.
static void BE_palette_control(int who, int slot) {
    if (!UA_check_who_slot(who, slot, "BE_palette_control()!")) return;
    const auto& param = actor::Behavior_param[static_cast<std::size_t>(who)][static_cast<std::size_t>(slot)];
    tint_r = param[TINT_RED];
    tint_g = param[TINT_GREEN];
    tint_b = param[TINT_BLUE];
    const int target = param[TINT_TARGET], step = param[TINT_STEP];
    if (step < 1) return;
    for (int moves = 0; moves < step; ++moves) {
        const int strength = tint_strength;
        if (strength == target) {
            BE_clear_behavior(who, slot);
            return;
        }
        tint_strength = strength < target ? strength + 1 : strength - 1;
    }
}

int UA_check_behaviors(int who, int slot) {
    if (!UA_check_who_slot(who, slot, "UA_check_behaviors")) return 0;
    if (actor::BEHAVIOR[at(who)][at(slot)].acquire() == BEHAVIOR_PALETTE_CONTROL) BE_palette_control(who, slot);
    return 0;
}

void UA_behavior_handler() {
    if (handlers_locked != 0) return;
    for (int who = 0; who < actor_count; ++who) {
        age_actor(who);
        for (int slot = 0; slot < behavior_slots; ++slot)
            if (is_due(static_cast<std::size_t>(who), static_cast<std::size_t>(slot))) UA_check_behaviors(who, slot);
    }
}

}  // namespace nubo
