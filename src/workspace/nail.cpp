#include "workspace/nail.h"

#include "base/color.h"
#include "state/frames.h"
#include "state/run.h"
#include "workspace/workspace_files.h"
#include <algorithm>
#include <array>
#include <vector>

namespace nubo {
namespace {

constexpr int tile_x(int slot) { return slot % nail_columns * nail_tile; }
constexpr int tile_y(int slot) { return slot / nail_columns * nail_tile; }

/// The first source pixel of each block along one side, by adding up the ratio as a float.
std::vector<int> block_starts(int source_side, int target_side) {
    const float ratio = static_cast<float>(source_side) / static_cast<float>(target_side);
    std::vector<int> starts;
    float at = 0;
    for (int i = 0; i < target_side; ++i, at += ratio) starts.push_back(static_cast<int>(at));
    return starts;
}

/// The mean of a block, each component rounded up.
Color block_mean(BITMAP* source, int x, int y, int w, int h) {
    constexpr int run = 256;
    std::array<std::uint64_t, 3> sums{};
    for (int row = y; row < y + h; ++row) {
        const Color* const pixels = pixels_at(source, x, row);
        for (int i = 0; i < w; i += run) {
            std::uint32_t red_blue = 0, green = 0;  // two sums in one word: neither outgrows its 16 bits in a run
            for (int k = i; k < std::min(i + run, w); ++k) {
                red_blue += pixels[k] & 0xff00ff;
                green += pixels[k] >> 8 & 0xff;
            }
            sums[0] += red_blue >> 16;
            sums[1] += green;
            sums[2] += red_blue & 0xffff;
        }
    }
    const auto pixels = static_cast<std::uint64_t>(w) * static_cast<std::uint64_t>(h);
    const auto mean = [&](std::size_t c) { return static_cast<int>((sums[c] + pixels - 1) / pixels); };
    return pack_color(mean(0), mean(1), mean(2));
}

}  // namespace

void reduce_bitmap(BITMAP* source, BITMAP* target, int x, int y, int w, int h) {
    const int block_w = static_cast<int>(static_cast<float>(source->w) / static_cast<float>(w));
    const int block_h = static_cast<int>(static_cast<float>(source->h) / static_cast<float>(h));
    const std::vector<int> lefts = block_starts(source->w, w), tops = block_starts(source->h, h);
    for (int j = 0; j < h; ++j)
        for (int i = 0; i < w; ++i)
            *pixels_at(target, x + i, y + j) =
                block_mean(source, lefts[static_cast<unsigned>(i)], tops[static_cast<unsigned>(j)], block_w, block_h);
}

void make_nail_tile(BITMAP* frame, int slot) {
    constexpr int enlarged_side = 160;  // of a Frame that is smaller than a tile
    if (frame->w >= nail_tile && frame->h >= nail_tile)
        return reduce_bitmap(frame, nail_sheet, tile_x(slot), tile_y(slot), nail_tile, nail_tile);
    const OwnedBitmap enlarged = make_bitmap(enlarged_side, enlarged_side);
    if (!enlarged) return;  // the old tile stays
    stretch_blit(frame, enlarged.get(), 0, 0, frame->w, frame->h, 0, 0, enlarged_side, enlarged_side);
    reduce_bitmap(enlarged.get(), nail_sheet, tile_x(slot), tile_y(slot), nail_tile, nail_tile);
}

void copy_nail_tile(int from, int to) {
    blit(nail_sheet, nail_sheet, tile_x(from), tile_y(from), tile_x(to), tile_y(to), nail_tile, nail_tile);
}

bool save_nail(const Folder& folder) { return save_picture(folder.file(nail_file), nail_sheet); }

}  // namespace nubo
