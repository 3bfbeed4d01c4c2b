// FILL: the connected area of a colour, span by span.
//
// The order of the spans is that of a fill which, for each pixel of a span from the left, notes the pixel above and the
// one below as seeds and goes on at the newest seed. Inks with random draws show that order. Noting the spans instead
// of their pixels, and asking about the neighbours only when their turn comes, visits the same pixels in the same
// order: a neighbour that was a seed and is taken by then would have been passed over anyway.
#include "base/log.h"
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
#include <vector>

namespace nubo {
namespace {

class Fill {
public:
    Fill(Color color, int tolerance, Color paint)
        : range_(color, tolerance), before_(stroke_snapshot()), ink_(active_ink()), paint_(paint),
          visited_(static_cast<std::size_t>(before_->w) * static_cast<std::size_t>(before_->h)) {}

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
    /// A painted span whose neighbours still have to be looked at, from `next` down to `first`; 8 bytes, since an area
    /// of thin columns has as many as half its pixels. A side of the Frame has 65,535 pixels at most.
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

    /// Steps through the neighbours of a span, from the right, the lower first; false at the end.
    bool next_seed(Span& span, Point& seed) {
        while (!span.done) {
            seed = {span.next, span.below_done ? span.y - 1 : span.y + 1};
            if (span.below_done) {
                if (span.next == span.first)
                    span.done = true;
                else
                    --span.next;
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
        const auto open = [&](int at) { return visited[at] == 0 && range_.reaches(before[at]); };
        int first = x, last = x;
        while (first > 0 && open(first - 1)) --first;
        while (last + 1 < before_->w && open(last + 1)) ++last;
        std::fill(visited + first, visited + last + 1, std::uint8_t{1});
        stamp_row(first, last, y, ink_, paint_);
        spans_.push_back({static_cast<std::uint16_t>(first), static_cast<std::uint16_t>(last),
                          static_cast<std::uint16_t>(y), false, false});
        refresh_stroke();
    }

    ColorRange range_;
    BITMAP* before_;
    Ink ink_;
    Color paint_;
    std::vector<std::uint8_t> visited_;
    std::vector<Span> spans_;
};

}  // namespace

void flood_fill(int x, int y, Color color, int tolerance, Color paint) {
    if (!frame_contains(current_frame, x, y)) return;
    if (active_ink() == INK_OPAQUE && color == paint) return;
    try {
        Fill(color, tolerance, paint).run(x, y);
    } catch (const std::bad_alloc&) {
        UA_log("[ ERROR ] : No memory to go on filling a frame of %d x %d pixels.", current_frame->w, current_frame->h);
        status_message = MESSAGE_FILL_MEMORY;
        status_timer = flash_ticks;
    }
}

void commit_fill(const StrokeStart& start) {
    flood_fill(start.x, start.y, *pixels_at(current_frame, start.x, start.y), tool_option(TOOL_FILL, OPTION_TOLERANCE),
               start.color);
}

}  // namespace nubo
