// The other picture formats, on 2048 x 2048: JPEG against libjpeg alone, as its own programs call it; PCX and ILBM
// against a copy of the pixels; the reductions of colours against the GIF writer that follows them.
#include "base/bitmap.h"
#include "base/color.h"
#include "codecs/gif.h"
#include "codecs/ilbm.h"
#include "codecs/jpeg.h"
#include "codecs/jpeg_error.h"
#include "codecs/pcx.h"
#include "codecs/reduce_colors.h"

#include <benchmark/benchmark.h>
#include <cstdlib>
#include <cstring>

namespace nubo {
namespace {

constexpr int side = 2048;

/// Shades with a little noise in them, like a photo's, or of as many colours as a palette has.
OwnedBitmap picture(bool indexed) {
    OwnedBitmap bitmap = make_bitmap(side, side);
    std::uint32_t noise = 1;
    for (int y = 0; y < side; ++y)
        for (int x = 0; x < side; ++x) {
            noise = noise * 1664525U + 1013904223U;
            const int shade = (x / 64 + y / 64 + static_cast<int>(noise >> 30)) % 256;
            *pixels_at(bitmap.get(), x, y) =
                indexed ? static_cast<Color>(shade * 0x10305) & 0xffffff
                        : pack_color(x / 8, y / 8, (x + y) / 16 + static_cast<int>(noise >> 31) - 1 + (x + y < 16));
        }
    return bitmap;
}

void pictures_limit_memcpy(benchmark::State& state) {
    const OwnedBitmap from = picture(false), to = make_bitmap(side, side);
    for (auto _ : state) {
        for (int y = 0; y < side; ++y)
            std::memcpy(pixels_at(to.get(), 0, y), pixels_at(from.get(), 0, y), side * sizeof(Color));
        benchmark::ClobberMemory();
    }
}
BENCHMARK(pictures_limit_memcpy)->Unit(benchmark::kMillisecond);

// ---- JPEG ----------------------------------------------------------------------------------------------------------

constexpr int quality = 90;

void jpeg_read(benchmark::State& state) {
    Bytes bytes;
    write_jpeg(picture(false).get(), quality, bytes);
    for (auto _ : state) benchmark::DoNotOptimize(read_jpeg(bytes).bitmap.get());
}

void jpeg_read_limit_libjpeg(benchmark::State& state) {
    Bytes bytes;
    write_jpeg(picture(false).get(), quality, bytes);
    for (auto _ : state) {
        jpeg_decompress_struct jpeg{};
        jpeg_error_mgr error;
        jpeg.err = jpeg_std_error(&error);
        jpeg_create_decompress(&jpeg);
        jpeg_mem_src(&jpeg, bytes.data(), bytes.size());
        jpeg_read_header(&jpeg, TRUE);
        jpeg_start_decompress(&jpeg);
        Bytes rows(std::size_t{3} * side * side);  // what djpeg hands to the disk
        while (jpeg.output_scanline < jpeg.output_height) {
            JSAMPROW row[] = {rows.data() + std::size_t{3} * side * jpeg.output_scanline};
            jpeg_read_scanlines(&jpeg, row, 1);
        }
        jpeg_finish_decompress(&jpeg);
        jpeg_destroy_decompress(&jpeg);
        benchmark::DoNotOptimize(rows.data());
    }
}

void jpeg_write(benchmark::State& state) {
    const OwnedBitmap bitmap = picture(false);
    for (auto _ : state) {
        Bytes bytes;
        write_jpeg(bitmap.get(), quality, bytes);
        benchmark::DoNotOptimize(bytes.data());
    }
}

void jpeg_write_limit_libjpeg(benchmark::State& state) {
    Bytes row(std::size_t{3} * side), out(std::size_t{16} << 20);
    const OwnedBitmap bitmap = picture(false);
    std::vector<Bytes> rows;
    for (int y = 0; y < side; ++y) {
        for (std::size_t i = 0; i < row.size(); ++i)
            row[i] = static_cast<std::uint8_t>(pixels_at(bitmap.get(), 0, y)[i / 3] >> (16 - 8 * (i % 3)));
        rows.push_back(row);
    }
    for (auto _ : state) {
        jpeg_compress_struct jpeg{};
        jpeg_error_mgr error;
        unsigned char* memory = out.data();
        unsigned long size = out.size();
        jpeg.err = jpeg_std_error(&error);
        jpeg_create_compress(&jpeg);
        jpeg_mem_dest(&jpeg, &memory, &size);
        jpeg.image_width = jpeg.image_height = side;
        jpeg.input_components = 3;
        jpeg.in_color_space = JCS_RGB;
        jpeg_set_defaults(&jpeg);
        jpeg_set_quality(&jpeg, quality, TRUE);
        jpeg_start_compress(&jpeg, TRUE);
        for (Bytes& pixels : rows) {
            JSAMPROW pointer[] = {pixels.data()};
            jpeg_write_scanlines(&jpeg, pointer, 1);
        }
        jpeg_finish_compress(&jpeg);
        jpeg_destroy_compress(&jpeg);
        benchmark::DoNotOptimize(memory);
    }
}

BENCHMARK(jpeg_read)->Unit(benchmark::kMillisecond);
BENCHMARK(jpeg_read_limit_libjpeg)->Unit(benchmark::kMillisecond);
BENCHMARK(jpeg_write)->Unit(benchmark::kMillisecond);
BENCHMARK(jpeg_write_limit_libjpeg)->Unit(benchmark::kMillisecond);

// ---- PCX and ILBM --------------------------------------------------------------------------------------------------

void pcx_read(benchmark::State& state) {
    Bytes bytes;
    write_pcx(picture(false).get(), bytes);
    for (auto _ : state) benchmark::DoNotOptimize(read_pcx(bytes).bitmap.get());
}
BENCHMARK(pcx_read)->Unit(benchmark::kMillisecond);

/// An ILBM of that many planes, not packed, whose bytes are the numbers of a generator; a gray for each index.
Bytes ilbm_of(int planes) {
    Bytes bytes{'F',
                'O',
                'R',
                'M',
                0,
                0,
                0,
                0,
                'I',
                'L',
                'B',
                'M',
                'B',
                'M',
                'H',
                'D',
                0,
                0,
                0,
                20,
                side >> 8,
                0,
                side >> 8,
                0,
                0,
                0,
                0,
                0,
                static_cast<std::uint8_t>(planes)};
    bytes.resize(bytes.size() + 11);
    const std::size_t size = std::size_t{side / 8} * side * static_cast<std::size_t>(planes);
    for (const char letter : {'B', 'O', 'D', 'Y'}) bytes.push_back(static_cast<std::uint8_t>(letter));
    for (int shift = 24; shift >= 0; shift -= 8) bytes.push_back(static_cast<std::uint8_t>(size >> shift));
    std::uint32_t noise = 1;
    for (std::size_t i = 0; i < size; ++i) {
        noise = noise * 1664525U + 1013904223U;
        bytes.push_back(static_cast<std::uint8_t>(noise >> 24));
    }
    return bytes;
}

void ilbm_read(benchmark::State& state) {
    const Bytes bytes = ilbm_of(static_cast<int>(state.range(0)));
    for (auto _ : state) benchmark::DoNotOptimize(read_ilbm(bytes).bitmap.get());
}
BENCHMARK(ilbm_read)->Arg(8)->Arg(24)->Unit(benchmark::kMillisecond);

// ---- To 256 colours ------------------------------------------------------------------------------------------------

void reduce_exact(benchmark::State& state) {
    const OwnedBitmap bitmap = picture(true);
    ExactPalette palette;
    for (auto _ : state) benchmark::DoNotOptimize(reduce_colors_exact(bitmap.get(), palette));
}

void reduce_neural(benchmark::State& state) {
    const OwnedBitmap bitmap = picture(false);
    ExactPalette palette;
    for (auto _ : state) reduce_colors_neural(bitmap.get(), static_cast<int>(state.range(0)), palette);
}

BENCHMARK(reduce_exact)->Unit(benchmark::kMillisecond);
BENCHMARK(reduce_neural)->Arg(10)->Arg(1)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace nubo
