// PNG coding against zlib alone on the same bytes, for a picture with much in it and for an almost empty one.
#include "base/bitmap.h"
#include "base/color.h"
#include "codecs/png.h"
#include "platform/memory_packfile.h"
#include <benchmark/benchmark.h>
#include <vector>
#include <zlib.h>

namespace nubo {
namespace {

constexpr int width = 1024, height = 768;

enum Content : int { CONTENT_PAINTED, CONTENT_BLANK };

/// Shades with a little noise in them, like a painting's, or black with one line.
OwnedBitmap picture(int content) {
    OwnedBitmap bitmap = make_bitmap(width, height);
    unsigned noise = 1;
    for (int y = 0; y < height && content == CONTENT_PAINTED; ++y)
        for (int x = 0; x < width; ++x) {
            noise = noise * 1664525U + 1013904223U;
            pixels_at(bitmap.get(), 0, y)[x] =
                pack_color(x / 4, y / 4 + static_cast<int>(noise >> 30), (x + y) / 8 + static_cast<int>(noise >> 31));
        }
    hline(bitmap.get(), 10, 10, 700, 0xffffff);
    return bitmap;
}

Bytes written(BITMAP* bitmap) {
    Bytes bytes;
    PACKFILE* const file = open_for_writing(bytes);
    save_png_pf(file, bitmap, nullptr);
    pack_fclose(file);
    return bytes;
}

/// The one data chunk of a file of ours, which begins behind signature (8), IHDR (25), length and type (8).
Bytes deflated_part(const Bytes& png) { return {png.begin() + 41, png.end() - 16}; }

Bytes inflated_part(const Bytes& deflated) {
    Bytes rows(std::size_t{height} * (3 * width + 1));
    uLongf size = rows.size();
    uncompress(rows.data(), &size, deflated.data(), deflated.size());
    return rows;
}

void png_write(benchmark::State& state) {
    const OwnedBitmap bitmap = picture(static_cast<int>(state.range(0)));
    for (auto _ : state) benchmark::DoNotOptimize(written(bitmap.get()));
}

void png_write_limit_compress2(benchmark::State& state) {
    const OwnedBitmap bitmap = picture(static_cast<int>(state.range(0)));
    const Bytes rows = inflated_part(deflated_part(written(bitmap.get())));
    Bytes out(compressBound(rows.size()));
    for (auto _ : state) {
        uLongf size = out.size();
        benchmark::DoNotOptimize(compress2(out.data(), &size, rows.data(), rows.size(), 9));
    }
}

void png_read(benchmark::State& state) {
    const OwnedBitmap bitmap = picture(static_cast<int>(state.range(0)));
    const Bytes png = written(bitmap.get());
    for (auto _ : state) {
        PACKFILE* const file = open_for_reading(png);
        const OwnedBitmap read(load_png_pf(file, nullptr));
        pack_fclose(file);
        if (!read) state.SkipWithError(png_error);
    }
}

void png_read_limit_uncompress(benchmark::State& state) {
    const OwnedBitmap bitmap = picture(static_cast<int>(state.range(0)));
    const Bytes deflated = deflated_part(written(bitmap.get()));
    Bytes out(std::size_t{height} * (3 * width + 1));
    for (auto _ : state) {
        uLongf size = out.size();
        benchmark::DoNotOptimize(uncompress(out.data(), &size, deflated.data(), deflated.size()));
    }
}

BENCHMARK(png_write)->DenseRange(CONTENT_PAINTED, CONTENT_BLANK)->Unit(benchmark::kMillisecond);
BENCHMARK(png_write_limit_compress2)->DenseRange(CONTENT_PAINTED, CONTENT_BLANK)->Unit(benchmark::kMillisecond);
BENCHMARK(png_read)->DenseRange(CONTENT_PAINTED, CONTENT_BLANK)->Unit(benchmark::kMillisecond);
BENCHMARK(png_read_limit_uncompress)->DenseRange(CONTENT_PAINTED, CONTENT_BLANK)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace nubo
