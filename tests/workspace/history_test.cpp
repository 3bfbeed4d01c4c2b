// The history of a Frame over changes of Frame, restarts, kills and what others do to its files.
#include "harness/user.h"
#include "paint/stroke.h"
#include "platform/faults.h"
#include "state/messages.h"
#include "windows/pic_commands.h"
#include "workspace/archive.h"
#include "workspace/bmp_files.h"
#include "workspace/frame_history.h"
#include "workspace/history_kit.h"
#include "workspace/rescue.h"
#include "workspace/resize_frame.h"
#include "workspace/workspace_kit.h"
#include <random>
#include <sys/wait.h>

namespace nubo {
namespace {

class HistoryTest : public WorkspaceTest {
protected:
    void SetUp() override {
        WorkspaceTest::SetUp();
        make_screen();
        opt_undo_depth = undo_depth_all;
        make_workspace({1, 2, 3}, 0);
    }
    static void dot(int x, int y, Color color) {
        ASSERT_TRUE(save_undo(false));
        *pixels_at(current_frame, x, y) = color;
        note_touched({x, y, x, y});
    }
    static int undo_all() {
        int steps = 0;
        while (undo_reach().done > 0) undo_last(), ++steps;
        return steps;
    }
    static int redo_all() {
        int steps = 0;
        while (undo_reach().done < undo_reach().all) redo_last(), ++steps;
        return steps;
    }
    static void restart() {
        ASSERT_EQ(close_workspace(), WORKSPACE_KEPT);
        start();
    }
    static void start() {
        ASSERT_TRUE(open_workspace());
        autosave_tick(false);  // the first picture after it takes the print of what the file holds
    }
    static bool go(int from, int to) {
        const bool gone = fetch_frame(from, to);
        autosave_tick(false);
        return gone;
    }
    static void rescue() {
        UA_clock_ticks += rescue_seconds * clock_hz;
        autosave_tick(false);
        settle_rescue();
    }
    static Pixels frame() { return pixels_of_picture(current_frame); }
};

TEST_F(HistoryTest, ThreeHundredStepsOutliveAChangeOfFrameAndARestart) {
    ASSERT_TRUE(adopt_frame(noise(view_w, view_h, 1)));
    reset_undo_slots();
    const Pixels first = frame();
    ink_slots[0] = INK_GLASS;
    tool_slots[0] = TOOL_DRAW;
    for (int i = 0; i < 300; ++i)
        draw_to_frame(i * 7 % view_w, i * 11 % view_h, TOOL_DRAW, INK_GLASS, i % 36, 0xc0ffee);
    const Pixels last = frame();
    ASSERT_TRUE(go(0, 1) && go(1, 0));
    restart();
    ASSERT_EQ(frame(), last);
    EXPECT_EQ(undo_all(), 300);
    EXPECT_EQ(frame(), first);
    restart();
    EXPECT_EQ(redo_all(), 300);
    EXPECT_EQ(frame(), last);
}

TEST_F(HistoryTest, AKillBehindARescueLeavesWhatTheRescueKnows) {
    for (const Color color : {11U, 12U, 13U, 14U}) dot(0, 0, color);
    ASSERT_TRUE(go(0, 1) && go(1, 0));
    for (int i = 0; i < 3; ++i) undo_last();
    dot(1, 0, 20);
    rescue();
    dot(2, 0, 21);  // lost
    start();
    EXPECT_EQ(undo_reach().done, 2);
    EXPECT_EQ(undo_reach().all, 2) << "what was undone was painted over";
    EXPECT_EQ(undo_all(), 2);
    EXPECT_EQ(id_in_memory(), 1);
}

TEST_F(HistoryTest, KnowsWhereTheProgramWasStartedWhateverIsLookedAt) {
    dot(0, 0, 9);
    restart();
    for (int look = 0; look < 2; ++look) {
        EXPECT_EQ(settled_history()->started, 1) << look;
        dot(1, 0, 8);
        ASSERT_TRUE(go(0, 1) && go(1, 0));
    }
    restart();
    EXPECT_EQ(settled_history()->started, 3);
    undo_all();
    dot(2, 0, 7);
    EXPECT_EQ(settled_history()->started, -1) << "that picture was painted over";
}

TEST_F(HistoryTest, IsSetAsideForAPictureOfAnotherProgram) {
    dot(0, 0, 9);
    ASSERT_TRUE(go(0, 1));
    ASSERT_TRUE(save_bmp_file(slot_of_row(0).frame(), make_bitmap(frame_side, frame_side, 5).get()));
    ASSERT_TRUE(go(1, 0));
    EXPECT_EQ(undo_reach().all, 0);
    EXPECT_EQ(files_in_workspace("history-old.000"), 1);
    dot(0, 0, 6);
    restart();
    EXPECT_EQ(undo_all(), 1) << "it has a new one";
}

TEST_F(HistoryTest, GoesWithItsFrameAndAwayWithTheWorkspace) {
    dot(0, 0, 9);
    ASSERT_TRUE(go(0, 1));
    dot(0, 0, 8);
    ASSERT_TRUE(go(1, 2));
    ASSERT_TRUE(insert_frames(0, 2, true) && go(4, 3));
    EXPECT_EQ(undo_reach().done, 1);
    ASSERT_TRUE(insert_frames(3, 1, false) && go(3, 4));
    EXPECT_EQ(undo_reach().done, 0) << "a copy begins anew";
    ASSERT_TRUE(delete_frames(0, 1) && go(frame_index, 2));
    EXPECT_EQ(undo_all(), 1);
    EXPECT_EQ(id_in_memory(), 2);
    EXPECT_EQ(files_in_workspace("history"), 1);
    ASSERT_EQ(save_workspace_archive("a.wsp"), 0);
    ASSERT_TRUE(clear_workspace());
    EXPECT_EQ(files_in_workspace("history") + files_in_workspace("dropped"), 0);
    ASSERT_EQ(load_workspace_archive("a.wsp"), 0);
    EXPECT_EQ(undo_reach().all, 0);
}

TEST_F(HistoryTest, ReachesOverEveryChangeOfThePictureOnlyWithAll) {
    for (const int depth : {undo_depth_all, undo_depth_max}) {
        opt_undo_depth = depth;
        ASSERT_TRUE(adopt_frame(make_bitmap(50, 40)));
        begin_history();
        replace_bitmap(original_frame, noise(30, 60, 3));
        std::vector<Pixels> pictures{frame()};
        const auto change = [&](bool done) {
            ASSERT_TRUE(done);
            pictures.push_back(frame());
            EXPECT_EQ(undo_reach().done, depth == undo_depth_all ? static_cast<int>(pictures.size()) - 1 : 0);
        };
        change(resize_frame(0, 70, 30, 4, false));
        change(resize_frame(0, 35, 90, 0, true));
        change(crop_frame(3, 4, 20, 20));
        change(make_sprite_sheet({}));
        change((restore_frame(), true));
        change(take_as_changed(noise(64, 64, 4)));
        if (depth == undo_depth_max) continue;
        for (std::size_t i = pictures.size() - 1; i-- > 0;) {
            undo_last();
            ASSERT_EQ(frame(), pictures[i]) << i;
        }
        for (std::size_t i = 1; i < pictures.size(); ++i) {
            redo_last();
            ASSERT_EQ(frame(), pictures[i]) << i;
        }
    }
}

TEST_F(HistoryTest, ADepthEndsAtTheFrameAndAllFindsWhatItLeft) {
    opt_undo_depth = 2;
    for (const Color color : {11U, 12U, 13U, 14U}) dot(0, 0, color);
    EXPECT_EQ(undo_all(), 2);
    EXPECT_EQ(redo_all(), 2);
    ASSERT_TRUE(go(0, 1) && go(1, 0));
    EXPECT_EQ(undo_reach().all, 0);
    opt_undo_depth = undo_depth_all;
    renew_undo_reach();
    EXPECT_EQ(undo_all(), 4);
    opt_undo_depth = 3;
    renew_undo_reach();
    EXPECT_EQ(undo_reach().all, 0);
}

TEST_F(HistoryTest, OfTooManyTheOldestFilesKeepTheirLastTwelveSteps) {
    const auto paint_thirty = [] {
        for (int i = 0; i < 30; ++i) dot(i % frame_side, 0, static_cast<Color>(100 + i));
    };
    paint_thirty();
    ASSERT_TRUE(go(0, 1));
    const std::size_t bytes = std::filesystem::file_size("WORKSPACE/history.000");
    limit_histories(bytes * 3 / 2);
    paint_thirty();
    ASSERT_TRUE(go(1, 2));
    EXPECT_LE(std::filesystem::file_size("WORKSPACE/history.000"), bytes / 2);
    EXPECT_GE(std::filesystem::file_size("WORKSPACE/history.001"), bytes);
    ASSERT_TRUE(go(2, 0));
    EXPECT_EQ(undo_all(), History::kept_always);
    EXPECT_EQ(*pixels_at(current_frame, 17 % frame_side, 0), 117U);
    limit_histories(0);
    redo_all();
    ASSERT_TRUE(go(0, 1));
    EXPECT_EQ(undo_all(), History::kept_always) << "in the end each";
    limit_histories(histories_max);
}

TEST_F(HistoryTest, AFrameOutOfReachDoesntCostItsHistory) {
    dot(0, 0, 9);
    ASSERT_TRUE(go(0, 1) && close_workspace() == WORKSPACE_KEPT);
    std::filesystem::rename("WORKSPACE/current.000", "away");
    std::filesystem::create_symlink("nowhere", "WORKSPACE/current.000");
    for (const char* other : {"WORKSPACE/current.001", "WORKSPACE/current.002"}) std::filesystem::remove(other);
    start();
    dot(3, 3, 5);
    ASSERT_EQ(close_workspace(), WORKSPACE_KEPT);
    EXPECT_EQ(files_in_workspace("history-old.000"), 1);
}

TEST_F(HistoryTest, WhereItCantBeWrittenOnlyItIsMissed) {
    dot(0, 0, 9);
    for (const char* in_the_way : {"WORKSPACE/history.000", "WORKSPACE/history-old.000/full"})
        std::filesystem::create_directories(in_the_way);
    ASSERT_TRUE(go(0, 1));
    EXPECT_EQ(status_message, MESSAGE_TOLD);
    ASSERT_TRUE(go(1, 0));
    EXPECT_EQ(id_in_memory(), 9);
}

TEST_F(HistoryTest, AKillAtAnyCallLeavesItWholeOrOlder) {
    dot(0, 0, 9);
    ASSERT_TRUE(go(0, 1) && go(1, 0));
    restart();
    std::filesystem::rename("WORKSPACE", "original");
    bool was_struck = true;
    for (int call = 0; was_struck; ++call) {
        std::filesystem::remove_all("WORKSPACE");
        std::filesystem::copy("original", "WORKSPACE");
        start();
        dot(1, 0, 8);
        const pid_t child = fork();
        if (child == 0) {
            faults::arm(faults::CALL_ANY, call, faults::stop_here);
            rescue();
            dot(2, 0, 7);
            const bool left = go(0, 1);
            _exit(left && close_workspace() == WORKSPACE_KEPT ? 0 : 2);
        }
        int status = 0;
        ASSERT_EQ(waitpid(child, &status, 0), child);
        ASSERT_TRUE(WIFEXITED(status) && WEXITSTATUS(status) != 2);
        was_struck = WEXITSTATUS(status) != 0;
        start();
        ASSERT_TRUE(frame_index == 0 || go(frame_index, 0));
        const int dots =
            (*pixels_at(current_frame, 1, 0) == 8 ? 1 : 0) + (*pixels_at(current_frame, 2, 0) == 7 ? 1 : 0);
        EXPECT_EQ(undo_all(), dots + 1) << call;
        EXPECT_EQ(id_in_memory(), 1) << call;
        EXPECT_EQ(files_in_workspace("history-old"), 0) << call;
    }
}

// ---- Against whole copies ------------------------------------------------------------------------------------------

/// What a user does to some Frames, beside whole copies of all their pictures.
class HistoryModelTest : public HistoryTest {
protected:
    struct Model {
        std::vector<Pixels> pictures;
        std::size_t at = 0;
    };
    int below(int count) { return static_cast<int>(random_() % static_cast<unsigned>(count)); }
    Model& here() { return models_[at(frame_index)]; }

    void stroke() {
        static constexpr std::array brushes{TOOL_DRAW, TOOL_FILL, TOOL_EDGE, TOOL_SEP};
        tool_slots[0] = brushes[at(below(4))];
        ink_slots[0] = below(INK_COUNT);
        draw_to_frame(below(frame_w), below(frame_h), tool_slots[0], ink_slots[0], below(2) ? -1 : below(36),
                      random_() & 0xffffff);
        add_picture();
    }
    void resize() {
        ASSERT_TRUE(resize_frame(0, 1 + below(150), 1 + below(90), below(9), below(2) != 0));
        add_picture();
    }
    void add_picture() {
        here().pictures.resize(++here().at);
        here().pictures.push_back(frame());
    }
    void act() {
        const int what = last_what_ = below(100);
        if (what < 43) return stroke();
        if (what < 45) return resize();
        if (what < 70 && here().at > 0) return undo_last(), --here().at, void();
        if (what < 92 && here().at + 1 < here().pictures.size()) return redo_last(), ++here().at, void();
        if (what < 97) go(frame_index, (frame_index + 1 + below(2)) % 3);
        if (what == 97) rescue();
        if (what == 98) restart();
        if (what < 99) return;
        rescue();
        start();
    }
    int last_what_ = 0;
    std::mt19937 random_{20};
    std::array<Model, 3> models_;
};

TEST_F(HistoryModelTest, NoPixelDiffersWhateverIsDone) {
    const char* const asked = std::getenv("NUBO_HISTORY_ACTS");
    const int acts = asked != nullptr ? std::atoi(asked) : 1500;
    for (int slot = 0; slot < 3; ++slot) {
        ASSERT_TRUE(go(frame_index, slot));
        here().pictures = {frame()};
    }
    for (int i = 0; i < acts; ++i) {
        while (prepare_undo_memory() && below(3) != 0) {
        }
        act();
        ASSERT_EQ(frame(), here().pictures[here().at]) << i << " by " << last_what_;
        ASSERT_EQ(undo_reach().done, static_cast<int>(here().at)) << i << " by " << last_what_;
        ASSERT_EQ(undo_reach().all, static_cast<int>(here().pictures.size()) - 1) << i;
    }
}

}  // namespace
}  // namespace nubo
