// A screen full of actors, against blits of as many cels; a step of a ripple, against copying the screen.
#include "base/bitmap.h"
#include "base/random.h"
#include "game/actors.h"
#include "game/draw_actors.h"
#include "game/ripples.h"
#include "game/screen_effects.h"
#include "state/effects.h"
#include "state/resources.h"

#include <benchmark/benchmark.h>

namespace nubo {
namespace {

constexpr int sprites = 48, cel_side = 32;

/// 48 sprites of a random cel, three quarters of it filled, side by side on the screen.
void make_sprites() {
    replace_bitmap(screen_buffer, make_bitmap(view_w, view_h));
    replace_bitmap(actor_sheet, make_bitmap(cel_side, cel_side, transparent_color));
    for (int i = 0; i < cel_side * cel_side; ++i)
        if (UA_random(4) != 0)
            *pixels_at(actor_sheet, i % cel_side, i / cel_side) = static_cast<Color>(UA_random(1 << 16));
    create_effect_bitmaps();
    UA_initialize_actors();
    for (int i = 0; i < sprites; ++i) {
        const int who = UA_spawn_blank_element(0, 0);
        actor::Pos_x[at(who)] = static_cast<std::int16_t>(i % 8 * 38);
        actor::Pos_y[at(who)] = static_cast<std::int16_t>(i / 8 * 38);
        draw_list[at(i)] = who;
    }
}

enum SpriteKind : int { SPRITES_PLAIN, SPRITES_TRANSLUCENT, SPRITES_TURNED, SPRITES_WAVED, SPRITES_OUTLINED };

void dress(std::size_t who, int kind) {
    constexpr int outline = 10;
    if (kind == SPRITES_TRANSLUCENT) {
        actor::Mode[who] = ACTOR_TRANSLUCENT;
        actor::Opacity[who] = 100;
    }
    if (kind == SPRITES_TURNED) {
        actor::Rotation_Mode[who] = ROTATION_BY_ANGLE;
        actor::Sprite_angle[who] = 20;
    }
    if (kind == SPRITES_WAVED)
        for (const int entry : {wave_horizontal, wave_vertical}) {
            actor::Wave[who][at(entry)].frequency = 10;
            actor::Wave[who][at(entry)].amplitude = 6;
        }
    if (kind == SPRITES_OUTLINED) actor::Effect_mode[who] = outline;
}

/// The argument is a SpriteKind.
void BM_Sprites(benchmark::State& state) {
    make_sprites();
    for (int i = 0; i < sprites; ++i) dress(at(draw_list[at(i)]), static_cast<int>(state.range(0)));
    for (auto _ : state) {
        UA_snapshot_actors();
        UA_draw_actors(0);
    }
}
BENCHMARK(BM_Sprites)->DenseRange(SPRITES_PLAIN, SPRITES_OUTLINED)->Unit(benchmark::kMicrosecond);

/// The plain limit.
void BM_MaskedBlits(benchmark::State& state) {
    make_sprites();
    for (auto _ : state)
        for (int i = 0; i < sprites; ++i)
            masked_blit(actor_sheet, screen_buffer, 0, 0, i % 8 * 38, i / 8 * 38, cel_side, cel_side);
}
BENCHMARK(BM_MaskedBlits)->Unit(benchmark::kMicrosecond);

/// The snapshot that each picture of the editor takes, with the tint's row taken at most.
void BM_SnapshotOfNone(benchmark::State& state) {
    UA_initialize_actors();
    for (auto _ : state) UA_snapshot_actors();
}
BENCHMARK(BM_SnapshotOfNone)->Unit(benchmark::kNanosecond);

/// A ripple in full swing: the drop has spread over the field.
void BM_RippleStep(benchmark::State& state) {
    constexpr int spread = 150;  // steps
    replace_bitmap(screen_buffer, make_bitmap(view_w, view_h));
    create_effect_bitmaps();
    for (auto& active : ripple::active) active = 0;
    const int slot = UA_add_ripple(view_w / 2, view_h / 2);
    for (int i = 0; i < spread; ++i) UA_step_ripple(slot);
    for (auto _ : state) {
        ripple::active[at(slot)] = 1;
        UA_step_ripple(slot);
    }
}
BENCHMARK(BM_RippleStep)->Unit(benchmark::kMicrosecond);

void BM_ScreenCopy(benchmark::State& state) {
    replace_bitmap(screen_buffer, make_bitmap(view_w, view_h));
    const OwnedBitmap copy = make_bitmap(view_w, view_h);
    for (auto _ : state) {
        blit(screen_buffer, copy.get(), 0, 0, 0, 0, view_w, view_h);
        benchmark::ClobberMemory();
    }
}
BENCHMARK(BM_ScreenCopy)->Unit(benchmark::kMicrosecond);

}  // namespace
}  // namespace nubo
