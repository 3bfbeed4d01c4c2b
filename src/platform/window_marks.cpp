#include "platform/window_marks.h"

#include "base/bitmap.h"
#include <X11/Xatom.h>
#include <X11/Xutil.h>
#include <allegro.h>
#include <cstring>
#include <vector>
#include <xalleg.h>

namespace nubo {

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
