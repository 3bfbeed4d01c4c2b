#include "workspace/resize_frame.h"

#include "base/bitmap.h"
#include "base/log.h"
#include "base/memory.h"
#include "paint/undo.h"
#include "state/frames.h"
#include "view/view.h"
#include "workspace/nail.h"
#include "workspace/notices.h"
#include <algorithm>
#include <array>
#include <cstring>
#include <utility>
#include <vector>

namespace nubo {
namespace {

/// Puts the picture in the Frame's place, or tells why there is none of `width` by `height` pixels.
bool take_new_size(OwnedBitmap picture, int width, int height) {
    if (width > max_frame_side || height > max_frame_side) {
        UA_log("[ WARNING ] : A frame of %d x %d pixels is too large. Nothing was changed.", width, height);
        flash_message(MESSAGE_FRAME_SIDE);
        return false;
    }
    if (!picture || !change_frame(std::move(picture))) {
        UA_log("[ ERROR ] : No memory for a frame of %d x %d pixels. Nothing was changed.", width, height);
        flash_message(MESSAGE_NO_MEMORY);
        return false;
    }
    view_clamp();
    flash_message(MESSAGE_RESIZED);
    return true;
}

/// The part of the Frame from (left, top) on, black beyond it. Only that is filled which no pixel of the Frame comes
/// to.
OwnedBitmap part_of_frame(int left, int top, int width, int height) {
    OwnedBitmap part = make_uncleared_bitmap(width, height);
    if (!part) return nullptr;
    const int first = std::clamp(-left, 0, width), end = std::clamp(current_frame->w - left, first, width);
    for (int y = 0; y < height; ++y) {
        Color* const row = pixels_at(part.get(), 0, y);
        const bool inside = top + y >= 0 && top + y < current_frame->h;
        const int from = inside ? first : 0, to = inside ? end : 0;
        std::fill(row, row + from, fixed_black);
        if (from < to) std::copy_n(pixels_at(current_frame, left + from, top + y), to - from, row + from);
        std::fill(row + to, row + width, fixed_black);
    }
    return part;
}

OwnedBitmap scaled_frame(int width, int height) {
    OwnedBitmap scaled = make_uncleared_bitmap(width, height);
    if (!scaled) return nullptr;
    if (width < current_frame->w && height < current_frame->h)
        reduce_bitmap(current_frame, scaled.get(), 0, 0, width, height);
    else
        stretch_blit(current_frame, scaled.get(), 0, 0, current_frame->w, current_frame->h, 0, 0, width, height);
    return scaled;
}

// ---- Sprite sheets -------------------------------------------------------------------------------------------------

/// What a row or a column of the sheet runs through, by its distance from the start of its cell.
enum SheetPart : int { PART_BORDER, PART_SPRITE, PART_GAP, PART_COUNT };
SheetPart part_at(int distance, int sprite) {
    if (distance == 0 || distance == sprite + 1) return PART_BORDER;
    return distance <= sprite ? PART_SPRITE : PART_GAP;
}

/// One of the three rows that a sheet is made of.
std::vector<Color> sheet_row(const SpriteSheet& sheet, SheetPart row) {
    std::vector<Color> pixels(static_cast<std::size_t>(sheet.width()));
    for (int x = 0; x < sheet.width(); ++x) {
        const SheetPart column = part_at(x % sheet.cell_w(), sheet.sprite_w);
        Color color = sheet.sprite;
        if (row == PART_BORDER || column == PART_BORDER) color = sheet.border;
        if (row == PART_GAP || column == PART_GAP) color = sheet.sheet;
        pixels[at(x)] = color;
    }
    return pixels;
}

}  // namespace

bool resize_frame(int, int width, int height, int anchor, bool scale) {
    if (scale) return take_new_size(scaled_frame(width, height), width, height);
    // The picture's margin on either side: all of it before, halved, or all behind.
    const int column = anchor % anchors_a_row, row = anchor / anchors_a_row;
    return crop_frame((frame_w - width) * column / 2, (frame_h - height) * row / 2, width, height);
}

bool crop_frame(int left, int top, int width, int height) {
    return take_new_size(part_of_frame(left, top, width, height), width, height);
}

bool make_sprite_sheet(const SpriteSheet& sheet) {
    OwnedBitmap picture = make_uncleared_bitmap(sheet.width(), sheet.height());
    const auto draw = [&] {
        std::array<std::vector<Color>, PART_COUNT> rows;
        for (int part = 0; part < PART_COUNT; ++part) rows[at(part)] = sheet_row(sheet, static_cast<SheetPart>(part));
        for (int y = 0; y < sheet.height(); ++y) {
            const auto& row = rows[at(part_at(y % sheet.cell_h(), sheet.sprite_h))];
            std::ranges::copy(row, pixels_at(picture.get(), 0, y));
        }
        return true;
    };
    if (picture && !unless_memory_ends(draw, false)) picture.reset();
    return take_new_size(std::move(picture), sheet.width(), sheet.height());
}

}  // namespace nubo
