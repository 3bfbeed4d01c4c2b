#pragma once
// Ends that come from outside. The X server may end, or throw the program out, at any moment. Xlib then ends the
// process from whichever thread met it; Allegro's own end waits for a lock which that thread holds, so the process
// would hang, and what is in memory be lost. Here the work is saved instead, and the process ends at once. It is the
// same where the window is destroyed by someone else, where a signal asks for the end while the server answers nobody,
// and where an exception finds nobody who takes it, as when no memory is left.
//
// The work is saved by the main flow, or by the thread that met the end while the main flow uses the display: there the
// main flow waits, and no work is half done.

namespace nubo {

inline constexpr int exit_display_lost = 4;  // exit code of a program whose display went
inline constexpr int exit_terminated = 6;    // of one that nobody knew how to go on with

/// Watches the connection, and exceptions that nobody takes. Called by the main flow, once, after the start of Allegro.
void watch_display();

/// Has the server tell when the window is destroyed. Once, when the window is there.
void watch_window();

/// The window was destroyed: the main flow saves and ends where it uses the display or does so next.
void note_lost_window();

/// What saves the work at a sudden end.
struct LastSaves {
    int (*whole)() = nullptr;    // all in memory is as between two passes: the exit sequence, with its exit code
    bool (*broken)() = nullptr;  // the main flow stands anywhere: what there is goes where nothing stands yet
};

/// Until this is called there is nothing to save, and the process just ends.
void save_at_sudden_end(LastSaves saves);

/// All is saved: from now on a sudden end just ends, and a normal one that hangs does so with this exit code.
void work_is_saved(int exit_code);

/// A signal has asked for the end. Returns never: it waits for the process to end, and ends it where the main flow
/// waits for the display for a second, or can't leave it when all is saved. For a thread of its own.
[[noreturn]] void end_even_if_display_hangs();

/// The main flow uses the display as long as this lives, and changes nothing that is to be saved. If the display is
/// lost, neither beginning nor end of it come back. One may live in another.
class DisplayUse {
public:
    DisplayUse();
    ~DisplayUse();
    DisplayUse(const DisplayUse&) = delete;
    DisplayUse& operator=(const DisplayUse&) = delete;
};

}  // namespace nubo
