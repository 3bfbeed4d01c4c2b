#pragma once
// JPEG pictures, by libjpeg.
#include "codecs/read_picture.h"
#include "platform/memory_packfile.h"

namespace nubo {

/// Reads a JPEG of grays, colours, CMYK or YCCK, progressive or not, as it is stored: it isn't turned as a camera held
/// it. One that is cut short or damaged gives what there is, with the cause; nothing comes of one whose head is.
ReadPicture read_jpeg(FileBytes bytes);

/// Appends the 32-bit `bitmap` as a JPEG of `quality` 0 to 100. False, with nothing appended, when libjpeg refuses (a
/// side above 65,500) or the memory can't be had; the cause is logged.
bool write_jpeg(BITMAP* bitmap, int quality, Bytes& bytes);

}  // namespace nubo
