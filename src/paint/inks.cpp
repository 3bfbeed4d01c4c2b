#include "paint/inks.h"

#include "paint/ink_rows.h"

namespace nubo {
namespace {

/// An option of an ink, held to its range: the tables and coverages of the inks reach no further.
int held_option(Ink ink, InkOption slot, int top) { return std::clamp<int>(ink_option(ink, slot), 0, top); }

int strength_of(Ink ink) { return held_option(ink, OPTION_STRENGTH, 255); }

/// The row without colours of its own: for the inks that blend toward a fixed one.
InkRow plain(InkRow row) {
    row.colors = nullptr;
    return row;
}

}  // namespace

void apply_ink_row(const InkRow& row, Ink ink, Color color) {
    switch (ink) {
    case INK_ADD: return ink_add_row(row, strength_of(ink), color, false);
    case INK_BRIGHT: return ink_toward_row(plain(row), strength_of(ink), ui_white);
    case INK_CLOSE: return ink_close_row(row, strength_of(ink));
    case INK_DARK: return ink_toward_row(plain(row), strength_of(ink), ui_black);
    case INK_EMBOSS: return ink_emboss_row(row, strength_of(ink));
    case INK_GLASS: return ink_toward_row(row, strength_of(ink), color);
    case INK_GLOW: return ink_glow_row(row, strength_of(ink), held_option(ink, OPTION_GLOW_RADIUS, 31), color);
    case INK_GRAIN: return ink_grain_row(row, strength_of(ink), ink_option(ink, OPTION_GRAIN_FREQUENCY), color);
    case INK_GRAY: return ink_gray_row(row, strength_of(ink));
    case INK_HGRAD: return ink_hgrad_row(row);
    case INK_HOLLOW: return ink_hollow_row(row, held_option(ink, OPTION_HOLLOW_TOLERANCE, 255));
    case INK_JUMBLE: return ink_jumble_row(row, strength_of(ink));
    case INK_LGRAD: return ink_lgrad_row(row);
    case INK_OPAQUE: return ink_opaque_row(row, color);
    case INK_PULL: return ink_pull_row(row, strength_of(ink));
    case INK_RGRAD: return ink_rgrad_row(row);
    case INK_SCRAPE: return ink_scrape_row(row, strength_of(ink));
    case INK_SPARK: return ink_spark_row(row, strength_of(ink));
    case INK_SOFTEN: return ink_soften_row(row, strength_of(ink));
    case INK_SUB: return ink_add_row(row, strength_of(ink), color, true);
    case INK_SWEEP: return ink_sweep_row(row, strength_of(ink));
    case INK_TILE: return ink_tile_row(row);
    case INK_UNZAG: return ink_unzag_row(row, strength_of(ink));
    case INK_VGRAD: return ink_vgrad_row(row);
    case INK_XOR: return ink_xor_row(row, color);
    case INK_COUNT: return;
    }
}

void apply_ink(int x, int y, int ink, Color color, int tip_value) {
    if (ink < 0 || ink >= INK_COUNT || !frame_contains(current_frame, x, y)) return;
    const auto tip = static_cast<std::uint8_t>(std::clamp(tip_value, 0, 255));
    apply_ink_row({x, y, 1, &tip, 0}, static_cast<Ink>(ink), color);
}

}  // namespace nubo
