// Behaviours that move an actor by whole pixels.
#include "base/random.h"
#include "game/behavior_steps.h"
#include "game/behaviors.h"
#include <algorithm>

namespace nubo {
namespace {

struct Step {
    int dx, dy;
};

void move(const BehaviorRun& run, Step step) {
    actor::Pos_x[run.who] += static_cast<std::int16_t>(step.dx);
    actor::Pos_y[run.who] += static_cast<std::int16_t>(step.dy);
}

// ---- The slide -----------------------------------------------------------------------------------------------------

enum SlideWay : int { SLIDE_RESTS = 0, SLIDE_OUT = 1, SLIDE_BACK = -1 };
struct SlideStage {
    int waits;  // runs before it
    SlideWay way;
};
/// Four pixels out and four back; the tenth stage is the pause between two slides.
constexpr std::array<SlideStage, 9> slide_stages{{{0, SLIDE_OUT},
                                                  {1, SLIDE_OUT},
                                                  {2, SLIDE_OUT},
                                                  {3, SLIDE_OUT},
                                                  {3, SLIDE_RESTS},
                                                  {3, SLIDE_BACK},
                                                  {2, SLIDE_BACK},
                                                  {1, SLIDE_BACK},
                                                  {0, SLIDE_BACK}}};
constexpr std::array<Step, 4> slide_directions{{{0, -1}, {1, 0}, {0, 1}, {-1, 0}}};

// ---- Straight on ---------------------------------------------------------------------------------------------------

void move_straight(const BehaviorRun& run, bool ends_animation) {
    enum { DX, DY, COUNT };
    move(run, {run.param[DX], run.param[DY]});
    if (!counts_out(run.param[COUNT])) return;
    if (ends_animation) run.end_others(BEHAVIOR_ANIMATE);
    run.end();
}

}  // namespace

void BE_float(const BehaviorRun& run) {
    enum { BASE, PHASE, AMPLITUDE, STEP };
    auto& p = run.param;
    actor::Pos_z[run.who] = p[BASE] + rounded_sine(p[PHASE], p[AMPLITUDE]);
    turn_by(p[PHASE], p[STEP] == 0 ? 1 : p[STEP]);
}

void BE_riser(const BehaviorRun& run) {
    enum { COUNT, STEP };
    actor::Pos_z[run.who] += run.param[STEP];
    if (counts_out(run.param[COUNT])) run.end();
}

void BE_slide_unit(const BehaviorRun& run) {
    enum { DIRECTION, STAGE, STAGE_TIMER, REPEATS, PAUSE, PAUSE_TIMER };
    auto& p = run.param;
    const std::size_t stage = at(std::max<int>(p[STAGE], 0));
    if (stage < slide_stages.size()) {
        if (!has_waited(p[STAGE_TIMER], slide_stages[stage].waits)) return;
        const auto [dx, dy] = slide_directions[at(p[DIRECTION] & 3)];
        move(run, {dx * slide_stages[stage].way, dy * slide_stages[stage].way});
        p[STAGE] = static_cast<std::int16_t>(stage + 1);
    } else if (p[REPEATS] <= 1) {
        run.end();
    } else if (has_waited(p[PAUSE_TIMER], p[PAUSE])) {
        p[REPEATS] -= 1;
        p[STAGE] = 0;
    }
}

void BE_jitter(const BehaviorRun& run) {
    enum { X, Y, COUNT = 3 };
    static constexpr std::array<Step, 8> neighbours{
        {{-1, -1}, {0, -1}, {1, -1}, {-1, 0}, {1, 0}, {-1, 1}, {0, 1}, {1, 1}}};
    const auto [dx, dy] = neighbours[at(UA_random_b(neighbours.size()))];
    actor::Pos_x[run.who] = run.param[X] + dx;
    actor::Pos_y[run.who] = run.param[Y] + dy;
    if (counts_out(run.param[COUNT])) run.end();
}

void BE_slide_rotate(const BehaviorRun& run) {
    enum { STEP };
    constexpr int up_at = 6, down_at = 134, lift = 2;
    turn_by(actor::Sprite_angle[run.who], run.param[STEP]);
    const int angle = actor::Sprite_angle[run.who];
    const int rise = angle == up_at ? lift : angle == down_at ? -lift : 0;
    actor::Pos_y[run.who] -= static_cast<std::int16_t>(rise);
    actor::Pos_z[run.who] += static_cast<std::int16_t>(rise);
}

void BE_linear_move(const BehaviorRun& run) { move_straight(run, actor::Move_stops_anim[run.who]); }

void BE_linear_move_kill_anim(const BehaviorRun& run) { move_straight(run, true); }

}  // namespace nubo
