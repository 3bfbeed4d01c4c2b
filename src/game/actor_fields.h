#pragma once
// The columns of the actors' table, for what goes over all of them.
#include "state/actor_lists.h"

namespace nubo {

/// Calls `visit` with each column of the template behind `Type`, in the order of `actor.lst`: 90. `Type` is left to the
/// caller, who writes it last.
template <typename Visit> void visit_template_fields(Visit visit) {
    using namespace actor;
    const auto visit_all = [&](auto&... columns) { (visit(columns), ...); };
    visit_all(Mode, actor::Profession, Team, Opacity, Facing, Color_alpha, actor::Color, Diameter, Angle, Sprite_angle,
              Frame_x, Frame_y, Frame_a, Frame_b, Pos_x, Pos_y, Pos_z, Tile_x, Tile_y, Tile_z, Fine_x, Fine_y, Fine_z,
              Vel_x, Vel_y, Vel_z, Rotation_Mode, Mask, In_Water, Reserved_a, Health, Stamina, Disposition, Experience,
              Rank, Max_Move, Max_Jump, Speed, Alignment, C_weapon, R_weapon, C_power, R_power, M_power, D_power,
              Self_Destruct, App_link, Suicide_buddy, Puppet_id, Puppet_state, Sprite_offset, Abs_Frame_0, Abs_Frame_1,
              Reserved_b, Reserved_c, Reserved_d_0, Reserved_d_1, Reserved_d_2, Reserved_d_3, Reserved_d_4, Abs_x,
              Abs_y, View_window, Glow_col, Glow_row, Glow_frame, Glow_phase, Attach_to, Attach_dx, Attach_dy,
              Attach_dz, Attach_lock_x, Attach_lock_y, Attach_lock_z, Letter_font, Letter_row, Letter_shadow,
              Letter_reserved, Letter_outline, Letter_blend, Letter_amount, Letter_code, Effect_mode, Effect_param,
              Can_flip, Move_stops_anim, Reserved_e, Reserved_f, Shift_x, Shift_y);
}

/// The same with the other columns of single values, those of the behaviours included, but for `BEHAVIOR`.
template <typename Visit> void visit_further_fields(Visit visit) {
    using namespace actor;
    const auto visit_all = [&](auto&... columns) { (visit(columns), ...); };
    visit_all(Psuedo, Name, Anim_Delay, Anim_Lock, Act_accum, Act_delay, Behavior_delay, Behavior_accum, Behavior_param,
              Kill_on_end, Vertex_count, Poly_fade_start, Poly_fade_end, Poly_wobble, Poly_wobble_phase,
              Poly_wobble_phase_2, Particle_total, Particle_spread_x, Particle_spread_y, Particle_rest, Particle_life,
              Particle_life_spread, Plasma_width, Plasma_cool_period, Plasma_feed_period, Plasma_shift_period,
              Plasma_feeds, Plasma_cooling, Plasma_diameter, Plasma_growth, Plasma_decay);
}

/// The same with the lists: most of the table's bytes.
template <typename Visit> void visit_list_fields(Visit visit) {
    using namespace actor;
    const auto visit_all = [&](auto&... columns) { (visit(columns), ...); };
    visit_all(actor::Wave, Anim_cels, Idle_cels, Move_queue, Vertex_angle, Vertex_radius, Particle, Plasma_height,
              Plasma_cells);
}

}  // namespace nubo
