#pragma once
// PNG files, read and written with Allegro's packfiles and zlib. The format is that of ISO/IEC 15948 (PNG, second
// edition).
#include "codecs/read_picture.h"
#include "platform/memory_packfile.h"
#include <allegro.h>
#include <cstdint>

namespace nubo {

/// The last error of the codec, a constant string; never null, not cleared on success.
inline constinit const char* png_error = "";

/// Reads the PNG file at `path` into a new bitmap, which the caller owns, at the depth that Allegro's colour conversion
/// asks for. `palette` (null: not wanted) gets the file's colours or a 3-3-2 palette. Null on failure, with the cause
/// in `png_error`.
BITMAP* load_png(const char* path, RGB* palette);

/// The same on an open packfile, which stays open.
BITMAP* load_png_pf(PACKFILE* file, RGB* palette);

/// Writes `bitmap` as a PNG: palette, RGB, or RGBA where a 32-bit pixel's top byte is not 0. 0, or -1 with the cause in
/// `png_error`.
int save_png(const char* path, BITMAP* bitmap, const RGB* palette);

/// The same on an open packfile, which stays open.
int save_png_pf(PACKFILE* file, BITMAP* bitmap, const RGB* palette);

/// Reads a PNG from memory, with its alpha, by whatever means the file tells it: for each pixel or for the palette's
/// colours, or one colour that is clear. One that ends anywhere behind its last pixel is whole.
ReadPicture read_png(FileBytes bytes);

/// How hard the writer tries to make the bytes few: for keeping, or fast, in a fraction of the time.
enum PngEffort : int { PNG_FAST = 1, PNG_BEST = 9 };

/// Appends `bitmap` as a PNG. False, with nothing appended, on failure; the cause is in `png_error`.
bool write_png(BITMAP* bitmap, Bytes& bytes);
bool write_png(BITMAP* bitmap, Bytes& bytes, PngEffort effort);

/// The same of a picture whose pixels of the colour `ground` are clear, as RGBA also where none or all are; below a
/// clear pixel stands the colour of the nearest that isn't.
bool write_clear_png(BITMAP* bitmap, std::uint32_t ground, Bytes& bytes, PngEffort effort);

/// Makes Allegro's `load_bitmap`, `save_bitmap` and datafiles know PNG. Called once, after the graphics mode is set.
void register_png();

}  // namespace nubo
