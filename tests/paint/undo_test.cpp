#include "paint/undo.h"

#include "base/log.h"
#include "harness/harness.h"
#include "paint/surfaces.h"
#include "state/messages.h"
#include "state/options.h"
#include "state/run.h"
#include "state/view.h"

#include <algorithm>
#include <gtest/gtest.h>

namespace nubo {
namespace {

/// A Frame whose states are told by one colour each, painted after a save as a stroke does.
class UndoTest : public testing::Test {
protected:
    UndoTest() {
        EXPECT_TRUE(adopt_frame(make_bitmap(5, 3, 0)));
        UA_log_open();
    }
    ~UndoTest() override { UA_log_close(); }

    static bool stroke(Color color) {
        if (!save_undo(false)) return false;
        clear_to_color(current_frame, static_cast<int>(color));
        return true;
    }
    /// The colour of the whole Frame, or a number that is none if it isn't of one colour.
    static Color state() {
        const Color first = *pixels_at(current_frame, 0, 0);
        for (int y = 0; y < current_frame->h; ++y)
            for (int x = 0; x < current_frame->w; ++x)
                if (*pixels_at(current_frame, x, y) != first) return 0xffffffff;
        return first;
    }
    static Color after_undo() { return undo_last(), state(); }
    static Color after_redo() { return redo_last(), state(); }
    static long bitmaps_held() {
        const auto held = [](const BITMAP* slot) { return slot != nullptr; };
        return std::ranges::count_if(undo_slots, held) + std::ranges::count_if(redo_slots, held);
    }

    ScratchFolder scratch_;
};

OwnedBitmap no_memory(BITMAP*) { return nullptr; }

TEST_F(UndoTest, WalksBackToItsDepthAndForthAgain) {
    opt_undo_depth = 3;
    for (const Color color : {1U, 2U, 3U, 4U}) ASSERT_TRUE(stroke(color));
    EXPECT_EQ(after_undo(), 3U);
    EXPECT_EQ(after_undo(), 2U);
    EXPECT_EQ(after_undo(), 1U);
    EXPECT_EQ(after_undo(), 1U) << "the state before the first stroke has fallen out";
    EXPECT_EQ(after_redo(), 2U);
    EXPECT_EQ(after_undo(), 1U) << "a redo can be undone";
    EXPECT_EQ(after_redo(), 2U);
    EXPECT_EQ(after_redo(), 3U);
    EXPECT_EQ(after_redo(), 4U);
    EXPECT_EQ(after_redo(), 4U);
}

TEST_F(UndoTest, HoldsOneStateAtDepthOneAndTwelveAtTwelve) {
    opt_undo_depth = 1;
    for (const Color color : {1U, 2U}) ASSERT_TRUE(stroke(color));
    EXPECT_EQ(after_undo(), 1U);
    EXPECT_EQ(after_undo(), 1U);
    EXPECT_EQ(after_redo(), 2U);

    reset_undo_slots();
    opt_undo_depth = 12;
    for (Color color = 3; color < 20; ++color) ASSERT_TRUE(stroke(color));
    for (Color color = 18; color >= 7; --color) EXPECT_EQ(after_undo(), color);
    EXPECT_EQ(after_undo(), 7U);
    for (Color color = 8; color < 20; ++color) EXPECT_EQ(after_redo(), color);
}

TEST_F(UndoTest, NewStrokeEndsTheRedoChain) {
    for (const Color color : {1U, 2U}) ASSERT_TRUE(stroke(color));
    EXPECT_EQ(after_undo(), 1U);
    ASSERT_TRUE(stroke(5));
    EXPECT_EQ(after_redo(), 5U);
    EXPECT_EQ(after_undo(), 1U);
}

TEST_F(UndoTest, NewestSlotIsTheSnapshotOfTheStroke) {
    for (const Color color : {1U, 2U, 3U, 4U, 5U}) {
        const Color before = state();
        ASSERT_TRUE(stroke(color));
        EXPECT_EQ(*pixels_at(stroke_snapshot(), 4, 2), before);
    }
}

TEST_F(UndoTest, MakesBitmapsOnlyForStates) {
    opt_undo_depth = 4;
    EXPECT_EQ(bitmaps_held(), 0);
    for (const Color color : {1U, 2U, 3U, 4U, 5U, 6U}) ASSERT_TRUE(stroke(color));
    EXPECT_EQ(bitmaps_held(), 4);
    for (int i = 0; i < 4; ++i) undo_last();
    for (int i = 0; i < 4; ++i) redo_last();
    EXPECT_EQ(bitmaps_held(), 5) << "a state that moves between the chains takes its bitmap along, but for one";

    opt_undo_depth = 2;
    ASSERT_TRUE(stroke(7));
    EXPECT_LE(bitmaps_held(), 4) << "those beyond the lowered depth are freed";
    for (unsigned i = 2; i < undo_depth_max; ++i) EXPECT_EQ(undo_slots[i], nullptr) << i;

    reset_undo_slots();
    EXPECT_EQ(bitmaps_held(), 0);
    EXPECT_EQ(after_undo(), 7U) << "the chain went with the reset";
}

TEST_F(UndoTest, RefusesWithoutMemoryAndChangesNothing) {
    ASSERT_TRUE(stroke(2));
    reset_undo_slots();
    ASSERT_TRUE(stroke(3));

    set_undo_source(no_memory);
    EXPECT_FALSE(stroke(4));
    EXPECT_EQ(state(), 3U);
    EXPECT_EQ(status_message, MESSAGE_UNDO_MEMORY);
    EXPECT_EQ(status_timer, flash_ticks);
    EXPECT_NE(log_text().find("No memory for an undo copy of 5 x 3 pixels"), std::string::npos);
    EXPECT_EQ(after_undo(), 3U) << "the undone state couldn't be kept for redo";

    set_undo_source(nullptr);
    EXPECT_EQ(after_undo(), 2U) << "the chain is as it was before the refusals";
    EXPECT_EQ(after_redo(), 3U);
}

TEST_F(UndoTest, FrameOfAnotherSizeGetsSlotsOfItsOwn) {
    ASSERT_TRUE(stroke(1));
    reset_undo_slots();
    ASSERT_TRUE(adopt_frame(make_bitmap(70, 40, 9)));
    EXPECT_EQ(frame_w, 70);
    EXPECT_EQ(frame_h, 40);
    EXPECT_EQ(stroke_mask->w, 70);
    EXPECT_EQ(stroke_mask->h, 40);
    ASSERT_TRUE(stroke(2));
    EXPECT_EQ(after_undo(), 9U);
    EXPECT_EQ(after_redo(), 2U);
}

}  // namespace
}  // namespace nubo
