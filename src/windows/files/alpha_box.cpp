#include "windows/files/alpha_box.h"

#include "windows/kit/run_window.h"
#include <array>

namespace nubo {
namespace {

enum AlphaSlot : int {
    ALPHA_BOX_MASK = slot_content,
    ALPHA_BOX_FLATTEN,
    ALPHA_BOX_CANCEL,
    ALPHA_BOX_FIRST,
    ALPHA_BOX_SECOND,
    ALPHA_BOX_SLOTS
};
constexpr int box_w = 200, box_h = 60;

constexpr ElementRow answer_row(AlphaSlot slot, int x, const char* text, Message tooltip) {
    return {.slot = slot,
            .type = ELEMENT_BUTTON_LIT,
            .x = x,
            .y = 50,
            .w = 59,
            .left = ACTION_CLICK,
            .tooltip = tooltip,
            .text = text};
}
constexpr ElementRow line_row(AlphaSlot slot, int y, const char* text, TextColor color) {
    return {.slot = slot, .type = ELEMENT_CAPTION, .y = y, .w = box_w, .text_color = color, .text = text};
}

constexpr std::array<ElementRow, ALPHA_BOX_SLOTS - slot_content> rows{{
    answer_row(ALPHA_BOX_MASK, 2, "MASK", MESSAGE_ALPHA_MASK),
    answer_row(ALPHA_BOX_FLATTEN, 71, "FLATTEN", MESSAGE_ALPHA_FLATTEN),
    answer_row(ALPHA_BOX_CANCEL, 140, "CANCEL", MESSAGE_NONE),
    line_row(ALPHA_BOX_FIRST, 22, "THE PICTURE HAS CLEAR PIXELS!", TEXT_BUTTON),
    line_row(ALPHA_BOX_SECOND, 30, "<MASK THEM, OR FLATTEN IT?>", TEXT_HIGHLIGHT),
}};
static_assert(rows_in_order(rows, &ElementRow::slot, slot_content));

constexpr WindowRow box{.id = WINDOW_BOX,
                        .x = 60,
                        .y = 80,
                        .w = box_w,
                        .h = box_h,
                        .child_count = ALPHA_BOX_SLOTS,
                        .title = LABEL_IMPORTANT,
                        .title_w = 197,
                        .elements = rows,
                        .okay = ALPHA_BOX_MASK,
                        .cancel = ALPHA_BOX_CANCEL};

}  // namespace

std::optional<AlphaRule> ask_alpha_rule() {
    AlphaRule rule = ALPHA_MASK;
    const auto serve = [&] {
        if (take_click(ALPHA_BOX_FLATTEN) <= 0) return WINDOW_STAYS;
        rule = ALPHA_FLATTEN;
        return WINDOW_DONE;
    };
    return run_window(box, {.serve = serve}) == WINDOW_DONE ? std::optional(rule) : std::nullopt;
}

bool settle_alpha_by_user(ReadPicture& picture, Color clear) {
    const std::optional<AlphaRule> rule = picture.has_alpha ? ask_alpha_rule() : ALPHA_MASK;
    if (rule) settle_alpha(picture, *rule, mask_color, clear);
    return rule.has_value();
}

}  // namespace nubo
