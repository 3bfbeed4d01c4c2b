#include "windows/colors/scheme.h"

#include "base/bitmap.h"
#include "base/color.h"
#include "framework/text.h"
#include "paint/inks.h"
#include "state/resources.h"
#include <array>

namespace nubo {
namespace {

// ---- Text colours --------------------------------------------------------------------------------------------------

struct TextRow {
    SchemeColor source;
    TextColor text, preview;
};
constexpr std::array<TextRow, 5> text_rows{{
    {SCHEME_TEXT_LIGHT, TEXT_LIGHT, TEXT_PREVIEW_LIGHT},
    {SCHEME_TEXT_BUTTON, TEXT_BUTTON, TEXT_PREVIEW_BUTTON},
    {SCHEME_TEXT_HIGHLIGHT, TEXT_HIGHLIGHT, TEXT_PREVIEW_HIGHLIGHT},
    {SCHEME_TEXT_LIGHT_ALT, TEXT_LIGHT_ALT, TEXT_PREVIEW_LIGHT_ALT},
    {SCHEME_TEXT_SELECTED, TEXT_SELECTED, TEXT_PREVIEW_SELECTED},
}};
static_assert(rows_in_order(text_rows, &TextRow::source, SCHEME_TEXT_LIGHT));

void read_swatches() {
    for (int i = 0; i < SCHEME_COUNT; ++i)
        color_scheme[at(i)] = static_cast<Color>(gui::color[at(scheme_swatch_first + i)]);
    for (const TextRow& row : text_rows) set_text_color(row.preview, color_scheme[row.source]);
    set_text_color(TEXT_PREVIEW_LIGHT_ALT_DARK, scheme_folder_color(color_scheme));
}

void write_swatches() {
    for (int i = 0; i < SCHEME_COUNT; ++i)
        gui::color[at(scheme_swatch_first + i)] = static_cast<int>(color_scheme[at(i)]);
}

void paint_interface() {
    ui_background = color_scheme[SCHEME_BACKGROUND];
    ui_border = color_scheme[SCHEME_BORDER];
    ui_shadow = color_scheme[SCHEME_SHADOW];
    ui_highlight_fore = color_scheme[SCHEME_HIGHLIGHT_FORE];
    ui_highlight_back = color_scheme[SCHEME_HIGHLIGHT_BACK];
    for (const TextRow& row : text_rows) set_text_color(row.text, color_scheme[row.source]);
    set_text_color(TEXT_LIGHT_ALT_DARK, scheme_folder_color(color_scheme));
}

// ---- Sprites -------------------------------------------------------------------------------------------------------

constexpr int lit_by = 75, ground_lit_by = 60, half = 128, end_dimmed_by = 100;  // of 255
constexpr int template_left = 60, template_right = 109, template_top = 111, template_bottom = 163;
constexpr int end_left = 39, end_right = 47, end_top = 142, end_bottom = 149;
static_assert(end_right < template_right && end_bottom < template_bottom);

/// The sheet comes from a palette of six bits a component: more of a template's red doesn't last.
constexpr int levels = 64;
constexpr int level_of(int red) { return red >> 2; }

/// The colour of each level of red in the templates; `transparent_color` where the level means nothing.
using TemplateColors = std::array<Color, levels>;

TemplateColors template_colors(Color background, Color border, Color shadow, Color background2) {
    const Color between = blend_color(background, border, half);
    TemplateColors colors;
    colors.fill(transparent_color);
    const auto set = [&](int red, Color color) { colors[at(level_of(red))] = color; };
    set(105, shadow);
    set(125, border);
    set(153, background);
    set(206, blend_color(shadow, fixed_white, lit_by));
    set(226, blend_color(border, fixed_white, lit_by));
    set(48, between);
    set(170, blend_color(between, fixed_white, lit_by));
    set(255, blend_color(background2, fixed_white, ground_lit_by));
    return colors;
}

/// Each sprite stands 60 columns to the left of its template.
void paint_templates(const TemplateColors& colors) {
    for (int y = template_top; y <= template_bottom; ++y) {
        Color* const sprites = pixels_at(gui_sheet, 0, y);
        for (int x = template_left; x <= template_right; ++x) {
            if (sprites[x] == transparent_color) continue;
            const Color color = colors[at(level_of(red_of(sprites[x])))];
            if (color != transparent_color) sprites[x - template_left] = color;
        }
    }
}

/// The end pieces among the slider sprites, darker than the shadow.
void paint_ends(Color color) {
    for (int y = end_top; y <= end_bottom; ++y)
        for (int x = end_left; x <= end_right; ++x)
            if (Color& pixel = *pixels_at(gui_sheet, x, y); pixel != transparent_color) pixel = color;
}

bool sheet_holds_sprites() {
    return gui_sheet != nullptr && bitmap_color_depth(gui_sheet) == 32 &&
           frame_contains(gui_sheet, template_right, template_bottom);
}

}  // namespace

Color scheme_folder_color(const Scheme& scheme) {
    constexpr int light_from = 3 * 0x70;  // the sum of the components
    const Color ground = scheme[SCHEME_BACKGROUND], title = scheme[SCHEME_TEXT_LIGHT_ALT];
    return red_of(ground) + green_of(ground) + blue_of(ground) < light_from ? title : dark_text_color(title);
}

void apply_scheme(int mode) {
    if (mode == SCHEME_FROM_SWATCHES) read_swatches();
    if (mode == SCHEME_TO_INTERFACE) paint_interface();
    if (mode == SCHEME_TO_SWATCHES) write_swatches();
}

void recolor_gui_sheet(Color background, Color border, Color shadow, Color background2) {
    if (!sheet_holds_sprites()) return;
    paint_templates(template_colors(background, border, shadow, background2));
    paint_ends(blend_color(shadow, fixed_black, end_dimmed_by));
}

void wear_scheme() {
    apply_scheme(SCHEME_TO_INTERFACE);
    recolor_gui_sheet(color_scheme[SCHEME_BACKGROUND], color_scheme[SCHEME_BORDER], color_scheme[SCHEME_SHADOW],
                      color_scheme[SCHEME_BACKGROUND]);
}

}  // namespace nubo
