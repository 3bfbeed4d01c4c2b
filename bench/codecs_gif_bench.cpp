// GIF coding against giflib's coder, where that is installed, for the same indexes and from memory to memory.
#include "codecs/gif_lzw.h"
#include "platform/memory_packfile.h"
#include <benchmark/benchmark.h>
#include <cstring>
#include <vector>
#ifdef NUBO_BENCH_GIFLIB
#include <gif_lib.h>
#endif

namespace nubo {
namespace {

constexpr int width = 1024, height = 768;
constexpr std::size_t pixels = std::size_t{width} * height;

enum Content : int { CONTENT_PAINTED, CONTENT_BLANK, CONTENT_NOISE };

/// Shades with a little noise, one index, or noise in all 256 indexes.
Bytes picture(benchmark::State& state) {
    Bytes indexes(pixels, 3);
    std::uint32_t noise = 1;
    for (std::size_t i = 0; i < pixels && state.range(0) != CONTENT_BLANK; ++i) {
        noise = noise * 1664525U + 1013904223U;
        const std::size_t shade = i % width / 16 + i / width / 16 + (noise >> 30);
        indexes[i] = static_cast<std::uint8_t>(state.range(0) == CONTENT_PAINTED ? shade : noise >> 24);
    }
    return indexes;
}

Bytes encoded(const Bytes& indexes) {
    Bytes bytes;
    PACKFILE* const file = open_for_writing(bytes);
    GifEncoder encoder(file);
    for (int y = 0; y < height; ++y)
        encoder.add({indexes.data() + std::size_t{width} * static_cast<std::size_t>(y), width});
    encoder.finish();
    pack_fclose(file);
    return bytes;
}

/// The data without the sub-blocks' sizes.
Bytes joined(const Bytes& blocks) {
    Bytes data;
    for (std::size_t at = 0; blocks[at] != 0; at += 1 + blocks[at])
        data.insert(data.end(), blocks.begin() + static_cast<long>(at + 1),
                    blocks.begin() + static_cast<long>(at + 1 + blocks[at]));
    return data;
}

void gif_encode(benchmark::State& state) {
    const Bytes indexes = picture(state);
    for (auto _ : state) benchmark::DoNotOptimize(encoded(indexes));
    state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(pixels));
}

/// Our own data, which keeps one full table, sub-blocks joined as the reader does it.
void gif_decode(benchmark::State& state) {
    const Bytes blocks = encoded(picture(state));
    for (auto _ : state) {
        const Bytes data = joined(blocks);
        GrowingBytes indexes;
        if (!decode_gif_indexes(data, 8, pixels, indexes)) state.SkipWithError("refused");
        benchmark::DoNotOptimize(indexes.data());
    }
    state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(pixels));
}

#ifdef NUBO_BENCH_GIFLIB
int append_bytes(GifFileType* gif, const GifByteType* bytes, int count) {
    Bytes& target = *static_cast<Bytes*>(gif->UserData);
    target.insert(target.end(), bytes, bytes + count);
    return count;
}

Bytes giflib_encoded(const Bytes& indexes) {
    Bytes bytes;
    int error = 0;
    GifFileType* const gif = EGifOpen(&bytes, append_bytes, &error);
    ColorMapObject* const colors = GifMakeMapObject(256, nullptr);
    EGifPutScreenDesc(gif, width, height, 8, 0, colors);
    EGifPutImageDesc(gif, 0, 0, width, height, false, nullptr);
    std::vector<GifPixelType> row(width);
    for (std::size_t y = 0; y < height; ++y) {
        std::memcpy(row.data(), indexes.data() + y * width, width);
        EGifPutLine(gif, row.data(), width);
    }
    EGifCloseFile(gif, &error);
    GifFreeMapObject(colors);
    return bytes;
}

struct Source {
    const Bytes* bytes;
    std::size_t at;
};

int take_bytes(GifFileType* gif, GifByteType* to, int count) {
    Source& source = *static_cast<Source*>(gif->UserData);
    const std::size_t size = std::min(static_cast<std::size_t>(count), source.bytes->size() - source.at);
    std::memcpy(to, source.bytes->data() + source.at, size);
    source.at += size;
    return static_cast<int>(size);
}

void gif_encode_limit_giflib(benchmark::State& state) {
    const Bytes indexes = picture(state);
    for (auto _ : state) benchmark::DoNotOptimize(giflib_encoded(indexes));
    state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(pixels));
}

void gif_decode_limit_giflib(benchmark::State& state) {
    const Bytes bytes = giflib_encoded(picture(state));
    std::vector<GifPixelType> rows(pixels);
    for (auto _ : state) {
        Source source{&bytes, 0};
        int error = 0;
        GifRecordType type = UNDEFINED_RECORD_TYPE;
        GifFileType* const gif = DGifOpen(&source, take_bytes, &error);
        DGifGetRecordType(gif, &type);
        DGifGetImageDesc(gif);
        for (std::size_t y = 0; y < height; ++y) DGifGetLine(gif, rows.data() + y * width, width);
        DGifCloseFile(gif, &error);
        benchmark::DoNotOptimize(rows.data());
    }
    state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(pixels));
}

BENCHMARK(gif_encode_limit_giflib)->DenseRange(CONTENT_PAINTED, CONTENT_NOISE)->Unit(benchmark::kMillisecond);
BENCHMARK(gif_decode_limit_giflib)->DenseRange(CONTENT_PAINTED, CONTENT_NOISE)->Unit(benchmark::kMillisecond);
#endif

BENCHMARK(gif_encode)->DenseRange(CONTENT_PAINTED, CONTENT_NOISE)->Unit(benchmark::kMillisecond);
BENCHMARK(gif_decode)->DenseRange(CONTENT_PAINTED, CONTENT_NOISE)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace nubo
