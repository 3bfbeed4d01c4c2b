// PNG reading, against files that other encoders made of patterns that the tests work out, and writing.
#include "codecs/png.h"

#include "codecs/alpha.h"
#include "codecs/clear_ground.h"
#include "codecs/png_format.h"
#include "codecs/png_paeth.h"
#include "picture_files.h"
#include <zlib.h>

namespace nubo {
namespace {

// ---- The patterns of tests/files/png_* -----------------------------------------------------------------------------

constexpr int file_width = 13, file_height = 11;

/// The sample that the file holds, of `bits`; of 16 bits a reader sees the high byte.
int grey_sample(int x, int y, int bits) { return (x * 7 + y * 13) * 31 % (1 << bits); }
int color_sample(int x, int y, int c, int bits) {
    return (x * (5 + 2 * c) + y * (11 + 4 * c) + c * 17) * 37 % (1 << bits);
}

int to_eight_bits(int sample, int bits) { return bits == 16 ? sample >> 8 : sample * 255 / ((1 << bits) - 1); }

int grey_at(int x, int y, int bits) { return to_eight_bits(grey_sample(x, y, bits), bits); }
int color_at(int x, int y, int c, int bits) { return to_eight_bits(color_sample(x, y, c, bits), bits); }

Color with_alpha(Color color, int alpha) { return color | static_cast<Color>(alpha) << 24; }

using Pattern = Color (*)(int x, int y, int bits);

Color grey(int x, int y, int bits) {
    const int v = grey_at(x, y, bits);
    return pack_color(v, v, v);
}
Color rgb(int x, int y, int bits) {
    return pack_color(color_at(x, y, 0, bits), color_at(x, y, 1, bits), color_at(x, y, 2, bits));
}
Color grey_alpha(int x, int y, int bits) { return with_alpha(grey(x, y, bits), color_at(x, y, 3, bits)); }
Color rgb_alpha(int x, int y, int bits) { return with_alpha(rgb(x, y, bits), color_at(x, y, 3, bits)); }

Color palette(int x, int y, int bits) {
    return six_bit_color(bits == 8 ? (x + y * 20) % 256 : (x * 3 + y * 5) % (1 << bits));
}

struct FileRow {
    const char* name;
    int bits;
    Pattern pattern;
    int width = file_width, height = file_height;
};
constexpr FileRow files[] = {
    {"grey1", 1, grey},       {"grey2", 2, grey},        {"grey4", 4, grey},
    {"grey8", 8, grey},       {"grey16", 16, grey},      {"rgb8", 8, rgb},
    {"rgb16", 16, rgb},       {"greya8", 8, grey_alpha}, {"greya16", 16, grey_alpha},
    {"rgba8", 8, rgb_alpha},  {"rgba16", 16, rgb_alpha}, {"palette1", 1, palette},
    {"palette2", 2, palette}, {"palette4", 4, palette},  {"palette8", 8, palette, 20, 16},
};

std::string file_path(const std::string& name) { return std::string(NUBO_TEST_DATA) + "/png_" + name + ".png"; }

TEST(PngReader, ReadsEachTypeAndDepthOfOtherEncodersPlainAndInterlaced) {
    for (const FileRow& file : files)
        for (const char* form : {"_n", "_i"}) {
            const OwnedBitmap bitmap(load_png(file_path(std::string(file.name) + form).c_str(), nullptr));
            ASSERT_TRUE(bitmap) << file.name << form << ": " << png_error;
            ASSERT_EQ(bitmap_color_depth(bitmap.get()), 32);
            ASSERT_EQ(bitmap->w, file.width);
            ASSERT_EQ(bitmap->h, file.height);
            for (int y = 0; y < file.height; ++y)
                for (int x = 0; x < file.width; ++x)
                    ASSERT_EQ(*pixels_at(bitmap.get(), x, y), file.pattern(x, y, file.bits))
                        << file.name << form << " at " << x << ", " << y;
        }
}

// ---- Files made byte by byte ---------------------------------------------------------------------------------------

void put_word(Bytes& bytes, std::uint32_t word) {
    for (int shift = 24; shift >= 0; shift -= 8) bytes.push_back(static_cast<std::uint8_t>(word >> shift));
}

void put_chunk(Bytes& bytes, const char* type, const Bytes& content) {
    put_word(bytes, static_cast<std::uint32_t>(content.size()));
    bytes.insert(bytes.end(), type, type + 4);
    bytes.insert(bytes.end(), content.begin(), content.end());
    put_word(bytes, 0);  // a wrong checksum, which isn't noticed
}

Bytes deflated(const Bytes& rows) {
    Bytes out(compressBound(rows.size()));
    uLongf size = out.size();
    compress(out.data(), &size, rows.data(), rows.size());
    out.resize(size);
    return out;
}

struct Made {
    std::uint32_t width = 2, height = 2;
    int depth = 8, type = 0, interlace = 0;
    int palette_bytes = -1;  // below 0: no PLTE
    Bytes rows{0, 1, 2, 0, 3, 4};
    Bytes clear{};  // the content of tRNS; empty: none
};

Bytes make_png(const Made& made) {
    Bytes bytes(png_signature.begin(), png_signature.end()), header;
    put_word(header, made.width);
    put_word(header, made.height);
    for (const int value : {made.depth, made.type, 0, 0, made.interlace})
        header.push_back(static_cast<std::uint8_t>(value));
    put_chunk(bytes, "IHDR", header);
    if (made.palette_bytes >= 0) put_chunk(bytes, "PLTE", Bytes(static_cast<std::size_t>(made.palette_bytes), 0xff));
    if (!made.clear.empty()) put_chunk(bytes, "tRNS", made.clear);
    put_chunk(bytes, "IDAT", deflated(made.rows));
    put_chunk(bytes, "IEND", {});
    return bytes;
}

OwnedBitmap read(const Bytes& bytes, RGB* colors = nullptr) {
    PACKFILE* const file = open_for_reading(bytes);
    OwnedBitmap bitmap(load_png_pf(file, colors));
    pack_fclose(file);
    return bitmap;
}

std::string error_of(const Bytes& bytes) {
    png_error = "";
    return read(bytes) ? "no error" : png_error;
}

TEST(PngReader, TellsTheCauseOfEachRefusedFile) {
    EXPECT_EQ(load_png("no-such-file.png", nullptr), nullptr);
    EXPECT_STREQ(png_error, "Cannot open file!");
    const Bytes good = make_png({});
    ASSERT_EQ(error_of(good), "no error");
    // A byte of the good file changed: signature 0 to 7, IHDR length 8, type 12, fields 16 to 28, its checksum to 32.
    const auto changed = [&](std::size_t at, std::uint8_t value) {
        Bytes bytes = good;
        bytes[at] = value;
        return error_of(bytes);
    };
    EXPECT_EQ(changed(1, 'p'), "File signature mismatch!");
    EXPECT_EQ(changed(12, 'i'), "First chunk must be of IHDR type!");
    EXPECT_EQ(changed(11, 12), "Incorrect IHDR length!");
    EXPECT_EQ(changed(19, 0), "Zero width!");
    EXPECT_EQ(changed(23, 0), "Zero height!");
    EXPECT_EQ(changed(24, 3), "Unsupported color type/depth combination!");
    EXPECT_EQ(changed(24, 0), "Unsupported color type/depth combination!");
    EXPECT_EQ(changed(25, 5), "Unsupported color type/depth combination!");
    EXPECT_EQ(changed(26, 1), "Unsupported compression method!");
    EXPECT_EQ(changed(27, 1), "Unsupported filter method!");
    EXPECT_EQ(changed(28, 2), "Interlace not supported!");
    EXPECT_EQ(changed(41, 0x79), "Cannot decompress data!");           // the first byte of the deflated data
    EXPECT_EQ(changed(good.size() - 9, 4), "Incorrect IEND length!");  // its lowest byte
    EXPECT_EQ(error_of(make_png({.type = 3})), "Palette required but not found!");
    EXPECT_EQ(error_of(make_png({.type = 3, .palette_bytes = 7})), "Palette chunk length not divisible by 3!");
    EXPECT_EQ(error_of(make_png({.type = 3, .palette_bytes = 0})), "Incorrect number of palette entries!");
    EXPECT_EQ(error_of(make_png({.type = 3, .palette_bytes = 257 * 3})), "Incorrect number of palette entries!");
    EXPECT_EQ(error_of(make_png({.type = 3, .palette_bytes = 256 * 3})), "no error");
    EXPECT_EQ(error_of(make_png({.rows = {0, 1, 2, 0, 3}})), "Not enough data!");
    EXPECT_EQ(error_of(make_png({.rows = {0, 1, 2, 5, 3, 4}})), "Unknown filter!");
}

TEST(PngReader, RefusesEachCutFileByWhatIsMissing) {
    const Bytes good = make_png({.type = 3, .palette_bytes = 3});
    std::set<std::string> seen;
    // Six bytes are deflated to 3 bits, six codes of 8 and one of 7 that ends them: the last byte has none of the
    // pixels. Nor do the two checksums and the chunk behind.
    const std::size_t needed = good.size() - (1 + 4 + 4 + 12);
    for (std::size_t size = 0; size < needed; ++size)
        seen.insert(error_of({good.begin(), good.begin() + static_cast<long>(size)}));
    for (std::size_t size = needed; size < good.size(); ++size)
        EXPECT_EQ(error_of({good.begin(), good.begin() + static_cast<long>(size)}), "no error") << size;
    EXPECT_EQ(seen, (std::set<std::string>{"File shorter than PNG signature!", "Cannot read chunk length!",
                                           "Cannot read chunk type!", "Cannot read image width!",
                                           "Cannot read image height!", "Cannot read image bit depth!",
                                           "Cannot read image color type!", "Cannot read image compression method!",
                                           "Cannot read filter method!", "Cannot read interlace method!",
                                           "Cannot read palette!", "Cannot read image data!"}));
}

TEST(PngReader, DoesNotBelieveSizesThatTheDataCannotHave) {
    EXPECT_EQ(error_of(make_png({.width = 20000, .height = 20000})), "Not enough data!");
    EXPECT_EQ(error_of(make_png({.width = 0xffffffff, .height = 0xffffffff})), "Cannot allocate bitmap!");
    EXPECT_EQ(error_of(make_png({.width = 65535, .height = 65535})), "Cannot allocate bitmap!");
    Bytes bytes = make_png({});
    bytes[33] = 0x7f;  // the data chunk's length, its highest byte
    EXPECT_EQ(error_of(bytes), "no error") << "the file ends before the chunk does, but behind the pixels";
    bytes[37] = 'x';
    EXPECT_EQ(error_of(bytes), "Cannot read chunk length!");  // a chunk to skip that ends behind the file
    bytes[33] = 0xff;
    EXPECT_EQ(error_of(bytes), "Cannot fseek!");
}

TEST(PngReader, CutsOutTheColourThatIsCalledClear) {
    const Made cases[] = {{.height = 1, .depth = 1, .rows = {0, 0x40}, .clear = {0xff, 0}},  // only its last bit counts
                          {.height = 1, .rows = {0, 7, 8}, .clear = {0, 7}},
                          {.height = 1, .interlace = 1, .rows = {0, 7, 0, 8}, .clear = {0, 7}},
                          {.height = 1, .depth = 16, .rows = {0, 7, 8, 7, 9}, .clear = {7, 8}},
                          {.height = 1, .type = 2, .rows = {0, 1, 2, 3, 1, 2, 4}, .clear = {0, 1, 0, 2, 0, 3}}};
    for (const Made& made : cases) {
        Bytes bytes = make_png(made);
        const ReadPicture picture = read_png(bytes);
        ASSERT_TRUE(picture.bitmap && picture.has_alpha) << png_error;
        for (int x = 0; x < 2; ++x) EXPECT_EQ(*pixels_at(picture.bitmap.get(), x, 0) >> 24, x == 0 ? 0U : 255U);
        EXPECT_EQ(*pixels_at(read(bytes).get(), 1, 0) >> 24, 0U) << "a packfile's reader skips the chunk";
    }
    ReadPicture other = read_png(test_file("png_key.png"));  // by netpbm; ImageMagick counts 117 clear
    constexpr Color clear = 0x123457;                        // no pixel's
    settle_alpha(other, ALPHA_MASK, clear, clear);
    EXPECT_EQ(count_ground(other.bitmap.get(), clear), 117);
}

TEST(PngReader, CountsTheImagesOfAnAnimation) {
    Bytes bytes = make_png({}), animation;
    put_chunk(animation, "acTL", {0, 0, 0, 12, 0, 0, 0, 0});
    bytes.insert(bytes.begin() + 33, animation.begin(), animation.end());
    EXPECT_EQ(read_png(bytes).loss.images, 12U);
}

TEST(PngReader, ReadsInterlacedImagesOfEverySmallSize) {
    for (std::uint32_t height = 1; height <= 9; ++height)
        for (std::uint32_t width = 1; width <= 9; ++width) {
            // Each pass by its definition in the format: the pixels whose coordinates it names, in rows.
            constexpr std::uint32_t passes[7][4] = {{0, 0, 8, 8}, {4, 0, 8, 8}, {0, 4, 4, 8}, {2, 0, 4, 4},
                                                    {0, 2, 2, 4}, {1, 0, 2, 2}, {0, 1, 1, 2}};
            Made made{.width = width, .height = height, .interlace = 1, .rows = {}};
            for (const auto& pass : passes)
                for (std::uint32_t y = pass[1]; y < height && pass[0] < width; y += pass[3]) {
                    made.rows.push_back(0);
                    for (std::uint32_t x = pass[0]; x < width; x += pass[2])
                        made.rows.push_back(static_cast<std::uint8_t>(y * 16 + x));
                }
            const OwnedBitmap bitmap = read(make_png(made));
            ASSERT_TRUE(bitmap) << width << " x " << height << ": " << png_error;
            for (int y = 0; y < bitmap->h; ++y)
                for (int x = 0; x < bitmap->w; ++x)
                    ASSERT_EQ(*pixels_at(bitmap.get(), x, y), pack_color(y * 16 + x, y * 16 + x, y * 16 + x));
        }
}

TEST(PngPredictor, UndoesRowsTogetherAsOneByOne) {
    std::uint32_t noise = 1;
    for (const std::size_t step : {3U, 4U, 6U})
        for (std::size_t width = 1; width < 12; ++width) {
            const std::size_t size = width * step, stride = size + 1;
            Bytes together(stride * (1 + png_paeth_rows));  // with a row above them
            for (std::uint8_t& byte : together)
                byte = static_cast<std::uint8_t>((noise = noise * 1664525U + 1013904223U) >> 24);
            Bytes single = together;
            png_undo_paeth_rows(together.data() + stride, stride, together.data(), size, step);
            for (std::uint8_t* row = single.data() + stride; row < single.data() + single.size(); row += stride)
                png_undo_paeth(row, row - stride, size, step);
            ASSERT_EQ(together, single) << width << " pixels of " << step;
        }
}

// ---- Writing -------------------------------------------------------------------------------------------------------

Bytes written(BITMAP* bitmap, const RGB* colors = nullptr) {
    Bytes bytes;
    PACKFILE* const file = open_for_writing(bytes);
    EXPECT_EQ(save_png_pf(file, bitmap, colors), 0) << png_error;
    pack_fclose(file);
    return bytes;
}

constexpr std::size_t color_type_at = 25, filter_at = 41;  // in the file; the latter behind the data chunk's start

TEST(PngWriter, KeepsPixelsAndAlphaOfTrueColour) {
    for (const bool alpha : {false, true}) {
        const OwnedBitmap bitmap = make_bitmap(37, 23);
        for (int y = 0; y < bitmap->h; ++y)
            for (int x = 0; x < bitmap->w; ++x) *pixels_at(bitmap.get(), x, y) = (alpha ? rgb_alpha : rgb)(x, y, 8);
        const Bytes bytes = written(bitmap.get());
        EXPECT_EQ(bytes[color_type_at], alpha ? PNG_RGB_ALPHA : PNG_RGB);
        const OwnedBitmap back = read(bytes);
        const ReadPicture picture = read_png(bytes);
        ASSERT_TRUE(back && picture.bitmap) << png_error;
        EXPECT_TRUE(same_pixels(back.get(), bitmap.get()));
        EXPECT_EQ(picture.has_alpha, alpha);
        EXPECT_TRUE(same_pixels(picture.bitmap.get(), bitmap.get()));
    }
}

TEST(PngWriter, WritesTheBytesOfTheFormat) {
    // 2 x 2 pixels, worked out by hand: the first row's differences go left, with 0 before it; in the second the
    // predictor of (5, 5, 5) is the 1 above and of (7, 7, 7) by p = 5 + 3 - 1 = 7 the nearest, left 5.
    const OwnedBitmap bitmap = make_bitmap(2, 2);
    *pixels_at(bitmap.get(), 0, 0) = 0x010101;
    *pixels_at(bitmap.get(), 1, 0) = 0x030303;
    *pixels_at(bitmap.get(), 0, 1) = 0x050505;
    *pixels_at(bitmap.get(), 1, 1) = 0x070707;
    const Bytes rows{4, 1, 1, 1, 2, 2, 2, 4, 4, 4, 4, 2, 2, 2};
    Bytes data(compressBound(rows.size())), expected(png_signature.begin(), png_signature.end());
    uLongf size = data.size();
    compress2(data.data(), &size, rows.data(), rows.size(), 9);
    data.resize(size);
    put_chunk(expected, "IHDR", {0, 0, 0, 2, 0, 0, 0, 2, 8, 2, 0, 0, 0});
    put_chunk(expected, "IDAT", data);
    put_chunk(expected, "IEND", {});
    for (const auto& [at, length] :
         {std::pair{8, 13}, {33, static_cast<int>(size)}, {45 + static_cast<int>(size), 0}}) {
        const std::size_t checksum_at = static_cast<std::size_t>(at + 8 + length);
        const uLong sum = crc32(0, expected.data() + at + 4, static_cast<uInt>(length + 4));
        for (std::size_t i = 0; i < 4; ++i) expected[checksum_at + i] = static_cast<std::uint8_t>(sum >> (24 - 8 * i));
    }
    EXPECT_EQ(written(bitmap.get()), expected);
}

TEST(PngWriter, ReportsADiskThatIsFull) {
    const OwnedBitmap bitmap = make_bitmap(8, 8, 0x123456);
    const std::size_t whole = written(bitmap.get()).size();
    for (std::size_t room = 0; room < whole; ++room) {
        Bytes bytes;
        png_error = "";
        PACKFILE* const file = open_for_writing(bytes, room);
        EXPECT_EQ(save_png_pf(file, bitmap.get(), nullptr), -1) << room;
        pack_fclose(file);
        EXPECT_STREQ(png_error, "Cannot write to the file!");
    }
    EXPECT_EQ(save_png("no-such-folder/a.png", bitmap.get(), nullptr), -1);
    EXPECT_STREQ(png_error, "Cannot open file!");
}

TEST(PngFileType, IsKnownToAllegro) {
    const ScratchFolder folder;
    register_png();
    const OwnedBitmap bitmap = make_bitmap(3, 2, 0x456789);
    ASSERT_EQ(save_bitmap("a.png", bitmap.get(), nullptr), 0);
    const OwnedBitmap back(load_bitmap("a.png", nullptr));
    ASSERT_TRUE(back);
    EXPECT_EQ(*pixels_at(back.get(), 2, 1), 0x456789u);
}

}  // namespace
}  // namespace nubo
