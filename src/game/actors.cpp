#include "game/actors.h"

#include "base/log.h"
#include "base/random.h"
#include "framework/traps.h"
#include "game/actor_fields.h"
#include "game/bubbles.h"
#include "game/scripts.h"
#include "state/flow.h"
#include "state/run.h"

namespace nubo {
namespace {

/// Why an actor may not be destroyed; null when it may.
const char* destroy_refusal(int who) {
    if (who < 0) return "[ ERROR ] : A process tried to destroy an object less than 0!";
    if (who >= actor_count) return "[ ERROR ] : A process tried to destroy an object greater than maximum!";
    if (Init_sweep) return nullptr;
    if (who == actor_first) return "[ ERROR ] : A process tried to destroy object (0) -- this object is protected!";
    if (who == actor_last) return "[ ERROR ] : A process tried to destroy object (MAX-1) -- this object is protected!";
    return nullptr;
}

template <typename Field> constinit const Field clean_field{};

/// Gives a field its reset value, which most hold.
template <typename Field> void reset_field(Field& field) {
    if (!(field == clean_field<Field>)) field = clean_field<Field>;
}

void reset_fields(std::size_t who, bool with_lists) {
    // The numbers of the behaviours go first, so that the handler doesn't run one on fields half reset.
    for (auto& behavior : actor::BEHAVIOR[who]) behavior = BEHAVIOR_NONE;
    const auto reset = [who](auto& column) { reset_field(column[who]); };
    visit_template_fields(reset);
    visit_further_fields(reset);
    if (with_lists) visit_list_fields(reset);
}

/// Rows that were handed out. The lists of others are as they were built, and aren't looked at: the start would wait
/// for their memory.
constinit std::array<Shared<bool>, actor_count> has_been_someone{};

/// Resets a row and frees it. It is taken as long as this lasts, so that the other flow doesn't get it half reset; one
/// that was just grabbed stays its spawner's.
void reset_actor(std::size_t who) {
    auto& type = actor::Type[who];
    const std::int16_t held = type;
    const bool is_grabbed = held == ACTOR_CLAIMED && !Init_sweep;
    if (!is_grabbed && !type.claim(held, ACTOR_CLAIMED)) return;  // the other flow has just been here
    reset_fields(who, has_been_someone[who] || (held != ACTOR_FREE && !is_grabbed));
    if (is_grabbed)
        has_been_someone[who] = true;
    else
        type.publish(ACTOR_FREE);
}

bool is_wanted(int value, int wanted) { return wanted == actor_any || value == wanted; }

}  // namespace

void UA_initialize_actors() {
    Init_sweep = true;
    for (auto& element : Pixel_elements) element = actor_none;
    for (int who = 0; who < actor_count; ++who) UA_destroy_actor(who, "UA_initialize_variables");
    actor::Type[actor_first] = ACTOR_PROTECTED;
    Init_sweep = false;
}

int UA_grab_object() {
    for (int who = actor_first + 1; who < actor_last; ++who)
        if (actor::Type[at(who)].claim(ACTOR_FREE, ACTOR_CLAIMED)) return who;
    UA_log("[ ERROR ] : Attempted to grab object, but none available!");
    return actor_none;
}

void UA_destroy_actor(int who, const char* tag) {
    if (const char* const refusal = destroy_refusal(who); refusal != nullptr) {
        UA_log(refusal);
        UA_log("[ REFER ] : %s", tag);
        return;
    }
    const std::size_t w = at(who);
    if (Init_sweep) actor::Suicide_buddy[w] = actor::App_link[w] = -1;
    const auto hook = app_hook::destroyed.acquire();
    if (actor::App_link[w] != -1 && hook != nullptr) hook(who);
    const int buddy = actor::Suicide_buddy[w];
    reset_actor(w);
    if (buddy != actor_none) UA_destroy_actor(buddy, "UA_destroy_actor (recursive)");
    UA_free_bubbles(who);
    UA_end_scripts(who);
}

int UA_destroy_actor_type(int type, int profession) {
    int destroyed = 0;
    for (int who = actor_first + 1; who < actor_count; ++who) {
        if (!is_wanted(actor::Type[at(who)], type) || !is_wanted(actor::Profession[at(who)], profession)) continue;
        UA_destroy_actor(who, "UA_destroy_actor_type");
        destroyed += who != actor_last ? 1 : 0;
    }
    return destroyed;
}

void UA_manually_kill_puppet_suicides(int id) {
    if (id == actor_none) return;  // what all those hold that are no puppets
    for (int who = 0; who < actor_count; ++who)
        if (actor::Puppet_id[at(who)] == id) UA_destroy_actor(who, "UA_manually_kill_puppet_suicides");
}

void GUI_killed_captured_actors(int window) {
    for (int who = 0; who < actor_count; ++who)
        if (actor::Type[at(who)] == ACTOR_LETTER && actor::View_window[at(who)] == window)
            UA_destroy_actor(who, "GUI_killed_captured_actors");
}

int UA_count_actors() {
    int count = 0;
    for (const auto& type : actor::Type) count += type != ACTOR_FREE ? 1 : 0;
    return count;
}

int UA_pick_actor(int type, int profession, int rank) {
    std::array<int, actor_count> found{};
    int count = 0;
    for (int who = actor_first + 1; who < actor_count; ++who)
        if (is_wanted(actor::Type[at(who)], type) && is_wanted(actor::Profession[at(who)], profession) &&
            is_wanted(actor::Rank[at(who)], rank))
            found[at(count++)] = who;
    return count == 0 ? actor_none : found[at(UA_random_b(count))];
}

void pause_for_object(int who) {
    if (!UA_trap_object(who)) {
        UA_log("[ ERROR ] : slot OOB in call to pause_for_object()! slot = %d", who);
        return;
    }
    while (actor::Type[at(who)] != ACTOR_FREE && exit_requested == 0) update_screen(UPDATE_NORMAL);
}

}  // namespace nubo
