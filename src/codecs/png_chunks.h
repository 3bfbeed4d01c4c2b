#pragma once
// The chunks of a PNG file, one after the other, and the images in them: what the readers of a picture and of an
// animation share. `png_error` holds the cause of each failure.
#include "codecs/growing_bytes.h"
#include "codecs/png_pixels.h"
#include <optional>

namespace nubo {

/// What the file has told so far.
struct PngFile {
    PACKFILE* file;
    PngHeader header{};
    std::array<RGB, palette_entries> palette{};   // 6 bits a channel
    std::array<Color, palette_entries> colors{};  // the same, exact
    bool has_palette = false;
    bool is_plain = false;  // 32 bits are wanted with exact colours, and the alpha that stands beside the pixels too:
                            // of a colour, of the palette's first entries
    Bytes palette_alpha{};
    bool is_animated = false;
    std::uint32_t images = 1, plays = 0;  // of an animation, which plays so often; 0 for ever
};

struct PngChunkStart {
    std::uint32_t length, type;
};

/// Reads the signature and the header chunk.
bool read_png_start(PngFile& png);

std::optional<PngChunkStart> read_png_chunk_start(PACKFILE* file);

/// Reads a chunk that is neither an image nor the end, or goes over one that isn't known.
bool read_png_chunk(PngFile& png, const PngChunkStart& chunk);
bool skip_png_chunk(PACKFILE* file, const PngChunkStart& chunk);

/// A word of a chunk.
std::optional<std::uint32_t> read_png_word(PACKFILE* file);

/// Appends the `length` bytes of a chunk that are left, and goes over its checksum.
bool read_png_data(PACKFILE* file, std::uint32_t length, GrowingBytes& data);

/// The image of inflated `data`, its indexes or its colours. `cut`: why the data ends before its chunks do, or null.
OwnedBitmap inflate_png_image(const PngHeader& header, const GrowingBytes& data, const char* cut);

/// Whether the file tells an alpha, by whatever means.
bool png_tells_alpha(const PngFile& png);

/// The colours of a paletted image, exact and with their alpha.
OwnedBitmap png_colors_of_indexes(const PngFile& png, BITMAP* indexed);

}  // namespace nubo
