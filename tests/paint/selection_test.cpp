// Lasso and wand beside plain models, on random Frames, also across the seam of their tiles.
#include "harness/user.h"
#include "paint/cel_pixels.h"
#include "paint/image_maps.h"
#include "paint/selection.h"
#include <random>

namespace nubo {
namespace {

using Plain = std::vector<char>;  // a 1 for each pixel that is taken, row by row

class SelectionTest : public EditorTest {
protected:
    int any(int n) { return static_cast<int>(lot_() % static_cast<unsigned>(n)); }
    /// A Frame of few colours near each other, tiled or not, and a view somewhere.
    void make_lot() {
        constexpr std::array<Color, 5> palette{0x000000, 0x010000, 0x040302, 0xff00ff, 0x808080};
        new_frame(1 + any(12), 1 + any(12));
        for (int y = 0; y < frame_h; ++y)
            for (int x = 0; x < frame_w; ++x) *pixels_at(current_frame, x, y) = palette[at(any(any(2) + 4))];
        guides.tiles = any(TILES_COUNT);
        view_center_x = any(100) - 50;
        view_center_y = any(100) - 50;
    }
    static std::size_t place(Point real) { return at(real.y) * at(frame_w) + at(real.x); }
    static bool in_frame(Point p) { return p.x >= 0 && p.y >= 0 && p.x < frame_w && p.y < frame_h; }
    static Point on_frame(Point p) {
        const auto around = [](int value, int size) { return ((value % size) + size) % size; };
        if (guides.tiles == TILES_BOTH || guides.tiles == TILES_ACROSS) p.x = around(p.x, frame_w);
        if (guides.tiles == TILES_BOTH || guides.tiles == TILES_DOWN) p.y = around(p.y, frame_h);
        return p;
    }
    static Plain none() { return Plain(at(frame_w) * at(frame_h)); }
    static Plain plain_of(const PixelSet& set) {
        Plain plain = none();
        for (int y = 0; y < frame_h; ++y)
            for (int x = 0; x < frame_w; ++x) plain[place({x, y})] = set.has(x, y) ? 1 : 0;
        EXPECT_EQ(set.count(), static_cast<std::size_t>(std::ranges::count(plain, 1)));
        return plain;
    }
    static int difference(Color a, Color b) {
        int most = 0;
        for (const int shift : {0, 8, 16})
            most = std::max(most, std::abs(static_cast<int>(a >> shift & 255) - static_cast<int>(b >> shift & 255)));
        return most;
    }

    /// Pixel by pixel: to the sides what reaches the tolerance, up and down what is below it.
    static Plain plain_fill(Point from, int tolerance) {
        Plain plain = none();
        from = on_frame(from);
        if (!in_frame(from) || tolerance == 0) return plain;
        const Color color = *pixels_at(current_frame, from.x, from.y);
        std::vector<Point> waiting{from};
        while (!waiting.empty()) {
            const Point p = waiting.back();
            waiting.pop_back();
            if (std::exchange(plain[place(p)], 1) != 0) continue;
            for (const Point step : {Point{1, 0}, {-1, 0}, {0, 1}, {0, -1}}) {
                const Point next = on_frame({p.x + step.x, p.y + step.y});
                if (!in_frame(next)) continue;
                if (difference(*pixels_at(current_frame, next.x, next.y), color) < tolerance + std::abs(step.x))
                    waiting.push_back(next);
            }
        }
        return plain;
    }

    /// The shortest stretch along one axis that holds all that is taken, by trying each.
    static int plain_extent(const Plain& plain, bool across) {
        const int size = across ? frame_w : frame_h;
        std::vector<char> used(at(size));
        for (int y = 0; y < frame_h; ++y)
            for (int x = 0; x < frame_w; ++x) used[at(across ? x : y)] |= plain[place({x, y})];
        const Point tiled = on_frame({across ? size : 0, across ? 0 : size});
        const bool is_ring = across ? tiled.x == 0 : tiled.y == 0;
        for (int length = 1;; ++length)
            for (int first = 0; first < size && (is_ring || first + length <= size); ++first) {
                int held = 0;
                for (int i = 0; i < std::min(length, size); ++i) held += used[at((first + i) % size)];
                if (held == std::ranges::count(used, 1)) return length;
            }
    }

    /// The Cel of a set has each of its pixels once and nothing else, in the smallest area, near the view's middle.
    static void expect_cel(const PixelSet& set, const Plain& plain) {
        const Area area = area_in_view(set);
        EXPECT_EQ(area.width(), plain_extent(plain, true));
        EXPECT_EQ(area.height(), plain_extent(plain, false));
        const bool is_tiled = on_frame({frame_w, 0}).x == 0;
        EXPECT_TRUE(!is_tiled || std::abs(2 * (area.left + area.width() / 2 - view_center_x)) <= frame_w + 1);
        const OwnedBitmap picture = cut_out(area, &set);
        int left = static_cast<int>(std::ranges::count(plain, 1));
        for (int y = 0; y < picture->h; ++y)
            for (int x = 0; x < picture->w; ++x) {
                const Point real = on_frame({area.left + x, area.top + y});
                Color color = transparent_color;
                if (in_frame(real) && plain[place(real)] != 0) {
                    color = *pixels_at(current_frame, real.x, real.y);
                    if (color == transparent_color) color = 0xfe00ff;
                    --left;
                }
                ASSERT_EQ(*pixels_at(picture.get(), x, y), color) << x << ' ' << y;
            }
        EXPECT_EQ(left, 0);
    }
    std::mt19937 lot_{36};
};

TEST_F(SelectionTest, LassoTakesTheDrawnPolygonOnWhateverTiles) {
    constexpr int margin = 20;
    const OwnedBitmap drawn = make_bitmap(3 * margin, 3 * margin);
    for (int round = 0; round < 400; ++round) {
        make_lot();
        std::vector<Point> way;
        std::vector<int> numbers;
        for (int i = 2 + any(6); i > 0; --i)
            way.push_back({any(2 * margin) - margin / 2, any(2 * margin) - margin / 2});
        for (const Point& p : way) numbers.insert(numbers.end(), {p.x + margin, p.y + margin});
        clear_to_color(drawn.get(), 0);
        polygon(drawn.get(), static_cast<int>(way.size()), numbers.data(), 1);
        Plain plain = none();
        for (int y = 0; y < drawn->h; ++y)
            for (int x = 0; x < drawn->w; ++x) {
                const Point real = on_frame({x - margin, y - margin});
                if (*pixels_at(drawn.get(), x, y) != 0 && in_frame(real)) plain[place(real)] = 1;
            }
        PixelSet taken;
        ASSERT_TRUE(take_polygon(way, taken));
        ASSERT_EQ(plain_of(taken), plain) << round;
        if (!taken.empty()) expect_cel(taken, plain);
    }
}

TEST_F(SelectionTest, WandTakesWhatFillFillsOrAllOfTheColor) {
    for (int round = 0; round < 400; ++round) {
        make_lot();
        const Point from{any(3 * frame_w) - frame_w, any(3 * frame_h) - frame_h};
        const int tolerance = any(6);
        const Plain plain = plain_fill(from, tolerance);
        PixelSet taken;
        ASSERT_TRUE(take_filled(from, tolerance, taken));
        ASSERT_EQ(plain_of(taken), plain) << round;
        if (!taken.empty()) expect_cel(taken, plain);

        Plain alike = none();
        const Point real = on_frame(from);
        for (int i = 0; in_frame(real) && i < frame_w * frame_h; ++i) {
            const Point p{i % frame_w, i / frame_w};
            const Color color = *pixels_at(current_frame, real.x, real.y);
            alike[at(i)] = difference(*pixels_at(current_frame, p.x, p.y), color) < tolerance ? 1 : 0;
        }
        ASSERT_TRUE(take_color(from, tolerance, taken));
        ASSERT_EQ(plain_of(taken), alike) << round;
    }
}

}  // namespace
}  // namespace nubo
