// GLOW: each pixel of the stroke lights up the disc around it in the frame itself, so that the discs pile up.
#include "paint/image_maps.h"
#include "paint/ink_light.h"
#include "paint/ink_rows.h"

#include <array>
#include <cstdlib>

namespace nubo {
namespace {

constexpr std::size_t reach = glow_distance.size();  // one above the greatest radius

/// The light around a pixel, of one colour, radius and strength.
struct GlowDisc {
    struct Line {
        int half_width = -1;  // pixels to either side of the middle
        std::array<Color, 2 * reach> step, rest;
    };
    int radius;
    bool has_rest;                  // false: the rests are all 0
    std::array<Line, reach> lines;  // by |dy|, up to the radius
};

/// The light by distance: whole in the middle, none one pixel beyond the radius.
std::array<Light, reach> light_by_distance(double strength, int radius, Color color) {
    std::array<Light, reach> light;
    for (int d = 0; d <= radius; ++d) {
        const double weight = (1 - static_cast<double>(d) / (radius + 1)) * strength;
        light[static_cast<std::size_t>(d)] =
            light_of({weight * red_of(color), weight * green_of(color), weight * blue_of(color)});
    }
    return light;
}

void fill_disc_lines(GlowDisc& disc, double strength, int radius, Color color) {
    const auto light = light_by_distance(strength, radius, color);
    const auto light_at = [&](int d) { return light[static_cast<std::size_t>(d)]; };
    while (radius > 0 && light_at(radius).step == 0 && light_at(radius).rest == 0) --radius;  // too weak to be seen
    disc.radius = radius;
    disc.has_rest = std::ranges::any_of(light, [](const Light& l) { return l.rest != 0; });
    for (std::size_t dy = 0; dy <= static_cast<std::size_t>(radius); ++dy) {
        GlowDisc::Line& line = disc.lines[dy];
        line.half_width = -1;
        for (const int d : glow_distance[dy]) line.half_width += d <= radius ? 1 : 0;
        for (int dx = -line.half_width; dx <= line.half_width; ++dx) {
            const Light here = light_at(glow_distance[dy][static_cast<std::size_t>(std::abs(dx))]);
            const int column = line.half_width + dx;
            const auto at = static_cast<std::size_t>(column);
            line.step[at] = here.step;
            line.rest[at] = here.rest;
        }
    }
}

/// A pixel that is white already needs no test of its own: it stays white under any light.
void light_disc(const GlowDisc& disc, int x, int y) {
    const int top = std::max(y - disc.radius, 0), bottom = std::min(y + disc.radius, current_frame->h - 1);
    for (int ny = top; ny <= bottom; ++ny) {
        const GlowDisc::Line& line = disc.lines[static_cast<std::size_t>(std::abs(ny - y))];
        const int left = std::max(x - line.half_width, 0), right = std::min(x + line.half_width, current_frame->w - 1);
        Color* __restrict__ const pixels = pixels_at(current_frame, left, ny);
        const Color* const step = line.step.data() + left - (x - line.half_width);
        const Color* const rest = line.rest.data() + left - (x - line.half_width);
        if (disc.has_rest)
            for (int i = 0; i <= right - left; ++i) pixels[i] = lit(pixels[i], {step[i], rest[i]});
        else
            for (int i = 0; i <= right - left; ++i) pixels[i] = lit(pixels[i], {step[i], 0});
    }
}

/// The disc and what of it comes in from other tiles.
void light_discs(const GlowDisc& disc, int x, int y) {
    for_each_tile({x - disc.radius, y - disc.radius, x + disc.radius, y + disc.radius},
                  [&](int dx, int dy) { light_disc(disc, x + dx, y + dy); });
}

void note_lit(const Area& area) {
    for_each_tile(area, [&](int dx, int dy) {
        note_touched({area.left + dx, area.top + dy, area.right + dx, area.bottom + dy});
    });
}

}  // namespace

// The mask is a flag here: a pixel of the stroke glows once, whatever its tip value.
template <> void paint_row_with<INK_GLOW>(const InkRow& row, Color color) {
    const int strength = strength_of(INK_GLOW), radius = held_option(INK_GLOW, OPTION_GLOW_RADIUS);
    for_each_run(row, [=](const TipRun& run) {
        Color* const end = run.mask + run.length;
        if (std::find(run.mask, end, 0U) == end) return;
        note_lit({run.x - radius, run.y - radius, run.x + run.length - 1 + radius, run.y + radius});
        with_colors(run, color, [&](auto color_at) {
            GlowDisc disc;
            Color known = 0;
            bool is_known = false;
            for (int i = 0; i < run.length; ++i) {
                if (run.mask[i] != 0) continue;
                run.mask[i] = 1;
                if (!is_known || color_at(i) != known)
                    fill_disc_lines(disc, strength_factor(strength, run.tip), radius, known = color_at(i));
                is_known = true;
                light_discs(disc, run.x + i, run.y);
            }
        });
    });
}

}  // namespace nubo
