#include "windows/colors/color_elements.h"

#include "base/bitmap.h"
#include "gui/columns.h"
#include "gui/shapes.h"
#include "paint/spectrum.h"
#include "state/run.h"
#include "state/tools.h"
#include "windows/kit/draw_elements.h"
#include <algorithm>
#include <allegro.h>

namespace nubo {
namespace {

constexpr int scale_max = 255, vga_max = 63;

// ---- Variations ----------------------------------------------------------------------------------------------------

enum HlsSlider : std::size_t { HLS_HUE, HLS_LIGHTNESS, HLS_SATURATION };

HlsSlider slider_of(ElementType variant) {
    if (variant == ELEMENT_VARIANT_HUE) return HLS_HUE;
    return variant == ELEMENT_VARIANT_LIGHT ? HLS_LIGHTNESS : HLS_SATURATION;
}

// ---- The colour map ------------------------------------------------------------------------------------------------

/// The sliders that the plane spans; the third one keeps its place.
struct MapAxes {
    Colorspace space;
    std::size_t across, down;
};
constexpr std::array<MapAxes, SPACE_COUNT> map_axes{{
    {SPACE_VGA, 1, 2},
    {SPACE_RGB, 1, 2},
    {SPACE_HLS, 0, 1},
    {SPACE_HSV, 0, 2},
}};
static_assert(rows_in_order(map_axes, &MapAxes::space));

const MapAxes& axes_of(Colorspace space) { return map_axes[static_cast<std::size_t>(space)]; }

/// The slider's value at a pixel of an axis: pixel 0 lies inside the border of an element `extent` pixels long.
int map_value(Colorspace space, int pixel, int extent) {
    constexpr double steps = 256, vga_share = 0.25;
    const double value = pixel * steps / (extent - 2);
    if (space == SPACE_VGA) return std::clamp(static_cast<int>(value * vga_share), 0, vga_max);
    return std::clamp(static_cast<int>(value), 0, scale_max);
}

/// The slots of the three sliders.
int slider_slot(int map_slot, std::size_t index) {
    return std::clamp<int>(map_slider_of(map_slot, static_cast<int>(index)), 0, gui_slots - 1);
}

}  // namespace

// ---- What they show ------------------------------------------------------------------------------------------------

Color spectrum_strip_color(int column, int width) {
    return spectrum_color(spectrum_start, spectrum_end, ink_option(active_ink(), OPTION_BANDING),
                          static_cast<float>(column) / static_cast<float>(width));
}

Color pressed_spectrum_color(int slot) { return spectrum_strip_color(press_x - gui::x[at(slot)], gui::w[at(slot)]); }

Color variant_color(ElementType variant, Color color, int steps) {
    constexpr int hue_step = 4, other_step = 10;
    std::array<int, 3> hls = color_to_sliders(SPACE_HLS, color);
    const HlsSlider moved = slider_of(variant);
    hls[moved] = std::clamp(hls[moved] + steps * (moved == HLS_HUE ? hue_step : other_step), 0, scale_max);
    return sliders_to_color(SPACE_HLS, hls[HLS_HUE], hls[HLS_LIGHTNESS], hls[HLS_SATURATION]);
}

Color variant_color_of(int slot) {
    const std::size_t s = at(slot);
    return variant_color(static_cast<ElementType>(static_cast<int>(gui::type[s])),
                         static_cast<Color>(int{variant_middle_of(slot)}), variant_steps_of(slot));
}

void map_to_sliders(Colorspace space, int map_slot) {
    const std::size_t s = at(map_slot);
    const auto set_slider = [&](std::size_t index, int value) {
        gui::slider_value[at(slider_slot(map_slot, index))] = value;
    };
    set_slider(axes_of(space).across, map_value(space, press_x - gui::x[s] - 1, gui::w[s]));
    set_slider(axes_of(space).down, map_value(space, press_y - gui::y[s] - 1, gui::h[s]));
}

// ---- Drawing -------------------------------------------------------------------------------------------------------

void draw_swatch(int slot) {
    GUI_box(slot, color_of(slot), color_of(slot) == brush_color ? ui_highlight_fore : ui_border);
}

void draw_swatch_brush(int slot) { GUI_box(slot, brush_color, ui_border); }

/// With a small mark, by which it is told from the swatch of the brush.
void draw_swatch_mask(int slot) {
    GUI_box(slot, mask_color, ui_border);
    constexpr int mark_w = 4, mark_h = 5, mark_dx = 15, mark_dy = 2;
    const int left = gui::x[at(slot)] + mark_dx, top = gui::y[at(slot)] + mark_dy;
    const int right = left + mark_w - 1, bottom = top + mark_h - 1;
    rect(screen_buffer, left, top, right, bottom, static_cast<int>(fixed_black));
    for (const int x : {left, right})
        for (const int y : {top, bottom}) putpixel(screen_buffer, x, y, static_cast<int>(fixed_light));
}

void draw_spectrum(int slot) {
    const std::size_t s = at(slot);
    const auto border = static_cast<Color>(int{border_color_of(slot)});
    GUI_box(slot, color_of(slot), border);
    const int x = gui::x[s], width = gui::w[s], top = gui::y[s] + 1, bottom = gui::y[s] + gui::h[s] - 2;
    for (int column = 1; column < width - 1; ++column)
        vline(screen_buffer, x + column, top, bottom, static_cast<int>(spectrum_strip_color(column, width)));
    GUI_corner_dots(slot, border);
}

void draw_variant(int slot) {
    const Color color = variant_color_of(slot);
    GUI_box(slot, color, ui_border);
}

void draw_color_map(int slot) {
    const std::size_t s = at(slot);
    const auto space = static_cast<Colorspace>(gui::type[s] - ELEMENT_MAP_VGA);
    GUI_box(slot, color_of(slot), ui_border);
    std::array<int, 3> sliders{};
    for (std::size_t i = 0; i < sliders.size(); ++i) sliders[i] = gui::slider_value[at(slider_slot(slot, i))];
    constexpr int least_saturation = 3;  // a hundredth of the scale, so that a gray's map still tells hues apart
    if (space == SPACE_HLS) sliders[HLS_SATURATION] = std::max(sliders[HLS_SATURATION], least_saturation);
    const int left = gui::x[s] + 1, top = gui::y[s] + 1, width = gui::w[s], height = gui::h[s];
    for (int row = 0; row < height - 2; ++row) {
        if (top + row < 0 || top + row >= screen_buffer->h) continue;
        sliders[axes_of(space).down] = map_value(space, row, height);
        for (int column = 0; column < width - 2; ++column) {
            if (!frame_contains(screen_buffer, left + column, top + row)) continue;
            sliders[axes_of(space).across] = map_value(space, column, width);
            *pixels_at(screen_buffer, left + column, top + row) =
                sliders_to_color(space, sliders[0], sliders[1], sliders[2]);
        }
    }
    GUI_corner_dots(slot, ui_border);
}

}  // namespace nubo
