#pragma once
// Frames of one size in the cells of a sheet, and what a game needs to find them again. No files.
#include "base/frame_time.h"
#include "codecs/animation_canvas.h"
#include "state/guides.h"
#include <optional>
#include <string>
#include <vector>

namespace nubo {

/// ROWS is one row of all Frames, COLUMNS one column; SQUARE comes nearest to a square.
enum SheetOrder : int { SHEET_ROWS, SHEET_COLUMNS, SHEET_SQUARE, SHEET_ORDER_COUNT };

struct SheetOptions {
    SheetOrder order = SHEET_ROWS;
    int border = 0, gap = 0;  // pixels around all cells, and between two
};

struct SheetLayout {
    int width = 0, height = 0;
    std::vector<ImagePlace> cells{};  // of the Frames, in their order
};

/// The sheet of `frames` Frames, 1 or more, of that size. Nothing if a side of it were above `max_frame_side`.
std::optional<SheetLayout> lay_out_sheet(int frames, int frame_w, int frame_h, const SheetOptions& options);

/// What goes to a game beside the picture.
struct SheetNames {
    std::string name;   // of the animation, and in front of each Frame's number
    std::string image;  // the picture's file name
};

/// The text of a JSON file: `frames`, an array with each one's cell and its time in milliseconds, and `meta`, with one
/// tag over all of them that says how they are to be played.
std::string sheet_json(const SheetLayout& layout, const std::vector<FrameTime>& times, const SheetNames& names,
                       AnimationLoop loop);

/// The name of picture `number`, 0 to 99: two digits in the place of the last '#', or else behind the name.
std::string numbered_name(const std::string& name, int number);

}  // namespace nubo
