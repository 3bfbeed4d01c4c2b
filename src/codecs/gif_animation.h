#pragma once
// GIF files of more than one image.
#include "codecs/animation.h"
#include "codecs/read_picture.h"

namespace nubo {

/// Hands over the pictures of a GIF from memory, one after the other, as they look when all before them have been
/// shown: clear where nothing was painted. A time below two hundredths becomes ten.
ReadAnimation read_gif_animation(FileBytes bytes, const TakePicture& take);

}  // namespace nubo
