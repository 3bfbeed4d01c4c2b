#include "paint/surfaces.h"

#include "base/bitmap_memory.h"
#include "base/memory.h"
#include "paint/gradient_geometry.h"
#include "state/messages.h"
#include "state/status.h"
#include <algorithm>
#include <cstring>
#include <utility>

namespace nubo {
namespace {

TileSet covered_tiles;      // of `stroke_mask`, those that may not be clear
bool mask_is_used = false;  // by a stroke that runs

// Pixels of whole tiles that both sets have: most rows lie in the tiles of the one before.
constexpr Area nothing_noted{0, 0, -1, -1};
Area noted = nothing_noted;

bool has_size(const BITMAP* bitmap, const BITMAP* other) {
    return bitmap != nullptr && bitmap->w == other->w && bitmap->h == other->h;
}

bool take_new_mask(const BITMAP* frame) {
    OwnedBitmap mask = make_uncleared_bitmap(frame->w, frame->h);
    const auto reset = [=] {
        TileSet covered, touched;
        covered.reset(frame->w, frame->h);
        touched.reset(frame->w, frame->h);
        covered_tiles = std::move(covered);
        touched_tiles = std::move(touched);
        renew_notes();
        return true;
    };
    if (!mask || !unless_memory_ends(reset, false)) return false;
    replace_bitmap(stroke_mask, std::move(mask));
    take_rows(stroke_mask, 0, stroke_mask->h);
    covered_tiles.add_all();
    release_stroke_mask();
    return true;
}

void clear_tile(int tile) {
    const Area area = covered_tiles.grid().area_of(tile);
    const auto bytes = static_cast<std::size_t>(area.width()) * sizeof(Color);
    for (int y = area.top; y <= area.bottom; ++y) std::memset(pixels_at(stroke_mask, area.left, y), 0, bytes);
}

}  // namespace

bool adopt_frame(OwnedBitmap frame) {
    if (!has_size(stroke_mask, frame.get()) && !take_new_mask(frame.get())) return false;
    replace_bitmap(current_frame, std::move(frame));
    note_all_touched();
    frame_w = current_frame->w;
    frame_h = current_frame->h;
    if (status_message == MESSAGE_RESIZED) status_message = status_timer = 0;  // it told of the Frame before
    return true;
}

void note_touched(const Area& area) {
    const Area in_frame{std::max(area.left, 0), std::max(area.top, 0), std::min(area.right, current_frame->w - 1),
                        std::min(area.bottom, current_frame->h - 1)};
    if (in_frame.width() > 0 && in_frame.height() > 0) touched_tiles.add(in_frame);
}

void note_all_touched() { touched_tiles.add_all(); }

void note_painted(int x, int y, int length) {
    const Area row{x, y, x + length - 1, y};
    if (row.top >= noted.top && row.top <= noted.bottom && row.left >= noted.left && row.right <= noted.right) return;
    touched_tiles.add(row);
    covered_tiles.add(row);
    const auto first_in_tile = [](int pixel) { return pixel / step_tile_side * step_tile_side; };
    const auto last_in_tile = [=](int pixel) { return first_in_tile(pixel) + step_tile_side - 1; };
    noted = {first_in_tile(row.left), first_in_tile(y), last_in_tile(row.right), last_in_tile(y)};
}

void renew_notes() { noted = nothing_noted; }

void clear_stroke_mask() {
    for (const int tile : covered_tiles.tiles()) clear_tile(tile);
    covered_tiles.clear();
    renew_notes();
    mask_is_used = true;
    update_gradient_geometry();
}

void release_stroke_mask() { mask_is_used = false; }

bool prepare_stroke_mask() {
    constexpr int tiles_at_once = 64;  // 1 MiB
    renew_notes();
    if (stroke_mask == nullptr || mask_is_used || covered_tiles.empty()) return false;
    for (int i = 0; i < tiles_at_once && !covered_tiles.empty(); ++i) clear_tile(covered_tiles.take());
    return true;
}

}  // namespace nubo
