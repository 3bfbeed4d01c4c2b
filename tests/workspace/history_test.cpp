// The history of a Frame over changes of Frame, restarts, kills and what others do to its files.
#include "paint/history.h"

#include "harness/user.h"
#include "paint/stroke.h"
#include "platform/faults.h"
#include "state/messages.h"
#include "windows/pic_commands.h"
#include "workspace/archive.h"
#include "workspace/bmp_files.h"
#include "workspace/frame_history.h"
#include "workspace/history_format.h"
#include "workspace/rescue.h"
#include "workspace/resize_frame.h"
#include "workspace/workspace_kit.h"
#include <deque>
#include <random>
#include <sys/wait.h>

namespace nubo {
namespace {

using Pixels = std::vector<Color>;

// ---- Steps ---------------------------------------------------------------------------------------------------------

OwnedBitmap noise(int width, int height, unsigned seed) {
    std::mt19937 random(seed);
    OwnedBitmap picture = make_bitmap(width, height);
    for (int y = 0; y < height; ++y)
        for (int x = 0; x < width; ++x) *pixels_at(picture.get(), x, y) = random() & 0xffffff;
    return picture;
}

Pixels pixels_of_picture(BITMAP* picture) {
    Pixels pixels;
    for (int y = 0; y < picture->h; ++y)
        pixels.insert(pixels.end(), pixels_at(picture, 0, y), pixels_at(picture, 0, y) + picture->w);
    return pixels;
}

TEST(HistoryStep, LeadsFromEachSizeToTheOtherPlainAndDeflated) {
    struct Sizes {
        int w, h, to_w, to_h;
    };
    for (const Sizes& sizes : {Sizes{130, 70, 130, 70}, {130, 70, 64, 128}, {1, 200, 200, 1}, {5, 3, 65, 3}}) {
        const OwnedBitmap before = noise(sizes.w, sizes.h, 1), after = noise(sizes.to_w, sizes.to_h, 2);
        Step step = step_between(before.get(), after.get());
        for (const bool deflates : {false, true}) {
            if (deflates) step.deflated = deflated_tiles(step), step.plain = nullptr;
            const OwnedBitmap there = picture_beyond(step, before.get(), false);
            const OwnedBitmap back = picture_beyond(step, after.get(), true);
            EXPECT_EQ(pixels_of_picture(there.get()), pixels_of_picture(after.get())) << sizes.to_w;
            EXPECT_EQ(pixels_of_picture(back.get()), pixels_of_picture(before.get())) << sizes.to_w;
        }
        StepTiles bent = *step.deflated;
        bent.tiles.back().bytes.back() ^= 1;  // the checksum of zlib
        step.deflated = std::make_shared<StepTiles>(bent);
        const Pixels untouched = pixels_of_picture(before.get());
        if (sizes.w == sizes.to_w) {
            EXPECT_FALSE(apply_step(step, before.get()));
        }
        EXPECT_EQ(pixels_of_picture(before.get()), untouched);
    }
}

TEST(HistoryStep, TheOldestFallOutButNeverTheLastTwelve) {
    const OwnedBitmap a = noise(1024, 1024, 1), b = noise(1024, 1024, 2);  // 4 MiB a step
    History history;
    for (int i = 0; i < 40; ++i) history.add(step_between(a.get(), b.get()));
    EXPECT_LE(history.bytes, History::bytes_max);
    EXPECT_EQ(history.end(), 40);
    EXPECT_TRUE(history.first > 20 && history.floor == history.first);
    history.shrink_to(0);
    EXPECT_EQ(history.end() - history.first, History::kept_always);
}

// ---- The bytes of the file -----------------------------------------------------------------------------------------

class HistoryFormatTest : public testing::Test {
protected:
    HistoryFormatTest() {
        HistoryWriter writer(77, 3);
        for (int i = 0; i < 4; ++i) {
            pictures_.push_back(noise(70 + i, 20, static_cast<unsigned>(i)));
            if (i > 0) writer.step(2 + i, step_between(pictures_[at(i) - 1].get(), pictures_[at(i)].get()));
            if (i == 2) writer.start(5, 99);
            writer.place({3 + i, 70 + i, 20, 1000u + static_cast<unsigned>(i)});
            ends_.push_back(writer.bytes().size());
        }
        bytes_ = writer.bytes();
    }
    static std::optional<ReadHistory> read(const std::vector<std::uint8_t>& bytes, int picture) {
        return read_history(bytes, 70 + picture, 20, 1000u + static_cast<unsigned>(picture));
    }
    std::vector<OwnedBitmap> pictures_;
    std::vector<std::size_t> ends_;  // behind the place of each picture
    std::vector<std::uint8_t> bytes_;
};

TEST_F(HistoryFormatTest, LeadsToThePictureThatIsAskedFor) {
    for (int picture = 0; picture < 4; ++picture) {
        const auto got = read(bytes_, picture);
        ASSERT_TRUE(got) << picture;
        EXPECT_EQ(got->end, ends_[at(picture)]);
        EXPECT_EQ(got->history.position, 3 + picture);
        EXPECT_EQ(got->history.end(), 3 + picture) << "what follows is cut";
        EXPECT_EQ(got->history.started, picture < 2 ? -1 : 5);
        if (picture == 0) continue;
        const OwnedBitmap before = picture_beyond(got->history.step(2 + picture), pictures_[at(picture)].get(), true);
        EXPECT_EQ(pixels_of_picture(before.get()), pixels_of_picture(pictures_[at(picture) - 1].get()));
    }
    EXPECT_FALSE(read_history(bytes_, 70, 21, 1000)) << "of another height";
    EXPECT_EQ(read_newest_history(bytes_)->place.position, 6);
}

TEST_F(HistoryFormatTest, AStepTakesThePlaceOfThoseThatWereUndone) {
    HistoryWriter writer(read_newest_history(bytes_)->sum);
    writer.step(4, step_between(pictures_[1].get(), pictures_[3].get()));
    writer.place({5, 73, 20, 5555});
    auto bytes = bytes_;
    bytes.insert(bytes.end(), writer.bytes().begin(), writer.bytes().end());
    const auto got = read_history(bytes, 73, 20, 5555);
    ASSERT_TRUE(got);
    EXPECT_EQ(got->history.end(), 5);
    EXPECT_EQ(got->history.started, -1) << "that picture is gone";
    EXPECT_EQ(read(bytes, 2)->history.end(), 5) << "and is found as long as nothing follows it";
}

TEST_F(HistoryFormatTest, ATornOrBentFileHoldsUpToThatPlace) {
    for (std::size_t size = 0; size <= bytes_.size(); ++size) {
        const std::vector<std::uint8_t> torn(bytes_.begin(), bytes_.begin() + static_cast<std::ptrdiff_t>(size));
        for (int picture = 0; picture < 4; ++picture)
            ASSERT_EQ(read(torn, picture).has_value(), size >= ends_[at(picture)]) << size;
    }
    for (std::size_t place = 0; place < bytes_.size(); ++place) {
        auto bent = bytes_;
        bent[place] ^= 0x41;
        for (int picture = 0; picture < 4; ++picture)
            ASSERT_EQ(read(bent, picture).has_value(), place >= ends_[at(picture)]) << place;
    }
}

// ---- Of a Workspace ------------------------------------------------------------------------------------------------

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
