// Actors that are pictures: cels of the actor sheet and letters.
#include "base/bitmap.h"
#include "base/geometry.h"
#include "base/log.h"
#include "framework/effects.h"
#include "framework/text.h"
#include "framework/traps.h"
#include "game/actor_picture.h"
#include "game/draw_actors.h"
#include "game/sprite_pose.h"
#include "state/resources.h"
#include <algorithm>
#include <string_view>

namespace nubo {
namespace {

constexpr int cel_side = 32;

// ---- Posing --------------------------------------------------------------------------------------------------------

int aim_angle(int who, int target) {
    if (target >= actor_count) return pose_upright;
    return UA_angle_256(drawn::Pos_x[at(who)], drawn::Pos_y[at(who)], drawn::Pos_x[at(target)],
                        drawn::Pos_y[at(target)]);
}

/// The turn of an actor's picture in 256ths of a circle, `pose_upright` for none.
int turn_of(int who) {
    const std::size_t w = at(who);
    const int mode = drawn::Rotation_Mode[w];
    if (mode < 0) return aim_angle(who, -mode);
    if (mode == ROTATION_BY_ANGLE) return drawn::Sprite_angle[w] & 255;
    if (mode == ROTATION_ALONG_VELOCITY) return UA_angle_256(0, 0, drawn::Vel_x[w], drawn::Vel_y[w]);
    return pose_upright;
}

/// The picture of an actor, mirrored, turned, shifted and waved, in the scratch bitmap.
void pose_actor(int who, BITMAP* picture, PoseOrigin origin) {
    const std::size_t w = at(who);
    const bool is_mirrored = drawn::Can_flip[w] != 0 && drawn::Facing[w] != 0;
    pose_picture(picture, origin, is_mirrored, turn_of(who), drawn::Sprite_offset[w]);
    shift_pose(drawn::Shift_x[w], drawn::Shift_y[w]);
    wave_pose_rows(drawn::Wave[w][wave_horizontal], origin);
    wave_pose_columns(drawn::Wave[w][wave_vertical], origin);
}

/// A picture that is at most mirrored still stands where it was put.
bool is_moved(int who) {
    const std::size_t w = at(who);
    return turn_of(who) != pose_upright || drawn::Shift_x[w] != 0 || drawn::Shift_y[w] != 0 ||
           drawn::Wave[w][wave_horizontal].amplitude != 0 || drawn::Wave[w][wave_vertical].amplitude != 0;
}

/// Draws what of the scratch the picture takes, with the picture's own corner at `corner`.
void draw_pose(int who, const BITMAP* picture, PoseOrigin origin, ScreenPlace corner, const ActorLook& look) {
    if (is_moved(who)) {
        draw_picture(sprite_scratch, {corner.x - origin.x, corner.y - origin.y}, look);
        return;
    }
    const OwnedBitmap part = sheet_part(sprite_scratch, origin.x, origin.y, picture->w, picture->h);
    if (part) draw_picture(part.get(), corner, look);
}

void add_glow(int who, PoseOrigin origin) {
    const std::size_t w = at(who);
    if (drawn::Glow_col[w] == glow_none) return;
    const int x = (drawn::Glow_col[w] + drawn::Glow_frame[w]) * cel_side, y = drawn::Glow_row[w] * cel_side;
    const OwnedBitmap glow = sheet_part(glow_sheet, x, y, cel_side, cel_side);
    if (glow) light_pose(glow.get(), origin, std::clamp<int>(drawn::Glow_phase[w], 0, glow_brightest));
}

// ---- Cels ----------------------------------------------------------------------------------------------------------

/// The four palette colours that the `Letter_` fields name become the four others.
void recolor_pose(int who) {
    const std::size_t w = at(who);
    const int a = drawn::Letter_font[w], b = drawn::Letter_row[w], c = drawn::Letter_shadow[w];
    const int d = drawn::Letter_reserved[w];
    const int new_a = drawn::Letter_outline[w], new_b = drawn::Letter_blend[w], new_c = drawn::Letter_amount[w];
    const int new_d = drawn::Letter_code[w];
    if (a == new_a && b == new_b && c == new_c && d == new_d) return;
    UA_replace_indices(sprite_scratch, a, b, c, d, new_a, new_b, new_c, new_d);
}

/// The rows of the cel above the ground; null when there are none, or no cel.
OwnedBitmap cel_of(int who) {
    const std::size_t w = at(who);
    const int column = drawn::Abs_Frame_0[w] != abs_none ? drawn::Abs_Frame_0[w] : drawn::Frame_x[w];
    const int row = drawn::Abs_Frame_1[w] != abs_none ? drawn::Abs_Frame_1[w] : drawn::Frame_y[w];
    const int x = column * cel_side, y = row * cel_side, rows = cel_side + std::min<int>(drawn::Pos_z[w], 0);
    return rows < 1 ? nullptr : sheet_part(actor_sheet, x, y, cel_side, rows);
}

/// The type is warned of once an actor.
bool is_sprite(int who) {
    const int type = drawn::Type[at(who)];
    const bool is_valid = type == ACTOR_SPRITE;
    if (is_first_warning(who, is_valid ? 0 : type) && !is_valid) {
        UA_log("[ WARNING ] : Invalid target type passed to mask_object()!");
        UA_log("[ STATS ] : who  = %d", who);
        UA_log("[ STATS ] : type = %d", type);
    }
    return is_valid;
}

// ---- Letters -------------------------------------------------------------------------------------------------------

constexpr ScreenPlace letter_at{8, 4};  // in its bitmap, so that shadow and outline have room
constexpr PoseOrigin letter_origin = pose_origin(letter_scratch_w, letter_scratch_h);

/// Draws the letter of an actor as its fields say, but for its translucency, which is that of the picture.
void draw_letter(int who) {
    const std::size_t w = at(who);
    clear_to_color(letter_scratch, static_cast<int>(transparent_color));
    UA_set_font(drawn::Letter_font[w], drawn::Letter_row[w], drawn::Letter_shadow[w], drawn::Letter_reserved[w], 0,
                drawn::Letter_outline[w], std::min<int>(drawn::Letter_blend[w], 0), drawn::Letter_amount[w]);
    const char letter = static_cast<char>(drawn::Letter_code[w]);
    UA_text(letter_scratch, letter_at.x, letter_at.y, std::string_view(&letter, 1));
}

ActorLook letter_look(int who) {
    ActorLook look = look_of(who);
    if (drawn::Letter_blend[at(who)] > 0 && look.mode == ACTOR_DRAWN) {
        look.mode = ACTOR_TRANSLUCENT;
        look.opacity = drawn::Letter_amount[at(who)];
    }
    return look;
}

}  // namespace

void mask_object(int who) {
    if (who < 0 || who >= actor_count || sprite_scratch == nullptr) return;
    const ScreenPlace place = place_of(who);
    if (is_out_of_view(who, place, cel_side, cel_side) || !is_sprite(who)) return;
    const OwnedBitmap cel = cel_of(who);
    if (!cel) return;
    constexpr PoseOrigin origin = pose_origin(cel_side, cel_side);
    pose_actor(who, cel.get(), origin);
    recolor_pose(who);
    add_glow(who, origin);
    draw_pose(who, cel.get(), origin, place, look_of(who));
}

void mask_text(int who) {
    if (!UA_trap_object(who)) {
        UA_log("[ ERROR ] : Invalid actor # passed to mask_text()");
        return;
    }
    const ScreenPlace place = place_of(who);
    if (letter_scratch == nullptr || sprite_scratch == nullptr ||
        is_out_of_view(who, place, letter_scratch_w - letter_at.x, letter_scratch_h - letter_at.y))
        return;
    draw_letter(who);
    pose_actor(who, letter_scratch, letter_origin);
    add_glow(who, letter_origin);
    draw_pose(who, letter_scratch, letter_origin, {place.x - letter_at.x, place.y - letter_at.y}, letter_look(who));
}

}  // namespace nubo
