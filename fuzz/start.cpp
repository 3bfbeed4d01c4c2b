// What every fuzzer starts with: Allegro without a display.
#include "fuzz/start.h"

#include "base/color.h"

#include <allegro.h>
#include <cstdlib>

namespace nubo {

int start_fuzzing() {
    if (install_allegro(SYSTEM_NONE, &errno, nullptr) != 0) std::abort();
    set_color_depth(32);
    use_window_color_order();
    return 0;
}

}  // namespace nubo
