// The clipboard without the X server: a copy of a large Frame beside memcpy, what another program gets beside writing a
// PNG, and what is pasted beside reading one.
#include "base/bitmap.h"
#include "base/color.h"
#include "codecs/png.h"
#include "platform/clipboard.h"
#include "windows/cel/clipboard.h"
#include <benchmark/benchmark.h>
#include <cstring>
#include <memory>
#include <optional>

namespace nubo {
namespace {

constexpr int copied_side = 4096, png_side = 2048;

std::optional<ClipboardOffer> offered;
Bytes there;

const ClipboardStandIn stand_in{[](ClipboardOffer offer) { return offered = std::move(offer), true; },
                                [](std::span<const std::string>, const std::function<bool()>&) {
                                    return Fetched{FETCH_DONE, "image/png", there};
                                }};

/// Shades with a little noise in them, like a painting's.
OwnedBitmap picture(int side) {
    OwnedBitmap bitmap = make_bitmap(side, side);
    unsigned noise = 1;
    for (int y = 0; y < side; ++y)
        for (int x = 0; x < side; ++x) {
            noise = noise * 1664525U + 1013904223U;
            *pixels_at(bitmap.get(), x, y) = pack_color(x / 16, y / 16 + static_cast<int>(noise >> 31), (x + y) / 32);
        }
    return bitmap;
}

void copy_frame(benchmark::State& state) {
    const OwnedBitmap bitmap = picture(copied_side);
    set_clipboard_stand_in(&stand_in);
    for (auto _ : state) benchmark::DoNotOptimize(clipboard_put(bitmap.get()));
    offered.reset();
}

/// Into memory that is new each time, as a copy's is.
void copy_limit_memcpy(benchmark::State& state) {
    constexpr std::size_t bytes = std::size_t{copied_side} * copied_side * sizeof(Color);
    const OwnedBitmap bitmap = picture(copied_side);
    std::unique_ptr<std::uint8_t[]> kept;
    for (auto _ : state) {
        std::unique_ptr<std::uint8_t[]> copy(new std::uint8_t[bytes]);
        std::memcpy(copy.get(), pixels_at(bitmap.get(), 0, 0), bytes);
        kept = std::move(copy);
    }
}

void give_png(benchmark::State& state) {
    const OwnedBitmap bitmap = picture(png_side);
    set_clipboard_stand_in(&stand_in);
    clipboard_put(bitmap.get());
    for (auto _ : state) {
        Bytes bytes;
        benchmark::DoNotOptimize(offered->encode("image/png", bytes));
    }
    offered.reset();
}

void give_limit_write(benchmark::State& state) {
    const OwnedBitmap bitmap = picture(png_side);
    const auto effort = static_cast<PngEffort>(state.range(0));
    for (auto _ : state) {
        Bytes bytes;
        benchmark::DoNotOptimize(write_png(bitmap.get(), bytes, effort));
    }
}

void paste_png(benchmark::State& state) {
    there.clear();
    write_png(picture(png_side).get(), there, PNG_FAST);
    set_clipboard_stand_in(&stand_in);
    for (auto _ : state) benchmark::DoNotOptimize(OwnedBitmap(clipboard_get()));
}

void paste_limit_read(benchmark::State& state) {
    Bytes bytes;
    write_png(picture(png_side).get(), bytes, PNG_FAST);
    for (auto _ : state) benchmark::DoNotOptimize(read_png(bytes));
}

BENCHMARK(copy_frame)->Unit(benchmark::kMillisecond);
BENCHMARK(copy_limit_memcpy)->Unit(benchmark::kMillisecond);
BENCHMARK(give_png)->Unit(benchmark::kMillisecond);
BENCHMARK(give_limit_write)->Arg(PNG_FAST)->Arg(PNG_BEST)->Unit(benchmark::kMillisecond);
BENCHMARK(paste_png)->Unit(benchmark::kMillisecond);
BENCHMARK(paste_limit_read)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace nubo
