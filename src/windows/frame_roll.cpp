#include "windows/frame_roll.h"

#include "base/keys.h"
#include "paint/surfaces.h"
#include "paint/undo.h"
#include "state/frames.h"
#include "view/frame_tiles.h"
#include "windows/kit/arrow_keys.h"
#include <allegro.h>

namespace nubo {
namespace {

/// A run of presses: its step of undo, and how far the Frame has come since.
struct Run {
    int step = no_step;
    Point by{};
};
Run run;

/// What the Frame was before the run is in the snapshot: from there it goes to where it is by now.
void roll_frame(Point by) {
    if (run.step == no_step || run.step != step_in_progress()) {
        if (!save_undo(false)) return;
        run = {step_in_progress(), {}};
    }
    const int w = current_frame->w, h = current_frame->h;
    run.by = {wrapped(run.by.x + by.x, w), wrapped(run.by.y + by.y, h)};
    for (const int x : {run.by.x - w, run.by.x})
        for (const int y : {run.by.y - h, run.by.y}) blit(stroke_snapshot(), current_frame, 0, 0, x, y, w, h);
    note_all_touched();
}

}  // namespace

void serve_roll_keys() {
    static ArrowKeys arrows;
    const Point step = arrows.step();
    const bool is_asked = (modifiers_down() & ~key_shift) == key_ctrl && !(step == Point{});
    if (is_asked) roll_frame(step);
}

}  // namespace nubo
