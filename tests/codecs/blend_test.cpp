#include "codecs/blend.h"

#include "codecs/blend_rows.h"
#include "harness/harness.h"

#include <climits>
#include <utility>

namespace nubo {
namespace {

// ---- The formulas, as they are stated for whole words: two pixels at 16 and 15 bits, one at 32 ---------------------

using Word = std::uint32_t;
struct Masks {
    Word key, a, b, half, low;
};
const std::map<int, Masks> masks{{32, {0xff00ff, 0xff00ff, 0xff00, 0xfefefe, 0x010101}},
                                 {16, {0xf81f, 0x07e0f81f, 0xf81f07e0, 0xf7def7de, 0x08210821}},
                                 {15, {0x7c1f, 0x03e07c1f, 0x7c1f03e0, 0x7bde7bde, 0x04210421}}};

Word stated_blit(int bits, Word d, Word p, Word fact) {
    const auto& [key, a, b, half, low] = masks.at(bits);
    const Word s = bits == 32 ? fact : (fact + 7) >> 3;
    if (bits == 32 ? s == 127 || s == 128 : s == 16) return ((d & half) >> 1) + ((p & half) >> 1) + (d & p & low);
    const Word low_lanes = ((((p & a) - (d & a)) * s >> (bits == 32 ? 8 : 5)) + (d & a)) & a;
    if (bits == 32) return low_lanes | (((((p & b) - (d & b)) * s >> 8) + (d & b)) & b);
    return (((d & b) + (((p & b) >> 5) - ((d & b) >> 5)) * s) & b) | low_lanes;
}

Word stated_fill(int bits, Word d, Word color, Word fact) {
    const auto& [key, a, b, half, low] = masks.at(bits);
    if (bits == 32) {
        const Word s = fact + 1, on_a = ((color & a) * s >> 8) & a, on_b = ((color & b) * s >> 8) & b;
        return (((((d & b) * (256 - s)) >> 8) + on_b) & b) | (((((d & a) * (256 - s)) >> 8) + on_a) & a);
    }
    const Word s = (fact + 7) >> 3, g = 32 - s, c = color << 16 | color;
    const Word on_b = (((c & b) >> 5) * s) & b, on_a = ((c & a) * s >> 5) & a;
    return ((((((d & b) >> 5) * g) & b) + on_b) & b) | (((((d & a) * g >> 5) & a) + on_a) & a);
}

/// A row through a formula, two pixels to the word where the depth has it so; `source` has a pixel for each.
using Pixels = std::vector<Word>;
Pixels stated_row(int bits, const Pixels& target, const Pixels& source, Word fact, bool fill) {
    Pixels result;
    const std::size_t step = bits == 32 ? 1 : 2;
    for (std::size_t i = 0; i < target.size(); i += step) {
        Word d = 0, p = 0;
        for (std::size_t k = i; k < std::min(i + step, target.size()); ++k) {
            d |= target[k] << (16 * (k - i));
            p |= (!fill && source[k] == masks.at(bits).key ? target[k] : source[k]) << (16 * (k - i));
        }
        const bool skipped = bits == 32 && !fill && source[i] == masks.at(bits).key;
        const Word word = skipped ? d : fill ? stated_fill(bits, d, source[i], fact) : stated_blit(bits, d, p, fact);
        result.push_back(step == 1 ? word : word & 0xffff);
        if (i + 1 < target.size() && step == 2) result.push_back(word >> 16);
    }
    return result;
}

// ---- Bitmaps of any depth ------------------------------------------------------------------------------------------

Word pixel(BITMAP* bitmap, int x, int y) { return static_cast<Word>(getpixel(bitmap, x, y)); }

/// Every pixel differs from its neighbours; with a key, every third is of the colour key.
OwnedBitmap patterned(int bits, int w, int h, Word seed, bool with_key) {
    OwnedBitmap bitmap(create_bitmap_ex(bits, w, h));
    for (int i = 0; i < w * h; ++i) {
        const Word mixed = (static_cast<Word>(i) + seed) * 2654435761U >> 8 & (bits == 15 ? 0x7fff : 0xffffff);
        putpixel(bitmap.get(), i % w, i / w, static_cast<int>(with_key && i % 3 == 0 ? masks.at(bits).key : mixed));
    }
    return bitmap;
}

/// Fails unless `after` is `before` with a w x h rectangle at (x, y) blended: `source`, or the color where it is null.
void expect_blended(BITMAP* before, BITMAP* after, int x, int y, int w, int h, int fact, BITMAP* source, Word color) {
    const int bits = bitmap_color_depth(after);
    for (int at = 0; at < after->w * after->h; ++at) {
        const int column = at % after->w, row = at / after->w;
        const bool inside = column >= x && column < x + w && row >= y && row < y + h;
        const Pixels d{pixel(before, column, row)};
        const Pixels p{inside && source != nullptr ? pixel(source, column - x, row - y) : color};
        const Pixels expected = inside ? stated_row(bits, d, p, static_cast<Word>(fact), source == nullptr) : d;
        ASSERT_EQ(pixel(after, column, row), expected[0])
            << bits << " bits, strength " << fact << ", at " << x << ", " << y << ": pixel " << column << ", " << row;
    }
}

// ---- Tests ---------------------------------------------------------------------------------------------------------

/// All pairs of pixels at the edges: the ends of each channel, and the colour key with one bit turned.
std::pair<Pixels, Pixels> edge_pairs(int bits) {
    const Masks& depth = masks.at(bits);
    Pixels edges{0, 0xffffffff, 0x7f7f7f, 0x808080, 0x01fe01, depth.half, depth.low, depth.key}, below, above;
    for (int bit = 0; bit < (bits == 32 ? 32 : 16); ++bit) edges.push_back(depth.key ^ Word{1} << bit);
    for (const Word d : edges)
        for (const Word s : edges) {
            below.push_back(bits == 32 ? d : d & 0xffff);
            above.push_back(bits == 32 ? s : s & 0xffff);
        }
    below.pop_back(), above.pop_back();  // odd: at 16 and 15 bits the last pixel stands alone
    return {below, above};
}

TEST(BlendRows, EachFormGivesTheFormulasForEveryStrengthAndPairOfEdges) {
    const auto [below, above] = edge_pairs(32);
    for (Word fact = 1; fact < 255; ++fact)
        for (const BlendRows& form : blend_row_forms()) {
            Pixels row = below;
            const int length = static_cast<int>(row.size()), strength = static_cast<int>(fact);
            fact == 127 || fact == 128 ? form.blit_half(above.data(), row.data(), length)
                                       : form.blit(above.data(), row.data(), length, strength);
            ASSERT_EQ(row, stated_row(32, below, above, fact, false)) << form.name << ' ' << fact;
            row = below;
            form.fill(row.data(), length, above[fact], strength);
            ASSERT_EQ(row, stated_row(32, below, Pixels(below.size(), above[fact]), fact, true)) << form.name << fact;
        }
}

TEST(BlendRows, NarrowOnesGiveTheFormulasOnWordsForEveryStrengthAndPairOfEdges) {
    for (const NarrowDepth* depth : {&depth_16, &depth_15}) {
        const auto [below, above] = edge_pairs(depth->bits);
        const std::vector<std::uint16_t> over(above.begin(), above.end());
        for (int s = 1; s < narrow_full; ++s) {
            std::vector<std::uint16_t> row(below.begin(), below.end()), filled = row;
            const Word fact = static_cast<Word>(s) * 8;
            blit_narrow_row(*depth, over.data(), row.data(), static_cast<int>(row.size()), s);
            ASSERT_EQ(Pixels(row.begin(), row.end()), stated_row(depth->bits, below, above, fact, false)) << s;
            fill_narrow_row(*depth, filled.data(), static_cast<int>(row.size()), over[fact], s);
            ASSERT_EQ(Pixels(filled.begin(), filled.end()),
                      stated_row(depth->bits, below, Pixels(below.size(), above[fact]), fact, true));
        }
    }
}

TEST(Blend, ClipsAtEveryEdgeAtEachDepth) {
    constexpr int w = 19, h = 5, source_w = 13, source_h = 3;
    for (const int bits : {32, 16, 15})
        for (const int fact : {1, 126, 127, 128, 240})
            for (int y = -4; y <= h; y += 3)
                for (int x = -source_w - 1; x <= w; ++x) {
                    const OwnedBitmap source = patterned(bits, source_w, source_h, 7, true);
                    const OwnedBitmap target = patterned(bits, w, h, 99, false), before = copy_bitmap(target.get());
                    const Word color = pixel(target.get(), 3, 3);
                    trans_blit(source.get(), target.get(), x, y, fact);
                    expect_blended(before.get(), target.get(), x, y, source_w, source_h, fact, source.get(), 0);
                    const OwnedBitmap between = copy_bitmap(target.get());
                    trans_rectfill(target.get(), x, y, 9, 4, color, fact);
                    expect_blended(between.get(), target.get(), x, y, 9, 4, fact, nullptr, color);
                }
}

TEST(Blend, HalfHoldsForTheBlitOnlyAndTheEndsAreExact) {
    const OwnedBitmap black = make_bitmap(3, 1), white = make_bitmap(3, 1, 0xffffff), target = copy_bitmap(white.get());
    trans_blit(black.get(), target.get(), 0, 0, 128);
    EXPECT_EQ(pixel(target.get(), 2, 0), 0x7f7f7fU);
    trans_blit(white.get(), target.get(), 0, 0, 255);
    trans_rectfill(target.get(), 0, 0, 3, 1, 0, 128);
    EXPECT_EQ(pixel(target.get(), 2, 0), 0x7e7e7eU);  // 255 * (256 - 129) / 256 = 126.5

    for (const int bits : {32, 16, 15}) {
        const OwnedBitmap source = patterned(bits, 7, 4, 3, true), painted = patterned(bits, 9, 6, 5, false);
        const OwnedBitmap masked = copy_bitmap(painted.get());
        trans_blit(source.get(), painted.get(), 1, 1, 0);
        trans_rectfill(painted.get(), 0, 0, 9, 6, 0x1234, 0);
        trans_blit(source.get(), painted.get(), -1, 3, 255);
        masked_blit(source.get(), masked.get(), 0, 0, -1, 3, 7, 4);
        expect_blended(masked.get(), painted.get(), 0, 0, 0, 0, 0, nullptr, 0);
        trans_rectfill(painted.get(), 8, 5, 4, 4, 0x1234, 255);
        EXPECT_EQ(pixel(painted.get(), 8, 5), 0x1234U);
    }
}

TEST(Blend, LeavesOtherDepthsEmptyRectanglesAndAllOutsideAlone) {
    for (const auto& [bits, source_bits] : {std::pair{32, 16}, {16, 32}, {16, 15}, {8, 8}, {24, 24}}) {
        const OwnedBitmap source(create_bitmap_ex(source_bits, 8, 8)), target(create_bitmap_ex(bits, 8, 8));
        clear_to_color(source.get(), 77);
        clear_to_color(target.get(), 33);
        for (const int fact : {100, 255}) {
            trans_blit(source.get(), target.get(), 0, 0, fact);
            if (bits == 8 || bits == 24) trans_rectfill(target.get(), 0, 0, 4, 4, 5, fact);
            trans_blit(target.get(), target.get(), INT_MIN, 0, fact);
            for (const auto& [x, y, w, h] : {std::array{8, 0, 3, 3},
                                             {0, -3, 3, 3},
                                             {2, 2, 0, 5},
                                             {2, 2, 5, -1},
                                             {INT_MIN, 0, INT_MAX, 9},
                                             {INT_MAX, 0, INT_MAX, 9},
                                             {0, INT_MIN, 3, INT_MIN}})
                trans_rectfill(target.get(), x, y, w, h, 5, fact);
        }
        for (int at = 0; at < 64; ++at) ASSERT_EQ(getpixel(target.get(), at % 8, at / 8), 33) << bits << source_bits;
    }
}

TEST(Blend, KeepsInsideASubBitmap) {
    const OwnedBitmap whole = patterned(32, 20, 12, 4, false), sheet = patterned(32, 30, 10, 8, true);
    const OwnedBitmap part(create_sub_bitmap(whole.get(), 4, 3, 11, 6));
    const OwnedBitmap sprite(create_sub_bitmap(sheet.get(), 7, 2, 9, 5)), before = copy_bitmap(whole.get());
    trans_blit(sprite.get(), part.get(), 2, 1, 90);
    expect_blended(before.get(), whole.get(), 4 + 2, 3 + 1, 9, 5, 90, sprite.get(), 0);
    const OwnedBitmap between = copy_bitmap(whole.get());
    trans_rectfill(part.get(), -5, -5, 99, 99, 0x8040c0, 30);
    expect_blended(between.get(), whole.get(), 4, 3, 11, 6, 30, nullptr, 0x8040c0);
}

}  // namespace
}  // namespace nubo
