#include "paint/history.h"

#include <algorithm>
#include <array>
#include <cstring>
#include <new>
#include <zlib.h>

namespace nubo {
namespace {

constexpr Color color_bits = 0xffffff;  // what a file keeps of a pixel

struct TilePixels {
    std::array<Color, std::size_t{step_tile_side} * step_tile_side> pixels;
};

std::size_t bytes_of(const Area& area) {
    return static_cast<std::size_t>(area.width()) * static_cast<std::size_t>(area.height()) * sizeof(Color);
}

/// Calls `row(from, to, count)` for each row of the area that lies in the picture, with the first pixel there and its
/// place among those of the area.
template <typename Row> void for_rows(BITMAP* picture, const Area& area, Row row) {
    const int count = std::min(area.right + 1, picture->w) - area.left;
    const int bottom = std::min(area.bottom, picture->h - 1);
    for (int y = area.top; y <= bottom && count > 0; ++y)
        row(pixels_at(picture, area.left, y), (y - area.top) * area.width(), count);
}

/// The area's pixels of one picture XOR those of the other; false if all are 0.
bool difference(BITMAP* a, BITMAP* b, const Area& area, TilePixels& to) {
    std::memset(to.pixels.data(), 0, bytes_of(area));
    Color any = 0;
    const auto mix = [&](const Color* from, int at, int count) {
        Color* const pixels = to.pixels.data() + at;
        for (int i = 0; i < count; ++i) pixels[i] ^= from[i] & color_bits;
    };
    for_rows(a, area, mix);
    for_rows(b, area, mix);
    const auto count = bytes_of(area) / sizeof(Color);
    for (std::size_t i = 0; i < count; ++i) any |= to.pixels[i];
    return any != 0;
}

/// The plain pixels of tile `index`; null if it is bent.
const Color* pixels_of(const Step& step, std::size_t index, const Area& area, TilePixels& room) {
    const StepTiles& tiles = step.plain ? *step.plain : *step.deflated;
    const std::vector<std::uint8_t>& bytes = tiles.tiles[index].bytes;
    if (step.plain) {
        std::memcpy(room.pixels.data(), bytes.data(), bytes.size());
        return room.pixels.data();
    }
    uLongf size = bytes_of(area);
    const int end = uncompress(reinterpret_cast<Bytef*>(room.pixels.data()), &size, bytes.data(), bytes.size());
    return end == Z_OK && size == bytes_of(area) ? room.pixels.data() : nullptr;
}

const std::vector<StepTile>& tiles_of(const Step& step) { return (step.plain ? step.plain : step.deflated)->tiles; }

/// XORs the first `count` tiles into the picture; gives the number that were whole.
std::size_t mix_tiles(const Step& step, BITMAP* picture, std::size_t count) {
    TilePixels room;
    const TileGrid grid = step.grid();
    for (std::size_t i = 0; i < count; ++i) {
        const Area area = grid.area_of(tiles_of(step)[i].tile);
        const Color* const pixels = pixels_of(step, i, area, room);
        if (pixels == nullptr) return i;
        for_rows(picture, area, [=](Color* to, int at, int length) {
            for (int x = 0; x < length; ++x) to[x] ^= pixels[at + x];
        });
    }
    return count;
}

void add_tile(StepTiles& to, StepTile tile) {
    to.bytes += sizeof tile + tile.bytes.size();
    to.tiles.push_back(std::move(tile));
}

StepTile deflated(const StepTile& tile) {
    constexpr int quickest = 1;
    uLongf size = compressBound(tile.bytes.size());
    std::vector<std::uint8_t> bytes(size);
    if (compress2(bytes.data(), &size, tile.bytes.data(), tile.bytes.size(), quickest) != Z_OK) throw std::bad_alloc();
    return {tile.tile, {bytes.begin(), bytes.begin() + static_cast<std::ptrdiff_t>(size)}};
}

}  // namespace

TileGrid Step::grid() const { return {std::max(before_w, after_w), std::max(before_h, after_h)}; }

std::size_t Step::bytes() const { return (plain ? plain->bytes : 0) + (deflated ? deflated->bytes : 0); }

Step step_between(BITMAP* before, BITMAP* after, const std::vector<int>& among) {
    Step step{before->w, before->h, after->w, after->h};
    const TileGrid grid = step.grid();
    const auto made = std::make_shared<StepTiles>();
    TilePixels room;
    for (const int tile : among) {
        const Area area = grid.area_of(tile);
        if (!difference(before, after, area, room)) continue;
        const auto* const bytes = reinterpret_cast<const std::uint8_t*>(room.pixels.data());
        add_tile(*made, {tile, {bytes, bytes + bytes_of(area)}});
    }
    std::ranges::sort(made->tiles, {}, &StepTile::tile);
    step.plain = made;
    return step;
}

Step step_between(BITMAP* before, BITMAP* after) {
    const TileGrid grid{std::max(before->w, after->w), std::max(before->h, after->h)};
    std::vector<int> all(static_cast<std::size_t>(grid.count()));
    for (std::size_t i = 0; i < all.size(); ++i) all[i] = static_cast<int>(i);
    return step_between(before, after, all);
}

bool deflate_some(const Step& step, StepTiles& done) {
    constexpr std::size_t tiles_at_once = 8;
    const std::vector<StepTile>& plain = step.plain->tiles;
    for (std::size_t i = 0; i < tiles_at_once && done.tiles.size() < plain.size(); ++i)
        add_tile(done, deflated(plain[done.tiles.size()]));
    return done.tiles.size() == plain.size();
}

std::shared_ptr<const StepTiles> deflated_tiles(const Step& step) {
    if (step.deflated) return step.deflated;
    const auto made = std::make_shared<StepTiles>();
    while (!deflate_some(step, *made)) {
    }
    return made;
}

bool apply_step(const Step& step, BITMAP* picture) {
    const std::size_t count = tiles_of(step).size(), mixed = mix_tiles(step, picture, count);
    if (mixed == count) return true;
    mix_tiles(step, picture, mixed);  // once more is back
    return false;
}

OwnedBitmap picture_beyond(const Step& step, BITMAP* picture, bool back) {
    OwnedBitmap other = make_bitmap(back ? step.before_w : step.after_w, back ? step.before_h : step.after_h);
    if (!other) return nullptr;
    blit(picture, other.get(), 0, 0, 0, 0, picture->w, picture->h);
    return apply_step(step, other.get()) ? std::move(other) : nullptr;
}

void History::cut_redo() {
    for (; end() > position; steps.pop_back()) bytes -= steps.back().bytes();
    ceiling = position;
    if (started > position) started = -1;
}

void History::add(Step step) {
    static unsigned last_id = 0;
    cut_redo();
    step.id = ++last_id;
    bytes += step.bytes();
    steps.push_back(std::move(step));
    ceiling = ++position;
    shrink_to(bytes_max);
}

void History::shrink_to(std::size_t most) {
    while (bytes > most && static_cast<int>(steps.size()) > kept_always && position > first) {
        bytes -= steps.front().bytes();
        steps.pop_front();
        ++first;
    }
    floor = std::max(floor, first);
}

void History::set_tiles(int number, std::shared_ptr<const StepTiles> plain, std::shared_ptr<const StepTiles> deflated) {
    Step& changed = step(number);
    bytes -= changed.bytes();
    changed.plain = std::move(plain);
    changed.deflated = std::move(deflated);
    bytes += changed.bytes();
}

}  // namespace nubo
