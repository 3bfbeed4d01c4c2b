#pragma once
// Running a window from its opening to what comes back behind it. Main flow only.
//
// A window is a row with its elements (gui/window.h) and a short `serve`, which takes the clicks of each pass:
//
//     constexpr WindowRow window{.id = WINDOW_X, ..., .elements = rows, .okay = X_OKAY, .cancel = X_CANCEL};
//     void x_window() {
//         const auto serve = [] { if (take_click(X_GO) > 0) go(); return WINDOW_STAYS; };
//         if (run_window(window, {.serve = serve}) == WINDOW_DONE) keep_it();
//     }
#include "gui/window.h"
#include <functional>

namespace nubo {

/// What a window says after a pass, and how it has ended: by its OKAY or its own word, or by CANCEL, ESC, its key, a
/// right press outside or the end of the program.
enum WindowPass : int { WINDOW_STAYS, WINDOW_DONE, WINDOW_CANCELLED };

/// What a window does beside its row; each call may be empty.
struct WindowCalls {
    std::function<void()> built{};        // what the rows don't say: after each building, also when it comes back
    std::function<void()> show{};         // before each picture
    std::function<WindowPass()> serve{};  // after each picture, before the row's own clicks are looked at
};

/// Closes what stands, runs the window, closes it and builds again what stood before: the window that opened this one,
/// where it stood, or the drawing menu. A window in the high slots leaves what stands, which takes no press meanwhile.
/// When it returns no slider of the window is linked any more, so that a caller can put values back.
WindowPass run_window(const WindowRow& window, const WindowCalls& calls = {});

/// A window that has been opened, from the drawing menu upward; all but the top one are closed till it has ended.
struct WindowLayer {
    const WindowRow* window = nullptr;  // null: a cleared screen
    const WindowCalls* calls = nullptr;
    WindowLayer* below = nullptr;
    int x = 0, y = 0, menu = 0;  // where it stood, and `menu_id`, when it was covered
};

/// As long as it lives no window stands on the screen, also behind those that are run; then what stood before comes
/// back. For commands that work on the Frame itself.
class ClearedScreen {
public:
    ClearedScreen();
    ~ClearedScreen();
    ClearedScreen(const ClearedScreen&) = delete;
    ClearedScreen& operator=(const ClearedScreen&) = delete;

private:
    WindowLayer layer_;
    bool was_hidden_;
};

}  // namespace nubo
