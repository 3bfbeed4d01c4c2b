#pragma once
// A window as data: a row for the window, a row for each element, and one builder for all windows. The loop of a window
// calls `update_screen(UPDATE_NORMAL)` and `check_hotkeys(HOTKEYS_MODAL)` on each pass and takes its clicks by
// `take_click`. Main flow only.
#include "gui/elements.h"
#include "state/view.h"
#include "state/windows.h"
#include <span>

namespace nubo {

// ---- Rows ----------------------------------------------------------------------------------------------------------

/// One element: its place is an offset from the window's corner. `fill` names the colour, read when the window is
/// built; for the types whose `color` is a text colour (ELEMENT_TEXT, ELEMENT_CAPTION) `text_color` takes its place.
/// `stops` above 0 makes it a horizontal slider of that many values. What else an element needs (a list's rows, a
/// field's text, a value to write) the window sets after `build_window`, by the calls of gui/elements.h.
struct ElementRow {
    int slot = slot_content;
    ElementType type = ELEMENT_BUTTON;
    int x = 0, y = 0, w = button_w, h = button_h;
    Label label = LABEL_NONE;
    Action left = ACTION_NONE, right = ACTION_NONE;
    Message tooltip = MESSAGE_NONE;
    const Color* fill = &ui_background;
    TextColor text_color = TEXT_OWN_COLORS;
    int stops = 0;
};

struct WindowRow {
    Window id = WINDOW_BOX;         // becomes `menu_id`, unless WINDOW_KEPT
    WindowPosRow place = POS_NONE;  // where it was left; a drag is stored there
    int x = 0, y = 0;               // its default place
    int w = 0, h = 0;
    int child_count = 0;  // slots that it uses, window and title included
    Label title = LABEL_NONE;
    int title_w = 0;
    std::span<const ElementRow> elements{};  // from slot 2 on
};

// ---- Building ------------------------------------------------------------------------------------------------------

/// Builds the window where it was left, `window_pos[place]`, or else at its default place, with `base` as its first
/// slot (the elements' slot numbers count from it), and sets `menu_id`. What stood in those slots goes.
void build_window(const WindowRow& window, int base = slot_window);

/// The same at (x, y): for windows whose place is computed, and for a rebuild where the window stood.
void build_window_at(const WindowRow& window, int x, int y, int base = slot_window);

/// Fills one slot from a row, at the offset from (x, y). For elements that a window rebuilds while it is open.
void build_element(const ElementRow& row, int x, int y, int base = slot_window);

/// The corner of the window on screen, from which the offsets count.
inline int window_x() { return gui::x[slot_window]; }
inline int window_y() { return gui::y[slot_window]; }

/// Reads and clears the click of a slot: 0 none, `click_right` for ACTION_CLICK_RIGHT, else positive.
inline int take_click(int slot) { return gui::click[at(slot)].take(); }

// ---- The window on screen ------------------------------------------------------------------------------------------

/// Flips or sets `hidden` on the slots of the window on screen.
void toggle_window();
void hide_window();

/// Asks the user and waits: 1 for OKAY, 0 for CANCEL. `second` LABEL_NONE for a question of one line; `one_button` has
/// no CANCEL. It closes no window and leaves its own slots standing, 0 to 5, or with `high` 120 to 125 over a window
/// that stays: the caller closes what stood, and clears or rebuilds after it.
int confirm_box(Label text, Label second, bool high, bool one_button);

/// Clears the high slots, 120 to 127.
void clear_high_slots();

}  // namespace nubo
