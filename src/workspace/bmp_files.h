#pragma once
// The pictures of a Workspace on disk.
#include "codecs/bmp_file.h"
#include <string>

namespace nubo {

/// Writes a BMP, safely. False after a failure, which is logged; the old file is then
/// as it was.
bool save_bmp_file(const std::string& path, BITMAP* bitmap);
/// The same with a mark in its head (see `write_bmp`).
bool save_marked_bmp_file(const std::string& path, BITMAP* bitmap, int mark);

/// Reads one. Null with the fault, the cause logged, if it can't be had.
OwnedBitmap load_bmp_file(const std::string& path, PictureFault& fault);
OwnedBitmap load_bmp_file(const std::string& path);

}  // namespace nubo
