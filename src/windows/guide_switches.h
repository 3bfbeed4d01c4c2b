#pragma once
// Choosing guides, and switching each on again as it was last. Main flow only.

namespace nubo {

void choose_symmetry(int symmetry);
void choose_tiles(int tiles);
void choose_ghost(int ghost);

/// Each switches its guide off, or on with its last settings: by a key, also while a tool waits or a Cel floats.
void switch_symmetry();
void switch_tiles();
void switch_ghost();
void switch_grid();
void switch_checker();

/// Remembers the grids that are shown for `switch_grid`, if any is.
void keep_last_grids();

}  // namespace nubo
