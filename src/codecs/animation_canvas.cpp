#include "codecs/animation_canvas.h"

#include "codecs/read_picture.h"

#include <algorithm>

namespace nubo {

bool AnimationCanvas::make(int width, int height, std::size_t bytes, std::string& cause) {
    constexpr std::size_t pixels_of_a_byte = 4096;  // neither format packs them more tightly
    const auto w = static_cast<std::uint64_t>(width), h = static_cast<std::uint64_t>(height);
    if (!can_fill(w, h, bytes, pixels_of_a_byte)) return cause = "its size is out of range", false;
    bitmap_ = bitmap_to_fill(w, h, cause);
    if (!bitmap_) return false;
    clear_to_color(bitmap_.get(), 0);
    return true;
}

bool AnimationCanvas::begin_image(const ImagePlace& place, ImageDisposal disposal) {
    constexpr int corner = 1;  // Allegro's rectangles name their last pixel
    if (disposal_ == IMAGE_TO_CLEAR && place_.w > 0 && place_.h > 0)
        rectfill(bitmap_.get(), place_.x, place_.y, place_.x + place_.w - corner, place_.y + place_.h - corner, 0);
    if (disposal_ == IMAGE_TO_BEFORE && before_)
        blit(before_.get(), bitmap_.get(), 0, 0, place_.x, place_.y, place_.w, place_.h);
    before_.reset();
    place_ = place;
    disposal_ = disposal;
    if (disposal != IMAGE_TO_BEFORE || place.w < 1 || place.h < 1) return true;
    before_ = make_uncleared_bitmap(place.w, place.h);
    if (!before_) return false;
    blit(bitmap_.get(), before_.get(), place.x, place.y, 0, 0, place.w, place.h);
    return true;
}

}  // namespace nubo
