#pragma once
// PNG files that hold an animation, of chunks that who knows only pictures passes over.
#include "codecs/animation.h"
#include "codecs/png.h"
#include "codecs/read_picture.h"

namespace nubo {

/// Hands over the pictures of an APNG from memory, one after the other, each composed with those before as its file
/// tells; of a PNG without an animation the one picture. A time of 0 becomes ten hundredths.
ReadAnimation read_apng(FileBytes bytes, const TakePicture& take);

/// Appends an APNG: whole pictures with their exact times, RGBA where a colour is to be clear. Who knows no animations
/// sees the first. False, with nothing appended, on failure or when a picture can't be had.
bool write_apng(const WrittenAnimation& animation, Bytes& bytes, PngEffort effort = PNG_BEST);

}  // namespace nubo
