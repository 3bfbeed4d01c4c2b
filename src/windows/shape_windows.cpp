#include "windows/shape_windows.h"

#include "gui/presses.h"
#include "gui/waiting.h"
#include "paint/shape_generators.h"
#include "paint/shape_in_hand.h"
#include "paint/tool_preview.h"
#include "paint/tools.h"
#include "state/flow.h"
#include "state/mouse.h"
#include "state/run.h"
#include "state/view.h"
#include "windows/kit/run_window.h"
#include <algorithm>
#include <array>

namespace nubo {
namespace {

// ---- The values ----------------------------------------------------------------------------------------------------

/// A slider of a shape window, and the word of the Workspace that remembers it.
struct ShapeValue {
    Label label;
    SliderRange range;
    int* stored;
    int first;                // of a Workspace that has never used the tool: all of its values are 0
    int instead_of_none = 0;  // what a stored value of 0 is read as, where 0 is of no use
};

constexpr std::array<ShapeValue, 3> polygon_rows{{
    {LABEL_ANGLE, {0, 359, 10}, &polygon_values.angle, 0},
    {LABEL_RADIUS, {0, 500, 10}, &polygon_values.radius, 20, 1},
    {LABEL_SIDES, {3, 32, 1}, &polygon_values.sides, 6},
}};
constexpr std::array<ShapeValue, 6> supershape_rows{{
    {LABEL_DEGREES, {0, 359, 10}, &supershape_values.angle, 0},
    {LABEL_N1, {0, 3000, 10}, &supershape_values.n1, 50},
    {LABEL_N2, {-3000, 3000, 10}, &supershape_values.n2, 70},
    {LABEL_N3, {-3000, 3000, 10}, &supershape_values.n3, 70},
    {LABEL_ARMS, {1, 20, 1}, &supershape_values.arms, 6},
    {LABEL_MAGNITUDE, {0, 500, 10}, &supershape_values.magnitude, 20, 100},
}};
constexpr std::array<ShapeValue, 4> spiral_rows{{
    {LABEL_ANGLE, {0, 359, 10}, &spiral_values.angle, 0},
    {LABEL_SCALE, {1, 500, 10}, &spiral_values.scale, 100},
    {LABEL_WRAPS, {1, 64, 1}, &spiral_values.wraps, 3},
    {LABEL_SPREAD, {0, 255, 10}, &spiral_values.spread, 0},
}};

constexpr std::size_t values_max = supershape_rows.size();
constinit std::array<Word, values_max> values;  // where the sliders of the open window stand
constinit int flipped = 0;                      // the FLIP button of SPIRAL TOOL

// ---- The windows ---------------------------------------------------------------------------------------------------

constexpr int row_h = 10, first_row_y = 12, window_w = 200;

/// A caption and a slider for each value, below them OKAY and CANCEL, and FLIP between them.
constexpr int caption_slot(std::size_t value) { return slot_content + 2 * static_cast<int>(value); }
constexpr int slider_slot(std::size_t value) { return caption_slot(value) + 1; }
constexpr int okay_slot(std::size_t count) { return caption_slot(count); }
constexpr int cancel_slot(std::size_t count) { return okay_slot(count) + 1; }
constexpr int flip_slot(std::size_t count) { return cancel_slot(count) + 1; }

constexpr ElementRow button_row(int slot, int x, int y, Label label) {
    return {.slot = slot, .type = ELEMENT_BUTTON_LIT, .x = x, .y = y, .w = 59, .label = label, .left = ACTION_CLICK};
}

template <std::size_t N>
constexpr std::array<ElementRow, 2 * N + 3> element_rows(const std::array<ShapeValue, N>& shape_values) {
    std::array<ElementRow, 2 * N + 3> rows{};
    for (std::size_t i = 0; i < N; ++i) {
        const int y = first_row_y + row_h * static_cast<int>(i);
        rows[2 * i] = {
            .slot = caption_slot(i), .x = 2, .y = y, .w = 45, .label = shape_values[i].label, .fill = &ui_border};
        rows[2 * i + 1] = {
            .slot = slider_slot(i), .type = ELEMENT_BOX, .x = 48, .y = y, .w = 151, .range = shape_values[i].range};
    }
    const int y = first_row_y + row_h * static_cast<int>(N);
    rows[2 * N] = button_row(okay_slot(N), 2, y, LABEL_OKAY);
    rows[2 * N + 1] = button_row(cancel_slot(N), 140, y, LABEL_CANCEL);
    rows[2 * N + 2] = button_row(flip_slot(N), 71, y, LABEL_FLIP);
    return rows;
}
constexpr auto polygon_elements = element_rows(polygon_rows);
constexpr auto supershape_elements = element_rows(supershape_rows);
constexpr auto spiral_elements = element_rows(spiral_rows);

enum HasFlip : int { NO_FLIP, WITH_FLIP };

/// At the lower edge, where the drawing menu stands otherwise; hidden by a right press on the Frame.
template <std::size_t N> constexpr WindowRow window_row(Window id, WindowPosRow place, Label title,
                                                        const std::array<ElementRow, N>& elements, HasFlip flip) {
    constexpr std::size_t count = (N - 3) / 2;
    constexpr int h = first_row_y + row_h * static_cast<int>(count + 1);
    const std::size_t used = flip == WITH_FLIP ? N : N - 1;
    return {.id = id,
            .place = place,
            .x = (view_w - window_w) / 2,
            .y = view_h - h - 1,
            .w = window_w,
            .h = h,
            .child_count = slot_content + static_cast<int>(used),
            .title = title,
            .title_w = window_w - 3,
            .elements = std::span(elements).first(used),
            .okay = okay_slot(count),
            .cancel = cancel_slot(count),
            .outside = OUTSIDE_HIDES,
            .pans = true};
}

// ---- The generators, from the sliders ------------------------------------------------------------------------------

constinit std::bitset<supershape_steps> gaps;  // of the preview of SSHAPE

void plot_polygon_at(Point center) {
    gaps.reset();
    plot_polygon(center.x, center.y, values[0], values[1], values[2]);
}

void plot_supershape_at(Point center) {
    constexpr double hundredths = 100;
    gaps = plot_supershape({.angle = values[0],
                            .n1 = values[1] / hundredths,
                            .n2 = values[2] / hundredths,
                            .n3 = values[3] / hundredths,
                            .arms = std::max<int>(values[4], 1),
                            .magnitude = values[5]},
                           center.x, center.y);
}

void plot_spiral_at(Point center) {
    gaps.reset();
    build_spiral(center.x, center.y, values[0], values[1], values[2], values[3], flipped);
}

void tell_polygon() { tell_placing("SIDES > |c24%d, R %d", values[2], values[1]); }
void tell_box() { tell_size(shape_box.right - shape_box.left + 1, shape_box.bottom - shape_box.top + 1); }

struct ShapeWindow {
    BrushTool tool;
    WindowRow window;
    std::span<const ShapeValue> values;
    void (*plot)(Point center);
    void (*tell)();
    bool in_view;       // its points count from the corner of the view, not of the Frame
    bool moves_points;  // a drag moves its points as they are, without the generator
};
constexpr std::array<ShapeWindow, 3> shape_windows{{
    {TOOL_RPOLY, window_row(WINDOW_POLYGON, POS_POLYGON, LABEL_REGULAR_POLYGON, polygon_elements, NO_FLIP),
     polygon_rows, plot_polygon_at, tell_polygon, false, false},
    {TOOL_SSHAPE, window_row(WINDOW_SUPERSHAPE, POS_SUPERSHAPE, LABEL_SUPERSHAPE, supershape_elements, NO_FLIP),
     supershape_rows, plot_supershape_at, tell_box, true, false},
    {TOOL_SPIRAL, window_row(WINDOW_SPIRAL, POS_SPIRAL, LABEL_SPIRAL_TOOL, spiral_elements, WITH_FLIP), spiral_rows,
     plot_spiral_at, tell_box, false, true},
}};

constinit const ShapeWindow* running = nullptr;  // while its tool runs

// ---- The shape -----------------------------------------------------------------------------------------------------

/// What the points depend on; the place counts for nothing where a drag moves the points themselves.
struct PlottedFrom {
    std::array<int, values_max> values;
    int flipped;
    Point center;
    bool operator==(const PlottedFrom&) const = default;
};
constinit Remembered<PlottedFrom> plotted;

/// Where the points count from, with the view's corner at `corner`.
Point origin_of_points(Point corner) { return running->in_view ? corner : Point{}; }

/// Runs the generator if anything has changed.
void plot_shape(Point corner) {
    const Point origin = origin_of_points(corner);
    const Point center{click_points[0].x - origin.x, click_points[0].y - origin.y};
    PlottedFrom now{{}, flipped, running->moves_points ? Point{} : center};
    std::ranges::copy(values, now.values.begin());
    if (plotted.changes_to(now)) running->plot(center);
}

// ---- The drag ------------------------------------------------------------------------------------------------------

constinit Point grip;  // the mouse: less the middle of the shape, or where it was when the points moved last

void move_points(Point by) {
    for (Point& point : point_list) point = {point.x + by.x, point.y + by.y};
    shape_box = {shape_box.left + by.x, shape_box.top + by.y, shape_box.right + by.x, shape_box.bottom + by.y};
}

/// The shape goes to where the mouse has carried it.
void carry_shape(Point mouse) {
    if (running->moves_points) {
        move_points({mouse.x - grip.x, mouse.y - grip.y});
        grip = mouse;
    } else {
        click_points[0] = {mouse.x - grip.x, mouse.y - grip.y};
    }
}

bool is_in_shape_box(Point pixel) {
    const Point origin = origin_of_points({pan_x, pan_y});
    const Point at{pixel.x - origin.x, pixel.y - origin.y};
    return at.x >= shape_box.left && at.x <= shape_box.right && at.y >= shape_box.top && at.y <= shape_box.bottom;
}

/// The shape follows the mouse until the next press: a left one sets it down, a right one puts it back.
void drag_shape(Point press) {
    const Point before = click_points[0];
    grip = running->moves_points ? press : Point{press.x - before.x, press.y - before.y};
    shape_box_shown = 1;
    Waiting wait({.hotkeys = HOTKEYS_TOOL});
    HandStep hand = HAND_RESTS;
    while (hand == HAND_RESTS) hand = wait.pass();
    shape_box_shown = 0;
    if (hand == HAND_LEFT) {
        carry_shape(wait.point());
        if (running->moves_points) click_points[0] = wait.point();
    } else {
        click_points[0] = before;
        plotted.forget();
    }
}

// ---- Before, during and after the window ---------------------------------------------------------------------------

int value_to_begin_with(const ShapeValue& value, bool is_first_use) {
    if (is_first_use) return value.first;
    return *value.stored <= 0 && value.instead_of_none != 0 ? value.instead_of_none : *value.stored;
}

void take_stored_values() {
    const bool is_first_use =
        std::ranges::all_of(running->values, [](const ShapeValue& value) { return *value.stored == 0; });
    for (std::size_t i = 0; i < running->values.size(); ++i) {
        const ShapeValue& value = running->values[i];
        values[i] = std::clamp(value_to_begin_with(value, is_first_use), value.range.lowest, value.range.highest);
    }
    flipped = spiral_values.flip;
}

void store_values() {
    for (std::size_t i = 0; i < running->values.size(); ++i) *running->values[i].stored = values[i];
    if (running->tool == TOOL_SPIRAL) spiral_values.flip = flipped;
}

void show_flip() {
    if (running->tool == TOOL_SPIRAL) GUI_light_button(flip_slot(running->values.size()), flipped != 0);
}

void link_sliders() {
    for (std::size_t i = 0; i < running->values.size(); ++i) GUI_link_slider(slider_slot(i), &values[i]);
    show_flip();
}

WindowPass serve() {
    check_hotkeys(HOTKEYS_TOOL);
    if (take_click(flip_slot(running->values.size())) > 0) {
        flipped = flipped == 0 ? 1 : 0;
        show_flip();
    }
    const Point mouse{pixel_x, pixel_y};
    if (pressed_outside(mouse_left) && is_in_shape_box(mouse)) drag_shape(mouse);
    return WINDOW_STAYS;
}

/// Paints the shape where it stands now.
void commit(ShapeInHand& shape) {
    const Point corner{pan_x, pan_y};  // read once: the keys may move the view meanwhile
    shape.hide();
    plot_shape(corner);
    move_points(origin_of_points(corner));
    shape.commit();
}

void draw_shape_preview() {
    const Point corner = shown_corner(), origin = origin_of_points(corner);
    if (shape_box_shown != 0) carry_shape(shown_mouse());
    plot_shape(corner);
    preview_points({corner.x - origin.x, corner.y - origin.y}, gaps);
    if (shape_box_shown != 0)
        preview_rect(overlay, shape_box.left - corner.x + origin.x, shape_box.top - corner.y + origin.y,
                     shape_box.right - corner.x + origin.x, shape_box.bottom - corner.y + origin.y);
    running->tell();
}

}  // namespace

void register_shape_windows() {
    for (const ShapeWindow& window : shape_windows) {
        set_tool_runner(window.tool, run_shape_window);
        set_preview_drawer(window.tool, draw_shape_preview);
    }
}

void run_shape_window(BrushTool tool) {
    running = std::ranges::find(shape_windows, tool, &ShapeWindow::tool);
    click_points[0] = {pixel_x, pixel_y};
    wait_while_down(mouse_left);
    if (running->in_view) click_points[0] = {pixel_x, pixel_y};
    take_stored_values();
    plotted.forget();
    ShapeInHand shape(tool, list_capacity);
    if (run_window(running->window, {.built = link_sliders, .serve = serve}) != WINDOW_DONE) return;
    store_values();
    commit(shape);
}

}  // namespace nubo
