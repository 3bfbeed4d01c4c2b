#include "platform/input.h"

#include "platform/clipboard.h"
#include "platform/display_loss.h"
#include "platform/input_queue.h"
#include "platform/keyboard.h"
#include "platform/typed_characters.h"
#include "state/run.h"
#include "state/shared.h"
#include <algorithm>
#include <allegro.h>
#include <allegro/internal/aintern.h>
#include <array>
#include <chrono>
#include <poll.h>
#include <pthread.h>
#include <utility>
#include <xalleg.h>

namespace nubo {
namespace {

using Clock = std::chrono::steady_clock;
using std::chrono::milliseconds;

// ---- Events --------------------------------------------------------------------------------------------------------

pthread_t main_flow;
Shared<bool> main_flow_listens = false;

/// Takes the place of Allegro's reading of the connection, which waits for an answer of the X server each time, whether
/// there is something to read or not. Called under the lock of the connection, by Allegro's thread and the main flow.
void read_events() {
    // An event that Allegro's thread takes wakes nobody: while the main flow sleeps on the connection all are its own.
    if (main_flow_listens && pthread_equal(pthread_self(), main_flow) == 0) return;
    if (_xwin.display == nullptr) return;
    _xwin.mouse_warped = 0;  // Allegro is deaf to motions for a while after it has placed its mouse
    for (int mode = QueuedAfterFlush; XEventsQueued(_xwin.display, mode) > 0; mode = QueuedAlready)
        _xwin_private_handle_input();
}

int buttons_heard = 0;
unsigned button_changes = 0;

void hear_mouse(int /*flags*/) {
    if (std::exchange(buttons_heard, ::mouse_b) != ::mouse_b) ++button_changes;
    note_mouse(::mouse_x, ::mouse_y, ::mouse_b);
}

Typist typist;
char32_t typed = 0;  // by the key that is being heard

/// The first key struck on another keyboard comes together with the news of it, after which Allegro has made codes of
/// its own. This is called before Allegro looks the code up.
void prepare_key(int down, int x_key) {
    keep_keyboard_map();
    if (down != 0) typed = typist.strike(symbol_of_press(x_key));
}

/// Allegro marks a release by the bit above its key codes.
void hear_key(int code) {
    constexpr int released = 0x80;
    note_key(code & ~released, (code & released) == 0, typed);
}

// ---- What the server says of the mouse -----------------------------------------------------------------------------

/// Puts Allegro's mouse where the pointer really is: of a pointer that comes to lie on the window without a motion, as
/// when a window before it closes, Allegro knows nothing.
void align_place(int x, int y) {
    if (x < 0 || y < 0 || x >= screen_w || y >= screen_h) return;
    _mouse_x = x;
    _mouse_y = y;
    _handle_mouse_input();
}

/// Allegro hears the release of the buttons that it holds for pressed and that the server says are up.
void release_lost_buttons(unsigned state) {
    struct ButtonRow {
        int bit;  // Allegro's
        unsigned mask, number;
    };
    constexpr std::array<ButtonRow, input_buttons> rows{
        {{1, Button1Mask, Button1}, {2, Button3Mask, Button3}, {4, Button2Mask, Button2}}};
    for (const ButtonRow& row : rows) {
        if ((::mouse_b & row.bit) == 0 || (state & row.mask) != 0) continue;
        XEvent release{};
        release.xbutton.type = ButtonRelease;
        release.xbutton.display = _xwin.display;
        release.xbutton.window = _xwin.window;
        release.xbutton.button = row.number;
        XPutBackEvent(_xwin.display, &release);
        _xwin_handle_input();
    }
}

/// What came before the answer must not be added to it, and what was pressed behind it not be taken off. With a button
/// held only that is looked at: a stroke is made of the motions that Allegro sees, each once.
void ask_for_mouse() {
    Window root = 0, child = 0;
    int root_x = 0, root_y = 0, x = 0, y = 0;
    unsigned state = 0;
    XLOCK();
    const bool held = ::mouse_b != 0;
    const unsigned changes = button_changes;
    if (XQueryPointer(_xwin.display, _xwin.window, &root, &child, &root_x, &root_y, &x, &y, &state) != 0) {
        _xwin_handle_input();
        if (held && changes == button_changes) release_lost_buttons(state);
        if (!held) align_place(x, y);
    }
    XUNLOCK();
}

/// Asks if the last time is longer ago than `interval`.
void ask_for_mouse_after(milliseconds interval) {
    static Clock::time_point last = Clock::now();
    const auto now = Clock::now();
    if (now - last < interval) return;
    last = now;
    ask_for_mouse();
}

constexpr milliseconds idle_interval(400), held_interval(100), input_interval(20);

// ---- Resting -------------------------------------------------------------------------------------------------------

/// A change that isn't wanted yet waits for the other flow, which doesn't wake this one.
constexpr milliseconds look_again(2);

milliseconds time_left(Clock::time_point end) {
    const auto left = std::chrono::ceil<milliseconds>(end - Clock::now());
    return first_change() != nullptr ? std::min(left, look_again) : left;
}

/// Sleeps until the X connection has something, at most for the time given. Other programs, which ask for what is on
/// the clipboard, are answered meanwhile. True when it was the hand.
bool sleep_for(milliseconds time) {
    std::array<pollfd, 2> sources{pollfd{ConnectionNumber(_xwin.display), POLLIN, 0},
                                  pollfd{clipboard_descriptor(), POLLIN, 0}};  // poll passes over one of -1
    const bool woken = poll(sources.data(), sources.size(), static_cast<int>(time.count())) > 0;
    if (woken && sources[1].revents != 0) serve_clipboard();
    return woken && sources[0].revents != 0;
}

void listen_until(Clock::time_point end, bool (*wanted)()) {
    for (bool heard = false;;) {
        _xwin_handle_input();  // first: what Xlib holds already wakes no sleeper
        if (wanted()) return;
        if (heard && ::mouse_b == 0) ask_for_mouse_after(input_interval);
        const milliseconds left = time_left(end);
        if (left <= milliseconds::zero()) return;
        heard = sleep_for(left);
    }
}

}  // namespace

void install_input() {
    main_flow = pthread_self();
    XLOCK();
    map_keyboard();
    watch_key_strokes();
    note_mouse(::mouse_x, ::mouse_y, ::mouse_b);
    mouse_callback = hear_mouse;
    keyboard_lowlevel_callback = hear_key;
    _xwin_keyboard_callback = prepare_key;
    _xwin_input_handler = read_events;
    XUNLOCK();
}

void check_mouse() {
    if (_xwin.display == nullptr) return;
    const DisplayUse use;
    ask_for_mouse_after(::mouse_b != 0 ? held_interval : idle_interval);
}

void rest_until_input(int time_ms, bool (*wanted)()) {
    if (_xwin.display == nullptr) {
        rest(static_cast<unsigned>(time_ms));
        return;
    }
    const DisplayUse use;
    main_flow_listens = true;
    listen_until(Clock::now() + milliseconds(time_ms), wanted);
    main_flow_listens = false;
}

void send_drawing() {
    if (_xwin.display == nullptr) return;
    XLOCK();
    XFlush(_xwin.display);
    XUNLOCK();
}

}  // namespace nubo
