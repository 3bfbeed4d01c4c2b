// Hearing that the window was destroyed. In a file of its own: the header of Xlib's extensions has macros that no other
// code should see.
#include "platform/display_loss.h"

#include <allegro.h>
#include <xalleg.h>

#include <X11/Xlibint.h>

namespace nubo {
namespace {

Bool (*read_destroyed)(Display*, XEvent*, xEvent*) = nullptr;

/// Heard as it is read, whoever reads: Allegro's own handling passes over it.
Bool hear_destroyed(Display* display, XEvent* event, xEvent* wire) {
    const Bool is_read = read_destroyed(display, event, wire);
    const Window window = event->xdestroywindow.window;
    if (window == _xwin.window || window == _xwin.wm_window) note_lost_window();
    return is_read;
}

void ask_for_structure(Window window) {
    XWindowAttributes known;
    if (window != None && XGetWindowAttributes(_xwin.display, window, &known) != 0)
        XSelectInput(_xwin.display, window, known.your_event_mask | StructureNotifyMask);
}

}  // namespace

void watch_window() {
    if (_xwin.display == nullptr || read_destroyed != nullptr) return;
    XLOCK();
    read_destroyed = XESetWireToEvent(_xwin.display, DestroyNotify, hear_destroyed);
    ask_for_structure(_xwin.wm_window);
    ask_for_structure(_xwin.window);
    XUNLOCK();
}

}  // namespace nubo
