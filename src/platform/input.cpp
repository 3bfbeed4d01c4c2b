#include "platform/input.h"

#include "state/run.h"
#include <algorithm>
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
/// window's first quarter of a second.
void align_mouse() {
    Window root = 0, child = 0;
    int root_x = 0, root_y = 0, x = 0, y = 0;
    unsigned buttons = 0;
    XLOCK();
    if (XQueryPointer(_xwin.display, _xwin.window, &root, &child, &root_x, &root_y, &x, &y, &buttons) != 0) {
        _xwin_handle_input();  // what came before the answer must not be added to it
        _mouse_x = std::clamp(x, 0, screen_w - 1);
        _mouse_y = std::clamp(y, 0, screen_h - 1);
        _handle_mouse_input();
    }
    XUNLOCK();
}

/// Aligns the mouse now and then while nothing goes on.
void align_idle_mouse(Clock::time_point now) {
    constexpr auto interval = std::chrono::milliseconds(400);
    static Clock::time_point next = now + interval;
    if (now < next || ::mouse_b != 0) return;
    next = now + interval;
    align_mouse();
}

}  // namespace

void rest_until_input(int milliseconds) {
    if (_xwin.display == nullptr) {
        rest(static_cast<unsigned>(milliseconds));
        return;
    }
    const auto start = Clock::now();
    align_idle_mouse(start);
    const auto end = start + std::chrono::milliseconds(milliseconds);
    pollfd connection{ConnectionNumber(_xwin.display), POLLIN, 0};
    const Hand before;
    for (;;) {
        const auto left = std::chrono::ceil<std::chrono::milliseconds>(end - Clock::now()).count();
        if (left <= 0) return;
        if (poll(&connection, 1, static_cast<int>(left)) > 0) _xwin_handle_input();
        // Allegro's thread may have taken the event before: then the variables alone tell.
        if (Hand{}.acts_after(before)) return;
    }
}

}  // namespace nubo
