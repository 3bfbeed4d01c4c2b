#include "windows/guide_switches.h"

#include "state/guides.h"
#include "view/view.h"

namespace nubo {

void choose_symmetry(int symmetry) {
    guides.symmetry = symmetry;
    if (symmetry != SYMMETRY_OFF) guides.last_symmetry = symmetry;
}

void switch_symmetry() {
    const int last = guides.last_symmetry == SYMMETRY_OFF ? SYMMETRY_ACROSS : guides.last_symmetry;
    choose_symmetry(guides.symmetry == SYMMETRY_OFF ? last : SYMMETRY_OFF);
}

void choose_tiles(int tiles) {
    view_to_frame();  // else the limits would, to its nearest edge
    guides.tiles = tiles;
    view_clamp();
    if (tiles != TILES_OFF) guides.last_tiles = tiles;
}

void switch_tiles() {
    const int last = guides.last_tiles == TILES_OFF ? TILES_BOTH : guides.last_tiles;
    choose_tiles(guides.tiles == TILES_OFF ? last : TILES_OFF);
}

void choose_ghost(int ghost) {
    guides.ghost = ghost;
    if (ghost != GHOST_OFF) guides.last_ghost = ghost;
}

void switch_ghost() {
    const int last = guides.last_ghost == GHOST_OFF ? GHOST_BEHIND : guides.last_ghost;
    choose_ghost(guides.ghost == GHOST_OFF ? last : GHOST_OFF);
}

void switch_grid() {
    const bool is_on = guides.pixel_grid != 0 || guides.cell_grid != 0;
    keep_last_grids();
    guides.pixel_grid = is_on ? 0 : guides.last_pixel_grid;
    guides.cell_grid = is_on ? 0 : guides.last_cell_grid;
}

void switch_checker() { guides.checker = guides.checker == 0 ? 1 : 0; }

void keep_last_grids() {
    if (guides.pixel_grid == 0 && guides.cell_grid == 0) return;
    guides.last_pixel_grid = guides.pixel_grid;
    guides.last_cell_grid = guides.cell_grid;
}

}  // namespace nubo
