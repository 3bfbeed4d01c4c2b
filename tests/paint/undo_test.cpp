#include "paint/undo.h"

#include "harness/harness.h"
#include "paint/surfaces.h"
#include "state/messages.h"
#include "state/options.h"
#include "state/status.h"

namespace nubo {
namespace {

/// A Frame whose states are told by the colour of its last pixel, painted after a save as a stroke does.
class UndoTest : public testing::Test {
protected:
    UndoTest() { EXPECT_TRUE(adopt_frame(make_bitmap(5, 3, 0))); }

    static bool stroke(Color color) {
        if (!save_undo(false)) return false;
        paint(color);
        return true;
    }
    static void paint(Color color) {
        clear_to_color(current_frame, static_cast<int>(color));
        note_all_touched();
    }
    static Color state() { return *pixels_at(current_frame, current_frame->w - 1, current_frame->h - 1); }
    static Color after_undo() { return undo_last(), state(); }
    static Color after_redo() { return redo_last(), state(); }
};

TEST_F(UndoTest, WalksBackToItsDepthAndForthAgain) {
    for (int depth = 1; depth <= undo_depth_max; ++depth) {
        opt_undo_depth = depth;
        reset_undo_slots();
        const Color last = 20, first = last - static_cast<Color>(depth);
        for (Color color = 1; color <= last; ++color) {
            const Color before = state();
            ASSERT_TRUE(stroke(color));
            ASSERT_EQ(*pixels_at(stroke_snapshot(), 4, 2), before) << "what inks read";
        }
        for (Color color = last; color-- > first;) ASSERT_EQ(after_undo(), color);
        ASSERT_EQ(after_undo(), first) << "older states have fallen out";
        for (Color color = first; color++ < last;) {
            ASSERT_EQ(after_redo(), color);
            ASSERT_EQ(after_undo(), color - 1) << "a redo can be undone";
            ASSERT_EQ(after_redo(), color);
        }
        ASSERT_EQ(after_redo(), last);
        undo_last();
        ASSERT_TRUE(stroke(30));
        ASSERT_EQ(after_redo(), 30U) << "a stroke ends the redo chain";
    }
}

TEST_F(UndoTest, AStepLeavesTheChainsAloneUntilItCounts) {
    opt_undo_depth = 2;
    for (const Color color : {1U, 2U, 3U}) ASSERT_TRUE(stroke(color));
    ASSERT_EQ(after_undo(), 2U);
    ASSERT_TRUE(take_step());
    paint(9);
    ASSERT_TRUE(take_back_step());
    EXPECT_EQ(state(), 2U);
    EXPECT_EQ(after_redo(), 3U);
    EXPECT_EQ(after_undo(), 2U);
    ASSERT_TRUE(take_step());
    paint(9);
    count_step();
    EXPECT_EQ(*pixels_at(stroke_snapshot(), 4, 2), 2U) << "what inks read";
    EXPECT_EQ(after_redo(), 9U) << "it ends the redo chain";
    EXPECT_EQ(after_undo(), 2U);
    EXPECT_EQ(after_undo(), 1U);
}

}  // namespace
}  // namespace nubo
