#include "editor/defaults.h"

#include "base/color.h"
#include "base/jobs.h"
#include "base/random.h"
#include "framework/actors.h"
#include "gui/elements.h"
#include "state/run.h"

namespace nubo {
namespace {

Color random_color() {
    constexpr int levels = 255;
    const int red = UA_random(levels), green = UA_random(levels), blue = UA_random(levels);
    return pack_color(red, green, blue);
}

}  // namespace

void UA_initialize_variables() {
    exit_requested = 0;
    handlers_locked = 1;
    editor_running = 0;
    gui_enabled = 0;
    for (int slot = 0; slot < job_slots; ++slot) UA_clear_job(slot);
    UA_initialize_actors();
    for (int slot = 0; slot < gui_slots; ++slot) GUI_clear_element(slot);
    for (Color& color : color_slots) color = random_color();
    favorites.fill(ui_background);
}

}  // namespace nubo
