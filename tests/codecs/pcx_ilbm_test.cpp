// PCX and ILBM, against files that other programs made of patterns that the tests work out, and bent ones.
#include "base/color.h"
#include "codecs/ilbm.h"
#include "codecs/pcx.h"
#include "picture_files.h"

namespace nubo {
namespace {

/// Colour k of tests/files/pcx_* and ilbm_*.
Color file_color(int k) { return pack_color(k * 37 % 256, (k * 91 + 50) % 256, (k * 151 + 9) % 256); }

/// The pixel at (x, y) of a file with `colors` colours; 0: of one with true colour, 13 pixels wide as all small ones.
Color pattern(int colors, int x, int y) {
    if (colors == 0) return pack_color(x * 19 % 256, y * 23 % 256, (x * y * 7 + 3) % 256);
    return file_color(colors == 256 ? (x + y * 21) % 256 : (x * 3 + y * 5) % colors);
}

void expect_pattern(const ReadPicture& picture, int colors, const std::string& name) {
    ASSERT_TRUE(picture.bitmap) << name << ": " << picture.cause;
    EXPECT_TRUE(picture.bitmap->w == (colors == 256 ? 21 : 13) && picture.bitmap->h == (colors == 256 ? 16 : 11));
    for (int y = 0; y < picture.bitmap->h; ++y)
        for (int x = 0; x < picture.bitmap->w; ++x)
            ASSERT_EQ(*pixels_at(picture.bitmap.get(), x, y), pattern(colors, x, y))
                << name << " at " << x << ", " << y;
}

struct FileRow {
    const char* name;
    int colors;
};

// ---- PCX -----------------------------------------------------------------------------------------------------------

constexpr FileRow pcx_files[] = {
    {"pcx_planes2.pcx", 2},   {"pcx_planes4.pcx", 4},    // one bit in one plane, in two
    {"pcx_planes16.pcx", 16}, {"pcx_packed4.pcx", 4},    // and in four; two bits a pixel
    {"pcx_packed16.pcx", 16}, {"pcx_256.pcx", 256},      // four and eight; all of these by netpbm
    {"pcx_true.pcx", 256},    {"pcx_rawtrue.pcx", 256},  // three planes; not packed, by ImageMagick
};

TEST(Pcx, ReadsFilesOfOtherPrograms) {
    for (const FileRow& file : pcx_files) expect_pattern(read_pcx(test_file(file.name)), file.colors, file.name);
}

TEST(Pcx, ColoursThatAFileDoesNotBring) {
    const auto pixel = [](const Bytes& bytes, int x, int y) {
        const ReadPicture picture = read_pcx(bytes);
        return picture.bitmap ? *pixels_at(picture.bitmap.get(), x, y) : 0xff123456;
    };
    Bytes two = test_file("pcx_planes2.pcx"), sixteen = test_file("pcx_planes16.pcx"), many = test_file("pcx_256.pcx");
    const bool first_is_black = pixel(two, 0, 0) == file_color(0) && two[16] == 0;  // the writer sorts its colours
    two[1] = sixteen[1] = 3;                                                        // the version that has none
    EXPECT_EQ(pixel(two, 0, 0), first_is_black ? 0x000000U : 0xffffffU);
    EXPECT_EQ(pixel(two, 1, 0), first_is_black ? 0xffffffU : 0x000000U);
    Bytes counted = sixteen;
    for (std::size_t i = 0; i < 16; ++i) std::fill_n(counted.begin() + 16 + static_cast<long>(3 * i), 3, i * 17);
    counted[1] = 5;
    const Color gray = pixel(counted, 5, 3);  // now tells the index
    constexpr Color adapter[] = {0x000000, 0x0000aa, 0x00aa00, 0x00aaaa, 0xaa0000, 0xaa00aa, 0xaa5500, 0xaaaaaa,
                                 0x555555, 0x5555ff, 0x55ff55, 0x55ffff, 0xff5555, 0xff55ff, 0xffff55, 0xffffff};
    EXPECT_EQ(pixel(sixteen, 5, 3), adapter[(gray & 0xff) / 17]);
    many[many.size() - 769] = 0;  // no palette's mark
    const Color index = pixel(many, 7, 2) & 0xff;
    EXPECT_EQ(pixel(many, 7, 2), index * 0x010101);
    EXPECT_EQ(many[many.size() - 768 + 3 * index], red_of(pattern(256, 7, 2)));
}

TEST(Pcx, ReadsRunsThatGoOnInTheNextRow) {
    Bytes bytes(128);
    bytes[0] = 10, bytes[1] = 5, bytes[2] = 1, bytes[3] = 8, bytes[8] = 2, bytes[10] = 3, bytes[65] = 1, bytes[66] = 4;
    for (const int byte : {0xc6, 7, 9, 0xc1, 0xc2, 0xc8, 5}) bytes.push_back(static_cast<std::uint8_t>(byte));
    const ReadPicture picture = read_pcx(bytes);  // 7 7 7 7 / 7 7 9 c2 / 5 ...; a gray each, the fourth column padding
    ASSERT_TRUE(picture.bitmap);
    EXPECT_EQ(*pixels_at(picture.bitmap.get(), 2, 0), 0x070707U);
    EXPECT_EQ(*pixels_at(picture.bitmap.get(), 1, 1), 0x070707U);
    EXPECT_EQ(*pixels_at(picture.bitmap.get(), 2, 1), 0x090909U);
    EXPECT_EQ(*pixels_at(picture.bitmap.get(), 2, 3), 0x050505U);
}

TEST(Pcx, WritesWhatItReadsBack) {
    for (const int width : {1, 2, 63, 64, 65, 200}) {
        const OwnedBitmap bitmap = make_bitmap(width, 9);
        for (int y = 0; y < 9; ++y)
            for (int x = 0; x < width; ++x)
                *pixels_at(bitmap.get(), x, y) = pack_color(y < 3 ? 0xc0 + y : x, x / 70 * 100, (x * y) & 0xff);
        Bytes bytes;
        ASSERT_TRUE(write_pcx(bitmap.get(), bytes));
        const ReadPicture back = read_pcx(bytes);
        ASSERT_TRUE(back.bitmap) << back.cause;
        EXPECT_TRUE(same_pixels(back.bitmap.get(), bitmap.get())) << width;
    }
}

// ---- ILBM ----------------------------------------------------------------------------------------------------------

constexpr FileRow ilbm_files[] = {{"ilbm_2.lbm", 2},   {"ilbm_16.lbm", 16},   {"ilbm_raw16.lbm", 16},
                                  {"ilbm_32.lbm", 32}, {"ilbm_256.lbm", 256}, {"ilbm_true.lbm", 0}};  // all by netpbm

TEST(Ilbm, ReadsFilesOfOtherPrograms) {
    for (const FileRow& file : ilbm_files) expect_pattern(read_ilbm(test_file(file.name)), file.colors, file.name);
    // netpbm leaves the lower bits of a changed component as they were, where the machine had none.
    for (const auto& [name, upper_bits] : {std::pair{"ilbm_ham6", 0xf0f0f0U}, {"ilbm_ham8", 0xfcfcfcU}}) {
        const ReadPicture picture = read_ilbm(test_file(std::string(name) + ".lbm"));
        ASSERT_TRUE(picture.bitmap) << picture.cause;
        const Bytes pixels = test_file(std::string(name) + ".ppm");  // as netpbm reads it, behind a head of 13 bytes
        std::size_t at = 13;
        ASSERT_EQ(pixels.size(), at + 3 * 13 * 11);
        for (int y = 0; y < 11; ++y)
            for (int x = 0; x < 13; ++x, at += 3)
                ASSERT_EQ(*pixels_at(picture.bitmap.get(), x, y) & upper_bits,
                          (pack_color(pixels[at], pixels[at + 1], pixels[at + 2]) & upper_bits))
                    << name << " at " << x << ", " << y;
    }
}

/// A file of one row of 8 pixels with a view mode (0: none told) and a palette of reds.
Bytes one_row(int planes, int masking, std::uint32_t mode, std::size_t colors, const Bytes& body) {
    Bytes bytes{'F', 'O', 'R', 'M', 0, 0, 0, 0, 'I', 'L', 'B', 'M', 'B', 'M', 'H', 'D', 0, 0, 0, 20, 0, 8, 0, 1};
    bytes.resize(bytes.size() + 4);
    append(bytes, {static_cast<std::uint8_t>(planes), static_cast<std::uint8_t>(masking)});
    bytes.resize(bytes.size() + 10);
    if (mode != 0)
        append(bytes, {'C', 'A', 'M', 'G', 0, 0, 0, 4, 0, 0, static_cast<std::uint8_t>(mode >> 8),
                       static_cast<std::uint8_t>(mode)});
    append(bytes, {'C', 'M', 'A', 'P', 0, 0, 0, static_cast<std::uint8_t>(3 * colors)});
    for (std::size_t i = 0; i < colors; ++i) append(bytes, {static_cast<std::uint8_t>(2 * i + 3), 0, 0});
    if (3 * colors % 2 != 0) bytes.push_back(0);
    append(bytes, {'B', 'O', 'D', 'Y', 0, 0, 0, static_cast<std::uint8_t>(body.size())});
    append(bytes, body);
    return bytes;
}

TEST(Ilbm, HalvesColoursAndLeavesTheMaskOut) {
    // Pixel 0 has the index 1, pixel 1 the index 33, half of 1; the mask has all pixels.
    const Bytes planes{0xc0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0x40, 0},
        masked{0xc0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0x40, 0, 0xff, 0};
    for (const Bytes& file :
         {one_row(6, 0, 0x80, 32, planes), one_row(6, 0, 0, 32, planes), one_row(6, 1, 0x80, 32, masked)}) {
        const ReadPicture picture = read_ilbm(file);
        ASSERT_TRUE(picture.bitmap) << picture.cause;
        EXPECT_EQ(*pixels_at(picture.bitmap.get(), 0, 0), 0x050000U);
        EXPECT_EQ(*pixels_at(picture.bitmap.get(), 1, 0), 0x020000U);
        EXPECT_EQ(*pixels_at(picture.bitmap.get(), 7, 0), 0x030000U);
    }
    const ReadPicture whole = read_ilbm(one_row(6, 0, 0x8000, 64, planes));
    ASSERT_TRUE(whole.bitmap);
    EXPECT_EQ(*pixels_at(whole.bitmap.get(), 1, 0), 0x450000U) << "64 colours of its own: 2 * 33 + 3";
}

TEST(Ilbm, RefusesWhatItsFormDoesNotAllow) {
    for (const int planes : {0, 1, 7, 8, 9, 24, 255}) {
        Bytes bytes = one_row(planes, 0, 0, 4, Bytes(48));
        EXPECT_EQ(read_ilbm(bytes).bitmap != nullptr, planes == 1 || planes == 7 || planes == 8 || planes == 24)
            << planes;
        std::copy_n("PBM ", 4, bytes.begin() + 8);
        EXPECT_EQ(read_ilbm(bytes).bitmap != nullptr, planes == 8) << planes << " of bytes";
    }
}

TEST(Ilbm, HoldsAndModifies) {
    // Six planes, two bytes each: the indexes 1, 0x1a (blue a), 0x25 (red 5), 0x3f (green f), then 0.
    const ReadPicture picture =
        read_ilbm(one_row(6, 0, 0x800, 16, {0xb0, 0, 0x50, 0, 0x30, 0, 0x50, 0, 0x50, 0, 0x30, 0}));
    ASSERT_TRUE(picture.bitmap) << picture.cause;
    constexpr Color expected[] = {0x050000, 0x0500aa, 0x5500aa, 0x55ffaa, 0x030000};
    for (int x = 0; x < 5; ++x) EXPECT_EQ(*pixels_at(picture.bitmap.get(), x, 0), expected[x]) << x;
}

}  // namespace
}  // namespace nubo
