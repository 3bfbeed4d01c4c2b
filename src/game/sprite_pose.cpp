#include "game/sprite_pose.h"

#include "base/bitmap.h"
#include "base/color.h"
#include <algorithm>

namespace nubo {
namespace {

constexpr int half_circle = 128, fixed_one = 1 << 16;

int wave_shift(const Wave& wave, int line) {
    const int angle = ((wave.frequency & 255) * line + wave.phase) & 255;
    return static_cast<int>(std::int64_t{wave.amplitude} * fixcos(itofix(angle)) / fixed_one);
}

/// The pixels of a line, moved by `by` places; the places that come free hold nothing.
template <std::size_t N> void shift_line(std::array<Color, N>& line, int by) {
    constexpr int length = N;
    const int reach = std::clamp(by, -length, length);
    if (reach > 0) {
        std::copy_backward(line.begin(), line.end() - reach, line.end());
        std::fill_n(line.begin(), reach, transparent_color);
    } else {
        std::copy(line.begin() - reach, line.end(), line.begin());
        std::fill_n(line.end() + reach, -reach, transparent_color);
    }
}

void shift_row(int y, int by) {
    if (by == 0) return;
    std::array<Color, sprite_scratch_w> line;
    std::copy_n(pixels_at(sprite_scratch, 0, y), line.size(), line.begin());
    shift_line(line, by);
    std::copy(line.begin(), line.end(), pixels_at(sprite_scratch, 0, y));
}

void shift_column(int x, int by) {
    if (by == 0) return;
    std::array<Color, sprite_scratch_h> line;
    for (int y = 0; y < sprite_scratch_h; ++y) line[at(y)] = *pixels_at(sprite_scratch, x, y);
    shift_line(line, by);
    for (int y = 0; y < sprite_scratch_h; ++y) *pixels_at(sprite_scratch, x, y) = line[at(y)];
}

Color lit(Color color, Color light, int brightness) {
    const auto channel = [&](int own, int added) { return std::min(own + added * brightness / glow_brightest, 255); };
    return pack_color(channel(red_of(color), red_of(light)), channel(green_of(color), green_of(light)),
                      channel(blue_of(color), blue_of(light)));
}

}  // namespace

void pose_picture(BITMAP* picture, PoseOrigin origin, bool is_mirrored, int angle, int pivot_drop) {
    clear_to_color(sprite_scratch, static_cast<int>(transparent_color));
    if (angle == pose_upright) {
        const auto draw = is_mirrored ? draw_sprite_h_flip : draw_sprite;
        draw(sprite_scratch, picture, origin.x, origin.y);
        return;
    }
    // Mirrored is upside down and then turned by half a circle.
    const auto draw = is_mirrored ? pivot_sprite_v_flip : pivot_sprite;
    const int turn = is_mirrored ? angle + half_circle : angle;
    const int pivot_x = picture->w / 2, pivot_y = picture->h / 2 + (is_mirrored ? -pivot_drop : pivot_drop);
    draw(sprite_scratch, picture, origin.x + picture->w / 2, origin.y + picture->h / 2 + pivot_drop, pivot_x, pivot_y,
         itofix(turn & 255));
}

void shift_pose(int dx, int dy) {
    for (int y = 0; dx != 0 && y < sprite_scratch_h; ++y) shift_row(y, dx);
    for (int x = 0; dy != 0 && x < sprite_scratch_w; ++x) shift_column(x, dy);
}

void wave_pose_rows(const Wave& wave, PoseOrigin origin) {
    if (wave.amplitude == 0) return;
    for (int y = 0; y < sprite_scratch_h; ++y) shift_row(y, wave_shift(wave, y - origin.y));
}

void wave_pose_columns(const Wave& wave, PoseOrigin origin) {
    if (wave.amplitude == 0) return;
    for (int x = 0; x < sprite_scratch_w; ++x) shift_column(x, wave_shift(wave, x - origin.x));
}

void light_pose(BITMAP* light, PoseOrigin origin, int brightness) {
    for (int y = 0; y < light->h; ++y)
        for (int x = 0; x < light->w; ++x) {
            Color& pixel = *pixels_at(sprite_scratch, origin.x + x, origin.y + y);
            const Color added = *pixels_at(light, x, y);
            if (pixel != transparent_color && added != transparent_color) pixel = lit(pixel, added, brightness);
        }
}

}  // namespace nubo
