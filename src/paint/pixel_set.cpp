#include "paint/pixel_set.h"

#include "base/memory.h"
#include <algorithm>

namespace nubo {
namespace {

struct Stretch {
    int first = 0, length = 0;
};

/// The shortest stretch that holds all places in use, of which there are some. On a ring that is what lies outside the
/// longest gap.
Stretch shortest_stretch(const std::vector<std::uint8_t>& used, bool is_ring) {
    const int size = static_cast<int>(used.size());
    const auto first_used = static_cast<int>(std::find(used.begin(), used.end(), 1) - used.begin());
    Stretch best{first_used, 0};
    int previous = first_used;
    for (int place = first_used + 1; place < size; ++place) {
        if (used[static_cast<std::size_t>(place)] == 0) continue;
        const int around = size - (place - previous - 1);
        if (is_ring && (best.length == 0 || around < best.length)) best = {place, around};
        previous = place;
    }
    const int straight = previous - first_used + 1;
    return best.length == 0 || straight <= best.length ? Stretch{first_used, straight} : best;
}

}  // namespace

bool PixelSet::reset(int w, int h) {
    const std::size_t size = static_cast<std::size_t>(w) * static_cast<std::size_t>(h);
    std::vector<std::uint8_t> pixels;
    if (!unless_memory_ends([&] { return pixels.resize(size), true; }, false)) return false;
    pixels_ = std::move(pixels);
    width_ = w;
    height_ = h;
    count_ = 0;
    return true;
}

void PixelSet::add_run(int x1, int x2, int y) {
    for (int x = x1; x <= x2; ++x) {
        std::uint8_t& pixel = pixels_[place_of(x, y)];
        count_ += pixel == 0 ? 1U : 0U;
        pixel = 1;
    }
}

void PixelSet::add(const PixelSet& other) {
    std::ranges::transform(pixels_, other.pixels_, pixels_.begin(), std::bit_or<>());
    count_ = static_cast<std::size_t>(std::ranges::count(pixels_, 1));
}

void PixelSet::take_away(const PixelSet& other) {
    std::ranges::transform(pixels_, other.pixels_, pixels_.begin(),
                           [](std::uint8_t pixel, std::uint8_t taken) { return taken != 0 ? std::uint8_t{0} : pixel; });
    count_ = static_cast<std::size_t>(std::ranges::count(pixels_, 1));
}

Area PixelSet::area(bool tiled_across, bool tiled_down) const {
    std::vector<std::uint8_t> columns(static_cast<std::size_t>(width_)), rows(static_cast<std::size_t>(height_));
    for_each_run([&](int x1, int x2, int y) {
        rows[static_cast<std::size_t>(y)] = 1;
        std::fill(columns.begin() + x1, columns.begin() + x2 + 1, std::uint8_t{1});
    });
    const Stretch across = shortest_stretch(columns, tiled_across), down = shortest_stretch(rows, tiled_down);
    return {across.first, down.first, across.first + across.length - 1, down.first + down.length - 1};
}

}  // namespace nubo
