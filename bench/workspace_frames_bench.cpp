// Frames between memory and disk, beside a plain write, sync and read of as many bytes in the same folder. Sync takes
// what the disk takes: measure where the program folder lies (TMPDIR).
#include "bench_workspace.h"
#include "paint/stroke.h"
#include "paint/surfaces.h"
#include "paint/undo.h"
#include "state/tools.h"
#include "workspace/frame_history.h"
#include "workspace/frame_store.h"

#include <benchmark/benchmark.h>
#include <fcntl.h>
#include <random>
#include <vector>

namespace nubo {
namespace {

constexpr int large_side = 2048;
constexpr std::size_t large_bytes = 54 + std::size_t{3} * large_side * large_side;

/// The least that a swap can cost: the bytes of the one Frame to disk, those of the other from it.
void limit_write_sync_read(benchmark::State& state) {
    const BenchWorkspace workspace(1, 16, 16);
    std::vector<char> bytes(large_bytes, 'x');
    for (auto _ : state) {
        const int out = open("plain", O_WRONLY | O_CREAT | O_TRUNC, 0644);
        bool done = write(out, bytes.data(), bytes.size()) == static_cast<ssize_t>(bytes.size()) && fsync(out) == 0;
        close(out);
        const int in = open("plain", O_RDONLY);
        done = read(in, bytes.data(), bytes.size()) == static_cast<ssize_t>(bytes.size()) && done;
        close(in);
        if (!done) state.SkipWithError("the disk refuses");
    }
    state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(large_bytes) * 2);
}

void swap_of_two(benchmark::State& state) {
    const BenchWorkspace workspace(2, large_side, large_side);
    int slot = 0;
    for (auto _ : state) {
        if (!fetch_frame(slot, 1 - slot)) state.SkipWithError("no swap");
        slot = 1 - slot;
    }
    state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(large_bytes) * 2);
}

/// Leaving a Frame on which so many strokes of 100 x 3 pixels were painted since the last rescue, on noise.
void leave_with_strokes(benchmark::State& state) {
    const BenchWorkspace workspace(2, view_w, view_h);
    for (auto _ : state) {
        state.PauseTiming();
        std::mt19937 lot(1);
        for (int turn = 0; turn < state.range(0); ++turn) {
            save_undo(false);
            clear_stroke_mask();
            for (int row = 0; row < 3; ++row)
                stamp_row(turn % 220, turn % 220 + 99, turn * 7 % 230 + row, INK_OPAQUE, lot() & 0xffffff);
            for (int rest = 0; rest < 20; ++rest) prepare_undo_memory();
        }
        state.ResumeTiming();
        if (!fetch_frame(0, 1)) state.SkipWithError("no swap");
        state.PauseTiming();
        if (!fetch_frame(1, 0)) state.SkipWithError("no swap");
        forget_history(slot_of_row(0));
        state.ResumeTiming();
    }
}

/// A start, the reading alone: its cost may not grow with the number of Frames.
void open_with(benchmark::State& state) {
    const BenchWorkspace workspace(static_cast<int>(state.range(0)), view_w, view_h);
    for (auto _ : state)
        if (!open_workspace()) state.SkipWithError("no workspace");
}

/// What a rescue costs the main flow: the look at the Frame and the copy.
void rescue_tick(benchmark::State& state) {
    const int side = static_cast<int>(state.range(0));
    const BenchWorkspace workspace(1, side, side);
    autosave_tick(false);
    for (auto _ : state) {
        state.PauseTiming();
        settle_rescue();
        ++*pixels_at(current_frame, side / 2, side / 2);
        UA_clock_ticks += 500 * rescue_seconds;
        state.ResumeTiming();
        autosave_tick(false);
    }
}

BENCHMARK(limit_write_sync_read)->Name("workspace/limit: write, sync, read of 2048x2048")->UseRealTime();
BENCHMARK(swap_of_two)->Name("workspace/fetch_frame between two of 2048x2048")->UseRealTime();
BENCHMARK(leave_with_strokes)->Name("workspace/leave 320x240 with strokes")->Arg(0)->Arg(300)->UseRealTime();
BENCHMARK(open_with)->Name("workspace/open, 320x240 frames")->Arg(1)->Arg(100)->UseRealTime();
BENCHMARK(rescue_tick)->Name("workspace/rescue, on the main flow")->Arg(1024)->Arg(2048)->UseRealTime();

}  // namespace
}  // namespace nubo
