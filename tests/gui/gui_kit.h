#pragma once
// An editor whose interface is elements that the test builds, with its handler run tick by tick or by a scripted user.
#include "gui/draw.h"
#include "gui/elements.h"
#include "gui/mouse.h"
#include "gui/tick.h"
#include "gui/window.h"
#include "harness/user.h"
#include "platform/input_queue.h"

namespace nubo {

inline constexpr int left_button = 1, right_button = 2, middle_button = 4;

class GuiTest : public EditorTest {
protected:
    GuiTest() { mouse_reversed = 0; }
    /// An element of any type at a place, active, with both buttons reporting a click.
    static int add(int slot, ElementType type, int x, int y, int w, int h) {
        build_element({.slot = slot, .type = type, .w = w, .h = h, .left = ACTION_CLICK, .right = ACTION_CLICK_RIGHT},
                      x, y);
        return slot;
    }
    /// The hand is noted and looked at, and the handler acts.
    static void tick(int count = 1) {
        for (int i = 0; i < count; ++i) {
            note_hand();
            renew_input();
            GUI_tick();
        }
    }
    static void mouse_at(int x, int y, int buttons = 0) {
        ::mouse_x = x * pixel_scale;
        ::mouse_y = y * pixel_scale;
        ::mouse_b = buttons;
        tick();
    }
    /// Presses at one place and releases at another.
    static void click_through(int x, int y, int release_x, int release_y, int button) {
        mouse_at(x, y);
        mouse_at(x, y, button);
        mouse_at(release_x, release_y, button);
        mouse_at(release_x, release_y);
    }
    static void click_at(int x, int y, int button = left_button) { click_through(x, y, x, y, button); }
    /// Draws all elements on an empty screen.
    static void draw_on(Color paper) {
        clear_to_color(screen_buffer, static_cast<int>(paper));
        GUI_draw_all();
    }
    static Color screen_pixel(int x, int y) { return *pixels_at(screen_buffer, x, y); }
};

/// A loop of the program that only waits.
inline void wait_loop() {
    while (exit_requested == 0) update_screen(UPDATE_NORMAL);
}

}  // namespace nubo
