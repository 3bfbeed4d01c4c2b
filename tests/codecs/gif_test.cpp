// GIF reading, against files that other encoders made of patterns that the tests work out, and writing.
#include "codecs/gif.h"

#include "codecs/gif_lzw.h"
#include "picture_files.h"

namespace nubo {
namespace {

constexpr Color magenta = 0xff00ff;

std::string file_path(const std::string& name) { return std::string(NUBO_TEST_DATA) + "/gif_" + name + ".gif"; }

struct FileRow {
    const char* name;
    int width, height, colors, transparent;
};
constexpr FileRow files[] = {
    {"two", 13, 11, 2, -1},       // 1 bit, version 87a, interlaced, by netpbm
    {"sixteen", 13, 11, 16, -1},  // by netpbm
    {"magick", 20, 16, 256, -1},  // interlaced, by ImageMagick
    {"several", 13, 11, 8,
     5},  // off the corner, interlaced, its own palette over the file's, a comment; one more image
    {"transparent_zero", 13, 11, 8, 0},  // these two by giflib
};

TEST(GifReader, ReadsFilesOfOtherEncoders) {
    for (const FileRow& file : files) {
        const OwnedBitmap bitmap(load_gif(file_path(file.name).c_str(), nullptr));
        ASSERT_TRUE(bitmap) << file.name;
        ASSERT_TRUE(bitmap->w == file.width && bitmap->h == file.height && bitmap_color_depth(bitmap.get()) == 32);
        for (int y = 0; y < file.height; ++y)
            for (int x = 0; x < file.width; ++x) {
                const int k = file.colors == 256 ? (x + y * 20) % 256 : (x * 3 + y * 5) % file.colors;
                ASSERT_EQ(*pixels_at(bitmap.get(), x, y), k == file.transparent ? magenta : six_bit_color(k))
                    << file.name << " at " << x << ", " << y;
            }
    }
}

TEST(GifReader, ReadsATableThatFillsUpAndIsCleared) {
    const OwnedBitmap bitmap(load_gif(file_path("noise").c_str(), nullptr));
    ASSERT_TRUE(bitmap);
    std::uint32_t noise = 1;
    for (int y = 0; y < 80; ++y)
        for (int x = 0; x < 80; ++x) {
            noise = noise * 1664525U + 1013904223U;
            ASSERT_EQ(*pixels_at(bitmap.get(), x, y), six_bit_color(static_cast<int>(noise >> 24)));
        }
}

TEST(GifReader, MakesTransparencyIndexZeroAndLeavesOtherEntriesAlone) {
    set_color_depth(8);
    PALETTE colors{};
    colors[200] = RGB{1, 2, 3, 0};
    const OwnedBitmap bitmap(load_gif(file_path("several").c_str(), colors));
    ASSERT_TRUE(bitmap);
    EXPECT_EQ(getpixel(bitmap.get(), 0, 1), 0);  // the file has (0 * 3 + 1 * 5) % 8 = 5 there
    EXPECT_EQ(getpixel(bitmap.get(), 0, 0), 5);  // and 0 here, whose colour moved to entry 5
    EXPECT_EQ(colors[5].g, 50 >> 2);
    EXPECT_EQ(colors[200].b, 3);
}

// ---- Files made byte by byte, and bent -----------------------------------------------------------------------------

OwnedBitmap read(const Bytes& bytes, RGB* colors = nullptr) {
    PACKFILE* const file = open_for_reading(bytes);
    OwnedBitmap bitmap(load_gif_pf(file, colors));
    pack_fclose(file);
    return bitmap;
}

/// A file of `width` x `height` in 2 bits, black and white. Its codes by hand, least significant bit first: clear 001,
/// index 1 100, again 100, their pair (6) 011; with that the codes of 3 bits are used up, and the end (5) is 1010.
Bytes small_gif(int width, int height, const Bytes& coded = {2, 0x4c, 0x5c, 0}, int minimum_bits = 2) {
    const auto w = static_cast<std::uint8_t>(width), h = static_cast<std::uint8_t>(height),
               wide = static_cast<std::uint8_t>(width >> 8), high = static_cast<std::uint8_t>(height >> 8);
    Bytes bytes{'G', 'I', 'F', '8', '7', 'a', w, wide, h, high, 0x80, 0, 0, 0, 0, 0, 0xff, 0xff, 0xff};
    append(bytes, {',', 0, 0, 0, 0, w, wide, h, high, 0, static_cast<std::uint8_t>(minimum_bits)});
    append(bytes, coded);
    bytes.push_back(';');
    return bytes;
}

TEST(GifReader, DecodesCodesByHand) {
    const OwnedBitmap whole = read(small_gif(2, 2)), unfinished = read(small_gif(3, 2));
    ASSERT_TRUE(whole && unfinished);
    EXPECT_EQ(*pixels_at(whole.get(), 1, 1), 0xffffffu);
    EXPECT_EQ(*pixels_at(unfinished.get(), 0, 1), 0xffffffu);
    EXPECT_EQ(*pixels_at(unfinished.get(), 1, 1), 0u);  // the end code came after four pixels
    // Clear and four times index 1, in codes of 10 and of 12 bits.
    const OwnedBitmap nine = read(small_gif(2, 2, {7, 0, 0x06, 0x10, 0x40, 0, 0x01, 0, 0}, 9));
    const OwnedBitmap eleven = read(small_gif(2, 2, {8, 0, 0x18, 0, 0x01, 0x10, 0, 0x01, 0, 0}, 11));
    ASSERT_TRUE(nine && eleven);
    EXPECT_EQ(*pixels_at(nine.get(), 1, 1), 0xffffffu);
    EXPECT_EQ(*pixels_at(eleven.get(), 1, 1), 0xffffffu);
}

TEST(GifReader, ClipsAnImageToTheScreen) {
    Bytes bytes = small_gif(2, 2, {2, 0x0c, 0x00, 0});  // clear 001, index 1 100, and three times index 0
    bytes[20] = 1;                                      // its left
    bytes[6] = 2;
    const OwnedBitmap clipped = read(bytes);
    ASSERT_TRUE(clipped);
    EXPECT_TRUE(clipped->w == 1 && clipped->h == 2);
    EXPECT_EQ(*pixels_at(clipped.get(), 0, 0), 0xffffffu);
    bytes[6] = bytes[8] = 0;  // a screen without a size
    const OwnedBitmap whole = read(bytes);
    ASSERT_TRUE(whole);
    EXPECT_EQ(whole->w, 2);
}

TEST(GifReader, RefusesWhatMakesNoSense) {
    const auto refused = [](const Bytes& bytes) {
        PALETTE colors{};
        const bool null = read(bytes, colors) == nullptr;
        return null && colors[1].r == 0;  // and the palette is as it was
    };
    ASSERT_FALSE(refused(small_gif(2, 2)));
    EXPECT_TRUE(refused(small_gif(0, 2)));
    EXPECT_TRUE(refused(small_gif(65535, 65535)));
    EXPECT_TRUE(refused(small_gif(20000, 20000))) << "an early end does not make an image of that size";
    EXPECT_TRUE(refused(small_gif(3, 2, {1, 0x4c, 0}))) << "the data ends before the pixels and the end code";
    EXPECT_TRUE(refused(small_gif(2, 2, {1, 0x3c, 0}))) << "clear and then a code above the table";
    for (const int bits : {0, 12, 255}) EXPECT_TRUE(refused(small_gif(2, 2, {2, 0x4c, 0x5c, 0}, bits)));
    Bytes outside = small_gif(2, 2);
    outside[20] = 2;  // the image's left
    EXPECT_TRUE(refused(outside)) << "none of it lies on the screen";
    Bytes empty = small_gif(2, 2);
    empty[19] = ';';  // the file ends before an image
    EXPECT_TRUE(refused(empty));
    EXPECT_EQ(load_gif("no-such-file.gif", nullptr), nullptr);
    EXPECT_EQ(load_gif((std::string(NUBO_TEST_DATA) + "/png_rgb8_n.png").c_str(), nullptr), nullptr);
}

TEST(GifReader, NeedsNothingBehindTheLastPixel) {
    const Bytes whole = test_file("gif_transparent_zero.gif");  // its one image ends 3 bytes before the file:
    for (std::size_t size = 0; size < whole.size(); ++size)     // end code's last bits, terminator, trailer
        EXPECT_EQ(read({whole.begin(), whole.begin() + static_cast<long>(size)}) != nullptr, size + 3 >= whole.size())
            << size;
}

// ---- Writing -------------------------------------------------------------------------------------------------------

/// The writer's coding as it is defined, without anything that makes it quick: each pair is searched from the previous
/// code on, one entry after the other.
Bytes plainly_coded(const Bytes& indexes) {
    struct Entry {
        int prefix, symbol;
    };
    std::vector<Entry> table(258, Entry{-1, -1});
    std::vector<bool> bits;
    int code_bits = 9;
    const auto put = [&](int code) {
        for (int i = 0; i < code_bits; ++i) bits.push_back((code >> i & 1) != 0);
    };
    put(256);
    int previous = indexes[0];
    for (std::size_t i = 1; i <= indexes.size(); ++i) {
        const int symbol = i < indexes.size() ? indexes[i] : 257;
        std::size_t at = static_cast<std::size_t>(previous);
        while (at < table.size() && !(table[at].prefix == previous && table[at].symbol == symbol)) ++at;
        if (at < table.size()) {
            previous = static_cast<int>(at);
            continue;
        }
        put(previous);
        if (table.size() < 4096) {
            table.push_back({previous, symbol});
            if (table.size() > std::size_t{1} << code_bits && code_bits < 12) ++code_bits;
        }
        previous = symbol;
    }
    put(257);
    Bytes packed((bits.size() + 7) / 8), blocks;
    for (std::size_t i = 0; i < bits.size(); ++i) packed[i / 8] |= static_cast<std::uint8_t>(bits[i] << i % 8);
    for (std::size_t at = 0; at < packed.size(); at += 255) {
        const std::size_t size = std::min<std::size_t>(255, packed.size() - at);
        blocks.push_back(static_cast<std::uint8_t>(size));
        append(blocks, {packed.begin() + static_cast<long>(at), packed.begin() + static_cast<long>(at + size)});
    }
    blocks.push_back(0);
    return blocks;
}

Bytes coded(const Bytes& indexes) {
    Bytes bytes;
    PACKFILE* const file = open_for_writing(bytes);
    GifEncoder encoder(file);
    encoder.add(indexes);
    EXPECT_TRUE(encoder.finish());
    pack_fclose(file);
    return bytes;
}

/// Indexes below `colors`, from a generator of their own.
Bytes indexes_of(std::size_t count, std::uint32_t colors) {
    Bytes indexes(count);
    std::uint32_t noise = 1;
    for (std::uint8_t& index : indexes) {
        noise = noise * 1664525U + 1013904223U;
        index = static_cast<std::uint8_t>((noise >> 16) % colors);
    }
    return indexes;
}

TEST(GifWriter, CodesAsTheLinearSearchDoesAndDecodesBack) {
    // Every length up to where the code size first grows, so that the end code meets each edge; then full tables.
    std::vector<Bytes> cases;
    for (std::size_t count = 1; count < 600; ++count) cases.push_back(indexes_of(count, 256));
    for (const std::uint32_t colors : {1U, 2U, 5U, 256U}) cases.push_back(indexes_of(12000, colors));
    for (const Bytes& indexes : cases) {
        const Bytes blocks = coded(indexes);
        ASSERT_EQ(blocks, plainly_coded(indexes)) << indexes.size();
        Bytes joined;
        for (std::size_t at = 0; blocks[at] != 0; at += 1 + blocks[at])
            append(joined, {blocks.begin() + static_cast<long>(at + 1),
                            blocks.begin() + static_cast<long>(at + 1 + blocks[at])});
        GrowingBytes back;
        ASSERT_TRUE(decode_gif_indexes(joined, 8, indexes.size(), back));
        ASSERT_EQ(Bytes(back.data(), back.end()), indexes);
    }
}

Bytes written(BITMAP* bitmap, const RGB* colors) {
    Bytes bytes;
    PACKFILE* const file = open_for_writing(bytes);
    EXPECT_EQ(save_gif_pf(file, bitmap, colors), 0);
    pack_fclose(file);
    return bytes;
}

TEST(GifWriter, WritesTheFormatsBlocks) {
    const OwnedBitmap bitmap(create_bitmap_ex(8, 300, 1));
    clear_to_color(bitmap.get(), 7);
    PALETTE colors{};
    colors[1] = RGB{63, 32, 1, 0};
    Bytes expected{'G', 'I', 'F', '8', '9', 'a', 44, 1,  1, 0, 0x77, 1,    0, 0x21, 0xf9, 4,   0,   0, 0,
                   0,   0,   ',', 0,   0,   0,   0,  44, 1, 1, 0,    0x87, 0, 0,    0,    252, 128, 4};
    expected.resize(expected.size() + 254 * 3);
    expected.push_back(8);
    const Bytes blocks = plainly_coded(Bytes(300, 7));
    append(expected, blocks);
    expected.push_back(';');
    EXPECT_EQ(written(bitmap.get(), colors), expected);
}

TEST(GifWriter, GivesEachPixelOfAFrameTheNearestEntryTheFirstToo) {
    PALETTE colors{};  // the rest is black
    colors[0] = RGB{63, 0, 0, 0};
    colors[1] = RGB{0, 63, 0, 0};
    colors[2] = RGB{40, 40, 40, 0};
    const OwnedBitmap bitmap = make_bitmap(4, 1);
    const Color pixels[] = {0xff0000, 0x10f010, 0x000000, 0xb0a0a0}, expected[] = {0xff0000, 0x00ff00, 0, 0xa2a2a2};
    std::copy(std::begin(pixels), std::end(pixels), pixels_at(bitmap.get(), 0, 0));
    const OwnedBitmap back = read(written(bitmap.get(), colors));
    ASSERT_TRUE(back);
    for (int x = 0; x < 4; ++x) EXPECT_EQ(*pixels_at(back.get(), x, 0), expected[x]) << x;
    EXPECT_EQ(rgb_map, nullptr);
}

/// 64 by 40 pixels of so many colours, of which the first two are one step apart.
OwnedBitmap picture_of(int colors) {
    OwnedBitmap bitmap = make_bitmap(64, 40);
    for (int i = 0; i < 64 * 40; ++i) {
        const int k = i % colors;
        *pixels_at(bitmap.get(), i % 64, i / 64) =
            k < 2 ? 0x7f8001U + static_cast<Color>(k) : table_color(k) ^ static_cast<Color>(k >> 8);
    }
    return bitmap;
}

TEST(GifWriter, KeepsUpTo256ColoursAndReducesMore) {
    for (const int colors : {1, 2, 255, 256, 257, 2000})
        for (const GifReduction reduction : {REDUCTION_FAST, REDUCTION_GOOD, REDUCTION_BEST}) {
            const OwnedBitmap bitmap = picture_of(colors);
            Bytes bytes;
            ASSERT_TRUE(write_gif(bitmap.get(), reduction, bytes));
            const ReadPicture back = read_gif(bytes);
            ASSERT_TRUE(back.bitmap) << back.cause;
            EXPECT_EQ(same_pixels(back.bitmap.get(), bitmap.get()), colors <= 256) << colors << ", " << reduction;
            double away = 0;
            for (int i = 0; i < 64 * 40; ++i)
                for (int shift = 0; shift < 24; shift += 8)
                    away += std::abs(static_cast<int>(*pixels_at(bitmap.get(), i % 64, i / 64) >> shift & 0xff) -
                                     static_cast<int>(*pixels_at(back.bitmap.get(), i % 64, i / 64) >> shift & 0xff));
            EXPECT_LE(away / (64 * 40 * 3), 24.0) << colors << ", " << reduction;
        }
}

TEST(GifWriter, KeepsBlackAndWhite) {
    const OwnedBitmap bitmap = make_bitmap(9, 9, 0xffffff);
    *pixels_at(bitmap.get(), 3, 3) = 0;
    *pixels_at(bitmap.get(), 5, 5) = 0xff0000;
    for (const GifReduction reduction : {REDUCTION_FAST, REDUCTION_BEST}) {
        Bytes bytes;
        ASSERT_TRUE(write_gif(bitmap.get(), reduction, bytes));
        const ReadPicture back = read_gif(bytes);
        ASSERT_TRUE(back.bitmap) << back.cause;
        EXPECT_TRUE(same_pixels(back.bitmap.get(), bitmap.get())) << reduction;
    }
}

TEST(GifWriter, ReportsWhatItCannotWrite) {
    const ScratchFolder folder;
    const OwnedBitmap bitmap = make_bitmap(8, 8, 0x123456);
    const std::size_t whole = written(bitmap.get(), nullptr).size();
    for (std::size_t room = 0; room < whole; room += room < 30 || room + 40 > whole ? 1 : 50) {
        Bytes bytes;
        PACKFILE* const file = open_for_writing(bytes, room);
        EXPECT_EQ(save_gif_pf(file, bitmap.get(), nullptr), -1) << room;
        pack_fclose(file);
    }
    EXPECT_EQ(save_gif("no-such-folder/a.gif", bitmap.get(), nullptr), -1);
    EXPECT_EQ(save_gif("a.gif", nullptr, nullptr), -1);
    EXPECT_FALSE(exists("a.gif"));
    register_gif();
    EXPECT_EQ(save_bitmap("a.gif", bitmap.get(), nullptr), 0);
    EXPECT_TRUE(OwnedBitmap(load_bitmap("a.gif", nullptr)));
}

}  // namespace
}  // namespace nubo
