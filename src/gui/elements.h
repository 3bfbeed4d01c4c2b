#pragma once
// The builders of the element table (state/gui.h): each fills slots, later calls may change any field of them. Places
// are logical pixels of the screen. A window is slot 0, its title slot 1, its content the slots from 2. Main flow only.
#include "state/colors.h"
#include "state/fonts.h"
#include "state/gui.h"
#include <span>

namespace nubo {

// ---- Slots ---------------------------------------------------------------------------------------------------------

inline constexpr int slot_window = 0, slot_title = 1, slot_content = 2;
inline constexpr int zoom_preview_slot = 105;  // to 107
inline constexpr int high_slot = 120;          // to 126: what stands over a window that stays
inline constexpr int free_slot_top = 121;      // the first that `GUI_find_free` offers from the top

/// True for a number of the table.
constexpr bool is_slot(int slot) { return slot >= 0 && slot < gui_slots; }

/// True where typed keys may go: a text field, or the sample of one in the scheme window.
inline bool is_text_field(int slot) {
    if (!is_slot(slot)) return false;
    const int type = gui::type[at(slot)];
    return type == ELEMENT_TEXT_FIELD || type == ELEMENT_SCHEME_FIELD;
}

/// Writes the default into each field of the slot, and returns the slot. A number outside the table is logged.
int GUI_clear_element(int slot);

/// A slot neither active nor reserved: the first from 1 up, or with `from_top` from 121 down; -1 if none.
int GUI_find_free(bool from_top);

/// Clears the slots of the window on screen, 0 to `child_count[0]` - 1.
void GUI_close_window();

// ---- Builders ------------------------------------------------------------------------------------------------------

inline constexpr int button_w = 39, button_h = 9;

/// The frame of a window of `count` slots; slot 0. With `base` another slot than 0, as for the high slots.
void GUI_add_window(int x, int y, int w, int h, int count, int base = slot_window);
/// Its title bar, by which it is dragged; the slot after the window's.
void GUI_add_title(int x, int y, int w, Label label, int base = slot_window);
/// A button of 39 by 9. No action yet: set `left_action`.
void GUI_add_button(int slot, int x, int y, Color color, Label label);
/// Shows a button as one that is on, or off.
void GUI_light_button(int slot, bool is_on);
/// A caption of one line on `ui_border`, without an action.
void GUI_add_label(int slot, int x, int y, int w, Label label);
/// A horizontal slider of the values 0 to `stops` - 1, which shows its value.
void GUI_add_slider(int slot, int x, int y, int w, int stops);
/// The sprites of knob and arrows, by the slider's orientation.
void GUI_set_slider_sprites(int slot);

// ---- More for lists, sliders and fields ----------------------------------------------------------------------------

/// The values of a slider, both ends included, and what a notch of the wheel adds.
struct SliderRange {
    int lowest = 0, highest = 0, step = 10;
};
/// Gives the slider other values. Its knob has a stop for each, or `slider_stop_max` stops for more of them.
void GUI_set_range(int slot, const SliderRange& range);

/// Lays a vertical slider over the element: its offset in it, its values 0 to `stops` - 1.
void GUI_set_vertical_slider(int slot, int ox, int oy, int stops, int wheel_step);

struct ListLayout {
    int rows = 1, row_h = 14;
    Font font = FONT_WIDE;
    int row_w = 0;                  // 0: as wide as the element, -1: less the slider
    int row_top = 0, row_left = 0;  // offset of the first row
};
/// Makes the element a list of the labels `first` to `first` + `count` - 1, of which `rows` show.
void GUI_set_list(int slot, const ListLayout& layout, Label first, int count);

/// The slider starts from `value` and writes into it from now on; the word must live as long as the element.
void GUI_link_slider(int slot, Word* value);

struct FieldLayout {
    int visible = 0, max = 0;  // characters that fit, and that it takes at most, within `field_size` bytes
    Font font = FONT_WIDE;
    FieldSelects selects = SELECTS_ALL;
};
/// Makes the element a text field (`ELEMENT_TEXT_FIELD`, left action ACTION_FOCUS) that holds a copy of `text`.
void GUI_set_field(int slot, const FieldLayout& layout, const char* text);
/// Copies the text of a field, at most as many bytes as `text` has; the last byte is always 0.
void GUI_read_field(int slot, std::span<char> text);

}  // namespace nubo
