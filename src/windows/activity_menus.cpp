#include "windows/activity_menus.h"

#include "gui/snapshot.h"
#include "gui/window.h"
#include "state/flow.h"
#include "state/run.h"
#include "state/view.h"
#include "windows/drawing_menu.h"
#include "workspace/notices.h"

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

void build_menu(const ActivityMenu& menu, int button_x, int button_y) {
    const int x = button_x - menu.left_of_button;
    const int y = button_y + (button_y < menu.downward_below ? down_from_button : -menu.above_button);
    build_window_at({.id = menu.id,
                     .w = menu_w,
                     .h = back_y(menu) + row_step,
                     .child_count = item_count(menu) + slots_beside_items,
                     .title = menu.title,
                     .title_w = row_w},
                    x, y);
    int slot = slot_content, row_y = first_row_y;
    for (const MenuItem& item : menu.items) {
        build_element(row_of(slot++, row_y, item.label, item.tooltip), x, y);
        row_y += row_step;
    }
    ElementRow back = row_of(back_slot(menu), back_y(menu), LABEL_BACK, MESSAGE_CLOSE_MENU);
    back.type = ELEMENT_BUTTON_LIT_DARK;
    build_element(back, x, y);
}

void close_menu() {
    GUI_close_window();
    clear_menu_shadow();
}

/// True when an item has been pressed, and its command has run.
bool serve_items(const ActivityMenu& menu) {
    int slot = slot_content;
    for (const MenuItem& item : menu.items) {
        if (take_click(slot++) <= 0) continue;
        if (item.during == MENU_GOES) close_menu();
        item.run();
        return true;
    }
    return take_click(back_slot(menu)) > 0;
}

}  // namespace

void run_activity_menu(const ActivityMenu& menu, int x, int y) {
    take_menu_snapshot(menu_snapshot);
    GUI_close_window();
    build_menu(menu, x, y);
    do {
        update_screen(UPDATE_NORMAL);
        check_hotkeys(HOTKEYS_MODAL);
        if (mouse_middle != 0) quick_pan();
    } while (!serve_items(menu));
    close_menu();
    build_drawing_menu();
}

void say_comes_later() { flash_message(MESSAGE_COMES_LATER); }

}  // namespace nubo
