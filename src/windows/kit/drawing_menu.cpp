#include "windows/kit/drawing_menu.h"

#include "gui/columns.h"
#include "gui/window.h"
#include "state/colors.h"
#include "state/tools.h"
#include "windows/kit/choice_slots.h"
#include <array>

namespace nubo {
namespace {

// clang-format off
constexpr std::array<ElementRow, DRAWING_SLOTS - slot_content> rows{{
    // slot                   type                       x   y   w  h  label        left          right               tooltip                     fill
    {DRAWING_FRAME,           ELEMENT_BUTTON_LIT_DARK,  82,  2, 39, 9, LABEL_FRAME, ACTION_CLICK, ACTION_NONE,        MESSAGE_FRAME_MENU,         &ui_background},
    {DRAWING_UNDO,            ELEMENT_BUTTON_LIT_DARK,  42,  2, 39, 9, LABEL_UNDO,  ACTION_CLICK, ACTION_CLICK_RIGHT, MESSAGE_UNDO_REDO,          &ui_background},
    {DRAWING_TOOL_FIRST,      ELEMENT_BUTTON,            2, 12, 39, 9, LABEL_NONE,  ACTION_CLICK, ACTION_CLICK_RIGHT, MESSAGE_TOOL_SLOT,          &ui_background},
    {DRAWING_TOOL_FIRST + 1,  ELEMENT_BUTTON,           42, 12, 39, 9, LABEL_NONE,  ACTION_CLICK, ACTION_CLICK_RIGHT, MESSAGE_TOOL_SLOT,          &ui_background},
    {DRAWING_TOOL_FIRST + 2,  ELEMENT_BUTTON,           82, 12, 39, 9, LABEL_NONE,  ACTION_CLICK, ACTION_CLICK_RIGHT, MESSAGE_TOOL_SLOT,          &ui_background},
    {DRAWING_TOOL_FIRST + 3,  ELEMENT_BUTTON,            2, 22, 39, 9, LABEL_NONE,  ACTION_CLICK, ACTION_CLICK_RIGHT, MESSAGE_TOOL_SLOT,          &ui_background},
    {DRAWING_TOOL_FIRST + 4,  ELEMENT_BUTTON,           42, 22, 39, 9, LABEL_NONE,  ACTION_CLICK, ACTION_CLICK_RIGHT, MESSAGE_TOOL_SLOT,          &ui_background},
    {DRAWING_TOOL_FIRST + 5,  ELEMENT_BUTTON,           82, 22, 39, 9, LABEL_NONE,  ACTION_CLICK, ACTION_CLICK_RIGHT, MESSAGE_TOOL_SLOT,          &ui_background},
    {DRAWING_INK_FIRST,       ELEMENT_BUTTON,          199, 12, 39, 9, LABEL_NONE,  ACTION_CLICK, ACTION_CLICK_RIGHT, MESSAGE_INK_SLOT,           &ui_background},
    {DRAWING_INK_FIRST + 1,   ELEMENT_BUTTON,          239, 12, 39, 9, LABEL_NONE,  ACTION_CLICK, ACTION_CLICK_RIGHT, MESSAGE_INK_SLOT,           &ui_background},
    {DRAWING_INK_FIRST + 2,   ELEMENT_BUTTON,          279, 12, 39, 9, LABEL_NONE,  ACTION_CLICK, ACTION_CLICK_RIGHT, MESSAGE_INK_SLOT,           &ui_background},
    {DRAWING_INK_FIRST + 3,   ELEMENT_BUTTON,          199, 22, 39, 9, LABEL_NONE,  ACTION_CLICK, ACTION_CLICK_RIGHT, MESSAGE_INK_SLOT,           &ui_background},
    {DRAWING_INK_FIRST + 4,   ELEMENT_BUTTON,          239, 22, 39, 9, LABEL_NONE,  ACTION_CLICK, ACTION_CLICK_RIGHT, MESSAGE_INK_SLOT,           &ui_background},
    {DRAWING_INK_FIRST + 5,   ELEMENT_BUTTON,          279, 22, 39, 9, LABEL_NONE,  ACTION_CLICK, ACTION_CLICK_RIGHT, MESSAGE_INK_SLOT,           &ui_background},
    {DRAWING_PIC,             ELEMENT_BUTTON_LIT_DARK, 199,  2, 39, 9, LABEL_PIC,   ACTION_CLICK, ACTION_NONE,        MESSAGE_PIC_MENU,           &ui_background},
    {DRAWING_CEL,             ELEMENT_BUTTON_LIT_DARK, 239,  2, 39, 9, LABEL_CEL,   ACTION_CLICK, ACTION_NONE,        MESSAGE_CEL_MENU,           &ui_background},
    {DRAWING_USER,            ELEMENT_BUTTON_LIT_DARK, 279,  2, 39, 9, LABEL_USER,  ACTION_CLICK, ACTION_NONE,        MESSAGE_USER_MENU,          &ui_background},
    {DRAWING_MASK,            ELEMENT_SWATCH_MASK,     122,  2, 21, 9, LABEL_NONE,  ACTION_CLICK, ACTION_CLICK_RIGHT, MESSAGE_MASK_COLOR,         &ui_background},
    {DRAWING_BRUSH,           ELEMENT_SWATCH_BRUSH,    122, 12, 21, 9, LABEL_NONE,  ACTION_CLICK, ACTION_CLICK_RIGHT, MESSAGE_BRUSH_COLOR,        &ui_background},
    {DRAWING_TIP,             ELEMENT_TIP_BUTTON,      122, 22, 21, 9, LABEL_NONE,  ACTION_CLICK, ACTION_CLICK,       MESSAGE_CHANGE_TIP,         &fixed_light},
    {DRAWING_SPECTRUM,        ELEMENT_SPECTRUM,        144, 22, 54, 9, LABEL_NONE,  ACTION_CLICK, ACTION_CLICK_RIGHT, MESSAGE_PICK_FROM_SPECTRUM, &ui_background},
    {DRAWING_COLOR_FIRST,     ELEMENT_SWATCH,          144,  2, 10, 9, LABEL_NONE,  ACTION_CLICK, ACTION_CLICK_RIGHT, MESSAGE_COLOR_SLOT,         &color_slots[0]},
    {DRAWING_COLOR_FIRST + 1, ELEMENT_SWATCH,          155,  2, 10, 9, LABEL_NONE,  ACTION_CLICK, ACTION_CLICK_RIGHT, MESSAGE_COLOR_SLOT,         &color_slots[1]},
    {DRAWING_COLOR_FIRST + 2, ELEMENT_SWATCH,          166,  2, 10, 9, LABEL_NONE,  ACTION_CLICK, ACTION_CLICK_RIGHT, MESSAGE_COLOR_SLOT,         &color_slots[2]},
    {DRAWING_COLOR_FIRST + 3, ELEMENT_SWATCH,          177,  2, 10, 9, LABEL_NONE,  ACTION_CLICK, ACTION_CLICK_RIGHT, MESSAGE_COLOR_SLOT,         &color_slots[3]},
    {DRAWING_COLOR_FIRST + 4, ELEMENT_SWATCH,          188,  2, 10, 9, LABEL_NONE,  ACTION_CLICK, ACTION_CLICK_RIGHT, MESSAGE_COLOR_SLOT,         &color_slots[4]},
    {DRAWING_COLOR_FIRST + 5, ELEMENT_SWATCH,          144, 12, 10, 9, LABEL_NONE,  ACTION_CLICK, ACTION_CLICK_RIGHT, MESSAGE_COLOR_SLOT,         &color_slots[5]},
    {DRAWING_COLOR_FIRST + 6, ELEMENT_SWATCH,          155, 12, 10, 9, LABEL_NONE,  ACTION_CLICK, ACTION_CLICK_RIGHT, MESSAGE_COLOR_SLOT,         &color_slots[6]},
    {DRAWING_COLOR_FIRST + 7, ELEMENT_SWATCH,          166, 12, 10, 9, LABEL_NONE,  ACTION_CLICK, ACTION_CLICK_RIGHT, MESSAGE_COLOR_SLOT,         &color_slots[7]},
    {DRAWING_COLOR_FIRST + 8, ELEMENT_SWATCH,          177, 12, 10, 9, LABEL_NONE,  ACTION_CLICK, ACTION_CLICK_RIGHT, MESSAGE_COLOR_SLOT,         &color_slots[8]},
    {DRAWING_COLOR_FIRST + 9, ELEMENT_SWATCH,          188, 12, 10, 9, LABEL_NONE,  ACTION_CLICK, ACTION_CLICK_RIGHT, MESSAGE_COLOR_SLOT,         &color_slots[9]},
}};
// clang-format on
static_assert(rows_in_order(rows, &ElementRow::slot, slot_content));

constexpr WindowRow drawing_menu{.id = WINDOW_DRAWING_MENU,
                                 .place = POS_DRAWING_MENU,
                                 .y = 207,
                                 .w = 319,
                                 .h = 32,
                                 .child_count = 35,  // two slots spare, which nothing fills
                                 .title = LABEL_COLOR_HOME,
                                 .title_w = 39,
                                 .elements = rows};

}  // namespace

void build_drawing_menu() {
    build_window(drawing_menu);
    show_choice_slots(DRAWING_TOOL_FIRST, LABEL_TOOL_FIRST, tool_slots, active_tool_slot);
    show_choice_slots(DRAWING_INK_FIRST, LABEL_INK_FIRST, ink_slots, active_ink_slot);
    border_color_of(DRAWING_SPECTRUM) = static_cast<int>(ui_border);
}

}  // namespace nubo
