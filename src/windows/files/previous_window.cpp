#include "windows/files/previous_window.h"

#include "framework/text.h"
#include "gui/shapes.h"
#include "gui/shown_names.h"
#include "state/gui.h"
#include "state/run.h"
#include "windows/kit/draw_elements.h"
#include "windows/kit/run_window.h"
#include "workspace/previous.h"
#include <array>
#include <cstdio>
#include <ctime>

namespace nubo {
namespace {

constexpr int rows_shown = static_cast<int>(previous_names.size());
enum PreviousSlot : int {
    PREVIOUS_CANCEL = slot_content,
    PREVIOUS_FIRST,
    PREVIOUS_SLOTS = PREVIOUS_FIRST + rows_shown
};

using PreviousRows = std::array<ElementRow, PREVIOUS_SLOTS - slot_content>;
consteval PreviousRows previous_rows() {
    constexpr int first_y = 12, pitch = 10, width = 315, cancel_w = 59, cancel_x = 130;
    PreviousRows rows{};
    rows[0] = {.slot = PREVIOUS_CANCEL,
               .type = ELEMENT_BUTTON_LIT,
               .x = cancel_x,
               .y = first_y + pitch * rows_shown,
               .w = cancel_w,
               .label = LABEL_CANCEL,
               .left = ACTION_CLICK};
    for (int i = 0; i < rows_shown; ++i)
        rows[at(PREVIOUS_FIRST + i - slot_content)] = {.slot = PREVIOUS_FIRST + i,
                                                       .type = ELEMENT_KEPT_WORKSPACE,
                                                       .x = 2,
                                                       .y = first_y + pitch * i,
                                                       .w = width,
                                                       .left = ACTION_CLICK};
    return rows;
}
constexpr PreviousRows rows = previous_rows();
static_assert(rows_in_order(rows, &ElementRow::slot, slot_content));

constexpr WindowRow window{.id = WINDOW_BOX,
                           .x = 0,
                           .y = 80,
                           .w = 319,
                           .h = 72,
                           .child_count = PREVIOUS_SLOTS,
                           .title = LABEL_PREVIOUS_TITLE,
                           .title_w = 315,
                           .elements = rows,
                           .cancel = PREVIOUS_CANCEL,
                           .outside = OUTSIDE_CANCELS,
                           .keys = KEYS_ESCAPE};

std::vector<PreviousWorkspace> offered;  // while the window is open

const PreviousWorkspace* offered_by(int slot) {
    const std::size_t index = at(slot - PREVIOUS_FIRST);
    return index < offered.size() ? &offered[index] : nullptr;
}

std::string time_text(std::int64_t seconds) {
    const std::time_t time = seconds;
    std::tm local{};
    std::array<char, 32> text{};
    if (localtime_r(&time, &local) == nullptr) return "";
    std::strftime(text.data(), text.size(), "%Y-%m-%d %H:%M", &local);
    return text.data();
}

std::string frames_text(int count) {
    if (count == 0) return "DAMAGED";
    return std::to_string(count) + (count == 1 ? " FRAME" : " FRAMES");
}

}  // namespace

void draw_kept_workspace(int slot) {
    const PreviousWorkspace* const one = offered_by(slot);
    if (one == nullptr) return;
    constexpr int cell_w = 6, left = 3, top = 2, title_shown = 22, frames_at = 24, time_at = 35;
    const bool lit = is_lit(slot);
    GUI_box(slot, lit ? ui_highlight_back : color_of(slot), ui_border);
    const auto put = [&](int column, const std::string& text) {
        set_font(FONT_WIDE, lit ? TEXT_LIGHT_ALT : TEXT_BUTTON);
        UA_text_as_is(screen_buffer, gui::x[at(slot)] + left + column * cell_w, gui::y[at(slot)] + top, text, cell_w);
    };
    put(0, shown_file_name(one->title).substr(0, title_shown));
    put(frames_at, frames_text(one->frame_count));
    put(time_at, time_text(one->time));
}

std::string choose_previous_workspace() {
    offered = list_previous_workspaces();
    WindowRow row = window;
    const int count = static_cast<int>(offered.size());
    row.child_count = PREVIOUS_FIRST + count;
    row.elements = row.elements.first(at(PREVIOUS_FIRST - slot_content + count));
    std::string chosen;
    run_window(row, {.serve = [&] {
                   for (std::size_t i = 0; i < offered.size(); ++i)
                       if (take_click(PREVIOUS_FIRST + static_cast<int>(i)) > 0) chosen = offered[i].path;
                   return chosen.empty() ? WINDOW_STAYS : WINDOW_DONE;
               }});
    return chosen;
}

}  // namespace nubo
