#include "windows/cel/selection_in_hand.h"

#include "base/keys.h"
#include "gui/stripes.h"
#include "paint/image_maps.h"
#include "paint/selection.h"
#include "state/guides.h"
#include "state/view.h"
#include "windows/cel/lasso.h"
#include "workspace/notices.h"
#include <cmath>
#include <utility>

namespace nubo {
namespace {

constinit const SelectionInHand* in_hand = nullptr;  // the one that lives

// ---- The stripes ---------------------------------------------------------------------------------------------------

/// Whether the shape has the pixel that shows at a place of `overlay`, on whatever tile.
bool shape_shows(const PixelSet& shape, int x, int y) {
    const Point real = real_pixel({shown.pan_x + x, shown.pan_y + y});
    return shape.has(real.x, real.y);
}

bool is_on_rim(const PixelSet& shape, int x, int y) {
    return shape_shows(shape, x, y) && (!shape_shows(shape, x - 1, y) || !shape_shows(shape, x + 1, y) ||
                                        !shape_shows(shape, x, y - 1) || !shape_shows(shape, x, y + 1));
}

void draw_rim(const PixelSet& shape) {
    const int w = static_cast<int>(std::ceil(zoom_view_w[at(shown.zoom)]));
    const int h = static_cast<int>(std::ceil(zoom_view_h[at(shown.zoom)]));
    for (int y = 0; y < h; ++y)
        for (int x = 0; x < w; ++x)
            if (is_on_rim(shape, x, y)) *pixels_at(overlay, x, y) = stripe_pixel(x, y);
}

void draw_selection() {
    if (in_hand != nullptr && in_hand->shape().is_of(frame_w, frame_h)) draw_rim(in_hand->shape());
    draw_lasso();
}

// ---- Taking --------------------------------------------------------------------------------------------------------

bool take_by_lasso(Waiting& wait, PixelSet& taken) {
    const std::vector<Point> way = follow_lasso(wait);
    return way.empty() ? taken.reset(frame_w, frame_h) : take_polygon(way, taken);
}

bool take_by_wand(Point press, PixelSet& taken) {
    return wand_is_global ? take_color(press, guides.wand_tolerance, taken)
                          : take_filled(press, guides.wand_tolerance, taken);
}

}  // namespace

SelectionInHand::SelectionInHand() : overlay_(draw_selection) { in_hand = this; }
SelectionInHand::~SelectionInHand() { in_hand = nullptr; }

void SelectionInHand::take_from(Waiting& wait, Point press) {
    const int modifiers = modifiers_down();
    PixelSet taken;
    const bool has_memory = select_tool == SELECT_BY_LASSO ? take_by_lasso(wait, taken) : take_by_wand(press, taken);
    if (!has_memory) return flash_message(MESSAGE_NO_MEMORY);
    follow_frame();
    if (taken.empty()) return;
    const bool takes_away = (modifiers & key_ctrl) != 0, adds = (modifiers & key_shift) != 0 && !takes_away;
    if (takes_away && !shape_.empty()) shape_.take_away(taken);
    if (adds && !shape_.empty()) shape_.add(taken);
    if (!takes_away && (!adds || shape_.empty())) shape_ = std::move(taken);
}

PixelSet SelectionInHand::give() { return std::exchange(shape_, {}); }

// Of a key that is down for WAND, as SHIFT+L, L alone is left where SHIFT goes up first.
void SelectionInHand::serve_tool_keys() {
    const bool lasso = hotkey_held(HOTKEY_LASSO), wand = hotkey_held(HOTKEY_WAND);
    if (tool_keys_rest_ && lasso) select_tool = SELECT_BY_LASSO;
    if (tool_keys_rest_ && wand) select_tool = SELECT_BY_WAND;
    tool_keys_rest_ = !lasso && !wand;
}

SelectEnd SelectionInHand::asked_by_keys() {
    serve_tool_keys();
    const bool takes = enter_.happens() || enter_pad_.happens(), moves = move_.happens();
    if (shape_.empty()) return SELECT_GOES_ON;
    if (takes) return SELECT_IS_CEL;
    return moves ? SELECT_IS_MOVED : SELECT_GOES_ON;
}

void SelectionInHand::follow_frame() {
    if (!shape_.is_of(frame_w, frame_h)) shape_ = {};
}

}  // namespace nubo
