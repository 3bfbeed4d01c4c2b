#pragma once
// GIF files of more than one image.
#include "codecs/animation.h"
#include "codecs/read_picture.h"
#include "platform/memory_packfile.h"
#include "state/options.h"

namespace nubo {

/// Hands over the pictures of a GIF from memory, one after the other, as they look when all before them have been
/// shown: clear where nothing was painted. A time below two hundredths becomes ten.
ReadAnimation read_gif_animation(FileBytes bytes, const TakePicture& take);

/// Appends a GIF of all pictures in their very colours where 256 hold them, else of the colours to which `reduction`
/// brings all of them together. Its times are whole hundredths, what is left over of one goes to the next; none is
/// below `gif_shortest`. False, with nothing appended, on failure or when a picture can't be had.
bool write_gif_animation(const WrittenAnimation& animation, GifReduction reduction, Bytes& bytes);
inline constexpr int gif_shortest = 2;  // hundredths of a second; viewers take less for a fault

}  // namespace nubo
