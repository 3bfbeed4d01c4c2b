#pragma once
// The colour schemes, and the library of outlines: the sources that become tables of numbers.
#include "art_source.h"
#include "state/colors.h"

namespace nubo {

struct ArtScheme {
    std::string name;  // of its file
    std::array<Color, SCHEME_COUNT> colors;
};

/// Reads the source's schemes. Nothing on a fault, which is printed.
std::optional<std::vector<ArtScheme>> read_schemes(const ArtSource& source);

/// The 43 bytes of a scheme's file: "SCH" and the ten packed colours, the high byte first.
std::string scheme_file(const ArtScheme& scheme);

/// The text of `obj_lib.def` for the source's objects: one number a line, and no empty last line, which would be read
/// as one more object. Nothing on a fault, which is printed.
std::optional<std::string> object_library(const ArtSource& source);

}  // namespace nubo
