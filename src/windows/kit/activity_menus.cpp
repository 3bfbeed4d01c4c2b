#include "windows/kit/activity_menus.h"

#include "windows/kit/run_window.h"

namespace nubo {
namespace {

constexpr int menu_w = 58, row_w = 55, row_x = 2, first_row_y = 12, row_step = 10;
constexpr int down_from_button = -2;
constexpr int slots_beside_items = slot_content + 1;  // window, title and BACK

int item_count(const ActivityMenu& menu) { return static_cast<int>(menu.items.size()); }
int back_slot(const ActivityMenu& menu) { return slot_content + item_count(menu); }
/// One row is left free above BACK.
int back_y(const ActivityMenu& menu) { return first_row_y + row_step * (item_count(menu) + 1); }

ElementRow row_of(int slot, int y, Label label, Message tooltip) {
    return {.slot = slot,
            .type = ELEMENT_BUTTON_LIT,
            .x = row_x,
            .y = y,
            .w = row_w,
            .label = label,
            .left = ACTION_CLICK,
            .tooltip = tooltip};
}

/// BACK is the last of the window's slots and cancels it.
WindowRow window_of(const ActivityMenu& menu, int button_x, int button_y) {
    return {.id = menu.id,
            .x = button_x - menu.left_of_button,
            .y = button_y + (button_y < menu.downward_below ? down_from_button : -menu.above_button),
            .w = menu_w,
            .h = back_y(menu) + row_step,
            .child_count = item_count(menu) + slots_beside_items,
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
        build_element(row_of(slot++, row_y, item.label, item.tooltip), window_x(), window_y());
        row_y += row_step;
    }
    ElementRow back = row_of(back_slot(menu), back_y(menu), LABEL_BACK, MESSAGE_CLOSE_MENU);
    back.type = ELEMENT_BUTTON_LIT_DARK;
    build_element(back, window_x(), window_y());
}

/// The item that has been pressed, null for none.
const MenuItem* pressed_item(const ActivityMenu& menu) {
    int slot = slot_content;
    for (const MenuItem& item : menu.items)
        if (take_click(slot++) > 0) return &item;
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
