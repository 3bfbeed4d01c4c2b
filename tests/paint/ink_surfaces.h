#pragma once
// A small Frame with its coverage map and snapshot, for the tests of the inks.
#include "base/random.h"
#include "paint/inks.h"
#include "paint/surfaces.h"

#include <gtest/gtest.h>
#include <initializer_list>
#include <vector>

namespace nubo {

/// The color of equal components.
constexpr Color gray(unsigned level) { return level << 16 | level << 8 | level; }

class InkTest : public testing::Test {
protected:
    static void make_frame(int width, int height, Color color) {
        ASSERT_TRUE(adopt_frame(make_bitmap(width, height, color)));
        begin_stroke();
    }
    /// A Frame of few, near components: matches, full coverage and strays all turn up.
    static void make_random_frame(int width, int height, int levels) {
        make_frame(width, height, 0);
        for (int y = 0; y < height; ++y)
            for (int x = 0; x < width; ++x) frame(x, y) = random_color(levels);
        begin_stroke();
    }
    static Color random_color(int levels) {
        const auto level = [levels] { return static_cast<Color>(UA_random(levels) * 255 / (levels - 1)); };
        return level() << 16 | level() << 8 | level();
    }
    static void begin_stroke() {
        clear_stroke_mask();
        replace_bitmap(undo_slots[static_cast<unsigned>(newest_undo)], copy_bitmap(current_frame));
    }
    static Color& frame(int x, int y) { return *pixels_at(current_frame, x, y); }
    static Color& mask(int x, int y) { return *pixels_at(stroke_mask, x, y); }

    static std::vector<Color> pixels_of(BITMAP* bitmap) {
        std::vector<Color> pixels;
        for (int y = 0; y < bitmap->h; ++y)
            pixels.insert(pixels.end(), pixels_at(bitmap, 0, y), pixels_at(bitmap, 0, y) + bitmap->w);
        return pixels;
    }
};

/// Tells beforehand what `UA_random` draws, and keeps what it was asked for.
class ToldDraws {
public:
    explicit ToldDraws(std::initializer_list<int> draws) {
        told().assign(draws);
        asked().clear();
        set_random_source([](int n) {
            const int drawn = asked().size() < told().size() ? told()[asked().size()] : 0;
            asked().push_back(n);
            return drawn;
        });
    }
    ~ToldDraws() { set_random_source(nullptr); }
    ToldDraws(const ToldDraws&) = delete;
    ToldDraws& operator=(const ToldDraws&) = delete;
    static std::vector<int>& asked() {
        static std::vector<int> ranges;
        return ranges;
    }

private:
    static std::vector<int>& told() {
        static std::vector<int> draws;
        return draws;
    }
};

}  // namespace nubo
