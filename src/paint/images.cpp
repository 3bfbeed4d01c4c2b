#include "paint/images.h"

#include "base/random.h"
#include "paint/image_patch.h"
#include <limits>
#include <optional>

namespace nubo {
namespace {

ImageMaps maps_of_stroke;

// ---- Runs ---------------------------------------------------------------------------------------------------------

/// One image of a stretch of a row: from `start` on, all in the Frame, without a seam.
struct ImageRun {
    const ImageMap* map;
    Point start;
    bool operator==(const ImageRun& other) const {
        return start == other.start && map->xx == other.map->xx && map->yx == other.map->yx;
    }
    Point place(int i) const { return {start.x + i * map->xx, start.y + i * map->yx}; }
};

struct ImageRuns {
    std::array<ImageRun, images_max> runs{};
    int count = 0;
    void add(const ImageRun& run) {
        if (std::find(begin(), end(), run) == end()) runs[static_cast<std::size_t>(count++)] = run;
    }
    const ImageRun* begin() const { return runs.data(); }
    const ImageRun* end() const { return runs.data() + count; }
};

/// Whether a coordinate lies in the Frame, and for how many steps that stays so and no seam is crossed.
struct Stretch {
    bool inside;
    int steps;
};
Stretch stretch_of(int place, int direction, int extent, bool tiled) {
    constexpr int endless = std::numeric_limits<int>::max();
    if (tiled) place = wrapped(place, extent);
    const bool inside = place >= 0 && place < extent;
    if (direction == 0 || (place < 0 && direction < 0) || (place >= extent && direction > 0)) return {inside, endless};
    if (place < 0) return {false, -place};
    if (place >= extent) return {false, place - extent + 1};
    return {true, direction > 0 ? extent - place : place + 1};
}

/// Images of a row's first pixels; `length` becomes how many of them have the same ones.
ImageRuns runs_of(const ImageMaps& maps, Point start, int& length) {
    ImageRuns runs;
    for (const ImageMap& map : maps) {
        const Point place = map(start);
        const Stretch across = stretch_of(place.x, map.xx, current_frame->w, tiles_across());
        const Stretch down = stretch_of(place.y, map.yx, current_frame->h, tiles_down());
        length = std::min({length, across.steps, down.steps});
        if (across.inside && down.inside) runs.add({&map, real_pixel(place)});
    }
    return runs;
}

/// True if no two runs share a pixel, or are neighbours of an ink that looks around.
bool are_apart(const ImageRuns& runs, int length, int sight) {
    const int gap = sight > 0 ? 1 : 0;
    std::array<Area, images_max> areas;
    Area* end = areas.data();
    for (const ImageRun& run : runs) {
        const Point a = run.place(0), b = run.place(length - 1);
        const Area area{std::min(a.x, b.x), std::min(a.y, b.y), std::max(a.x, b.x), std::max(a.y, b.y)};
        const auto meets = [&](const Area& other) {
            return area.left <= other.right + gap && other.left <= area.right + gap && area.top <= other.bottom + gap &&
                   other.top <= area.bottom + gap;
        };
        if (std::any_of(areas.data(), end, meets)) return false;
        *end++ = area;
    }
    return true;
}

// ---- Painting -----------------------------------------------------------------------------------------------------

InkRow part_of_row(InkRow row, int first, int length) {
    row.x += first, row.length = length;
    row.tip += first * row.tip_step;
    if (row.colors != nullptr) row.colors += first;
    return row;
}

/// Pixels that see nothing but themselves need no patch: where they lie doesn't matter to them.
void paint_in_place(const InkRow& row, const ImageRun& run, Ink ink, Color color) {
    InkRow image = row;
    image.x = run.start.x, image.y = run.start.y;
    if (run.map->xx > 0) return apply_ink_row(image, ink, color);
    if (!run.map->keeps_rows()) {
        for (int i = 0; i < row.length; ++i) {
            const InkRow pixel = part_of_row(row, i, 1);
            const Point place = run.place(i);
            image.x = place.x, image.y = place.y, image.length = 1, image.tip = pixel.tip, image.colors = pixel.colors;
            apply_ink_row(image, ink, color);
        }
        return;
    }
    std::array<std::uint8_t, ImagePatch::row_max> tips;
    std::array<Color, ImagePatch::row_max> colors;
    image.x -= row.length - 1;
    if (row.tip_step != 0) image.tip = (std::reverse_copy(row.tip, row.tip + row.length, tips.data()), tips.data());
    if (row.colors != nullptr)
        image.colors = (std::reverse_copy(row.colors, row.colors + row.length, colors.data()), colors.data());
    apply_ink_row(image, ink, color);
}

/// True if an ink that looks so far around sees no seam from there.
bool sees_no_seam(const InkRow& row, int sight) {
    const bool across = !tiles_across() || (row.x >= sight && row.x + row.length + sight <= current_frame->w);
    const bool down = !tiles_down() || (row.y >= sight && row.y + sight < current_frame->h);
    return sight <= 0 || (across && down);
}

/// Paints a row with its images, none of which sees another. The row is the original, on the Frame's tile.
void paint_at_once(const InkRow& row, const ImageRuns& runs, Ink ink, Color color) {
    const int sight = inks[at(ink)].sight;
    if (sight == SEES_ITSELF) {
        for (const ImageRun& run : runs) paint_in_place(row, run, ink, color);
        return;
    }
    const auto in_place = [&](const ImageRun& run) { return run.map->is_itself() && sees_no_seam(row, sight); };
    std::array<ImagePatch, images_max> patches;
    ImagePatch* patch = patches.data();
    for (const ImageRun& run : runs)
        if (!in_place(run)) (patch++)->take(*run.map, {row.x, row.y}, row.length, sight);
    std::optional<RandomTape> tape;  // what the ink draws for the first it draws for all
    if (runs.count > 1) tape.emplace();
    for (const ImageRun& run : runs) {
        if (!in_place(run)) continue;
        paint_in_place(row, run, ink, color);
        if (tape) tape->rewind();
    }
    for (const ImagePatch* taken = patches.data(); taken != patch; ++taken) {
        apply_ink_on(taken->canvas(), row, ink, color);
        taken->put();
        if (tape) tape->rewind();
    }
}

/// Paints a row whose images lie each without a seam. Pixel by pixel, unless they can't meet or it is all the same.
void paint_runs(const InkRow& row, const ImageRuns& runs, Ink ink, Color color) {
    const int sight = inks[at(ink)].sight;
    const bool is_even = sight == SEES_ITSELF && row.tip_step == 0 && row.colors == nullptr;
    if (is_even)
        for (const ImageRun& run : runs) paint_in_place(row, run, ink, color);
    else if (runs.count == 1 || are_apart(runs, row.length, sight))
        for (int first = 0; first < row.length; first += ImagePatch::row_max) {
            ImageRuns part;
            for (const ImageRun& run : runs) part.add({run.map, run.place(first)});
            paint_at_once(part_of_row(row, first, std::min(ImagePatch::row_max, row.length - first)), part, ink, color);
        }
    else
        for (int i = 0; i < row.length; ++i) {
            ImageRuns pixel;
            const auto is_there = [&](const ImageRun& other) {
                return std::any_of(pixel.begin(), pixel.end(),
                                   [&](const ImageRun& run) { return run.start == other.start; });
            };
            for (const ImageRun& run : runs)
                if (const ImageRun here{run.map, run.place(i)}; !is_there(here)) pixel.add(here);
            paint_at_once(part_of_row(row, i, 1), pixel, ink, color);
        }
}

void paint_clipped(const InkRow& row, Ink ink, Color color) {
    if (row.y < 0 || row.y >= current_frame->h) return;
    const int first = std::max(-row.x, 0), end = std::min(row.length, current_frame->w - row.x);
    if (first < end) apply_ink_row(part_of_row(row, first, end - first), ink, color);
}

bool has_one_image() { return maps_of_stroke.count == 1 && maps_of_stroke.maps[0].is_itself(); }
bool is_plain() { return guides.tiles == TILES_OFF && has_one_image(); }

/// A row on the Frame's own tile that comes to no seam is painted as without tiles.
bool comes_to_no_seam(const InkRow& row, Ink ink) {
    const int sight = std::max<int>(inks[at(ink)].sight, SEES_ITS_PLACE);
    return row.x >= sight && row.y >= sight && row.x + row.length + sight <= current_frame->w &&
           row.y + sight < current_frame->h;
}

ImageMaps moved(ImageMaps maps, int dx, int dy) {
    for (ImageMap& map : maps.maps) map = map.of_moved(dx, dy);
    return maps;
}

}  // namespace

StrokeImaging::StrokeImaging(Imaging imaging) {
    maps_of_stroke = imaging == IMAGES_MIRRORED ? image_maps(imaging) : ImageMaps{};
}
StrokeImaging::StrokeImaging(const ImageMap& map) { maps_of_stroke = {{map}}; }
StrokeImaging::~StrokeImaging() { maps_of_stroke = {}; }

Area paint_window() {
    const Area frame{0, 0, current_frame->w - 1, current_frame->h - 1};
    if (is_plain()) return frame;
    constexpr int far = 16384;  // pixels; some seconds of painting, where a formula reaches further
    Area window = frame;
    for (const ImageMap& map : maps_of_stroke) {
        const Area sources = map.sources_of(frame);
        window = {std::min(window.left, sources.left), std::min(window.top, sources.top),
                  std::max(window.right, sources.right), std::max(window.bottom, sources.bottom)};
    }
    if (tiles_across()) window.left -= far + frame.width(), window.right += far + frame.width();
    if (tiles_down()) window.top -= far + frame.height(), window.bottom += far + frame.height();
    return window;
}

void paint_row(const InkRow& row, Ink ink, Color color) {
    if (is_plain()) return paint_clipped(row, ink, color);
    if (has_one_image() && comes_to_no_seam(row, ink)) return apply_ink_row(row, ink, color);
    for (int first = 0, length = 0; first < row.length; first += length) {
        length = row.length - first;
        const Point there{row.x + first, row.y}, real = real_pixel(there);
        const ImageMaps maps =
            real == there ? maps_of_stroke : moved(maps_of_stroke, there.x - real.x, there.y - real.y);
        const ImageRuns runs = runs_of(maps, real, length);
        InkRow part = part_of_row(row, first, length);
        part.x = real.x, part.y = real.y;
        if (runs.count > 0) paint_runs(part, runs, ink, color);
    }
}

}  // namespace nubo
