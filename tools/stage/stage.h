#pragma once
// The stage on which the scenes play: its sheets, its clockwork, and which scene is on. Main flow only.
#include "platform/folder.h"
#include "scene.h"

namespace nubo {

/// Allegro is up and the colour order set. Loads what the scenes show from the folder "resource" beside the program and
/// sets the framework's tables up; the handlers are locked until a scene plays. False after a message.
bool set_up_stage();

/// The folder "resource" beside the program.
Folder stage_resources();

inline constexpr int stage_chime = 0;  // slot of the stage's one sample

/// Clears the stage and begins a scene.
void play_scene(const Scene& scene);

/// True when the last actor is gone: the scene has run out.
bool is_stage_empty();

/// Has the keys that the window takes stand at the top of each picture.
void show_stage_keys();

/// Lets the time of the scene go on by hand, as the timer handlers would. For `--shots`.
void run_stage_clock(int milliseconds);

/// Installs the timer handlers. False, after a message, if Allegro has no room for one.
bool start_stage_clock();

}  // namespace nubo
