// FILL: the connected area of a colour, span by span.
//
// The order of the spans is that of a fill which, for each pixel of a span from the left, notes the pixel above and the
// one below as seeds and goes on at the newest seed. Inks with random draws show that order. Noting the spans instead
// of their pixels, and asking about the neighbours only when their turn comes, visits the same pixels in the same
// order: a neighbour that was a seed and is taken by then would have been passed over anyway.
#include "base/bitmap.h"
#include "base/log.h"
#include "base/memory.h"
#include "base/random.h"
#include "paint/images.h"
#include "paint/stroke.h"
#include "paint/surfaces.h"
#include "paint/tool_colors.h"
#include "paint/tool_table.h"
#include "paint/tools.h"
#include "state/messages.h"
#include "state/run.h"
#include "state/status.h"
#include "state/stroke.h"
#include "state/tools.h"
#include <algorithm>
#include <cstdint>
#include <new>
#include <optional>
#include <vector>

namespace nubo {
namespace {

/// What is filled: the snapshot, or as the original of an image has it.
struct Ground {
    BITMAP* before;
    Point corner;       // where the bitmap's top left lies
    bool across, down;  // it is tiled
};

class Fill {
public:
    /// Each span goes to `put`; it may reach over a seam.
    Fill(const Ground& ground, Color color, int tolerance, const PaintRun& put)
        : range_(color, tolerance), ground_(ground), before_(ground.before), put_(put),
          visited_(static_cast<std::size_t>(before_->w) * static_cast<std::size_t>(before_->h)) {}

    /// From a pixel of the bitmap on.
    void run(int x, int y) {
        if (is_seed(x, y)) take_span(x, y);
        while (!spans_.empty()) {
            Point seed;
            if (next_seed(spans_.back(), seed))
                take_span(seed.x, seed.y);
            else
                spans_.pop_back();
        }
    }

private:
    /// A painted span whose neighbours still have to be looked at, from `next` down to `first`, where it may go over
    /// the seam; 8 bytes, since an area of thin columns has as many as half its pixels. A side of the Frame has 65,535
    /// pixels at most.
    struct Span {
        std::uint16_t first, next, y;
        bool below_done;  // of `next`
        bool done;
    };

    std::uint8_t* visited_row(int y) {
        return &visited_[static_cast<std::size_t>(y) * static_cast<unsigned>(before_->w)];
    }

    bool is_seed(int x, int y) {
        return y >= 0 && y < before_->h && visited_row(y)[x] == 0 && range_.holds(*pixels_at(before_, x, y));
    }

    /// The neighbour in a direction, on the other side of a seam too; `no_coordinate` where there is none.
    static int beside(int place, int direction, int extent, bool tiled) {
        const int next = place + direction;
        if (next >= 0 && next < extent) return next;
        return tiled ? wrapped(next, extent) : no_coordinate;
    }

    /// Steps through the neighbours of a span, from the right, the lower first; false at the end.
    bool next_seed(Span& span, Point& seed) {
        while (!span.done) {
            seed = {span.next, beside(span.y, span.below_done ? -1 : 1, before_->h, ground_.down)};
            if (span.below_done) {
                if (span.next == span.first)
                    span.done = true;
                else
                    span.next = static_cast<std::uint16_t>(span.next == 0 ? before_->w - 1 : span.next - 1);
            }
            span.below_done = !span.below_done;
            if (is_seed(seed.x, seed.y)) return true;
        }
        return false;
    }

    /// Paints the span through (x, y). It reaches a little further than a seed: up to the tolerance itself.
    void take_span(int x, int y) {
        const Color* const before = pixels_at(before_, 0, y);
        std::uint8_t* const visited = visited_row(y);
        const auto open = [&](int at) { return at != no_coordinate && visited[at] == 0 && range_.reaches(before[at]); };
        int first = x, last = x, left = 0, right = 0;  // pixels to either side of the seed
        const auto left_of = [&] { return beside(first, -1, before_->w, ground_.across); };
        const auto right_of = [&] { return beside(last, 1, before_->w, ground_.across); };
        visited[x] = 1;
        for (; open(left_of()); ++left) visited[first = left_of()] = 1;
        for (; open(right_of()); ++right) visited[last = right_of()] = 1;
        put_(ground_.corner.x + x - left, ground_.corner.x + x + right, ground_.corner.y + y);
        spans_.push_back({static_cast<std::uint16_t>(first), static_cast<std::uint16_t>(last),
                          static_cast<std::uint16_t>(y), false, false});
    }

    ColorRange range_;
    Ground ground_;
    BITMAP* before_;
    const PaintRun& put_;
    std::vector<std::uint8_t> visited_;
    std::vector<Span> spans_;
};

void tell_no_memory() {
    UA_log("[ ERROR ] : No memory to go on filling a frame of %d x %d pixels.", current_frame->w, current_frame->h);
    status_message = MESSAGE_FILL_MEMORY;
    status_timer = flash_ticks;
}

void fill_ground(const Ground& ground, Point from, Color color, int tolerance, Color paint) {
    if (active_ink() == INK_OPAQUE && color == paint) return;
    const PaintRun put = [ink = active_ink(), paint](int x1, int x2, int y) {
        stamp_row(x1, x2, y, ink, paint);
        refresh_stroke();
    };
    try {
        Fill(ground, color, tolerance, put).run(from.x, from.y);
    } catch (const std::bad_alloc&) {
        tell_no_memory();
    }
}

/// The snapshot as the original of an image has it, so that the fill goes on in the image's own order.
OwnedBitmap snapshot_behind(const ImageMap& map, const Area& area) {
    OwnedBitmap bitmap = make_uncleared_bitmap(area.width(), area.height());
    for (int y = 0; bitmap && y < area.height(); ++y) {
        Color* const row = pixels_at(bitmap.get(), 0, y);
        Point place = map({area.left, area.top + y});
        for (int x = 0; x < area.width(); ++x, place.x += map.xx, place.y += map.yx)
            row[x] = *pixels_at(stroke_snapshot(), place.x, place.y);
    }
    return bitmap;
}

/// Fills around one image of a pixel, if that lies in the Frame.
void fill_image(const ImageMap& map, Point pixel, int tolerance, Color paint) {
    const Point place = real_pixel(map(pixel));
    if (!frame_contains(current_frame, place.x, place.y)) return;
    const Color color = *pixels_at(stroke_snapshot(), place.x, place.y);
    const bool keeps_rows = map.keeps_rows();
    if (map.is_itself())
        return fill_ground({stroke_snapshot(), {0, 0}, tiles_across(), tiles_down()}, place, color, tolerance, paint);
    const Area area = map.sources_of({0, 0, current_frame->w - 1, current_frame->h - 1});
    const OwnedBitmap before = snapshot_behind(map, area);
    if (!before) return tell_no_memory();
    const StrokeImaging imaging(map);
    const Area from = map.sources_of({place.x, place.y, place.x, place.y});
    fill_ground({before.get(),
                 {area.left, area.top},
                 keeps_rows ? tiles_across() : tiles_down(),
                 keeps_rows ? tiles_down() : tiles_across()},
                {from.left - area.left, from.top - area.top}, color, tolerance, paint);
}

}  // namespace

void flood_fill(int x, int y, Color color, int tolerance, Color paint) {
    if (frame_contains(current_frame, x, y))
        fill_ground({stroke_snapshot(), {0, 0}, tiles_across(), tiles_down()}, {x, y}, color, tolerance, paint);
}

bool find_filled(Point from, int tolerance, const PaintRun& found) {
    const Point real = real_pixel(from);
    if (!frame_contains(current_frame, real.x, real.y)) return true;
    const Ground ground{current_frame, {0, 0}, tiles_across(), tiles_down()};
    const Color color = *pixels_at(current_frame, real.x, real.y);
    return unless_memory_ends([&] { return Fill(ground, color, tolerance, found).run(real.x, real.y), true; }, false);
}

// Random inks draw for the first image what they draw for the others, as far as their areas are alike.
void commit_fill(const StrokeStart& start) {
    const int tolerance = tool_option(TOOL_FILL, OPTION_TOLERANCE);
    std::vector<Point> filled;
    std::optional<RandomTape> tape;
    for (const ImageMap& map : image_maps(IMAGES_RERUN)) {
        const Point place = real_pixel(map({start.x, start.y}));
        if (std::find(filled.begin(), filled.end(), place) != filled.end()) continue;
        filled.push_back(place);
        if (guides.symmetry != SYMMETRY_OFF && inks[at(active_ink())].sight != SEES_ITSELF && !tape) tape.emplace();
        if (tape) tape->rewind();
        fill_image(map, {start.x, start.y}, tolerance, start.color);
    }
}

}  // namespace nubo
