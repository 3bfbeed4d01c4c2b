#include "windows/files/file_list.h"

#include "framework/text.h"
#include "gui/shapes.h"
#include "gui/shown_names.h"
#include "state/mouse.h"
#include "state/run.h"
#include "windows/kit/draw_elements.h"
#include <algorithm>
#include <allegro.h>
#include <strings.h>

namespace nubo {
namespace {

constexpr int row_top = 2, row_left = 3, row_w = 183, bar_x = 184;
constexpr int name_letters = 29, letter_w = 6;  // that fit beside the scroll bar

int entry_count() { return static_cast<int>(file_names.size()); }
const FolderEntry& entry_at(int index) { return file_names[at(index)]; }
int first_row(int list) { return gui::has_slider[at(list)] != 0 ? int{gui::slider_value[at(list)]} : 0; }

TextColor color_of_entry(int index) {
    if (index == file_cursor) return TEXT_SELECTED;
    return entry_at(index).is_folder ? TEXT_LIGHT_ALT_DARK : TEXT_LIGHT;
}

void draw_file_row(int list, int row) {
    const int index = first_row(list) + row;
    if (index >= entry_count()) return;
    const int y = gui::y[at(list)] + row_top + row * file_row_h;
    if (index == file_under_mouse(list))
        rectfill(screen_buffer, gui::x[at(list)] + 2, y - 1, gui::x[at(list)] + row_w - 2, y + file_row_h - 2,
                 static_cast<int>(ui_shadow));
    std::string text = shown_file_name(entry_at(index).name);
    if (entry_at(index).is_folder) text.insert(text.begin(), '\\');
    if (text.size() > name_letters) text.replace(name_letters - 2, std::string::npos, "..");
    set_font(FONT_WIDE, color_of_entry(index));
    UA_text_as_is(screen_buffer, gui::x[at(list)] + row_left, y, text, letter_w);
}

}  // namespace

void draw_file_list(int list) {
    GUI_box(list, color_of(list), ui_border);
    for (int row = 0; row < file_rows; ++row) draw_file_row(list, row);
}

void set_file_list(int list) {
    const int over = entry_count() - file_rows;
    gui::has_slider[at(list)] = 0;
    gui::slider_value[at(list)] = 0;
    if (over <= 0) return;
    constexpr int wheel_rows = 3;
    GUI_set_vertical_slider(list, bar_x, 0, over + 1, wheel_rows);
}

void settle_file_list(int list) {
    const int count = entry_count(), first = first_row(list);
    file_names.settle(at(first), file_rows);
    if (entry_count() == count) return;
    file_cursor = std::min(file_cursor, entry_count() - 1);
    set_file_list(list);  // whose bar has another range now
    show_file(list, std::min(first + file_rows, entry_count()) - 1);
}

int file_under_mouse(int list) {
    const std::size_t s = at(list);
    if (hover != list || mouse_x < gui::x[s] || mouse_x >= gui::x[s] + row_w) return -1;
    const int above = mouse_y - row_top - gui::y[s];
    if (above < 0 || above >= file_rows * file_row_h) return -1;
    const int index = above / file_row_h + first_row(list);
    return index < entry_count() ? index : -1;
}

int find_file(const std::string& name) {
    for (int index = 0; index < entry_count(); ++index)
        if (entry_at(index).name == name) return index;
    return -1;
}

void show_file(int list, int index) {
    if (gui::has_slider[at(list)] == 0 || index < 0) return;
    const int first = first_row(list), last_first = entry_count() - file_rows;
    const int wanted = std::clamp(first, index - file_rows + 1, index);
    gui::slider_value[at(list)] = std::clamp(wanted, 0, last_first);
}

int file_of_key(int key_code, int index) {
    const int last = entry_count() - 1;
    const auto moved = [&](int target) { return std::clamp(target, 0, std::max(last, 0)); };
    switch (key_code) {
    case KEY_UP: return moved(index - 1);
    case KEY_DOWN: return moved(index + 1);
    case KEY_PGUP: return moved(index - file_rows);
    case KEY_PGDN: return moved(index + file_rows);
    case KEY_HOME: return moved(0);
    case KEY_END: return moved(last);
    default: return index;
    }
}

int find_beginning(const std::string& text, int first) {
    for (int step = 0; !text.empty() && step < entry_count(); ++step) {
        const int index = (first + step) % entry_count();
        if (strncasecmp(entry_at(index).name.c_str(), text.c_str(), text.size()) == 0) return index;
    }
    return -1;
}

}  // namespace nubo
