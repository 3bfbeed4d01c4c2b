#pragma once
// An editor with the drawing menu on its screen, whose buttons the scripted user presses by their slots.
#include "gui/gui_kit.h"
#include "windows/kit/drawing_menu.h"
#include "workspace/workspace.h"

namespace nubo {

/// What the program's loop does with the drawing menu.
inline void menu_loop() {
    build_drawing_menu();
    while (exit_requested == 0) {
        update_screen(UPDATE_NORMAL);
        serve_drawing_menu();
    }
}

inline int middle_x(int slot) { return gui::x[at(slot)] + gui::w[at(slot)] / 2; }
inline int middle_y(int slot) { return gui::y[at(slot)] + gui::h[at(slot)] / 2; }

/// Presses and releases a button of the mouse at a place.
inline User::Pause click_place(User& user, int x, int y, int button = left_button) {
    constexpr int moved = 4, pressed = 8, released = 14;
    ::mouse_x = x * pixel_scale;
    ::mouse_y = y * pixel_scale;
    return user.wait_until([button, update = 0]() mutable {
        ++update;
        if (update == moved) ::mouse_b = button;
        if (update == pressed) ::mouse_b = 0;
        return update >= released;
    });
}
inline User::Pause click(User& user, int slot, int button = left_button) {
    return click_place(user, middle_x(slot), middle_y(slot), button);
}

/// A place of the screen where the windows at the foot of it have no element.
inline User::Pause right_click_outside(User& user) { return click_place(user, 160, 40, right_button); }

/// The slot of the window on screen that holds the label, or -1.
inline int slot_of(Label label) {
    for (int slot = slot_content; slot < gui_slots; ++slot)
        if (gui::active[at(slot)] != 0 && gui::label[at(slot)] == label) return slot;
    return -1;
}

/// The one that says it where no label does, or -1.
inline int slot_of_text(std::string_view text) {
    for (int slot = slot_content; slot < gui_slots; ++slot) {
        const char* const said = gui::value_text[at(slot)];
        if (gui::active[at(slot)] != 0 && said != nullptr && text == said) return slot;
    }
    return -1;
}

inline constexpr int okay_slot = 2, cancel_slot = 3;                   // of a box that asks
inline constexpr int mask_slot = 2, flatten_slot = 3, leave_slot = 4;  // of that for alpha

class MenuTest : public GuiTest {};

/// With a program folder and an open Workspace of one Frame.
class ActivityTest : public MenuTest {
protected:
    ActivityTest() {
        UA_log_open();
        std::strncpy(program_dir.data(), folder_.path().c_str(), path_size - 1);
        std::filesystem::create_directory("resource");
        replace_bitmap(nail_sheet, make_bitmap(nail_tile * nail_columns, nail_tile * nail_columns));
        if (!open_workspace()) std::abort();
        handlers_locked = 0;
    }
    ~ActivityTest() override { UA_log_close(); }

private:
    ScratchFolder folder_;
};

}  // namespace nubo
