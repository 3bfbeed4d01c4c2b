#include "windows/kit/arrow_keys.h"

#include "base/keys.h"
#include "state/run.h"
#include <allegro.h>

namespace nubo {

Point ArrowKeys::step() {
    constexpr int first_pause = clock_hz * 2 / 5, pause = clock_hz / 30, large_step = 8;
    const auto down = [](std::size_t code) { return key_down[code] != 0 ? 1 : 0; };
    const Point arrow{down(KEY_RIGHT) - down(KEY_LEFT), down(KEY_DOWN) - down(KEY_UP)};
    const bool is_new = !(arrow == held_);
    held_ = arrow;
    const int now = UA_clock_ticks;
    if (arrow == Point{} || (!is_new && now - due_ < 0)) return {};
    due_ = now + (is_new ? first_pause : pause);
    const int step = shift_is_down() ? large_step : 1;
    return {arrow.x * step, arrow.y * step};
}

}  // namespace nubo
