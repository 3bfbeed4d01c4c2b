// Strokes against the plain limits of memory: memset for what only writes, memcpy for what reads and writes.
#include "base/bitmap.h"
#include "paint/images.h"
#include "paint/inks.h"
#include "paint/stroke.h"
#include "paint/surfaces.h"
#include "paint/tools.h"
#include "paint/undo.h"
#include "state/frames.h"
#include "state/options.h"
#include "state/run.h"
#include "state/shown.h"
#include "state/stroke.h"
#include "state/tools.h"
#include "workspace/history_format.h"

#include <algorithm>
#include <benchmark/benchmark.h>
#include <cmath>
#include <cstring>
#include <random>
#include <vector>

namespace nubo {
namespace {

constexpr int side = 2048;
constexpr std::size_t frame_bytes = std::size_t{side} * side * sizeof(Color);

void count_pixels(benchmark::State& state, double pixels) {
    state.SetItemsProcessed(static_cast<std::int64_t>(static_cast<double>(state.iterations()) * pixels));
    state.SetBytesProcessed(
        static_cast<std::int64_t>(static_cast<double>(state.iterations()) * pixels * sizeof(Color)));
}

/// A Frame as a stroke finds it, with a snapshot, and a tip sheet whose first tip is a soft disc as large as its cell.
void begin_stroke(Ink ink, int strength) {
    replace_bitmap(tip_sheet, make_bitmap(tip_sheet_w, tip_sheet_h, transparent_color));
    for (int y = 0; y < tip_h; ++y)
        for (int x = 0; x < tip_w; ++x) {
            const double away = std::hypot((x - tip_center_x) / 9.0, (y - tip_center_y) / 8.0);
            *pixels_at(tip_sheet, x, y) = static_cast<Color>(std::min(255.0, away * tip_outside)) << 16;
        }
    ink_slots[0] = ink;
    active_ink_slot = 0;
    ink_option(ink, OPTION_STRENGTH) = strength;
    brush_color = 0x3060c0;
    adopt_frame(make_bitmap(side, side, 0x202020));
    reset_undo_slots();
    save_undo(false);
    clear_stroke_mask();
    refresh_ticks = 0;
}

// ---- The limits ----------------------------------------------------------------------------------------------------

void stroke_limit_memset(benchmark::State& state) {
    std::vector<char> to(frame_bytes, 1);
    for (auto _ : state) {
        std::memset(to.data(), static_cast<int>(state.iterations()), to.size());
        benchmark::ClobberMemory();
    }
    count_pixels(state, side * side);
}
BENCHMARK(stroke_limit_memset)->Unit(benchmark::kMillisecond);

/// From one block to three by turns, as snapshots go: together they are larger than most caches.
void stroke_limit_memcpy(benchmark::State& state) {
    const std::vector<char> from(frame_bytes, 1);
    std::vector<std::vector<char>> to(3, std::vector<char>(frame_bytes, 2));
    std::size_t turn = 0;
    for (auto _ : state) {
        std::memcpy(to[turn].data(), from.data(), frame_bytes);
        benchmark::ClobberMemory();
        turn = (turn + 1) % to.size();
    }
    count_pixels(state, side * side);
}
BENCHMARK(stroke_limit_memcpy)->Unit(benchmark::kMillisecond);

// ---- Whole Frames --------------------------------------------------------------------------------------------------

/// Another Frame, black or of noise.
void new_history_frame(int width, int height, bool noisy) {
    adopt_frame(make_bitmap(width, height));
    if (noisy) {
        std::mt19937 lot(1);
        for (int y = 0; y < height; ++y)
            for (int x = 0; x < width; ++x) *pixels_at(current_frame, x, y) = lot() & 0xffffff;
    }
    reset_undo_slots();
}

/// 100 pixels of a line, 3 wide, each time elsewhere.
void stroke_of_100(int turn) {
    const int x = turn * 37 % (current_frame->w - 100), y = turn * 53 % (current_frame->h - 3);
    for (int row = y; row < y + 3; ++row) stamp_row(x, x + 99, row, INK_OPAQUE, brush_color);
}

/// What a press costs before its first stamp, after a stroke of 100 pixels.
void press_after_a_stroke(benchmark::State& state) {
    begin_stroke(INK_OPAQUE, 0);
    const int width = static_cast<int>(state.range(0)), height = width == 320 ? 240 : width;
    new_history_frame(width, height, true);
    save_undo(false);
    int turn = 0;
    for (auto _ : state) {
        state.PauseTiming();
        stroke_of_100(++turn);
        state.ResumeTiming();
        save_undo(false);
        clear_stroke_mask();
    }
}
BENCHMARK(press_after_a_stroke)->Arg(320)->Arg(2048)->Arg(4096)->Unit(benchmark::kMillisecond);

void undo_a_stroke(benchmark::State& state) {
    begin_stroke(INK_OPAQUE, 0);
    new_history_frame(4096, 4096, true);
    int turn = 0;
    for (auto _ : state) {
        state.PauseTiming();
        save_undo(false);
        stroke_of_100(++turn);
        state.ResumeTiming();
        undo_last();
    }
}
BENCHMARK(undo_a_stroke)->Unit(benchmark::kMillisecond);

/// Memory of the history beside the Frame, in Frames, after so many strokes on 2048 x 2048, once the program has
/// rested.
void memory_of_strokes(benchmark::State& state) {
    begin_stroke(INK_OPAQUE, 0);
    for (auto _ : state) {
        new_history_frame(2048, 2048, true);
        for (int turn = 0; turn < state.range(0); ++turn) {
            save_undo(false);
            stroke_of_100(turn);
        }
        while (prepare_undo_memory()) {
        }
        constexpr double frame_bytes = 4.0 * 2048 * 2048;
        state.counters["frames"] = 1 + static_cast<double>(settled_history()->bytes) / frame_bytes;  // and the snapshot
    }
}
BENCHMARK(memory_of_strokes)->Arg(12)->Arg(300)->Iterations(1)->Unit(benchmark::kMillisecond);

/// Bytes on disk of a stroke of 100 x 3, on black and on noise.
void disk_of_a_stroke(benchmark::State& state) {
    begin_stroke(INK_OPAQUE, 0);
    for (auto _ : state) {
        new_history_frame(2048, 2048, state.range(0) != 0);
        constexpr int strokes = 100;
        for (int turn = 0; turn < strokes; ++turn) {
            save_undo(false);
            stroke_of_100(turn);
        }
        HistoryWriter writer(1, 0);
        const History& history = *settled_history();
        for (int number = 0; number < history.end(); ++number) writer.step(number, history.step(number));
        state.counters["bytes"] = static_cast<double>(writer.bytes().size()) / strokes;
    }
}
BENCHMARK(disk_of_a_stroke)->Arg(0)->Arg(1)->Iterations(1)->Unit(benchmark::kMillisecond);

/// What a first press costs before its first stamp, on the largest Frame in use: a snapshot is made, the map cleared.
void begin_first_stroke_4096(benchmark::State& state) {
    begin_stroke(INK_OPAQUE, 0);
    adopt_frame(make_bitmap(2 * side, 2 * side, 0x202020));
    for (auto _ : state) {
        reset_undo_slots();
        save_undo(false);
        clear_stroke_mask();
    }
    count_pixels(state, 4.0 * side * side);
}
BENCHMARK(begin_first_stroke_4096)->Unit(benchmark::kMillisecond);

/// The same after a rest, in which the snapshot was made ready.
void begin_first_stroke_4096_rested(benchmark::State& state) {
    begin_stroke(INK_OPAQUE, 0);
    adopt_frame(make_bitmap(2 * side, 2 * side, 0x202020));
    for (auto _ : state) {
        state.PauseTiming();
        reset_undo_slots();
        while (prepare_stroke_mask() || prepare_undo_memory()) {
        }
        state.ResumeTiming();
        save_undo(false);
        clear_stroke_mask();
    }
    count_pixels(state, 4.0 * side * side);
}
BENCHMARK(begin_first_stroke_4096_rested)->Iterations(50)->Unit(benchmark::kMillisecond);

void filled_box_rows(benchmark::State& state) {
    begin_stroke(INK_OPAQUE, 0);
    for (auto _ : state)
        for (int y = 0; y < side; ++y) {
            stamp_row(0, side - 1, y, INK_OPAQUE, brush_color);
            refresh_stroke();
        }
    count_pixels(state, side * side);
}
BENCHMARK(filled_box_rows)->Unit(benchmark::kMillisecond);

// ---- FILL ----------------------------------------------------------------------------------------------------------

void flood_fill_blank(benchmark::State& state) {
    begin_stroke(INK_OPAQUE, 0);
    for (auto _ : state)
        flood_fill(side / 2, side / 2, 0x202020, 1, brush_color);  // reads the snapshot, which stays blank
    count_pixels(state, side * side);
}
BENCHMARK(flood_fill_blank)->Unit(benchmark::kMillisecond);

/// Rooms of one pixel at even places, each with a door to the right or below: a maze without circles.
void flood_fill_maze(benchmark::State& state) {
    begin_stroke(INK_OPAQUE, 0);
    constexpr int last = side - 2;
    clear_to_color(current_frame, 0xffffff);
    std::mt19937 lot(1);
    for (int y = 0; y <= last; y += 2)
        for (int x = 0; x <= last; x += 2) {
            const bool to_the_right = y == last || (x < last && lot() % 2 == 0);
            *pixels_at(current_frame, x, y) = 0x202020;
            *pixels_at(current_frame, x + (to_the_right ? 1 : 0), y + (to_the_right ? 0 : 1)) = 0x202020;
        }
    note_all_touched();
    save_undo(false);
    for (auto _ : state) flood_fill(0, 0, 0x202020, 1, brush_color);
    count_pixels(state, side * side);
}
BENCHMARK(flood_fill_maze)->Unit(benchmark::kMillisecond);

/// Columns of one pixel, joined at the bottom.
void flood_fill_comb(benchmark::State& state) {
    begin_stroke(INK_OPAQUE, 0);
    for (int y = 0; y < side - 1; ++y)
        for (int x = 1; x < side; x += 2) *pixels_at(current_frame, x, y) = 0xffffff;
    note_all_touched();
    save_undo(false);
    for (auto _ : state) flood_fill(0, 0, 0x202020, 1, brush_color);
    count_pixels(state, side * side);
}
BENCHMARK(flood_fill_comb)->Unit(benchmark::kMillisecond);

// ---- Stamps --------------------------------------------------------------------------------------------------------

enum GuidesOn : int { GUIDES_OFF, GUIDES_BOTH, GUIDES_TILES };

/// The guide is `range(0)`; with BOTH a stamp is painted four times.
void stamp_all_over(benchmark::State& state, Ink ink) {
    begin_stroke(ink, 128);
    guides.symmetry = state.range(0) == GUIDES_BOTH ? SYMMETRY_BOTH : SYMMETRY_OFF;
    guides.tiles = state.range(0) == GUIDES_TILES ? TILES_BOTH : TILES_OFF;
    const StrokeImaging imaging(IMAGES_MIRRORED);
    int x = 20, y = 20;
    for (auto _ : state) {
        stamp_tip(x, y, TOOL_DRAW, ink, 0, brush_color);
        x += 3;  // as a stroke does, mostly over pixels already covered
        if (x > side - 20) x = 20, y = y % (side - 60) + 20;
    }
    guides = Guides{};
    count_pixels(state, tip_w * tip_h);
}
void stamp_soft_glass(benchmark::State& state) { stamp_all_over(state, INK_GLASS); }
void stamp_soft_opaque(benchmark::State& state) { stamp_all_over(state, INK_OPAQUE); }
void stamp_soft_soften(benchmark::State& state) { stamp_all_over(state, INK_SOFTEN); }
BENCHMARK(stamp_soft_glass)->Arg(GUIDES_OFF)->Arg(GUIDES_BOTH)->Arg(GUIDES_TILES);
BENCHMARK(stamp_soft_opaque)->Arg(GUIDES_OFF)->Arg(GUIDES_BOTH)->Arg(GUIDES_TILES);
BENCHMARK(stamp_soft_soften)->Arg(GUIDES_OFF)->Arg(GUIDES_BOTH)->Arg(GUIDES_TILES);

}  // namespace
}  // namespace nubo
