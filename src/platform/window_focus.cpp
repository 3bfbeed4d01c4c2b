#include "platform/window_focus.h"

#include <allegro.h>
#include <xalleg.h>

namespace nubo {

void raise_window() {
    if (_xwin.display == nullptr) return;
    constexpr long asked_by_user = 2;  // window managers may refuse what a program asks for by itself
    XLOCK();
    XEvent event{};
    event.xclient.type = ClientMessage;
    event.xclient.window = _xwin.wm_window;
    event.xclient.message_type = XInternAtom(_xwin.display, "_NET_ACTIVE_WINDOW", False);
    event.xclient.format = 32;
    event.xclient.data.l[0] = asked_by_user;
    XSendEvent(_xwin.display, DefaultRootWindow(_xwin.display), False,
               SubstructureRedirectMask | SubstructureNotifyMask, &event);
    XFlush(_xwin.display);
    XUNLOCK();
}

}  // namespace nubo
