// A whole picture without its way to the window, at the first and the last zoom level; and the drawing pass of the real
// windows. The plain limit beside them is a copy of the screen.
#include "base/bitmap.h"
#include "editor/screen.h"
#include "framework/resources.h"
#include "game/defaults.h"
#include "gui/draw.h"
#include "gui/present.h"
#include "gui/tick.h"
#include "gui/window.h"
#include "paint/surfaces.h"
#include "platform/input_queue.h"
#include "state/cel.h"
#include "state/flow.h"
#include "state/mouse.h"
#include "state/run.h"
#include "state/stroke.h"
#include "state/view.h"
#include "windows/favorites_window.h"
#include "windows/hand_over.h"
#include "windows/help_window.h"
#include "windows/kit/drawing_menu.h"
#include <benchmark/benchmark.h>
#include <cstring>
#include <filesystem>

namespace nubo {
namespace {

/// The editor with the program's own images, a Frame larger than the screen, and the drawing menu up.
void start_once() {
    static const bool started = [] {
        set_present_hook([] {});
        create_screen_bitmaps();
        UA_initialize_variables();
        UA_load_framework_video(Folder(NUBO_FOLDER "/resource"));
        hand_over_windows();
        replace_bitmap(tip_sheet, make_bitmap(tip_sheet_w, tip_sheet_h, transparent_color));
        replace_bitmap(cel, make_bitmap(1, 1));
        replace_bitmap(cel_mask, make_bitmap(1, 1));
        adopt_frame(make_bitmap(640, 480, 0x406080));
        return true;
    }();
    benchmark::DoNotOptimize(started);
    build_drawing_menu();
}

void update_at_level(benchmark::State& state) {
    start_once();
    zoom = static_cast<int>(state.range(0));
    for (auto _ : state) update_screen(UPDATE_NORMAL);
    zoom = zoom_min;
}
BENCHMARK(update_at_level)->DenseRange(zoom_min, zoom_max)->Unit(benchmark::kMicrosecond);

void draw_drawing_menu(benchmark::State& state) {
    start_once();
    for (auto _ : state) GUI_draw_all();
}
BENCHMARK(draw_drawing_menu)->Unit(benchmark::kMicrosecond);

/// Draws a window from inside its own loop: at its first picture the passes are timed, then the run ends.
void draw_open_window(benchmark::State& state, void (*window)()) {
    static benchmark::State* timed = nullptr;
    start_once();
    timed = &state;
    set_present_hook([] {
        if (timed != nullptr)
            for (auto _ : *timed) GUI_draw_all();
        timed = nullptr;
        // A right press outside ends the window.
        note_mouse(0, 0, mouse_right == 0 ? 2 : 0);
        GUI_tick();
    });
    window();
    set_present_hook([] {});
}
void draw_favorites_window(benchmark::State& state) { draw_open_window(state, favorites_window); }
BENCHMARK(draw_favorites_window)->Unit(benchmark::kMicrosecond);

void copy_of_the_screen(benchmark::State& state) {
    start_once();
    const OwnedBitmap copy = copy_bitmap(screen_buffer);
    for (auto _ : state) {
        std::memcpy(pixels_at(copy.get(), 0, 0), pixels_at(screen_buffer, 0, 0), view_w * view_h * sizeof(Color));
        benchmark::ClobberMemory();
    }
}
BENCHMARK(copy_of_the_screen)->Unit(benchmark::kMicrosecond);

}  // namespace
}  // namespace nubo
