#pragma once
// A text whose letters are actors, for titles that come in letter by letter.
#include <string_view>

namespace nubo {

/// How the letters come to their places. Other numbers set them there at once.
enum TextEntry : int {
    ENTRY_SLIDE = 1,        // from `dx`, `dy`, `dz` away, one after another, at an even speed
    ENTRY_SLIDE_SLOWS = 2,  // the same, slowing down
    ENTRY_FLY = 6,          // from that far away, all together, each at a speed of its own, fading in
    ENTRY_SCATTER = 7       // the same, each from a place of its own within that distance to either side
};

struct TextEntrance {
    int effect = 0;              // a TextEntry
    int dx = 0, dy = 0, dz = 0;  // where a letter comes from, pixels from its place
    int delay = 0;               // of ENTRY_SLIDE: ticks of 140 Hz from one letter to the next
    int speed = 10'000;          // of the longest axis, 10000ths of a pixel a tick
    bool reverse = false;        // from the last letter to the first
};

/// Spawns a text, drawn with the attributes set, one actor a letter, the first one's cell at (x, y) and at the height
/// z; the actors are remembered in `Pixel_elements`. Colour codes hold for the letters that are spawned behind them,
/// and stay in force. The letters spawned; fewer, after a line in the log, when no more actors are free. Main flow.
int UA_spawn_text(int x, int y, int z, std::string_view text, const TextEntrance& entrance);

}  // namespace nubo
