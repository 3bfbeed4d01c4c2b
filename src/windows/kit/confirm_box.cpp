#include "windows/kit/confirm_box.h"

#include "windows/kit/run_window.h"
#include <algorithm>

namespace nubo {
namespace {

constexpr int box_w = 200, box_h = 60, answer_w = 59, answer_y = 50, second_y = 30;
enum ConfirmSlot : int { CONFIRM_OKAY = slot_content, CONFIRM_CANCEL, CONFIRM_FIRST, CONFIRM_SECOND, CONFIRM_SLOTS };

constexpr WindowRow confirm_window{.id = WINDOW_BOX,
                                   .x = 60,
                                   .y = 80,
                                   .w = box_w,
                                   .h = box_h,
                                   .child_count = CONFIRM_SLOTS,
                                   .title = LABEL_IMPORTANT,
                                   .title_w = 197,
                                   .okay = CONFIRM_OKAY};

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

void build_texts_and_answers(const WindowRow& box, Label text, Label second) {
    const int x = gui::x[at(box.base)], y = gui::y[at(box.base)];
    constexpr int okay_x = 2, cancel_x = 140, centered_x = box_w / 2 - answer_w / 2;
    const bool one_button = box.cancel == 0;
    build_element(answer_row(CONFIRM_OKAY, one_button ? centered_x : okay_x, LABEL_OKAY), x, y, box.base);
    if (!one_button) build_element(answer_row(CONFIRM_CANCEL, cancel_x, LABEL_CANCEL), x, y, box.base);
    build_element(line_row(CONFIRM_FIRST, 22, text, TEXT_BUTTON), x, y, box.base);
    if (second > LABEL_NONE) build_element(line_row(CONFIRM_SECOND, second_y, second, TEXT_HIGHLIGHT), x, y, box.base);
}

bool ask(const WindowRow& box, Label text, Label second) {
    return run_window(box, {.built = [&] { build_texts_and_answers(box, text, second); }}) == WINDOW_DONE;
}

}  // namespace

int confirm_box(Label text, Label second, bool high, bool one_button) {
    WindowRow box = confirm_window;
    if (high) box.base = high_slot;
    if (!one_button) box.cancel = CONFIRM_CANCEL;
    return ask(box, text, second) ? 1 : 0;
}

bool confirm_about(Label text, const std::string& name) {
    constexpr std::size_t longest = (box_w - 2) / 6;  // characters of its font
    std::string shown = name.size() <= longest ? name : name.substr(0, longest - 2) + "..";
    std::replace(shown.begin(), shown.end(), '|', '!');  // which would begin a colour code
    WindowRow box = confirm_window;
    box.base = high_slot;
    box.cancel = CONFIRM_CANCEL;
    const auto built = [&] {
        build_texts_and_answers(box, text, LABEL_NONE);
        ElementRow row = line_row(CONFIRM_SECOND, second_y, LABEL_NONE, TEXT_HIGHLIGHT);
        row.text = shown.c_str();
        build_element(row, gui::x[at(box.base)], gui::y[at(box.base)], box.base);
    };
    return run_window(box, {.built = built}) == WINDOW_DONE;
}

bool confirm(Label text, Label second, bool shadows) {
    WindowRow box = confirm_window;
    box.cancel = CONFIRM_CANCEL;
    box.shadows = shadows;
    return ask(box, text, second);
}

}  // namespace nubo
