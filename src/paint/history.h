#pragma once
// The steps of a Frame, from each picture to the next and back: the tiles that differ, old XOR new. To undo and to redo
// are one operation. A step's tiles never change once they are made, so that another thread may read them.
#include "base/bitmap.h"
#include "paint/tiles.h"
#include <cstddef>
#include <cstdint>
#include <deque>
#include <memory>
#include <vector>

namespace nubo {

/// The difference in a tile: rows of four bytes a pixel, or those deflated.
struct StepTile {
    int tile = 0;
    std::vector<std::uint8_t> bytes;
};

struct StepTiles {
    std::vector<StepTile> tiles;  // by rising number
    std::size_t bytes = 0;        // of memory, roughly
};

/// A step. Where it gives the Frame another size, its tiles are of a picture that is as wide and as high as the larger
/// of both; what lies beyond either counts as 0.
struct Step {
    int before_w = 0, before_h = 0, after_w = 0, after_h = 0;
    unsigned id = 0;          // tells it from another one of its number, in this run; `History::add` gives it
    bool is_in_file = false;  // as this one of its number
    bool elsewhere = false;   // its Frame was left before it counted (`take_step`)
    std::shared_ptr<const StepTiles> plain{}, deflated{};  // one at least; both where speed counts
    TileGrid grid() const;
    std::size_t bytes() const;
};

/// What leads from `before` to `after`: the tiles of `among`, which has the grid of both together, as far as they
/// differ. Throws without memory.
Step step_between(BITMAP* before, BITMAP* after, const std::vector<int>& among);
/// The same where any pixel may differ.
Step step_between(BITMAP* before, BITMAP* after);

/// Deflates tiles of `step` from `done.tiles.size()` on, some 100 KiB of plain ones; true when none is left. Throws
/// without memory.
bool deflate_some(const Step& step, StepTiles& done);
/// All of them. For the writer of files, which may be another thread.
std::shared_ptr<const StepTiles> deflated_tiles(const Step& step);

/// Leads a picture of one of the step's sizes over to the other, in place. False, with nothing changed, when a deflated
/// tile is bent. For steps that keep the size.
bool apply_step(const Step& step, BITMAP* picture);

/// The picture on the other side of a step that changes the size; `back` tells which. Null without memory or when a
/// tile is bent.
OwnedBitmap picture_beyond(const Step& step, BITMAP* picture, bool back);

/// Undo and redo of one Frame. Steps have numbers that stay theirs while older ones fall out.
struct History {
    static constexpr std::size_t bytes_max = std::size_t{64} << 20;  // a long day of strokes, and little to a machine
    static constexpr int kept_always = 12;                           // whatever they take, as undo always held

    std::deque<Step> steps;
    int first = 0;               // number of the oldest step
    int position = 0;            // steps below are done, those from here on undone
    int floor = 0, ceiling = 0;  // undo and redo stop there
    int started = -1;            // the position at which the program was last started, -1 unknown
    std::size_t bytes = 0;       // that all steps take

    int end() const { return first + static_cast<int>(steps.size()); }
    Step& step(int number) { return steps[static_cast<std::size_t>(number - first)]; }
    const Step& step(int number) const { return steps[static_cast<std::size_t>(number - first)]; }

    /// The undone steps go.
    void cut_redo();
    /// Adds what has just been done, in the place of the undone steps; the oldest beyond `bytes_max` fall out.
    void add(Step step);
    /// The oldest go until `most` bytes or `kept_always` steps are left.
    void shrink_to(std::size_t most);
    /// A step's tiles are given, or given up, in one of their forms.
    void set_tiles(int number, std::shared_ptr<const StepTiles> plain, std::shared_ptr<const StepTiles> deflated);
};

}  // namespace nubo
