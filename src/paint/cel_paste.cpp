#include "paint/cel_paste.h"

#include "base/log.h"
#include "gui/mouse_text.h"
#include "paint/cel_clean.h"
#include "paint/cel_pixels.h"
#include "paint/images.h"
#include "paint/inks.h"
#include "paint/near_color.h"
#include "paint/stroke.h"
#include "paint/surfaces.h"
#include "paint/tool_preview.h"
#include "paint/undo.h"
#include "state/cel.h"
#include "state/guides.h"
#include "state/messages.h"
#include "state/options.h"
#include "state/run.h"
#include "state/shown.h"
#include "state/status.h"
#include "state/tools.h"
#include "state/view.h"
#include <algorithm>
#include <cmath>
#include <cstdio>
#include <cwchar>
#include <vector>

namespace nubo {
namespace {

// ---- Rows ----------------------------------------------------------------------------------------------------------

/// Paints pixels of one row.
void paint_colors(const Color* colors, int length, int x, int y, Ink ink = active_ink()) {
    static constexpr std::uint8_t full_strength = 0;
    paint_row({.x = x, .y = y, .length = length, .tip = &full_strength, .tip_step = 0, .colors = colors}, ink,
              brush_color);
}

/// Calls `visit(first, length)` for each stretch of 0 to `count` - 1 of which `takes(i)` is true, none longer than
/// `longest`. Nothing is asked ahead of the stretch being visited.
template <typename Takes, typename Visit> void for_each_stretch(int count, int longest, Takes takes, Visit visit) {
    for (int first = 0; first < count;) {
        int end = first;
        while (end < count && end - first < longest && takes(end)) ++end;
        if (end == first) {
            ++first;
            continue;
        }
        visit(first, end - first);
        first = end;
    }
}

/// The first of `count` pixels of 0xff00ff, or `count`.
int first_transparent(const Color* colors, int count) {
    static_assert(sizeof(wchar_t) == sizeof(Color));
    // The one search of the standard library for units of 32 bits; it looks at more of them in a step than a loop.
    const auto* const units = reinterpret_cast<const wchar_t*>(colors);
    const auto* const found =
        std::wmemchr(units, static_cast<wchar_t>(transparent_color), static_cast<std::size_t>(count));
    return found == nullptr ? count : static_cast<int>(found - units);
}

/// Paints a row whose pixels of 0xff00ff are left out, from the Frame pixel (x, y) on; cut at the window's sides.
void paste_row(const Color* colors, int length, int x, int y, const Area& window, Ink ink = active_ink()) {
    const int end = std::min(length, window.right + 1 - x);
    for (int at = std::max(window.left - x, 0); at < end; ++at) {
        if (colors[at] == transparent_color) continue;
        const int taken = first_transparent(colors + at, end - at);
        paint_colors(colors + at, taken, x + at, y, ink);
        at += taken;
    }
}

// ---- Turned --------------------------------------------------------------------------------------------------------

/// Allegro's 16.16 numbers reach no further, nor does its turned sprite.
constexpr int sprite_reach = 32767;

/// How far the turned Cel reaches from its pivot.
int turned_reach() { return static_cast<int>(std::hypot(cel->w, cel->h) / 2) + 2; }

/// Draws the Cel turned about its middle, which comes to (x, y).
void draw_turned(BITMAP* target, int x, int y) {
    const int reach = turned_reach();
    if (x + reach < 0 || y + reach < 0 || x - reach >= target->w || y - reach >= target->h) return;
    if (std::max({std::abs(x), std::abs(y), reach}) > sprite_reach) return;
    pivot_scaled_sprite(target, cel, x, y, cel->w / 2, cel->h / 2, itofix(cel_place.x2), itofix(1));
}

/// The part of the window that the turned Cel can reach; none if it lies beyond.
std::optional<Area> turned_part() {
    const int reach = turned_reach();
    const Area window = paint_window();
    const Area part{std::max(cel_place.x - reach, window.left), std::max(cel_place.y - reach, window.top),
                    std::min(cel_place.x + reach, window.right), std::min(cel_place.y + reach, window.bottom)};
    if (part.width() < 1 || part.height() < 1) return std::nullopt;
    return part;
}

// ---- Stretched -----------------------------------------------------------------------------------------------------

/// One axis of the stretched Cel: from the fixed corner to the moving one.
struct Span {
    int from, to;
    int start() const { return std::min(from, to); }
    int size() const { return std::abs(to - from); }
    bool is_flipped() const { return to < from; }
};

/// Which of `source` pixels shows at each of the `count` pixels from `first` on of a span: as Allegro's own stretching
/// chooses them, by stretching a line of numbers. Empty without memory.
std::vector<int> stretched_places(const Span& span, int source, int first, int count) {
    const OwnedBitmap numbers = make_uncleared_bitmap(source, 1), places = make_uncleared_bitmap(count, 1);
    if (!numbers || !places) return {};
    Color* const number = pixels_at(numbers.get(), 0, 0);
    for (int i = 0; i < source; ++i) number[i] = static_cast<Color>(span.is_flipped() ? source - 1 - i : i);
    stretch_blit(numbers.get(), places.get(), 0, 0, source, 1, -first, 0, span.size(), 1);
    const Color* const place = pixels_at(places.get(), 0, 0);
    return {place, place + count};
}

/// Calls `visit(colors, length, x, y)` for each row of the stretched Cel that lies in an area; (x, y) is where the row
/// starts. Only those pixels are worked out, however large the rest.
template <typename Visit> void for_each_stretched_row(Span across, Span down, const Area& window, Visit visit) {
    const int x = std::max(across.start(), window.left), y = std::max(down.start(), window.top);
    const int columns = std::min(across.start() + across.size(), window.right + 1) - x;
    const int rows = std::min(down.start() + down.size(), window.bottom + 1) - y;
    if (columns < 1 || rows < 1) return;
    const std::vector<int> places = stretched_places(across, cel->w, x - across.start(), columns);
    const std::vector<int> lines = stretched_places(down, cel->h, y - down.start(), rows);
    if (places.empty() || lines.empty()) return;
    std::vector<Color> colors(places.size());
    for (int row = 0; row < rows; ++row) {
        const Color* const source = pixels_at(cel, 0, lines[at(row)]);
        std::ranges::transform(places, colors.begin(), [=](int place) { return source[place]; });
        visit(colors.data(), columns, x, y + row);
    }
}

void paste_clean_row(const Color* colors, int length, int x, int y) {
    paste_row(colors, length, x, y, paint_window());
    refresh_stroke();
}

void paste_stretched() {
    const Area window = paint_window();
    if (guides.clean_cel != 0)
        return put_stretched({cel_place.x, cel_place.y, cel_place.x2, cel_place.y2}, window, paste_clean_row);
    for_each_stretched_row({cel_place.x, cel_place.x2}, {cel_place.y, cel_place.y2}, window,
                           [&window](const Color* colors, int length, int x, int y) {
                               paste_row(colors, length, x, y, window);
                               refresh_stroke();
                           });
}

// ---- Previews ------------------------------------------------------------------------------------------------------

constexpr Area view_area{0, 0, view_w - 1, view_h - 1};

void draw_outline(const Area& area) {
    if (cel_place.selected != 0) preview_rect(overlay, area.left, area.top, area.right, area.bottom);
}

void draw_pasted_preview(int x, int y) {
    const Area area{x, y, x + cel->w - 1, y + cel->h - 1};
    for_each_tile(area, [=](int dx, int dy) { draw_sprite(overlay, cel, x + dx, y + dy); });
    draw_outline(area);
}

void draw_turned_preview(int x, int y) {
    if (shows_clean())
        draw_clean([=](const PutRow& put) { put_turned(x, y, view_area, put); });
    else
        draw_turned(overlay, x, y);
    constexpr int any_difference = 1;
    const int tolerance = guides.cel_shape == CEL_IS_CUT_OUT ? any_difference : static_cast<int>(opt_cel_tolerance);
    const std::optional<Area> area = content_area(overlay, transparent_color, tolerance);
    cel_place.left = cel_place.top = cel_place.right = cel_place.bottom = -1;
    if (!area) return;
    cel_place.left = area->left, cel_place.top = area->top;
    cel_place.right = area->right, cel_place.bottom = area->bottom;
    draw_outline(*area);
}

void draw_stretched_preview(int x, int y) {
    const Span across{x, cel_place.x2 - shown.pan_x}, down{y, cel_place.y2 - shown.pan_y};
    if (shows_clean())
        draw_clean([&](const PutRow& put) { put_stretched({x, y, across.to, down.to}, view_area, put); });
    else
        for_each_stretched_row(across, down, view_area, [](const Color* colors, int length, int at_x, int at_y) {
            std::copy_n(colors, length, pixels_at(overlay, at_x, at_y));
        });
    cel_place.left = across.start(), cel_place.top = down.start();
    cel_place.right = across.size(), cel_place.bottom = down.size();
    draw_outline({across.start(), down.start(), across.start() + across.size() - 1, down.start() + down.size() - 1});
    std::array<char, 32> text;
    const auto percent = [](int size, int of) { return static_cast<int>(100LL * size / of); };
    std::snprintf(text.data(), text.size(), "%d%%, %d%%", percent(across.size(), cel->w), percent(down.size(), cel->h));
    put_mouse_text(text.data(), cel_place.x, cel_place.y);
}

/// True if `size` pixels from `place` on show in a view of that size, on a tile or none.
bool shows(int place, int size, float view_size) { return place + size > 0 && static_cast<float>(place) < view_size; }
bool shows_on_tile(int place, int size, float view_size, int extent) {
    const int first = wrapped(place, extent);
    return shows(first, size, view_size) || shows(first - extent, size, view_size);
}

bool overlaps_view(int x, int y) {
    const float w = zoom_view_w[at(shown.zoom)], h = zoom_view_h[at(shown.zoom)];
    return (tiles_across() ? shows_on_tile(x, cel->w, w, frame_w) : shows(x, cel->w, w)) &&
           (tiles_down() ? shows_on_tile(y, cel->h, h, frame_h) : shows(y, cel->h, h));
}

// ---- Commits -------------------------------------------------------------------------------------------------------

bool count_or_save_step(UndoSave save) {
    if (save == UNDO_TO_SAVE || !step_is_of_frame()) return save_undo(false);
    count_step();
    return true;
}

bool begin_commit(UndoSave save) {
    if (!count_or_save_step(save)) return false;
    clear_stroke_mask();
    cel_place.selected = 0;
    return true;
}

void paste_below() {
    const int x = cel_place.x, y = cel_place.y;
    for_each_tile({x, y, x + cel->w - 1, y + cel->h - 1}, [=](int dx, int dy) {
        paste_under_frame(cel_mask, current_frame, mask_color, x + dx, y + dy, true);
    });
}

bool commit_turned(UndoSave save) {
    if (guides.clean_cel != 0) {
        if (!begin_commit(save)) return false;
        put_turned(cel_place.x, cel_place.y, paint_window(), paste_clean_row);
        return true;
    }
    const std::optional<Area> part = turned_part();
    OwnedBitmap scratch = part ? make_bitmap(part->width(), part->height(), transparent_color) : nullptr;
    if (part && !scratch) {
        UA_log("[ ERROR ] : No memory to turn a cel of %d x %d pixels. Nothing was changed.", cel->w, cel->h);
        status_message = MESSAGE_NO_MEMORY;
        status_timer = flash_ticks;
        return false;
    }
    if (!begin_commit(save)) return false;
    if (!part) return true;
    draw_turned(scratch.get(), cel_place.x - part->left, cel_place.y - part->top);
    paste_by_ink(scratch.get(), part->left, part->top, active_ink());
    return true;
}

}  // namespace

void draw_cel(int mode) {
    const PaintPreview paint(IMAGES_ONCE);
    const int x = cel_place.x - shown.pan_x, y = cel_place.y - shown.pan_y;
    if (mode == CEL_PASTE) draw_pasted_preview(x, y);
    if (mode == CEL_TURN) draw_turned_preview(x, y);
    if (mode == CEL_STRETCH) draw_stretched_preview(x, y);
    cel_visible = overlaps_view(x, y) ? 1 : 0;
}

bool commit_cel(CelMode mode, UndoSave save) {
    if (mode == CEL_TURN) return commit_turned(save);
    if (!begin_commit(save)) return false;
    if (mode == CEL_PASTE) paste_by_ink(cel, cel_place.x, cel_place.y, active_ink());
    if (mode == CEL_AS_IS) paste_by_ink(cel, cel_place.x, cel_place.y, INK_OPAQUE);
    if (mode == CEL_BELOW) paste_below();
    if (mode == CEL_STRETCH) paste_stretched();
    return true;
}

void paste_by_ink(BITMAP* bitmap, int x, int y, Ink ink) {
    const Area window = paint_window();
    for (int row = std::max(window.top - y, 0); row < std::min(bitmap->h, window.bottom + 1 - y); ++row) {
        paste_row(pixels_at(bitmap, 0, row), bitmap->w, x, y + row, window, ink);
        refresh_stroke();
    }
}

// GLOW changes the pixels ahead of it, of which the test then has to tell anew: for it each stretch is one pixel.
void paste_under_frame(BITMAP* source, BITMAP* target, Color color, int x, int y, bool through_ink) {
    constexpr int tolerance = 5;  // 4, and what differs by it counts
    const NearColor is_free(color, tolerance);
    const int left_out = std::max(-x, 0), count = std::min(source->w, target->w - x) - left_out;
    const int longest = through_ink && active_ink() == INK_GLOW ? 1 : count;
    for (int row = std::max(-y, 0); row < std::min(source->h, target->h - y); ++row) {
        const Color* const from = pixels_at(source, left_out, row);
        Color* const to = count > 0 ? pixels_at(target, x + left_out, y + row) : nullptr;
        for_each_stretch(
            count, longest, [=](int i) { return is_free(to[i]) && !is_no_pixel(from[i]); },
            [=](int first, int length) {
                if (through_ink)
                    paint_colors(from + first, length, x + left_out + first, y + row);
                else
                    std::copy_n(from + first, length, to + first);
            });
        if (through_ink) refresh_stroke();
    }
}

}  // namespace nubo
