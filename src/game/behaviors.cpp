#include "game/behaviors.h"

#include "base/log.h"
#include "framework/traps.h"
#include "game/actors.h"
#include "state/run.h"
#include <algorithm>

namespace nubo {
namespace {

// ---- The table -----------------------------------------------------------------------------------------------------

struct BehaviorRow {
    Behavior number;
    const char* tag;  // what the log calls it
    void (*run)(const BehaviorRun& run);
    int result = 0;  // of the run: where the walk along the slots goes on behind
};
constexpr int ends_the_turn = behavior_slots + 1;

constexpr std::array<BehaviorRow, 35> behavior_rows{{
    {BEHAVIOR_FLOAT, "BE_float()!", BE_float},
    {BEHAVIOR_ANIMATE, "BE_animate()!", BE_animate},
    {BEHAVIOR_DELAYED_ANIMATION, "BE_delayed_animation)!", BE_delayed_animation},
    {BEHAVIOR_STANDING_ANIMATION, "BE_standing_animation()!", BE_standing_animation},
    {BEHAVIOR_CONTROL_FOG, "BE_control_fog()!", BE_control_fog},
    {BEHAVIOR_FADE, "BE_fade()!", BE_fade},
    {BEHAVIOR_RISER, "BE_riser()!", BE_riser},
    {BEHAVIOR_EXPANDER, "BE_expander()!", BE_expander},
    {BEHAVIOR_PARTICLE, "BE_particle()!", BE_particle},
    {BEHAVIOR_PLASMA, "BE_plasma()!", BE_plasma},
    {BEHAVIOR_SPLASH, "BE_splash()!", BE_splash},
    {BEHAVIOR_INDEX_FADE, "BE_index_fade()!", BE_index_fade},
    {BEHAVIOR_PROJECTILE, "BE_projectile()!", BE_projectile},
    {BEHAVIOR_SPAWN_TRAIL, "BE_spawn_trail()!", BE_spawn_trail},
    {BEHAVIOR_PALETTE_CONTROL, "BE_palette_control()!", BE_palette_control},
    {BEHAVIOR_FLASH_FADE_IN_OUT, "BE_flash_fade_in_out()!", BE_flash_fade_in_out},
    {BEHAVIOR_SLIDE_UNIT, "BE_slide_unit()!", BE_slide_unit},
    {BEHAVIOR_BLINK, "BE_blink()!", BE_blink},
    {BEHAVIOR_JITTER, "BE_jitter()!", BE_jitter},
    {BEHAVIOR_GLOW_FADE, "BE_glow_fade()!", BE_glow_fade},
    {BEHAVIOR_GLOW_CYCLE, "BE_glow_cycle()!", BE_glow_cycle},
    {BEHAVIOR_WHITE_FADE, "BE_white_fade()!", BE_white_fade},
    {BEHAVIOR_ROTATE, "BE_rotate()!", BE_rotate},
    {BEHAVIOR_SLIDE_ROTATE, "BE_slide_rotate()!", BE_slide_rotate},
    {BEHAVIOR_VECTOR_MOVEMENT_THRESHOLD, "BE_vector_movement_threshold()!", BE_vector_movement_threshold},
    {BEHAVIOR_LINEAR_MOVE, "BE_linear_move()!", BE_linear_move},
    {BEHAVIOR_LINEAR_MOVE_KILL_ANIM, "BE_linear_move_kill_anim()!", BE_linear_move_kill_anim},
    {BEHAVIOR_VECTOR_MOVEMENT, "BE_vector_movement()!", BE_vector_movement},
    {BEHAVIOR_POLY_DIAMETER_PULSE, "BE_poly_diameter_pulse()!", BE_poly_diameter_pulse},
    {BEHAVIOR_BLOOM_CONTROL, "BE_bloom_control()!", BE_bloom_control},
    {BEHAVIOR_TRUE_FADE, "BE_true_fade()!", BE_true_fade},
    {BEHAVIOR_FRAMEWORK_EVENT, "BE_framework_event()!", BE_framework_event},
    {BEHAVIOR_TOGGLE_MODE, "BE_toggle_mode()!", BE_toggle_mode},
    {BEHAVIOR_FORCE_PAUSE, "BE_force_pause()!", BE_force_pause, ends_the_turn},
    {BEHAVIOR_MODIFY_VARIABLE, "BE_modify_variable()!", BE_modify_variable},
}};
static_assert(std::is_sorted(behavior_rows.begin(), behavior_rows.end(),
                             [](const BehaviorRow& a, const BehaviorRow& b) { return a.number < b.number; }));

const BehaviorRow* row_of(int number) {
    const auto found = std::lower_bound(behavior_rows.begin(), behavior_rows.end(), number,
                                        [](const BehaviorRow& row, int wanted) { return row.number < wanted; });
    return found != behavior_rows.end() && found->number == number ? &*found : nullptr;
}

// ---- The tick ------------------------------------------------------------------------------------------------------

bool is_actor(int who) { return who >= 0 && who < actor_count; }

/// Counts an actor's life down.
void age_actor(int who) {
    auto& left = actor::Self_Destruct[at(who)];
    if (left != forever && (left -= 1) < 1) UA_destroy_actor(who, "UA_behavior_handler");
}

/// Ends a puppet when the user comes back to the actor under which it was made.
void watch_puppet(int who) {
    const int id = actor::Puppet_id[at(who)];
    auto& state = actor::Puppet_state[at(who)];
    if (id == actor_none) return;
    if (state == PUPPET_WATCHED && id != Controlled_actor) {
        UA_log("Puppet suicide status change! obj= %d", who);
        UA_log("Puppet suicide status tracker = %d", id);
        state = PUPPET_LEFT_ALONE;
    } else if (state == PUPPET_LEFT_ALONE && id == Controlled_actor) {
        UA_log("Puppet suicide activation!");
        actor::Puppet_id[at(who)] = actor_none;  // where the actor is protected this is not tried again
        UA_destroy_actor(who, "UA_behavior_handler");
    }
}

/// True when a slot's delay is over; a free slot's is never.
bool is_due(std::size_t who, std::size_t slot) {
    if (actor::BEHAVIOR[who][slot].acquire() == BEHAVIOR_NONE) return false;
    auto& accum = actor::Behavior_accum[who][slot];
    if ((accum += 1) <= actor::Behavior_delay[who][slot]) return false;
    accum = 0;
    return true;
}

/// Runs a slot; the one that comes next.
int run_slot(int who, int slot) {
    const int result = UA_check_behaviors(who, slot);
    if (result != 0) return result + 1;
    const auto hook = app_hook::behavior_ran.acquire();
    const int wanted = hook != nullptr ? hook(who, slot) : 0;
    return wanted != 0 ? wanted : slot + 1;
}

void run_slots(int who) {
    constexpr int steps_max = 4 * behavior_slots;  // a hook may lead back, but not for ever
    for (int slot = 0, steps = 0; slot >= 0 && slot < behavior_slots && steps < steps_max; ++steps)
        slot = is_due(at(who), at(slot)) ? run_slot(who, slot) : slot + 1;
}

}  // namespace

// ---- Slots ---------------------------------------------------------------------------------------------------------

int get_free_behavior(int who) {
    if (!is_actor(who)) {
        UA_log("[ ERROR ] : WHO parameter OOB in call to get_free_behavior()! who = %d", who);
        return -1;
    }
    for (int slot = 0; slot < behavior_slots; ++slot)
        if (actor::BEHAVIOR[at(who)][at(slot)] == BEHAVIOR_NONE) return slot;
    return -1;
}

int check_behavior(int who, Behavior behavior) {
    if (!is_actor(who)) {
        UA_log("[ ERROR ] : WHO parameter OOB in call to check_behavior()! who = %d", who);
        return 0;
    }
    for (int slot = behavior_slots - 1; slot >= 0; --slot)
        if (actor::BEHAVIOR[at(who)][at(slot)] == behavior) return slot;
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

void BehaviorRun::end() const { BE_clear_behavior(static_cast<int>(who), static_cast<int>(slot)); }

void BehaviorRun::end_others(Behavior behavior) const {
    for (std::size_t other = 0; other < behavior_slots; ++other)
        if (other != slot && actor::BEHAVIOR[who][other] == behavior)
            BE_clear_behavior(static_cast<int>(who), static_cast<int>(other));
}

// ---- Runs ----------------------------------------------------------------------------------------------------------

int run_behavior(int number, int who, int slot) {
    const BehaviorRow* const row = row_of(number);
    if (row == nullptr || !UA_check_who_slot(who, slot, row->tag)) return 0;
    row->run({at(who), at(slot), actor::Behavior_param[at(who)][at(slot)]});
    return row->result;
}

int UA_check_behaviors(int who, int slot) {
    if (!UA_check_who_slot(who, slot, "UA_check_behaviors")) return 0;
    return run_behavior(actor::BEHAVIOR[at(who)][at(slot)].acquire(), who, slot);
}

void UA_behavior_handler() {
    if (handlers_locked != 0) return;
    for (int who = 0; who < actor_count; ++who) {
        age_actor(who);
        watch_puppet(who);
        run_slots(who);
    }
}

}  // namespace nubo
