#pragma once
// A scene of nubo-stage: it shows some pieces of the framework at work, by the calls that a game would make.
#include "state/actors.h"
#include "state/colors.h"
#include <span>
#include <string>

namespace nubo {

struct Scene {
    const char *name, *title;                                   // of the command line; at the foot of the picture
    void (*build)();                                            // puts the actors on the stage
    int shot_ms;                                                // of the scene's life, when `--shots` takes its picture
    void (*draw_behind)() = nullptr, (*draw_over)() = nullptr;  // each picture; null: nothing
};
/// All scenes in the order of the arrow keys.
std::span<const Scene> scenes();

// ---- What the scenes have in common --------------------------------------------------------------------------------

/// Cels of the stage's actor sheet, four to the row.
struct Cel {
    int column, row;
};
inline constexpr Cel cel_hero{0, 0}, cel_slime{0, 1}, cel_coin{2, 1}, cel_heart{3, 1}, cel_potion{0, 2},
    cel_sword{1, 2}, cel_key{2, 2}, cel_chest{3, 2}, cel_tree{0, 3}, cel_bush{1, 3};

/// A new actor of a type, whose place is (x, y), drawn solid; row 0, which is never drawn, when there is none left. The
/// index of its columns.
std::size_t spawn_actor(ActorType type, int x, int y);
/// A new sprite, whose left upper corner is (x, y).
std::size_t spawn_sprite(Cel cel, int x, int y);

/// Starts a behaviour in a free slot with the given parameters, one run every `delay` + 1 ticks. Nothing when all four
/// are taken.
void start_behavior(std::size_t who, Behavior behavior, int delay, std::initializer_list<int> params);

/// Has a word stand on the picture as long as the scene lasts.
void label(int x, int y, const std::string& text);

/// A floor of bricks over the whole screen; a light ground, for what is dark.
void draw_floor();
void draw_paper();

// ---- The scenes, by the file that they stand in --------------------------------------------------------------------

void build_families();  // scenes_sprites.cpp
void build_poses();
void build_effects();
void build_behaviors();  // scenes_motion.cpp
void build_movements();
void build_trails();
void build_polygons();  // scenes_screen.cpp
void build_ripples();
void build_fog();
void draw_fog_over();
void build_tint();
void build_letters();  // scenes_story.cpp
void build_script();
void build_sound();

}  // namespace nubo
