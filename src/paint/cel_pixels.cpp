#include "paint/cel_pixels.h"

#include "paint/cel_clean.h"
#include "paint/image_maps.h"
#include "paint/near_color.h"
#include "state/cel.h"
#include "state/frames.h"
#include "state/options.h"
#include <utility>

namespace nubo {
namespace {

/// Tells where a row has pixels that don't match, a chunk at once as far as all of it does.
class Contents {
public:
    Contents(Color background, int tolerance)
        : matches_(background, tolerance), chunk_matches_(background, tolerance) {}

    /// The first of `count` pixels that doesn't match, or `count`.
    int first(const Color* pixels, int count) const {
        int i = 0;
        while (i + NearChunk::pixels <= count && chunk_matches_(pixels + i)) i += NearChunk::pixels;
        while (i < count && matches_(pixels[i])) ++i;
        return i;
    }

    /// The last of `count` pixels that doesn't match, or -1.
    int last(const Color* pixels, int count) const {
        int end = count;
        while (end >= NearChunk::pixels && chunk_matches_(pixels + end - NearChunk::pixels)) end -= NearChunk::pixels;
        while (end > 0 && matches_(pixels[end - 1])) --end;
        return end - 1;
    }

private:
    NearColor matches_;
    NearChunk chunk_matches_;
};

template <typename Change> void for_each_row(BITMAP* bitmap, Change change) {
    for (int y = 0; y < bitmap->h; ++y) change(pixels_at(bitmap, 0, y), bitmap->w);
}

}  // namespace

Area area_between(int x1, int y1, int x2, int y2) {
    return {std::min(x1, x2), std::min(y1, y2), std::max(x1, x2), std::max(y1, y2)};
}

bool take_cel(OwnedBitmap picture, CelShape shape) {
    OwnedBitmap mask = picture ? copy_bitmap(picture.get()) : nullptr;
    if (!mask) return false;
    replace_bitmap(cel, std::move(picture));
    replace_bitmap(cel_mask, std::move(mask));
    guides.cel_shape = shape;
    return true;
}

OwnedBitmap cut_out(const Area& area, const PixelSet* shape) {
    constexpr Color nearly_transparent = 0xfe00ff;
    OwnedBitmap picture = copy_of_area(area);
    for (int y = 0; picture && y < picture->h; ++y) {
        Color* const pixels = pixels_at(picture.get(), 0, y);
        for (int x = 0; x < picture->w; ++x) {
            const Point real = real_pixel({area.left + x, area.top + y});
            const bool is_taken =
                frame_contains(current_frame, real.x, real.y) && (shape == nullptr || shape->has(real.x, real.y));
            if (!is_taken)
                pixels[x] = transparent_color;
            else if (pixels[x] == transparent_color)
                pixels[x] = nearly_transparent;
        }
    }
    return picture;
}

bool take_area(const Area& area) {
    const bool is_whole = lies_in_frame({area.left, area.top}) && lies_in_frame({area.right, area.bottom});
    if (is_whole) return take_cel(copy_of_area(area));
    return take_cel(cut_out(area, nullptr), CEL_IS_CUT_OFF);
}

void exchange_cel(CelAside& aside) {
    std::swap(cel, aside.bitmap);
    std::swap(cel_mask, aside.mask);
    std::swap(cel_x, aside.x);
    std::swap(cel_y, aside.y);
    std::swap(guides.cel_shape, aside.shape);
}

void free_cel(CelAside& aside) {
    replace_bitmap(aside.bitmap, nullptr);
    replace_bitmap(aside.mask, nullptr);
}

OwnedBitmap copy_of_area(const Area& area) {
    OwnedBitmap copy = make_bitmap(area.width(), area.height(), transparent_color);
    if (!copy) return copy;
    for_each_tile(area, [&](int dx, int dy) {
        blit(current_frame, copy.get(), area.left + dx, area.top + dy, 0, 0, area.width(), area.height());
    });
    return copy;
}

void prepare_cel() {
    blit(cel_mask, cel, 0, 0, 0, 0, cel_mask->w, cel_mask->h);
    if (opt_cel_masking != 0 && guides.cel_shape != CEL_IS_CUT_OUT) mask_cel(cel, mask_color);
    renew_clean_preview();
}

void mask_cel(BITMAP* bitmap, Color color) {
    const NearColor is_near(color, opt_cel_tolerance);
    for_each_row(bitmap, [=](Color* pixels, int width) {
        for (int i = 0; i < width; ++i) pixels[i] = is_near(pixels[i]) ? transparent_color : pixels[i];
    });
}

// Each row is read from both its ends only as far as it can widen the area, so no pixel is read twice.
std::optional<Area> content_area(BITMAP* bitmap, Color background, int tolerance) {
    const Contents contents(background, tolerance);
    Area area{bitmap->w, bitmap->h, -1, -1};
    for (int y = 0; y < bitmap->h; ++y) {
        const Color* const row = pixels_at(bitmap, 0, y);
        const int unknown = area.right < 0 ? bitmap->w : area.left;
        const int left = contents.first(row, unknown);
        const int from = area.right < 0 ? left : area.right + 1;
        const int right = from + contents.last(row + from, bitmap->w - from);
        const bool between = area.right >= 0 && left == unknown && right < from &&
                             contents.first(row + area.left, area.width()) < area.width();
        if (left == unknown && right < from && !between) continue;
        area = {std::min(area.left, left), std::min(area.top, y), std::max(area.right, right), y};
    }
    if (area.right < 0) return std::nullopt;
    return area;
}

void one_color_cel(Color background) {
    const NearColor stays(background, opt_cel_tolerance + 1);
    for_each_row(cel_mask, [stays, color = brush_color](Color* pixels, int width) {
        for (int i = 0; i < width; ++i) pixels[i] = stays(pixels[i]) || is_no_pixel(pixels[i]) ? pixels[i] : color;
    });
}

}  // namespace nubo
