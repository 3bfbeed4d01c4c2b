// The inks on a 2048 x 2048 Frame of random pixels, against plain copies and fills of the bytes they touch.
#include "base/color.h"
#include "base/random.h"
#include "paint/inks.h"
#include "paint/surfaces.h"
#include "state/cel.h"

#include <allegro.h>
#include <benchmark/benchmark.h>
#include <cmath>
#include <cstdlib>
#include <cstring>
#include <vector>

namespace nubo {
namespace {

constexpr int side = 2048;
constexpr std::int64_t frame_bytes = static_cast<std::int64_t>(side) * side * sizeof(Color);

/// The three surfaces and the Cel, once for all benchmarks.
void make_surfaces() {
    static const bool made = [] {
        random_first.seed(1U);
        OwnedBitmap picture = make_bitmap(side, side);
        if (!picture || !adopt_frame(std::move(picture))) std::abort();
        replace_bitmap(cel_mask, make_bitmap(40, 30, 0x336699));
        return true;
    }();
    benchmark::DoNotOptimize(made);
}

/// Random pixels, or one colour, in the Frame and its snapshot, and options that let every ink act.
void begin_stroke(Ink ink, int strength, bool is_flat) {
    make_surfaces();
    for (int y = 0; y < side; ++y)
        for (int x = 0; x < side; ++x)
            *pixels_at(current_frame, x, y) = is_flat ? 0x406080 : random_first.next() & 0xffffff;
    replace_bitmap(undo_snapshot, copy_bitmap(current_frame));
    ink_options[static_cast<unsigned>(ink)] = {strength, 31, 0, 100, 200, 1500, 1700, 0};
    clear_stroke_mask();
    brush_color = 0x3080c0;
}

void count_pixels(benchmark::State& state) {
    state.counters["pixels"] = benchmark::Counter(
        static_cast<double>(side) * side * static_cast<double>(state.iterations()), benchmark::Counter::kIsRate);
}

/// Every pixel of the Frame by rows of one tip value, in a new stroke each time.
void ink_rows(benchmark::State& state, Ink ink, std::uint8_t tip, bool is_flat = false) {
    begin_stroke(ink, 160, is_flat);
    const bool uses_mask = ink != INK_OPAQUE || tip != 0;
    for (auto _ : state) {
        if (uses_mask) {
            state.PauseTiming();
            clear_stroke_mask();
            state.ResumeTiming();
        }
        for (int y = 0; y < side; ++y) apply_ink_row({0, y, side, &tip, 0}, ink, brush_color);
    }
    count_pixels(state);
}

/// The floor of the inks that read the snapshot and write the Frame and the mask: two copies of a Frame.
void plain_memcpy_of_two_frames(benchmark::State& state) {
    std::vector<char> from(2 * frame_bytes, 1), to(2 * frame_bytes, 2);
    for (auto _ : state) {
        std::memcpy(to.data(), from.data(), from.size());
        benchmark::ClobberMemory();
    }
    count_pixels(state);
}

/// The floor of OPAQUE.
void plain_memset_of_a_frame(benchmark::State& state) {
    std::vector<char> to(frame_bytes, 2);
    for (auto _ : state) {
        std::memset(to.data(), 1, to.size());
        benchmark::ClobberMemory();
    }
    count_pixels(state);
}

/// Stamps of a soft 17 x 15 tip, each on a place of its own.
void soft_stamp(benchmark::State& state, Ink ink) {
    constexpr int tip_w = 17, tip_h = 15;
    begin_stroke(ink, 160, false);
    std::uint8_t tip[tip_h][tip_w];
    for (int y = 0; y < tip_h; ++y)
        for (int x = 0; x < tip_w; ++x)
            tip[y][x] = static_cast<std::uint8_t>(std::min(255.0, std::hypot(x - 8, y - 7) * 25));
    int x = 0, y = 0;
    for (auto _ : state) {
        for (int row = 0; row < tip_h; ++row) apply_ink_row({x, y + row, tip_w, tip[row], 1}, ink, brush_color);
        x += tip_w;
        if (x + tip_w > side) x = 0, y += tip_h;
        if (y + tip_h > side) {
            state.PauseTiming();
            y = 0;
            clear_stroke_mask();
            state.ResumeTiming();
        }
    }
}

constexpr int glow_x = 1000, glow_y = 1000, glow_length = 64, glow_radius = 31;
constexpr Color glow_color = 0x040608;

/// The pixels that a row of glows reaches, as they were before.
void restore_glow_area() {
    blit(stroke_snapshot(), current_frame, glow_x - glow_radius, glow_y - glow_radius, glow_x - glow_radius,
         glow_y - glow_radius, glow_length + 2 * glow_radius, 2 * glow_radius + 1);
    clear_stroke_mask();
}

/// A row of 64 pixels that glow at the greatest radius.
void glow(benchmark::State& state) {
    begin_stroke(INK_GLOW, 255, false);
    const std::uint8_t tip = 0;
    for (auto _ : state) {
        state.PauseTiming();
        restore_glow_area();
        state.ResumeTiming();
        apply_ink_row({glow_x, glow_y, glow_length, &tip, 0}, INK_GLOW, glow_color);
    }
}

/// One pixel's glow by the plain formula: a distance, a weight and three products for each pixel around.
void glow_plainly(int x, int y) {
    for (int dy = -glow_radius; dy <= glow_radius; ++dy)
        for (int dx = -glow_radius; dx <= glow_radius; ++dx) {
            if (!frame_contains(current_frame, x + dx, y + dy)) continue;
            const int d = glow_distance[static_cast<unsigned>(std::abs(dx))][static_cast<unsigned>(std::abs(dy))];
            if (d > glow_radius) continue;
            Color& pixel = *pixels_at(current_frame, x + dx, y + dy);
            if (pixel == fixed_white) continue;
            const double w = 1 - static_cast<double>(d) / (glow_radius + 1);
            pixel = pack_color(clamp_component(w * red_of(glow_color) + red_of(pixel)),
                               clamp_component(w * green_of(glow_color) + green_of(pixel)),
                               clamp_component(w * blue_of(glow_color) + blue_of(pixel)));
        }
}

void plain_glow(benchmark::State& state) {
    begin_stroke(INK_GLOW, 255, false);
    for (auto _ : state) {
        state.PauseTiming();
        restore_glow_area();
        state.ResumeTiming();
        for (int x = glow_x; x < glow_x + glow_length; ++x) glow_plainly(x, glow_y);
    }
}

#define INK_BENCHES(name, ink)                                                                                         \
    BENCHMARK_CAPTURE(ink_rows, name##_hard, ink, 0)->Unit(benchmark::kMillisecond);                                   \
    BENCHMARK_CAPTURE(ink_rows, name##_soft, ink, 90)->Unit(benchmark::kMillisecond)

BENCHMARK(plain_memset_of_a_frame)->Unit(benchmark::kMillisecond);
INK_BENCHES(opaque, INK_OPAQUE);
BENCHMARK(plain_memcpy_of_two_frames)->Unit(benchmark::kMillisecond);
INK_BENCHES(glass, INK_GLASS);
INK_BENCHES(bright, INK_BRIGHT);
INK_BENCHES(dark, INK_DARK);
INK_BENCHES(add, INK_ADD);
INK_BENCHES(sub, INK_SUB);
INK_BENCHES(xor, INK_XOR);
INK_BENCHES(tile, INK_TILE);
INK_BENCHES(scrape, INK_SCRAPE);
INK_BENCHES(gray, INK_GRAY);
INK_BENCHES(pull, INK_PULL);
INK_BENCHES(spark, INK_SPARK);
INK_BENCHES(hgrad, INK_HGRAD);
INK_BENCHES(vgrad, INK_VGRAD);
INK_BENCHES(lgrad, INK_LGRAD);
INK_BENCHES(rgrad, INK_RGRAD);
INK_BENCHES(soften, INK_SOFTEN);
INK_BENCHES(emboss, INK_EMBOSS);
INK_BENCHES(hollow, INK_HOLLOW);
BENCHMARK_CAPTURE(ink_rows, hollow_flat, INK_HOLLOW, 0, true)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(soft_stamp, opaque, INK_OPAQUE);
BENCHMARK_CAPTURE(soft_stamp, glass, INK_GLASS);
BENCHMARK_CAPTURE(soft_stamp, soften, INK_SOFTEN);
BENCHMARK(glow)->Unit(benchmark::kMicrosecond);
BENCHMARK(plain_glow)->Unit(benchmark::kMicrosecond);

}  // namespace
}  // namespace nubo
