#pragma once
// Pictures for the tests of histories.
#include "base/bitmap.h"
#include <random>
#include <vector>

namespace nubo {

using Pixels = std::vector<Color>;

inline OwnedBitmap noise(int width, int height, unsigned seed) {
    std::mt19937 random(seed);
    OwnedBitmap picture = make_bitmap(width, height);
    for (int y = 0; y < height; ++y)
        for (int x = 0; x < width; ++x) *pixels_at(picture.get(), x, y) = random() & 0xffffff;
    return picture;
}

inline Pixels pixels_of_picture(BITMAP* picture) {
    Pixels pixels;
    for (int y = 0; y < picture->h; ++y)
        pixels.insert(pixels.end(), pixels_at(picture, 0, y), pixels_at(picture, 0, y) + picture->w);
    return pixels;
}

}  // namespace nubo
