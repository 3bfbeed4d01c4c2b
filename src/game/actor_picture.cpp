#include "game/actor_picture.h"

#include "codecs/blend.h"
#include "framework/effects.h"
#include "state/run.h"
#include "state/shown.h"
#include <algorithm>

namespace nubo {
namespace {

constexpr Color washed_to = 0xffffff;
constexpr int full = 255;  // strength that replaces

/// The pixel itself, before its effect.
void draw_own_pixel(Color color, int x, int y, const ActorLook& look) {
    if (look.effect == EFFECT_FADED_ALONE && look.mode == ACTOR_TRANSLUCENT) return;
    blend_fill_row(pixels_at(screen_buffer, x, y), 1, color, look.mode == ACTOR_TRANSLUCENT ? look.opacity : full);
}

void draw_with_effect(BITMAP* picture, ScreenPlace corner, const ActorLook& look) {
    for (int y = 0; y < picture->h; ++y)
        for (int x = 0; x < picture->w; ++x) {
            const Color color = *pixels_at(picture, x, y);
            const int to_x = corner.x + x, to_y = corner.y + y;
            if (color == transparent_color) continue;
            if (frame_contains(screen_buffer, to_x, to_y)) draw_own_pixel(color, to_x, to_y, look);
            UA_pixel_effect(picture, screen_buffer, x, y, to_x, to_y, look.effect, look.effect_param, look.opacity,
                            static_cast<int>(transparent_color));
        }
}

}  // namespace

ScreenPlace place_of(int who) {
    const std::size_t w = at(who);
    constexpr int far = 1 << 20;  // a view that lies farther away shows no actor, and sums with it stay numbers
    const int left = std::clamp(shown.pan_x, -far, far), top = std::clamp(shown.pan_y, -far, far);
    const int x = drawn::Abs_x[w] != abs_none ? drawn::Abs_x[w] : drawn::Pos_x[w] - left;
    const int y = drawn::Abs_y[w] != abs_none ? drawn::Abs_y[w] : drawn::Pos_y[w] - top - drawn::Pos_z[w];
    return {x, y};
}

bool is_out_of_view(int who, ScreenPlace corner, int w, int h) {
    if (drawn::Abs_x[at(who)] != abs_none || drawn::Abs_y[at(who)] != abs_none) return false;
    return corner.x >= view_w || corner.y >= view_h || corner.x + w <= 0 || corner.y + h <= 0;
}

OwnedBitmap sheet_part(BITMAP* sheet, int x, int y, int w, int h) {
    const bool is_there = sheet != nullptr && x >= 0 && y >= 0 && x + w <= sheet->w && y + h <= sheet->h;
    return OwnedBitmap(is_there ? create_sub_bitmap(sheet, x, y, w, h) : nullptr);
}

ActorLook look_of(int who) {
    const std::size_t w = at(who);
    return {drawn::Mode[w], drawn::Opacity[w], drawn::Effect_mode[w], drawn::Effect_param[w]};
}

void draw_picture(BITMAP* picture, ScreenPlace corner, const ActorLook& look) {
    const auto& [x, y] = corner;
    const bool is_solid = look.mode == ACTOR_DRAWN, is_translucent = look.mode == ACTOR_TRANSLUCENT;
    if ((is_solid || is_translucent) && look.effect != EFFECT_NONE)
        draw_with_effect(picture, corner, look);
    else if (is_solid)
        masked_blit(picture, screen_buffer, 0, 0, x, y, picture->w, picture->h);
    else if (is_translucent)
        trans_blit(picture, screen_buffer, x, y, look.opacity);
    else if (look.mode == ACTOR_WHITE_FADE)
        UA_mix_blit(picture, screen_buffer, 0, 0, x, y, picture->w, picture->h, washed_to, look.opacity);
}

void draw_rectangle(ScreenPlace corner, int w, int h, Color color, const ActorLook& look) {
    // An effect sees one pixel beyond the screen, where an outline of what stands on it can't be told from none.
    const int left = std::max(corner.x, -1), right = std::min(corner.x + w, view_w + 1);
    const int top = std::max(corner.y, -1), bottom = std::min(corner.y + h, view_h + 1);
    if (left >= right || top >= bottom) return;
    const OwnedBitmap picture = make_bitmap(right - left, bottom - top, color);
    if (picture) draw_picture(picture.get(), {left, top}, look);
}

bool is_first_warning(int who, int about) {
    static std::array<int, actor_count> warned_about{};
    return std::exchange(warned_about[at(who)], about) != about;
}

}  // namespace nubo
