// Behaviours that walk along an actor's lists of cels.
#include "game/actors.h"
#include "game/behaviors.h"
#include <algorithm>

namespace nubo {
namespace {

void end_walk(const BehaviorRun& run, std::span<AnimCel> cels) {
    std::fill(cels.begin(), cels.end(), AnimCel{});
    run.end();
}

/// Goes on to the next cel when this one has had its runs, and shows where it stands. A list whose first cel has no
/// runs is a picture that stands.
void walk(const BehaviorRun& run, std::span<AnimCel> cels) {
    auto& ticks = run.param[ANIM_TICKS];
    std::size_t cel = at(run.param[ANIM_CEL]);
    if (cel >= cels.size()) cel = 0;
    if (cels[0].delay != 0 && (ticks += 1) >= cels[cel].delay) {
        ticks = 0;
        cel = cel + 1 == cels.size() ? 0 : cel + 1;
        if (cels[cel].frame_x == cels_end) return end_walk(run, cels);
        if (cels[cel].frame_x >= cels_loop) cel = 0;
    }
    run.param[ANIM_CEL] = static_cast<std::int16_t>(cel);
    if (cels[cel].frame_x >= cels_loop) return;  // a list that is nothing but its end
    actor::Frame_x[run.who] = cels[cel].frame_x;
    actor::Frame_y[run.who] = cels[cel].frame_y;
}

}  // namespace

void BE_animate(const BehaviorRun& run) {
    if (run.param[ANIM_CEL] >= 0) return walk(run, actor::Anim_cels[run.who]);
    if ((run.param[ANIM_CEL] += 1) == 0) run.end_others(BEHAVIOR_ANIMATE);
}

void BE_delayed_animation(const BehaviorRun& run) {
    enum { COUNTDOWN = 2 };
    if ((run.param[COUNTDOWN] -= 1) > 0) return;
    run.end_others(BEHAVIOR_ANIMATE);
    run.end();
}

void BE_standing_animation(const BehaviorRun& run) {
    const int who = static_cast<int>(run.who);
    if (check_behavior(who, BEHAVIOR_ANIMATE) >= 0 || check_behavior(who, BEHAVIOR_LINEAR_MOVE_KILL_ANIM) >= 0) return;
    if (run.param[ANIM_CEL] >= 0) return walk(run, actor::Idle_cels[run.who]);
    run.param[ANIM_CEL] += 1;
}

}  // namespace nubo
