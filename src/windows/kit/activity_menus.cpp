#include "windows/kit/activity_menus.h"

#include "windows/kit/run_window.h"
#include <algorithm>

namespace nubo {
namespace {

constexpr int menu_w = 58, row_w = 55, row_x = 2, first_row_y = 12, row_step = 10;
constexpr int down_from_button = -2;

int back_slot(const ActivityMenu& menu) {
    const auto is_item = [](const MenuItem& row) { return row.run != nullptr; };
    return slot_content + static_cast<int>(std::ranges::count_if(menu.items, is_item));
}
int back_y(const ActivityMenu& menu) { return first_row_y + row_step * static_cast<int>(menu.items.size()); }

ElementRow row_of(int slot, int y, const MenuItem& item) {
    return {.slot = slot,
            .type = ELEMENT_BUTTON_LIT,
            .x = row_x,
            .y = y,
            .w = row_w,
            .label = item.label,
            .left = ACTION_CLICK,
            .tooltip = item.tooltip,
            .text = item.text};
}

/// BACK is the last of the window's slots and cancels it.
WindowRow window_of(const ActivityMenu& menu, int button_x, int button_y) {
    const bool opens_downward = button_y < back_y(menu) + menu.downward_within;
    return {.id = menu.id,
            .x = button_x - menu.left_of_button,
            .y = button_y + (opens_downward ? down_from_button : -back_y(menu)),
            .w = menu_w,
            .h = back_y(menu) + row_step,
            .child_count = back_slot(menu) + 1,
            .title = menu.title,
            .title_w = row_w,
            .cancel = back_slot(menu),
            .shadows = true,
            .pans = true,
            .gives_way = true};
}

void build_items(const ActivityMenu& menu) {
    int slot = slot_content, row_y = first_row_y;
    for (const MenuItem& item : menu.items) {
        if (item.run != nullptr) build_element(row_of(slot++, row_y, item), window_x(), window_y());
        row_y += row_step;
    }
    ElementRow back = row_of(back_slot(menu), back_y(menu), {.label = LABEL_BACK, .tooltip = MESSAGE_CLOSE_MENU});
    back.type = ELEMENT_BUTTON_LIT_DARK;
    build_element(back, window_x(), window_y());
}

/// The item that has been pressed, null for none.
const MenuItem* pressed_item(const ActivityMenu& menu) {
    int slot = slot_content;
    for (const MenuItem& item : menu.items)
        if (item.run != nullptr && take_click(slot++) > 0) return &item;
    return nullptr;
}

}  // namespace

void run_activity_menu(const ActivityMenu& menu, int x, int y) {
    const MenuItem* chosen = nullptr;
    const auto serve = [&] {
        chosen = pressed_item(menu);
        return chosen != nullptr ? WINDOW_DONE : WINDOW_STAYS;
    };
    run_window(window_of(menu, x, y), {.built = [&] { build_items(menu); }, .serve = serve});
    if (chosen == nullptr) return;
    const ClearedScreen cleared;
    chosen->run();
}

}  // namespace nubo
