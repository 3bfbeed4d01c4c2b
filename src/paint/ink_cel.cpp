// The inks that take their colour from the Cel, repeated without end: SCRAPE, TILE.
#include "paint/ink_rows.h"
#include "paint/near_color.h"
#include "state/cel.h"
#include "state/guides.h"

#include <cstdlib>

namespace nubo {
namespace {

constexpr int hole_tolerance = 2;  // a pixel of the Cel this close to the mask colour is a hole of the TILE ink

/// The place in a tile of `size` for `distance` from its origin, either way.
int tile_place(int distance, int size) {
    return distance < 0 ? size - 1 - std::abs(distance + 1) % size : distance % size;
}

/// Calls `visit(run, tile)` for each part of the run that lies in one tile; `tile` points to its row of the tile.
template <typename Visit> void for_each_tile(const TipRun& run, Visit visit) {
    const int width = cel_mask->w;
    const Color* const tile = pixels_at(cel_mask, 0, tile_place(run.y - cel_y, cel_mask->h));
    for (int done = 0; done < run.length;) {
        const int place = tile_place(run.x + done - cel_x, width);
        const TipRun part = part_of(run, done, std::min(width - place, run.length - done));
        visit(part, tile + place);
        done += part.length;
    }
}

/// What TILE leaves out: what is near the mask colour and what the Cel hasn't got.
class TileHole {
public:
    bool operator()(Color pixel) const { return is_near_(pixel) || (has_gaps_ && pixel == transparent_color); }

private:
    NearColor is_near_{mask_color, hole_tolerance};
    bool has_gaps_ = guides.cel_shape != CEL_IS_WHOLE;
};

void copy_without_holes(Color* __restrict__ frame, const Color* tile, int length) {
    const TileHole is_hole;
    for (int i = 0; i < length; ++i) frame[i] = is_hole(tile[i]) ? frame[i] : tile[i];
}

/// `cover_run` with a coverage of 0, which is above no mask, at the holes.
void blend_without_holes(const TipRun& run, const Color* tile, int alpha) {
    const TileHole is_hole;
    Color* __restrict__ const frame = run.frame;
    Color* __restrict__ const mask = run.mask;
    for (int i = 0; i < run.length; ++i) {
        const int coverage = is_hole(tile[i]) ? 0 : alpha;
        const Color old = frame[i], painted = blend_fill_pixel(old, tile[i], alpha);
        const Color taken = static_cast<int>(mask[i]) < coverage ? ~Color{0} : 0;
        frame[i] = old ^ ((old ^ painted) & taken);
        mask[i] = static_cast<Color>(std::max(static_cast<int>(mask[i]), coverage));
    }
}

}  // namespace

Color tile_pixel(int x, int y) {
    return *pixels_at(cel_mask, tile_place(x - cel_x, cel_mask->w), tile_place(y - cel_y, cel_mask->h));
}

// GLASS with the tile in the place of the colour.
template <> void paint_row_with<INK_SCRAPE>(const InkRow& row, Color) {
    const int strength = strength_of(INK_SCRAPE);
    const bool has_gaps = guides.cel_shape != CEL_IS_WHOLE;
    for_each_run(row, [=](const TipRun& run) {
        const int alpha = strength_coverage(strength, run.tip);
        for_each_tile(run, [=](const TipRun& part, const Color* tile) {
            cover_run(part, alpha, [=, before = part.before](int i, Color old) {
                const Color painted = blend_fill_pixel(before[i], tile[i], alpha);
                return has_gaps && tile[i] == transparent_color ? old : painted;
            });
        });
    });
}

// OPAQUE with the tile in the place of the colour, but for its holes.
template <> void paint_row_with<INK_TILE>(const InkRow& row, Color) {
    for_each_run(row, [](const TipRun& run) {
        const int alpha = run.tip_coverage();
        for_each_tile(run, [=](const TipRun& part, const Color* tile) {
            if (part.tip == 0)
                copy_without_holes(part.frame, tile, part.length);
            else
                blend_without_holes(part, tile, alpha);
        });
    });
}

}  // namespace nubo
