#pragma once
// A shape while the user makes it: its points and its preview, where SHIFT holds it, and what the status bar tells of
// it. Main flow only.
#include "paint/shape_generators.h"
#include "paint/tools.h"
#include "state/shape.h"
#include "state/shown.h"
#include "state/tools.h"
#include <bitset>
#include <cstddef>
#include <optional>

namespace nubo {

/// The running shape tool: as long as it lives `point_list` is its own and its preview stands over the Frame.
class ShapeInHand {
public:
    explicit ShapeInHand(BrushTool tool, std::size_t capacity = 0);
    ~ShapeInHand() { free_point_list(); }
    ShapeInHand(const ShapeInHand&) = delete;
    ShapeInHand& operator=(const ShapeInHand&) = delete;

    /// Takes the preview from the Frame.
    void hide() { preview_.reset(); }
    /// Paints the list as the tool's stroke; an empty one leaves no undo step.
    void commit();

private:
    BrushTool tool_;
    std::optional<ToolPreview> preview_;
};

/// What a preview was made from last, so that it is made anew only when that has changed.
template <typename Values> class Remembered {
public:
    bool changes_to(const Values& values) {
        if (last_ && *last_ == values) return false;
        last_ = values;
        return true;
    }
    void forget() { last_.reset(); }

private:
    std::optional<Values> last_{};
};

/// Tells, once for each press of the key, that it has gone down. As long as it is down since before, it counts for
/// nothing.
class KeyPress {
public:
    explicit KeyPress(int code) : code_(code) {}
    bool happens();

private:
    int code_;
    bool was_down_ = true;
};

/// Adds where a hand that draws has come to to the list; up to two points.
void add_freehand_point(Point point);

/// Flashes in the status bar that the shape is full.
void say_shape_is_full();

// ---- Where SHIFT holds a point -------------------------------------------------------------------------------------

/// The point nearest to `to` in a direction of whole 15 degrees from `from`.
Point aligned_end(Point from, Point to);
/// The corner of a square between `from` and `to`, its side the longer of the two.
Point square_end(Point from, Point to);

/// Where a line or an edge from `from` to the mouse ends: with SHIFT, as it is or was at the press, `aligned_end`.
Point line_end(Point from, Point mouse, bool shift);
Point line_end(Point from, Point mouse);

// ---- What the picture shows ----------------------------------------------------------------------------------------

/// Of the picture being drawn: the Frame pixel at the top left of `overlay`, and that under the mouse.
inline Point shown_corner() { return {shown.pan_x, shown.pan_y}; }
inline Point shown_mouse() { return {shown.pixel_x, shown.pixel_y}; }

/// Lines through `point_list` on `overlay`, whose top left pixel is `corner`; none to a point of `gaps` from the next.
void preview_points(Point corner, const std::bitset<supershape_steps>& gaps = {});
/// A line between two such points.
void preview_edge(Point from, Point to, Point corner);

/// What the status bar tells in place of the mouse, by a format of up to three numbers; for the present picture.
void tell_placing(const char* format, int a, int b, int c = 0);
/// The length and the direction of a line, in degrees against the clock from the right; the sides of a rectangle, of
/// which one longer than a Frame's may be is told as "> 65535".
void tell_line(Point from, Point to);
void tell_size(int width, int height);

}  // namespace nubo
