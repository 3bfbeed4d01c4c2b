#pragma once
// A range of Frames into files for the world: an animation, a sheet, or a picture each. It asks nobody and shows
// nothing; the editor and the companion for archives both go by it.
#include "codecs/animation.h"
#include "codecs/sheet.h"
#include "state/options.h"
#include <functional>
#include <string>
#include <vector>

namespace nubo {

enum ExportKind : int { EXPORT_GIF, EXPORT_APNG, EXPORT_SHEET, EXPORT_PNGS, EXPORT_KIND_COUNT };

struct ExportOptions {
    ExportKind kind = EXPORT_GIF;
    int first = 0, last = 0;  // slots, both of the range
    int scale = 1;            // 1 to 8, each pixel a square of as many
    bool clear = false;       // the mask colour is clear
    AnimationLoop loop = LOOP_FOR_EVER;
    GifReduction reduction = REDUCTION_BEST;
    SheetOptions sheet{};
    bool json = false;  // beside a sheet
};
inline constexpr int export_scale_max = 8;

struct FrameSize {
    int w = 0, h = 0;
};

/// Where the Frames come from. Both functions take a slot of the range; what fails has been told or logged by them.
struct FrameSource {
    std::function<std::optional<FrameSize>(int slot)> size{};
    /// Null: it can't be had, or the user wants no more.
    std::function<OwnedBitmap(int slot)> frame{};
    std::function<FrameTime(int slot)> time{};
    Color mask = 0;  // on which smaller Frames stand
};

/// The range of the guides among `frames` Frames, as its first and its last slot.
struct FrameRange {
    int first = 0, last = 0;
};
FrameRange range_of(const Guides& values, int frames);

/// The paths of all that an export to `path` writes, in their order. The kind's own ending takes the place of another
/// format's, or comes behind.
std::vector<std::string> export_paths(const std::string& path, const ExportOptions& options);

/// Writes them, beside their places first and then all together, a picture before what tells of it. Empty when that is
/// done, else why not; then no file is there that wasn't before. What can't be written is logged.
std::string export_frames(const FrameSource& source, const ExportOptions& options, const std::string& path);

}  // namespace nubo
