#pragma once
// A small Frame with its coverage map and snapshot, for the tests of the inks.
#include "base/random.h"
#include "paint/inks.h"
#include "paint/surfaces.h"

#include <gtest/gtest.h>
#include <vector>

namespace nubo {

/// The colour of equal components.
constexpr Color gray(unsigned level) { return level << 16 | level << 8 | level; }

class InkTest : public testing::Test {
protected:
    ~InkTest() override { set_random_source(nullptr); }

    static Color& frame(int x, int y) { return *pixels_at(current_frame, x, y); }
    static Color& mask(int x, int y) { return *pixels_at(stroke_mask, x, y); }
    static Color painted(Ink ink, int x, int y, int tip = 0) { return apply_ink(x, y, ink, 0, tip), frame(x, y); }
    static void make_frame(int width, int height, Color color) {
        ASSERT_TRUE(adopt_frame(make_bitmap(width, height, color)));
        begin_stroke();
    }
    static void begin_stroke() {
        clear_stroke_mask();
        replace_bitmap(undo_snapshot, copy_bitmap(current_frame));
    }
    static std::vector<Color> pixels_of(BITMAP* bitmap) {
        std::vector<Color> pixels;
        for (int y = 0; y < bitmap->h; ++y)
            pixels.insert(pixels.end(), pixels_at(bitmap, 0, y), pixels_at(bitmap, 0, y) + bitmap->w);
        return pixels;
    }
    /// From here on `UA_random` draws these, and `asked` holds what it was asked for.
    static void tell_draws(std::vector<int> draws) {
        told = std::move(draws);
        asked.clear();
        set_random_source([](int n) { return asked.push_back(n), told[asked.size() - 1]; });
    }
    static inline std::vector<int> told, asked;
};

}  // namespace nubo
