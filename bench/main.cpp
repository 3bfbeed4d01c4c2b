// The benches' main: Allegro without a display and in the colour order of a window, so that a bench may use bitmaps.
#include "base/color.h"

#include <allegro.h>
#include <benchmark/benchmark.h>
#include <cerrno>
#include <cstdio>

int main(int argc, char** argv) {
    if (install_allegro(SYSTEM_NONE, &errno, nullptr) != 0) {
        std::fputs("nubo_bench: Allegro can't be started\n", stderr);
        return 1;
    }
    set_color_depth(32);
    nubo::use_window_color_order();
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv)) return 1;
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}
