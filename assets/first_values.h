#pragma once
// What a newcomer finds set: options, colours, and the values of each tool and ink.
#include "art_source.h"

namespace nubo {

/// The options of `user.def` and the keys: those that the windows' own DEFAULTS buttons set, but for what suits a
/// newcomer better.
void set_first_settings();

/// Tools, inks, shapes and names of the first Workspace. What the Frames were painted with is replaced.
void set_first_workspace();

/// Fills `favorites` and `color_slots` from the source's `ramps` and `slots`. False on a fault, which is printed.
bool set_first_colors(const ArtSource& source);

/// The colour scheme of a fresh program folder. False after a failure, which is printed.
bool set_first_scheme(const ArtSource& source);

}  // namespace nubo
