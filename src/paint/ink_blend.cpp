// The inks that blend a pixel with a colour: BRIGHT, DARK, GLASS, OPAQUE, GRAY, GRAIN; and the blending they all use.
#include "base/random.h"
#include "paint/ink_rows.h"

#include <cstdlib>
#include <cstring>
#include <cwchar>

namespace nubo {
namespace {

/// Copies the run's colours, or fills it with the one.
void put_run(const TipRun& run, Color color) {
    const auto length = static_cast<std::size_t>(run.length);
    static_assert(sizeof(wchar_t) == sizeof(Color));
    // The one fill of the standard library for units of 32 bits; it stores wider than a loop does.
    if (run.colors == nullptr)
        std::wmemset(reinterpret_cast<wchar_t*>(run.frame), static_cast<wchar_t>(color), length);
    else
        std::memcpy(run.frame, run.colors, length * sizeof(Color));
}

}  // namespace

// ---- Two colours ---------------------------------------------------------------------------------------------------

bool colors_match(Color a, Color b, int tolerance) {
    return std::abs(red_of(a) - red_of(b)) < tolerance && std::abs(green_of(a) - green_of(b)) < tolerance &&
           std::abs(blue_of(a) - blue_of(b)) < tolerance;
}

Color blend_color(Color a, Color b, int alpha) {
    const double t = alpha / 255.0, rest = 1 - t;
    return pack_color(clamp_component(t * red_of(b) + rest * red_of(a)),
                      clamp_component(t * green_of(b) + rest * green_of(a)),
                      clamp_component(t * blue_of(b) + rest * blue_of(a)));
}

void blend_pixel(int x, int y, Color color, int alpha) {
    if (alpha < 1 || !frame_contains(current_frame, x, y)) return;
    Color& pixel = *pixels_at(current_frame, x, y);
    pixel = blend_fill_pixel(pixel, color, std::min(alpha, 255));
}

// ---- The inks ------------------------------------------------------------------------------------------------------

namespace {

/// Blends toward `target`. The base is the snapshot, not the frame, so that within a stroke the strongest pass wins and
/// nothing adds up. A coverage of 255 gives the colour itself: the blend's weight is then 256 of 256. One of 0 is above
/// no mask.
void blend_row(const InkRow& row, int strength, Color target) {
    for_each_run(row, [=](const TipRun& run) {
        const int alpha = strength_coverage(strength, run.tip);
        with_colors(run, target, [&](auto target_at) {
            cover_run(run, alpha, [=, before = run.before](int i, Color) {
                return blend_fill_pixel(before[i], target_at(i), alpha);
            });
        });
    });
}

/// The row without colours of its own: for the inks that blend toward a fixed one.
InkRow plain(InkRow row) {
    row.colors = nullptr;
    return row;
}

}  // namespace

template <> void paint_row_with<INK_BRIGHT>(const InkRow& row, Color) {
    blend_row(plain(row), strength_of(INK_BRIGHT), ui_white);
}
template <> void paint_row_with<INK_DARK>(const InkRow& row, Color) {
    blend_row(plain(row), strength_of(INK_DARK), ui_black);
}
template <> void paint_row_with<INK_GLASS>(const InkRow& row, Color color) {
    blend_row(row, strength_of(INK_GLASS), color);
}

// A full pixel replaces whatever the stroke has left there and leaves no trace in the mask; a soft one goes over it.
template <> void paint_row_with<INK_OPAQUE>(const InkRow& row, Color color) {
    for_each_run(row, [=](const TipRun& run) {
        if (run.tip == 0) return put_run(run, color);
        const int alpha = run.tip_coverage();
        with_colors(run, color, [&](auto color_at) {
            cover_run(run, alpha, [=](int i, Color painted) { return blend_fill_pixel(painted, color_at(i), alpha); });
        });
    });
}

// On a soft edge the gray comes from what the stroke has already left there, the base from the snapshot.
template <> void paint_row_with<INK_GRAY>(const InkRow& row, Color) {
    const int strength = strength_of(INK_GRAY);
    for_each_run(row, [=](const TipRun& run) {
        const int alpha = strength_coverage(strength, run.tip);
        const bool is_soft = run.tip != 0;
        cover_run(run, alpha, [=, before = run.before](int i, Color painted) {
            const Color source = is_soft ? painted : before[i];
            const int gray = (red_of(source) + green_of(source) + blue_of(source)) / 3;
            return blend_fill_pixel(before[i], pack_color(gray, gray, gray), alpha);
        });
    });
}

// The draw that lets a pixel pass is made at every pixel, even outside the tip: the pattern follows the generator, not
// the tip.
template <> void paint_row_with<INK_GRAIN>(const InkRow& row, Color color) {
    const int strength = strength_of(INK_GRAIN), frequency = held_option(INK_GRAIN, OPTION_GRAIN_FREQUENCY);
    for_each_pixel(row, [=, &canvas = *row.canvas](int x, int tip) {
        if (UA_random(100) > frequency || tip >= tip_outside) return;
        Color& covered = *canvas.mask(x, row.y);
        int alpha = 0, coverage = strength;
        if (tip != 0) alpha = coverage = static_cast<int>(UA_random(strength) / 255.0 * (tip_outside - tip));
        if (static_cast<int>(covered) >= coverage) return;
        if (tip == 0) alpha = UA_random(strength);
        const Color base = *canvas.before(x, row.y);
        const Color target = row.colors == nullptr ? color : row.colors[x - row.x];
        *canvas.frame(x, row.y) = alpha > 0 ? blend_fill_pixel(base, target, alpha) : base;
        covered = static_cast<Color>(coverage);
    });
}

}  // namespace nubo
