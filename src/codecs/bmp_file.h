#pragma once
// Windows BMP pictures, also the form of the Frames and their side files on disk.
#include "base/bitmap.h"
#include "codecs/read_picture.h"
#include "platform/input_file.h"
#include "platform/safe_file.h"
#include <vector>

namespace nubo {

/// Writes the 32-bit `bitmap` with 24 bits a pixel, byte for byte as Allegro's `save_bmp` does, to a file that the
/// caller commits. `mark` (0 to 65535) stands in two bytes of the head that are otherwise 0 and that other programs
/// skip.
void write_bmp(SafeFile& file, BITMAP* bitmap, int mark = 0);

/// Appends the same bytes to those in memory.
void write_bmp(BITMAP* bitmap, std::vector<std::uint8_t>& bytes);

/// Why a file gave no picture. Only a malformed one will never give one: all else may be over in a moment.
enum PictureFault : int {
    PICTURE_FINE,
    PICTURE_MISSING,
    PICTURE_MALFORMED,
    PICTURE_OUT_OF_REACH  // of the memory, of the descriptors, of the permissions, of the disk
};

/// A picture, or what kept it from being read: the fault, and in words.
struct BmpPicture {
    OwnedBitmap bitmap{};
    PictureFault fault = PICTURE_FINE;
    const char* cause = "";
    PictureLoss loss{};
};

/// Reads a BMP of any common form (1, 4, 8, 16, 24 or 32 bits, packed or not, either order of rows) from an open file
/// into a new 32-bit bitmap. Null when it isn't one, is cut short, or asks for more memory than there is.
BmpPicture read_bmp(const InputFile& file);

/// The same from bytes in memory, with the cause in the result instead of the log.
ReadPicture read_bmp(FileBytes bytes);

/// The mark in the head of a BMP; 0 if it has none or can't be read.
int mark_of_bmp(const InputFile& file);

/// Reads all of a picture in an open file and lets it go. Null if it can be had here, else what is wrong with it.
const char* fault_of_bmp(const InputFile& file);

}  // namespace nubo
