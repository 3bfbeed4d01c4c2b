// The Cel on a 2048 x 2048 Frame: pastes beside a filled box of the same ink, CLIP beside one read of the Frame, TURN's
// commit beside its sprite call, and the preview of a Cel that floats.
#include "base/random.h"
#include "paint/cel_clean.h"
#include "paint/cel_paste.h"
#include "paint/cel_pixels.h"
#include "paint/stroke.h"
#include "paint/surfaces.h"
#include "paint/undo.h"
#include "state/cel.h"
#include "state/colors.h"
#include "state/options.h"
#include "state/run.h"
#include "state/shown.h"
#include "state/stroke.h"
#include "state/tools.h"
#include <benchmark/benchmark.h>
#include <cstdlib>
#include <cstring>

namespace nubo {
namespace {

constexpr int side = 2048;

void fill_with_noise(BITMAP* bitmap) {
    random_first.seed(1U);
    for (int y = 0; y < bitmap->h; ++y)
        for (int x = 0; x < bitmap->w; ++x) *pixels_at(bitmap, x, y) = random_first.next() & 0xffffff;
}

/// A Frame and a Cel of noise, the Cel as large as the Frame unless told, and undo saved.
void begin(Ink ink, int cel_side = side) {
    if (current_frame == nullptr || frame_w != side)
        if (!adopt_frame(make_bitmap(side, side))) std::abort();
    fill_with_noise(current_frame);
    if (cel == nullptr || cel->w != cel_side) take_cel(make_bitmap(cel_side, cel_side));
    fill_with_noise(cel_mask);
    ink_slots[0] = ink;
    active_ink_slot = 0;
    ink_option(ink, OPTION_STRENGTH) = 160;
    brush_color = 0x3080c0;
    cel_place = {.x = 0, .y = 0, .x2 = 32, .y2 = 0, .mode = CEL_PASTE};
    prepare_cel();
    if (!save_undo(false)) std::abort();
    clear_stroke_mask();
    replace_bitmap(overlay, make_bitmap(view_w, view_h, transparent_color));
    replace_bitmap(stripe_pattern, make_bitmap(64, 64, 0xffffff));
}

template <typename Work> void measure(benchmark::State& state, Work work) {
    for (auto _ : state) {
        state.PauseTiming();
        clear_stroke_mask();
        state.ResumeTiming();
        work();
        benchmark::ClobberMemory();
    }
    state.SetBytesProcessed(state.iterations() * side * side * static_cast<std::int64_t>(sizeof(Color)));
}

void cel_memcpy(benchmark::State& state) {
    begin(INK_OPAQUE);
    measure(state, [] {
        for (int y = 0; y < side; ++y)
            std::memcpy(pixels_at(current_frame, 0, y), pixels_at(cel, 0, y), side * sizeof(Color));
    });
}

void cel_paste(benchmark::State& state, Ink ink) {
    begin(ink);
    measure(state, [] { paste_by_ink(cel, 0, 0, active_ink()); });
}

void cel_box(benchmark::State& state, Ink ink) {
    begin(ink);
    measure(state, [ink] {
        for (int y = 0; y < side; ++y) stamp_row(0, side - 1, y, ink, brush_color);
    });
}

void cel_below(benchmark::State& state) {
    begin(INK_OPAQUE);
    mask_color = 0x406080;
    clear_to_color(current_frame, static_cast<int>(mask_color));
    for (auto _ : state) {
        paste_under_frame(cel_mask, current_frame, mask_color, 0, 0, true);
        state.PauseTiming();
        clear_to_color(current_frame, static_cast<int>(mask_color));
        state.ResumeTiming();
    }
    mask_color = 0;
}

/// The Frame of CLIP: near the background all over but for one pixel in the middle.
BITMAP* clip_picture() {
    static BITMAP* const picture = [] {
        BITMAP* const made = make_bitmap(2 * side, 2 * side, 0x101010).release();
        for (int i = 0; i < 4 * side * side; i += 3) *pixels_at(made, i % (2 * side), i / (2 * side)) = 0x121012;
        *pixels_at(made, side, side) = 0xffffff;
        return made;
    }();
    return picture;
}

void cel_clip(benchmark::State& state) {
    BITMAP* const picture = clip_picture();
    for (auto _ : state) benchmark::DoNotOptimize(content_area(picture, 0x101010, 5));
}

void cel_one_read(benchmark::State& state) {
    BITMAP* const picture = clip_picture();
    for (auto _ : state) {
        Color sum = 0;
        for (int y = 0; y < picture->h; ++y) {
            const Color* const row = pixels_at(picture, 0, y);
            for (int x = 0; x < picture->w; ++x) sum |= row[x];
        }
        benchmark::DoNotOptimize(sum);
    }
}

constexpr int turned_side = 1400, middle = side / 2;  // turned by 45 degrees it just fits

void cel_turn_commit(benchmark::State& state) {
    begin(INK_OPAQUE, turned_side);
    for (auto _ : state) {
        state.PauseTiming();
        if (!take_step()) std::abort();
        state.ResumeTiming();
        cel_place = {.x = middle, .y = middle, .x2 = 32, .mode = CEL_TURN};
        if (!commit_cel(CEL_TURN, UNDO_IS_TAKEN)) std::abort();
    }
}

/// The sprite call and the paste alone, on bitmaps that are there.
void cel_turn_limit(benchmark::State& state) {
    begin(INK_OPAQUE, turned_side);
    for (auto _ : state) {
        const OwnedBitmap scratch = make_bitmap(2 * turned_side / 2 * 3 / 2, side, transparent_color);
        pivot_scaled_sprite(scratch.get(), cel, middle, middle, turned_side / 2, turned_side / 2, itofix(32),
                            itofix(1));
        clear_stroke_mask();
        paste_by_ink(scratch.get(), 0, 0, active_ink());
    }
}

/// What the quality CLEAN works out once the hand rests, of `colors` colours: few of them cost most.
void cel_clean(benchmark::State& state, int colors) {
    constexpr int clean_side = 512, reach = 363;
    begin(INK_OPAQUE, clean_side);
    for (int i = 0; i < clean_side * clean_side; ++i)
        *pixels_at(cel, i % clean_side, i / clean_side) %= static_cast<Color>(colors);
    cel_place = {.mode = CEL_TURN, .degrees = 30};
    Color sum = 0;
    for (auto _ : state)
        put_turned(reach, reach, {0, 0, 2 * reach - 1, 2 * reach - 1},
                   [&sum](const Color* row, int, int, int) { sum ^= row[reach]; });
    benchmark::DoNotOptimize(sum);
    cel_place = {};
}

void cel_preview(benchmark::State& state, CelMode mode, int size) {
    begin(INK_OPAQUE, size);
    shown = {};
    shown.pan_x = size / 3;
    shown.pan_y = size / 3;
    for (auto _ : state) {
        cel_place = {.x = mode == CEL_TURN ? size / 2 : 0, .y = mode == CEL_TURN ? size / 2 : 0, .mode = mode};
        cel_place.x2 = mode == CEL_TURN ? 20 : 3 * size / 2;
        cel_place.y2 = 4 * size / 3;
        clear_to_color(overlay, static_cast<int>(transparent_color));
        draw_cel(mode);
    }
    cel_place = {};
}

BENCHMARK(cel_memcpy)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(cel_paste, opaque, INK_OPAQUE)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(cel_box, glass, INK_GLASS)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(cel_paste, glass, INK_GLASS)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(cel_box, add, INK_ADD)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(cel_paste, add, INK_ADD)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(cel_box, xor, INK_XOR)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(cel_paste, xor, INK_XOR)->Unit(benchmark::kMillisecond);
BENCHMARK(cel_below)->Unit(benchmark::kMillisecond);
BENCHMARK(cel_one_read)->Unit(benchmark::kMillisecond);
BENCHMARK(cel_clip)->Unit(benchmark::kMillisecond);
BENCHMARK(cel_turn_limit)->Unit(benchmark::kMillisecond);
BENCHMARK(cel_turn_commit)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(cel_clean, two_colors, 2)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(cel_clean, noise, 1 << 24)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(cel_preview, paste, CEL_PASTE, 2 * side)->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(cel_preview, turn, CEL_TURN, 2 * side)->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(cel_preview, stretch, CEL_STRETCH, 2 * side)->Unit(benchmark::kMicrosecond);

}  // namespace
}  // namespace nubo
