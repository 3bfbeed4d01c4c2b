#include "platform/input.h"

#include "state/run.h"
#include <allegro.h>
#include <allegro/internal/aintern.h>
#include <chrono>
#include <poll.h>
#include <xalleg.h>

namespace nubo {
namespace {

struct Hand {
    int buttons = ::mouse_b, x = ::mouse_x, y = ::mouse_y;
    /// True if this hand asks for a picture that the one before didn't.
    bool acts_after(const Hand& before) const {
        return buttons != before.buttons || (buttons != 0 && (x != before.x || y != before.y));
    }
};

using Clock = std::chrono::steady_clock;

/// Puts Allegro's mouse where the pointer really is. Allegro adds up the motions that it sees, and loses those of a
/// window's first quarter of a second and of the time that the pointer spends outside.
void align_mouse() {
    Window root = 0, child = 0;
    int root_x = 0, root_y = 0, x = 0, y = 0;
    unsigned buttons = 0;
    XLOCK();
    if (XQueryPointer(_xwin.display, _xwin.window, &root, &child, &root_x, &root_y, &x, &y, &buttons) != 0) {
        _xwin_handle_input();  // what came before the answer must not be added to it
        if (x >= 0 && y >= 0 && x < screen_w && y < screen_h) {
            _mouse_x = x;
            _mouse_y = y;
            _handle_mouse_input();
        }
    }
    XUNLOCK();
}

/// Aligns the mouse if the last time is longer ago than `interval`. Not with a button held: a stroke is made of the
/// motions that Allegro sees, each once.
void align_mouse_after(std::chrono::milliseconds interval) {
    static Clock::time_point last = Clock::now();
    const auto now = Clock::now();
    if (now - last < interval || ::mouse_b != 0) return;
    last = now;
    align_mouse();
}

constexpr std::chrono::milliseconds idle_interval(400), input_interval(20);

}  // namespace

void rest_until_input(int milliseconds) {
    if (_xwin.display == nullptr) {
        rest(static_cast<unsigned>(milliseconds));
        return;
    }
    align_mouse_after(idle_interval);
    const auto end = Clock::now() + std::chrono::milliseconds(milliseconds);
    pollfd connection{ConnectionNumber(_xwin.display), POLLIN, 0};
    const Hand before;
    for (;;) {
        const auto left = std::chrono::ceil<std::chrono::milliseconds>(end - Clock::now()).count();
        if (left <= 0) return;
        if (poll(&connection, 1, static_cast<int>(left)) > 0) {
            _xwin_handle_input();
            align_mouse_after(input_interval);
        }
        // Allegro's thread may have taken the event before: then the variables alone tell.
        if (Hand{}.acts_after(before)) return;
    }
}

}  // namespace nubo
