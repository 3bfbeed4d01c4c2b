#include "platform/window_marks.h"

#include "base/bitmap.h"
#include <X11/Xatom.h>
#include <X11/Xutil.h>
#include <allegro.h>
#include <array>
#include <cstring>
#include <unistd.h>
#include <vector>
#include <xalleg.h>

namespace nubo {
namespace {

/// By which a desktop ends a program that no longer answers; the number counts on the machine that is named.
void name_process() {
    std::array<char, 256> host{};
    char* name = host.data();
    XTextProperty machine;
    if (gethostname(name, host.size() - 1) != 0 || XStringListToTextProperty(&name, 1, &machine) == 0) return;
    XSetWMClientMachine(_xwin.display, _xwin.wm_window, &machine);
    XFree(machine.value);
    const unsigned long process = static_cast<unsigned long>(getpid());  // Xlib takes 32 bits in a long
    XChangeProperty(_xwin.display, _xwin.wm_window, XInternAtom(_xwin.display, "_NET_WM_PID", False), XA_CARDINAL, 32,
                    PropModeReplace, reinterpret_cast<const unsigned char*>(&process), 1);
}

}  // namespace

void name_window_process() {
    if (_xwin.display == nullptr) return;
    XLOCK();
    name_process();
    XFlush(_xwin.display);
    XUNLOCK();
}

void name_window_class() {
    char name[] = "nubo", group[] = "Nubo";
    XClassHint hint{name, group};
    XLOCK();
    std::strcpy(_xwin.application_name, name);  // for a window that is still to be made
    std::strcpy(_xwin.application_class, group);
    if (_xwin.wm_window != None) XSetClassHint(_xwin.display, _xwin.wm_window, &hint);
    XUNLOCK();
}

void set_window_icon(std::span<BITMAP* const> icons) {
    if (_xwin.display == nullptr) return;
    std::vector<unsigned long> words;  // Xlib takes 32 bits in a long; width, height and the pixels of each
    for (BITMAP* const icon : icons) {
        words.insert(words.end(), {static_cast<unsigned long>(icon->w), static_cast<unsigned long>(icon->h)});
        for (int y = 0; y < icon->h; ++y)
            words.insert(words.end(), pixels_at(icon, 0, y), pixels_at(icon, 0, y) + icon->w);
    }
    XLOCK();
    XChangeProperty(_xwin.display, _xwin.wm_window, XInternAtom(_xwin.display, "_NET_WM_ICON", False), XA_CARDINAL, 32,
                    PropModeReplace, reinterpret_cast<const unsigned char*>(words.data()),
                    static_cast<int>(words.size()));
    XFlush(_xwin.display);
    XUNLOCK();
}

}  // namespace nubo
