// The programme.
#include "scene.h"

namespace nubo {
namespace {

constexpr Scene programme[] = {
    {"families", "THE FAMILIES OF ACTORS, BY TYPE", build_families, 1500},
    {"poses", "WHAT A SPRITE CAN DO", build_poses, 400},
    {"effects", "PIXEL EFFECTS, BY MODE", build_effects, 100, draw_paper},
    {"behaviors", "BEHAVIORS AT WORK", build_behaviors, 900},
    {"movements", "ROADS", build_movements, 900},
    {"trails", "TRAILS", build_trails, 1200},
    {"polygons", "POLYGONS", build_polygons, 700, draw_paper},
    {"ripples", "RIPPLES", build_ripples, 600, draw_floor},
    {"fog", "FOG", build_fog, 3000, draw_floor, draw_fog_over},
    {"tint", "TINT", build_tint, 1500, draw_floor},
    {"letters", "LETTERS THAT COME IN", build_letters, 420},
    {"script", "A SCRIPT WITH BUBBLES AND FADES", build_script, 2600, draw_floor},
    {"sound", "A SOUND", build_sound, 500},
};

}  // namespace

std::span<const Scene> scenes() { return programme; }

}  // namespace nubo
