// Sliders: arrows, lane, knob, and the plate with the value.
#include "base/color.h"
#include "codecs/blend.h"
#include "codecs/blend_rows.h"
#include "framework/text.h"
#include "gui/draw_elements.h"
#include "gui/shapes.h"
#include "gui/sliders.h"
#include "state/run.h"
#include <array>
#include <cstdio>

namespace nubo {
namespace {

struct SliderColors {
    Color shadow, border;
    TextColor digits;
};

SliderColors colors_of(int slot) {
    const int type = gui::type[at(slot)];
    if (type == ELEMENT_SCHEME_PANEL || type == ELEMENT_SCHEME_LIST)
        return {color_scheme[SCHEME_SHADOW], color_scheme[SCHEME_BORDER], TEXT_PREVIEW_LIGHT};
    return {ui_shadow, ui_border, TEXT_LIGHT};
}

/// A held arrow takes the sprite below its own.
void draw_arrows(int slot, const SliderPlaces& places) {
    const std::size_t s = at(slot);
    const int w = gui::arrow_w[s], h = gui::arrow_h[s];
    const ArrowRect& sprites = gui::arrow_rect[s];
    const int held = repeat_slot == slot ? static_cast<int>(press_state) : PRESS_IDLE;
    GUI_sprite(sprites.x1, sprites.y1 + (held == PRESS_ARROW_1 ? h : 0), w, h, places.arrow1_x, places.arrow1_y);
    GUI_sprite(sprites.x2, sprites.y2 + (held == PRESS_ARROW_2 ? h : 0), w, h, places.arrow2_x, places.arrow2_y);
}

/// Softens a corner of the lane, halfway to what lies under it.
void soften(int x, int y, Color color) {
    constexpr int half = 128;
    trans_rectfill(screen_buffer, x, y, 1, 1, color, half);
}

/// Three pixels across, with a line along its middle.
void draw_lane(int slot, const SliderPlaces& places, const SliderColors& colors) {
    const std::size_t s = at(slot);
    const bool level = gui::slider_horizontal[s] != 0;
    const int middle = level ? places.arrow1_y + gui::arrow_h[s] / 2 : places.arrow1_x + gui::arrow_w[s] / 2;
    const int first = level ? places.arrow1_x + gui::arrow_w[s] + 1 : places.arrow1_y + gui::arrow_h[s] + 1;
    const int last = (level ? places.arrow2_x : places.arrow2_y) - 2;
    if (last <= first) return;
    const int shadow = static_cast<int>(colors.shadow), border = static_cast<int>(colors.border);
    for (const int side : {-1, 1}) {
        const int line_at = middle + side;
        if (level)
            hline(screen_buffer, first + 1, line_at, last - 1, shadow);
        else
            vline(screen_buffer, line_at, first + 1, last - 1, shadow);
        for (const int end : {first, last}) soften(level ? end : line_at, level ? line_at : end, colors.shadow);
    }
    if (level) {
        hline(screen_buffer, first, middle, last, shadow);
        hline(screen_buffer, first + 1, middle, last - 1, border);
    } else {
        vline(screen_buffer, middle, first, last, shadow);
        vline(screen_buffer, middle, first + 1, last - 1, border);
    }
}

/// The value in digits beside the knob, on the side where there is room for it.
void draw_value_plate(int slot, const SliderPlaces& places, int knob_x, int knob_y, const SliderColors& colors) {
    const std::size_t s = at(slot);
    const Word* const value = gui::value_show[s];
    if (value == nullptr) return;
    constexpr int plate_h = 7, end_w = 4, margin = 2, sheet_y = 126, left_end_x = 44, right_end_x = 39, quarter = 64;
    std::array<char, 16> digits{};
    const char* const top_name = gui::value_text[s];
    if (top_name != nullptr && *value == gui::slider_max[s] - 1)
        std::snprintf(digits.data(), digits.size(), "%s", top_name);
    else
        std::snprintf(digits.data(), digits.size(), "%d", static_cast<int>(*value));
    set_font(FONT_NARROW, colors.digits);
    const int plate_w = text_width(digits.data()) + margin, knob_w = gui::knob_rect[s].w;
    const int last_stop = places.stop_at(slider_last_stop(slot));
    const int y = knob_y + 1;
    const bool on_left = knob_x + knob_w + plate_w + end_w > last_stop + knob_w;
    const int x = on_left ? knob_x - plate_w : knob_x + knob_w;
    rectfill(screen_buffer, x, y, x + plate_w - 1, y + plate_h - 1,
             static_cast<int>(blend_fill_pixel(colors.shadow, fixed_black, quarter)));
    GUI_sprite(on_left ? left_end_x : right_end_x, sheet_y, end_w, plate_h, on_left ? x - end_w : x + plate_w, y);
    UA_text(screen_buffer, x + 1, y + 1, digits.data());
}

}  // namespace

void draw_slider(int slot) {
    const std::size_t s = at(slot);
    const SliderPlaces places = slider_places(slot);
    const SliderColors colors = colors_of(slot);
    draw_arrows(slot, places);
    draw_lane(slot, places, colors);
    const bool level = gui::slider_horizontal[s] != 0;
    const SpriteRect& knob = gui::knob_rect[s];
    const int stop_at = places.stop_at(slider_stop(slot));
    const int knob_x = level ? stop_at : places.arrow1_x + gui::arrow_w[s] / 2 - knob.w / 2;
    const int knob_y = level ? places.arrow1_y + gui::arrow_h[s] / 2 - knob.h / 2 : stop_at;
    GUI_sprite(knob.x, knob.y, knob.w, knob.h, knob_x, knob_y);
    draw_value_plate(slot, places, knob_x, knob_y, colors);
}

}  // namespace nubo
