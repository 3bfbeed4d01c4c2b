#include "workspace/guide_fields.h"

#include "base/frame_time.h"
#include "state/colors.h"
#include "state/guides.h"
#include "workspace/byte_fields.h"
#include <algorithm>

namespace nubo {
namespace {

constexpr int first_speed = Guides{}.speed, first_wand_tolerance = Guides{}.wand_tolerance;

template <class Fields> void walk_guides(Fields& fields, Guides& g) {
    constexpr FieldRange symmetry{"the symmetry", 0, SYMMETRY_COUNT - 1, SYMMETRY_OFF},
        tiles{"the tiles", 0, TILES_COUNT - 1, TILES_OFF}, axis{"an axis", axis_in_the_middle, axis_max, 0},
        ghost{"the ghost", 0, GHOST_COUNT - 1, GHOST_OFF}, ghosts{"the ghost's frames", 0, ghost_frames_max, 0};
    int tiling = g.tiles;
    fields.halves(g.symmetry, symmetry, tiling, tiles);
    g.tiles = tiling;
    fields.word(g.axis_x, axis);
    fields.word(g.axis_y, axis);
    fields.byte(g.ghost, ghost);
    fields.halves(g.ghosts_before, ghosts, g.ghosts_after, ghosts);
    fields.byte(g.ghost_strength, {"the ghost's strength", 0, ghost_strength_max, 0});
    fields.bits({&g.pixel_grid, &g.cell_grid, &g.snap, &g.checker, &g.hides_rim, &g.clear_ground});
    const auto short_word = [&](int& value, int low) {
        int high_byte = value / byte_values, low_byte = value % byte_values;
        fields.byte(high_byte, {"a cell of the grid", 0, cell_side_max / byte_values, 0});
        fields.byte(low_byte, {"a cell of the grid", 0, byte_values - 1, 0});
        value = std::clamp(high_byte * byte_values + low_byte, low, cell_side_max);
    };
    short_word(g.cell_w, 1);
    short_word(g.cell_h, 1);
    short_word(g.cell_x, 0);
    short_word(g.cell_y, 0);
    fields.reserved(1);
    fields.byte(g.pinned_frame, {"the pinned frame", 0, frame_slots, 0});
    fields.halves(g.last_symmetry, symmetry, g.last_tiles, tiles);
    fields.byte(g.last_ghost, ghost);
    fields.byte(g.speed, {"the speed", animation_speed_min, animation_speed_max, first_speed});
    fields.byte(g.first_frame, {"the range's first frame", 0, frame_slots - 1, 0});
    fields.byte(g.range_end, {"the range's end", 0, frame_slots, 0});
    fields.byte(g.loop, {"the loop", 0, LOOP_COUNT - 1, LOOP_FOR_EVER});
    fields.reserved(12);
    int length_low = g.palette_length % byte_values, length_high = g.palette_length / byte_values;
    fields.byte(length_low, {"the palette's length", 0, byte_values - 1, 0});
    int cut_out = g.cel_shape == CEL_IS_CUT_OUT ? 1 : 0, cut_off = g.cel_shape == CEL_IS_CUT_OFF ? 1 : 0;
    fields.bits({&g.clean_cel, &cut_out, &length_high, &g.lock, &cut_off});
    g.palette_length = std::min(length_high * byte_values + length_low, favorite_count);
    g.cel_shape = cut_out != 0 ? CEL_IS_CUT_OUT : cut_off != 0 ? CEL_IS_CUT_OFF : CEL_IS_WHOLE;
    int wand = g.wand_tolerance + 1;
    fields.byte(wand, {"the wand's tolerance", 0, wand_tolerance_max + 1, 0});
    g.wand_tolerance = wand == 0 ? first_wand_tolerance : wand - 1;  // 0: it was written before there was a wand
    for (std::uint8_t& time : g.frame_times) fields.byte(time, {"the time of a frame", 0, time_max, 0});
}

GuideBytes bytes_of(Guides& values) {
    FieldWriter fields;
    walk_guides(fields, values);
    GuideBytes bytes{};
    std::copy(fields.bytes.begin(), fields.bytes.end(), bytes.begin());
    return bytes;
}

}  // namespace

GuideBytes pack_guides() {
    Guides first;
    const GuideBytes bytes = bytes_of(guides);
    return bytes == bytes_of(first) ? GuideBytes{} : bytes;
}

bool unpack_guides(const GuideBytes& bytes, bool marked, const char* file) {
    guides = Guides{};
    if (!marked) return true;
    const std::vector<std::uint8_t> field_bytes(bytes.begin(), bytes.end());
    FieldReader fields(field_bytes, file);
    walk_guides(fields, guides);
    return fields.finish();
}

}  // namespace nubo
