// Behaviours of discs, polygons, particles and plasma.
#include "base/log.h"
#include "base/random.h"
#include "game/behavior_steps.h"
#include "game/behaviors.h"
#include <algorithm>
#include <climits>
#include <cstdlib>
#include <span>

namespace nubo {
namespace {

// ---- Particles -----------------------------------------------------------------------------------------------------

/// A random place within so many pixels to either side, in 10000ths.
int place_within(int pixels) {
    const int reach = std::clamp(pixels, 0, INT_MAX / fine_per_pixel);
    return (UA_random_b(2 * reach + 1) - reach) * fine_per_pixel;
}

/// A random number from 0 to `most`.
int random_up_to(int most) { return UA_random_b(std::min(most, INT_MAX - 1) + 1); }

void restart_particle(std::size_t who, ParticleWords& particle) {
    particle.x = place_within(actor::Particle_spread_x[who]);
    particle.y = place_within(actor::Particle_spread_y[who]);
    particle.speed = random_up_to(actor::Particle_rest[who]);
    particle.age = 0;
    particle.life = wrapped_sum(actor::Particle_life[who], random_up_to(actor::Particle_life_spread[who]));
}

/// The particles of an actor, at most those that its table holds.
std::span<ParticleWords> particles_of(std::size_t who) {
    const int total = actor::Particle_total[who];
    if (total > particles_max) {
        UA_log("[ ERROR ] : Number of particles owned by an object is greater than max! part.total = %d", total);
        actor::Particle_total[who] = particles_max;  // told once, not 140 times a second
    }
    return std::span(actor::Particle[who]).first(at(std::clamp(total, 0, particles_max)));
}

// ---- Plasma --------------------------------------------------------------------------------------------------------

constexpr int heat_least = 10, heat_kinds = 10;  // 10 to 19

void cool_cells(std::size_t who) {
    const int loss = std::max<int>(actor::Plasma_cooling[who], 1);
    for (auto& row : actor::Plasma_cells[who])
        for (auto& cell : row)
            if (cell != cell_cold) cell = cell > loss ? cell - loss : cell_cold;
}

void feed_bottom_row(std::size_t who) {
    auto& bottom = actor::Plasma_cells[who].back();
    const int feeds = std::min<int>(actor::Plasma_feeds[who], plasma_side);
    for (int i = 0; i < feeds; ++i) bottom[at(UA_random_b(plasma_side))] = heat_least + UA_random_b(heat_kinds);
}

void shift_cells_up(std::size_t who) {
    auto& cells = actor::Plasma_cells[who];
    std::copy(cells.begin() + 1, cells.end(), cells.begin());
    for (auto& cell : cells.back()) cell = cell_cold;
}

/// How high each column reaches, for who draws them.
void measure_columns(std::size_t who) {
    const auto& cells = actor::Plasma_cells[who];
    for (std::size_t column = 0; column < plasma_side; ++column) {
        const auto top =
            std::find_if(cells.begin(), cells.end(), [&](const auto& row) { return row[column] != cell_cold; });
        actor::Plasma_height[who][column] = static_cast<int>(cells.end() - top);
    }
}

// ---- Turns ---------------------------------------------------------------------------------------------------------

/// The shorter way round from one angle to the other.
int angle_between(int a, int b) {
    const int way = (a - b) & (circle_steps - 1);
    return std::min(way, circle_steps - way);
}

}  // namespace

void BE_expander(const BehaviorRun& run) {
    enum { SHRINKS, STEP, COUNT };
    const int step = run.param[SHRINKS] == 0 ? run.param[STEP] : -run.param[STEP];
    actor::Diameter[run.who] += static_cast<std::int16_t>(step);
    if (counts_out(run.param[COUNT])) run.end();
}

void BE_particle(const BehaviorRun& run) {
    const double heading = turn_of(actor::Angle[run.who]);
    const int dx = static_cast<int>(std::lround(std::sin(heading) * fine_per_pixel));
    const int dy = static_cast<int>(std::lround(std::cos(heading) * fine_per_pixel));
    for (ParticleWords& particle : particles_of(run.who)) {
        if (particle.age >= particle.life) {
            restart_particle(run.who, particle);
            continue;
        }
        if (particle.age % (std::clamp<int>(particle.speed, 0, INT_MAX - 1) + 1) == 0) {
            particle.x = wrapped_sum(particle.x, dx);
            particle.y = wrapped_sum(particle.y, dy);
        }
        particle.age += 1;
    }
}

void BE_plasma(const BehaviorRun& run) {
    enum { COOL_TIMER, FEED_TIMER, SHIFT_TIMER };
    if (has_waited(run.param[COOL_TIMER], actor::Plasma_cool_period[run.who])) cool_cells(run.who);
    if (has_waited(run.param[FEED_TIMER], actor::Plasma_feed_period[run.who])) feed_bottom_row(run.who);
    if (has_waited(run.param[SHIFT_TIMER], actor::Plasma_shift_period[run.who])) shift_cells_up(run.who);
    measure_columns(run.who);
}

void BE_splash(const BehaviorRun& run) {
    enum { FAST_RUNS, SLOW_RUNS, SHRINKING_RUNS, STAGE };
    enum { STAGE_FAST, STAGE_SLOW, STAGE_SHRINKS };
    auto& p = run.param;
    auto& diameter = actor::Plasma_diameter[run.who];
    const int growth = actor::Plasma_growth[run.who];
    if (p[STAGE] == STAGE_FAST) {
        diameter = wrapped_sum(diameter, wrapped_sum(growth, growth));
        if (counts_out(p[FAST_RUNS])) p[STAGE] = STAGE_SLOW;
    } else if (p[STAGE] == STAGE_SLOW) {
        diameter = wrapped_sum(diameter, growth);
        if (counts_out(p[SLOW_RUNS])) p[STAGE] = STAGE_SHRINKS;
    } else {
        p[SHRINKING_RUNS] += 1;
        const int before = diameter, decay = std::max<int>(actor::Plasma_decay[run.who], 1);
        diameter = wrapped_difference(before, decay);
        if (before < decay) run.end();
    }
}

void BE_rotate(const BehaviorRun& run) {
    enum { STEP, OF_HEADING, STOP };
    const int step = run.param[STEP], stop = run.param[STOP];
    Shared<std::int16_t>&sprite_angle = actor::Sprite_angle[run.who], &heading = actor::Angle[run.who];
    auto& angle = run.param[OF_HEADING] == 0 ? sprite_angle : heading;
    turn_by(angle, step);
    if (stop == 0 || angle_between(angle, stop) >= std::abs(step)) return;
    actor::Rotation_Mode[run.who] = ROTATION_NONE;
    run.end();
}

void BE_poly_diameter_pulse(const BehaviorRun& run) {
    enum { HALF_PERIOD, COUNTER, SHRINKS };
    auto& p = run.param;
    actor::Diameter[run.who] += static_cast<std::int16_t>(p[SHRINKS] == 0 ? 1 : -1);
    if ((p[COUNTER] += 1) < p[HALF_PERIOD]) return;
    p[COUNTER] = 0;
    p[SHRINKS] = p[SHRINKS] == 0 ? 1 : 0;
}

void BE_bloom_control(const BehaviorRun& run) {
    enum { X, Y, W_RATE, H_RATE, W, H };
    constexpr int tenths = 10;
    auto& p = run.param;
    p[W] -= static_cast<std::int16_t>(p[W_RATE] / tenths);
    p[H] -= static_cast<std::int16_t>(p[H_RATE] / tenths);
    const bool is_gone = p[W] <= 0 || p[H] <= 0;
    bloom_x = is_gone ? -1 : p[X];
    bloom_y = is_gone ? -1 : p[Y];
    bloom_w = is_gone ? -1 : p[W] / tenths;
    bloom_h = is_gone ? -1 : p[H] / tenths;
    if (is_gone) run.end();
}

}  // namespace nubo
