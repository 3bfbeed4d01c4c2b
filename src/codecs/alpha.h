#pragma once
// What becomes of the alpha of a picture that comes in: a Frame has none.
#include "codecs/read_picture.h"

namespace nubo {

enum AlphaRule : int {
    ALPHA_MASK,    // below 128 a pixel is clear, from there on it keeps its colour
    ALPHA_FLATTEN  // a pixel lies on the mask colour by its alpha
};

/// Takes the alpha out of the picture. What is clear becomes `clear`: the mask colour, or what a Cel has clear. A pixel
/// that isn't clear would be taken for it in one of these two colours, so its blue moves a step, or two where the other
/// of them is: up, or down from the top. `loss` says how many did, and whether alpha between clear and whole has gone.
/// A picture without alpha stays as it is.
void settle_alpha(ReadPicture& picture, AlphaRule rule, Color mask, Color clear);

/// A pixel on `below` by its alpha, rounded.
Color flattened(Color pixel, Color below);

}  // namespace nubo
