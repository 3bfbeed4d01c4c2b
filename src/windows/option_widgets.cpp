#include "windows/option_widgets.h"

#include "gui/window.h"
#include <algorithm>
#include <array>
#include <span>

namespace nubo {
namespace {

// ---- What controls there are ---------------------------------------------------------------------------------------

enum WidgetKind : int { WIDGET_SLIDER, WIDGET_TOGGLE, WIDGET_BUTTON };

/// A slider has its caption above it: `y` is the caption's. Offsets are from the window's corner.
struct Widget {
    WidgetKind kind;
    Label label;
    int x, y, w;
    int option;  // slot of the option
    Message tooltip;
    int stops = 0, lowest = 0;  // of a slider: its values are `lowest` to `lowest` + `stops` - 1
};
using Widgets = std::span<const Widget>;

constexpr int panel_x = 77, panel_w = 115;  // of captions and sliders
constexpr int slider_below = 10;

constexpr Widget slider(Label label, int y, int option, Message tooltip, int stops, int lowest = 0) {
    return {WIDGET_SLIDER, label, panel_x, y, panel_w, option, tooltip, stops, lowest};
}
constexpr Widget toggle(Label label, int x, int y, int w, int option, Message tooltip) {
    return {WIDGET_TOGGLE, label, x, y, w, option, tooltip};
}

// One slider stands in the middle of the panel, two share it.
constexpr int single_y = 48, upper_y = 35, lower_y = 56;
constexpr int toggle_y = 52, upper_toggle_y = 34;
constexpr int left_toggle_x = 77, right_toggle_x = 135, half_w = 57;
constexpr int byte_stops = 256, percent_stops = 101, driz_stops = 33, radius_stops = 32, jumble_stops = 5;

// ---- Tools ---------------------------------------------------------------------------------------------------------

constexpr std::array filled_widgets{toggle(LABEL_FILLED, 107, toggle_y, 55, OPTION_FILLED, MESSAGE_FILLED)};
constexpr std::array driz_widgets{slider(LABEL_TOOL_RADIUS, upper_y, OPTION_DRIZ_RADIUS, MESSAGE_RADIUS, driz_stops),
                                  slider(LABEL_TAPER, lower_y, OPTION_DRIZ_TAPER, MESSAGE_TAPER, driz_stops)};
constexpr std::array tolerance_widgets{
    slider(LABEL_TOLERANCE, single_y, OPTION_TOLERANCE, MESSAGE_TOLERANCE, byte_stops)};
constexpr std::array move_widgets{
    toggle(LABEL_USE_BRUSH_COLOR, 86, toggle_y, 97, OPTION_USE_BRUSH_COLOR, MESSAGE_NONE)};
constexpr std::array spline_widgets{
    toggle(LABEL_FILLED, left_toggle_x, upper_toggle_y, half_w, OPTION_FILLED, MESSAGE_FILLED),
    toggle(LABEL_CLOSED, right_toggle_x, upper_toggle_y, half_w, OPTION_CLOSED, MESSAGE_CLOSED),
    slider(LABEL_CURVE, lower_y, OPTION_CURVE, MESSAGE_CURVE, percent_stops)};
constexpr std::array spray_widgets{
    slider(LABEL_DENSITY, upper_y, OPTION_SPRAY_DENSITY, MESSAGE_DENSITY, byte_stops),
    slider(LABEL_TOOL_RADIUS, lower_y, OPTION_SPRAY_RADIUS, MESSAGE_RADIUS, radius_stops)};
constexpr std::array text_widgets{toggle(LABEL_ANTIALIAS, 102, toggle_y, 65, OPTION_ANTIALIAS, MESSAGE_ANTIALIAS)};

struct ToolRow {
    BrushTool tool;
    Widgets widgets;
};
constexpr std::array<ToolRow, TOOL_COUNT> tool_rows{{
    {TOOL_NONE, {}},
    {TOOL_BOX, filled_widgets},
    {TOOL_CIRCLE, filled_widgets},
    {TOOL_DRAW, {}},
    {TOOL_DRIZ, driz_widgets},
    {TOOL_EDGE, tolerance_widgets},
    {TOOL_FILL, tolerance_widgets},
    {TOOL_LINE, {}},
    {TOOL_MOVE, move_widgets},
    {TOOL_OVAL, filled_widgets},
    {TOOL_POLY, filled_widgets},
    {TOOL_RPOLY, filled_widgets},
    {TOOL_SEP, tolerance_widgets},
    {TOOL_FSHAPE, filled_widgets},
    {TOOL_SSHAPE, filled_widgets},
    {TOOL_SPIRAL, {}},
    {TOOL_SPLINE, spline_widgets},
    {TOOL_SPRAY, spray_widgets},
    {TOOL_TEXT, text_widgets},
}};
static_assert(rows_in_order(tool_rows, &ToolRow::tool));

// ---- Inks ----------------------------------------------------------------------------------------------------------

constexpr std::array strength_widgets{slider(LABEL_STRENGTH, single_y, OPTION_STRENGTH, MESSAGE_STRENGTH, byte_stops)};
constexpr std::array glow_widgets{slider(LABEL_STRENGTH, upper_y, OPTION_STRENGTH, MESSAGE_STRENGTH, byte_stops),
                                  slider(LABEL_TOOL_RADIUS, lower_y, OPTION_GLOW_RADIUS, MESSAGE_RADIUS, radius_stops)};
constexpr std::array grain_widgets{
    slider(LABEL_STRENGTH, upper_y, OPTION_STRENGTH, MESSAGE_STRENGTH, byte_stops),
    slider(LABEL_FREQUENCY, lower_y, OPTION_GRAIN_FREQUENCY, MESSAGE_FREQUENCY, percent_stops)};
constexpr std::array gradient_widgets{
    toggle(LABEL_REPEAT, left_toggle_x, upper_toggle_y, half_w, OPTION_REPEAT, MESSAGE_REPEAT),
    Widget{WIDGET_BUTTON, LABEL_POSITION, right_toggle_x, upper_toggle_y, half_w, OPTION_NODE, MESSAGE_POSITION},
    slider(LABEL_BANDING, lower_y, OPTION_BANDING, MESSAGE_BANDING, byte_stops)};
static_assert(gradient_widgets[option_slot_position - first_option_slot].kind == WIDGET_BUTTON);
constexpr std::array hollow_widgets{
    slider(LABEL_TOLERANCE, single_y, OPTION_HOLLOW_TOLERANCE, MESSAGE_TOLERANCE, byte_stops)};
constexpr std::array jumble_widgets{
    slider(LABEL_STRENGTH, single_y, OPTION_STRENGTH, MESSAGE_STRENGTH, jumble_stops, /*lowest=*/1)};
constexpr std::array unzag_widgets{slider(LABEL_STRENGTH, single_y, OPTION_STRENGTH, MESSAGE_STRENGTH, percent_stops)};

struct InkRow {
    Ink ink;
    Widgets widgets;
};
constexpr std::array<InkRow, INK_COUNT> ink_rows{{
    {INK_ADD, strength_widgets},
    {INK_BRIGHT, strength_widgets},
    {INK_CLOSE, strength_widgets},
    {INK_DARK, strength_widgets},
    {INK_EMBOSS, strength_widgets},
    {INK_GLASS, strength_widgets},
    {INK_GLOW, glow_widgets},
    {INK_GRAIN, grain_widgets},
    {INK_GRAY, strength_widgets},
    {INK_HGRAD, gradient_widgets},
    {INK_HOLLOW, hollow_widgets},
    {INK_JUMBLE, jumble_widgets},
    {INK_LGRAD, gradient_widgets},
    {INK_OPAQUE, {}},
    {INK_PULL, strength_widgets},
    {INK_RGRAD, gradient_widgets},
    {INK_SCRAPE, strength_widgets},
    {INK_SPARK, strength_widgets},
    {INK_SOFTEN, strength_widgets},
    {INK_SUB, strength_widgets},
    {INK_SWEEP, strength_widgets},
    {INK_TILE, {}},
    {INK_UNZAG, unzag_widgets},
    {INK_VGRAD, gradient_widgets},
    {INK_XOR, {}},
}};
static_assert(rows_in_order(ink_rows, &InkRow::ink));

// ---- Building ------------------------------------------------------------------------------------------------------

/// The options of one tool or ink, and what its toggles tell `GUI_tick`.
struct Target {
    std::array<Word, option_slots>& options;
    Action toggle;
    int number;
};

/// Fills two slots; the option takes a value in the slider's range at once.
void build_slider(const Widget& widget, Word& option, int slot) {
    const int x = window_x() + widget.x, y = window_y() + widget.y;
    GUI_add_label(slot, x, y, widget.w, widget.label);
    const std::size_t s = at(slot + 1);
    GUI_add_slider(slot + 1, x, y + slider_below, widget.w, widget.stops);
    gui::tooltip[s] = static_cast<std::int16_t>(widget.tooltip);
    gui::slider_min[s] = widget.lowest;
    gui::slider_max[s] = widget.lowest + widget.stops;
    option = std::clamp<int>(option, widget.lowest, widget.lowest + widget.stops - 1);
    GUI_link_slider(slot + 1, &option);
}

void build_button(const Widget& widget, const Target& target, int slot) {
    const bool toggles = widget.kind == WIDGET_TOGGLE;
    const bool on = toggles && target.options[at(widget.option)] != 0;
    build_element({.slot = slot,
                   .type = on ? ELEMENT_BUTTON_DOWN : ELEMENT_BUTTON,
                   .x = widget.x,
                   .y = widget.y,
                   .w = widget.w,
                   .label = widget.label,
                   .left = toggles ? target.toggle : ACTION_CLICK,
                   .tooltip = widget.tooltip},
                  window_x(), window_y());
    if (!toggles) return;
    gui::row_ids[at(slot)][0] = static_cast<std::int16_t>(target.number);
    gui::row_ids[at(slot)][1] = static_cast<std::int16_t>(widget.option);
}

void build_widgets(Widgets widgets, const Target& target) {
    for (int slot = first_option_slot; slot < gui_slots; ++slot) GUI_clear_element(slot);
    int slot = first_option_slot;
    for (const Widget& widget : widgets) {
        if (widget.kind == WIDGET_SLIDER) {
            build_slider(widget, target.options[at(widget.option)], slot);
            slot += 2;
        } else {
            build_button(widget, target, slot++);
        }
    }
}

}  // namespace

void build_tool_options(BrushTool tool) {
    build_widgets(tool_rows[at(tool)].widgets, {tool_options[at(tool)], ACTION_TOGGLE_TOOL, tool});
}

void build_ink_options(Ink ink) {
    build_widgets(ink_rows[at(ink)].widgets, {ink_options[at(ink)], ACTION_TOGGLE_INK, ink});
}

}  // namespace nubo
