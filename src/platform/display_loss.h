#pragma once
// The X server may end, or throw the program out, at any moment. Xlib then ends the process from whichever thread met
// it; Allegro's own end waits for a lock which that thread holds, so the process would hang, and what is in memory be
// lost. Here the work is saved instead, and the process ends at once.
//
// It is saved by the main flow, or by the thread that met the loss while the main flow uses the display: there the main
// flow waits for the lock, and no work is half done.

namespace nubo {

inline constexpr int exit_display_lost = 4;  // exit code of a program whose display went

/// Watches the connection. Called by the main flow, once, after the start of Allegro.
void watch_display();

/// What saves the work when the display is lost; null while there is none, then the process just ends. In the end
/// called with null, when all is saved.
void save_on_display_loss(void (*save)());

/// The main flow uses the display as long as this lives, and changes nothing that is to be saved. If the display is
/// lost, neither beginning nor end of it come back.
class DisplayUse {
public:
    DisplayUse();
    ~DisplayUse();
    DisplayUse(const DisplayUse&) = delete;
    DisplayUse& operator=(const DisplayUse&) = delete;
};

}  // namespace nubo
