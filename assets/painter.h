#pragma once
// Frames painted from a source: a list of strokes, which the editor's own paint engine carries out.
#include "art_source.h"
#include "base/bitmap.h"
#include <map>

namespace nubo {

/// Pictures drawn as text, by name. A dot is clear.
using Stamps = std::map<std::string, OwnedBitmap>;

/// Reads the `color` and `stamp` blocks of a source: letters, and pictures of these letters. Nothing on a fault, which
/// is printed.
std::optional<Stamps> read_stamps(const ArtSource& source);

/// Paints the source's `frame` block into `current_frame`, always with the same draws of chance. The work bitmaps of
/// the editor stand. The tool, the ink, its options, the colours and the tip are left as the last strokes set them.
/// False on a fault, which is printed.
bool paint_frame(const ArtSource& source, const Stamps& stamps);

}  // namespace nubo
