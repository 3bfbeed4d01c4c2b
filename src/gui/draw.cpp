#include "gui/draw.h"

#include "gui/draw_elements.h"
#include "gui/elements.h"
#include <algorithm>
#include <cassert>

namespace nubo {
namespace {

struct TypeRow {
    ElementType type;
    ElementDrawer draw;
};

/// A type that a room above draws; it names its drawer at start.
constexpr ElementDrawer drawn_above = draw_nothing;

constexpr std::array<TypeRow, element_types_in_use> type_rows{{
    {ELEMENT_NONE, draw_nothing},
    {ELEMENT_TEXT, draw_value_text},
    {ELEMENT_ABOUT, drawn_above},
    {ELEMENT_DESCRIPTION, draw_description},
    {ELEMENT_CAPTION, draw_caption},
    {ELEMENT_SWATCH_WAIT, draw_swatch_wait},
    {ELEMENT_SWATCH, draw_swatch},
    {ELEMENT_SWATCH_MASK, draw_swatch_mask},
    {ELEMENT_SWATCH_BRUSH, draw_swatch_brush},
    {ELEMENT_SPECTRUM, drawn_above},
    {ELEMENT_BOX, draw_box},
    {ELEMENT_TITLE, draw_title},
    {ELEMENT_BUTTON, draw_button},
    {ELEMENT_BUTTON_DOWN, draw_button_down},
    {ELEMENT_BUTTON_LIT, draw_button_lit},
    {ELEMENT_BUTTON_LIT_DARK, draw_button_lit_dark},
    {ELEMENT_TEXT_FIELD, draw_text_field},
    {ELEMENT_FILE_LIST, drawn_above},
    {ELEMENT_LIST, draw_list},
    {ELEMENT_PREVIEW, draw_preview},
    {ELEMENT_MINIMAP, drawn_above},
    {ELEMENT_THUMBNAIL, draw_thumbnail},
    {ELEMENT_ANCHOR_PREVIEW, drawn_above},
    {ELEMENT_TIP_CELL, draw_tip_cell},
    {ELEMENT_CUSTOM_TIP, draw_custom_tip},
    {ELEMENT_TIP_BUTTON, draw_tip_button},
    {ELEMENT_VARIANT_HUE, drawn_above},
    {ELEMENT_VARIANT_LIGHT, drawn_above},
    {ELEMENT_VARIANT_SAT, drawn_above},
    {ELEMENT_MAP_VGA, drawn_above},
    {ELEMENT_MAP_RGB, drawn_above},
    {ELEMENT_MAP_HLS, drawn_above},
    {ELEMENT_MAP_HSV, drawn_above},
    {ELEMENT_HOTKEY, draw_hotkey},
    {ELEMENT_FRAME_COUNT, draw_frame_count},
    {ELEMENT_NUMBER, draw_number},
    {ELEMENT_FILE_NAME, draw_file_name},
    {ELEMENT_PROGRESS, draw_progress},
    {ELEMENT_RADIO_ON, draw_radio_on},
    {ELEMENT_RADIO_OFF, draw_radio_off},
    {ELEMENT_HELP_TEXT, drawn_above},
    {ELEMENT_ZOOM_PREVIEW, drawn_above},
    {ELEMENT_ARROW, draw_arrow},
    {ELEMENT_SCHEME_PANEL, draw_scheme_panel},
    {ELEMENT_SCHEME_SHADOW, draw_scheme_shadow},
    {ELEMENT_SCHEME_BORDER, draw_scheme_border},
    {ELEMENT_SCHEME_BUTTON, draw_scheme_button},
    {ELEMENT_SCHEME_BUTTON_DARK, draw_scheme_button_dark},
    {ELEMENT_SCHEME_FIELD, draw_scheme_field},
    {ELEMENT_SCHEME_LIST, draw_scheme_list},
    {ELEMENT_FAILURE_BOX, draw_failure_box},
    {ELEMENT_WINDOW, draw_window},
}};
/// A row for each type in use, since the rows are as many and each has its own.
static_assert(std::is_sorted(type_rows.begin(), type_rows.end(),
                             [](const TypeRow& a, const TypeRow& b) { return a.type <= b.type; }));

using DrawerTable = std::array<ElementDrawer, ELEMENT_COUNT>;

consteval DrawerTable drawers_by_type() {
    DrawerTable table{};
    table.fill(draw_nothing);
    for (const TypeRow& row : type_rows) table[static_cast<std::size_t>(row.type)] = row.draw;
    return table;
}

/// By type; the rooms above fill in theirs at start.
constinit DrawerTable drawers = drawers_by_type();

}  // namespace

void set_element_drawer(ElementType type, ElementDrawer draw) {
    assert(std::any_of(type_rows.begin(), type_rows.end(),
                       [type](const TypeRow& row) { return row.type == type && row.draw == drawn_above; }));
    drawers[static_cast<std::size_t>(type)] = draw;
}

void GUI_draw_all() {
    for (int slot = 0; slot < gui_slots; ++slot) {
        if (gui::active[at(slot)] == 0 || gui::hidden[at(slot)] != 0) continue;
        const auto type = static_cast<std::size_t>(static_cast<int>(gui::type[at(slot)]));
        if (type < drawers.size()) drawers[type](slot);
        if (gui::has_slider[at(slot)] != 0) draw_slider(slot);
    }
}

}  // namespace nubo
