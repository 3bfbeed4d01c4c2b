#include "gui/draw.h"

#include "gui/draw_elements.h"
#include "gui/elements.h"
#include <cassert>

namespace nubo {
namespace {

constexpr std::array toolkit_rows{
    DrawerRow{ELEMENT_TEXT, draw_caption},
    DrawerRow{ELEMENT_CONSOLE, draw_console},
    DrawerRow{ELEMENT_CAPTION, draw_caption},
    DrawerRow{ELEMENT_SWATCH_WAIT, draw_swatch_wait},
    DrawerRow{ELEMENT_BOX, draw_box},
    DrawerRow{ELEMENT_TITLE, draw_title},
    DrawerRow{ELEMENT_BUTTON, draw_button},
    DrawerRow{ELEMENT_BUTTON_DOWN, draw_button_down},
    DrawerRow{ELEMENT_BUTTON_LIT, draw_button_lit},
    DrawerRow{ELEMENT_BUTTON_LIT_DARK, draw_button_lit_dark},
    DrawerRow{ELEMENT_TEXT_FIELD, draw_text_field},
    DrawerRow{ELEMENT_LIST, draw_list},
    DrawerRow{ELEMENT_NUMBER, draw_number},
    DrawerRow{ELEMENT_PROGRESS, draw_progress},
    DrawerRow{ELEMENT_RADIO_ON, draw_radio_on},
    DrawerRow{ELEMENT_RADIO_OFF, draw_radio_off},
    DrawerRow{ELEMENT_ARROW, draw_arrow},
    DrawerRow{ELEMENT_FAILURE_BOX, draw_failure_box},
    DrawerRow{ELEMENT_WINDOW, draw_window},
};

using DrawerTable = std::array<ElementDrawer, ELEMENT_COUNT>;

consteval DrawerTable drawers_of_toolkit() {
    DrawerTable table{};
    for (const DrawerRow& row : toolkit_rows) table[at(row.type)] = row.draw;
    return table;
}

/// By type; null: draws nothing.
constinit DrawerTable drawers = drawers_of_toolkit();

}  // namespace

void set_element_drawers(std::span<const DrawerRow> rows) {
    drawers = drawers_of_toolkit();
    for (const DrawerRow& row : rows) {
        assert(drawers[at(row.type)] == nullptr);
        drawers[at(row.type)] = row.draw;
    }
}

void GUI_draw_all() {
    for (int slot = 0; slot < gui_slots; ++slot) {
        if (gui::active[at(slot)] == 0 || gui::hidden[at(slot)] != 0) continue;
        const int type = gui::type[at(slot)];
        if (type >= 0 && type < ELEMENT_COUNT && drawers[at(type)] != nullptr) drawers[at(type)](slot);
        if (gui::has_slider[at(slot)] != 0) draw_slider(slot);
    }
}

}  // namespace nubo
