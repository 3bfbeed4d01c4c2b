// The behaviour tick, the snapshot and the end of an actor, against copying an actor's bytes; and what the table takes.
#include "game/actor_fields.h"
#include "game/actors.h"
#include "state/drawn_actors.h"
#include "state/run.h"

#include <benchmark/benchmark.h>
#include <cstring>
#include <vector>

namespace nubo {
namespace {

std::size_t table_bytes() {
    std::size_t bytes = sizeof actor::Type + sizeof actor::BEHAVIOR;
    const auto add = [&](const auto& column) { bytes += sizeof column; };
    visit_template_fields(add);
    visit_further_fields(add);
    visit_list_fields(add);
    return bytes;
}

/// 48 actors, each with four behaviours of the costlier kinds, none of which ends.
void make_crowd() {
    UA_initialize_actors();
    handlers_locked = 0;
    for (int i = 0; i < actor_count - 2; ++i) {
        const std::size_t who = at(UA_spawn_blank_element(0, 0));
        const std::array behaviors{BEHAVIOR_FLOAT, BEHAVIOR_PARTICLE, BEHAVIOR_VECTOR_MOVEMENT_THRESHOLD,
                                   BEHAVIOR_MODIFY_VARIABLE};
        actor::Particle_total[who] = 8;
        actor::Particle_life[who] = 40;
        actor::Behavior_param[who][2][7] = 1;
        actor::Behavior_param[who][3][0] = 40;
        for (std::size_t slot = 0; slot < behavior_slots; ++slot) actor::BEHAVIOR[who][slot] = behaviors[slot];
    }
}

void empty_tick(benchmark::State& state) {
    UA_initialize_actors();
    handlers_locked = 0;
    for (auto _ : state) UA_behavior_handler();
}
BENCHMARK(empty_tick);

void crowded_tick(benchmark::State& state) {
    make_crowd();
    for (auto _ : state) UA_behavior_handler();
}
BENCHMARK(crowded_tick);

void empty_snapshot(benchmark::State& state) {
    UA_initialize_actors();
    for (auto _ : state) UA_snapshot_actors();
}
BENCHMARK(empty_snapshot);

void crowded_snapshot(benchmark::State& state) {
    make_crowd();
    for (auto _ : state) UA_snapshot_actors();
}
BENCHMARK(crowded_snapshot);

void destroyed_actor(benchmark::State& state) {
    UA_initialize_actors();
    for (auto _ : state) {
        actor::Type[1] = ACTOR_SPRITE;
        UA_destroy_actor(1, "a bench");
    }
    state.counters["table bytes"] = static_cast<double>(table_bytes());
}
BENCHMARK(destroyed_actor);

/// The costliest: its long lists hold something, at their far ends.
void destroyed_full_actor(benchmark::State& state) {
    UA_initialize_actors();
    for (auto _ : state) {
        actor::Type[1] = ACTOR_SPRITE;
        actor::Move_queue[1].back().z = 1;
        actor::Particle[1].back().life = 1;
        actor::Vertex_radius[1].back() = 1;
        actor::Plasma_cells[1].back().back() = 1;
        UA_destroy_actor(1, "a bench");
    }
}
BENCHMARK(destroyed_full_actor);

/// The limit of both: the fields are read and compared.
void copied_actor(benchmark::State& state) {
    const std::size_t bytes = table_bytes() / actor_count;
    std::vector<char> from(bytes, 1), to(bytes);
    for (auto _ : state) {
        std::memcpy(to.data(), from.data(), bytes);
        benchmark::DoNotOptimize(to.data());
        benchmark::ClobberMemory();
    }
}
BENCHMARK(copied_actor);

}  // namespace
}  // namespace nubo
