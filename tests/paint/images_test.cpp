// Paint through symmetry and tiles, beside plain models of both.
#include "ink_surfaces.h"

#include "base/color.h"
#include "harness/user.h"
#include "paint/images.h"
#include "paint/stroke.h"
#include "paint/tool_table.h"
#include "state/cel.h"
#include "state/shape.h"
#include <random>

namespace nubo {
namespace {

class ImagesTest : public EditorTest {
protected:
    ImagesTest() {
        replace_bitmap(cel_mask, make_bitmap(5, 4));
        fill(cel_mask);
        mask_color = palette[0];
        brush_color = palette[1];
    }
    ~ImagesTest() override { set_random_source(nullptr); }

    int any(int n) { return static_cast<int>(lot_() % static_cast<unsigned>(n)); }
    /// Few colours near each other, so that neighbours match and strays turn up.
    void fill(BITMAP* bitmap) {
        for (int y = 0; y < bitmap->h; ++y)
            for (int x = 0; x < bitmap->w; ++x) *pixels_at(bitmap, x, y) = palette[static_cast<unsigned>(any(5))];
    }
    void set_options(Ink ink) {
        ink_options[at(ink)] = {1 + any(255), ink == INK_GRAIN ? 60 : 3, 0, any(9), any(9), 9 + any(9), 5, 7};
    }
    /// The CustomTip, with all that a tip may hold.
    void make_soft_tip() {
        for (int y = 0; y < custom_tip_h; ++y)
            for (int x = 0; x < custom_tip_w; ++x)
                *pixels_at(tip_sheet, x, custom_tip_y + y) =
                    pack_color(std::abs(x - 8) + std::abs(y - 7) > 5 ? 255 : any(3) * 70, 0, 0);
    }
    static std::vector<Color> pixels_of(BITMAP* bitmap) {
        std::vector<Color> pixels;
        for (int y = 0; y < bitmap->h; ++y)
            pixels.insert(pixels.end(), pixels_at(bitmap, 0, y), pixels_at(bitmap, 0, y) + bitmap->w);
        return pixels;
    }
    static constexpr std::array<Color, 5> palette{0x000000, 0x7f7f7f, 0x800000, 0x7f8080, 0xff7f00};
    std::mt19937 lot_{5};
};

// ---- Rows: each pixel and its images, by laying out the whole surroundings of each anew
// --------------------------------

/// Draws that any pixel can be given again.
int draws_done = 0;
int draw(int n) {
    return static_cast<int>((static_cast<unsigned>(draws_done++) * 2654435761U >> 8) % static_cast<unsigned>(n));
}

/// Where symmetry puts a pixel, by doubled coordinates about the crossing of the axes.
std::vector<Point> images_of(Point p) {
    const int s = guides.axis_x - 1, t = guides.axis_y - 1, dx = 2 * p.x - s, dy = 2 * p.y - t;
    const auto place = [=](int x, int y) { return Point{(x + s) / 2, (y + t) / 2}; };
    switch (guides.symmetry) {
    case SYMMETRY_ACROSS: return {p, {s - p.x, p.y}};
    case SYMMETRY_DOWN: return {p, {p.x, t - p.y}};
    case SYMMETRY_BOTH: return {p, {s - p.x, p.y}, {p.x, t - p.y}, {s - p.x, t - p.y}};
    case SYMMETRY_TURN_2: return {p, {s - p.x, t - p.y}};
    case SYMMETRY_TURN_4: return {p, place(-dy, dx), place(-dx, -dy), place(dy, -dx)};
    default: return {p};
    }
}

bool are_near(const std::vector<Color>& a, const std::vector<Color>& b, int most) {
    return std::ranges::equal(a, b, [=](Color one, Color other) { return colors_match(one, other, most + 1); });
}

bool find_pixel(Point& p) {
    while (tiles_across() && p.x < 0) p.x += frame_w;
    while (tiles_across() && p.x >= frame_w) p.x -= frame_w;
    while (tiles_down() && p.y < 0) p.y += frame_h;
    while (tiles_down() && p.y >= frame_h) p.y -= frame_h;
    return frame_contains(current_frame, p.x, p.y);
}

/// The surroundings of a pixel, as its image number `image` has them; the original is the pixel of the Frame that it
/// is.
class Surroundings {
public:
    static constexpr int reach = 5, side = 2 * reach + 1;
    Surroundings(Point middle, Point original, std::size_t image) : middle_(middle), image_(image) {
        Area inside{original.x, original.y, original.x, original.y};
        each([&](int x, int y, Point real) {
            *pixels_at(frame_.get(), x, y) = *pixels_at(current_frame, real.x, real.y);
            *pixels_at(mask_.get(), x, y) = *pixels_at(stroke_mask, real.x, real.y);
            *pixels_at(before_.get(), x, y) = *pixels_at(stroke_snapshot(), real.x, real.y);
            const int left = original.x - reach + x, top = original.y - reach + y;
            inside = {std::min(inside.left, left), std::min(inside.top, top), std::max(inside.right, left),
                      std::max(inside.bottom, top)};
        });
        canvas_ = {frame_->line, mask_->line, before_->line, {original.x - reach, original.y - reach}, inside};
    }
    const InkCanvas& canvas() const { return canvas_; }
    Color color() const { return *pixels_at(frame_.get(), reach, reach); }
    Color coverage() const { return *pixels_at(mask_.get(), reach, reach); }

private:
    template <typename Visit> void each(Visit visit) const {
        for (int y = 0; y < side; ++y)
            for (int x = 0; x < side; ++x)
                if (Point real = images_of({middle_.x - reach + x, middle_.y - reach + y})[image_]; find_pixel(real))
                    visit(x, y, real);
    }
    OwnedBitmap frame_ = make_bitmap(side, side), mask_ = make_bitmap(side, side), before_ = make_bitmap(side, side);
    Point middle_;
    std::size_t image_;
    InkCanvas canvas_{};
};

void paint_pixel_by_model(Point p, Ink ink, std::uint8_t tip, Color color) {
    std::vector<Point> places;
    std::vector<std::size_t> numbers;
    const std::vector<Point> images = images_of(p);
    for (std::size_t i = 0; i < images.size(); ++i) {
        Point real = images[i];
        if (!find_pixel(real) || std::find(places.begin(), places.end(), real) != places.end()) continue;
        places.push_back(real), numbers.push_back(i);
    }
    Point original = p;
    find_pixel(original);
    if (ink == INK_GLOW) {  // its light is the same all around; it is tested by tools across the seam
        for (const Point place : places) apply_ink(place.x, place.y, ink, color, tip);
        return;
    }
    std::vector<std::unique_ptr<Surroundings>> pieces;
    const int first_draw = draws_done;
    for (const std::size_t number : numbers) pieces.push_back(std::make_unique<Surroundings>(p, original, number));
    for (const auto& piece : pieces) {
        draws_done = first_draw;
        apply_ink_on(piece->canvas(), {original.x, original.y, 1, &tip, 0}, ink, color);
    }
    for (std::size_t i = 0; i < places.size(); ++i) {
        note_painted(places[i].x, places[i].y, 1);
        *pixels_at(current_frame, places[i].x, places[i].y) = pieces[i]->color();
        *pixels_at(stroke_mask, places[i].x, places[i].y) = pieces[i]->coverage();
    }
}

TEST_F(ImagesTest, RowsEqualThePlainModelPixelByPixel) {
    set_random_source(draw);
    constexpr std::array<Point, 6> sizes{{{1, 1}, {1, 6}, {7, 5}, {12, 9}, {20, 20}, {90, 6}}};
    for (int trial = 0; trial < +INK_COUNT * +SYMMETRY_COUNT * 8; ++trial) {
        const Ink ink = static_cast<Ink>(trial % INK_COUNT);
        guides.symmetry = trial / INK_COUNT % SYMMETRY_COUNT;
        guides.tiles = ink == INK_GLOW ? TILES_OFF : any(2) * any(TILES_COUNT);
        const Point size = sizes[static_cast<unsigned>(any(6))];
        new_frame(size.x, size.y);
        if (guides.symmetry == SYMMETRY_TURN_4 && (guides.tiles != TILES_BOTH || size.x != size.y))
            guides.tiles = TILES_OFF;  // turned, such tiles don't lie on each other: chance is another at each
        guides.axis_x = 1 + any(2 * size.x), guides.axis_y = 1 + any(2 * size.y);
        if (guides.symmetry == SYMMETRY_TURN_4 && (guides.axis_x - guides.axis_y) % 2 != 0) ++guides.axis_y;
        fill(current_frame);
        set_options(ink);
        cel_x = any(9), cel_y = any(9);
        const OwnedBitmap before = copy_bitmap(current_frame);
        std::array<InkRow, 6> rows;
        std::array<std::uint8_t, 80> tips;
        for (std::uint8_t& tip : tips)
            tip = std::array<std::uint8_t, 4>{0, 60, 199, 200}[static_cast<unsigned>(any(4))];
        for (InkRow& row : rows)
            row = {any(size.x + 10) - 5, any(size.y + 6) - 3, 1 + any(any(3) == 0 ? 80 : 17), tips.data(),
                   any(4) == 0 ? 0 : 1};
        const auto begin = [&] {
            blit(before.get(), current_frame, 0, 0, 0, 0, size.x, size.y);
            note_all_touched();
            ASSERT_TRUE(save_undo(false));
            clear_stroke_mask();
            draws_done = trial;
        };
        begin();
        for (const InkRow& row : rows)
            for (int i = 0; i < row.length; ++i)
                paint_pixel_by_model({row.x + i, row.y}, ink, row.tip[i * row.tip_step], palette[4]);
        const std::vector<Color> frame = pixels_of(current_frame), mask = pixels_of(stroke_mask);
        const int draws = draws_done;
        begin();
        {
            const StrokeImaging imaging(IMAGES_MIRRORED);
            for (const InkRow& row : rows) paint_row(row, ink, palette[4]);
        }
        const auto what = [&] {
            return std::string(inks[at(ink)].name) + " symmetry " + std::to_string(guides.symmetry) + " tiles " +
                   std::to_string(guides.tiles) + " on " + std::to_string(size.x) + "x" + std::to_string(size.y) +
                   ", trial " + std::to_string(trial);
        };
        // Discs of GLOW that pile up in another order may round to the next level.
        ASSERT_TRUE(are_near(frame, pixels_of(current_frame), ink == INK_GLOW ? 1 : 0)) << what();
        ASSERT_EQ(mask, pixels_of(stroke_mask)) << what();
        ASSERT_EQ(draws, draws_done) << what();
    }
}

// ---- Tools
// -----------------------------------------------------------------------------------------------------------

/// A stroke of any tool between two points, with the CustomTip; what its options don't say is `filled`.
constexpr Color palette_color = 0xff7f00;

void stroke_of(BrushTool tool, Ink ink, Point from, Point to, int filled) {
    tool_slots[0] = tool;
    ink_slots[0] = ink;
    active_tool_slot = active_ink_slot = 0;
    brush_tip = tip_custom;
    tool_options[at(tool)] = {filled, 0, 0, 0, 0, 0, 0, 0};
    if (tool == TOOL_FILL || tool == TOOL_EDGE || tool == TOOL_SEP)
        tool_options[at(tool)][OPTION_TOLERANCE] = 1 + filled;
    if (tool == TOOL_DRIZ) tool_options[at(tool)] = {4, 9};
    if (tool == TOOL_SPRAY) tool_options[at(tool)] = {20, 6};
    spray_tick = 1;
    previous_point = no_point;
    click_points[0] = from, click_points[1] = to;
    point_list = {from, to, {from.x, to.y}, {from.x + (to.x - from.x) / 2, to.y + 2}};
    pixel_x = from.x, pixel_y = from.y;
    if (tool == TOOL_OVAL)
        filled != 0 ? fill_outline(palette_color) : commit_outline(palette_color);
    else
        draw_to_frame(from.x, from.y, tool, ink, tip_custom, palette_color);
}

TEST_F(ImagesTest, MirroredFramesStayMirroredUnderEveryToolAndInk) {
    make_soft_tip();
    for (int trial = 0; trial < +TOOL_COUNT * +INK_COUNT * +SYMMETRY_COUNT; ++trial) {
        const auto tool = static_cast<BrushTool>(trial % TOOL_COUNT);
        const auto ink = static_cast<Ink>(trial / TOOL_COUNT % INK_COUNT);
        guides.symmetry = trial / (+TOOL_COUNT * +INK_COUNT);
        // What isn't mirrored; and inks that look in one direction, where EDGE and SEP. go over the whole Frame.
        const bool is_global = tool == TOOL_EDGE || tool == TOOL_SEP;
        if (is_global || (tool != TOOL_OVAL && tool_rows[at(tool)].commit == nullptr)) continue;
        const int side = 40 + any(2);
        new_frame(side, side - 2 * any(2) * (guides.symmetry == SYMMETRY_TURN_4 ? 0 : 1));
        fill(current_frame);
        guides.axis_x = guides.axis_y = axis_in_the_middle;
        for (int y = 0; y < frame_h; ++y)
            for (int x = 0; x < frame_w; ++x)
                for_each_image(IMAGES_MIRRORED, {x, y}, [&](Point to, const ImageMap&) {
                    *pixels_at(current_frame, to.x, to.y) = *pixels_at(current_frame, x, y);
                });
        note_all_touched();
        set_options(ink);
        const std::vector<Color> before = frame_pixels();
        const Point from{any(side), any(side - 2)};
        stroke_of(tool, ink, from, {from.x + any(17) - 8, from.y + any(17) - 8}, any(2));
        const auto what = [&] {
            return std::string(tools[at(tool)].name) + " " + std::string(inks[at(ink)].name) + " symmetry " +
                   std::to_string(guides.symmetry) + ", trial " + std::to_string(trial);
        };
        // FILL runs over what an earlier run has filled; there the last one wins with inks that have a direction.
        if (tool == TOOL_FILL && inks[at(ink)].sight != SEES_ITSELF) continue;
        for (int y = 0; y < frame_h; ++y)
            for (int x = 0; x < frame_w; ++x)
                for_each_image(IMAGES_MIRRORED, {x, y}, [&](Point to, const ImageMap&) {
                    ASSERT_TRUE(colors_match(frame_pixel(x, y), frame_pixel(to.x, to.y), ink == INK_GLOW ? 2 : 1))
                        << what() << " at " << x << ',' << y;
                });
    }
}

TEST_F(ImagesTest, TiledPaintIsThatOnAFrameOfManyTiles) {
    constexpr int w = 40, h = 28, tiles_a_side = 3;
    make_soft_tip();
    for (int trial = 0; trial < +TOOL_COUNT * +INK_COUNT * 2; ++trial) {
        const auto tool = static_cast<BrushTool>(trial % TOOL_COUNT);
        const auto ink = static_cast<Ink>(trial / TOOL_COUNT % INK_COUNT);
        if ((tool != TOOL_OVAL && tool_rows[at(tool)].commit == nullptr) || has_nodes(ink)) continue;
        const bool is_random = ink == INK_GRAIN || ink == INK_JUMBLE;
        if (is_random && (tool == TOOL_EDGE || tool == TOOL_SEP)) continue;  // which draw for each tile
        new_frame(w, h);
        fill(current_frame);
        for (const int x : {37, 38, 39, 0, 1})
            for (const int y : {26, 27, 0, 1, 2}) *pixels_at(current_frame, x, y) = 0x00ff00;  // for FILL
        set_options(ink);
        note_all_touched();
        const OwnedBitmap tile = copy_bitmap(current_frame);
        const Point from{any(3) - 2 + w * any(2), any(3) - 1 + h * any(2)}, by{any(9) - 4, any(7) - 3};
        const int filled = any(2), seed = trial + 1;
        guides.tiles = TILES_BOTH;
        draws_done = seed;
        set_random_source(draw);
        stroke_of(tool, ink, from, {from.x + by.x, from.y + by.y}, filled);
        const std::vector<Color> painted = frame_pixels();

        guides.tiles = TILES_OFF;
        new_frame(w * tiles_a_side, h * tiles_a_side);
        for (int i = 0; i < tiles_a_side * tiles_a_side; ++i)
            blit(tile.get(), current_frame, 0, 0, i % tiles_a_side * w, i / tiles_a_side * h, w, h);
        note_all_touched();
        const Point there{from.x - (from.x >= 20 ? w : 0) + w, from.y - (from.y >= 14 ? h : 0) + h};
        draws_done = seed;
        stroke_of(tool, ink, there, {there.x + by.x, there.y + by.y}, filled);
        for (int y = 0; y < h; ++y)
            for (int x = 0; x < w; ++x) {
                const Color before = *pixels_at(tile.get(), x, y);
                Color expected = frame_pixel(x + w, y + h);
                for (int i = 0;
                     i < tiles_a_side * tiles_a_side && expected == before && tool != TOOL_EDGE && tool != TOOL_SEP;
                     ++i)
                    expected = frame_pixel(x + i % tiles_a_side * w, y + i / tiles_a_side * h);
                ASSERT_EQ(painted[static_cast<unsigned>(y * w + x)], expected)
                    << tools[at(tool)].name << ' ' << inks[at(ink)].name << " at " << x << ',' << y << ", trial "
                    << trial << " from " << from.x << "," << from.y << " by " << by.x << "," << by.y << " filled "
                    << filled << " there " << there.x << "," << there.y;
            }
    }
}

}  // namespace
}  // namespace nubo
