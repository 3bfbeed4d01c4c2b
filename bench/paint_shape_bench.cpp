// Shapes on a Frame of 2,048 by 2,048, each beside its limit: a fill beside the filled BOX, an outline beside a LINE of
// as many pixels, the previews at their largest.
#include "base/bitmap.h"
#include "editor/screen.h"
#include "paint/shape_generators.h"
#include "paint/shape_in_hand.h"
#include "paint/shape_spline.h"
#include "paint/stroke.h"
#include "paint/surfaces.h"
#include "paint/tools.h"
#include "paint/undo.h"
#include "state/frames.h"
#include "state/options.h"
#include "state/overlay.h"
#include "state/run.h"
#include "state/shape.h"
#include "state/shown.h"
#include "state/tools.h"

#include <benchmark/benchmark.h>
#include <cmath>

namespace nubo {
namespace {

constexpr int side = 2048;

/// A Frame whose undo slots all have their bitmaps, and a soft tip as large as its cell.
void begin(BrushTool tool, Ink ink, int filled) {
    replace_bitmap(tip_sheet, make_bitmap(tip_sheet_w, tip_sheet_h, transparent_color));
    for (int y = 0; y < tip_h; ++y)
        for (int x = 0; x < tip_w; ++x) {
            const double away = std::hypot((x - tip_center_x) / 9.0, (y - tip_center_y) / 8.0);
            *pixels_at(tip_sheet, x, y) = static_cast<Color>(std::min(255.0, away * tip_outside)) << 16;
        }
    active_tool_slot = active_ink_slot = 0;
    tool_slots[0] = tool;
    ink_slots[0] = ink;
    tool_option(tool, OPTION_FILLED) = filled;
    ink_option(ink, OPTION_STRENGTH) = 128;
    brush_color = 0x3060c0;
    brush_tip = 0;
    adopt_frame(make_bitmap(side, side, 0x202020));
    reset_undo_slots();
    for (int i = 0; i < undo_depth_max; ++i) save_undo(false);
    refresh_ticks = 0;
    point_list.reserve(list_capacity);
}

void stroke(benchmark::State& state, BrushTool tool) {
    for (auto _ : state) draw_to_frame(0, 0, tool, active_ink(), brush_tip, brush_color);
}

// ---- A fill, and its limit -----------------------------------------------------------------------------------------

void shape_fill_box(benchmark::State& state) {
    begin(TOOL_BOX, static_cast<Ink>(state.range(0)), 1);
    click_points[0] = {0, 0};
    click_points[1] = {side - 1, side - 1};
    stroke(state, TOOL_BOX);
}
void shape_fill_poly(benchmark::State& state) {
    begin(TOOL_POLY, static_cast<Ink>(state.range(0)), 1);
    point_list = {{0, 0}, {side - 1, 0}, {side - 1, side - 1}, {0, side - 1}, {0, 0}};
    stroke(state, TOOL_POLY);
}
BENCHMARK(shape_fill_box)->Arg(INK_OPAQUE)->Arg(INK_GLASS)->Unit(benchmark::kMillisecond);
BENCHMARK(shape_fill_poly)->Arg(INK_OPAQUE)->Arg(INK_GLASS)->Unit(benchmark::kMillisecond);

// ---- An outline, and its limit -------------------------------------------------------------------------------------

void shape_outline_line(benchmark::State& state) {
    begin(TOOL_LINE, INK_OPAQUE, 0);
    click_points[0] = {0, 0};
    click_points[1] = {side - 1, side / 2};
    stroke(state, TOOL_LINE);
}
void shape_outline_poly(benchmark::State& state) {
    begin(TOOL_POLY, INK_OPAQUE, 0);
    point_list = {{side - 1, side / 2}, {0, 0}};
    stroke(state, TOOL_POLY);
}
BENCHMARK(shape_outline_line)->Unit(benchmark::kMillisecond);
BENCHMARK(shape_outline_poly)->Unit(benchmark::kMillisecond);

// ---- Previews, in microseconds: an update has 2,000 ----------------------------------------------------------------

void begin_preview() {
    create_screen_bitmaps();
    begin(TOOL_POLY, INK_OPAQUE, 0);
    shown = {};
    shown.pixel_x = view_w / 2;
    shown.pixel_y = view_h / 2;
}

/// Lines across the whole view.
void across_view(std::size_t count) {
    point_list.clear();
    for (std::size_t i = 0; i < count; ++i)
        point_list.push_back(i % 2 == 0 ? Point{0, static_cast<int>(i) % view_h} : Point{view_w - 1, 17});
}

void preview_poly(benchmark::State& state) {
    begin_preview();
    across_view(list_capacity - 1);
    tool_preview = TOOL_POLY;
    for (auto _ : state) draw_tool_preview();
}
BENCHMARK(preview_poly)->Unit(benchmark::kMicrosecond);

void preview_freehand_shape(benchmark::State& state) {
    begin_preview();
    point_list.clear();
    for (int i = 0; i < freehand_points_max; ++i)  // with jumps as of a quick hand
        point_list.push_back({(i * 7) % view_w, (i * 3) % view_h});
    tool_preview = TOOL_FSHAPE;
    for (auto _ : state) draw_tool_preview();
}
BENCHMARK(preview_freehand_shape)->Unit(benchmark::kMicrosecond);

void preview_oval(benchmark::State& state) {
    begin_preview();
    click_points[0] = {-side / 2, 0};
    click_points[1] = {2 * side, 0};
    tool_preview = TOOL_OVAL;
    for (auto _ : state) {
        shown.pixel_y = shown.pixel_y == side ? side - 1 : side;  // the mouse moves
        draw_tool_preview();
    }
}
BENCHMARK(preview_oval)->Unit(benchmark::kMicrosecond);

void preview_spline(benchmark::State& state) {
    begin_preview();
    tool_option(TOOL_SPLINE, OPTION_CLOSED) = 1;
    tool_option(TOOL_SPLINE, OPTION_CURVE) = 100;
    for (int i = 0; i < click_slots; ++i) click_points[at(i)] = {(i * 131) % view_w, (i * 57) % view_h};
    point_count = spline_nodes_max + 2;
    tool_preview = TOOL_SPLINE;
    for (auto _ : state) {
        click_points[1].x = click_points[1].x == 5 ? 6 : 5;  // a node moves
        draw_tool_preview();
    }
}
BENCHMARK(preview_spline)->Unit(benchmark::kMicrosecond);

/// By its scale: the whole list in the view, or little of it.
void preview_spiral(benchmark::State& state) {
    begin_preview();
    for (auto _ : state) {
        build_spiral(view_w / 2, view_h / 2, 10, static_cast<int>(state.range(0)), 64, 0, 0);
        preview_points({});
    }
}
BENCHMARK(preview_spiral)->Arg(1)->Arg(50)->Arg(500)->Unit(benchmark::kMicrosecond);

constexpr Supershape wild{.angle = 10, .n1 = 0.1, .n2 = 30, .n3 = 30, .arms = 20, .magnitude = 500};

void preview_supershape(benchmark::State& state) {
    begin_preview();
    for (auto _ : state) {
        plot_supershape(wild, view_w / 2, view_h / 2);
        preview_points({});
    }
}
BENCHMARK(preview_supershape)->Unit(benchmark::kMicrosecond);

// ---- OKAY, in milliseconds: it has 100 -----------------------------------------------------------------------------

void okay_largest_spiral(benchmark::State& state) {
    begin(TOOL_SPIRAL, INK_OPAQUE, 0);
    for (auto _ : state) {
        build_spiral(side / 2, side / 2, 0, 500, 64, 255, 0);
        draw_to_frame(0, 0, TOOL_SPIRAL, INK_OPAQUE, brush_tip, brush_color);
    }
}
void okay_unusable_supershape(benchmark::State& state) {
    begin(TOOL_SSHAPE, INK_OPAQUE, static_cast<int>(state.range(0)));
    for (auto _ : state) {
        plot_supershape(wild, side / 2, side / 2);
        draw_to_frame(0, 0, TOOL_SSHAPE, INK_OPAQUE, brush_tip, brush_color);
    }
}
BENCHMARK(okay_largest_spiral)->Unit(benchmark::kMillisecond);
BENCHMARK(okay_unusable_supershape)->Arg(0)->Arg(1)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace nubo
