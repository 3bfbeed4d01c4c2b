// Actors that are shapes: rays, particles, plasma, discs, tiles, rectangles, squares.
#include "base/bitmap.h"
#include "base/log.h"
#include "codecs/blend.h"
#include "framework/effects.h"
#include "framework/traps.h"
#include "game/actor_families.h"
#include "game/actor_picture.h"
#include "game/behavior_steps.h"
#include "game/draw_actors.h"
#include "state/resources.h"
#include "state/run.h"
#include <algorithm>
#include <span>

namespace nubo {
namespace {

constexpr int fixed_one = 1 << 16, full = 255;  // strength that replaces
constexpr std::int64_t out_of_sight = 1 << 20;  // pixels; farther away than any part of an actor reaches back

/// One point at a strength of 0 to 255, if it lies on the screen.
void blend_point(int x, int y, Color color, int strength) {
    if (frame_contains(screen_buffer, x, y)) blend_fill_row(pixels_at(screen_buffer, x, y), 1, color, strength);
}

struct BlendedCircle {
    Color color;
    int strength;
};
BlendedCircle blended_circle{};  // of the circle under way: `do_circle` hands over one number

void blend_circle_point(BITMAP* /*target*/, int x, int y, int /*unused*/) {
    blend_point(x, y, blended_circle.color, blended_circle.strength);
}

}  // namespace

void draw_ray(int who) {
    const std::size_t w = at(who);
    const auto [x, y] = place_of(who);
    const int length = drawn::Diameter[w], strength = drawn::Color_alpha[w];
    const fixed angle = itofix(drawn::Angle[w] & 255);
    const Color color = UA_palette_color(drawn::Color[w]);
    for (int i = 0; i < length; ++i)
        blend_point(x + static_cast<int>(std::int64_t{i} * fixsin(angle) / fixed_one),
                    y + static_cast<int>(std::int64_t{i} * fixcos(angle) / fixed_one), color,
                    static_cast<int>(std::int64_t{strength} * (length - i) / length));
}

void draw_particles(int who) {
    constexpr int brightest = 255, neighbour_share = 3;
    const std::size_t w = at(who);
    const auto [x, y] = place_of(who);
    const Color color = UA_palette_color(drawn::Color[w]);
    const int total = std::clamp<int>(actor::Particle_total[w], 0, particles_max);
    for (const ParticleWords& particle : std::span(actor::Particle[w]).first(at(total))) {
        const int age = particle.age, life = particle.life;
        if (life < 1 || age >= life) continue;
        const int px = x + particle.x / fine_per_pixel, py = y + particle.y / fine_per_pixel;
        const int strength = static_cast<int>(brightest * (std::int64_t{life} - std::max(age, 0)) / life);
        blend_point(px, py, color, strength);
        for (const auto& [dx, dy] : {ScreenPlace{0, -1}, {0, 1}, {-1, 0}, {1, 0}})
            blend_point(px + dx, py + dy, color, strength / neighbour_share);
    }
}

void draw_plasma(int who) {
    constexpr int hottest = 19, ramp = 8;  // heats of the cells, and palette colours for them
    const std::size_t w = at(who);
    const auto [x, y] = place_of(who);
    const int columns = std::clamp<int>(actor::Plasma_width[w], 0, plasma_side);
    for (int column = 0; column < columns; ++column) {
        const int height = std::clamp<int>(actor::Plasma_height[w][at(column)], 0, plasma_side);
        for (int row = plasma_side - height; row < plasma_side; ++row) {
            const int heat = actor::Plasma_cells[w][at(row)][at(column)];
            if (heat == 0 || heat == cell_cold) continue;
            const int step = std::min(heat, hottest) * ramp / (hottest + 1);
            blend_point(x + column, y + row, UA_palette_color(wrapped_sum(drawn::Color[w], step)), full);
        }
    }
}

void draw_disc(int who) {
    const std::size_t w = at(who);
    const auto [x, y] = place_of(who);
    const int radius = drawn::Diameter[w] / 2;
    const Color color = UA_palette_color(drawn::Color[w]);
    if (radius < 0) return;
    if (drawn::Mode[w] == ACTOR_DRAWN) circle(screen_buffer, x, y, radius, static_cast<int>(color));
    if (drawn::Mode[w] != ACTOR_FILLED) return;
    if (drawn::Facing[w] != 0) {
        circlefill(screen_buffer, x, y, radius, static_cast<int>(color));
    } else {
        blended_circle = {color, drawn::Color_alpha[w]};
        do_circle(screen_buffer, x, y, radius, 0, blend_circle_point);
    }
}

void draw_tile(int who) {
    constexpr int cell = 16, side = 12, margin = (cell - side) / 2;
    const std::size_t w = at(who);
    const auto [x, y] = place_of(who);
    const int from_x = drawn::Frame_x[w] * cell + margin, from_y = drawn::Frame_y[w] * cell + margin;
    if (is_out_of_view(who, {x, y}, cell, cell)) return;
    const OwnedBitmap tile = sheet_part(tile_sheet, from_x, from_y, side, side);
    if (tile) draw_picture(tile.get(), {x + margin, y + margin}, look_of(who));
}

void draw_rectangle_actor(int who) {
    const std::size_t w = at(who);
    draw_rectangle(place_of(who), drawn::Abs_Frame_0[w], drawn::Abs_Frame_1[w], static_cast<Color>(drawn::Color[w]),
                   look_of(who));
}

void draw_pixel_element(int who) {
    if (!UA_trap_object(who)) {
        UA_log("[ ERROR ] : Invalid actor # passed to draw_pixel_element()");
        return;
    }
    const std::size_t w = at(who);
    const int side = drawn::Diameter[w];
    ScreenPlace corner = place_of(who);
    if (drawn::Frame_b[w] != 0) {
        corner = {corner.x - side / 2, corner.y - side / 2};
    } else {
        const std::int64_t cell = side + drawn::Pos_z[w];
        const auto near = [](std::int64_t place) {
            return static_cast<int>(std::clamp(place, -out_of_sight, out_of_sight));
        };
        corner.x =
            near(drawn::Pos_x[w] * cell - drawn::Abs_x[w] * cell / 2 + drawn::Abs_Frame_0[w] + drawn::Pos_z[w] / 2);
        corner.y = near(drawn::Pos_y[w] * cell - drawn::Abs_y[w] * cell / 2 + drawn::Abs_Frame_1[w] - drawn::Pos_z[w]);
    }
    draw_rectangle(corner, side, side, static_cast<Color>(drawn::Color[w]), look_of(who));
}

}  // namespace nubo
