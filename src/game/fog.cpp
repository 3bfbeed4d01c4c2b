// The fog: a mask round the middle of the screen. What its values mean is up to who draws by it.
#include "base/bitmap.h"
#include "game/actors.h"
#include "game/screen_effects.h"
#include "state/effects.h"
#include <allegro.h>

namespace nubo {
namespace {

constexpr int fog_actor = actor_last - 1;
constexpr int growing_from = 1, shrinking_from = 330;  // densities
enum FogParam : std::size_t { FOG_DENSITY, FOG_STEP };

constexpr int around = 1, core = 255;
constexpr int gradient_first = 1, gradient_last = 150;
constexpr int inner_rings[] = {176, 208, 240};
constexpr int center_y = 99, center_first = 159, center_last = 161;

/// Three rings side by side, so that none of them leaves a gap to the next.
void draw_ring(int radius, int value) {
    if (radius < 0) return;
    for (int x = center_first; x <= center_last; ++x) circle(fog_mask, x, center_y, radius, value);
}

}  // namespace

void UA_set_fog(int step, int delay) {
    const int running = check_behavior(fog_actor, BEHAVIOR_CONTROL_FOG);
    const int slot = running >= 0 ? running : get_free_behavior(fog_actor);
    if (slot < 0) return;
    const std::size_t w = at(fog_actor), s = at(slot);
    actor::Behavior_delay[w][s] = delay;
    actor::Behavior_accum[w][s] = 0;
    actor::Behavior_param[w][s][FOG_DENSITY] = step > 0 ? growing_from : shrinking_from;
    actor::Behavior_param[w][s][FOG_STEP] = step;
    actor::BEHAVIOR[w][s].publish(BEHAVIOR_CONTROL_FOG);
}

void UA_draw_fog(int density) {
    if (fog_mask == nullptr) return;
    clear_to_color(fog_mask, around);
    int radius = density;
    for (int value = gradient_first; value <= gradient_last; ++value) draw_ring(radius--, value);
    for (const int value : inner_rings) draw_ring(radius--, value);
    if (radius < 0) return;
    for (int x = center_first; x <= center_last; ++x) circlefill(fog_mask, x, center_y, radius, core);
}

}  // namespace nubo
