#pragma once
// A scripted user: a coroutine that moves, presses and types while the program's own loops run. Every wait loop of the
// program passes the present step; there the time goes on, the timer handlers run as often as their rates ask, and the
// script is resumed. So a modal tool or window is played from press to commit in milliseconds, the same way every time.
#include "harness/harness.h"
#include "paint/surfaces.h"
#include "paint/undo.h"
#include "state/cel.h"
#include "state/flow.h"
#include "state/frames.h"
#include "state/options.h"
#include "state/overlay.h"
#include "state/run.h"
#include "state/status.h"
#include "state/stroke.h"
#include "state/tools.h"
#include "state/view.h"
#include "state/windows.h"
#include <allegro.h>
#include <coroutine>
#include <exception>
#include <functional>

namespace nubo {

/// What a script returns; started and resumed by `play`.
struct Script {
    struct promise_type {
        Script get_return_object() { return {std::coroutine_handle<promise_type>::from_promise(*this)}; }
        std::suspend_always initial_suspend() noexcept { return {}; }
        std::suspend_always final_suspend() noexcept { return {}; }
        void return_void() {}
        void unhandled_exception() { std::terminate(); }
    };
    std::coroutine_handle<promise_type> handle;
};

/// The hands of the user. Places are logical pixels, which are frame pixels at zoom 1 and pan 0. Each call is awaited
/// and lasts a few screen updates, so that the program has seen it.
class User {
public:
    /// Suspends the script for a number of updates, or until a condition holds.
    struct Pause {
        User& user;
        int updates;
        std::function<bool()> condition{};
        bool await_ready() const { return false; }
        void await_suspend(std::coroutine_handle<>);
        void await_resume() const {}
    };

    Pause move_to(int x, int y);
    Pause press_left(int x, int y);
    Pause press_right(int x, int y);
    Pause drag_to(int x, int y) { return move_to(x, y); }
    Pause release_left();
    Pause release_right();
    /// Presses and releases at once, before the program can look.
    Pause tap_left(int x, int y);
    Pause tap_key(int code);
    Pause turn_wheel(int notches);
    Pause hold_key(int code);
    Pause release_key(int code);
    Pause wait(int updates);
    /// Until the condition holds; after 5,000 updates the test fails with a picture of the screen.
    Pause wait_until(std::function<bool()> condition);

private:
    friend void play_on(void (*loop)(), Script (*script)(User&));
    friend struct Pause;
    void step();

    std::coroutine_handle<> script_{};
    int updates_left_ = 0, updates_waited_ = 0;
    std::function<bool()> condition_{};
};

/// Runs `program_loop` with the scripted user until the script ends. The script captures nothing: it outlives its
/// lambda.
void play(Script (*script)(User&));

/// The same on another loop than the program's own; it ends by itself or when `exit_requested` is set.
void play_on(void (*loop)(), Script (*script)(User&));

/// Paints all of the Frame, without a step.
void clear_frame_to(Color color);

/// Has the input queue note what Allegro's variables of the mouse and the keys tell, which stand for the user's hands
/// here.
void note_hand();

/// Takes the place of the user and the time in a test that drives the loops itself: each present calls the handlers
/// due.
void advance_time(int milliseconds);

/// The bitmaps of the picture, and the time that goes on with each present: what `update_screen` needs.
void make_screen();

/// The states that undo and redo hold, with the one shown.
int undo_steps();

/// The editor as after a start, without files: a black Frame of 320x240, default keys, tool DRAW, ink OPAQUE, brush
/// white, three tips: 0 one full pixel, 1 a full square of 3x3, 2 the same at tip value 100.
class EditorTest : public testing::Test {
protected:
    EditorTest();
    static void new_frame(int width, int height, Color color = 0);
    static void take_tool(BrushTool tool);
    static void take_ink(Ink ink, int strength = 0);
    static Color frame_pixel(int x, int y);
    /// Pixels of the Frame that have this colour.
    static int count_pixels(Color color);
    /// A copy of all pixels of the Frame, for comparing whole Frames.
    static std::vector<Color> frame_pixels();
};

}  // namespace nubo
