// Reading an animated GIF: each image is laid on the canvas, and the canvas is handed over.
#include "codecs/animation_canvas.h"
#include "codecs/gif_animation.h"
#include "codecs/gif_blocks.h"
#include "platform/memory_packfile.h"

#include <algorithm>

namespace nubo {
namespace {

constexpr const char* no_gif = "it is no GIF file, or is damaged";
constexpr const char* no_memory = "there isn't memory enough";

ImageDisposal disposal_of(const GifFile& gif) {
    if (gif.disposal == GIF_TO_CLEAR) return IMAGE_TO_CLEAR;
    return gif.disposal == GIF_TO_BEFORE ? IMAGE_TO_BEFORE : IMAGE_STAYS;
}

/// Viewers all agree that what has no time, or one too short to have been meant, stands for a tenth of a second.
FrameTime time_of(const GifFile& gif) {
    constexpr int shortest = 2, tenth = 10;
    return {gif.delay < shortest ? tenth : gif.delay, 100};
}

void lay_image(const GifFile& gif, BITMAP* indexed, BITMAP* canvas) {
    for (int y = 0; y < indexed->h; ++y) {
        Color* const pixels = pixels_at(canvas, gif.left, gif.top + y);
        for (int x = 0; x < indexed->w; ++x)
            if (const std::uint8_t index = indexed->line[y][x]; index != gif.transparent)
                pixels[x] = gif.colors[index] | whole_alpha;
    }
}

/// What stands before an image holds for it alone.
void forget_control(GifFile& gif) {
    gif.transparent = gif_no_transparency;
    gif.disposal = GIF_STAYS_BY_ITSELF;
    gif.delay = 0;
}

class GifAnimation {
public:
    GifAnimation(FileBytes bytes, PACKFILE* file, const TakePicture& take)
        : gif_{.file = file, .is_plain = true}, size_(bytes.size()), take_(take) {}

    ReadAnimation read() {
        if (!read_gif_start(gif_)) return {.cause = no_gif};
        const auto file_colors = gif_.colors;
        bool wanted = true;
        for (; find_gif_image(gif_); forget_control(gif_)) {
            gif_.colors = file_colors;
            if (wanted ? !read_image(wanted) : !skip_gif_image(gif_.file)) break;
            ++found_.pictures;
        }
        if (found_.pictures == 0 && found_.cause.empty()) found_.cause = no_gif;
        // A count of the rounds that follow the first; without it there is one round.
        found_.plays = !gif_.has_loop ? 1 : gif_.loops == 0 ? 0 : static_cast<std::uint32_t>(gif_.loops) + 1;
        return std::move(found_);
    }

private:
    bool fail(const char* cause) { return found_.cause = cause, false; }

    /// The screen, or the first image where that has no size.
    bool make_canvas() {
        if (gif_.screen_width == 0) gif_.screen_width = gif_.left + gif_.width;
        if (gif_.screen_height == 0) gif_.screen_height = gif_.top + gif_.height;
        gif_.shown_w = std::min(gif_.width, gif_.screen_width - gif_.left);
        gif_.shown_h = std::min(gif_.height, gif_.screen_height - gif_.top);
        if (!canvas_.make(gif_.screen_width, gif_.screen_height, size_, found_.cause)) return false;
        found_.width = gif_.screen_width;
        found_.height = gif_.screen_height;
        return true;
    }

    bool read_image(bool& wanted) {
        if (!read_gif_descriptor(gif_)) return fail(no_gif);
        if (canvas_.bitmap() == nullptr && !make_canvas()) return false;
        const bool shows = gif_.shown_w > 0 && gif_.shown_h > 0;
        const ImagePlace place = shows ? ImagePlace{gif_.left, gif_.top, gif_.shown_w, gif_.shown_h} : ImagePlace{};
        const OwnedBitmap indexed = shows ? read_gif_pixels(gif_) : nullptr;
        if (shows ? !indexed : !skip_gif_pixels(gif_.file)) return fail(no_gif);
        if (!canvas_.begin_image(place, disposal_of(gif_))) return fail(no_memory);
        if (indexed) lay_image(gif_, indexed.get(), canvas_.bitmap());
        wanted = take_(canvas_.bitmap(), time_of(gif_));
        return true;
    }

    GifFile gif_;
    std::size_t size_;
    const TakePicture& take_;
    AnimationCanvas canvas_;
    ReadAnimation found_;
};

}  // namespace

ReadAnimation read_gif_animation(FileBytes bytes, const TakePicture& take) {
    PACKFILE* const file = open_for_reading(bytes);
    if (file == nullptr) return {.cause = no_memory};
    ReadAnimation found = GifAnimation(bytes, file, take).read();
    pack_fclose(file);
    return found;
}

}  // namespace nubo
