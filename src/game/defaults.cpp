#include "game/defaults.h"

#include "base/jobs.h"
#include "game/actors.h"
#include "game/game_jobs.h"
#include "gui/elements.h"
#include "gui/field_clipboard.h"
#include "gui/window_drag.h"
#include "state/run.h"

namespace nubo {
void UA_initialize_variables() {
    handlers_locked = 1;
    editor_running = 0;
    gui_enabled = 0;
    for (int slot = 0; slot < job_slots; ++slot) UA_clear_job(slot);
    UA_initialize_actors();
    for (int slot = 0; slot < gui_slots; ++slot) GUI_clear_element(slot);
    install_framework_jobs();
    install_field_clipboard();
    install_window_drag();
}

}  // namespace nubo
