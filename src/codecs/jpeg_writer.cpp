// Writing a JPEG.
#include "base/log.h"
#include "codecs/growing_bytes.h"
#include "codecs/jpeg.h"
#include "codecs/jpeg_error.h"
#include "codecs/rgb_rows.h"

#include <array>

namespace nubo {
namespace {

struct JpegWriter {
    ~JpegWriter() { jpeg_destroy_compress(&jpeg); }  // which does nothing to one that wasn't made

    jpeg_compress_struct jpeg{};
    JpegError error{};
    jpeg_destination_mgr destination{};
    std::array<JOCTET, 1 << 16> piece{};  // libjpeg's buffer
    GrowingBytes bytes;                   // what was in it before
};

JpegWriter& writer_of(j_compress_ptr jpeg) { return *static_cast<JpegWriter*>(jpeg->client_data); }

void start_piece(j_compress_ptr jpeg) {
    JpegWriter& writer = writer_of(jpeg);
    writer.destination.next_output_byte = writer.piece.data();
    writer.destination.free_in_buffer = writer.piece.size();
}

void keep_bytes(j_compress_ptr jpeg, std::size_t count) {
    JpegWriter& writer = writer_of(jpeg);
    if (!writer.bytes.make_room(count)) fail_jpeg(reinterpret_cast<j_common_ptr>(jpeg), "there isn't memory enough");
    std::copy_n(writer.piece.data(), count, writer.bytes.end());
    writer.bytes.advance(count);
}

boolean end_piece(j_compress_ptr jpeg) {
    keep_bytes(jpeg, writer_of(jpeg).piece.size());
    start_piece(jpeg);
    return TRUE;
}

void end_last_piece(j_compress_ptr jpeg) {
    keep_bytes(jpeg, writer_of(jpeg).piece.size() - writer_of(jpeg).destination.free_in_buffer);
}

/// False when libjpeg gave up. No destructor runs here: libjpeg may jump.
bool write_rows(JpegWriter& writer, BITMAP* bitmap, int quality) {
    jpeg_compress_struct& jpeg = writer.jpeg;
    jpeg.err = use_jpeg_error(writer.error);
    if (setjmp(writer.error.way_out) != 0) return false;
    jpeg_create_compress(&jpeg);
    jpeg.client_data = &writer;
    writer.destination.init_destination = start_piece;
    writer.destination.empty_output_buffer = end_piece;
    writer.destination.term_destination = end_last_piece;
    jpeg.dest = &writer.destination;
    jpeg.image_width = static_cast<JDIMENSION>(bitmap->w);
    jpeg.image_height = static_cast<JDIMENSION>(bitmap->h);
    jpeg.input_components = 3;
    jpeg.in_color_space = JCS_RGB;
    jpeg_set_defaults(&jpeg);
    jpeg_set_quality(&jpeg, quality, TRUE);
    jpeg_start_compress(&jpeg, TRUE);
    JSAMPARRAY const row =
        jpeg.mem->alloc_sarray(reinterpret_cast<j_common_ptr>(&jpeg), JPOOL_IMAGE, jpeg.image_width * 3, 1);
    for (int y = 0; y < bitmap->h; ++y) {
        pack_row(pixels_at(bitmap, 0, y), row[0], bitmap->w, BYTES_RGB);
        jpeg_write_scanlines(&jpeg, row, 1);
    }
    jpeg_finish_compress(&jpeg);
    return true;
}

}  // namespace

bool write_jpeg(BITMAP* bitmap, int quality, Bytes& bytes) {
    const auto writer = std::make_unique<JpegWriter>();
    if (!write_rows(*writer, bitmap, quality)) {
        UA_log("[ ERROR ] : A JPEG can't be made of the picture: %s", writer->error.text);
        return false;
    }
    bytes.insert(bytes.end(), writer->bytes.data(), writer->bytes.end());
    return true;
}

}  // namespace nubo
