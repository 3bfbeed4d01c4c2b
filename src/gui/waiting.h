#pragma once
// Waiting for the user's hand on the picture: a tool for its points, a command for a corner, a pick for a colour. Main
// flow only.
//
//     Waiting wait({.prompt = MESSAGE_GRAB_FIRST});
//     HandStep hand = HAND_RESTS;
//     while (hand == HAND_RESTS) hand = wait.pass();
//     if (hand == HAND_LEFT) take_corner(wait.point());
#include "gui/prompt.h"
#include "state/gui.h"
#include "state/stroke.h"

namespace nubo {

/// ESC and the end of the program: both end whatever waits, as its CANCEL would.
class Escape {
public:
    /// True when the program shall end, and after ESC went down, when it is up again. It counts for nothing where the
    /// user has given it another meaning than at the start, and as long as it is down since before.
    bool asked();

private:
    bool armed_ = false;
};

/// True from when ESC has left something until half a second later, and then until the key is up: who strikes it once
/// more than needed means nothing by it.
bool escape_rests();

/// What the hand has done in a pass. LEFT and RIGHT come when the button goes down.
enum HandStep : int { HAND_RESTS, HAND_LEFT, HAND_RIGHT, HAND_ESCAPES };

inline constexpr int no_hotkeys = -1;

struct WaitRow {
    int prompt = MESSAGE_NONE;        // or `status_bar_only`
    int hotkeys = no_hotkeys;         // the scan that each pass makes, a HotkeyMode
    int first_live_slot = gui_slots;  // elements from here on still take presses: those of what waits itself
};

/// As long as it lives presses belong to what waits: the elements on screen take none, and none is left over for them.
class Waiting {
public:
    explicit Waiting(const WaitRow& row = {});
    /// Waits until the buttons are up.
    ~Waiting();
    Waiting(const Waiting&) = delete;
    Waiting& operator=(const Waiting&) = delete;

    /// Shows the picture once and tells what the hand has done. First waits for the release of the press told before,
    /// but not of one on a live element.
    HandStep pass();

    /// A pass while the left press told last goes on: LEFT as long as it does, RESTS when the button is up.
    HandStep held_pass();

    /// Passes until a left press and its release: true. False after a right press, ESC or the end of the program.
    bool for_click();

    /// The Frame's pixel under the mouse at the last left press.
    Point point() const { return point_; }

    /// Whether SHIFT was down at that press; it may go up before the button does.
    bool shift() const { return shift_; }

    void set_prompt(int message) { row_.prompt = message; }

private:
    WaitRow row_;
    int live_before_;
    Prompt prompt_;
    Escape escape_;
    Point point_{};
    bool shift_ = false;
};

}  // namespace nubo
