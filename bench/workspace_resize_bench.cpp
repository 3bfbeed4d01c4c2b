// The Frame of 2048 x 2048 at another size, beside what must be moved for it.
#include "base/bitmap.h"
#include "paint/surfaces.h"
#include "state/frames.h"
#include "workspace/resize_frame.h"
#include <benchmark/benchmark.h>
#include <cstdlib>
#include <cstring>

namespace nubo {
namespace {

constexpr int side = 2048, larger = 2304;

void begin() {
    if (!adopt_frame(make_bitmap(side, side, 0x406080))) std::abort();
}

/// From a Frame of `side` to one of `larger`; the way back isn't measured.
void resize(benchmark::State& state, bool scale) {
    begin();
    for (auto _ : state) {
        resize_frame(0, larger, larger, 4, scale);
        state.PauseTiming();
        begin();
        state.ResumeTiming();
    }
}

void resize_limit_stretch_blit(benchmark::State& state) {
    begin();
    for (auto _ : state) {
        const OwnedBitmap target = make_uncleared_bitmap(larger, larger);
        stretch_blit(current_frame, target.get(), 0, 0, side, side, 0, 0, larger, larger);
        benchmark::ClobberMemory();
    }
}

/// The rows of the Frame into fresh memory, and the fill around them.
void resize_limit_memcpy(benchmark::State& state) {
    begin();
    constexpr int margin = (larger - side) / 2;
    for (auto _ : state) {
        const OwnedBitmap target = make_uncleared_bitmap(larger, larger);
        for (int y = 0; y < larger; ++y) std::memset(pixels_at(target.get(), 0, y), 0, larger * sizeof(Color));
        for (int y = 0; y < side; ++y)
            std::memcpy(pixels_at(target.get(), margin, margin + y), pixels_at(current_frame, 0, y),
                        side * sizeof(Color));
        benchmark::ClobberMemory();
    }
}

constexpr SpriteSheet sheet{.sprite_w = 16, .sprite_h = 16, .rows = 120, .columns = 120, .sheet = 0xffffff};

void sheet_of_sprites(benchmark::State& state) {
    for (auto _ : state) make_sprite_sheet(sheet);
}

void sheet_limit_memset(benchmark::State& state) {
    for (auto _ : state) {
        const OwnedBitmap target = make_uncleared_bitmap(sheet.width(), sheet.height());
        for (int y = 0; y < target->h; ++y)
            std::memset(pixels_at(target.get(), 0, y), 1, static_cast<std::size_t>(target->w) * sizeof(Color));
        benchmark::ClobberMemory();
    }
}

BENCHMARK(resize_limit_memcpy)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(resize, unscaled, false)->Unit(benchmark::kMillisecond);
BENCHMARK(resize_limit_stretch_blit)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(resize, scaled, true)->Unit(benchmark::kMillisecond);
BENCHMARK(sheet_limit_memset)->Unit(benchmark::kMillisecond);
BENCHMARK(sheet_of_sprites)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace nubo
