#pragma once
// Every window of the program and every tool that waits on the screen, once: for the contact sheet, the tests that all
// of them must pass, and the user without a plan.
#include "harness/user.h"

namespace nubo {

enum WindowTrait : unsigned {
    IS_WINDOW = 1,           // has elements of its own: it stands on the contact sheet
    IS_BOX_OVER_OTHERS = 2,  // but no window: what lies under them takes no press as long as it waits
    IS_HELD = 4,             // lasts as long as its key is held, whatever else is struck
    TAKES_ESCAPE = 8,        // the key is an answer here
    PANS = 16                // the middle button pans the Frame under it
};

struct WindowOpener {
    std::string name;
    unsigned traits;
    std::function<void()> open;  // from the drawing menu, on an editor as after a start; comes back when it is left
};

/// An editor with the program's own sheets, fonts and tips, on which each of them can be opened.
class AllWindowsTest : public EditorTest {
protected:
    AllWindowsTest();
    ScratchFolder folder_;
};

/// All of them; those that look different by what they are opened for have a row for each.
std::vector<WindowOpener> all_windows();

}  // namespace nubo
