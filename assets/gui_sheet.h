#pragma once
// The sheet of the interface's sprites: arrows, knobs and ends of plates.
#include "palette.h"

namespace nubo {

/// A part of a sprite, which the program draws in a colour of the user's scheme.
enum SpritePart : int {
    PART_SHADOW,
    PART_BORDER,
    PART_GROUND,
    PART_LIT_SHADOW,
    PART_LIT_BORDER,
    PART_BETWEEN,  // ground and border
    PART_LIT_BETWEEN,
    PART_LIT_GROUND,
    PART_COUNT
};

/// The colour of a part in a scheme.
Color part_color(SpritePart part, const std::array<Color, SCHEME_COUNT>& scheme);

/// The part that a template's pixel stands for, by the upper six bits of its red. Nothing for any other red.
std::optional<SpritePart> part_of_template(Color pixel);

/// How far to the right of its sprite a template lies.
inline constexpr int template_distance = 60;

/// Draws the source's sprites into a new 8-bit sheet of 320 by 200 palette entries, 0 clear. A `sprite` is there twice:
/// in the default scheme at its place, and `template_distance` to the right of it as the template from which the
/// program colours it, each part a grey of its own. An `end` is there once. Null on a fault, which is printed.
OwnedBitmap draw_gui_sheet(const ArtSource& source, const ArtPalette& palette);

}  // namespace nubo
