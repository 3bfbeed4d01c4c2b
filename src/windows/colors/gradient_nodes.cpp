#include "windows/colors/gradient_nodes.h"

#include "base/geometry.h"
#include "base/keys.h"
#include "base/log.h"
#include "framework/text.h"
#include "gui/presses.h"
#include "gui/waiting.h"
#include "paint/tool_preview.h"
#include "paint/tools.h"
#include "state/flow.h"
#include "state/frames.h"
#include "state/mouse.h"
#include "state/overlay.h"
#include "state/run.h"
#include "state/shown.h"
#include "state/status.h"
#include "state/stroke.h"
#include "state/view.h"
#include "state/windows.h"
#include "view/frame_tiles.h"
#include "view/view.h"
#include "windows/kit/offscreen_box.h"
#include "windows/kit/over_frame.h"
#include "windows/kit/quick_pan.h"
#include "windows/kit/run_window.h"
#include <algorithm>
#include <array>
#include <cstdlib>

namespace nubo {
namespace {

// ---- The nodes -----------------------------------------------------------------------------------------------------

enum NodeAxes : int { NODES_ALONG_X, NODES_ALONG_Y, NODES_IN_PLANE };
enum Node : int { NODE_START, NODE_END, NODE_COUNT, NODE_NONE = -1 };
constexpr std::array<Node, NODE_COUNT> both_nodes{NODE_START, NODE_END};

struct Gradient {
    Ink ink;
    NodeAxes axes;
    bool has_x() const { return axes != NODES_ALONG_Y; }
    bool has_y() const { return axes != NODES_ALONG_X; }
};
constexpr std::array<Gradient, 4> gradients{
    {{INK_HGRAD, NODES_ALONG_X}, {INK_LGRAD, NODES_IN_PLANE}, {INK_RGRAD, NODES_IN_PLANE}, {INK_VGRAD, NODES_ALONG_Y}}};

/// Null for an ink that is no gradient.
const Gradient* find_gradient(int ink) {
    const auto* const found = std::ranges::find(gradients, ink, [](const Gradient& row) { return int{row.ink}; });
    return found == gradients.end() ? nullptr : found;
}

/// The options that hold a node: one along an axis, x and y in the plane.
int words_to_a_node(const Gradient& gradient) { return gradient.axes == NODES_IN_PLANE ? 2 : 1; }
Word& node_x(const Gradient& gradient, Node node) {
    return ink_options[at(gradient.ink)][at(OPTION_NODE + node * words_to_a_node(gradient))];
}
Word& node_y(const Gradient& gradient, Node node) {
    const int words = words_to_a_node(gradient);
    return ink_options[at(gradient.ink)][at(OPTION_NODE + node * words + words - 1)];
}

/// Where it stands, frame pixels; on the axis that it doesn't have, in the middle of the view.
Point node_place(const Gradient& gradient, Node node) {
    return {gradient.has_x() ? int{node_x(gradient, node)} : int{view_center_x},
            gradient.has_y() ? int{node_y(gradient, node)} : int{view_center_y}};
}

/// A node may lie outside the Frame.
void place_node(const Gradient& gradient, Node node, Point place) {
    if (gradient.has_x()) node_x(gradient, node) = place.x;
    if (gradient.has_y()) node_y(gradient, node) = place.y;
}

/// The Frame may have become smaller since the node was placed.
void bring_into_frame(const Gradient& gradient, Node node) {
    const Point place = node_place(gradient, node);
    place_node(gradient, node, {std::clamp<int>(place.x, 0, frame_w - 1), std::clamp<int>(place.y, 0, frame_h - 1)});
}

// ---- The hand on the nodes -----------------------------------------------------------------------------------------

bool mouse_is_near(const Gradient& gradient, Node node) {
    constexpr int near = 9;
    const Point place = node_place(gradient, node);
    const Point mouse = real_pixel({pixel_x, pixel_y});
    const int dx = gradient.has_x() ? place.x - mouse.x : 0, dy = gradient.has_y() ? place.y - mouse.y : 0;
    return UA_distance_2d(0, 0, dx, dy) < near;
}

/// The node held after a press: one that is near is taken up, the one held is let go. One press does one of the two,
/// also where the nodes lie on each other.
Node node_after_press(const Gradient& gradient, Node held) {
    for (const Node node : both_nodes) {
        if (!mouse_is_near(gradient, node)) continue;
        if (held == NODE_NONE) return node;
        if (held == node) return NODE_NONE;
    }
    return held;
}

// ---- Nodes out of view ---------------------------------------------------------------------------------------------

std::size_t zoom_level() { return at(std::clamp<int>(zoom, zoom_min, zoom_max)); }

bool is_on_screen(const Gradient& gradient, Node node) {
    const Point place = node_place(gradient, node);
    const auto lies_in = [](int offset, float extent) { return offset >= 0 && static_cast<float>(offset) < extent; };
    return (!gradient.has_x() || lies_in(place.x - pan_x, zoom_view_w[zoom_level()])) &&
           (!gradient.has_y() || lies_in(place.y - pan_y, zoom_view_h[zoom_level()]));
}

constexpr OffscreenBox nodes_box{LABEL_NODES_OFFSCREEN, LABEL_JUMP_TO_START, LABEL_JUMP_TO_END};

/// Pans until the node stands in the middle of the view, as far as the limits let it.
void jump_to(const Gradient& gradient, Node node) {
    const Point place = node_place(gradient, node);
    if (gradient.has_x()) pan_x = place.x - static_cast<int>(zoom_view_w[zoom_level()] / 2);
    if (gradient.has_y()) pan_y = place.y - static_cast<int>(zoom_view_h[zoom_level()] / 2);
    view_clamp();
}

/// The box with the way back, as long as neither node can be seen.
void serve_nodes_box(const Gradient& gradient) {
    const bool seen = std::ranges::any_of(both_nodes, [&](Node node) { return is_on_screen(gradient, node); });
    const OffscreenPress press = serve_offscreen_box(nodes_box, seen);
    if (press == OFFSCREEN_FIRST) jump_to(gradient, NODE_START);
    if (press == OFFSCREEN_SECOND) jump_to(gradient, NODE_END);
}

// ---- The editor ----------------------------------------------------------------------------------------------------

bool key_is_pressed() {
    const bool pressed = hotkey_held(HOTKEY_INK_OPTION);
    wait_while_held(HOTKEY_INK_OPTION);
    return pressed;
}

void move_nodes(const Gradient& gradient) {
    Waiting wait({.prompt = status_bar_only, .hotkeys = HOTKEYS_NODES, .first_live_slot = high_slot});
    Node held = NODE_NONE;
    for (;;) {
        const HandStep hand = wait.pass();
        if (hand == HAND_RIGHT || hand == HAND_ESCAPES || key_is_pressed()) return;
        if (mouse_middle != 0) quick_pan();
        if (hand == HAND_LEFT) held = node_after_press(gradient, held);
        if (held != NODE_NONE) place_node(gradient, held, real_pixel({pixel_x, pixel_y}));
        serve_nodes_box(gradient);
    }
}

/// A circle on the overlay with the node's name above it.
void draw_node(Point place, const char* name) {
    constexpr int radius = 8, name_rise = 17, outlined = 1;
    preview_circle(overlay, place.x, place.y, place.x + radius, place.y);
    UA_set_font(FONT_NARROW, TEXT_YELLOW, 0, 0, 0, outlined, 0, 0);
    UA_text(overlay, place.x - text_width(name) / 2, place.y - name_rise, name);
}

void draw_nodes() {
    const Gradient& gradient = *find_gradient(tool_preview - nodes_preview);
    const auto on_overlay = [&](Node node) {
        const Point place = node_place(gradient, node);
        return Point{place.x - shown.pan_x, place.y - shown.pan_y};
    };
    const Point start = on_overlay(NODE_START), end = on_overlay(NODE_END);
    preview_line(overlay, start.x, start.y, end.x, end.y);
    draw_node(start, "START");
    draw_node(end, "END");
}

}  // namespace

void reposition_gradient(int ink) {
    const Gradient* const gradient = find_gradient(ink);
    if (gradient == nullptr) {
        UA_log("[ ERROR ] : Unknown type passed to reposition_gradient! Type = %d", ink);
        return;
    }
    const ClearedScreen cleared;
    menu_id = WINDOW_BOX;
    for (const Node node : both_nodes) bring_into_frame(*gradient, node);
    const OverlayShown overlay_shown;
    const ToolPreview preview(nodes_preview + ink);
    wait_while_held(HOTKEY_INK_OPTION);
    move_nodes(*gradient);
    close_offscreen_box();
}

void register_gradient_nodes() {
    for (const Gradient& gradient : gradients) set_preview_drawer(nodes_preview + gradient.ink, draw_nodes);
}

}  // namespace nubo
