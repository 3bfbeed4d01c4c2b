// Animations read and written, against what other programs make of the same files.
#include "codecs/apng.h"
#include "codecs/byte_view.h"
#include "codecs/gif_animation.h"
#include "codecs/png_format.h"
#include "picture_files.h"
#include <zlib.h>

namespace nubo {
namespace {

/// A picture of an animation as rows of RGBA, where clear all 0, and its time.
struct Shown {
    Bytes rgba;
    FrameTime time;
};

void append_rgba(BITMAP* bitmap, Bytes& bytes) {
    for (int y = 0; y < bitmap->h; ++y)
        for (int x = 0; x < bitmap->w; ++x) {
            const Color pixel = *pixels_at(bitmap, x, y) >> 24 == 0 ? 0 : *pixels_at(bitmap, x, y);
            for (const int shift : {16, 8, 0, 24}) bytes.push_back(static_cast<std::uint8_t>(pixel >> shift));
        }
}

struct Seen {
    ReadAnimation found;
    std::vector<Shown> pictures{};
};
using Reader = ReadAnimation (*)(FileBytes, const TakePicture&);
Seen read_all(Reader read, FileBytes bytes, std::size_t wanted = SIZE_MAX) {
    Seen seen;
    seen.found = read(bytes, [&](BITMAP* canvas, FrameTime time) {
        append_rgba(canvas, seen.pictures.emplace_back(Shown{{}, time}).rgba);
        return seen.pictures.size() < wanted;
    });
    return seen;
}

void write(const std::string& name, const Bytes& bytes) {
    std::ofstream(name, std::ios::binary)
        .write(reinterpret_cast<const char*>(bytes.data()), static_cast<std::streamsize>(bytes.size()));
}

/// What another program prints; empty if it fails.
std::string told_by(const std::string& command) {
    return std::system((command + " >told 2>problem").c_str()) == 0 ? bytes_of("told") : "";
}

/// All pictures that ImageMagick composes of a GIF.
Bytes composed_by_magick(const std::string& name) {
    told_by("/usr/bin/convert " + name + " -coalesce -background none -alpha Background -depth 8 rgba:all");
    Bytes bytes;
    read_file("all", SIZE_MAX, bytes);
    return bytes;
}

Bytes joined(const std::vector<Shown>& pictures) {
    Bytes bytes;
    for (const Shown& shown : pictures) append(bytes, shown.rgba);
    return bytes;
}

/// How the images of a file do away with themselves, all of them.
void set_disposals(Bytes& gif, int disposal) {
    for (std::size_t i = 0; i + 3 < gif.size(); ++i)
        if (gif[i] == 0x21 && gif[i + 1] == 0xf9 && gif[i + 2] == 4)
            gif[i + 3] = static_cast<std::uint8_t>((gif[i + 3] & ~0x1c) | disposal << 2);
}

TEST(GifAnimation, ComesInAsAnotherProgramComposesIt) {
    const ScratchFolder folder;
    for (const char* file : {"gif_animation_magick.gif", "gif_animation_gifsicle.gif", "gif_animated.gif"})
        for (const int disposal : {-1, 0, 1, 2, 3}) {
            Bytes bytes = test_file(file);
            if (disposal >= 0) set_disposals(bytes, disposal);
            // Where no image has a clear colour ImageMagick puts the file's ground in place of what was there before.
            if (disposal == 3 && file == std::string("gif_animated.gif")) continue;
            write("a.gif", bytes);
            const Seen seen = read_all(read_gif_animation, bytes);
            EXPECT_EQ(seen.found.cause, "") << file;
            EXPECT_TRUE(joined(seen.pictures) == composed_by_magick("a.gif")) << file << ", disposal " << disposal;
        }
    const Seen magick = read_all(read_gif_animation, test_file("gif_animation_magick.gif"));
    ASSERT_EQ(magick.pictures.size(), 6U);
    for (const auto& [i, hundredths] : {std::pair{0U, 10}, {1U, 10}, {2U, 2}, {3U, 7}, {4U, 120}})
        EXPECT_EQ(magick.pictures[i].time, (FrameTime{hundredths, 100})) << i;
    EXPECT_EQ(magick.found.plays, 3U);
    EXPECT_EQ(read_all(read_gif_animation, test_file("gif_several.gif")).found.plays, 1U);
    const Seen some = read_all(read_gif_animation, test_file("gif_animation_magick.gif"), 2);
    EXPECT_TRUE(some.pictures.size() == 2 && some.found.pictures == 6) << "those that nobody wants are counted";
}

// ---- APNG ----------------------------------------------------------------------------------------------------------

/// How the images behind the first one are laid and done away with.
void set_controls(Bytes& png, int disposal, int blend) {
    const ByteView view(png);
    for (std::size_t at = 8; at < png.size(); at += 12 + view.big_32(at)) {
        if (std::memcmp(&png[at + 4], "fcTL", 4) != 0) continue;
        png[at + 8 + 24] = static_cast<std::uint8_t>(disposal);
        if (view.big_32(at + 8) > 0) png[at + 8 + 25] = static_cast<std::uint8_t>(blend);
        const uLong sum = crc32(0, &png[at + 4], 4 + 26);
        for (std::size_t i = 0; i < 4; ++i) png[at + 34 + i] = static_cast<std::uint8_t>(sum >> (24 - 8 * i));
    }
}

/// All pictures that apngdis composes of a file.
Bytes composed_by_apngdis(const std::string& name, int pictures) {
    told_by("apngdis " + name + " seen_");
    Bytes bytes;
    for (int i = 1; i <= pictures; ++i) {
        std::string number = std::to_string(i);
        number.insert(0, std::to_string(pictures).size() - number.size(), '0');
        const OwnedBitmap picture(load_png(("seen_" + number + ".png").c_str(), nullptr));
        if (picture) append_rgba(picture.get(), bytes);
    }
    return bytes;
}

TEST(Apng, ComesInAsAnotherProgramComposesIt) {
    const ScratchFolder folder;
    for (const char* file : {"apng_apngasm.png", "apng_hidden.png"})
        for (const int disposal : {PNG_STAYS, PNG_TO_CLEAR, PNG_TO_BEFORE})
            for (const int blend : {PNG_REPLACES, PNG_LIES_OVER}) {
                Bytes bytes = test_file(file);
                set_controls(bytes, disposal, blend);
                write("a.png", bytes);
                const Seen seen = read_all(read_apng, bytes);
                EXPECT_EQ(seen.found.cause, "") << file;
                EXPECT_TRUE(joined(seen.pictures) == composed_by_apngdis("a.png", seen.found.pictures))
                    << file << ", disposal " << disposal << ", blend " << blend;
            }
    const Seen seen = read_all(read_apng, test_file("apng_apngasm.png"));
    ASSERT_EQ(seen.pictures.size(), 4U);
    EXPECT_TRUE(seen.pictures[0].time == (FrameTime{1, 12}) && seen.pictures[2].time == (FrameTime{6, 40}));
    EXPECT_EQ(seen.found.plays, 3U);
    EXPECT_EQ(read_all(read_apng, test_file("apng_hidden.png")).pictures.size(), 3U);
    EXPECT_EQ(read_all(read_apng, test_file("png_rgb8_n.png")).pictures.size(), 1U) << "a picture is one of one";
}

TEST(Animations, ThatAreCutGiveWhatCameBefore) {
    for (const auto& [file, read] : {std::pair<const char*, Reader>{"gif_animation_magick.gif", read_gif_animation},
                                     {"apng_apngasm.png", read_apng}}) {
        const Bytes whole = test_file(file);
        const std::vector<Shown> pictures = read_all(read, whole).pictures;
        for (std::size_t size = 0; size < whole.size(); ++size) {
            const Seen seen = read_all(read, FileBytes(whole).first(size));
            ASSERT_LE(seen.pictures.size(), pictures.size());
            EXPECT_TRUE(!seen.found.cause.empty() || seen.pictures.size() > 1 || file[0] == 'g')
                << file << ", " << size;
            for (std::size_t i = 0; i < seen.pictures.size(); ++i)
                ASSERT_TRUE(seen.pictures[i].rgba == pictures[i].rgba) << file << ", " << size;
        }
    }
}

// ---- Written -------------------------------------------------------------------------------------------------------

constexpr Color ground = 0xff00ff;

/// Pictures of 40 by 30: a field of `colors` colours, over which a box of ground runs.
class Walk {
public:
    Walk(int pictures, int colors, bool clear, FrameTime time, std::uint32_t plays) : colors_(colors) {
        animation.width = 40;
        animation.height = 30;
        animation.times.assign(at(pictures), time);
        animation.picture = [this](int i) { return picture(i); };
        if (clear) animation.clear = ground;
        animation.plays = plays;
    }
    BITMAP* picture(int i) {
        for (int y = 0; y < bitmap_->h; ++y)
            for (int x = 0; x < bitmap_->w; ++x) {
                const bool boxed = x > i % 30 && x < i % 30 + 9 && y > 4 && y < 12;
                *pixels_at(bitmap_.get(), x, y) = boxed ? ground : static_cast<Color>((x + y * 40) % colors_ * 0x1357);
            }
        return bitmap_.get();
    }
    /// What it is to look like.
    Bytes wanted() {
        Bytes bytes;
        for (int i = 0; i < static_cast<int>(animation.times.size()); ++i) {
            BITMAP* const shown = picture(i);
            for (int y = 0; y < shown->h; ++y)
                for (int x = 0; x < shown->w; ++x)
                    if (Color& pixel = *pixels_at(shown, x, y); !animation.clear || pixel != ground)
                        pixel |= 0xff000000;
            append_rgba(shown, bytes);
        }
        return bytes;
    }
    WrittenAnimation animation;

private:
    int colors_;
    OwnedBitmap bitmap_ = make_bitmap(40, 30);
};

struct WalkCase {
    int pictures, colors;
    bool clear;
    std::uint32_t plays;
};
constexpr WalkCase walks[] = {
    {1, 2, false, 1}, {2, 2, true, 0}, {2, 255, false, 1}, {29, 254, true, 3}, {100, 7, false, 0}};

TEST(GifAnimation, LooksToOtherProgramsAsItWasPainted) {
    const ScratchFolder folder;
    for (const WalkCase& row : walks) {
        Walk walk(row.pictures, row.colors, row.clear, {1, 12}, row.plays);
        Bytes bytes;
        ASSERT_TRUE(write_gif_animation(walk.animation, REDUCTION_FAST, bytes));
        write("a.gif", bytes);
        EXPECT_TRUE(composed_by_magick("a.gif") == walk.wanted()) << row.pictures;
        const std::string told = told_by("gifsicle --info a.gif");
        const bool for_ever = told.find("loop forever") != std::string::npos;
        EXPECT_TRUE(for_ever == (row.plays == 0)) << told;
        EXPECT_EQ(told.find("loop count 2") != std::string::npos, row.plays == 3) << told;
        EXPECT_TRUE(joined(read_all(read_gif_animation, bytes).pictures) == walk.wanted()) << row.pictures;
    }
}

std::string delays_of(const Bytes& bytes) {
    std::string delays;
    for (const Shown& shown : read_all(read_gif_animation, bytes).pictures)
        delays += std::to_string(shown.time.in_parts(100)) + " ";
    return delays;
}

TEST(GifAnimation, CarriesOnWhatADelayFallsShortOfAndAddsUpEqualNeighbours) {
    struct DelayCase {
        FrameTime time;
        const char *told, *added;  // where three are equal each
    };
    for (const auto& [time, told, added] :
         {DelayCase{{1, 12}, "8 9 8 8 9 8 ", "25 25 "}, DelayCase{{1, 8}, "13 12 13 12 13 12 ", "38 37 "},
          DelayCase{{1, 60}, "2 2 2 2 2 2 ", "5 5 "}, DelayCase{{1, 40}, "3 2 3 2 3 2 ", "8 7 "}}) {
        Walk walk(6, 5, false, time, 0);
        Bytes bytes;
        ASSERT_TRUE(write_gif_animation(walk.animation, REDUCTION_FAST, bytes));
        EXPECT_EQ(delays_of(bytes), told);
        const auto moving = walk.animation.picture;
        walk.animation.picture = [&](int i) { return moving(i / 3); };
        bytes.clear();
        ASSERT_TRUE(write_gif_animation(walk.animation, REDUCTION_FAST, bytes));
        EXPECT_EQ(delays_of(bytes), added) << told;
    }
}

TEST(GifAnimation, BringsAllPicturesToOnePaletteTogether) {
    for (const GifReduction reduction : {REDUCTION_FAST, REDUCTION_GOOD, REDUCTION_BEST}) {
        Walk walk(3, 1200, true, {1, 10}, 0);
        Bytes bytes;
        ASSERT_TRUE(write_gif_animation(walk.animation, reduction, bytes));
        const std::vector<Shown> seen = read_all(read_gif_animation, bytes).pictures;
        ASSERT_EQ(seen.size(), 3U);
        const Bytes wanted = walk.wanted();
        for (std::size_t i = 3; i < seen[0].rgba.size(); i += 4) {
            for (std::size_t k = 0; k < 3; ++k)
                ASSERT_EQ(seen[k].rgba[i], wanted[k * seen[0].rgba.size() + i]) << "what is clear, and nothing else";
            const bool stays = seen[0].rgba[i] != 0 && seen[2].rgba[i] != 0;
            ASSERT_TRUE(!stays || seen[0].rgba[i - 1] == seen[2].rgba[i - 1]) << "no colour flickers";
        }
    }
}

TEST(Apng, LooksToOtherProgramsAsItWasPainted) {
    const ScratchFolder folder;
    for (const WalkCase& row : walks) {
        Walk walk(row.pictures, row.colors, row.clear, {7, 60}, row.plays);
        Bytes bytes;
        ASSERT_TRUE(write_apng(walk.animation, bytes));
        write("a.png", bytes);
        EXPECT_TRUE(composed_by_apngdis("a.png", row.pictures) == walk.wanted()) << row.pictures;
        const Seen seen = read_all(read_apng, bytes);
        EXPECT_TRUE(joined(seen.pictures) == walk.wanted()) << row.pictures;
        EXPECT_TRUE(seen.found.cause.empty() && seen.found.plays == row.plays);
        EXPECT_EQ(seen.pictures.back().time, (FrameTime{7, 60}));
        const ReadPicture still = read_png(bytes);
        EXPECT_TRUE(still.bitmap && still.bitmap->w == 40) << "to who knows no animations";
    }
}

}  // namespace
}  // namespace nubo
