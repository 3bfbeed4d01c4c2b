// The box that asks the user a question.
#include "gui/window.h"
#include "state/flow.h"
#include <array>

namespace nubo {
namespace {

constexpr int box_w = 200, box_h = 60, answer_w = 59, answer_y = 50;
enum ConfirmSlot : int { CONFIRM_OKAY = slot_content, CONFIRM_CANCEL, CONFIRM_FIRST, CONFIRM_SECOND, CONFIRM_SLOTS };

constexpr WindowRow confirm_window{.id = WINDOW_BOX,
                                   .x = 60,
                                   .y = 80,
                                   .w = box_w,
                                   .h = box_h,
                                   .child_count = CONFIRM_SLOTS,
                                   .title = LABEL_IMPORTANT,
                                   .title_w = 197};

constexpr ElementRow answer_row(ConfirmSlot slot, int x, Label label) {
    return {.slot = slot,
            .type = ELEMENT_BUTTON_LIT,
            .x = x,
            .y = answer_y,
            .w = answer_w,
            .label = label,
            .left = ACTION_CLICK};
}

constexpr ElementRow line_row(ConfirmSlot slot, int y, Label label, TextColor color) {
    return {.slot = slot, .type = ELEMENT_CAPTION, .y = y, .w = box_w, .label = label, .text_color = color};
}

void build_confirm_box(Label text, Label second, int base, bool one_button) {
    build_window(confirm_window, base);
    const int x = gui::x[at(base)], y = gui::y[at(base)];
    constexpr int okay_x = 2, cancel_x = 140, centered_x = box_w / 2 - answer_w / 2;
    build_element(answer_row(CONFIRM_OKAY, one_button ? centered_x : okay_x, LABEL_OKAY), x, y, base);
    if (!one_button) build_element(answer_row(CONFIRM_CANCEL, cancel_x, LABEL_CANCEL), x, y, base);
    build_element(line_row(CONFIRM_FIRST, 22, text, TEXT_BUTTON), x, y, base);
    if (second > LABEL_NONE) build_element(line_row(CONFIRM_SECOND, 30, second, TEXT_HIGHLIGHT), x, y, base);
}

}  // namespace

int confirm_box(Label text, Label second, bool high, bool one_button) {
    const int base = high ? high_slot : slot_window;
    const int menu_before = menu_id;
    build_confirm_box(text, second, base, one_button);
    bool okay = false;
    for (bool answered = false; !answered;) {
        update_screen(UPDATE_NORMAL);
        check_hotkeys(HOTKEYS_MODAL);
        okay = take_click(base + CONFIRM_OKAY) > 0;
        answered = okay || take_click(base + CONFIRM_CANCEL) > 0;
    }
    menu_id = menu_before;
    return okay ? 1 : 0;
}

}  // namespace nubo
