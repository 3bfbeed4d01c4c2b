#include "windows/kit/waiting_boxes.h"

#include "gui/presses.h"
#include "gui/snapshot.h"
#include "state/mouse.h"
#include "state/options.h"
#include "state/run.h"
#include "windows/kit/confirm_box.h"
#include "windows/kit/run_window.h"
#include "workspace/notices.h"

namespace nubo {
namespace {

// ---- The failure box -----------------------------------------------------------------------------------------------

constexpr int failure_w = 260;
enum FailureSlot : int { FAILURE_FIRST = slot_content, FAILURE_SECOND, FAILURE_SLOTS };

constexpr ElementRow line_row(FailureSlot slot, int y, Label label) {
    return {.slot = slot, .type = ELEMENT_CAPTION, .y = y, .w = failure_w, .label = label, .text_color = TEXT_RED};
}

/// It has no title and no button: a press of the left one anywhere ends it.
void failure_box(const PendingBox& box) {
    const std::array rows{line_row(FAILURE_FIRST, 7, box.first), line_row(FAILURE_SECOND, 16, box.second)};
    const WindowRow window{
        .x = 30, .y = 80, .w = failure_w, .h = 30, .child_count = FAILURE_SLOTS, .elements = rows, .base = high_slot};
    wait_while_down(mouse_left);  // the press that led here is none
    const auto built = [] {
        gui::type[high_slot] = ELEMENT_FAILURE_BOX;
        GUI_clear_element(high_slot + slot_title);
    };
    const auto serve = [] {
        if (mouse_left == 0) return WINDOW_STAYS;
        wait_while_down(mouse_left);
        return WINDOW_DONE;
    };
    run_window(window, {.built = built, .serve = serve});
}

}  // namespace

void show_waiting_boxes() {
    while (const auto box = take_box()) {
        take_menu_snapshot(menu_snapshot);
        hide_window();
        if (box->first == LABEL_FAILURE)
            failure_box(*box);
        else
            confirm_box(box->first, box->second, true, true);
        clear_menu_shadow();
        toggle_window();
    }
    workspace_damaged = 0;
}

}  // namespace nubo
