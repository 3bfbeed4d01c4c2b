// In a file of its own: the header of Xlib's extensions has macros that no other code should see.
#include "platform/keyboard.h"

#include <X11/XKBlib.h>
#include <allegro.h>
#include <xalleg.h>

#include <X11/Xlibint.h>

namespace nubo {
namespace {

using ReadFromWire = Bool (*)(Display*, XEvent*, xEvent*);
ReadFromWire read_press = nullptr, read_release = nullptr;
std::array<unsigned, x_keys> modifiers{};  // of each key's last press

Bool read_modifiers(Display* display, XEvent* event, xEvent* wire) {
    const Bool is_read = read_press(display, event, wire);
    modifiers[event->xkey.keycode % x_keys] = event->xkey.state;
    return is_read;
}

Bool read_earlier_release(Display* display, XEvent* event, xEvent* wire) {
    const Bool is_read = read_release(display, event, wire);
    event->xkey.time -= 1;
    return is_read;
}

}  // namespace

unsigned long symbol_of_press(int x_key) {
    unsigned used = 0;
    KeySym symbol = NoSymbol;
    const auto key = static_cast<std::size_t>(x_key) % x_keys;
    XkbLookupKeySym(_xwin.display, static_cast<KeyCode>(key), modifiers[key], &used, &symbol);
    return symbol;
}

void watch_key_strokes() {
    if (_xwin.display == nullptr || read_press != nullptr) return;
    read_press = XESetWireToEvent(_xwin.display, KeyPress, read_modifiers);
    int supported = False;
    // Then a key that is held repeats as presses alone; else a release comes before each of them, and must stay there.
    const bool repeats_by_presses = XkbSetDetectableAutoRepeat(_xwin.display, True, &supported) != 0 && supported != 0;
    if (repeats_by_presses) read_release = XESetWireToEvent(_xwin.display, KeyRelease, read_earlier_release);
}

}  // namespace nubo
