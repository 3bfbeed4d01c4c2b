#include "codecs/alpha.h"

#include "base/color.h"

namespace nubo {
namespace {

constexpr Color color_bits = 0xffffff;
constexpr int half_alpha = 128, whole_alpha = 255;

int alpha_of(Color pixel) { return static_cast<int>(pixel >> 24); }

Color moved_color(Color color, Color mask, Color clear) {
    constexpr int blue_max = 255;
    const auto moved = [color, blue = static_cast<int>(color & blue_max)](int step) {
        return color + static_cast<Color>(blue + step <= blue_max ? step : -step);
    };
    const Color near = moved(1);
    return near == mask || near == clear ? moved(2) : near;
}

}  // namespace

Color flattened(Color pixel, Color below) {
    const int alpha = alpha_of(pixel);
    const auto mix = [alpha](int over, int under) {
        return (over * alpha + under * (whole_alpha - alpha) + whole_alpha / 2) / whole_alpha;
    };
    return pack_color(mix(red_of(pixel), red_of(below)), mix(green_of(pixel), green_of(below)),
                      mix(blue_of(pixel), blue_of(below)));
}

void settle_alpha(ReadPicture& picture, AlphaRule rule, Color mask, Color clear) {
    if (!picture.has_alpha || !picture.bitmap) return;
    const int solid_from = rule == ALPHA_MASK ? half_alpha : whole_alpha;
    bool is_cut = false;
    const auto settled = [&](Color pixel) {
        const int alpha = alpha_of(pixel);
        const Color color = pixel & color_bits;
        is_cut = is_cut || (alpha > 0 && alpha < whole_alpha);
        if (alpha >= solid_from && (color == mask || color == clear)) {
            ++picture.loss.moved;
            return moved_color(color, mask, clear);
        }
        if (rule == ALPHA_FLATTEN) return flattened(pixel, mask);
        return alpha < half_alpha ? clear : color;
    };
    for (int y = 0; y < picture.bitmap->h; ++y) {
        Color* const pixels = pixels_at(picture.bitmap.get(), 0, y);
        for (int x = 0; x < picture.bitmap->w; ++x) pixels[x] = settled(pixels[x]);
    }
    picture.has_alpha = false;
    picture.loss.alpha = rule == ALPHA_MASK && is_cut;
}

}  // namespace nubo
