// Rows of translucent pixels in cache, beside memcpy of as many bytes: the ratio of two rates of the same width is what
// counts.
#include "base/bitmap.h"
#include "codecs/blend.h"
#include "codecs/blend_rows.h"
#include "state/run.h"

#include <benchmark/benchmark.h>
#include <cstring>
#include <functional>
#include <string>
#include <utility>
#include <vector>

namespace nubo {
namespace {

constexpr int some_fact = 77, few_pixels = 5;
constexpr Color fill_color = 0x123456;

/// Two rows of the benchmark's width; a few pixels of the source are of the colour key.
struct Rows {
    explicit Rows(const benchmark::State& state)
        : length(static_cast<int>(state.range(0))), source(static_cast<std::size_t>(length)),
          target(static_cast<std::size_t>(length)) {
        for (std::size_t i = 0; i < source.size(); ++i) {
            source[i] = i % few_pixels == 0 ? transparent_color : static_cast<Color>(i * 0x10307) & 0xffffff;
            target[i] = static_cast<Color>(i * 0x50201) & 0xffffff;
        }
    }
    void count(benchmark::State& state) const {
        benchmark::ClobberMemory();
        state.SetBytesProcessed(state.iterations() * length * static_cast<int>(sizeof(Color)));
    }
    int length;
    std::vector<Color> source, target;
};

void limit_memcpy(benchmark::State& state) {
    Rows rows(state);
    for (auto _ : state) {
        std::memcpy(rows.target.data(), rows.source.data(), rows.source.size() * sizeof(Color));
        benchmark::ClobberMemory();
    }
    rows.count(state);
}

void fill_row(benchmark::State& state, const BlendRows& form) {
    Rows rows(state);
    for (auto _ : state) {
        form.fill(rows.target.data(), rows.length, fill_color, some_fact);
        benchmark::ClobberMemory();
    }
    rows.count(state);
}

void blit_row(benchmark::State& state, const BlendRows& form) {
    Rows rows(state);
    for (auto _ : state) {
        form.blit(rows.source.data(), rows.target.data(), rows.length, some_fact);
        benchmark::ClobberMemory();
    }
    rows.count(state);
}

void blit_half_row(benchmark::State& state, const BlendRows& form) {
    Rows rows(state);
    for (auto _ : state) {
        form.blit_half(rows.source.data(), rows.target.data(), rows.length);
        benchmark::ClobberMemory();
    }
    rows.count(state);
}

void narrow_row(benchmark::State& state, bool fill) {
    constexpr std::uint16_t color = 0x1234;
    constexpr int s = 10;
    const std::vector<std::uint16_t> source(static_cast<std::size_t>(state.range(0)), color);
    std::vector<std::uint16_t> target(source.size());
    const int length = static_cast<int>(source.size());
    for (auto _ : state) {
        if (fill)
            fill_narrow_row(depth_16, target.data(), length, color, s);
        else
            blit_narrow_row(depth_16, source.data(), target.data(), length, s);
        benchmark::ClobberMemory();
    }
    state.SetBytesProcessed(state.iterations() * length * static_cast<int>(sizeof(std::uint16_t)));
}

/// A whole call for one pixel: what the clipping and the choice of the form cost.
void rectfill_pixel(benchmark::State& state) {
    const OwnedBitmap bitmap = make_bitmap(view_w, view_h);
    for (auto _ : state) {
        trans_rectfill(bitmap.get(), 3, 4, 1, 1, fill_color, some_fact);
        benchmark::ClobberMemory();
    }
}

/// The whole logical screen, memcpy's bytes being width times height.
void rectfill_screen(benchmark::State& state) {
    const OwnedBitmap bitmap = make_bitmap(view_w, view_h);
    for (auto _ : state) {
        trans_rectfill(bitmap.get(), 0, 0, view_w, view_h, fill_color, some_fact);
        benchmark::ClobberMemory();
    }
    state.SetBytesProcessed(state.iterations() * view_w * view_h * static_cast<int>(sizeof(Color)));
}

void at_both_widths(benchmark::internal::Benchmark* bench) { bench->Arg(view_w)->Arg(2048); }

BENCHMARK(limit_memcpy)->Apply(at_both_widths);
BENCHMARK(rectfill_pixel);
BENCHMARK(rectfill_screen);
BENCHMARK_CAPTURE(narrow_row, fill_16, true)->Apply(at_both_widths);
BENCHMARK_CAPTURE(narrow_row, blit_16, false)->Apply(at_both_widths);

/// One benchmark for each form that this processor runs.
const bool forms_registered = [] {
    using RowBenchmark = void (*)(benchmark::State&, const BlendRows&);
    for (const auto& [name, row] : {std::pair<std::string, RowBenchmark>{"fill_row/", fill_row},
                                    {"blit_row/", blit_row},
                                    {"blit_half_row/", blit_half_row}})
        for (const BlendRows& form : blend_row_forms())
            at_both_widths(benchmark::RegisterBenchmark((name + form.name).c_str(), row, std::cref(form)));
    return true;
}();

}  // namespace
}  // namespace nubo
