#pragma once
// The lists of an actor: waves, cels, way points, a polygon's outline, particles and plasma. `[who][entry]`.
#include "state/actors.h"

namespace nubo {

inline constexpr int actor_waves = 4, anim_cels = 32, idle_cels = 16, way_points = 256, actor_vertices = 64;
inline constexpr int particles_max = 128, plasma_side = 32;
inline constexpr int wave_horizontal = 0, wave_vertical = 1;  // entries of `Wave`
inline constexpr int cels_loop = 99, cels_end = 999;          // `frame_x` of the entry behind the last cel
inline constexpr int cell_cold = 255;                         // of `Plasma_cells`: nothing is there

/// Each row or column is moved by amplitude * cosine of (frequency * its number + phase), 256ths.
struct WaveWords {
    ActorWord<std::int16_t> frequency, amplitude, phase;
    bool operator==(const WaveWords&) const = default;
};
struct AnimCel {
    ActorWord<std::int16_t> frame_x, frame_y, delay;  // runs of the behaviour
    bool operator==(const AnimCel&) const = default;
};
struct WayPoint {
    ActorWord<std::int16_t, -1> x, y, z;
    bool operator==(const WayPoint&) const = default;
};
struct ParticleWords {
    ActorWord<std::int32_t> x, y;       // from the actor's place, 10000ths of a pixel
    ActorWord<std::int32_t> speed;      // runs that it rests between two steps of a pixel
    ActorWord<std::int32_t> age, life;  // runs
    bool operator==(const ParticleWords&) const = default;
};

namespace actor {
template <typename T, int entries> using ListColumn = std::array<std::array<T, entries>, actor_count>;

inline constinit ListColumn<WaveWords, actor_waves> Wave{};
/// One entry more than the list holds, for the mark behind a full one.
inline constinit ListColumn<AnimCel, anim_cels + 1> Anim_cels{};                       // of `BE_animate`
inline constinit ListColumn<AnimCel, idle_cels + 1> Idle_cels{};                       // of `BE_standing_animation`
inline constinit ListColumn<WayPoint, way_points> Move_queue{};                        // of the game
inline constinit ListColumn<ActorWord<std::int32_t>, actor_vertices> Vertex_angle{};   // 256ths
inline constinit ListColumn<ActorWord<std::int32_t>, actor_vertices> Vertex_radius{};  // hundredths of `Diameter`
inline constinit ListColumn<ParticleWords, particles_max> Particle{};
inline constinit ListColumn<ActorWord<std::int32_t>, plasma_side> Plasma_height{};  // cells from the bottom to the top
/// `[who][row][column]`: heat, the top row first, or `cell_cold`.
inline constinit std::array<std::array<std::array<ActorWord<std::uint8_t, cell_cold>, plasma_side>, plasma_side>,
                            actor_count>
    Plasma_cells{};
}  // namespace actor

}  // namespace nubo
