// In a file of its own: the header of Xlib's extensions has macros that no other code should see.
#include "platform/keyboard.h"

#include <X11/XKBlib.h>
#include <allegro.h>
#include <xalleg.h>

#include <X11/Xlibint.h>

namespace nubo {
namespace {

using ReadFromWire = Bool (*)(Display*, XEvent*, xEvent*);
ReadFromWire read_release = nullptr;

Bool read_earlier_release(Display* display, XEvent* event, xEvent* wire) {
    const Bool is_read = read_release(display, event, wire);
    event->xkey.time -= 1;
    return is_read;
}

}  // namespace

void part_key_strokes() {
    if (_xwin.display == nullptr || read_release != nullptr) return;
    int supported = False;
    // Then a key that is held repeats as presses alone; else a release comes before each of them, and must stay there.
    const bool repeats_by_presses = XkbSetDetectableAutoRepeat(_xwin.display, True, &supported) != 0 && supported != 0;
    if (repeats_by_presses) read_release = XESetWireToEvent(_xwin.display, KeyRelease, read_earlier_release);
}

}  // namespace nubo
