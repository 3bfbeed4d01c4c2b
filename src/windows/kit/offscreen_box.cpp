#include "windows/kit/offscreen_box.h"

#include "gui/window.h"
#include "state/windows.h"
#include <array>

namespace nubo {
namespace {

constexpr int button_wide = 101;
enum BoxSlot : int { BOX_FIRST = slot_content, BOX_SECOND, BOX_SLOTS };

constexpr ElementRow button_row(BoxSlot slot, int y, Label label) {
    return {.slot = slot,
            .type = ELEMENT_BUTTON_LIT,
            .x = 2,
            .y = y,
            .w = button_wide,
            .label = label,
            .left = ACTION_CLICK};
}

bool stands() { return gui::active[at(high_slot)] != 0; }

int menu_before = WINDOW_DRAWING_MENU;

void open(const OffscreenBox& box) {
    const std::array<ElementRow, BOX_SLOTS - slot_content> rows{button_row(BOX_FIRST, 12, box.first),
                                                                button_row(BOX_SECOND, 22, box.second)};
    menu_before = menu_id;
    build_window({.id = WINDOW_BOX,
                  .x = 107,
                  .y = 104,
                  .w = 105,
                  .h = 32,
                  .child_count = BOX_SLOTS,
                  .title = box.title,
                  .title_w = button_wide,
                  .elements = rows,
                  .base = high_slot});
}

}  // namespace

OffscreenPress serve_offscreen_box(const OffscreenBox& box, bool is_seen) {
    if (is_seen) {
        close_offscreen_box();
        return OFFSCREEN_NONE;
    }
    if (!stands()) open(box);
    if (take_click(high_slot + BOX_FIRST) > 0) return OFFSCREEN_FIRST;
    if (take_click(high_slot + BOX_SECOND) > 0) return OFFSCREEN_SECOND;
    return OFFSCREEN_NONE;
}

void close_offscreen_box() {
    if (!stands()) return;
    clear_high_slots();
    menu_id = menu_before;
}

}  // namespace nubo
