#include "framework/actors.h"

#include "base/log.h"
#include "framework/bubbles.h"

namespace nubo {
namespace {

std::size_t row(int who) { return static_cast<std::size_t>(who); }

/// Why an actor may not be destroyed; null when it may.
const char* destroy_refusal(int who) {
    if (who == actor_first) return "[ ERROR ] : A process tried to destroy object (0) -- this object is protected!";
    if (who == actor_last) return "[ ERROR ] : A process tried to destroy object (MAX-1) -- this object is protected!";
    if (who < 0) return "[ ERROR ] : A process tried to destroy an object less than 0!";
    if (who >= actor_count) return "[ ERROR ] : A process tried to destroy an object greater than maximum!";
    return nullptr;
}

void reset_actor(std::size_t who) {
    // The numbers of the behaviours go first, so that the handler doesn't run one on fields half reset.
    for (std::size_t slot = 0; slot < behavior_slots; ++slot) {
        actor::BEHAVIOR[who][slot] = BEHAVIOR_NONE;
        actor::Behavior_delay[who][slot] = 0;
        actor::Behavior_accum[who][slot] = 0;
        actor::Kill_on_end[who][slot] = 0;
        for (Shared<int>& param : actor::Behavior_param[who][slot]) param = 0;
    }
    actor::Type[who] = ACTOR_FREE;
    actor::Mode[who] = ACTOR_HIDDEN;
    actor::Profession[who] = PROFESSION_NONE;
    actor::Frame_x[who] = 0;
    actor::Frame_y[who] = 0;
    actor::Psuedo[who] = 0;
    actor::Self_Destruct[who] = forever;
}

}  // namespace

void UA_initialize_actors() {
    for (int who = 0; who < actor_count; ++who) reset_actor(row(who));
    actor::Type[actor_first] = ACTOR_PROTECTED;
}

int UA_grab_object() {
    for (int who = actor_first + 1; who < actor_last; ++who)
        if (actor::Type[row(who)] == ACTOR_FREE) return who;
    UA_log("[ ERROR ] : Attempted to grab object, but none available!");
    return actor_none;
}

int UA_spawn_blank_element(int frame_x, int frame_y) {
    const int who = UA_grab_object();
    if (who == actor_none) {
        UA_log("ERROR: No free actors while spawning generic element! slot = %d", who);
        return actor_none;
    }
    UA_destroy_actor(who, "UA_spawn_blank_element");
    actor::Frame_x[row(who)] = frame_x;
    actor::Frame_y[row(who)] = frame_y;
    actor::Mode[row(who)] = ACTOR_DRAWN;
    actor::Psuedo[row(who)] = 1;
    actor::Type[row(who)] = ACTOR_SPRITE;
    actor::Profession[row(who)] = PROFESSION_ELEMENT;
    return who;
}

void UA_destroy_actor(int who, const char* tag) {
    const char* const refusal = destroy_refusal(who);
    if (refusal == nullptr) {
        reset_actor(row(who));
        UA_free_bubbles(who);
        return;
    }
    UA_log(refusal);
    UA_log("[ REFER ] : %s", tag);
}

int UA_count_actors() {
    int count = 0;
    for (const Shared<int>& type : actor::Type) count += type != ACTOR_FREE ? 1 : 0;
    return count;
}

}  // namespace nubo
