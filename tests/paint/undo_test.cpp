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
        clear_to_color(current_frame, static_cast<int>(color));
        return true;
    }
    static Color state() { return *pixels_at(current_frame, current_frame->w - 1, current_frame->h - 1); }
    static Color after_undo() { return undo_last(), state(); }
    static Color after_redo() { return redo_last(), state(); }
    static long bitmaps_held() {
        const auto held = [](const BITMAP* slot) { return slot != nullptr; };
        return std::ranges::count_if(undo_slots, held) + std::ranges::count_if(redo_slots, held);
    }
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
    clear_to_color(current_frame, 9);
    ASSERT_TRUE(take_back_step());
    EXPECT_EQ(state(), 2U);
    EXPECT_EQ(after_redo(), 3U);
    EXPECT_EQ(after_undo(), 2U);
    ASSERT_TRUE(take_step());
    clear_to_color(current_frame, 9);
    count_step();
    EXPECT_EQ(*pixels_at(stroke_snapshot(), 4, 2), 2U) << "what inks read";
    EXPECT_EQ(after_redo(), 9U) << "it ends the redo chain";
    EXPECT_EQ(after_undo(), 2U);
    EXPECT_EQ(after_undo(), 1U);
}

TEST_F(UndoTest, AStepWaitsForItsFrameAndFollowsItToOtherSlots) {
    const auto cut_here_and_go = [](int slot, int to) {
        frame_index = slot;
        clear_to_color(current_frame, slot);
        ASSERT_TRUE(take_step());
        frame_index = to;
        reset_undo_slots();
        clear_to_color(current_frame, 50);
        count_step();
        EXPECT_EQ(after_undo(), 50U);
    };
    const auto undone_in = [](int slot) {
        reset_undo_slots();
        clear_to_color(current_frame, 50);
        take_up_waiting_step(frame_index = slot);
        return after_undo();
    };
    for (const int slot : {1, 2, 3}) cut_here_and_go(slot, 9);
    renumber_waiting_steps([](int slot) { return slot == 2 ? -1 : slot + 4; });
    EXPECT_EQ(undone_in(3), 50U);
    EXPECT_EQ(undone_in(6), 50U) << "its Frame has gone";
    EXPECT_EQ(undone_in(7), 3U);
    EXPECT_EQ(undone_in(5), 1U);
    EXPECT_EQ(undone_in(5), 50U) << "once";
    opt_undo_depth = 1;
    for (const int slot : {1, 2}) cut_here_and_go(slot, 9);
    EXPECT_EQ(undone_in(1), 50U) << "no more than the depth";
    EXPECT_EQ(undone_in(2), 2U);
    cut_here_and_go(4, 9);
    EXPECT_TRUE(adopt_frame(make_bitmap(8, 3, 0)));
    EXPECT_EQ(undone_in(4), 50U) << "of another size";
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
    EXPECT_LE(bitmaps_held(), 4) << "none is left beyond the lowered depth";
    reset_undo_slots();
    EXPECT_EQ(bitmaps_held(), 0);
    EXPECT_EQ(after_undo(), 7U);
    ASSERT_TRUE(adopt_frame(make_bitmap(70, 40, 9)));
    ASSERT_TRUE(stroke(2));
    EXPECT_EQ(after_undo(), 9U) << "at the size of the new Frame";
}

TEST_F(UndoTest, RefusesWithoutMemoryAndChangesNothing) {
    const ScratchFolder scratch;
    UA_log_open();
    ASSERT_TRUE(stroke(2));
    ASSERT_TRUE(stroke(3));
    set_undo_source([](BITMAP*) { return OwnedBitmap(); });
    EXPECT_FALSE(stroke(4));
    EXPECT_EQ(status_message, MESSAGE_UNDO_MEMORY);
    EXPECT_NE(log_text().find("No memory for an undo copy of 5 x 3 pixels"), std::string::npos);
    EXPECT_EQ(after_undo(), 3U) << "the undone state could not be kept for redo";
    set_undo_source(nullptr);
    EXPECT_EQ(after_undo(), 2U) << "the chain is as it was before the refusals";
    EXPECT_EQ(after_redo(), 3U);
    UA_log_close();
}

TEST_F(UndoTest, MemoryMadeReadyServesTheNextStates) {
    opt_undo_depth = 1;
    ASSERT_TRUE(adopt_frame(make_bitmap(2000, 1000, 1)));
    const auto prepare = [] {
        int steps = 0;
        while (prepare_undo_memory() && steps < 100) ++steps;
        return steps;
    };
    EXPECT_GT(prepare(), 1) << "8 MB, a piece at a time";
    set_undo_source([](BITMAP*) { return OwnedBitmap(); });  // from here on there is no other memory
    ASSERT_TRUE(stroke(2));
    EXPECT_GT(prepare(), 1) << "for the first undo";
    EXPECT_EQ(after_undo(), 1U);
    EXPECT_EQ(after_redo(), 2U);
    EXPECT_EQ(prepare(), 0) << "both chains together have all they can need";
    ASSERT_TRUE(adopt_frame(make_bitmap(5, 3, 1)));
    reset_undo_slots();
    EXPECT_EQ(prepare(), 1) << "made and touched at the new size";
    ASSERT_TRUE(stroke(2));
    set_undo_source(nullptr);
}

}  // namespace
}  // namespace nubo
