#include "base/refresh.h"

#include "base/log.h"
#include "state/run.h"
#include <allegro.h>
#include <array>

namespace nubo {
namespace {

constexpr int assumed_rate = 60;
constexpr int most_frames = 300;  // more, and the wait for the vertical blank can't have waited

struct RefreshRow {
    int lowest, highest, rate;  // frames counted in a second, and the rate they stand for
};
constexpr std::array<RefreshRow, 9> refresh_rows{{{58, 62, 60},
                                                  {68, 71, 70},
                                                  {72, 77, 75},
                                                  {78, 82, 80},
                                                  {83, 88, 85},
                                                  {89, 92, 90},
                                                  {93, 97, 95},
                                                  {98, 102, 100},
                                                  {110, 125, 120}}};

}  // namespace

int refresh_rate_of(int frames) {
    if (frames > most_frames) {
        UA_log("[ INIT ] : Vsync appears to be nonfunctional. Assuming 60Hz refresh.");
        return assumed_rate;
    }
    UA_log("[ INIT ] : Benchmark frame test   = %d", frames);
    for (const RefreshRow& row : refresh_rows) {
        if (frames < row.lowest || frames > row.highest) continue;
        UA_log("[ INIT ] : Estimated refresh rate = %d", row.rate);
        return row.rate;
    }
    UA_log("[ INIT ] : Couldn't locate compatible refresh rate. Assuming 60Hz refresh.");
    return assumed_rate;
}

int UA_estimate_refresh(void (*present)()) {
    const int pacing = frame_pacing;
    frame_pacing = 0;
    int frames = 0;
    for (const int start = UA_clock_ticks; UA_clock_ticks - start < clock_hz; ++frames) {
        if (gfx_driver != nullptr) ::vsync();  // it needs a display
        present();
    }
    frame_pacing = pacing;
    return refresh_rate_of(frames);
}

}  // namespace nubo
