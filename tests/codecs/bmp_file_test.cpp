#include "workspace/bmp_files.h"

#include "picture_files.h"
#include "platform/safe_file.h"

namespace nubo {
namespace {

OwnedBitmap noise(int width, int height) {
    OwnedBitmap bitmap = make_bitmap(width, height);
    for (int y = 0; y < height; ++y)
        for (int x = 0; x < width; ++x) *pixels_at(bitmap.get(), x, y) = random_first.next() & 0xffffff;
    return bitmap;
}

/// A file of 14 + 40 bytes of head, what stands between, and pixels.
Bytes make_bmp(int width, int height, int bits, int packing, const Bytes& between, const Bytes& pixels) {
    Bytes file{'B', 'M'};
    const auto put = [&file](int value, int bytes) {
        for (int i = 0; i < bytes; ++i) file.push_back(static_cast<std::uint8_t>(value >> 8 * i));
    };
    const int head = 54 + static_cast<int>(between.size());
    for (const int value : {head + static_cast<int>(pixels.size()), 0, head, 40, width, height}) put(value, 4);
    put(1, 2);
    put(bits, 2);
    for (const int value : {packing, 0, 0, 0, 0, 0}) put(value, 4);
    file.insert(file.end(), between.begin(), between.end());
    file.insert(file.end(), pixels.begin(), pixels.end());
    return file;
}

OwnedBitmap load_bytes(const Bytes& bytes) {
    EXPECT_TRUE(write_file("picture.bmp", bytes.data(), bytes.size()));
    return load_bmp_file("picture.bmp");
}

class BmpFile : public testing::Test {
    ScratchFolder folder_;
};

TEST_F(BmpFile, IsWrittenAsAllegroWritesItAndReadBackByBoth) {
    for (const auto& [width, height] : {std::pair{1, 1}, {2, 3}, {3, 2}, {4, 1}, {321, 7}, {5, 300}}) {
        const OwnedBitmap picture = noise(width, height);
        ASSERT_TRUE(save_bmp_file("ours.bmp", picture.get()));
        ASSERT_EQ(save_bmp("allegros.bmp", picture.get(), nullptr), 0);
        EXPECT_EQ(bytes_of("ours.bmp"), bytes_of("allegros.bmp"));
        const OwnedBitmap by_allegro(load_bmp("ours.bmp", nullptr)), by_us = load_bmp_file("ours.bmp");
        ASSERT_TRUE(by_allegro && by_us);
        EXPECT_TRUE(same_pixels(by_allegro.get(), picture.get()) && same_pixels(by_us.get(), picture.get())) << width;
    }
}

/// A picture of four columns in a form of the format.
struct FormCase {
    const char* name;
    int height, bits, packing;
    Bytes between, pixels;
    std::vector<int> expected;  // from the top row
};

std::vector<FormCase> form_cases() {
    constexpr int red = 0xff0000, green = 0x00ff00, blue = 0x0000ff, white = 0xffffff;
    const Bytes palette{0, 0, 0xff, 0, 0, 0xff, 0, 0, 0xff, 0, 0, 0, 0xff, 0xff, 0xff, 0};  // red, green, blue, white
    const Bytes two(palette.begin(), palette.begin() + 8);
    const Bytes masks_565{0, 0xf8, 0, 0, 0xe0, 7, 0, 0, 0x1f, 0, 0, 0};
    return {
        {"1 bit", 1, 1, 0, two, {0x50, 0, 0, 0}, {red, green, red, green}},
        {"4 bits", 1, 4, 0, palette, {0x01, 0x23, 0, 0}, {red, green, blue, white}},
        {"8 bits, bottom row first",
         2,
         8,
         0,
         palette,
         {0, 0, 0, 0, 1, 2, 3, 1},
         {green, blue, white, green, red, red, red, red}},
        {"8 bits, top row first",
         -2,
         8,
         0,
         palette,
         {0, 0, 0, 0, 1, 2, 3, 1},
         {red, red, red, red, green, blue, white, green}},
        {"16 bits, 5 each", 1, 16, 0, {}, {0, 0x7c, 0xe0, 3, 0x1f, 0, 0xff, 0x7f}, {red, green, blue, white}},
        {"16 bits, 5 6 5", 1, 16, 3, masks_565, {0, 0xf8, 0xe0, 7, 0x1f, 0, 0, 0x80}, {red, green, blue, 0x840000}},
        {"32 bits",
         1,
         32,
         0,
         {},
         {0, 0, 0xff, 9, 0, 0xff, 0, 9, 0xff, 0, 0, 9, 1, 2, 3, 9},
         {red, green, blue, 0x030201}},
        {"run length 8",
         2,
         8,
         1,
         palette,
         {3, 1, 1, 2, 0, 0, 0, 3, 3, 0, 1, 0, 0, 2, 1, 0, 0, 1},
         {white, red, green, red, green, green, green, blue}},
        {"run length 4", 1, 4, 2, palette, {3, 0x12, 0, 3, 0x30, 0, 0, 1}, {green, blue, green, white}},
    };
}

TEST_F(BmpFile, OfEachFormGivesItsPixels) {
    for (const FormCase& c : form_cases()) {
        const Bytes whole = make_bmp(4, c.height, c.bits, c.packing, c.between, c.pixels);
        Bytes without_offset = whole, without_filler = whole;
        std::fill_n(without_offset.begin() + 10, 4, std::uint8_t{0});
        if (c.bits <= 8) without_offset[46] = static_cast<std::uint8_t>(c.between.size() / 4);  // colours
        const bool runs = c.packing == 1 || c.packing == 2;
        without_filler.resize(whole.size() - (runs || c.bits >= 8 ? 0 : c.bits == 4 ? 2 : 3));
        for (const Bytes& bytes : {whole, without_offset, without_filler}) {
            const OwnedBitmap picture = load_bytes(bytes);
            ASSERT_TRUE(picture) << c.name << ", " << bytes.size();
            for (std::size_t i = 0; i < c.expected.size(); ++i)
                EXPECT_EQ(*pixels_at(picture.get(), static_cast<int>(i % 4), static_cast<int>(i / 4)),
                          static_cast<Color>(c.expected[i]))
                    << c.name << ", pixel " << i;
        }
    }
}

TEST_F(BmpFile, CutAnywhereIsRefused) {
    ASSERT_TRUE(save_bmp_file("whole.bmp", noise(5, 4).get()));
    const std::string written = bytes_of("whole.bmp");
    const Bytes whole(written.begin(), written.end());
    for (std::size_t length = 0; length + 1 < whole.size(); ++length)  // the last byte fills up the row
        EXPECT_FALSE(load_bytes(Bytes(whole.begin(), whole.begin() + static_cast<long>(length)))) << length;
    EXPECT_TRUE(load_bytes(whole));
    // Four rows of one run each. The pixels must be there, the mark of the end need not.
    const Bytes runs = make_bmp(5, 4, 8, 1, Bytes(1024, 7), {5, 1, 0, 0, 5, 2, 0, 0, 5, 3, 0, 0, 5, 4, 0, 1});
    for (std::size_t length = runs.size() - 16; length < runs.size() - 2; ++length)
        EXPECT_FALSE(load_bytes(Bytes(runs.begin(), runs.begin() + static_cast<long>(length)))) << length;
    EXPECT_TRUE(load_bytes(Bytes(runs.begin(), runs.end() - 2)) && load_bytes(runs));
}

TEST_F(BmpFile, WithAnyByteOfItsHeadTwistedHarmsNothing) {
    const Bytes runs = make_bmp(40, 30, 8, 1, Bytes(1024, 7), Bytes(2000, 200));
    const Bytes plain = make_bmp(40, 30, 4, 0, Bytes(64, 7), Bytes(20 * 30, 3));
    for (const Bytes& good : {runs, plain})
        for (std::size_t at = 0; at < 60; ++at)
            for (const int value : {0, 1, 0x7f, 0x80, 0xff}) {
                Bytes bad = good;
                bad[at] = static_cast<std::uint8_t>(value);
                const OwnedBitmap picture = load_bytes(bad);  // the sanitizers watch
                const long pixels = picture ? static_cast<long>(picture->w) * picture->h : 0;
                EXPECT_LE(pixels, 4'100'000) << at;
            }
}

TEST_F(BmpFile, ThatIsNoRegularFileIsRefusedAtOnce) {
    ASSERT_EQ(system("mkdir folder.bmp && mkfifo pipe.bmp"), 0);
    for (const char* path : {"folder.bmp", "pipe.bmp", "missing.bmp"}) EXPECT_FALSE(load_bmp_file(path)) << path;
}

}  // namespace
}  // namespace nubo
