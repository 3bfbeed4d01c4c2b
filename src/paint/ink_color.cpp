// The inks that compute a pixel anew from its components or its hue: ADD, SUB, XOR, PULL, SPARK.
#include "paint/ink_light.h"
#include "paint/ink_rows.h"
#include "paint/spectrum.h"
#include "state/shared.h"

#include <array>

namespace nubo {
namespace {

Hls hls_of(Color color) { return rgb_to_hls(red_of(color), green_of(color), blue_of(color)); }

Color color_of_hls(double hue, double lightness, double saturation) {
    const Rgb rgb = hls_to_rgb(hue, lightness, saturation);
    return pack_color(clamp_component(rgb.r * 255), clamp_component(rgb.g * 255), clamp_component(rgb.b * 255));
}

/// PULL and SPARK: a full pixel becomes `recolor(snapshot)` outright, a soft one is blended toward it. Flat areas are
/// common in drawings and a trip through HLS is dear, so a pixel like the one before takes its colour.
template <typename Recolor> void cover_recolored(const TipRun& run, int coverage, Recolor recolor) {
    constexpr Color none = 0xff000000;  // no pixel has it: its top byte is set
    Color known = none, changed = none;
    cover_run_dear(run, coverage, [&](int i) {
        const Color base = run.before[i];
        if (base != known) known = base, changed = recolor(base);
        return run.tip == 0 ? changed : blend_fill_pixel(base, changed, coverage);
    });
}

/// ADD and SUB with a colour for each pixel. The table is read for a chunk at a time, so that the pixel loop holds
/// nothing but sums.
void add_colors(const TipRun& run, const LightTable& table, Color inversion) {
    constexpr int chunk = 256;
    for (int first = 0; first < run.length; first += chunk) {
        const TipRun part = part_of(run, first, std::min(chunk, run.length - first));
        std::array<Color, chunk> step, rest;
        for (int i = 0; i < part.length; ++i) step[at(i)] = table.step_of(part.colors[i]);
        for (int i = 0; i < part.length; ++i) rest[at(i)] = table.has_rest ? table.rest_of(part.colors[i]) : 0;
        cover_run(part, part.tip_coverage(), [&, before = part.before](int i, Color) {
            return lit(before[i] ^ inversion, {step[at(i)], rest[at(i)]}) ^ inversion;
        });
    }
}

/// ADD, and SUB if it `darkens`: that adds to the inverted pixel and inverts the sum.
void light_row(const InkRow& row, int strength, Color color, bool darkens) {
    const Color inversion = darkens ? 0xffffff : 0;
    for_each_run(row, [=](const TipRun& run) {
        const double share = strength_factor(strength, run.tip);
        if (run.colors != nullptr) return add_colors(run, light_table(share, darkens), inversion);
        const Light light = light_of({share * red_of(color), share * green_of(color), share * blue_of(color)}, darkens);
        cover_run(run, run.tip_coverage(),
                  [=, before = run.before](int i, Color) { return lit(before[i] ^ inversion, light) ^ inversion; });
    });
}

}  // namespace

template <> void paint_row_with<INK_ADD>(const InkRow& row, Color color) {
    light_row(row, strength_of(INK_ADD), color, false);
}
template <> void paint_row_with<INK_SUB>(const InkRow& row, Color color) {
    light_row(row, strength_of(INK_SUB), color, true);
}

// The blend takes 255 less the tip value, the coverage 200 less it. At full the blend's weights are 1 and 0.
template <> void paint_row_with<INK_XOR>(const InkRow& row, Color color) {
    for_each_run(row, [=](const TipRun& run) {
        with_colors(run, color, [&](auto color_at) {
            const Color* const before = run.before;
            if (run.tip == 0)
                cover_run(run, run.tip_coverage(), [=](int i, Color) { return before[i] ^ color_at(i); });
            else
                cover_run_dear(run, run.tip_coverage(),
                               [=](int i) { return blend_color(before[i], before[i] ^ color_at(i), 255 - run.tip); });
        });
    });
}

// The hue moves straight along its scale, by the full strength also on a soft edge; it never takes the short way round.
template <> void paint_row_with<INK_PULL>(const InkRow& row, Color) {
    const int strength = strength_of(INK_PULL);
    const double target = hls_of(brush_color).hue, share = strength / 255.0;
    for_each_run(row, [=](const TipRun& run) {
        cover_recolored(run, strength_coverage(strength, run.tip), [=](Color base) {
            const Hls hls = hls_of(base);
            return color_of_hls(share * (target - hls.hue) + hls.hue, hls.lightness, hls.saturation);
        });
    });
}

template <> void paint_row_with<INK_SPARK>(const InkRow& row, Color) {
    const int strength = strength_of(INK_SPARK);
    for_each_run(row, [=](const TipRun& run) {
        const double lift = run.tip == 0 ? strength : run.tip_coverage() / 200.0 * strength;
        cover_recolored(run, static_cast<int>(lift), [=](Color base) {
            const Hls hls = hls_of(base);
            return color_of_hls(hls.hue, hls.lightness, std::min(hls.saturation + lift, 255.0));
        });
    });
}

}  // namespace nubo
