#include "windows/history_window.h"

#include "paint/undo.h"
#include "state/frames.h"
#include "state/run.h"
#include "view/view.h"
#include "windows/kit/confirm_box.h"
#include "windows/kit/run_window.h"
#include "workspace/folders.h"
#include "workspace/frame_history.h"
#include "workspace/frame_memory.h"
#include "workspace/notices.h"
#include "workspace/rescue.h"
#include <array>

namespace nubo {
namespace {

enum HistorySlot : int {
    HISTORY_SLIDER = slot_content,
    HISTORY_OKAY,
    HISTORY_START,
    HISTORY_FORGET,
    HISTORY_FORGET_ALL,
    HISTORY_CANCEL,
    HISTORY_SLOTS
};

constexpr int window_w = 319, window_h = 34;

constexpr ElementRow button_row(int slot, int x, int w, const char* text) {
    return {.slot = slot, .type = ELEMENT_BUTTON_LIT, .x = x, .y = 23, .w = w, .left = ACTION_CLICK, .text = text};
}
constexpr std::array<ElementRow, HISTORY_SLOTS - slot_content> rows{{
    {.slot = HISTORY_SLIDER, .type = ELEMENT_BOX, .x = 2, .y = 12, .w = 315},
    button_row(HISTORY_OKAY, 2, 57, "OKAY"),
    button_row(HISTORY_START, 62, 57, "TODAY"),
    button_row(HISTORY_FORGET, 122, 57, "FORGET"),
    button_row(HISTORY_FORGET_ALL, 182, 75, "FORGET ALL"),
    button_row(HISTORY_CANCEL, 260, 57, "CANCEL"),
}};
static_assert(rows_in_order(rows, &ElementRow::slot, slot_content));

constexpr WindowRow window{.y = view_h - window_h - 1,
                           .w = window_w,
                           .h = window_h,
                           .child_count = HISTORY_SLOTS,
                           .title_text = "HISTORY",
                           .title_w = 315,
                           .elements = rows,
                           .okay = HISTORY_OKAY,
                           .cancel = HISTORY_CANCEL,
                           .key = HOTKEY_HISTORY,
                           .prompt = MESSAGE_TOLD,
                           .pans = true};

/// The Frame at one step or another, while its own picture waits behind.
class LookBack {
public:
    LookBack() : reach_(undo_reach()), shown_(reach_.done) {
        if (OwnedBitmap kept = copy_bitmap(current_frame)) frame_behind_preview = kept.release();
    }
    ~LookBack() { end(); }
    LookBack(const LookBack&) = delete;
    LookBack& operator=(const LookBack&) = delete;

    bool is_possible() const { return frame_behind_preview != nullptr; }
    const UndoReach& reach() const { return reach_; }
    int shown() const { return shown_; }
    void show(int step) {
        if (step == shown_ || !is_possible()) return;
        shown_ = lead_frame(shown_, step);
        view_clamp();
    }
    void end() {
        end_frame_preview();
        view_clamp();
    }

private:
    UndoReach reach_;
    int shown_;
};

/// Where the Frame stood when the program was started, as a number of steps in reach; -1 beyond them.
int step_of_start(const UndoReach& reach) {
    const History* const history = settled_history();
    const int step = history != nullptr && history->started >= 0 ? history->started - history->floor : -1;
    return step <= reach.all ? step : -1;
}

void tell_step(int step, const UndoReach& reach, int start) {
    set_told_text("STEP " + std::to_string(step) + " OF " + std::to_string(reach.all) +
                  (step == start ? ", AS AT THE START OF THE PROGRAM" : ""));
}

/// True if the user was sure.
bool asks_to_forget() {
    if (take_click(HISTORY_FORGET) > 0 && confirm(LABEL_FORGET_HISTORY, LABEL_PICTURES_STAY)) {
        settle_rescue();
        forget_history(slot_of_row(frame_index));
        return true;
    }
    if (take_click(HISTORY_FORGET_ALL) > 0 && confirm(LABEL_FORGET_ALL_HISTORIES, LABEL_PICTURES_STAY)) {
        settle_rescue();
        forget_all_histories(workspace_folder());
        return true;
    }
    return false;
}

void go_to(int step) {
    while (undo_reach().done > step && undo_reach().done > 0) undo_last();
    while (undo_reach().done < step && undo_reach().done < undo_reach().all) redo_last();
    view_clamp();
}

}  // namespace

void history_window() {
    if (settled_history() == nullptr) return flash_message(MESSAGE_UNDO_MEMORY);
    LookBack look;
    if (!look.is_possible()) return flash_message(MESSAGE_NO_MEMORY);
    const int start = step_of_start(look.reach());
    constexpr auto slider = at(HISTORY_SLIDER);
    const auto built = [&] {
        GUI_add_slider(HISTORY_SLIDER, window_x() + 2, window_y() + 12, 315, look.reach().all + 1);
        gui::slider_value[slider] = look.shown();
    };
    const auto show = [&] {
        look.show(gui::slider_value[slider]);
        gui::slider_value[slider] = look.shown();
        tell_step(look.shown(), look.reach(), start);
    };
    bool forgotten = false;
    const auto serve = [&] {
        if (take_click(HISTORY_START) > 0 && start >= 0) gui::slider_value[slider] = start;
        if (gui::click[at(HISTORY_FORGET)] > 0 || gui::click[at(HISTORY_FORGET_ALL)] > 0) {
            look.show(look.reach().done);  // what is forgotten is the Frame's own
            forgotten = asks_to_forget();
            if (forgotten) gui::slider_value[slider] = look.shown();  // no step is left to look at
        }
        return forgotten ? WINDOW_CANCELLED : WINDOW_STAYS;
    };
    const WindowPass end = run_window(window, {.built = built, .show = show, .serve = serve});
    const int chosen = look.shown();
    look.end();
    if (end == WINDOW_DONE) go_to(chosen);
}

}  // namespace nubo
