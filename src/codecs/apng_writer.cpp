// Writing an APNG: the first picture as that of the file, the others in chunks of their own.
#include "codecs/apng.h"
#include "codecs/clear_ground.h"
#include "codecs/png_parts.h"

#include <algorithm>

namespace nubo {
namespace {

class ApngWriter {
public:
    ApngWriter(const WrittenAnimation& animation, PACKFILE* file, PngEffort effort)
        : animation_(animation), file_(file), effort_(effort) {}

    bool write() {
        bool is_good = true;
        for (std::size_t i = 0; i < animation_.times.size() && is_good; ++i) is_good = write_picture(i);
        return is_good && write_png_chunk(file_, png_chunk_end, {});
    }

private:
    bool write_start(const PngHeader& header) {
        std::array<std::uint8_t, png_animation_length> control{};
        put_png_word(static_cast<std::uint32_t>(animation_.times.size()), control.data());
        put_png_word(animation_.plays, control.data() + 4);
        return write_png_bytes(file_, png_signature) && write_png_header(file_, header) &&
               write_png_chunk(file_, png_chunk_animation, control);
    }

    /// The place of the whole picture, and how long it stands; disposal and blend are those of 0.
    bool write_control(const PngHeader& header, FrameTime time) {
        std::array<std::uint8_t, png_frame_length> control{};
        const auto put_short = [&](std::int64_t number, std::size_t at) {
            control[at] = static_cast<std::uint8_t>(number >> 8);
            control[at + 1] = static_cast<std::uint8_t>(number);
        };
        put_png_word(sequence_++, control.data());
        put_png_word(static_cast<std::uint32_t>(header.width), control.data() + 4);
        put_png_word(static_cast<std::uint32_t>(header.height), control.data() + 8);
        put_short(time.numerator, 20);
        put_short(time.denominator, 22);
        return write_png_chunk(file_, png_chunk_frame, control);
    }

    bool write_picture(std::size_t number) {
        BITMAP* picture = animation_.picture(static_cast<int>(number));
        const OwnedBitmap cut =
            picture != nullptr && animation_.clear ? with_clear_ground(picture, *animation_.clear) : nullptr;
        if (animation_.clear) picture = cut.get();
        if (picture == nullptr) return png_fail("Cannot allocate memory!");
        const PngHeader header = png_header_of(picture, animation_.clear ? PNG_RGB_ALPHA : PNG_RGB);
        if (number == 0 && !write_start(header)) return false;
        return write_control(header, animation_.times[number]) && write_pixels(picture, header, number == 0);
    }

    bool write_pixels(BITMAP* picture, const PngHeader& header, bool is_first) {
        constexpr std::size_t number_bytes = 4;
        GrowingBytes data;
        if (!data.make_room(number_bytes)) return png_fail("Cannot allocate memory!");
        if (!is_first) {
            put_png_word(sequence_++, data.end());
            data.advance(number_bytes);
        }
        if (!deflate_png_rows(picture, header, effort_, data)) return png_fail("Cannot allocate memory!");
        return write_png_chunk(file_, is_first ? png_chunk_pixels : png_chunk_frame_pixels, {data.data(), data.size()});
    }

    const WrittenAnimation& animation_;
    PACKFILE* file_;
    PngEffort effort_;
    std::uint32_t sequence_ = 0;  // of the next chunk: controls and data are numbered together
};

}  // namespace

bool write_apng(const WrittenAnimation& animation, Bytes& bytes, PngEffort effort) {
    if (animation.times.empty()) return false;
    const std::size_t size_before = bytes.size();
    PACKFILE* const file = open_for_writing(bytes);
    const bool written = file != nullptr && ApngWriter(animation, file, effort).write();
    if (file != nullptr) pack_fclose(file);
    if (!written) bytes.resize(size_before);
    return written;
}

}  // namespace nubo
