// The Cel's way into the Frame: pastes of hand-made Cels through the inks, turned, stretched, below, and what takes and
// masks a Cel.
#include "ink_surfaces.h"

#include "harness/user.h"
#include "paint/cel_paste.h"
#include "paint/cel_pixels.h"
#include "state/shown.h"
#include <initializer_list>

namespace nubo {
namespace {

constexpr Color hole = transparent_color;

class CelTest : public InkTest {
protected:
    CelTest() {
        make_frame(6, 4, 0x404040);
        replace_bitmap(overlay, make_bitmap(view_w, view_h, hole));
        replace_bitmap(stripe_pattern, make_bitmap(64, 64, 0xffffff));
        reset_undo_slots();
    }
    /// Rows of equal length.
    static void make_cel(std::initializer_list<std::initializer_list<Color>> rows) {
        OwnedBitmap picture = make_bitmap(static_cast<int>(rows.begin()->size()), static_cast<int>(rows.size()));
        int y = 0;
        for (const auto& row : rows) std::ranges::copy(row, pixels_at(picture.get(), 0, y++));
        ASSERT_TRUE(take_cel(std::move(picture)));
    }
    static void take_ink(Ink ink, int strength) {
        ink_slots[0] = ink;
        ink_option(ink, OPTION_STRENGTH) = strength;
    }
    static void paste(int x, int y, CelMode mode = CEL_PASTE) {
        cel_place = {.x = x, .y = y, .mode = mode};
        prepare_cel();
        EXPECT_TRUE(commit_cel(mode, UNDO_TO_SAVE));
    }
    static std::vector<Color> frame_row(int y) {
        return {pixels_at(current_frame, 0, y), pixels_at(current_frame, 0, y) + current_frame->w};
    }
};

struct InkPaste {
    Ink ink;
    int strength;
    Color first, second;  // what the Cel's 0x8010ff and 0x200040 make of 0x404040
};
// By hand. GLASS at 128: (64 * 127 >> 8 = 31) + (c * 129 >> 8). BRIGHT: 31 + (255 * 129 >> 8 = 128). XOR: c ^ 0x40.
// ADD and SUB at 102 take 0.4 of each component: 51.2, 6.4, 102 and 12.8, 0, 25.6. GRAY at 255 keeps a gray. GLOW at
// radius 0 adds the whole colour. PULL moves the hue alone, of which a gray has none.
constexpr InkPaste ink_pastes[] = {
    {INK_OPAQUE, 0, 0x8010ff, 0x200040}, {INK_GLASS, 128, 0x5f279f, 0x2f1f3f}, {INK_ADD, 102, 0x7346a6, 0x4c4059},
    {INK_SUB, 102, 0x0c3900, 0x334026},  {INK_XOR, 0, 0xc050bf, 0x604000},     {INK_BRIGHT, 128, 0x9f9f9f, 0x9f9f9f},
    {INK_DARK, 128, 0x1f1f1f, 0x1f1f1f}, {INK_GRAY, 255, 0x404040, 0x404040},  {INK_GLOW, 255, 0xc050ff, 0x604080},
    {INK_PULL, 200, 0x404040, 0x404040},
};

TEST_F(CelTest, EachInkTakesTheCelsColorsInThePlaceOfTheBrush) {
    mask_color = 0x010101;
    for (const InkPaste& one : ink_pastes) {
        make_frame(6, 4, 0x404040);
        make_cel({{0x8010ff, 0x020202, 0x200040}});  // the one in the middle is masked out
        take_ink(one.ink, one.strength);
        ink_option(INK_GLOW, OPTION_GLOW_RADIUS) = 0;
        paste(2, 1);
        EXPECT_EQ(frame_row(1), (std::vector<Color>{0x404040, 0x404040, one.first, 0x404040, one.second, 0x404040}))
            << one.ink;
        EXPECT_EQ(frame_row(0), std::vector<Color>(6, 0x404040)) << one.ink;
    }
}

TEST_F(CelTest, MaskingTakesWhatIsNearTheMaskColorOrNothing) {
    mask_color = 0x101010;
    opt_cel_tolerance = 5;
    take_ink(INK_OPAQUE, 0);
    make_cel({{0x101010, 0x14140c, 0x101015, hole, 0x101010}});
    paste(0, 0);
    EXPECT_EQ(frame_row(0), (std::vector<Color>{0x404040, 0x404040, 0x101015, 0x404040, 0x404040, 0x404040}));
    opt_cel_tolerance = 0;
    paste(0, 1);
    EXPECT_EQ(frame_row(1), (std::vector<Color>{0x101010, 0x14140c, 0x101015, 0x404040, 0x101010, 0x404040}));
    opt_cel_tolerance = 5;
    opt_cel_masking = 0;
    paste(0, 2);
    EXPECT_EQ(frame_row(2), frame_row(1));
    EXPECT_EQ(*pixels_at(cel_mask, 0, 0), 0x101010U) << "the Cel itself is never masked";
}

TEST_F(CelTest, PartsBeyondTheFrameAreCut) {
    take_ink(INK_OPAQUE, 0);
    make_cel({{1, 2, 3, 4, 5, 6, 7, 8}, {11, 12, 13, 14, 15, 16, 17, 18}, {21, 22, 23, 24, 25, 26, 27, 28}});
    opt_cel_masking = 0;
    paste(-1, -1);
    EXPECT_EQ(frame_row(0), (std::vector<Color>{12, 13, 14, 15, 16, 17}));
    paste(4, 3);
    EXPECT_EQ(frame_row(3), (std::vector<Color>{0x404040, 0x404040, 0x404040, 0x404040, 1, 2}));
    const auto before = pixels_of(current_frame);
    for (const CelMode mode : {CEL_PASTE, CEL_BELOW, CEL_TURN})
        for (const auto& [x, y] : {std::pair{-100000, 0}, {100000, 100000}, {0, -100000}, {-40, 2}}) paste(x, y, mode);
    EXPECT_EQ(pixels_of(current_frame), before);
}

TEST_F(CelTest, BelowShowsOnlyWhereTheFrameIsOfTheMaskColor) {
    mask_color = 0x404040;
    frame(1, 0) = 0x444444;  // within 4
    frame(2, 0) = 0x404045;
    frame(3, 0) = 0x3c3c3c;
    make_cel({{1, 2, 3, 4, hole}});
    take_ink(INK_OPAQUE, 0);
    paste(0, 0, CEL_BELOW);
    EXPECT_EQ(frame_row(0), (std::vector<Color>{1, 2, 0x404045, 4, hole, 0x404040}))
        << "what lay off the Frame at GET goes along";
    make_frame(6, 4, 0x000000);
    const auto before = pixels_of(current_frame);
    reset_undo_slots();
    paste(0, 0, CEL_BELOW);
    EXPECT_EQ(pixels_of(current_frame), before);
    EXPECT_EQ(undo_steps(), 1);
    const OwnedBitmap plain = make_bitmap(3, 1, 0x404040);
    paste_under_frame(cel_mask, plain.get(), mask_color, 1, 0, false);
    EXPECT_EQ(pixels_of(plain.get()), (std::vector<Color>{0x404040, 1, 2}));
}

/// GLOW reaches ahead: what it has lit up is of the mask colour no more.
TEST_F(CelTest, BelowLooksAtEachPixelWhenItsTurnComes) {
    mask_color = 0x404040;
    make_cel({{0x101010, 0x101010, 0x101010}});
    take_ink(INK_GLOW, 255);
    ink_option(INK_GLOW, OPTION_GLOW_RADIUS) = 1;
    paste(0, 0, CEL_BELOW);
    // The first adds 16 to itself and 8 to its neighbour, which is thereby beyond 4; the third lights itself and the
    // second again.
    EXPECT_EQ(frame_row(0), (std::vector<Color>{0x505050, 0x505050, 0x505050, 0x484848, 0x404040, 0x404040}));
}

TEST_F(CelTest, CommitIsOneUndoStepAndSavesIfTheOpenOneIsNotOfThisFrame) {
    make_cel({{0x808080}});
    take_ink(INK_GLASS, 128);
    cel_place = {.x = 0, .y = 0, .mode = CEL_PASTE};
    prepare_cel();
    ASSERT_TRUE(take_step());
    EXPECT_TRUE(commit_cel(CEL_PASTE, UNDO_IS_TAKEN));
    EXPECT_EQ(undo_steps(), 1);
    EXPECT_EQ(frame(0, 0), 0x5f5f5fU);
    make_frame(3, 3, 0);
    reset_undo_slots();  // as another Frame's arrival does
    EXPECT_TRUE(commit_cel(CEL_PASTE, UNDO_IS_TAKEN));
    EXPECT_EQ(undo_steps(), 1);
    EXPECT_EQ(frame(0, 0), 0x404040U);
    undo_last();
    EXPECT_EQ(frame(0, 0), 0U);
}

TEST_F(CelTest, NothingHappensWithoutMemory) {
    make_cel({{0x808080, 0x909090}});
    take_ink(INK_OPAQUE, 0);
    const auto before = pixels_of(current_frame);
    cel_place = {.x = 2, .y = 2, .x2 = 64, .mode = CEL_TURN};
    refuse_bitmap(0);
    EXPECT_FALSE(commit_cel(CEL_TURN, UNDO_TO_SAVE)) << "the scratch";
    EXPECT_EQ(undo_steps(), 0);
    ASSERT_TRUE(save_undo(false));
    refuse_undo_memory(true);
    for (const CelMode mode : {CEL_PASTE, CEL_BELOW, CEL_STRETCH})
        EXPECT_FALSE(commit_cel(mode, UNDO_TO_SAVE)) << "the step before";
    refuse_undo_memory(false);
    EXPECT_EQ(pixels_of(current_frame), before);
    EXPECT_GT(status_message, 0);
    for (const int made : {0, 1}) {
        refuse_bitmap(made);
        EXPECT_FALSE(take_cel(copy_of_area({0, 0, 1, 1})));
    }
    EXPECT_EQ(*pixels_at(cel, 0, 0), 0x808080U);
}

/// Allegro's own stretching and flipping into a bitmap as large as the box.
OwnedBitmap stretched_by_allegro(int w, int h, bool flips_x, bool flips_y) {
    const OwnedBitmap flipped = make_bitmap(cel->w, cel->h, hole);
    if (flips_x && flips_y)
        draw_sprite_vh_flip(flipped.get(), cel, 0, 0);
    else if (flips_x)
        draw_sprite_h_flip(flipped.get(), cel, 0, 0);
    else if (flips_y)
        draw_sprite_v_flip(flipped.get(), cel, 0, 0);
    else
        draw_sprite(flipped.get(), cel, 0, 0);
    OwnedBitmap box = make_bitmap(w, h, hole);
    stretch_sprite(box.get(), flipped.get(), 0, 0, w, h);
    return box;
}

TEST_F(CelTest, StretchGivesAllegrosPixelsOfTheFramesPart) {
    constexpr int frame_w = 40, frame_h = 30;
    take_ink(INK_OPAQUE, 0);
    opt_cel_masking = 0;
    OwnedBitmap picture = make_bitmap(9, 7);
    for (int i = 0; i < 63; ++i)
        *pixels_at(picture.get(), i % 9, i / 9) = i % 11 == 5 ? hole : static_cast<Color>(i + 1);
    ASSERT_TRUE(take_cel(std::move(picture)));
    constexpr int ends[][4] = {{3, 2, 30, 25},      {30, 25, 3, 2},       {-20, -5, 12, 9},   {12, 28, 60, -40},
                               {5, 5, 6, 6},        {0, 0, 9, 7},         {9, 7, 0, 0},       {2, 3, 4, 29},
                               {-7000, 4, 9000, 8}, {20, -900, 25, 1100}, {500, 500, 30, 20}, {10, 10, 10, 20}};
    for (const auto& [x, y, x2, y2] : ends) {
        make_frame(frame_w, frame_h, 0x404040);
        cel_place = {.x = x, .y = y, .x2 = x2, .y2 = y2, .mode = CEL_STRETCH};
        prepare_cel();
        EXPECT_TRUE(commit_cel(CEL_STRETCH, UNDO_TO_SAVE));
        const OwnedBitmap expected = make_bitmap(frame_w, frame_h, 0x404040);
        const int w = std::abs(x2 - x), h = std::abs(y2 - y);
        if (w > 0 && h > 0)
            draw_sprite(expected.get(), stretched_by_allegro(w, h, x2 < x, y2 < y).get(), std::min(x, x2),
                        std::min(y, y2));
        ASSERT_EQ(pixels_of(current_frame), pixels_of(expected.get())) << x << ' ' << y << ' ' << x2 << ' ' << y2;
        draw_cel(CEL_STRETCH);  // on the overlay the same
        clear_to_color(overlay, static_cast<int>(hole));
        cel_place.selected = 0;
        shown = {};
        shown.mouse_x = shown.pixel_x = 300, shown.mouse_y = shown.pixel_y = 200;  // the percents are written there
        draw_cel(CEL_STRETCH);
        const OwnedBitmap over = make_bitmap(frame_w, frame_h, 0x404040);
        draw_sprite(over.get(), overlay, 0, 0);
        ASSERT_EQ(pixels_of(over.get()), pixels_of(expected.get())) << x << ' ' << y << ' ' << x2 << ' ' << y2;
    }
}

TEST_F(CelTest, TurnGivesThePixelsOfASpriteTurnedOnAFrameOfItsSize) {
    take_ink(INK_OPAQUE, 0);
    opt_cel_masking = 0;
    OwnedBitmap picture = make_bitmap(13, 8);
    for (int i = 0; i < 104; ++i) *pixels_at(picture.get(), i % 13, i / 13) = static_cast<Color>(i + 1);
    ASSERT_TRUE(take_cel(std::move(picture)));
    for (const int angle : {0, 20, 64, 100, 128, 200, 255})
        for (const auto& [x, y] : {std::pair{20, 15}, {0, 0}, {39, 29}, {-4, 12}, {45, 31}}) {
            make_frame(40, 30, 0x404040);
            cel_place = {.x = x, .y = y, .x2 = angle, .mode = CEL_TURN};
            prepare_cel();
            EXPECT_TRUE(commit_cel(CEL_TURN, UNDO_TO_SAVE));
            const OwnedBitmap scratch = make_bitmap(40, 30, hole), expected = make_bitmap(40, 30, 0x404040);
            pivot_scaled_sprite(scratch.get(), cel, x, y, 6, 4, itofix(angle), itofix(1));
            draw_sprite(expected.get(), scratch.get(), 0, 0);
            ASSERT_EQ(pixels_of(current_frame), pixels_of(expected.get())) << angle << " at " << x << ' ' << y;
        }
}

TEST_F(CelTest, ContentAreaIsTheTightBoxOfWhatDoesNotMatch) {
    for (int round = 0; round < 300; ++round) {
        const int w = 1 + UA_random(200), h = 1 + UA_random(9), dots = UA_random(4);
        const OwnedBitmap bitmap = make_bitmap(w, h, 0x202020);
        for (int i = 0; i < w * h; ++i) *pixels_at(bitmap.get(), i % w, i / w) += static_cast<Color>(UA_random(5));
        Area box{w, h, -1, -1};
        for (int i = 0; i < dots; ++i) {
            const int x = UA_random(w), y = UA_random(h);
            *pixels_at(bitmap.get(), x, y) = 0x202520;  // differs by the tolerance
            box = {std::min(box.left, x), std::min(box.top, y), std::max(box.right, x), std::max(box.bottom, y)};
        }
        const auto found = content_area(bitmap.get(), 0x202020, 5);
        ASSERT_EQ(found.has_value(), dots > 0);
        if (!found) continue;
        ASSERT_EQ((std::array{found->left, found->top, found->right, found->bottom}),
                  (std::array{box.left, box.top, box.right, box.bottom}));
    }
    EXPECT_EQ(content_area(current_frame, 0x404040, 0)->width(), 6) << "a tolerance of 0 matches nothing";
}

TEST_F(CelTest, AreaAcrossTheEdgeIsTransparentBeyondAndOneColorKeepsTheBackground) {
    frame(0, 0) = 0x050505, frame(1, 0) = 0x060000;
    ASSERT_TRUE(take_cel(copy_of_area({-1, -1, 1, 0})));
    EXPECT_EQ(pixels_of(cel_mask), (std::vector<Color>{hole, hole, hole, hole, 0x050505, 0x060000}));
    opt_cel_tolerance = 5;
    brush_color = 0x123456;
    one_color_cel(0x000000);
    EXPECT_EQ(*pixels_at(cel_mask, 1, 1), 0x050505U) << "differs by 5, not by more";
    EXPECT_EQ(*pixels_at(cel_mask, 2, 1), 0x123456U);
}

/// The Frame's corner: black, magenta and what is cut off by the shape and by the rim.
TEST_F(CelTest, ACutOutCelHasNoPixelBeyondItsShape) {
    frame(0, 0) = 0x000000, frame(1, 0) = hole, frame(2, 0) = 0x808080;
    PixelSet shape;
    ASSERT_TRUE(shape.reset(6, 4));
    shape.add_run(0, 1, 0);
    ASSERT_TRUE(take_cel(cut_out({-1, 0, 2, 0}, &shape), CEL_IS_CUT_OUT));
    EXPECT_EQ(pixels_of(cel_mask), (std::vector<Color>{hole, 0x000000, 0xfe00ff, hole}));
    mask_color = 0x000000;
    opt_cel_masking = 1, opt_cel_tolerance = 1;
    take_ink(INK_OPAQUE, 0);
    paste(0, 1);
    EXPECT_EQ(frame_row(1), (std::vector<Color>{0x404040, 0x000000, 0xfe00ff, 0x404040, 0x404040, 0x404040}));
    mask_color = 0x404040;
    paste(0, 2, CEL_BELOW);
    EXPECT_EQ(frame_row(2), frame_row(1));
    cel_x = 0, cel_y = 0;
    ink_option(INK_SCRAPE, OPTION_STRENGTH) = 255;
    for (const Ink ink : {INK_TILE, INK_SCRAPE})
        for (const std::uint8_t tip : {std::uint8_t{0}, std::uint8_t{100}}) {
            clear_stroke_mask();
            frame(0, 3) = frame(3, 3) = 0x404040;
            apply_ink_row({0, 3, 4, &tip, 0}, ink, 0);
            EXPECT_EQ(frame(0, 3), 0x404040U) << ink << ' ' << int{tip};
            EXPECT_EQ(frame(3, 3), 0x404040U) << ink << ' ' << int{tip};
        }
    brush_color = 0x123456;
    one_color_cel(0x000000);
    EXPECT_EQ(pixels_of(cel_mask), (std::vector<Color>{hole, 0x000000, 0x123456, hole}));
    frame(0, 0) = hole;
    ASSERT_TRUE(take_area({-1, 0, 0, 0}));
    EXPECT_EQ(pixels_of(cel_mask), (std::vector<Color>{hole, 0xfe00ff}));
    EXPECT_EQ(guides.cel_shape, CEL_IS_CUT_OFF) << "CEL - MASKING works on it as on any";
    ASSERT_TRUE(take_area({0, 0, 1, 0}));
    EXPECT_EQ(pixels_of(cel_mask)[0], hole);
    EXPECT_EQ(guides.cel_shape, CEL_IS_WHOLE);
}

}  // namespace
}  // namespace nubo
