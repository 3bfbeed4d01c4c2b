// Behaviours that move an actor by its velocity, in 10000ths of a pixel.
#include "game/behavior_steps.h"
#include "game/behaviors.h"
#include <algorithm>
#include <cstdlib>

namespace nubo {
namespace {

using FineColumn = ActorColumn<std::int32_t>;
using PosColumn = ActorColumn<std::int16_t>;

struct Axis {
    FineColumn* fine;
    FineColumn* velocity;
    PosColumn* pos;
};
constexpr int axis_count = 3, z_axis = 2, gravity = 100;
constexpr std::array<Axis, axis_count> axes{{{&actor::Fine_x, &actor::Vel_x, &actor::Pos_x},
                                             {&actor::Fine_y, &actor::Vel_y, &actor::Pos_y},
                                             {&actor::Fine_z, &actor::Vel_z, &actor::Pos_z}}};

void add_to(ActorWord<std::int32_t>& word, int step) { word = wrapped_sum(word, step); }

void show_place(std::size_t who) {
    for (const Axis& axis : axes) (*axis.pos)[who] = (*axis.fine)[who] / fine_per_pixel;
}

/// A step of a flight: a positive `Vel_z` falls.
void fly(std::size_t who) {
    add_to(actor::Fine_x[who], actor::Vel_x[who]);
    add_to(actor::Fine_y[who], actor::Vel_y[who]);
    actor::Fine_z[who] = wrapped_difference(actor::Fine_z[who], actor::Vel_z[who]);
}

// ---- The threshold -------------------------------------------------------------------------------------------------

constexpr int whole_way = 100;  // percent
constexpr double slower = 0.75;

/// Slows an axis down that has passed the threshold and stops it on its target. True when it has passed, which one that
/// had no way to go never does.
bool check_axis(std::size_t who, const Axis& axis, int from, int to, int threshold) {
    const int way = std::abs(to - from), passed = std::abs((*axis.pos)[who] - from);
    const int covered = way == 0 ? whole_way : passed * whole_way / way;
    if (covered < threshold) return false;
    (*axis.velocity)[who] = static_cast<int>((*axis.velocity)[who] * slower);
    if (covered >= whole_way) {
        (*axis.fine)[who] = to * fine_per_pixel;
        (*axis.pos)[who] = to;
    }
    return way != 0;
}

/// Halfway to 100, and from 99 all of it: on a long way an axis would else starve a pixel before its target.
int next_threshold(int threshold) {
    return threshold >= whole_way ? threshold : threshold + std::max((whole_way - threshold) / 2, 1);
}

// ---- Acceleration --------------------------------------------------------------------------------------------------

/// The velocity that follows on `before` when `step` is added; with `rests` an axis at rest, or about to turn, stays
/// so.
int accelerated(int before, int step, bool rests) {
    const int after = wrapped_sum(before, step);
    const bool keeps_its_way = (before > 0 && after > 0) || (before < 0 && after < 0);
    return rests && !keeps_its_way ? 0 : after;
}

}  // namespace

void BE_projectile(const BehaviorRun& run) {
    enum { LIFE, COUNTER, GRAVITY };
    fly(run.who);
    if (run.param[GRAVITY] != 0) add_to(actor::Vel_z[run.who], gravity);
    show_place(run.who);
    if ((run.param[COUNTER] += 1) >= run.param[LIFE]) run.end();
}

void BE_vector_movement_threshold(const BehaviorRun& run) {
    enum { FROM = 0, TO = 3, THRESHOLD = 6, CHECKS = 7 };
    auto& p = run.param;
    fly(run.who);
    show_place(run.who);
    for (int check = 0; check < p[CHECKS]; ++check) {
        const int threshold = p[THRESHOLD];
        bool is_passed = false;
        for (std::size_t i = 0; i < axis_count; ++i)
            is_passed = check_axis(run.who, axes[i], p[FROM + i], p[TO + i], threshold) || is_passed;
        if (is_passed) p[THRESHOLD] = next_threshold(threshold);
    }
}

void BE_vector_movement(const BehaviorRun& run) {
    enum { LIFE, ACCELERATION, RESTS = 4, DELAY, GRAVITY, SUB_STEPS };
    auto& p = run.param;
    const bool accelerates = p[DELAY] <= 0;
    if (!accelerates) p[DELAY] -= 1;
    for (int step = 0; step < p[SUB_STEPS]; ++step)
        for (std::size_t i = 0; i < axis_count; ++i) {
            auto& velocity = (*axes[i].velocity)[run.who];
            add_to((*axes[i].fine)[run.who], velocity);
            const int added = (accelerates ? p[ACCELERATION + i] : 0) + (i == z_axis && p[GRAVITY] != 0 ? gravity : 0);
            velocity = accelerated(velocity, added, p[RESTS] != 0);
        }
    show_place(run.who);
    if (counts_out(p[LIFE])) run.end();
}

}  // namespace nubo
