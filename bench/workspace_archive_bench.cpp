// Archives, beside a copy of as many bytes by plain reads and writes with one sync at its end. Sync takes what the disk
// takes: measure where the program folder lies (TMPDIR).
#include "bench_workspace.h"
#include "editor/screen.h"
#include "gui/present.h"
#include "workspace/archive.h"

#include <array>
#include <benchmark/benchmark.h>
#include <fcntl.h>
#include <fstream>
#include <sys/resource.h>

namespace nubo {
namespace {

/// A Workspace of `range(0)` Frames with sides of `range(1)` and `range(2)`, and the picture that a progress box needs.
struct ArchiveBench {
    explicit ArchiveBench(const benchmark::State& state)
        : workspace(static_cast<int>(state.range(0)), static_cast<int>(state.range(1)),
                    static_cast<int>(state.range(2))) {
        set_present_hook([] {});
        replace_bitmap(stroke_mask, make_bitmap(2, 2));
        create_screen_bitmaps();
    }
    ~ArchiveBench() { set_present_hook(nullptr); }
    BenchWorkspace workspace;
};

void report(benchmark::State& state) {
    rusage usage{};
    getrusage(RUSAGE_SELF, &usage);
    state.counters["peak_MB"] = static_cast<double>(usage.ru_maxrss) / 1024;
    state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(std::filesystem::file_size("a.wsp")));
}

bool copy_and_sync(const char* from, const char* to) {
    static std::array<char, 128 * 1024> block;
    const int in = open(from, O_RDONLY), out = open(to, O_WRONLY | O_CREAT | O_TRUNC, 0644);
    ssize_t count = 0;
    bool done = in >= 0 && out >= 0;
    while (done && (count = read(in, block.data(), block.size())) > 0)
        done = write(out, block.data(), static_cast<std::size_t>(count)) == count;
    done = done && fsync(out) == 0;
    close(in);
    close(out);
    return done;
}

void limit_copy(benchmark::State& state) {
    const ArchiveBench bench(state);
    save_workspace_archive("a.wsp");
    for (auto _ : state)
        if (!copy_and_sync("a.wsp", "copy")) state.SkipWithError("the disk refuses");
    report(state);
}

void save_archive(benchmark::State& state) {
    const ArchiveBench bench(state);
    for (auto _ : state)
        if (save_workspace_archive("a.wsp") != 0) state.SkipWithError("not saved");
    report(state);
}

/// Two archives' worth of bytes: the Workspace that goes is packed too.
void load_archive(benchmark::State& state) {
    const ArchiveBench bench(state);
    save_workspace_archive("a.wsp");
    for (auto _ : state)
        if (load_workspace_archive("a.wsp") != 0) state.SkipWithError("not loaded");
    report(state);
}

void sizes(benchmark::internal::Benchmark* bench) {
    bench->Args({100, view_w, view_h})->Args({10, 2048, 2048})->UseRealTime();
}
BENCHMARK(limit_copy)->Name("archive/limit: copy of the bytes, one sync")->Apply(sizes);
BENCHMARK(save_archive)->Name("archive/save")->Apply(sizes);
BENCHMARK(load_archive)->Name("archive/load, and the old one kept")->Apply(sizes);

}  // namespace
}  // namespace nubo
