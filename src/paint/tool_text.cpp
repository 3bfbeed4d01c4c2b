#include "paint/tool_text.h"

#include "base/log.h"
#include "framework/outline_font.h"
#include "paint/images.h"
#include "paint/inks.h"
#include "paint/stroke.h"
#include "paint/surfaces.h"
#include "paint/tool_preview.h"
#include "paint/undo.h"
#include "state/shown.h"
#include "state/view.h"
#include <algorithm>
#include <cmath>
#include <vector>

namespace nubo {
namespace {

constexpr std::uint8_t full_coverage = 255;

const std::uint8_t* coverage_at(const BITMAP* bitmap, int y) { return bitmap->line[y]; }

// ---- The line ------------------------------------------------------------------------------------------------------

void set_size(int size) {
    if (font_has_one_size(preferred_font) || font_set_height(preferred_font, size) == 0) return;
    UA_log("[ ERROR ] : Font error detected. Dunno what, 'cuz the lib won't fucking tell me.");
    UA_log("[ STATS ] : Size = %d", size);
}

/// An empty map, null if it were too large.
OwnedBitmap make_coverage(int width, int height) {
    constexpr long long side_max = 65'535, bytes_max = 256 << 20;
    if (width > side_max || height > side_max || 1LL * width * height > bytes_max) return nullptr;
    OwnedBitmap bitmap(create_bitmap_ex(8, width, height));
    if (bitmap) clear_bitmap(bitmap.get());
    return bitmap;
}

bool is_covered(std::uint8_t coverage) { return coverage != 0; }

// ---- Its colours ---------------------------------------------------------------------------------------------------

/// What the ink is given, and what the preview shows.
Color mixed_color(Color frame, std::uint8_t coverage) {
    return coverage == full_coverage ? brush_color : blend_color(frame, brush_color, coverage);
}

/// Of two colours `overlay` lets the Frame show: there the neighbour in blue stands for them.
Color shown_color(Color color) {
    constexpr Color blue_step = 1, two_steps = 2;
    const auto vanishes = [](Color shade) { return shade == transparent_color || shade == mask_color; };
    if (!vanishes(color)) return color;
    return vanishes(color ^ blue_step) ? color ^ two_steps : color ^ blue_step;
}

/// The part that two rectangles share; empty where right or bottom lies before left or top.
Area shared_part(const Area& a, const Area& b) {
    return {std::max(a.left, b.left), std::max(a.top, b.top), std::min(a.right, b.right), std::min(a.bottom, b.bottom)};
}

Area moved(const Area& area, Point by) {
    return {area.left + by.x, area.top + by.y, area.right + by.x, area.bottom + by.y};
}

Area area_of_view() {
    const Point corner = shown_corner();
    const auto level = static_cast<std::size_t>(shown.zoom);
    return {corner.x, corner.y, corner.x + static_cast<int>(zoom_view_w[level]) - 1,
            corner.y + static_cast<int>(std::ceil(zoom_view_h[level])) - 1};
}

// ---- Its paint -----------------------------------------------------------------------------------------------------

/// Of the pixel on whatever tile.
Color frame_pixel(int x, int y) {
    const Point real = real_pixel({x, y});
    return *pixels_at(current_frame, real.x, real.y);
}

/// Paints the covered pixels of a row of the Frame from `left` to `right`, whose coverage begins at `coverage`. GLOW
/// changes the pixels ahead of it, into which the brush colour is then mixed: for it each stretch is one pixel.
void paint_row(const std::uint8_t* coverage, int left, int right, int y, std::vector<Color>& colors) {
    static constexpr std::uint8_t full_strength = 0;
    const int longest = active_ink() == INK_GLOW ? 1 : right + 1 - left;
    for (int first = left; first <= right; ++first) {
        int end = first;
        for (; end <= right && end - first < longest && is_covered(coverage[end - left]); ++end)
            colors[static_cast<std::size_t>(end - first)] = mixed_color(frame_pixel(end, y), coverage[end - left]);
        if (end == first) continue;
        paint_row(
            {.x = first, .y = y, .length = end - first, .tip = &full_strength, .tip_step = 0, .colors = colors.data()},
            active_ink(), brush_color);
        first = end - 1;
    }
}

}  // namespace

bool TextInHand::follow(const TextLook& look) {
    if (!drawn_.changes_to(look)) return true;
    if (size_.changes_to(look.size)) set_size(look.size);
    font_set_spacing(preferred_font, look.gap);
    const bool is_possible = draw(look);
    find_covered();
    return is_possible;
}

bool TextInHand::draw(const TextLook& look) {
    text_bitmap_.reset();
    if (look.text.empty()) return true;
    const TextEdges edges = look.antialias != 0 ? EDGES_SMOOTH : EDGES_ROUGH;
    text_bitmap_ = make_coverage(font_text_length(preferred_font, look.text, edges) + 2 * text_margin,
                                 font_text_height(preferred_font) + 2 * text_margin);
    if (!text_bitmap_) return false;
    font_cover(text_bitmap_.get(), preferred_font, look.text, text_margin, text_margin, edges);
    return true;
}

void TextInHand::find_covered() {
    covered_.reset();
    for (int y = 0; text_bitmap_ && y < text_bitmap_->h; ++y) {
        const std::uint8_t *const row = coverage_at(text_bitmap_.get(), y), *const end = row + text_bitmap_->w;
        const std::uint8_t* const first = std::find_if(row, end, is_covered);
        if (first == end) continue;
        const std::uint8_t* last = end - 1;
        while (!is_covered(*last)) --last;
        const Area found{static_cast<int>(first - row), y, static_cast<int>(last - row), y};
        if (!covered_) covered_ = found;
        covered_ = {std::min(covered_->left, found.left), covered_->top, std::max(covered_->right, found.right), y};
    }
}

void TextInHand::change_font() {
    drawn_.forget();
    size_.forget();
}

bool TextInHand::contains(Point pixel) const {
    if (!has_box()) return false;
    const Area box = moved(*covered_, click_points[0]);
    return pixel.x >= box.left && pixel.x <= box.right && pixel.y >= box.top && pixel.y <= box.bottom;
}

void TextInHand::draw_preview() const {
    if (!covered_) return;
    const Point corner = shown_corner(), place = click_points[0];
    const Area box = moved(*covered_, place), painted = shared_part(box, paint_window());
    const Area part = guides.tiles == TILES_OFF ? shared_part(painted, area_of_view()) : painted;
    for (int y = part.top; y <= part.bottom; ++y) {
        const std::uint8_t* const coverage = coverage_at(text_bitmap_.get(), y - place.y);
        for (int x = part.left; x <= part.right; ++x) {
            if (!is_covered(coverage[x - place.x])) continue;
            if (Color* const over = preview_pixel({x - corner.x, y - corner.y}))
                *over = shown_color(mixed_color(frame_pixel(x, y), coverage[x - place.x]));
        }
    }
    if (has_box())  // around it, so that all of the line is seen
        preview_rect(overlay, box.left - corner.x - 1, box.top - corner.y - 1, box.right - corner.x + 1,
                     box.bottom - corner.y + 1);
}

void TextInHand::commit() const {
    if (!covered_) return;
    const Point place = click_points[0];
    const Area part = shared_part(moved(*covered_, place), paint_window());
    if (part.width() < 1 || part.height() < 1 || !save_undo(false)) return;
    clear_stroke_mask();
    std::vector<Color> colors(static_cast<std::size_t>(part.width()));
    for (int y = part.top; y <= part.bottom; ++y) {
        paint_row(coverage_at(text_bitmap_.get(), y - place.y) + part.left - place.x, part.left, part.right, y, colors);
        refresh_stroke();
    }
}

}  // namespace nubo
