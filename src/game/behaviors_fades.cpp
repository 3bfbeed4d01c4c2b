// Behaviours that change how an actor, or the screen, is lit.
#include "game/behavior_steps.h"
#include "game/behaviors.h"
#include "game/waves.h"
#include "state/colors.h"
#include <algorithm>

namespace nubo {
namespace {

void turn_translucent(std::size_t who) {
    if (actor::Mode[who] == ACTOR_DRAWN) actor::Mode[who] = ACTOR_TRANSLUCENT;
}

void end_with_mode(const BehaviorRun& run, ActorMode mode) {
    actor::Mode[run.who] = mode;
    run.end();
}

void end_glow(const BehaviorRun& run) {
    actor::Glow_col[run.who] = actor::Glow_row[run.who] = glow_none;
    run.end_others(BEHAVIOR_GLOW_CYCLE);
    run.end();
}

}  // namespace

void BE_fade(const BehaviorRun& run) {
    enum { LEVEL, DOWN };
    constexpr int gone = 14;
    const bool is_up = run.param[DOWN] == 0;
    const int level = run.param[LEVEL] += static_cast<std::int16_t>(is_up ? 1 : -1);
    if (is_up && level >= gone) return end_with_mode(run, ACTOR_HIDDEN);
    if (!is_up && level < 0) return run.end();
    actor::Opacity[run.who] = level;
    turn_translucent(run.who);
}

void BE_index_fade(const BehaviorRun& run) {
    enum { UP, STEP, COUNT, TARGET };
    enum { TARGET_COLOR, TARGET_OPACITY, TARGET_COLOR_ALPHA };
    const int step = run.param[UP] == 0 ? -run.param[STEP] : run.param[STEP];
    const auto fade = [&](auto& column) { column[run.who] = std::clamp(column[run.who] + step, 0, opacity_max); };
    if (run.param[TARGET] == TARGET_COLOR) fade(actor::Color);
    if (run.param[TARGET] == TARGET_OPACITY) actor::Opacity[run.who] += static_cast<std::int16_t>(step);
    if (run.param[TARGET] == TARGET_COLOR_ALPHA) fade(actor::Color_alpha);
    if (counts_out(run.param[COUNT])) run.end();
}

void BE_palette_control(const BehaviorRun& run) {
    enum { RED, GREEN, BLUE, TARGET, STEP };
    tint_r = run.param[RED];
    tint_g = run.param[GREEN];
    tint_b = run.param[BLUE];
    const int target = run.param[TARGET], step = run.param[STEP];
    for (int moves = 0; moves < step; ++moves) {
        const int strength = tint_strength;
        if (strength == target) return run.end();
        tint_strength = strength < target ? strength + 1 : strength - 1;
    }
}

void BE_flash_fade_in_out(const BehaviorRun& run) {
    enum { LEVEL, STAGE, TIMER, HOLD };
    enum { STAGE_RISES, STAGE_HOLDS, STAGE_FLASHES };
    constexpr int step = 11, brightest = 255, flash_first = 2, flash_last = 13;
    constexpr int frequency = 8, amplitude = 6, rate = 8, delay = 0;  // of the waves
    auto& p = run.param;
    const int who = static_cast<int>(run.who);
    if (p[STAGE] == STAGE_RISES) {
        p[LEVEL] = std::min(p[LEVEL] + step, brightest);
        actor::Opacity[run.who] = p[LEVEL];
        if (p[LEVEL] == brightest) p[STAGE] = STAGE_HOLDS;
    } else if (p[STAGE] == STAGE_HOLDS) {
        if (!has_waited(p[TIMER], p[HOLD])) return;
        UA_set_wave_h(who, -1, frequency, amplitude, rate, delay);
        UA_set_wave_v(who, -1, frequency, amplitude, rate, delay);
        p[STAGE] = STAGE_FLASHES;
    } else {
        if ((p[TIMER] += 1) > flash_first) actor::Opacity[run.who] = p[TIMER];
        if (p[TIMER] > flash_last) run.end();
    }
}

void BE_blink(const BehaviorRun& run) {
    auto& mode = actor::Mode[run.who];
    if (mode == ACTOR_DRAWN)
        mode = ACTOR_HIDDEN;
    else if (mode == ACTOR_HIDDEN)
        mode = ACTOR_DRAWN;
}

void BE_glow_fade(const BehaviorRun& run) {
    enum { LEVEL, STAGE, FLOOR, HOLDS };
    enum { STAGE_RISES, STAGE_FALLS, STAGE_HOLDS };
    auto& p = run.param;
    if (p[STAGE] == STAGE_HOLDS) {
        if (counts_out(p[HOLDS])) p[STAGE] = STAGE_RISES;
        return;
    }
    const bool is_rising = p[STAGE] == STAGE_RISES;
    const int level = std::clamp(p[LEVEL] + (is_rising ? 1 : -1), 0, glow_brightest);
    actor::Glow_phase[run.who] = p[LEVEL] = level;
    if (is_rising && level == glow_brightest) return end_glow(run);
    if (!is_rising && level <= std::max<int>(p[FLOOR], 0)) p[STAGE] = STAGE_HOLDS;
}

void BE_glow_cycle(const BehaviorRun& run) {
    enum { BACK };
    auto& frame = actor::Glow_frame[run.who];
    frame = (frame + (run.param[BACK] == 0 ? 1 : -1)) & (glow_frames - 1);
}

void BE_white_fade(const BehaviorRun& run) {
    enum { LEVEL, DOWN, STEP };
    constexpr int brightest = 255;
    const int level = run.param[LEVEL] + (run.param[DOWN] == 0 ? run.param[STEP] : -run.param[STEP]);
    if (level < 0 || level > brightest) return end_with_mode(run, ACTOR_DRAWN);
    actor::Opacity[run.who] = run.param[LEVEL] = level;
    actor::Mode[run.who] = ACTOR_WHITE_FADE;
}

void BE_true_fade(const BehaviorRun& run) {
    enum { CHANGE };
    constexpr int full = 255;
    const int opacity = actor::Opacity[run.who] + run.param[CHANGE];
    actor::Opacity[run.who] = std::clamp(opacity, 0, opacity_max);
    turn_translucent(run.who);
    if (opacity <= 0) return end_with_mode(run, ACTOR_HIDDEN);
    if (opacity >= full) end_with_mode(run, ACTOR_DRAWN);
}

void BE_toggle_mode(const BehaviorRun& run) {
    enum { STAYS };
    auto& mode = actor::Mode[run.who];
    mode = mode == ACTOR_DRAWN ? ACTOR_HIDDEN : ACTOR_DRAWN;
    if (run.param[STAYS] == 0) run.end();
}

}  // namespace nubo
