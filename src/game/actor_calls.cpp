// Calls that give an actor something to do: fades, ways to a place, animations.
#include "base/log.h"
#include "base/random.h"
#include "framework/traps.h"
#include "game/actors.h"
#include "game/behaviors.h"
#include <algorithm>
#include <cstdlib>

namespace nubo {
namespace {

constexpr std::size_t triple = 3;

/// The list without its spare entry, and what runs it.
struct CelsOf {
    std::span<AnimCel> cels;
    Behavior behavior;
};
CelsOf cels_of(int who, int list) {
    if (list == CELS_IDLE) return {actor::Idle_cels[at(who)], BEHAVIOR_STANDING_ANIMATION};
    return {actor::Anim_cels[at(who)], BEHAVIOR_ANIMATE};
}

bool is_animated_actor(int who, const char* error) {
    if (UA_trap_object(who)) return true;
    UA_log(error);
    return false;
}

/// The share of `speed` that belongs to one axis, with its sign.
int axis_speed(int speed, int distance, int longest) {
    return longest == 0 ? 0 : static_cast<int>(std::int64_t{speed} * distance / longest);
}

}  // namespace

int UA_fade_actor(int who, int up, int step, int delay) {
    constexpr int first_opacity = 1;
    const int slot = get_free_behavior(who);
    if (slot < 0) {
        UA_log("[ ERROR ] : Couldn't locate free behavior when fading actor!");
        return -1;
    }
    const std::size_t w = at(who), s = at(slot);
    actor::Opacity[w] = up != 0 ? first_opacity : opacity_max;
    actor::Mode[w] = ACTOR_TRANSLUCENT;
    actor::Behavior_param[w][s][0] = up != 0 ? step : -step;
    actor::Behavior_delay[w][s] = delay;
    actor::Behavior_accum[w][s] = 0;
    actor::BEHAVIOR[w][s].publish(BEHAVIOR_TRUE_FADE);
    return slot;
}

void vector_move_threshold(int who, int x, int y, int z, int speed, int delay, int threshold) {
    if (who < 0 || who >= actor_count) {
        UA_log("[ ERROR ] : slot OOB in call to vector_move_threshold()!");
        UA_log("[ STATS ] : slot = %d", who);
        return;
    }
    constexpr std::size_t slot = 1;
    constexpr int checks_a_run = 1;
    const std::size_t w = at(who);
    const int from_x = actor::Pos_x[w], from_y = actor::Pos_y[w], from_z = actor::Pos_z[w];
    const int longest = std::max({std::abs(x - from_x), std::abs(y - from_y), std::abs(z - from_z)});
    actor::BEHAVIOR[w][slot] = BEHAVIOR_NONE;  // what ran there must not run on the parameters of this one
    actor::Fine_x[w] = from_x * fine_per_pixel;
    actor::Fine_y[w] = from_y * fine_per_pixel;
    actor::Fine_z[w] = from_z * fine_per_pixel;
    actor::Vel_x[w] = axis_speed(speed, x - from_x, longest);
    actor::Vel_y[w] = axis_speed(speed, y - from_y, longest);
    actor::Vel_z[w] = axis_speed(speed, from_z - z, longest);  // the behaviour takes it off the height
    const std::array params{from_x, from_y, from_z, x, y, z, threshold, checks_a_run};
    for (std::size_t i = 0; i < params.size(); ++i) actor::Behavior_param[w][slot][i] = params[i];
    actor::Behavior_delay[w][slot] = delay;
    actor::Behavior_accum[w][slot] = 0;
    actor::BEHAVIOR[w][slot].publish(BEHAVIOR_VECTOR_MOVEMENT_THRESHOLD);
}

void UA_store_cels(int who, int list, int looped, std::span<const int> triples) {
    if (!is_animated_actor(who, "[ ERROR ] : Invalid actor # passed to UA_store_anim()")) return;
    const std::span<AnimCel> cels = cels_of(who, list).cels;
    const std::size_t count = triples.size() / triple;
    if (count >= cels.size()) {
        UA_log("[ WARNING] : Too many animation cels passed to store_anim!");
        return;
    }
    for (std::size_t i = 0; i < count; ++i) {
        const auto given = triples.subspan(i * triple, triple);
        if (given[0] == -1) continue;
        cels[i].frame_x = given[0];
        cels[i].frame_y = given[1];
        cels[i].delay = given[2];
    }
    cels[count] = AnimCel{};
    cels[count].frame_x = looped == 1 ? cels_loop : cels_end;
}

void UA_randomize_anim(int who, int list) {
    if (!is_animated_actor(who, "[ ERROR ] : Invalid actor # passed to UA_randomize_anim()")) return;
    const auto [cels, behavior] = cels_of(who, list);
    const auto mark =
        std::find_if(cels.begin(), cels.end(), [](const AnimCel& cel) { return cel.frame_x >= cels_loop; });
    const int slot = check_behavior(who, behavior);
    if (slot < 0 || mark == cels.begin()) return;
    auto& param = actor::Behavior_param[at(who)][at(slot)];
    param[ANIM_TICKS] = 0;
    param[ANIM_CEL] = UA_random_b(static_cast<int>(mark - cels.begin()));
}

}  // namespace nubo
