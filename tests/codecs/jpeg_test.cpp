// JPEG, against files of other programs and pictures that libjpeg makes here of blocks of one colour each, which come
// through with next to no loss.
#include "codecs/jpeg.h"

#include "codecs/jpeg_error.h"
#include "picture_files.h"
#include "windows/files/picture_formats.h"

namespace nubo {
namespace {

constexpr int width = 40, height = 24, block = 8, blocks_in_a_row = 5;

/// Component i of the block at (x, y), as in tests/files/jpeg_*.
int component(int x, int y, int i) {
    const int k = x / block + y / block * blocks_in_a_row;
    return std::array{k * 37, k * 91 + 50, k * 151 + 9, k * 70 + 40}[static_cast<std::size_t>(i)] % 256;
}

void expect_near(const ReadPicture& picture, const char* name, int (*wanted)(int x, int y, int channel)) {
    ASSERT_TRUE(picture.bitmap) << name << ": " << picture.cause;
    EXPECT_EQ(picture.cause, "") << name;
    ASSERT_TRUE(picture.bitmap->w == width && picture.bitmap->h == height);
    for (int y = 0; y < height; ++y)
        for (int x = 0; x < width; ++x) {
            const Color color = *pixels_at(picture.bitmap.get(), x, y);
            const std::array channels{red_of(color), green_of(color), blue_of(color)};
            for (int i = 0; i < 3; ++i)
                ASSERT_NEAR(channels[static_cast<std::size_t>(i)], wanted(x, y, i), 3)
                    << name << ", " << x << ", " << y;
            ASSERT_EQ(color >> 24, 0U);
        }
}

int red_of_block(int x, int y, int) { return component(x, y, 0); }
/// What four inks leave of white; stored the wrong way round.
int left_by_inks(int x, int y, int channel) { return component(x, y, channel) * component(x, y, 3) / 255; }

/// `components` a pixel by libjpeg at full quality.
Bytes encoded(int components, J_COLOR_SPACE from, J_COLOR_SPACE to) {
    jpeg_compress_struct jpeg{};
    jpeg_error_mgr error;
    unsigned char* memory = nullptr;
    unsigned long size = 0;
    jpeg.err = jpeg_std_error(&error);
    jpeg_create_compress(&jpeg);
    jpeg_mem_dest(&jpeg, &memory, &size);
    jpeg.image_width = width, jpeg.image_height = height;
    jpeg.input_components = components;
    jpeg.in_color_space = from;
    jpeg_set_defaults(&jpeg);
    jpeg_set_colorspace(&jpeg, to);
    for (int i = 0; i < jpeg.num_components; ++i)  // colours as fine as light
        jpeg.comp_info[i].h_samp_factor = jpeg.comp_info[i].v_samp_factor = 1;
    jpeg_set_quality(&jpeg, 100, TRUE);
    jpeg_start_compress(&jpeg, TRUE);
    for (int y = 0; y < height; ++y) {
        Bytes row;
        for (int x = 0; x < width; ++x)
            for (int i = 0; i < components; ++i) row.push_back(static_cast<std::uint8_t>(component(x, y, i)));
        JSAMPROW rows[] = {row.data()};
        jpeg_write_scanlines(&jpeg, rows, 1);
    }
    jpeg_finish_compress(&jpeg);
    jpeg_destroy_compress(&jpeg);
    const Bytes bytes(memory, memory + size);
    std::free(memory);
    return bytes;
}

TEST(Jpeg, ReadsEveryFormOfColour) {
    expect_near(read_jpeg(test_file("jpeg_progressive.jpg")), "progressive, by cjpeg", component);
    expect_near(read_jpeg(test_file("jpeg_cmyk.jpg")), "CMYK, by ImageMagick", component);
    expect_near(read_jpeg(encoded(1, JCS_GRAYSCALE, JCS_GRAYSCALE)), "gray", red_of_block);
    expect_near(read_jpeg(encoded(4, JCS_CMYK, JCS_CMYK)), "CMYK", left_by_inks);
    expect_near(read_jpeg(encoded(4, JCS_CMYK, JCS_YCCK)), "YCCK", left_by_inks);
}

OwnedBitmap blocks() {
    OwnedBitmap bitmap = make_bitmap(width, height);
    for (int y = 0; y < height; ++y)
        for (int x = 0; x < width; ++x)
            *pixels_at(bitmap.get(), x, y) = pack_color(component(x, y, 0), component(x, y, 1), component(x, y, 2));
    return bitmap;
}

TEST(Jpeg, WritesWhatItReadsBackAndFilesThatKeepTheOldOne) {
    const OwnedBitmap bitmap = blocks();
    Bytes good, poor;
    ASSERT_TRUE(write_jpeg(bitmap.get(), 100, good) && write_jpeg(bitmap.get(), 0, poor));
    EXPECT_LT(poor.size(), good.size());
    const ReadPicture back = read_jpeg(good);
    ASSERT_TRUE(back.bitmap);
    for (int i = 0; i < 3; ++i)  // the colours of neighbours are shared by fours: only the middle of the first is whole
        EXPECT_NEAR(*pixels_at(back.bitmap.get(), 2, 2) >> (16 - 8 * i) & 0xff, component(2, 2, i), 4);

    const ScratchFolder folder;
    UA_log_open();
    ASSERT_TRUE(save_jpeg("a.jpg", bitmap.get(), 100));
    EXPECT_FALSE(save_jpeg("missing/a.jpg", bitmap.get(), 90));
    const OwnedBitmap wide = make_bitmap(65501, 1);
    EXPECT_FALSE(save_jpeg("a.jpg", wide.get(), 90)) << "the format's sides end at 65,500";
    const ReadPicture loaded = load_jpeg("a.jpg");
    ASSERT_TRUE(loaded.bitmap);
    EXPECT_TRUE(same_pixels(loaded.bitmap.get(), back.bitmap.get()));
    testing::internal::CaptureStderr();
    EXPECT_FALSE(load_jpeg("missing.jpg").bitmap);
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "can't open missing.jpg\n");
    EXPECT_NE(log_text().find("[ ERROR ] : Couldn't open new or existing JPG for saving!"), std::string::npos);
    UA_log_close();
}

TEST(Jpeg, GivesWhatThereIsOfACutFile) {
    const Bytes bytes = encoded(1, JCS_GRAYSCALE, JCS_GRAYSCALE);
    const ReadPicture whole = read_jpeg(bytes);
    const ReadPicture cut = read_jpeg(FileBytes(bytes).first(bytes.size() - 8));
    ASSERT_TRUE(whole.bitmap && cut.bitmap);
    EXPECT_FALSE(cut.cause.empty());
    EXPECT_EQ(*pixels_at(cut.bitmap.get(), 3, 3), *pixels_at(whole.bitmap.get(), 3, 3));
}

TEST(Jpeg, RefusesMoreThan500Scans) {
    const Bytes bytes = test_file("jpeg_progressive.jpg");
    std::size_t last_scan = bytes.size() - 2;  // that from its mark to the end's
    while (bytes[last_scan] != 0xff || bytes[last_scan + 1] != 0xda) --last_scan;
    const Bytes scan(bytes.begin() + static_cast<long>(last_scan), bytes.end() - 2);
    Bytes many(bytes.begin(), bytes.end() - 2);
    for (int i = 0; i < 600; ++i) append(many, scan);
    append(many, {0xff, 0xd9});
    const ReadPicture picture = read_jpeg(many);
    EXPECT_FALSE(picture.bitmap);
    EXPECT_EQ(picture.cause, "it has too many scans");
}

}  // namespace
}  // namespace nubo
