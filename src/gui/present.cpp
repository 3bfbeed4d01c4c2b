#include "gui/present.h"

#include "base/bitmap.h"
#include "gui/mouse.h"
#include "platform/clipboard.h"
#include "platform/display_loss.h"
#include "platform/input.h"
#include "platform/window_colors.h"
#include "state/console.h"
#include "state/gui.h"
#include "state/run.h"
#include <algorithm>
#include <allegro.h>
#include <cstring>

namespace nubo {
namespace {

void (*present_hook)() = nullptr;
// Both live for the run. No owner destroys them at the end: by then Allegro is gone.
BITMAP* presented = nullptr;  // the picture in the window; null: none yet
BITMAP* enlarged = nullptr;   // the same at the window's size

/// What of the picture the window shows, each pixel as a square of `scale`, from the row `window_y` on.
struct Cutout {
    int x, y, w, h, scale, window_y;
};
Cutout cutout_shown = {};

/// All of it, or with `Console_zoom` the middle.
Cutout cutout_wanted() {
    const int scale = pixel_scale;
    if (Console_zoom == 0) return {0, 0, view_w, view_h, scale, 0};
    constexpr int w = 160, h = 100, x = (view_w - w) / 2, y = 50;
    const int larger = scale * view_w / w;
    return {x, y, w, h, larger, (screen_h - h * larger) / 2};
}

struct Rows {
    int first, end;
};

/// The rows of the cutout that differ from the picture presented last.
Rows changed_rows(const Cutout& cutout) {
    Rows rows{cutout.y, cutout.y + cutout.h};
    if (!presented) return rows;
    constexpr std::size_t row_bytes = view_w * sizeof(Color);
    const auto differs = [](int y) {
        return std::memcmp(pixels_at(screen_buffer, 0, y), pixels_at(presented, 0, y), row_bytes) != 0;
    };
    while (rows.first < rows.end && !differs(rows.first)) ++rows.first;
    while (rows.end > rows.first && !differs(rows.end - 1)) --rows.end;
    return rows;
}

/// Each pixel becomes a square: a row is widened once and copied for the others.
void enlarge_rows(Rows rows, const Cutout& cutout) {
    const int scale = cutout.scale;
    int window_y = cutout.window_y + (rows.first - cutout.y) * scale;
    for (int y = rows.first; y < rows.end; ++y, window_y += scale) {
        const Color* from = pixels_at(screen_buffer, cutout.x, y);
        Color* const first = pixels_at(enlarged, 0, window_y);
        Color* to = first;
        for (int x = 0; x < cutout.w; ++x) to = std::fill_n(to, scale, from[x]);
        for (int copy = 1; copy < scale; ++copy) std::copy(first, to, pixels_at(enlarged, 0, window_y + copy));
    }
}

/// Another cutout is shown from the start, on a black window.
void take_cutout(const Cutout& cutout) {
    if (cutout.scale == cutout_shown.scale) return;
    forget_presented_picture();
    if (cutout_shown.scale != 0) clear_bitmap(screen);
    cutout_shown = cutout;
}

void show_picture() {
    const Cutout cutout = cutout_wanted();
    take_cutout(cutout);
    const Rows rows = changed_rows(cutout);
    if (rows.first == rows.end) return;
    if (!enlarged) replace_bitmap(enlarged, make_bitmap(screen_w, screen_h));
    if (!enlarged) return;
    const int top = cutout.window_y + (rows.first - cutout.y) * cutout.scale;
    const int height = (rows.end - rows.first) * cutout.scale;
    enlarge_rows(rows, cutout);
    convert_to_window(enlarged, top, height);
    // One blit of all changed rows: each drawing call on the screen is a message to the X server.
    blit(enlarged, screen, 0, top, 0, top, screen_w, height);
    send_drawing();
    if (!presented)
        replace_bitmap(presented, copy_bitmap(screen_buffer));
    else
        blit(screen_buffer, presented, 0, rows.first, 0, rows.first, view_w, rows.end - rows.first);
}

/// The picture is out before the rest, and input ends the rest: from the hand to the pixel no pause is waited for.
void rest_after_picture(void (*before_rest)()) {
    constexpr int low_ms = 5, high_ms = 10;
    if (before_rest != nullptr) before_rest();
    check_mouse();
    if (power_saving == POWER_OFF) {
        vsync();
    } else if (pan_moved.take() != 0) {
        rest(1);
        vsync();
    } else {
        rest_until_input(power_saving == POWER_LOW ? low_ms : high_ms, input_waits);
    }
}

}  // namespace

void present(void (*before_rest)()) {
    frames_shown += 1;
    if (frame_pacing != 0) frame_presented = 1;
    if (present_hook != nullptr) {
        present_hook();
    } else {
        const DisplayUse use;
        show_picture();
        serve_clipboard();
        rest_after_picture(before_rest);
    }
}

void set_present_hook(void (*hook)()) { present_hook = hook; }

void forget_presented_picture() { replace_bitmap(presented, nullptr); }

}  // namespace nubo
