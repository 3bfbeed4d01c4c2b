#pragma once
// The blocks of a GIF file, one after the other, and the indexes of its images: what the readers of a picture and of an
// animation share.
#include "codecs/read_picture.h"
#include <allegro.h>
#include <array>

namespace nubo {

inline constexpr int gif_palette_entries = 256, gif_no_transparency = -1;

/// What an image leaves of itself when the next one comes.
enum GifDisposal : int { GIF_STAYS_BY_ITSELF, GIF_STAYS, GIF_TO_CLEAR, GIF_TO_BEFORE };

/// What the file has told so far.
struct GifFile {
    PACKFILE* file;
    bool is_plain = false;                            // 32 bits are wanted, with exact colours
    std::array<RGB, gif_palette_entries> palette{};   // 6 bits a channel
    std::array<Color, gif_palette_entries> colors{};  // the same, exact
    int screen_width = 0, screen_height = 0;
    int transparent = gif_no_transparency;  // index
    int disposal = GIF_STAYS_BY_ITSELF;     // of the image to come; a file may hold 4 to 7 too
    int delay = 0;                          // hundredths of a second
    bool has_loop = false;                  // it says how often it plays:
    int loops = 0;                          // so often again, 0 for ever
    int left = 0, top = 0;                  // of the image on the screen
    int width = 0, height = 0;              // of the image
    int shown_w = 0, shown_h = 0;           // of its part on the screen, which becomes the bitmap; below 1: none
    bool interlaced = false;
};

/// Reads the signature, the screen and its palette. False if it isn't there.
bool read_gif_start(GifFile& gif);

/// Walks to the next image's descriptor, and takes what stands before it. False when the file ends before.
bool find_gif_image(GifFile& gif);

/// Reads the descriptor of the image that `find_gif_image` has found, and its palette. False when its size can't be,
/// or the file ends.
bool read_gif_descriptor(GifFile& gif);

/// Reads the image behind its descriptor into an 8-bit bitmap of its part on the screen, which must be there. Null when
/// the data makes no sense, or the memory can't be had.
OwnedBitmap read_gif_pixels(GifFile& gif);

/// Goes over the image behind its descriptor.
bool skip_gif_pixels(PACKFILE* file);

/// Goes over the image that `find_gif_image` has found.
bool skip_gif_image(PACKFILE* file);

}  // namespace nubo
