// GLOW: each pixel of the stroke lights up the disc around it in the frame itself, so that the discs pile up.
#include "paint/ink_rows.h"

#include <array>
#include <cmath>
#include <cstdlib>

namespace nubo {
namespace {

constexpr int pixel_bytes = sizeof(Color);
constexpr int reach = static_cast<int>(glow_distance.size());  // one above the greatest radius
constexpr int side = 2 * reach;

/// What is added to one component `c` of a pixel: trunc(c + amount), at most 255, in whole numbers. That is c +
/// `whole`, and 1 more where c is above `last_plain`: an amount a hair below a whole number is rounded up to it once
/// the sum is large enough to lose the hair.
struct Light {
    std::uint8_t whole = 0, last_plain = 255;
};

Light light_of(double amount) {
    const int whole = static_cast<int>(amount);
    Light light{static_cast<std::uint8_t>(whole), 255};
    constexpr double hair = 1e-9;
    if (amount - whole < 1 - hair) return light;
    for (int c = 0; c <= 255; ++c)
        if (static_cast<int>(c + amount) > c + whole) return {light.whole, static_cast<std::uint8_t>(c - 1)};
    return light;
}

/// The disc of one colour, radius and strength, a pixel's light beside the next as the frame's bytes lie.
struct GlowDisc {
    struct Line {
        int half_width = -1;  // pixels to either side; -1: none
        std::array<std::uint8_t, side * pixel_bytes> whole, last_plain;
    };
    int radius;
    std::array<Line, static_cast<std::size_t>(reach)> lines;  // by |dy|

    GlowDisc(double strength, int radius, Color color);
};

GlowDisc::GlowDisc(double strength, int disc_radius, Color color) : radius(disc_radius) {
    std::array<std::array<Light, pixel_bytes>, static_cast<std::size_t>(reach)> light{};  // by distance
    for (int d = 0; d <= radius; ++d) {
        const double weight = (1 - static_cast<double>(d) / (radius + 1)) * strength;
        light[static_cast<std::size_t>(d)] = {light_of(weight * blue_of(color)), light_of(weight * green_of(color)),
                                              light_of(weight * red_of(color)), Light{}};
    }
    for (std::size_t dy = 0; dy <= static_cast<std::size_t>(radius); ++dy) {
        Line& line = lines[dy];
        for (const int d : glow_distance[dy]) line.half_width += d <= radius ? 1 : 0;
        for (int dx = -line.half_width; dx <= line.half_width; ++dx) {
            const auto distance = static_cast<std::size_t>(glow_distance[dy][static_cast<std::size_t>(std::abs(dx))]);
            for (std::size_t byte = 0; byte < pixel_bytes; ++byte) {
                const std::size_t at = static_cast<std::size_t>(line.half_width + dx) * pixel_bytes + byte;
                line.whole[at] = light[distance][byte].whole;
                line.last_plain[at] = light[distance][byte].last_plain;
            }
        }
    }
}

/// A pixel that is white already needs no test: it stays white under any light.
void light_line(std::uint8_t* __restrict__ pixels, const std::uint8_t* whole, const std::uint8_t* last_plain,
                int bytes) {
    for (int i = 0; i < bytes; ++i) {
        const int lit = pixels[i] + whole[i] + (pixels[i] > last_plain[i] ? 1 : 0);
        pixels[i] = static_cast<std::uint8_t>(std::min(lit, 255));
    }
}

void light_disc(const GlowDisc& disc, int x, int y) {
    const int top = std::max(y - disc.radius, 0), bottom = std::min(y + disc.radius, current_frame->h - 1);
    for (int ny = top; ny <= bottom; ++ny) {
        const GlowDisc::Line& line = disc.lines[static_cast<std::size_t>(std::abs(ny - y))];
        const int left = std::max(x - line.half_width, 0), right = std::min(x + line.half_width, current_frame->w - 1);
        const int skipped = (left - (x - line.half_width)) * pixel_bytes;
        light_line(reinterpret_cast<std::uint8_t*>(pixels_at(current_frame, left, ny)), line.whole.data() + skipped,
                   line.last_plain.data() + skipped, (right + 1 - left) * pixel_bytes);
    }
}

}  // namespace

void fill_glow_distances() {
    for (std::size_t i = 0; i < glow_distance.size(); ++i)
        for (std::size_t j = 0; j < glow_distance.size(); ++j)
            glow_distance[i][j] = static_cast<int>(std::sqrt(static_cast<double>(i * i + j * j)));
}

// The mask is a flag here: a pixel of the stroke glows once, whatever its tip value.
void ink_glow_row(const InkRow& row, int strength, int radius, Color color) {
    for_each_run(row, [=](const TipRun& run) {
        Color* const end = run.mask + run.length;
        if (std::find(run.mask, end, 0U) == end) return;
        const GlowDisc disc(strength_factor(strength, run.tip), radius, color);
        for (int i = 0; i < run.length; ++i) {
            if (run.mask[i] != 0) continue;
            run.mask[i] = 1;
            light_disc(disc, run.x + i, run.y);
        }
    });
}

}  // namespace nubo
