#include "workspace/rescue.h"

#include "harness/user.h"
#include "platform/faults.h"
#include "platform/folder_lock.h"
#include "state/flow.h"
#include "state/messages.h"
#include "state/status.h"
#include "workspace/notices.h"
#include "workspace/workspace_kit.h"
#include <chrono>
#include <thread>

namespace nubo {
namespace {

class RescueTest : public WorkspaceTest {
protected:
    void SetUp() override {
        WorkspaceTest::SetUp();
        make_workspace({1, 2, 3}, 0);
        pass_time(1);
    }
    /// Lets the editor run idle for so long; a rescue that was begun is on disk afterwards.
    static void pass_time(int seconds, bool stroke_running = false) {
        autosave_tick(stroke_running);
        UA_clock_ticks += seconds * 500;
        autosave_tick(stroke_running);
        settle_rescue();
    }
    static void make_older(const std::string& file) {
        using namespace std::chrono_literals;
        std::filesystem::last_write_time("WORKSPACE/" + file, std::filesystem::file_time_type::clock::now() - 60s);
    }
};

TEST_F(RescueTest, AChangedFrameIsWrittenAsideOnceInHalfAMinute) {
    pass_time(100);
    EXPECT_EQ(files_in_workspace("rescue"), 0);  // nothing has changed
    paint(11);
    pass_time(29);
    EXPECT_EQ(files_in_workspace("rescue"), 0);
    pass_time(40, /*stroke_running=*/true);
    EXPECT_EQ(files_in_workspace("rescue"), 0);
    pass_time(0);
    EXPECT_EQ(files_in_workspace("rescue.000"), 1);
    EXPECT_EQ(ids_on_disk(), (Ids{1, 2, 3}));
    paint(1);  // undone: the rescue would bring it back
    pass_time(30);
    EXPECT_EQ(files_in_workspace("rescue"), 0);
}

TEST_F(RescueTest, OneThatFailsIsToldAtOnceAndEveryMinute) {
    const auto told = [] {
        const bool is_told = status_message == MESSAGE_TOLD;
        status_message = 0;
        return is_told;
    };
    paint(11);
    faults::arm(faults::CALL_WRITE, 0, ENOSPC, /*all_later=*/true);
    autosave_tick(false);
    UA_clock_ticks += 30 * 500;
    for (int tick = 0; tick < 5'000 && status_message != MESSAGE_TOLD; ++tick) {
        autosave_tick(false);
        std::this_thread::sleep_for(std::chrono::milliseconds(1));
    }
    for (const bool wanted : {true, false, true, false}) {  // each half a minute apart
        EXPECT_EQ(told(), wanted);
        pass_time(30);
    }
    faults::disarm();
    pass_time(30);
    EXPECT_EQ(files_in_workspace("rescue.000"), 1);
}

TEST_F(RescueTest, TheNextStartTakesItAndKeepsItUntilTheFrameIsSaved) {
    for (const bool swap : {false, true}) {
        ASSERT_TRUE(open_workspace());
        ASSERT_TRUE(!swap || fetch_frame(frame_index, 2));  // the stored state doesn't know of the swap
        const int old_id = id_in_memory(), slot = frame_index;
        pass_time(1);
        paint(44 + slot);
        pass_time(30);
        make_older(frame_file_name(STEM_CURRENT, slot));
        for (int start = 0; start < 2; ++start) {  // killed, and killed again right after the next start
            status_message = 0;
            ASSERT_TRUE(open_workspace());
            EXPECT_TRUE(id_in_memory() == 44 + slot && frame_index == slot && status_message == MESSAGE_RESCUED);
            EXPECT_EQ(*pixels_at(original_frame, 0, 0), static_cast<Color>(old_id));
        }
        close_workspace();
        EXPECT_EQ(ids_on_disk()[static_cast<unsigned>(slot)], 44 + slot);
        EXPECT_EQ(files_in_workspace("rescue"), 0);
    }
}

TEST_F(RescueTest, NoneIsWrittenWhileACutAreaFloatsOrAPreviewLiesInTheFrame) {
    make_screen();
    const auto rescues = [] {
        UA_clock_ticks += 500 * rescue_seconds;
        update_screen(UPDATE_NORMAL);
        settle_rescue();
        return files_in_workspace("rescue");
    };
    paint(9);
    area_floats = 1;
    EXPECT_EQ(rescues(), 0) << "the hole";
    area_floats = 0;
    frame_behind_preview = original_frame;
    EXPECT_EQ(rescues(), 0) << "the preview";
    frame_behind_preview = nullptr;
    EXPECT_EQ(rescues(), 1);
}

TEST_F(RescueTest, OneThatIsOlderOrUnreadableIsNotTaken) {
    paint(11);
    pass_time(30);
    make_older("rescue.000");
    ASSERT_TRUE(open_workspace());
    EXPECT_TRUE(id_in_memory() == 1 && files_in_workspace("rescue") == 0);
    EXPECT_EQ(files_in_workspace("spare.000"), 1);  // by a clock that may be wrong: both are kept
    ASSERT_TRUE(write_file("WORKSPACE/rescue.001", "BM", 2));
    make_older("current.001");
    ASSERT_TRUE(open_workspace());
    EXPECT_TRUE(id_in_memory() == 2 && files_in_workspace("rescue") == 0 && files_in_workspace("unreadable.001") == 1);
}

/// A link that leads nowhere stands for all that may be over in a moment.
TEST_F(RescueTest, NeitherIsTakenIntoAnotherFrameNorMadeOfTheBlackThatStandsIn) {
    const auto take_away = [](const std::string& file) {
        std::filesystem::remove("WORKSPACE/" + file);
        std::filesystem::create_symlink("nowhere", "WORKSPACE/" + file);
    };
    paint(11);
    pass_time(30);
    take_away("current.000");
    ASSERT_TRUE(open_workspace());
    EXPECT_TRUE(frame_index == 1 && id_in_memory() == 2 && files_in_workspace("rescue.000") == 1);
    std::filesystem::remove("WORKSPACE/rescue.000");
    for (const char* file : {"current.001", "current.002"}) take_away(file);
    ASSERT_TRUE(open_workspace());
    EXPECT_EQ(id_in_memory(), 0);
    pass_time(30);
    EXPECT_EQ(files_in_workspace("rescue"), 0);
}

TEST_F(RescueTest, DeletingAFrameTakesItsRescueAlong) {
    paint(11);
    pass_time(30);
    ASSERT_TRUE(delete_frames(0, 1));
    make_older("current.000");
    ASSERT_TRUE(open_workspace());
    EXPECT_EQ(id_in_memory(), 2);
}

TEST_F(RescueTest, AnAreaThatFloatsOverAnotherFrameIsNotLost) {
    ASSERT_TRUE(take_step());
    area_floats = 1;
    scribble(9);                         // the hole
    for (int way = 0; way < 2; ++way) {  // there, back, and there once more
        ASSERT_TRUE(fetch_frame(0, 1));
        if (way == 0) {
            ASSERT_TRUE(fetch_frame(1, 0));
        }
    }
    EXPECT_EQ(ids_on_disk(), (Ids{9, 2, 3}));
    area_floats = 0;  // killed
    ASSERT_TRUE(open_workspace());
    EXPECT_EQ(frame_index, 0);
    EXPECT_EQ(id_in_memory(), 1);
    EXPECT_EQ(status_message, MESSAGE_RESCUED);
    // It lands on the other Frame instead: the kill comes right after.
    ASSERT_TRUE(take_step());
    area_floats = 1;
    scribble(9);
    ASSERT_TRUE(fetch_frame(0, 1));
    paint(77);
    area_floats = 0;
    rescue_landed_area(slot_of_row(0));
    EXPECT_EQ(files_in_workspace("rescue"), 1);
    ASSERT_TRUE(open_workspace());
    EXPECT_TRUE(frame_index == 1 && id_in_memory() == 77);
    EXPECT_EQ(ids_on_disk(), (Ids{9, 2, 3}));
}

TEST_F(RescueTest, AFrameWithAHoleIsNotLeftWithoutItsRescue) {
    ASSERT_TRUE(take_step());
    area_floats = 1;
    scribble(9);
    faults::arm(faults::CALL_WRITE, 0, ENOSPC);
    EXPECT_FALSE(fetch_frame(0, 1));
    EXPECT_EQ(ids_on_disk(), (Ids{1, 2, 3}));
    EXPECT_EQ(id_in_memory(), 9);
}

// ---- An end that can't write ---------------------------------------------------------------------------------------

class UnsavedWorkTest : public WorkspaceTest {
protected:
    /// Ends and starts again; true if the end could write everything where it belongs.
    static bool restart() {
        const bool saved = close_workspace() == WORKSPACE_KEPT;
        EXPECT_TRUE(open_workspace());
        return saved;
    }
    static bool told_of(Label first) {
        bool told = false;
        for (auto box = take_box(); box; box = take_box()) told = told || box->first == first;
        return told;
    }
    static void take_workspace_away() {
        std::filesystem::rename("WORKSPACE", "drive");
        std::filesystem::create_symlink("elsewhere", "WORKSPACE");
    }
    static void bring_workspace_back() {
        std::filesystem::remove("WORKSPACE");
        std::filesystem::rename("drive", "WORKSPACE");
    }
};

TEST_F(UnsavedWorkTest, ComesBackAtTheNextStartUntilItIsSaved) {
    make_workspace({1, 2, 3}, 1);
    paint(22);
    brush_color = 0x123456;
    faults::arm(faults::CALL_RENAME, 0, EROFS);  // once: the state file
    EXPECT_FALSE(restart());
    for (int start = 0; start < 2; ++start) {
        EXPECT_TRUE(id_in_memory() == 22 && frame_index == 1 && brush_color == 0x123456) << start;
        EXPECT_TRUE(told_of(LABEL_WORK_BROUGHT_BACK)) << start;
        brush_color = 0;
        ASSERT_TRUE(open_workspace());  // killed before it was saved
    }
    told_of(LABEL_WORK_BROUGHT_BACK);
    EXPECT_TRUE(restart());
    EXPECT_EQ(ids_on_disk(), (Ids{1, 22, 3}));
    EXPECT_FALSE(told_of(LABEL_WORK_BROUGHT_BACK));
}

TEST_F(UnsavedWorkTest, OfAWorkspaceThatGoesAwayAndComesBackWithIt) {
    make_workspace({1, 2, 3}, 1);
    paint(22);
    take_workspace_away();
    EXPECT_FALSE(restart());
    EXPECT_TRUE(id_in_memory() == 22 && told_of(LABEL_WORKSPACE_AWAY));
    paint(23);
    bring_workspace_back();
    EXPECT_FALSE(fetch_frame(1, 0) || insert_frames(1, 1, true));  // not in this run any more
    EXPECT_EQ(ids_on_disk(), (Ids{1, 2, 3}));
    EXPECT_FALSE(restart());
    EXPECT_TRUE(id_in_memory() == 23 && frame_index == 1 && frame_count == 3);
    EXPECT_TRUE(restart());
    EXPECT_EQ(ids_on_disk(), (Ids{1, 23, 3}));
}

TEST_F(UnsavedWorkTest, PaintedWithoutAWorkspaceBecomesAFrameOfItsOwn) {
    make_workspace({1, 2, 3}, 1);
    ASSERT_EQ(close_workspace(), WORKSPACE_KEPT);
    take_workspace_away();
    ASSERT_TRUE(open_workspace());
    EXPECT_TRUE(told_of(LABEL_WORKSPACE_AWAY) && id_in_memory() == 0);
    clear_workspace();
    EXPECT_TRUE(restart());  // nothing was painted, nothing is kept
    paint(44);
    EXPECT_FALSE(restart());
    EXPECT_EQ(id_in_memory(), 44);
    bring_workspace_back();
    EXPECT_FALSE(restart());
    EXPECT_EQ(ids_on_disk(), (Ids{1, 2, 3, 44}));
    EXPECT_TRUE(frame_index == 3 && id_in_memory() == 44 && told_of(LABEL_WORK_BROUGHT_BACK));
    EXPECT_TRUE(restart());
    EXPECT_EQ(ids_on_disk(), (Ids{1, 2, 3, 44}));
}

TEST(FolderLock, LetsInOneOnly) {
    const ScratchFolder folder, other;
    EXPECT_TRUE(lock_folder(folder.path()));
    EXPECT_FALSE(lock_folder(folder.path()));
    EXPECT_TRUE(lock_folder(other.path()));
    EXPECT_TRUE(std::filesystem::is_empty(folder.path()));
}

}  // namespace
}  // namespace nubo
