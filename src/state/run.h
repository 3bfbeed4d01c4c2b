#pragma once
// The run of the program: its flags, the geometry of the screen, the bitmaps that live from start to end.
#include "state/shared.h"
#include <array>
#include <cstdint>

struct BITMAP;

namespace nubo {

// ---- Run flags -----------------------------------------------------------------------------------------------------

/// Who asks for the program's end. By hand it is put off while nothing can be saved; a signal ends it whatever comes.
enum ExitRequest : int { EXIT_NONE, EXIT_BY_HAND, EXIT_BY_SIGNAL };
inline constinit Shared<int> exit_requested = EXIT_NONE;  // leaves `program_loop` at the end of the current pass
inline constinit Shared<int> handlers_locked =
    1;  // start, shutdown, workspace clear: the animation handlers return at once
inline constinit Shared<int> editor_running = 0;   // clear: no view tick, no GUI action step, no job delays
inline constinit Shared<int> gui_enabled = 0;      // clear: a press on a GUI element is not accepted
inline constinit Shared<int> frame_pacing = 1;     // ties the GUI tick to the presenting of frames; stored in user.def
inline constinit Shared<int> frame_presented = 0;  // set at each present, cleared by the GUI tick
enum PowerSaving : int { POWER_OFF, POWER_LOW, POWER_HIGH, POWER_COUNT };
inline constinit Shared<int> power_saving = POWER_HIGH;
inline constinit Shared<int> pan_moved = 0;  // a pan key moved the view; the next present skips its rest

// ---- Screen geometry, set once by `UA_init_graphics` ---------------------------------------------------------------

inline constexpr int view_w = 320, view_h = 240;    // the logical screen, in every mode
inline constinit int screen_w = 0, screen_h = 0;    // the real mode: 640x480, 960x720 or 1280x960
inline constinit Shared<int> pixel_scale = 1;       // real pixels per logical pixel: 2, 3 or 4
inline constinit BITMAP* screen_buffer = nullptr;   // view_w x view_h: all is drawn into it
inline constinit BITMAP* menu_snapshot = nullptr;   // view_w x view_h, 0xff00ff where nothing is
inline constinit BITMAP* overlay = nullptr;         // view_w x view_h, previews over the frame, 0xff00ff means nothing
inline constinit BITMAP* preview_bitmap = nullptr;  // 117x79, the file browser's preview
inline constinit BITMAP* logo = nullptr;            // N_HD_1X.RES
inline constinit BITMAP* tip_sheet = nullptr;       // 206x62, the brush tips (state/tips.h)
inline constinit BITMAP* checker_sheet = nullptr;   // 192x64, three patterns side by side
inline constinit BITMAP* stripe_pattern = nullptr;  // 64x64, of all marching ants lines
inline constinit BITMAP* nail_sheet = nullptr;      // 400x400, thumbnails of the 100 frames
inline constexpr int preview_w = 117, preview_h = 79;  // size of `preview_bitmap`

// ---- Random numbers and time ---------------------------------------------------------------------------------------

inline constexpr int timer_hz = 1193181;  // Allegro's hardware ticks a second
inline constexpr int clock_hz = 500;      // of `UA_timebase_tick`
inline constexpr int flash_ticks = 120;   // GUI ticks for which a status message flashes

inline constinit Shared<int> UA_wait_ticks = 0;          // 500 Hz, counts up
inline constinit Shared<int> UA_clock_ticks = 0;         // 500 Hz, counts up
inline constinit Shared<int> UA_idle_ticks = 0;          // 500 Hz, counts up to 1000 and stays
inline constinit Shared<int> UA_phase_counter = 0;       // 500 Hz, 0 to 499, wraps
inline constinit std::array<Shared<int>, 9> UA_phase{};  // phase n, 1 to 8: 0 to 255, steps each n-th count

// ---- Jobs: work that a timer handler leaves to the main flow -------------------------------------------------------

inline constexpr int job_slots = 256, job_arguments = 7;
enum JobType : int {
    JOB_NONE = 0,
    JOB_SOUND = 5,
    JOB_NOTHING = 7,
    JOB_FOG = 8,
    JOB_WAIT = 9,
    JOB_SCRIPT_WAIT = 10,
    JOB_SCRIPT = 11,
    JOB_WINDOW_DRAG = 32,
    JOB_DUST = 53
};
namespace job {
inline constinit std::array<Shared<int>, job_slots> type{};  // written last with release, read first with acquire
inline constinit std::array<std::array<Shared<int>, job_arguments>, job_slots> arg{};
inline constinit std::array<Shared<int>, job_slots> script_slot{};  // the script that waits for this job
inline constinit std::array<Shared<int>, job_slots> delay{};        // framework ticks to wait
}  // namespace job

}  // namespace nubo
