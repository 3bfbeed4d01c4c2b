#pragma once
// What the program has read of its resource folder, beside the images of state/run.h and the fonts of state/fonts.h.
#include <array>

struct BITMAP;

namespace nubo {

inline constinit BITMAP* gui_sheet = nullptr;  // UA_GUI: every sprite of the interface, 0xff00ff where nothing is

// Sheets of a game, 0xff00ff where nothing is: 2x2 placeholders until it puts its own in their place.
inline constinit BITMAP* actor_sheet = nullptr;  // cels of 32x32
inline constinit BITMAP* glow_sheet = nullptr;   // glows over them, in cells of the same size
inline constinit BITMAP* tile_sheet = nullptr;   // tiles of 12x12 in cells of 16x16
inline constinit BITMAP* scene_sheet = nullptr;  // what a scene's background is made of

// ---- The object library: outlines of polygon actors ----------------------------------------------------------------

inline constexpr int library_objects = 200, library_pairs_max = 253, library_header = 4;
struct OutlinePair {
    int angle = 0, radius = 0;  // of a vertex
};
struct LibraryObject {
    std::array<int, library_header> header{};  // kept, without a reader
    int pair_count = 0;
    std::array<OutlinePair, library_pairs_max> pairs{};
};
inline constinit std::array<LibraryObject, library_objects> object_library{};
inline constinit int library_count = 0;  // records read

}  // namespace nubo
