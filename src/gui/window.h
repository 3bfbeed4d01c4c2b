#pragma once
// A window as data: a row for the window, a row for each element, and one builder for all windows. What it does while
// it is open stands in windows/kit/run_window.h. Main flow only.
#include "gui/elements.h"
#include "state/hotkeys.h"
#include "state/windows.h"
#include <span>

namespace nubo {

// ---- Rows ----------------------------------------------------------------------------------------------------------

/// One element: its place is an offset from the window's corner. `fill` names the colour, read when the window is
/// built; for the types whose `color` is a text colour (ELEMENT_TEXT, ELEMENT_CAPTION) `text_color` takes its place.
/// A `range` of more than one value makes it a horizontal slider. What else an element needs (a list's rows, a
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
    SliderRange range{};
    const char* text = nullptr;  // what it says where no label does; lives as long as the element
};

/// A right press with no element under it: does nothing, cancels the window, or hides it and shows it again.
enum OutsidePress : int { OUTSIDE_NOTHING, OUTSIDE_CANCELS, OUTSIDE_HIDES };
/// The keys that act while the window is open: those of all windows, ESC alone, or none, since all are the window's
/// own.
enum WindowKeys : int { KEYS_MODAL, KEYS_ESCAPE, KEYS_OWN };

struct WindowRow {
    Window id = WINDOW_BOX;         // becomes `menu_id`, unless WINDOW_KEPT
    WindowPosRow place = POS_NONE;  // where it was left; a drag is stored there
    int x = 0, y = 0;               // its default place
    int w = 0, h = 0;
    int child_count = 0;  // slots that it uses, window and title included
    Label title = LABEL_NONE;
    const char* title_text = nullptr;  // the title where no label has it
    int title_w = 0;
    std::span<const ElementRow> elements{};  // from slot 2 on
    int base = slot_window;                  // its first slot; the slots above count from it
    // How it ends and what works meanwhile, for `run_window`.
    int okay = 0, cancel = 0;   // elements whose click ends it, 0 none
    Hotkey key = HOTKEY_COUNT;  // opens it, and cancels it; HOTKEY_COUNT none
    OutsidePress outside = OUTSIDE_NOTHING;
    WindowKeys keys = KEYS_MODAL;
    int focus = 0;                  // text field that has the keyboard at first, 0 none
    Message prompt = MESSAGE_NONE;  // in the status bar as long as it is open
    bool shadows = false;           // what stood before stays dimly visible behind it
    bool pans = false;              // the middle button pans the Frame behind it
    bool gives_way = false;  // left without loss: it ends, as by CANCEL, where the user opens a file from outside
};

// ---- Building ------------------------------------------------------------------------------------------------------

/// Builds the window where it was left, `window_pos[place]`, or else at its default place, and sets `menu_id`. What
/// stood in those slots goes.
void build_window(const WindowRow& window);

/// The same at (x, y): for a rebuild where the window stood.
void build_window_at(const WindowRow& window, int x, int y);

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

/// Clears the high slots, 120 to 127.
void clear_high_slots();

}  // namespace nubo
