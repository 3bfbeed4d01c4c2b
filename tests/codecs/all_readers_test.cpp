// What is asked of every reader of pictures alike: files of other programs, cut anywhere and with each bit flipped, and
// what of a file is lost.
#include "codecs/alpha.h"
#include "codecs/bmp_file.h"
#include "codecs/gif.h"
#include "codecs/ilbm.h"
#include "codecs/jpeg.h"
#include "codecs/pcx.h"
#include "codecs/png.h"
#include "picture_files.h"

namespace nubo {
namespace {

struct FileCase {
    const char* name;
    ReadPicture (*read)(FileBytes);
    std::size_t spare = 0;  // so many bytes at the end may be needed or not
    PictureLoss loss{};
};
constexpr std::size_t png_spare = 22;       // the checksums of the data and its chunk, the end, a code before them
constexpr std::size_t large_palette = 771;  // of a PCX, and the end of a last run
constexpr PictureLoss alpha{.alpha = true}, wide{.sample_bits = 16}, both{.alpha = true, .sample_bits = 16};

constexpr FileCase files[] = {
    {"png_palette4_i.png", read_png, png_spare},
    {"png_rgb8_n.png", read_png, png_spare},
    {"png_grey2_i.png", read_png, png_spare},
    {"png_rgb16_i.png", read_png, png_spare, wide},
    {"png_rgba8_n.png", read_png, png_spare, alpha},
    {"png_greya16_i.png", read_png, png_spare, both},
    {"png_key.png", read_png, png_spare},  // what is clear or whole is kept
    {"gif_two.gif", read_gif, 6},
    {"gif_several.gif", read_gif, SIZE_MAX, {.images = 2}},
    {"gif_animated.gif", read_gif, SIZE_MAX, {.images = 3}},
    {"gif_magick.gif", read_gif, 6},
    {"bmp_netpbm4.bmp", read_bmp},
    {"bmp_magick_565.bmp", read_bmp},
    {"bmp_magick_rle8.bmp", read_bmp, 4},
    {"bmp_magick_v5_alpha.bmp", read_bmp, 0, alpha},
    {"pcx_planes4.pcx", read_pcx, 2},
    {"pcx_256.pcx", read_pcx, large_palette},
    {"pcx_rawtrue.pcx", read_pcx},
    {"pcx_alpha.pcx", read_pcx, 2, alpha},
    {"ilbm_16.lbm", read_ilbm, 2},
    {"ilbm_raw16.lbm", read_ilbm},
    {"ilbm_ham6.lbm", read_ilbm, 2},
    {"ilbm_true.lbm", read_ilbm, 2},
    {"ilbm_bytes.lbm", read_ilbm, 2},
    {"ilbm_masked.lbm", read_ilbm, 2, alpha},
    {"jpeg_progressive.jpg", read_jpeg, 2},
    {"jpeg_cmyk.jpg", read_jpeg, 2},
};

TEST(AllReaders, GiveTheExactColoursOfPalettes) {
    for (const FileCase& file : {FileCase{"gif_magick.gif", read_gif}, {"png_palette8_n.png", read_png}}) {
        const ReadPicture picture = file.read(test_file(file.name));
        ASSERT_TRUE(picture.bitmap) << file.name;
        for (int k = 0; k < 256; ++k)
            ASSERT_EQ(*pixels_at(picture.bitmap.get(), k % 20, k / 20), table_color(k)) << file.name << ", " << k;
    }
}

TEST(AllReaders, TellWhatIsLost) {
    for (const FileCase& file : files) {
        ReadPicture picture = file.read(test_file(file.name));
        settle_alpha(picture, ALPHA_MASK, 0, 0);
        EXPECT_TRUE(picture.bitmap && picture.cause.empty()) << file.name << ": " << picture.cause;
        EXPECT_EQ(picture.loss.alpha, file.loss.alpha) << file.name;
        EXPECT_EQ(picture.loss.images, file.loss.images) << file.name;
        EXPECT_EQ(picture.loss.sample_bits, file.loss.sample_bits) << file.name;
    }
}

TEST(AllReaders, TellWhatIsMissingOfACutFileAndSurviveFlippedBits) {
    for (const FileCase& file : files) {
        Bytes bytes = test_file(file.name);
        const std::size_t spare = file.spare == SIZE_MAX ? bytes.size() : file.spare;
        for (std::size_t size = 0; size + spare < bytes.size(); size += size < 200 ? 1 : 13)
            EXPECT_FALSE(file.read(FileBytes(bytes).first(size)).cause.empty()) << file.name << ", " << size;
        for (std::size_t bit = 0; bit < 8 * bytes.size(); ++bit) {
            bytes[bit / 8] ^= static_cast<std::uint8_t>(1 << bit % 8);
            const ReadPicture picture = file.read(bytes);
            EXPECT_TRUE(picture.bitmap || !picture.cause.empty()) << file.name << ", " << bit;
            bytes[bit / 8] ^= static_cast<std::uint8_t>(1 << bit % 8);
        }
    }
}

}  // namespace
}  // namespace nubo
