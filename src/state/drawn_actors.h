#pragma once
// The snapshot of the actors that drawing reads: `UA_snapshot_actors` takes it at the start of each screen update, so
// that a behaviour that runs in the middle of a picture shows in the next one. Main flow only. The fields are those of
// state/actors.h; of a free row only `Type` and `Mode` are kept up.
#include "state/actor_lists.h"

namespace nubo {

struct Wave {
    int frequency = 0, amplitude = 0, phase = 0;
};

namespace drawn {
using Column = std::array<int, actor_count>;

inline constinit Column Type{}, Mode{}, Profession{}, View_window{};
inline constinit Column Abs_x{}, Abs_y{}, Abs_Frame_0{}, Abs_Frame_1{};
inline constinit Column Frame_x{}, Frame_y{}, Frame_a{}, Frame_b{};
inline constinit Column Pos_x{}, Pos_y{}, Pos_z{}, Tile_x{}, Tile_y{}, Tile_z{};
inline constinit Column Vel_x{}, Vel_y{}, Vel_z{};
inline constinit Column Opacity{}, Color_alpha{}, Color{}, Diameter{};
inline constinit Column Facing{}, Can_flip{}, Angle{}, Sprite_angle{}, Rotation_Mode{}, Sprite_offset{};
inline constinit Column Effect_mode{}, Effect_param{}, Shift_x{}, Shift_y{};
inline constinit Column Glow_col{}, Glow_row{}, Glow_frame{}, Glow_phase{};
inline constinit Column Letter_font{}, Letter_row{}, Letter_shadow{}, Letter_reserved{};
inline constinit Column Letter_outline{}, Letter_blend{}, Letter_amount{}, Letter_code{};
inline constinit Column Poly_fade_start{}, Poly_fade_end{}, Poly_wobble{}, Poly_wobble_phase{}, Poly_wobble_phase_2{};
inline constinit Column Vertex_count{};  // -1 to 64
inline constinit std::array<std::array<nubo::Wave, actor_waves>, actor_count> Wave{};
inline constinit std::array<std::array<int, actor_vertices>, actor_count> Vertex_angle{}, Vertex_radius{};
inline constinit Column Reserved_e{}, Reserved_f{};
}  // namespace drawn

}  // namespace nubo
