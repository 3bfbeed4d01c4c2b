#include "windows/kit/run_window.h"

#include "base/keys.h"
#include "gui/presses.h"
#include "gui/sliders.h"
#include "gui/snapshot.h"
#include "gui/text_field.h"
#include "gui/waiting.h"
#include "state/flow.h"
#include "state/frames.h"
#include "state/hotkeys.h"
#include "state/mouse.h"
#include "state/run.h"
#include "state/windows.h"
#include "windows/kit/drawing_menu.h"
#include "windows/kit/handed_files.h"
#include "windows/kit/quick_pan.h"

namespace nubo {

namespace {

// ---- What stands behind what ---------------------------------------------------------------------------------------

WindowLayer* top = nullptr;  // null: the drawing menu

void set_focus(const WindowRow& window) {
    key_focus = -1;
    if (window.focus != 0) GUI_set_key_focus(window.base + window.focus, true);
}

void finish(const WindowLayer& layer) {
    if (layer.calls->built) layer.calls->built();
    set_focus(*layer.window);
}

/// Closes what is on screen and puts `layer` in its place.
void cover(WindowLayer& layer) {
    if (layer.below != nullptr) {
        layer.below->x = window_x();
        layer.below->y = window_y();
        layer.below->menu = menu_id;
    }
    GUI_close_window();
    key_focus = -1;
    top = &layer;
}

/// Closes what is on screen and builds again what stood below.
void uncover(const WindowLayer& layer) {
    GUI_close_window();
    key_focus = -1;
    top = layer.below;
    if (top == nullptr) {
        build_drawing_menu();
    } else if (top->window == nullptr) {
        menu_id = top->menu;
    } else {
        build_window_at(*top->window, top->x, top->y);
        finish(*top);
    }
}

/// A window in the place of what stands, as long as it lives.
class OpenWindow {
public:
    OpenWindow(const WindowRow& window, const WindowCalls& calls)
        : layer_{&window, &calls, top}, live_before_(first_live_slot) {
        first_live_slot = 0;  // also where a tool waits, which opened it by a key
        if (window.shadows) take_menu_snapshot(menu_snapshot);
        cover(layer_);
        build_window(window);
        finish(layer_);
    }
    ~OpenWindow() {
        if (layer_.window->shadows) clear_menu_shadow();
        uncover(layer_);
        first_live_slot = live_before_;
    }
    OpenWindow(const OpenWindow&) = delete;
    OpenWindow& operator=(const OpenWindow&) = delete;

private:
    WindowLayer layer_;
    int live_before_;
};

/// A window over what stands, as long as it lives.
class OpenHighWindow {
public:
    OpenHighWindow(const WindowRow& window, const WindowCalls& calls)
        : menu_before_(menu_id), focus_before_(key_focus), live_before_(first_live_slot) {
        first_live_slot = window.base;
        build_window(window);
        finish({&window, &calls});
    }
    ~OpenHighWindow() {
        clear_high_slots();
        first_live_slot = live_before_;
        key_focus = focus_before_;
        menu_id = menu_before_;
    }
    OpenHighWindow(const OpenHighWindow&) = delete;
    OpenHighWindow& operator=(const OpenHighWindow&) = delete;

private:
    int menu_before_, focus_before_, live_before_;
};

// ---- The loop ------------------------------------------------------------------------------------------------------

bool is_clicked(const WindowRow& window, int element) { return element != 0 && take_click(window.base + element) > 0; }

/// A field that has the keyboard takes the window's key as a character.
bool key_cancels(const WindowRow& window) {
    if (window.key == HOTKEY_COUNT || is_text_field(key_focus) || !hotkey_held(window.key)) return false;
    wait_while_held(window.key);
    return true;
}

/// True when a right press outside cancels the window.
bool serve_outside(const WindowRow& window) {
    if (window.outside == OUTSIDE_NOTHING || !right_press_outside()) return false;
    if (window.outside == OUTSIDE_HIDES) toggle_window();
    return window.outside == OUTSIDE_CANCELS;
}

/// While what shows is not the Frame nothing may leave it, from a box over the preview's window either.
bool keys_act(const WindowRow& window) { return window.keys == KEYS_MODAL && frame_behind_preview == nullptr; }

void show_pass(const WindowRow& window, const WindowCalls& calls, const Prompt& prompt) {
    if (calls.show) calls.show();
    prompt.keep(gui::hidden[at(window.base)] != 0 ? MESSAGE_WINDOW_HIDDEN : window.prompt);
    hotkeys_busy = keys_act(window) ? 0 : 1;  // which the pan keys heed
    update_screen(UPDATE_NORMAL);
    if (keys_act(window)) check_hotkeys(HOTKEYS_MODAL);
    if (window.pans && mouse_middle != 0) quick_pan();
}

WindowPass serve_pass(const WindowRow& window, const WindowCalls& calls) {
    const WindowPass said = calls.serve ? calls.serve() : WINDOW_STAYS;
    if (said != WINDOW_STAYS) return said;
    if (is_clicked(window, window.okay)) return WINDOW_DONE;
    const bool gives_way = window.gives_way && files_wait() && mouse_left == 0 && mouse_right == 0;
    const bool cancelled =
        is_clicked(window, window.cancel) || serve_outside(window) || key_cancels(window) || gives_way;
    return cancelled ? WINDOW_CANCELLED : WINDOW_STAYS;
}

WindowPass loop(const WindowRow& window, const WindowCalls& calls) {
    if (window.key != HOTKEY_COUNT) wait_while_held(window.key);  // else the key that opened it would close it
    const Prompt prompt;
    Escape escape;
    WindowPass pass = WINDOW_STAYS;
    while (pass == WINDOW_STAYS) {
        show_pass(window, calls, prompt);
        const bool ends = window.keys == KEYS_OWN ? exit_requested != 0 : escape.asked();
        pass = ends ? WINDOW_CANCELLED : serve_pass(window, calls);
    }
    hotkeys_busy = 0;
    if (exit_requested != 0 && calls.show) calls.show();  // for what was typed into the last picture
    if (pass == WINDOW_DONE) write_sliders();             // what the hand did since the last picture
    return pass;
}

}  // namespace

WindowPass run_window(const WindowRow& window, const WindowCalls& calls) {
    if (window.base != slot_window) {
        const OpenHighWindow open(window, calls);
        return loop(window, calls);
    }
    const OpenWindow open(window, calls);
    return loop(window, calls);
}

ClearedScreen::ClearedScreen() : layer_{.below = top}, was_hidden_(gui::hidden[slot_window] != 0) { cover(layer_); }

ClearedScreen::~ClearedScreen() {
    uncover(layer_);
    if (was_hidden_) hide_window();
}

}  // namespace nubo
