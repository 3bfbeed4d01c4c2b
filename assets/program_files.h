#pragma once
// Writing the files of the program folder. A file that comes out as it was stays untouched, time and all, so that what
// depends on it isn't made anew. Each function returns false after a failure, which is printed.
#include "palette.h"
#include <filesystem>

namespace nubo {

bool write_bytes(const std::filesystem::path& place, const std::string& bytes);

/// Writes a 32-bit picture as PNG.
bool write_png(const std::filesystem::path& place, BITMAP* picture);

/// Writes a file under the cover in which the program reads its resources.
bool write_covered(const std::filesystem::path& place, const std::string& bytes);

/// Writes an 8-bit sheet as a scrambled GIF in the palette, the form in which the program reads its sheets.
bool write_resource(const std::filesystem::path& place, BITMAP* sheet, const ArtPalette& palette);

}  // namespace nubo
