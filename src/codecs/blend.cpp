#include "codecs/blend.h"

#include "codecs/blend_rows.h"
#include <algorithm>
#include <cstdint>
#include <optional>

namespace nubo {
namespace {

constexpr int full_strength = 255, half_low = 127, half_high = 128;

/// A rectangle of the target, with the column and row of the source that lie at its corner.
struct Region {
    int x, y, w, h;
    int source_x = 0, source_y = 0;
};

/// Cuts one side of a rectangle to 0 to `limit`; `skipped` is how much went at its start. False when nothing is left.
bool clip_side(int& at, int& length, int& skipped, int limit) {
    if (length < 1 || at >= limit) return false;
    if (at < 0) {
        skipped = -std::max(at, -length);
        length -= skipped;
        at = 0;
    }
    length = std::min(length, limit - at);
    return length >= 1;
}

bool clip_to(const BITMAP* target, Region& region) {
    return clip_side(region.x, region.w, region.source_x, target->w) &&
           clip_side(region.y, region.h, region.source_y, target->h);
}

const NarrowDepth* narrow_depth(int bits) {
    return bits == depth_16.bits ? &depth_16 : bits == depth_15.bits ? &depth_15 : nullptr;
}

/// A strength on the scale of a bitmap's depth.
struct Strength {
    const NarrowDepth* narrow;  // null at 32 bits
    int s;                      // 0 to 32 on a narrow bitmap, else 0 to 255
    bool is_full() const { return s >= (narrow != nullptr ? narrow_full : full_strength); }
};

/// None for a depth that isn't drawn on.
std::optional<Strength> strength_on(BITMAP* target, int fact) {
    const int bits = bitmap_color_depth(target);
    if (bits == 32) return Strength{nullptr, fact};
    const NarrowDepth* const narrow = narrow_depth(bits);
    if (narrow == nullptr) return std::nullopt;
    return Strength{narrow, (fact + 7) >> 3};
}

/// Holds a bitmap for drawing, and ends the writing to it.
class DrawingOn {
public:
    explicit DrawingOn(BITMAP* bitmap) : bitmap_(bitmap) { acquire_bitmap(bitmap_); }
    ~DrawingOn() {
        bmp_unwrite_line(bitmap_);
        release_bitmap(bitmap_);
    }
    DrawingOn(const DrawingOn&) = delete;
    DrawingOn& operator=(const DrawingOn&) = delete;

    template <typename Pixel> Pixel* row(int x, int y) const {
        return reinterpret_cast<Pixel*>(bmp_write_line(bitmap_, y)) + x;
    }

private:
    BITMAP* bitmap_;
};

template <typename Pixel> const Pixel* source_row(BITMAP* source, int x, int y) {
    return reinterpret_cast<const Pixel*>(bmp_read_line(source, y)) + x;
}

void blit_32(BITMAP* source, BITMAP* target, const Region& region, int fact) {
    const BlendRows& rows = blend_rows();
    const DrawingOn drawing(target);
    for (int i = 0; i < region.h; ++i) {
        const auto* const from = source_row<Color>(source, region.source_x, region.source_y + i);
        auto* const to = drawing.row<Color>(region.x, region.y + i);
        if (fact == half_low || fact == half_high)
            rows.blit_half(from, to, region.w);
        else
            rows.blit(from, to, region.w, fact);
    }
    bmp_unwrite_line(source);
}

void blit_narrow(BITMAP* source, BITMAP* target, const Region& region, const NarrowDepth& depth, int s) {
    const DrawingOn drawing(target);
    for (int i = 0; i < region.h; ++i)
        blit_narrow_row(depth, source_row<std::uint16_t>(source, region.source_x, region.source_y + i),
                        drawing.row<std::uint16_t>(region.x, region.y + i), region.w, s);
    bmp_unwrite_line(source);
}

void fill_region(BITMAP* target, const Region& region, Color color, const Strength& strength) {
    const BlendRows& rows = blend_rows();
    const DrawingOn drawing(target);
    for (int y = region.y; y < region.y + region.h; ++y) {
        if (strength.narrow != nullptr)
            fill_narrow_row(*strength.narrow, drawing.row<std::uint16_t>(region.x, y), region.w,
                            static_cast<std::uint16_t>(color), strength.s);
        else
            rows.fill(drawing.row<Color>(region.x, y), region.w, color, strength.s);
    }
}

}  // namespace

void trans_blit(BITMAP* source, BITMAP* target, int x, int y, int fact) {
    Region region{x, y, source->w, source->h};
    if (bitmap_color_depth(source) != bitmap_color_depth(target) || !clip_to(target, region)) return;
    const std::optional<Strength> strength = strength_on(target, fact);
    if (!strength || strength->s < 1) return;
    if (strength->is_full())
        masked_blit(source, target, region.source_x, region.source_y, region.x, region.y, region.w, region.h);
    else if (strength->narrow != nullptr)
        blit_narrow(source, target, region, *strength->narrow, strength->s);
    else
        blit_32(source, target, region, strength->s);
}

void trans_rectfill(BITMAP* target, int x, int y, int w, int h, Color color, int fact) {
    Region region{x, y, w, h};
    if (!clip_to(target, region)) return;
    const std::optional<Strength> strength = strength_on(target, fact);
    if (!strength || strength->s < 1) return;
    if (strength->is_full())
        rectfill(target, region.x, region.y, region.x + region.w - 1, region.y + region.h - 1, static_cast<int>(color));
    else
        fill_region(target, region, color, *strength);
}

void blend_fill_row(Color* row, int length, Color color, int fact) {
    if (fact >= full_strength)
        std::fill_n(row, std::max(length, 0), color);
    else if (fact >= 1)
        blend_rows().fill(row, length, color, fact);
}

}  // namespace nubo
