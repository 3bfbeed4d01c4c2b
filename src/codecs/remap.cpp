#include "codecs/remap.h"

#include "base/bitmap.h"
#include "base/color.h"
#include <algorithm>
#include <array>
#include <climits>
#include <cmath>
#include <vector>

namespace nubo {
namespace {

constexpr Color color_bits = 0xffffff;

// ---- Nearest -------------------------------------------------------------------------------------------------------

void remap_row(Color* pixels, int width, NearestColor& nearest) {
    Color known = nearest.kept(), found = known;  // alike pixels stand side by side
    for (int i = 0; i < width; ++i) {
        const Color color = pixels[i] & color_bits;
        if (color != known) known = color, found = nearest(color);
        pixels[i] = found;
    }
}

// ---- Bayer ---------------------------------------------------------------------------------------------------------

constexpr int bayer_side = 4;
constexpr std::array<std::array<int, bayer_side>, bayer_side> bayer{
    {{0, 8, 2, 10}, {12, 4, 14, 6}, {3, 11, 1, 9}, {15, 7, 13, 5}}};

/// How far the pattern moves a component up and down: as far as colours of the palette lie apart, in the mean.
int bayer_reach(std::span<const Color> colors) {
    double sum = 0;
    for (const Color color : colors) {
        int nearest = INT_MAX;
        for (const Color other : colors) {
            if (other == color) continue;
            const int red = red_of(color) - red_of(other), green = green_of(color) - green_of(other),
                      blue = blue_of(color) - blue_of(other);
            nearest = std::min(nearest, red * red + green * green + blue * blue);
        }
        if (nearest != INT_MAX) sum += std::sqrt(nearest / 3.0);
    }
    return colors.empty() ? 0 : static_cast<int>(sum / static_cast<double>(colors.size()));
}

/// The pattern lies on the picture, wherever the row begins.
void remap_row_by_bayer(Color* pixels, int x, int y, int width, NearestColor& nearest, int reach) {
    const auto& line = bayer[static_cast<std::size_t>(y % bayer_side)];
    for (int i = 0; i < width; ++i) {
        const Color color = pixels[i] & color_bits;
        if (color == nearest.kept()) continue;
        const int moved = (2 * line[static_cast<std::size_t>((x + i) % bayer_side)] - 15) * reach / 32;
        pixels[i] = nearest.of_other(pack_color(clamp_component(red_of(color) + moved),
                                                clamp_component(green_of(color) + moved),
                                                clamp_component(blue_of(color) + moved)));
    }
}

// ---- Diffusion -----------------------------------------------------------------------------------------------------

/// The errors that are handed on, by R. Floyd and L. Steinberg: 7 sixteenths to the pixel ahead, 3, 5 and 1 to those
/// below. Every other row goes back.
class Diffusion {
public:
    explicit Diffusion(int width) : here_(static_cast<std::size_t>(width + 2)), below_(here_) {}

    void remap_row(Color* pixels, int width, NearestColor& nearest, bool goes_back) {
        std::ranges::fill(below_, Error{});
        const int step = goes_back ? -1 : 1;
        for (int done = 0, i = goes_back ? width - 1 : 0; done < width; ++done, i += step) {
            const Color color = pixels[i] & color_bits;
            if (color != nearest.kept()) pixels[i] = remap_pixel(color, i + 1, step, nearest);
        }
        std::swap(here_, below_);
    }

private:
    using Error = std::array<int, 3>;  // in sixteenths, of red, green, blue

    Color remap_pixel(Color color, int place, int step, NearestColor& nearest) {
        const Error& handed = at(here_, place);
        const Error wanted{moved(red_of(color), handed[0]), moved(green_of(color), handed[1]),
                           moved(blue_of(color), handed[2])};
        const Color taken = nearest.of_other(pack_color(wanted[0], wanted[1], wanted[2]));
        const Error error{wanted[0] - red_of(taken), wanted[1] - green_of(taken), wanted[2] - blue_of(taken)};
        for (std::size_t i = 0; i < error.size(); ++i) {
            at(here_, place + step)[i] += 7 * error[i];
            at(below_, place - step)[i] += 3 * error[i];
            at(below_, place)[i] += 5 * error[i];
            at(below_, place + step)[i] += error[i];
        }
        return taken;
    }

    /// Held to what a colour can be, so that what no colour of the palette reaches doesn't pile up.
    static int moved(int component, int sixteenths) { return clamp_component(component + (sixteenths >> 4)); }
    static Error& at(std::vector<Error>& errors, int place) { return errors[static_cast<std::size_t>(place)]; }

    std::vector<Error> here_, below_;  // a pixel more at either end
};

}  // namespace

void remap_pixels(BITMAP* picture, int x, int y, int width, int height, NearestColor& nearest, Dithering dithering) {
    const int reach = dithering == DITHERING_BAYER ? bayer_reach(nearest.colors()) : 0;
    Diffusion diffusion(width);
    for (int row = y; row < y + height; ++row) {
        Color* const pixels = pixels_at(picture, x, row);
        switch (dithering) {
        case DITHERING_BAYER: remap_row_by_bayer(pixels, x, row, width, nearest, reach); break;
        case DITHERING_DIFFUSE: diffusion.remap_row(pixels, width, nearest, row % 2 != 0); break;
        case DITHERING_OFF:
        case DITHERING_COUNT: remap_row(pixels, width, nearest); break;
        }
    }
}

void remap_pixels(BITMAP* picture, NearestColor& nearest, Dithering dithering) {
    remap_pixels(picture, 0, 0, picture->w, picture->h, nearest, dithering);
}

}  // namespace nubo
