// The tint: a colour over the whole screen, whose strength an actor moves.
#include "base/color.h"
#include "base/log.h"
#include "codecs/blend.h"
#include "game/actors.h"
#include "game/screen_effects.h"
#include "state/run.h"
#include <array>

namespace nubo {
namespace {

int running_tint() {
    for (int who = actor_first + 1; who < actor_count; ++who)
        if (actor::Profession[at(who)] == PROFESSION_TINT) return who;
    return actor_none;
}

int spawn_tint() {
    const int who = UA_spawn_blank_element(0, 0);
    if (who == actor_none) {
        UA_log("[ ERROR ] : Couldn't assign object for screen tint");
        return actor_none;
    }
    actor::Mode[at(who)] = ACTOR_HIDDEN;  // the spawner's own marks go; the row isn't given back for it
    actor::Psuedo[at(who)] = 0;
    return who;
}

}  // namespace

void UA_tint_screen(int r, int g, int b, int target, int delay, int step) {
    const int running = running_tint();
    const int who = running != actor_none ? running : spawn_tint();
    if (who == actor_none) return;
    const std::size_t w = at(who);
    const std::array<int, 5> params{r, g, b, target, step};
    for (std::size_t i = 0; i < params.size(); ++i)
        actor::Behavior_param[w][0][i] = static_cast<std::int16_t>(params[i]);
    actor::Behavior_delay[w][0] = static_cast<std::int16_t>(delay);
    actor::Kill_on_end[w][0] = true;
    actor::Profession[w] = PROFESSION_TINT;
    actor::Type[w].publish(ACTOR_TINT);
    actor::BEHAVIOR[w][0].publish(BEHAVIOR_PALETTE_CONTROL);  // the tick may have ended the running one just now
}

void UA_draw_tint() {
    if (tint_r == -1 || tint_strength == 0) return;
    trans_rectfill(screen_buffer, 0, 0, view_w, view_h, pack_color(tint_r, tint_g, tint_b), tint_strength);
}

}  // namespace nubo
