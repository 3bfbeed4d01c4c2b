// Scenes that tell something: letters that come in, a script, a sound.
#include "framework/text.h"
#include "game/scripts.h"
#include "game/sound.h"
#include "game/spawn_text.h"
#include "scene.h"
#include "stage.h"
#include "state/run.h"

namespace nubo {

void build_letters() {
    constexpr int outline = 1;  // entry of the palette, nearly black
    UA_set_font(FONT_WIDE, TEXT_YELLOW, 0, 0, 0, outline, 0, 0);
    UA_spawn_text(70, 50, 0, "LETTERS FALL IN", {.effect = ENTRY_SLIDE_SLOWS, .dy = -80, .delay = 12});
    UA_set_font(FONT_WIDE, TEXT_GREEN, 0, 0, 0, outline, 0, 0);
    UA_spawn_text(90, 100, 0, "OR FLY IN", {.effect = ENTRY_FLY, .dx = 120, .dy = 60});
    UA_set_font(FONT_WIDE, TEXT_RED, 0, 0, 0, outline, 0, 0);
    UA_spawn_text(90, 150, 0, "AND SCATTER", {.effect = ENTRY_SCATTER, .dx = 90, .dy = 70});
}

void build_script() {
    constexpr int slot = 0, walk = 101;
    const std::size_t hero = spawn_sprite(cel_hero, 150, 150);
    spawn_sprite(cel_tree, 60, 120);
    spawn_sprite(cel_bush, 240, 160);
    UA_load_script(stage_resources(), slot, walk);
    script::owner[slot] = static_cast<std::int16_t>(hero);
    script::active[slot].publish(1);
}

void build_sound() {
    constexpr int every_second = 139;  // ticks of 140 Hz between two
    const std::size_t bell = spawn_sprite(cel_coin, 144, 90);
    start_behavior(bell, BEHAVIOR_FRAMEWORK_EVENT, every_second, {JOB_SOUND, 1, stage_chime, pitch_own, volume_whole});
    start_behavior(bell, BEHAVIOR_FLOAT, 0, {0, 0, 5, 2});
    label(104, 140, "A CHIME EVERY SECOND, BY JOB 5");
}

}  // namespace nubo
