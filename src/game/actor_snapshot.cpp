// What is done for a picture before any of it is drawn: who rides follows, and drawing gets its copy.
#include "game/actors.h"
#include "state/drawn_actors.h"
#include <algorithm>
#include <tuple>

namespace nubo {
namespace {

/// Puts an actor to where the one it rides on is, on the axes that aren't locked.
void follow(std::size_t who) {
    const int carrier = actor::Attach_to[who];
    if (carrier < 0 || carrier >= actor_count) return;
    const auto follow_axis = [&](auto& pos, const auto& offset, const auto& lock) {
        if (lock[who] == 0) pos[who] = static_cast<std::int16_t>(pos[at(carrier)] + offset[who]);
    };
    follow_axis(actor::Pos_x, actor::Attach_dx, actor::Attach_lock_x);
    follow_axis(actor::Pos_y, actor::Attach_dy, actor::Attach_lock_y);
    follow_axis(actor::Pos_z, actor::Attach_dz, actor::Attach_lock_z);
}

void copy_place(std::size_t w) {
    using namespace actor;
    std::tie(drawn::Abs_x[w], drawn::Abs_y[w]) = std::tie(Abs_x[w], Abs_y[w]);
    std::tie(drawn::Pos_x[w], drawn::Pos_y[w], drawn::Pos_z[w]) = std::tie(Pos_x[w], Pos_y[w], Pos_z[w]);
    std::tie(drawn::Tile_x[w], drawn::Tile_y[w], drawn::Tile_z[w]) = std::tie(Tile_x[w], Tile_y[w], Tile_z[w]);
    std::tie(drawn::Vel_x[w], drawn::Vel_y[w], drawn::Vel_z[w]) = std::tie(Vel_x[w], Vel_y[w], Vel_z[w]);
    std::tie(drawn::View_window[w], drawn::Profession[w]) = std::tie(View_window[w], actor::Profession[w]);
}

void copy_sprite(std::size_t w) {
    using namespace actor;
    std::tie(drawn::Frame_x[w], drawn::Frame_y[w]) = std::tie(Frame_x[w], Frame_y[w]);
    std::tie(drawn::Frame_a[w], drawn::Frame_b[w]) = std::tie(Frame_a[w], Frame_b[w]);
    std::tie(drawn::Abs_Frame_0[w], drawn::Abs_Frame_1[w]) = std::tie(Abs_Frame_0[w], Abs_Frame_1[w]);
    std::tie(drawn::Facing[w], drawn::Can_flip[w]) = std::tie(Facing[w], Can_flip[w]);
    std::tie(drawn::Angle[w], drawn::Sprite_angle[w]) = std::tie(Angle[w], Sprite_angle[w]);
    std::tie(drawn::Rotation_Mode[w], drawn::Sprite_offset[w]) = std::tie(Rotation_Mode[w], Sprite_offset[w]);
    std::tie(drawn::Shift_x[w], drawn::Shift_y[w]) = std::tie(Shift_x[w], Shift_y[w]);
    std::tie(drawn::Reserved_e[w], drawn::Reserved_f[w]) = std::tie(Reserved_e[w], Reserved_f[w]);
    std::transform(actor::Wave[w].begin(), actor::Wave[w].end(), drawn::Wave[w].begin(), [](const WaveWords& wave) {
        return nubo::Wave{wave.frequency, wave.amplitude, wave.phase};
    });
}

void copy_look(std::size_t w) {
    using namespace actor;
    std::tie(drawn::Mode[w], drawn::Opacity[w]) = std::tie(Mode[w], Opacity[w]);
    std::tie(drawn::Color[w], drawn::Color_alpha[w]) = std::tie(actor::Color[w], Color_alpha[w]);
    std::tie(drawn::Diameter[w]) = std::tie(Diameter[w]);
    std::tie(drawn::Effect_mode[w], drawn::Effect_param[w]) = std::tie(Effect_mode[w], Effect_param[w]);
    std::tie(drawn::Glow_col[w], drawn::Glow_row[w]) = std::tie(Glow_col[w], Glow_row[w]);
    std::tie(drawn::Glow_frame[w], drawn::Glow_phase[w]) = std::tie(Glow_frame[w], Glow_phase[w]);
    std::tie(drawn::Letter_font[w], drawn::Letter_row[w]) = std::tie(Letter_font[w], Letter_row[w]);
    std::tie(drawn::Letter_shadow[w], drawn::Letter_reserved[w]) = std::tie(Letter_shadow[w], Letter_reserved[w]);
    std::tie(drawn::Letter_outline[w], drawn::Letter_blend[w]) = std::tie(Letter_outline[w], Letter_blend[w]);
    std::tie(drawn::Letter_amount[w], drawn::Letter_code[w]) = std::tie(Letter_amount[w], Letter_code[w]);
}

void copy_polygon(std::size_t w) {
    using namespace actor;
    std::tie(drawn::Poly_fade_start[w], drawn::Poly_fade_end[w]) = std::tie(Poly_fade_start[w], Poly_fade_end[w]);
    std::tie(drawn::Poly_wobble[w], drawn::Poly_wobble_phase[w], drawn::Poly_wobble_phase_2[w]) =
        std::tie(Poly_wobble[w], Poly_wobble_phase[w], Poly_wobble_phase_2[w]);
    drawn::Vertex_count[w] = std::min<int>(Vertex_count[w], actor_vertices);
    for (std::size_t i = 0; static_cast<int>(i) < drawn::Vertex_count[w]; ++i)
        std::tie(drawn::Vertex_angle[w][i], drawn::Vertex_radius[w][i]) =
            std::tie(Vertex_angle[w][i], Vertex_radius[w][i]);
}

void copy_actor(std::size_t w) {
    const int type = actor::Type[w].acquire();
    const bool is_there = type != ACTOR_FREE && type != ACTOR_CLAIMED;
    drawn::Type[w] = is_there ? type : ACTOR_FREE;
    drawn::Mode[w] = ACTOR_HIDDEN;
    if (!is_there) return;
    copy_place(w);
    copy_sprite(w);
    copy_look(w);
    copy_polygon(w);
}

}  // namespace

void UA_snapshot_actors() {
    for (std::size_t who = 0; who < actor_count; ++who) follow(who);
    for (std::size_t who = 0; who < actor_count; ++who) copy_actor(who);
}

}  // namespace nubo
