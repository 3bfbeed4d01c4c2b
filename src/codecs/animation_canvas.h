#pragma once
// The canvas on which the images of an animation come to lie, each in its place and over what the ones before it left.
#include "base/bitmap.h"
#include <string>

namespace nubo {

/// What is done with an image's place before the next image comes.
enum ImageDisposal : int { IMAGE_STAYS, IMAGE_TO_CLEAR, IMAGE_TO_BEFORE };

/// The place of an image, inside the canvas; it may be empty.
struct ImagePlace {
    int x = 0, y = 0, w = 0, h = 0;
};

class AnimationCanvas {
public:
    /// Clear at first. False, with the cause, when it can't be had: `bytes` is the length of the file that asks for it.
    bool make(int width, int height, std::size_t bytes, std::string& cause);

    /// Does away with the image before as that one has told. False without the memory for what this one's `disposal`
    /// brings back.
    bool begin_image(const ImagePlace& place, ImageDisposal disposal);

    /// 32 bits, the alpha in the top byte.
    BITMAP* bitmap() const { return bitmap_.get(); }

private:
    OwnedBitmap bitmap_, before_;
    ImagePlace place_{};  // of the image before
    ImageDisposal disposal_ = IMAGE_STAYS;
};

inline constexpr Color whole_alpha = 0xff000000;  // of a canvas's pixel

}  // namespace nubo
