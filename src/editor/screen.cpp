#include "editor/screen.h"

#include "base/bitmap.h"
#include "base/color.h"
#include "base/jobs.h"
#include "codecs/blend.h"
#include "editor/aids.h"
#include "editor/frame_picture.h"
#include "editor/guide_lines.h"
#include "editor/status_bar.h"
#include "game/actors.h"
#include "game/console_window.h"
#include "game/screen_effects.h"
#include "gui/draw.h"
#include "gui/hit_test.h"
#include "gui/mouse.h"
#include "gui/mouse_text.h"
#include "gui/present.h"
#include "gui/sliders.h"
#include "paint/cel_paste.h"
#include "paint/stroke.h"
#include "paint/surfaces.h"
#include "paint/tools.h"
#include "paint/undo.h"
#include "state/cel.h"
#include "state/flow.h"
#include "state/frames.h"
#include "state/gui.h"
#include "state/mouse.h"
#include "state/options.h"
#include "state/overlay.h"
#include "state/run.h"
#include "state/shown.h"
#include "state/status.h"
#include "state/view.h"
#include "state/windows.h"
#include "view/frame_tiles.h"
#include "windows/kit/handed_files.h"
#include "windows/zoom_preview.h"
#include "workspace/ghosts.h"
#include "workspace/rescue.h"
#include <algorithm>
#include <allegro.h>

namespace nubo {
namespace {

constexpr int pattern_side = 64, checker_patterns = 3;

// ---- Patterns ------------------------------------------------------------------------------------------------------

struct CheckerColors {
    Color even, odd;
};
constexpr std::array<CheckerColors, checker_patterns> checker_colors{
    {{pack_color(152, 150, 109), pack_color(148, 146, 105)},
     {pack_color(84, 98, 143), pack_color(84, 94, 128)},
     {pack_color(110, 97, 83), pack_color(106, 93, 79)}}};

void draw_checkers() {
    constexpr int square = 16;
    for (int pattern = 0; pattern < checker_patterns; ++pattern) {
        const auto [even, odd] = checker_colors[static_cast<std::size_t>(pattern)];
        for (int y = 0; y < pattern_side; ++y)
            for (int x = 0; x < pattern_side; ++x)
                *pixels_at(checker_sheet, pattern * pattern_side + x, y) =
                    ((x + y / square * square) / square) % 2 == 0 ? even : odd;
    }
}

/// Black with white diagonal stripes, four pixels wide in every eight.
void draw_stripes() {
    constexpr int period = 8, width = 4, last = 119;
    for (int start = -1; start <= last; start += period)
        for (int y = start; y < start + width; ++y)
            line(stripe_pattern, 0, y, pattern_side, y - pattern_side, static_cast<int>(fixed_white));
}

// ---- What lies behind the frame -------------------------------------------------------------------------------------

std::size_t shown_level() { return static_cast<std::size_t>(shown.zoom); }

bool covers_view(int pan, float view_size, int frame_size) {
    return pan >= 0 && static_cast<float>(pan) + view_size <= static_cast<float>(frame_size);
}

bool frame_covers_screen() {
    return (tiles_across() || covers_view(shown.pan_x, zoom_view_w[shown_level()], current_frame->w)) &&
           (tiles_down() || covers_view(shown.pan_y, zoom_view_h[shown_level()], current_frame->h));
}

void draw_background() {
    const OwnedBitmap pattern(
        create_sub_bitmap(checker_sheet, shown.checker_index * pattern_side, 0, pattern_side, pattern_side));
    if (!pattern) return;
    drawing_mode(DRAW_MODE_COPY_PATTERN, pattern.get(), 0, 0);
    rectfill(screen_buffer, 0, 0, view_w - 1, view_h - 1, 0);
    solid_mode();
}

// ---- The overlay ---------------------------------------------------------------------------------------------------

void draw_cel_preview() {
    clear_to_color(overlay, static_cast<int>(transparent_color));
    draw_cel(shown.cel_place.mode);
}

void prepare_overlay() {
    if (shown.cel_place.mode != -1) draw_cel_preview();
    if (tool_preview != -1) {
        clear_to_color(overlay, static_cast<int>(transparent_color));
        draw_tool_preview();
    }
    if (draw_over_frame != nullptr) {
        if (tool_preview == -1 && shown.cel_place.mode == -1)
            clear_to_color(overlay, static_cast<int>(transparent_color));
        draw_over_frame();
    }
    draw_measure();
}

// ---- The steps over the frame --------------------------------------------------------------------------------------

void draw_menu_shadow() {
    constexpr int shadow_strength = 64;
    const MenuShadow& at = shown.menu_shadow;
    if (at.x < 0 || at.w < 1) return;
    const OwnedBitmap shadow(create_sub_bitmap(menu_snapshot, at.x, at.y, at.w, at.h));
    if (shadow) trans_blit(shadow.get(), screen_buffer, at.x, at.y, shadow_strength);
}

void take_view_snapshot() {
    shown = {.pan_x = pan_x,
             .pan_y = pan_y,
             .zoom = std::clamp<int>(zoom, zoom_min, zoom_max),
             .pixel_x = pixel_x,
             .pixel_y = pixel_y,
             .mouse_x = mouse_x,
             .mouse_y = mouse_y,
             .status_message = status_message,
             .checker_index = std::clamp<int>(checker_index, 0, checker_patterns - 1),
             .stripe_phase = stripe_phase,
             .hover = hover,
             .cel_place = cel_place,
             .menu_shadow = menu_shadow};
}

/// The cursor is a thing of the frame, under the GUI, or of the screen, over it.
void draw_cursor_below_gui() {
    if (opt_cursor_zoom == 0 && !mouse_over_elements()) draw_cursor(CURSOR_FRAME_PIXELS);
}

void draw_cursor_over_gui() {
    if (opt_cursor_zoom != 0 || mouse_over_elements()) draw_cursor(CURSOR_LOGICAL_PIXELS);
}

/// The memory that the next press takes.
void prepare_for_stroke() {
    if (!prepare_stroke_mask() && mouse_left == 0) prepare_undo_memory();
}

}  // namespace

bool create_screen_bitmaps() {
    replace_bitmap(screen_buffer, make_bitmap(view_w, view_h));
    replace_bitmap(menu_snapshot, make_bitmap(view_w, view_h, transparent_color));
    replace_bitmap(overlay, make_bitmap(view_w, view_h, transparent_color));
    replace_bitmap(checker_sheet, make_bitmap(checker_patterns * pattern_side, pattern_side));
    replace_bitmap(stripe_pattern, make_bitmap(pattern_side, pattern_side, fixed_black));
    if (!screen_buffer || !menu_snapshot || !overlay || !checker_sheet || !stripe_pattern) return false;
    if (!create_effect_bitmaps()) return false;
    draw_checkers();
    draw_stripes();
    return true;
}

void update_screen(int mode) {
    const bool normal = mode == UPDATE_NORMAL, aids = picking_color == 0;
    write_sliders();
    UA_snapshot_actors();
    take_view_snapshot();
    if (!frame_covers_screen()) draw_background();
    if (normal) prepare_overlay();
    const bool with_overlay = normal && (tool_preview_on != 0 || measure_x != -1);
    draw_frame(with_overlay, aids ? FRAME_GUIDED : FRAME_BARE);
    if (aids) draw_guide_lines();
    draw_mouse_texts(with_overlay);
    if (normal && aids && opt_crosshair_strength != 0) draw_crosshairs();
    if (normal && aids) draw_cursor_below_gui();
    draw_menu_shadow();
    if (gui_visible != 0) GUI_draw_all();
    keep_zoom_preview();
    if (normal && aids) draw_cursor_over_gui();
    if (!normal && aids) draw_stroke_cursor();
    draw_status_bar();
    draw_frame_rate();
    if (aids) {
        UA_draw_tint();
        present(prepare_for_stroke);
        if (normal) renew_input();  // while a stroke paints nobody asks for the keys: what is struck then waits
    }
    refresh_ticks = 0;
    UA_run_jobs();
    notice_handed_files();
    if (normal && mouse_left == 0) keep_ghosts();
    // A freehand stroke lasts as long as the button; all other painting shows itself in the stroke's mode.
    autosave_tick(!normal || mouse_left != 0 || area_floats != 0 || frame_behind_preview != nullptr);
}

}  // namespace nubo
