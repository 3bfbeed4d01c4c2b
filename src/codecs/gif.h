#pragma once
// GIF files, read and written with Allegro's packfiles. The format is that of the Graphics Interchange Format, version
// 89a. A file holds one image to us: of an animation the first.
#include "codecs/read_picture.h"
#include "platform/memory_packfile.h"
#include "state/colors.h"
#include "state/options.h"
#include <allegro.h>

namespace nubo {

/// Reads the first image of the GIF file at `path` into a new bitmap of the image's own size, which the caller owns, at
/// the depth that Allegro's colour conversion asks for. What is transparent has index 0 in a bitmap of 8 bits and
/// magenta, (255, 0, 255), in one of more. `palette` (null: not wanted) gets the file's colours, 6 bits a channel;
/// entries that the file doesn't name stay as they are. Null on failure, with nothing changed: no such file, no GIF, no
/// image in it, data that is cut or makes no sense. Of an image that reaches beyond
/// the file's screen only the part on it is read.
BITMAP* load_gif(const char* path, RGB* palette);

/// The same on an open packfile, which stays open.
BITMAP* load_gif_pf(PACKFILE* file, RGB* palette);

/// Writes `bitmap` as a GIF of 256 colours without transparency. Of a bitmap of more than 8 bits each pixel takes the
/// nearest entry of `palette`; null is Allegro's default palette. 0, or -1: no
/// bitmap, a side above 65,535, the file can't be opened or not be written.
int save_gif(const char* path, BITMAP* bitmap, const RGB* palette);

/// The same on an open packfile, which stays open.
int save_gif_pf(PACKFILE* file, BITMAP* bitmap, const RGB* palette);

/// Reads the first image of a GIF from memory, in its exact colours, with the alpha of what is transparent.
ReadPicture read_gif(FileBytes bytes);

/// Appends the 32-bit `bitmap` as a GIF of its very colours; those of a picture of more than 256 are
/// reduced as `reduction` says. False, with nothing appended,
/// on failure.
bool write_gif(BITMAP* bitmap, GifReduction reduction, Bytes& bytes);

/// The same of a picture whose pixels of the colour `ground` are clear, if there are any: they have the last index,
/// which no other pixel has, so that 255 colours are left.
bool write_clear_gif(BITMAP* bitmap, Color ground, GifReduction reduction, Bytes& bytes);

/// Makes Allegro's `load_bitmap` and `save_bitmap` know GIF. Called once, after the graphics mode is set.
void register_gif();

}  // namespace nubo
