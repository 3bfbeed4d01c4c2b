#include "paint/image_patch.h"

#include "paint/surfaces.h"
#include <cstdlib>

namespace nubo {

void ImagePatch::take(const ImageMap& map, Point start, int length, int reach) {
    map_ = map;
    start_ = start;
    length_ = length;
    const Point corner{start.x - reach, start.y - reach};
    for (int row = 0; row <= 2 * reach; ++row) {
        const auto i = static_cast<std::size_t>(row);
        frame_lines_[i] = reinterpret_cast<unsigned char*>(frame_[i].data());
        mask_lines_[i] = reinterpret_cast<unsigned char*>(mask_[i].data());
        before_lines_[i] = reinterpret_cast<unsigned char*>(before_[i].data());
        take_row(row, length, reach);
    }
    constexpr int far = 1 << 28;
    Area frame{0, 0, current_frame->w - 1, current_frame->h - 1};
    if (tiles_across()) frame.left = -far, frame.right = far;
    if (tiles_down()) frame.top = -far, frame.bottom = far;
    canvas_ = {frame_lines_.data(), mask_lines_.data(), before_lines_.data(), corner, map.sources_of(frame)};
}

/// The snapshot as far as an ink looks, the Frame as far as the mean of the neighbours needs it, the coverage of the
/// row itself.
void ImagePatch::take_row(int row, int length, int reach) {
    const auto line = static_cast<std::size_t>(row);
    const int distance = std::abs(row - reach);
    Point place = map_({start_.x - reach, start_.y - reach + row});
    for (std::size_t i = 0; i < static_cast<std::size_t>(length + 2 * reach); ++i) {
        const Point real = frame_contains(current_frame, place.x, place.y) ? place : real_pixel(place);
        if (frame_contains(current_frame, real.x, real.y)) {
            before_[line][i] = *pixels_at(stroke_snapshot(), real.x, real.y);
            if (distance <= 1) frame_[line][i] = *pixels_at(current_frame, real.x, real.y);
            if (distance == 0) mask_[line][i] = *pixels_at(stroke_mask, real.x, real.y);
        }
        place.x += map_.xx, place.y += map_.yx;
    }
}

void ImagePatch::put() const {
    Point place = real_pixel(map_(start_));
    const Color *painted = canvas_.frame(start_.x, start_.y), *covered = canvas_.mask(start_.x, start_.y);
    if (map_.keeps_rows()) note_painted(map_.xx > 0 ? place.x : place.x - length_ + 1, place.y, length_);
    for (int i = 0; i < length_; ++i) {
        if (!map_.keeps_rows()) note_painted(place.x, place.y, 1);
        *pixels_at(current_frame, place.x, place.y) = painted[i];
        *pixels_at(stroke_mask, place.x, place.y) = covered[i];
        place.x += map_.xx, place.y += map_.yx;
    }
}

}  // namespace nubo
