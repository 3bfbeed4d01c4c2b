// Reading an APNG: each image is inflated like a picture, laid on the canvas, and the canvas is handed over.
#include "base/color.h"
#include "codecs/animation_canvas.h"
#include "codecs/apng.h"
#include "codecs/byte_view.h"
#include "codecs/png_chunks.h"

#include <algorithm>

namespace nubo {
namespace {

constexpr const char* out_of_order = "its images are out of order";
constexpr FrameTime time_of_none{10, 100};

/// What stands before an image.
struct ImageControl {
    ImagePlace place{};
    FrameTime time = time_of_none;
    ImageDisposal disposal = IMAGE_STAYS;
    PngBlend blend = PNG_REPLACES;
};

// ---- Laying one image over what is there ---------------------------------------------------------------------------

Color alpha_of(Color pixel) { return pixel >> 24; }

/// Both colours by the alpha that each has in what is seen, the upper one first.
Color over(Color upper, Color lower) {
    constexpr Color whole = 255;
    if (alpha_of(upper) == whole || alpha_of(lower) == 0) return upper;
    if (alpha_of(upper) == 0) return lower;
    const Color of_upper = alpha_of(upper) * whole, of_lower = (whole - alpha_of(upper)) * alpha_of(lower),
                sum = of_upper + of_lower;
    const auto mix = [&](int a, int b) {
        return static_cast<int>((static_cast<Color>(a) * of_upper + static_cast<Color>(b) * of_lower) / sum);
    };
    return sum / whole << 24 | pack_color(mix(red_of(upper), red_of(lower)), mix(green_of(upper), green_of(lower)),
                                          mix(blue_of(upper), blue_of(lower)));
}

/// `always` stands in for the alpha of a file that has none.
void lay_image(BITMAP* image, const ImageControl& control, Color always, BITMAP* canvas) {
    for (int y = 0; y < image->h; ++y) {
        const Color* const from = pixels_at(image, 0, y);
        Color* const to = pixels_at(canvas, control.place.x, control.place.y + y);
        for (int x = 0; x < image->w; ++x) {
            const Color pixel = from[x] | always;
            to[x] = control.blend == PNG_LIES_OVER ? over(pixel, to[x]) : pixel;
        }
    }
}

// ---- Chunks --------------------------------------------------------------------------------------------------------

ImageDisposal disposal_of(std::uint32_t byte) {
    if (byte == PNG_TO_CLEAR) return IMAGE_TO_CLEAR;
    return byte == PNG_TO_BEFORE ? IMAGE_TO_BEFORE : IMAGE_STAYS;
}

FrameTime time_of(std::uint32_t numerator, std::uint32_t denominator) {
    constexpr std::uint32_t hundredths = 100;
    return numerator == 0 ? time_of_none : FrameTime{numerator, denominator == 0 ? hundredths : denominator};
}

class PngAnimation {
public:
    PngAnimation(FileBytes bytes, PACKFILE* file, const TakePicture& take)
        : png_{.file = file, .is_plain = true}, size_(bytes.size()), take_(take) {}

    ReadAnimation read() {
        if (!read_png_start(png_)) return {.cause = png_error};
        const PngHeader& header = png_.header;
        if (!canvas_.make(header.width, header.height, size_, found_.cause)) return std::move(found_);
        found_.width = header.width;
        found_.height = header.height;
        bool is_sound = true;
        while (is_sound) {
            const std::optional<PngChunkStart> chunk = read_png_chunk_start(png_.file);
            if (!chunk || chunk->type == png_chunk_end) break;
            is_sound = take_chunk(*chunk);
        }
        if (is_sound) is_sound = finish_image();
        if (!is_sound && found_.cause.empty()) found_.cause = png_error;
        const auto pictures = static_cast<std::uint32_t>(found_.pictures);
        if (found_.cause.empty() && pictures < std::max(png_.images, 1U)) found_.cause = "it ends early";
        found_.plays = png_.is_animated ? png_.plays : 1;
        return std::move(found_);
    }

private:
    bool fail(const char* cause) { return found_.cause = cause, false; }

    bool take_chunk(const PngChunkStart& chunk) {
        if (chunk.type == png_chunk_frame) return finish_image() && begin_image(chunk);
        if (chunk.type == png_chunk_pixels) return take_pixels(chunk);
        if (chunk.type == png_chunk_frame_pixels) return take_frame_pixels(chunk);
        return read_png_chunk(png_, chunk);
    }

    /// The chunks of all images are numbered together.
    bool is_next(std::uint32_t number) { return number == sequence_++ || fail(out_of_order); }

    bool begin_image(const PngChunkStart& chunk) {
        std::array<std::uint8_t, png_frame_length> bytes{};
        if (chunk.length != png_frame_length) return fail(out_of_order);
        if (pack_fread(bytes.data(), png_frame_length, png_.file) != png_frame_length)
            return png_fail("Cannot read image data!");
        const ByteView view(bytes);
        const std::uint64_t w = view.big_32(4), h = view.big_32(8), x = view.big_32(12), y = view.big_32(16);
        const auto width = static_cast<std::uint64_t>(found_.width), height = static_cast<std::uint64_t>(found_.height);
        if (w == 0 || h == 0 || x + w > width || y + h > height) return fail("an image lies beyond the picture");
        const auto side = [](std::uint64_t pixels) { return static_cast<int>(pixels); };
        control_ = {{side(x), side(y), side(w), side(h)},
                    time_of(view.big_16(20), view.big_16(22)),
                    disposal_of(view.byte(24)),
                    view.byte(25) == PNG_LIES_OVER ? PNG_LIES_OVER : PNG_REPLACES};
        // Before the first there is nothing.
        if (sequence_ == 0 && control_.disposal == IMAGE_TO_BEFORE) control_.disposal = IMAGE_TO_CLEAR;
        is_open_ = true;
        return is_next(view.big_32(0)) && skip_png_chunk(png_.file, {0, chunk.type});
    }

    /// The picture's own data is the first image, or none of the animation if no control stood before it.
    bool take_pixels(const PngChunkStart& chunk) {
        if (!png_.is_animated && !is_open_) {
            control_ = {{0, 0, found_.width, found_.height}};
            is_open_ = true;
        }
        if (!is_open_ || !wanted_) return skip_png_chunk(png_.file, chunk);
        if (control_.place.w != found_.width || control_.place.h != found_.height) return fail(out_of_order);
        return read_png_data(png_.file, chunk.length, data_);
    }

    bool take_frame_pixels(const PngChunkStart& chunk) {
        constexpr std::uint32_t number_bytes = 4;
        if (!is_open_ || chunk.length < number_bytes) return fail(out_of_order);
        const std::optional<std::uint32_t> number = read_png_word(png_.file);
        if (!number || !is_next(*number)) return false;
        const std::uint32_t left = chunk.length - number_bytes;
        return wanted_ ? read_png_data(png_.file, left, data_) : skip_png_chunk(png_.file, {left, chunk.type});
    }

    OwnedBitmap inflate() {
        if (png_.header.color_type == PNG_PALETTE && !png_.has_palette)
            return png_fail("Palette required but not found!"), nullptr;
        PngHeader header = png_.header;
        header.width = control_.place.w;
        header.height = control_.place.h;
        header.row_bytes = png_row_bytes(header);
        OwnedBitmap image = inflate_png_image(header, data_, nullptr);
        if (image && header.color_type == PNG_PALETTE) image = png_colors_of_indexes(png_, image.get());
        return image;
    }

    /// Lays the image whose data has come, and hands the picture over.
    bool finish_image() {
        if (!std::exchange(is_open_, false)) return true;
        if (wanted_) {
            const OwnedBitmap image = inflate();
            data_ = GrowingBytes{};
            if (!image) return false;
            if (!canvas_.begin_image(control_.place, control_.disposal)) return fail("there isn't memory enough");
            const bool tells_alpha = png_.header.color_type == PNG_PALETTE || png_tells_alpha(png_);
            lay_image(image.get(), control_, tells_alpha ? 0 : whole_alpha, canvas_.bitmap());
            wanted_ = take_(canvas_.bitmap(), control_.time);
        }
        ++found_.pictures;
        return true;
    }

    PngFile png_;
    std::size_t size_;
    const TakePicture& take_;
    AnimationCanvas canvas_;
    ReadAnimation found_;
    ImageControl control_;
    GrowingBytes data_;           // of the image that is open
    bool is_open_ = false;        // its control has come, its data is coming
    std::uint32_t sequence_ = 0;  // of the next chunk
    bool wanted_ = true;
};

}  // namespace

ReadAnimation read_apng(FileBytes bytes, const TakePicture& take) {
    PACKFILE* const file = open_for_reading(bytes);
    if (file == nullptr) return {.cause = "there isn't memory enough"};
    ReadAnimation found = PngAnimation(bytes, file, take).read();
    pack_fclose(file);
    return found;
}

}  // namespace nubo
