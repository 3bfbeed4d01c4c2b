#include "stage_art.h"

#include "base/color.h"
#include <algorithm>
#include <array>
#include <cmath>
#include <cstdio>
#include <numbers>

namespace nubo {

namespace {

constexpr int cel_side = 32, cel_columns = 4, tile_side = 16, enlarged = 2;
constexpr std::array<const char*, 16> cels{"hero-1", "hero-2", "hero-3", "hero-4", "slime-1", "slime-2",
                                           "coin",   "heart",  "potion", "sword",  "key",     "chest",
                                           "tree",   "bush",   "flower", "daisy"};
constexpr std::array<const char*, 4> tiles{"grass", "bricks", "water", "cel"};

OwnedBitmap make_sheet(int width, int height) {
    OwnedBitmap sheet(create_bitmap_ex(8, width, height));
    if (sheet) clear_to_color(sheet.get(), 0);
    return sheet;
}

/// The entry for a colour that is drawn; entry 0 is clear.
int drawn_entry(const ArtPalette& palette, Color color) { return std::max(nearest_entry(palette, color), 1); }

/// Paints what of a stamp fits into a square of the sheet, each of its pixels `scale` wide and high.
bool put_stamp(BITMAP* sheet, const Stamps& stamps, const ArtPalette& palette, const char* name, int x, int y, int side,
               int scale) {
    const auto found = stamps.find(name);
    if (found == stamps.end()) return std::fprintf(stderr, "stamps.txt: %s is missing\n", name), false;
    BITMAP* const stamp = found->second.get();
    for (int row = 0; row < std::min(stamp->h, side / scale); ++row)
        for (int column = 0; column < std::min(stamp->w, side / scale); ++column) {
            const Color color = *pixels_at(stamp, column, row);
            const int left = x + column * scale, top = y + row * scale;
            if (color != transparent_color)
                rectfill(sheet, left, top, left + scale - 1, top + scale - 1, drawn_entry(palette, color));
        }
    return true;
}

}  // namespace

OwnedBitmap draw_actor_sheet(const Stamps& stamps, const ArtPalette& palette) {
    constexpr int rows = static_cast<int>(cels.size()) / cel_columns;
    OwnedBitmap sheet = make_sheet(cel_columns * cel_side, rows * cel_side);
    for (int i = 0; sheet && i < static_cast<int>(cels.size()); ++i)
        if (!put_stamp(sheet.get(), stamps, palette, cels[static_cast<std::size_t>(i)], i % cel_columns * cel_side,
                       i / cel_columns * cel_side, cel_side, enlarged))
            return nullptr;
    return sheet;
}

OwnedBitmap draw_tile_sheet(const Stamps& stamps, const ArtPalette& palette) {
    OwnedBitmap sheet = make_sheet(static_cast<int>(tiles.size()) * tile_side, tile_side);
    for (int i = 0; sheet && i < static_cast<int>(tiles.size()); ++i)
        if (!put_stamp(sheet.get(), stamps, palette, tiles[static_cast<std::size_t>(i)], i * tile_side, 0, tile_side,
                       1))
            return nullptr;
    return sheet;
}

OwnedBitmap draw_glow_sheet(const ArtPalette& palette) {
    constexpr int frames = 32, diagonal = 2 * cel_side, step = diagonal / frames;
    constexpr int brightest = 200, fall = 16;  // of the light, a pixel from the middle of the gleam
    OwnedBitmap sheet = make_sheet(frames * cel_side, cel_side);
    for (int i = 0; sheet && i < frames * cel_side * cel_side; ++i) {
        const int x = i % (frames * cel_side), y = i / (frames * cel_side), frame = x / cel_side;
        const int light = brightest - fall * std::abs(x % cel_side + y - frame * step);
        if (light > 0) putpixel(sheet.get(), x, y, drawn_entry(palette, pack_color(light, light, light)));
    }
    return sheet;
}

std::string chime_wav() {
    constexpr int rate = 11025, samples = rate / 2, silence = 128;
    constexpr double loudest = 90, fade = 7, low_hz = 660, high_hz = 990;
    const auto number = [](std::uint32_t value, int bytes) {
        std::string text;
        for (int i = 0; i < bytes; ++i) text += static_cast<char>(value >> 8 * i & 0xff);
        return text;
    };
    constexpr int head = 36, format = 16;
    std::string wav = "RIFF" + number(head + samples, 4) + "WAVEfmt " + number(format, 4) + number(1, 2) +
                      number(1, 2) + number(rate, 4) + number(rate, 4) + number(1, 2) + number(8, 2) + "data" +
                      number(samples, 4);
    for (int i = 0; i < samples; ++i) {
        const double t = static_cast<double>(i) / rate, turn = 2 * std::numbers::pi * t;
        const double wave = (std::sin(turn * low_hz) + std::sin(turn * high_hz)) / 2 * std::exp(-fade * t);
        wav += static_cast<char>(silence + static_cast<int>(wave * loudest));
    }
    return wav;
}

}  // namespace nubo
