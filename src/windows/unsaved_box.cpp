#include "windows/unsaved_box.h"

#include "windows/kit/confirm_box.h"
#include "windows/kit/run_window.h"

namespace nubo {
namespace {

constexpr int box_w = 200, answer_w = 59;
enum UnsavedSlot : int {
    UNSAVED_FIRST = slot_content,
    UNSAVED_SECOND,
    UNSAVED_TRY,
    UNSAVED_BACK,
    UNSAVED_QUIT,
    UNSAVED_SLOTS
};

constexpr ElementRow line_row(UnsavedSlot slot, int y, Label label, TextColor color) {
    return {.slot = slot, .type = ELEMENT_CAPTION, .y = y, .w = box_w, .label = label, .text_color = color};
}
constexpr ElementRow answer_row(UnsavedSlot slot, int x, Label label) {
    return {
        .slot = slot, .type = ELEMENT_BUTTON_LIT, .x = x, .y = 50, .w = answer_w, .label = label, .left = ACTION_CLICK};
}
constexpr std::array<ElementRow, UNSAVED_SLOTS - slot_content> rows{{
    line_row(UNSAVED_FIRST, 22, LABEL_WORK_NOT_SAVED, TEXT_BUTTON),
    line_row(UNSAVED_SECOND, 30, LABEL_DISK_FULL_OR_READ_ONLY, TEXT_HIGHLIGHT),
    answer_row(UNSAVED_TRY, 2, LABEL_TRY_AGAIN),
    answer_row(UNSAVED_BACK, 70, LABEL_GO_ON),
    answer_row(UNSAVED_QUIT, 139, LABEL_QUIT),
}};
static_assert(rows_in_order(rows, &ElementRow::slot, slot_content));

constexpr WindowRow window{.id = WINDOW_BOX,
                           .x = 60,
                           .y = 80,
                           .w = box_w,
                           .h = 60,
                           .child_count = UNSAVED_SLOTS,
                           .title = LABEL_IMPORTANT,
                           .title_w = 197,
                           .elements = rows,
                           .okay = UNSAVED_TRY,
                           .cancel = UNSAVED_BACK};

}  // namespace

UnsavedChoice unsaved_box() {
    bool loses = false;
    const auto serve = [&] {
        loses = take_click(UNSAVED_QUIT) > 0 && confirm(LABEL_EXIT_QUESTION, LABEL_WORK_WILL_BE_LOST);
        return loses ? WINDOW_DONE : WINDOW_STAYS;
    };
    const WindowPass end = run_window(window, {.serve = serve});
    if (loses) return UNSAVED_LOST;
    return end == WINDOW_DONE ? UNSAVED_AGAIN : UNSAVED_GO_ON;
}

}  // namespace nubo
