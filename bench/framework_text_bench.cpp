// A screen full of text, against clearing the same screen; and the packer on what is easy and hard for it.
#include "base/bitmap.h"
#include "base/color.h"
#include "base/random.h"
#include "framework/packer.h"
#include "framework/resources.h"
#include "framework/text.h"

#include <benchmark/benchmark.h>
#include <cstring>
#include <string>

namespace nubo {
namespace {

constexpr int columns = 50, rows = 40, logical_w = 320, logical_h = 240;

/// A font of 5 by 6 glyphs, random and about half filled, under every code from 33 to 126.
void make_bench_font() {
    install_allegro(SYSTEM_NONE, &errno, nullptr);
    set_color_depth(32);
    use_window_color_order();
    PALETTE palette{};
    for (int i = 0; i < PAL_SIZE; ++i)
        palette[i] = {static_cast<unsigned char>((i & 7) * 9), static_cast<unsigned char>((i >> 3 & 7) * 9),
                      static_cast<unsigned char>((i >> 6) * 20), 0};
    set_palette(palette);
    UA_init_text_colors();
    const OwnedBitmap sheet = make_bitmap(320, 200);
    const auto put = [&](int x, int y, int value) {
        *pixels_at(sheet.get(), x, y) = static_cast<Color>(palette_color[value]);
    };
    put(0, 0, 5);
    put(1, 0, 6);
    for (int cell = 1; cell <= 94; ++cell) {
        const int x = cell % 53 * 6, y = cell / 53 * 7;
        put(x, y, 32 + cell);
        put(x + 2, y, 6);
        for (int i = 0; i < 30; ++i)
            if (UA_random(2) == 0) put(x + 1 + i % 5, y + 1 + i / 5, first_tone + UA_random(2));
    }
    UA_black_to_mask(sheet.get());
    BITMAP* const bitmap = sheet.get();
    build_font(FONT_WIDE, {&bitmap, 1});
}

std::string random_line() {
    std::string line;
    for (int i = 0; i < columns; ++i) line += static_cast<char>(33 + UA_random(91));  // without the bar
    return line;
}

void fill_screen(BITMAP* target, const std::array<std::string, rows>& lines) {
    int y = 0;
    for (const std::string& line : lines) {
        UA_text(target, 0, y, line);
        y += 6;
    }
}

/// 40 rows of 50 characters; argument 1 with an outline, 0 plain.
void BM_TextScreen(benchmark::State& state) {
    make_bench_font();
    const OwnedBitmap target = make_bitmap(logical_w, logical_h);
    std::array<std::string, rows> lines;
    for (std::string& line : lines) line = random_line();
    UA_set_font(FONT_WIDE, TEXT_YELLOW, 0, 0, 0, static_cast<int>(state.range(0)), 0, 0);
    for (auto _ : state) fill_screen(target.get(), lines);
}
BENCHMARK(BM_TextScreen)->Arg(0)->Arg(1)->Unit(benchmark::kMicrosecond);

/// The plain limit: setting every pixel of the screen once.
void BM_ScreenMemset(benchmark::State& state) {
    std::vector<Color> screen(logical_w * logical_h);
    for (auto _ : state) {
        std::memset(screen.data(), 0, screen.size() * sizeof(Color));
        benchmark::DoNotOptimize(screen.data());
        benchmark::ClobberMemory();
    }
}
BENCHMARK(BM_ScreenMemset)->Unit(benchmark::kMicrosecond);

/// One chunk: 0 all alike, 1 random, 2 random of two values, 3 four equal bytes before every two that differ.
void BM_PackChunk(benchmark::State& state) {
    std::vector<std::uint8_t> chunk(pack_chunk_size);
    for (std::size_t i = 0; i < chunk.size(); ++i) {
        const std::size_t group = i / 6;
        switch (state.range(0)) {
        case 0: break;
        case 1: chunk[i] = static_cast<std::uint8_t>(UA_random(256)); break;
        case 2: chunk[i] = static_cast<std::uint8_t>(UA_random(2)); break;
        default: chunk[i] = static_cast<std::uint8_t>(i % 6 == 4 ? group >> 8 : i % 6 == 5 ? group : 0); break;
        }
    }
    for (auto _ : state) benchmark::DoNotOptimize(pack_bytes(chunk));
}
BENCHMARK(BM_PackChunk)->DenseRange(0, 3)->Unit(benchmark::kMillisecond);

/// The plain limit of packing: copying the chunk.
void BM_ChunkMemcpy(benchmark::State& state) {
    std::vector<std::uint8_t> from(pack_chunk_size, 1), to(pack_chunk_size);
    for (auto _ : state) {
        std::memcpy(to.data(), from.data(), from.size());
        benchmark::DoNotOptimize(to.data());
        benchmark::ClobberMemory();
    }
}
BENCHMARK(BM_ChunkMemcpy)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace nubo
