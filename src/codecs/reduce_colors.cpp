#include "codecs/reduce_colors.h"

#include "base/bitmap.h"
#include "codecs/color_net.h"

namespace nubo {
namespace {

constexpr Color color_bits = 0xffffff;

constexpr std::size_t longest_step = 503;

/// A number of pixels that a picture of `pixels` is walked through by, so that all of it is seen in no order: a prime
/// that doesn't divide it.
std::size_t step_through(std::size_t pixels) {
    for (const std::size_t prime : {499U, 491U, 487U})
        if (pixels % prime != 0) return prime;
    return longest_step;
}

}  // namespace

bool ColorList::add(Color color) {
    if (color == last_) return true;
    std::size_t at = color * 2654435761U >> (32 - hash_bits);  // Knuth's multiplicative hash
    for (; places_[at] != free_place; at = (at + 1) % places_.size())
        if (colors_[places_[at] - 1U] == color) return last_ = color, true;
    if (count_ == colors_.size()) return false;
    colors_[count_++] = last_ = color;
    places_[at] = static_cast<std::uint16_t>(count_);
    return true;
}

int reduce_colors_exact(BITMAP* bitmap, ExactPalette& palette) {
    ColorList list;
    for (int y = 0; y < bitmap->h; ++y) {
        const Color* const pixels = pixels_at(bitmap, 0, y);
        for (int x = 0; x < bitmap->w; ++x)
            if (!list.add(pixels[x] & color_bits)) return -1;
    }
    palette = list.palette();
    return static_cast<int>(list.count());
}

void reduce_colors_neural(BITMAP* bitmap, int sample, ExactPalette& palette) {
    const auto width = static_cast<std::size_t>(bitmap->w), pixels = width * static_cast<std::size_t>(bitmap->h);
    const std::size_t step = step_through(pixels);
    if (pixels < longest_step) sample = 1;  // of a small picture every pixel counts
    const std::size_t samples = pixels / static_cast<std::size_t>(sample);
    ColorNet net(samples, sample);
    for (std::size_t i = 0, at = 0; i < samples; ++i, at = (at + step) % pixels)
        net.learn(*pixels_at(bitmap, static_cast<int>(at % width), static_cast<int>(at / width)));
    for (std::size_t i = 0; i < palette.size(); ++i) palette[i] = net.color(i);
}

}  // namespace nubo
