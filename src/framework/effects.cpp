#include "framework/effects.h"

#include "base/bitmap.h"
#include "base/color.h"
#include <algorithm>
#include <array>
#include <span>

namespace nubo {
namespace {

constexpr int mix_whole = 256;

constexpr int mixed(int source, int color, int mix) {
    return source * mix / mix_whole + color * (mix_whole - mix) / mix_whole;
}

constexpr Color mixed_color(Color source, Color color, int mix) {
    return pack_color(mixed(red_of(source), red_of(color), mix), mixed(green_of(source), green_of(color), mix),
                      mixed(blue_of(source), blue_of(color), mix));
}

/// Narrows a run of `length` pixels to what lies inside the source and between two places of the target.
void clip_run(int& source_at, int& target_at, int& length, int source_size, int target_first, int target_end) {
    const int cut = std::max({0, -source_at, target_first - target_at});
    source_at += cut;
    target_at += cut;
    length = std::min({length - cut, source_size - source_at, target_end - target_at});
}

}  // namespace

Color UA_palette_color(int index) {
    return index >= 0 && index < PAL_SIZE ? static_cast<Color>(palette_color[index]) : Color{0};
}

int UA_palette_index(Color color) {
    const std::span<const int, PAL_SIZE> colors(palette_color, PAL_SIZE);
    const auto found = std::find(colors.begin(), colors.end(), static_cast<int>(color));
    return found == colors.end() ? 0 : static_cast<int>(found - colors.begin());
}

void UA_mix_blit(BITMAP* source, BITMAP* target, int sx, int sy, int tx, int ty, int w, int h, Color color, int mix) {
    const DrawArea area = draw_area(target);
    clip_run(sx, tx, w, source->w, area.left, area.right);
    clip_run(sy, ty, h, source->h, area.top, area.bottom);
    mix = std::clamp(mix, 0, mix_whole);
    for (int row = 0; row < h; ++row) {
        const Color* const from = pixels_at(source, sx, sy + row);
        Color* const to = pixels_at(target, tx, ty + row);
        for (int i = 0; i < w; ++i)
            if (from[i] != transparent_color) to[i] = mixed_color(from[i], color, mix);
    }
}

void UA_replace_tones(BITMAP* bitmap, int a, int b, int c, int d, int new_a, int new_b, int new_c, int new_d) {
    struct Tone {
        Color old_color;
        int new_color;
    };
    const std::array<Tone, 4> tones{{{UA_palette_color(a), new_a},
                                     {UA_palette_color(b), new_b},
                                     {UA_palette_color(c), new_c},
                                     {UA_palette_color(d), new_d}}};
    for (int y = 0; y < bitmap->h; ++y)
        for (Color* pixel = pixels_at(bitmap, 0, y); pixel != pixels_at(bitmap, bitmap->w, y); ++pixel)
            for (const Tone& tone : tones)
                if (*pixel == tone.old_color && tone.new_color >= 0) {
                    *pixel = static_cast<Color>(tone.new_color);
                    break;
                }
}

void UA_replace_indices(BITMAP* bitmap, int a, int b, int c, int d, int new_a, int new_b, int new_c, int new_d) {
    const auto color = [](int index) { return index < 0 ? -1 : static_cast<int>(UA_palette_color(index)); };
    UA_replace_tones(bitmap, a, b, c, d, color(new_a), color(new_b), color(new_c), color(new_d));
}

}  // namespace nubo
