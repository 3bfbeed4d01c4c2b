// Reading a JPEG.
#include "codecs/jpeg.h"
#include "codecs/jpeg_error.h"
#include "codecs/rgb_rows.h"

#include <algorithm>
#include <vector>

namespace nubo {
namespace {

constexpr int scans_max = 500;                   // each of a progressive file's scans goes over the whole picture
constexpr std::size_t pixels_of_a_byte = 4'096;  // far above what any picture's bytes stand for

struct JpegReader {
    ~JpegReader() { jpeg_destroy_decompress(&jpeg); }  // which does nothing to one that wasn't made

    jpeg_decompress_struct jpeg{};
    JpegError error{};
    jpeg_progress_mgr progress{};
};

/// Called by libjpeg now and then.
void stop_at_many_scans(j_common_ptr jpeg) {
    if (reinterpret_cast<j_decompress_ptr>(jpeg)->input_scan_number > scans_max)
        fail_jpeg(jpeg, "it has too many scans");
}

/// The head. False when it is no JPEG's. No destructor runs here: libjpeg may jump.
bool read_head(JpegReader& reader, const std::uint8_t* bytes, unsigned long size) {
    jpeg_decompress_struct& jpeg = reader.jpeg;
    jpeg.err = use_jpeg_error(reader.error);
    if (setjmp(reader.error.way_out) != 0) return false;
    jpeg_create_decompress(&jpeg);
    reader.progress.progress_monitor = stop_at_many_scans;
    jpeg.progress = &reader.progress;
    jpeg_mem_src(&jpeg, bytes, size);
    jpeg_read_header(&jpeg, TRUE);
    const bool has_inks = jpeg.jpeg_color_space == JCS_CMYK || jpeg.jpeg_color_space == JCS_YCCK;
    jpeg.out_color_space = has_inks ? JCS_CMYK : JCS_RGB;
    return true;
}

/// Four inks, stored the wrong way round as all programs do: 0 is all ink, 255 none.
void mix_inks(const JSAMPLE* from, Color* to, int width) {
    constexpr Color full = 255;
    for (int x = 0; x < width; ++x, from += 4) {
        const auto mixed = [&](Color ink) { return (ink * from[3] + full / 2) / full; };
        to[x] = mixed(from[0]) << 16 | mixed(from[1]) << 8 | mixed(from[2]);
    }
}

/// The rows, into a bitmap of the picture's size. False when libjpeg gave up; `output_scanline` rows are there then. No
/// destructor runs here either.
bool read_rows(JpegReader& reader, BITMAP* bitmap) {
    jpeg_decompress_struct& jpeg = reader.jpeg;
    if (setjmp(reader.error.way_out) != 0) return false;
    jpeg_start_decompress(&jpeg);
    JSAMPARRAY const row =
        jpeg.mem->alloc_sarray(reinterpret_cast<j_common_ptr>(&jpeg), JPOOL_IMAGE,
                               jpeg.output_width * static_cast<JDIMENSION>(jpeg.output_components), 1);
    while (jpeg.output_scanline < jpeg.output_height) {
        Color* const to = pixels_at(bitmap, 0, static_cast<int>(jpeg.output_scanline));
        jpeg_read_scanlines(&jpeg, row, 1);
        if (jpeg.out_color_space == JCS_CMYK)
            mix_inks(row[0], to, bitmap->w);
        else
            unpack_row(row[0], to, bitmap->w, BYTES_RGB);
    }
    jpeg_finish_decompress(&jpeg);
    return true;
}

}  // namespace

ReadPicture read_jpeg(FileBytes bytes) {
    JpegReader reader;
    if (!read_head(reader, bytes.data(), bytes.size())) return {nullptr, reader.error.text};
    const JDIMENSION width = reader.jpeg.image_width, height = reader.jpeg.image_height;
    if (!can_fill(width, height, bytes.size(), pixels_of_a_byte)) return {nullptr, "it is cut short"};
    ReadPicture picture;
    picture.bitmap = bitmap_to_fill(width, height, picture.cause);
    if (!picture.bitmap) return picture;
    const bool read = read_rows(reader, picture.bitmap.get());
    if (!read || reader.error.manager.num_warnings > 0) picture.cause = reader.error.text;
    const int rows = read ? picture.bitmap->h : static_cast<int>(reader.jpeg.output_scanline);
    if (rows == 0) picture.bitmap.reset();
    for (int y = rows; picture.bitmap && y < picture.bitmap->h; ++y)
        std::fill_n(pixels_at(picture.bitmap.get(), 0, y), picture.bitmap->w, Color{0});
    return picture;
}

}  // namespace nubo
