#pragma once
// The table of GUI elements: 128 slots in parallel columns, one column a field. A window is a run of slots from slot 0,
// a button is a slot. Builders write it on the main flow, `GUI_tick` on the timer thread, so each word is shared.
#include "state/labels.h"
#include "state/messages.h"
#include "state/shared.h"
#include <array>
#include <cstdint>

namespace nubo {

// ---- Numbers -------------------------------------------------------------------------------------------------------

/// What an element is, and so how it is drawn. Any other number draws nothing.
enum ElementType : int {
    ELEMENT_NONE = 0,
    ELEMENT_TEXT = 19,
    ELEMENT_ABOUT = 20,
    ELEMENT_CONSOLE = 22,
    ELEMENT_DESCRIPTION = 23,
    ELEMENT_CAPTION = 24,
    ELEMENT_SWATCH_WAIT = 25,
    ELEMENT_SWATCH = 26,
    ELEMENT_SWATCH_MASK = 27,
    ELEMENT_SWATCH_BRUSH = 28,
    ELEMENT_SPECTRUM = 29,
    ELEMENT_BOX = 30,
    ELEMENT_TITLE = 31,
    ELEMENT_BUTTON = 32,
    ELEMENT_BUTTON_DOWN = 33,
    ELEMENT_BUTTON_LIT = 34,
    ELEMENT_BUTTON_LIT_DARK = 35,
    ELEMENT_TEXT_FIELD = 36,
    ELEMENT_FILE_LIST = 37,
    ELEMENT_LIST = 38,
    ELEMENT_PREVIEW = 39,
    ELEMENT_MINIMAP = 40,
    ELEMENT_THUMBNAIL = 41,
    ELEMENT_ANCHOR_PREVIEW = 43,
    ELEMENT_TIP_CELL = 44,
    ELEMENT_CUSTOM_TIP = 45,
    ELEMENT_TIP_BUTTON = 46,
    ELEMENT_VARIANT_HUE = 47,
    ELEMENT_VARIANT_LIGHT = 48,
    ELEMENT_VARIANT_SAT = 49,
    ELEMENT_MAP_VGA = 50,
    ELEMENT_MAP_RGB = 51,
    ELEMENT_MAP_HLS = 52,
    ELEMENT_MAP_HSV = 53,
    ELEMENT_HOTKEY = 55,
    ELEMENT_FRAME_COUNT = 56,
    ELEMENT_NUMBER = 57,
    ELEMENT_KEPT_WORKSPACE = 58,
    ELEMENT_FILE_NAME = 60,
    ELEMENT_PROGRESS = 61,
    ELEMENT_RADIO_ON = 63,
    ELEMENT_RADIO_OFF = 64,
    ELEMENT_HELP_TEXT = 70,
    ELEMENT_ZOOM_PREVIEW = 71,
    ELEMENT_ARROW = 72,
    ELEMENT_SCHEME_PANEL = 80,
    ELEMENT_SCHEME_SHADOW = 81,
    ELEMENT_SCHEME_BORDER = 82,
    ELEMENT_SCHEME_BUTTON = 84,
    ELEMENT_SCHEME_BUTTON_DARK = 85,
    ELEMENT_SCHEME_FIELD = 86,
    ELEMENT_SCHEME_LIST = 88,
    ELEMENT_FAILURE_BOX = 94,
    ELEMENT_WINDOW = 95,
    ELEMENT_COUNT = 98
};

/// What a press on an element does once the button has risen. "Inside": the place of the press lies in the element.
enum Action : int {
    ACTION_NONE = 0,
    ACTION_ROW = 1,         // of a press on a list's row: nothing on release, the window's loop reads `hover_row`
    ACTION_SPACE_VGA = 10,  // the colour window's four spaces: `click` = slot number, the window moves to that space
    ACTION_SPACE_RGB = 11,
    ACTION_SPACE_HLS = 12,
    ACTION_SPACE_HSV = 13,
    ACTION_CLICK_ONE_INSIDE = 15,  // `click` = 1 if inside
    ACTION_CLICK_ONE = 16,         // `click` = 1
    ACTION_FOCUS = 20,             // gives the text field the keyboard
    ACTION_CLICK = 21,             // `click` = slot number if inside
    ACTION_CLICK_RIGHT = 22,       // `click` = `click_right` if inside
    ACTION_TOGGLE_TOOL = 25,       // flips an option of a tool or an ink, and the button with it
    ACTION_TOGGLE_INK = 26,
    ACTION_FLIP = 30,        // swaps the button between up and down
    ACTION_DRAG = 32,        // picks the window up
    ACTION_FLIP_CLICK = 33,  // flips, and `click` = slot number
    ACTION_PUSH_IN = 34,     // an up button goes down, and `click` = slot number
    ACTION_RADIO = 40        // lights this button of a group and stores its value
};
inline constexpr int click_right = -2;

/// What a text field selects when it gets the keyboard: all, the name of a file without its ending, or, of prose that
/// goes on, nothing.
enum FieldSelects : int { SELECTS_ALL, SELECTS_STEM, SELECTS_NOTHING };

enum ArrowDirection : int { ARROW_UP = 0, ARROW_DOWN = 2 };

// ---- The table -----------------------------------------------------------------------------------------------------

inline constexpr int gui_slots = 128;
inline constexpr int slider_stop_max = 1024, list_row_max = 64, panel_text_size = 64, field_size = 256;
using Short = Shared<std::int16_t>;
using Word = Shared<int>;
struct SpriteRect {
    Short x = 0, y = 0, w = 0, h = 0;
};
struct ArrowRect {
    Short x1 = -1, y1 = -1, x2 = -1, y2 = -1;
};

namespace gui {
// Place and kind.
inline constinit std::array<Short, gui_slots> type{}, x{}, y{}, w{}, h{};
inline constinit std::array<Short, gui_slots> active{};  // in use: only active elements are drawn or hit
inline constinit std::array<Short, gui_slots> hidden{};  // skipped by drawing and hit testing
inline constinit std::array<Short, gui_slots> reserved{};
inline constinit auto hot = filled<Short, gui_slots>(1);  // the mouse over it counts as hover
inline constinit std::array<Short, gui_slots> left_action{}, right_action{}, middle_action{};
inline constinit std::array<Word, gui_slots> click{};  // of the last action: set by GUI_tick, taken by the window
// What it shows.
inline constinit std::array<Word, gui_slots> color{};  // fill; for some types a text colour row or a frame number
inline constinit std::array<Word, gui_slots> label{};  // a Label; for some types a number
inline constinit std::array<Shared<const char*>, gui_slots> value_text{};  // what it says, before `label`
inline constinit std::array<Shared<Word*>, gui_slots> value_ptr{};         // the int that it shows or sets, by type
inline constinit std::array<std::array<Shared<char>, panel_text_size>, gui_slots> panel_text{};
inline constinit std::array<Short, gui_slots> tooltip{};       // a Message, 0 none
inline constinit std::array<Short, gui_slots> child_count{};   // on slot 0: slots that the window uses, from slot 0
inline constinit std::array<Short, gui_slots> border_style{};  // 2: marching ants in place of the border
inline constinit std::array<Short, gui_slots> drag_id{};       // on a title: `window_pos` row of a drag, 0 is `menu_id`
inline constinit std::array<Short, gui_slots> source_x{}, source_y{};  // cell in `tip_sheet`
// Lists.
inline constinit std::array<Short, gui_slots> rows{};                 // rows shown
inline constinit auto row_h = filled<Short, gui_slots>(14);           // height of a row
inline constinit auto row_font = filled<Short, gui_slots>(4);         // FontSlot
inline constinit std::array<Short, gui_slots> row_top{}, row_left{};  // offset of the first row
inline constinit std::array<Short, gui_slots> row_w{};                // 0 means `w`, -1 the width less the slider
// Labels of the rows, and a value each, whose first entries double as parameters of other types.
inline constinit std::array<std::array<Short, list_row_max>, gui_slots> row_ids{};
inline constinit std::array<std::array<Word, list_row_max>, gui_slots> row_values{};
inline constinit auto hover_row = filled<Short, gui_slots>(-1);             // row under the mouse, -1 none
inline constexpr int aux_parameters = 50;                                   // of an element, in a row
inline constinit auto aux = filled<Short, gui_slots * aux_parameters>(-1);  // parameters of special elements, -1 none
// Of one type or action alone.
inline constinit std::array<Short, gui_slots> toggle_number{}, toggle_option{};  // tool or ink, slot of its option
inline constinit std::array<Short, gui_slots> radio_value{};                     // what the button stores
inline constinit std::array<Short, gui_slots> shown_number{};                    // of three digits at most
inline constinit std::array<Short, gui_slots> progress{};                        // percent
inline constinit std::array<Short, gui_slots> arrow_direction{};                 // an ArrowDirection
inline constinit std::array<Short, gui_slots> tip{};                             // number of a tip cell's tip
// Sliders.
inline constinit std::array<Short, gui_slots> has_slider{}, slider_horizontal{};
inline constinit std::array<Word, gui_slots> slider_min{}, slider_max{}, slider_value{};  // min to max - 1
inline constinit std::array<Short, gui_slots> slider_stops{};  // knob positions on the track, at most `slider_stop_max`
inline constinit std::array<Short, gui_slots> slider_ox{}, slider_oy{};  // offset in the element
inline constinit std::array<Short, gui_slots> slider_len{};              // 0 means to the end of the element
inline constinit auto wheel_step = filled<Short, gui_slots>(1);          // change a wheel notch
inline constinit std::array<SpriteRect, gui_slots> knob_rect{};          // sprites in the GUI sheet
inline constinit std::array<ArrowRect, gui_slots> arrow_rect{};
inline constinit auto arrow_w = filled<Short, gui_slots>(10);
inline constinit auto arrow_h = filled<Short, gui_slots>(10);
inline constinit std::array<Shared<Word*>, gui_slots> value_show{};   // the int shown next to the knob
inline constinit std::array<Shared<Word*>, gui_slots> value_write{};  // the int to which `slider_value` is copied
inline constinit std::array<Short, gui_slots> value_write_on{};
// Text fields.
inline constinit std::array<Short, gui_slots> invalid{};  // content is not acceptable
inline constinit std::array<std::array<Shared<char>, field_size>, gui_slots> text{};
inline constinit std::array<Word, gui_slots> cursor{};         // insertion index
inline constinit std::array<Word, gui_slots> field_visible{};  // characters that fit
inline constinit std::array<Word, gui_slots> field_max{};      // most characters that it takes
inline constinit std::array<Word, gui_slots> field_scroll{};   // first character shown
inline constinit auto field_font = filled<Word, gui_slots>(4);
inline constinit std::array<Word, gui_slots> field_selects{};      // a FieldSelects
inline constinit auto field_anchor = filled<Word, gui_slots>(-1);  // other end of what is selected, -1: none is
inline constinit std::array<Word, gui_slots> field_blink{};        // ticks left, after a character without room
}  // namespace gui

// ---- Input, shared by the whole table ------------------------------------------------------------------------------

inline constinit int gui_visible = 1;                      // clear: no element is drawn
inline constinit Shared<int> hover = -1, hover_slot = -1;  // slot under the mouse, -1 none; renewed with the mouse
inline constinit Shared<int> first_live_slot = 0;  // elements below it take no press: `gui_slots` while a tool waits
inline constinit Shared<int> key_focus = -1;       // slot with the keyboard, -1 none
inline constinit Shared<int> mouse_down = 0;       // a press on the GUI is latched
inline constinit Shared<int> press_x = 0, press_y = 0;  // mouse at the press; follows it while right is down
inline constinit Shared<int> press_start_x = 0, press_start_y = 0;  // mouse when the first button went down
inline constinit Shared<int> press_slot = -1;  // slot under the mouse when the first button went down, -1 with no press
enum PressState : int { PRESS_IDLE, PRESS_WAITING, PRESS_ARROW_1, PRESS_ARROW_2 };
inline constinit Shared<int> press_state = PRESS_IDLE;
inline constinit Shared<int> pending_action = 0, pending_element = 0, pending_item = 0;  // to run on release
inline constinit Shared<int> repeat_slot = 0, repeat_ticks = 0, repeat_delay = 0;        // of the arrow held
inline constinit Shared<int> drag_slider = 0;                                            // slot of the dragged knob
inline constinit Shared<int> tooltip_candidate = -1, tooltip_ticks = 0, tooltip_element = -1;
inline constinit Shared<int> pulse = 0, pulse_rising = 1;          // 0 to 100 and back: the current frame's thumbnail
inline constinit Shared<int> pulse_wait = 0;                       // ticks since the start, until the pulse begins
inline constinit std::array<Shared<int>, gui_slots> key_repeat{};  // ticks that each key has been down
inline constinit Shared<int> frames_shown = 0, fps_ticks = 0, fps = 0;
inline constinit Shared<int> cursor_phase = 0;  // of the text cursor, 0 to 6, steps 10 times a second

}  // namespace nubo
