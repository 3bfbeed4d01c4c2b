#include "harness/user.h"
#include "state/boxes.h"
#include "state/cel.h"
#include "state/guides.h"
#include "state/messages.h"
#include "state/status.h"
#include "state/view.h"
#include "workspace/ghosts.h"
#include "workspace/workspace_kit.h"

namespace nubo {
namespace {

TEST_F(WorkspaceTest, FirstStartHasOneBlankFrameOnDiskAndInMemory) {
    ASSERT_TRUE(open_workspace());
    EXPECT_EQ(ids_on_disk(), Ids{0});
    EXPECT_TRUE(current_frame->w == view_w && current_frame->h == view_h && frame_count == 1);
    EXPECT_TRUE(logged("[ INFO ] : Couldn't locate workspace. Assuming default settings."));
    EXPECT_EQ(opt_file_preview, PREVIEW_ALL);
}

TEST_F(WorkspaceTest, SwapsKeepFrameViewThumbnailAndFolder) {
    make_workspace({1, 2, 3}, 0);
    std::filesystem::create_directory("pictures");
    std::strcpy(image_dir.data(), (folder_.path() + "/pictures").c_str());
    paint(11);
    pan_x = 7;
    ASSERT_TRUE(fetch_frame(0, 2));
    EXPECT_EQ(browse_folder().path(), image_dir.data());
    EXPECT_EQ(ids_on_disk(), (Ids{11, 2, 3}));
    EXPECT_TRUE(id_in_memory() == 3 && pan_x == 3 && zoom == 2 && frame_view[0].pan_x == 7);
    EXPECT_EQ(tile_id(0), 11);
    EXPECT_EQ(*pixels_at(original_frame, 0, 0), 3U);
    for (const int slot : {-1, 3}) {
        EXPECT_FALSE(fetch_frame(2, slot));
        EXPECT_TRUE(logged("New_frame OOB in call to fetch_frame! slot = " + std::to_string(slot)));
    }
}

TEST_F(WorkspaceTest, CloneInsertAndDeleteMoveFilesViewsAndThumbnailsTogether) {
    make_workspace({1, 2, 3, 4}, 1);
    guides.pinned_frame = 3 + 1;
    paint(22);
    ASSERT_TRUE(insert_frames(1, 1, false));  // the clone stands behind the Frame, which isn't written itself
    EXPECT_EQ(ids_on_disk(), (Ids{1, 2, 22, 3, 4}));
    ASSERT_TRUE(insert_frames(1, 1, true));
    EXPECT_EQ(ids_on_disk(), (Ids{1, 2, 0, 22, 3, 4}));
    EXPECT_TRUE(frame_index == 1 && frame_count == 6 && id_in_memory() == 22);
    EXPECT_TRUE(frame_view[4].pan_x == 3 && frame_view[5].pan_x == 4 && guides.pinned_frame == 5 + 1);
    EXPECT_TRUE(tile_id(2) == 0 && tile_id(3) == 22 && tile_id(4) == 3 && tile_id(5) == 4);
    ASSERT_TRUE(delete_frames(1, 1));
    EXPECT_EQ(ids_on_disk(), (Ids{1, 0, 22, 3, 4}));
    EXPECT_TRUE(frame_index == 1 && id_in_memory() == 0 && frame_view[4].pan_x == 4 && tile_id(4) == 4);
    ASSERT_TRUE(fetch_frame(1, 4) && delete_frames(4, 1));  // the last one: back to the one before
    EXPECT_TRUE(frame_index == 3 && frame_count == 4 && id_in_memory() == 3 && guides.pinned_frame == 0);
}

/// What a row of five Frames, whose times are their ids, and a range of it become.
struct TimesCase {
    const char* name;
    int first, end;
    bool (*act)();
    int first_after, end_after;
    std::array<std::uint8_t, 7> times_after;
};

TEST_F(WorkspaceTest, TimesAndRangeGoWithTheirFrames) {
    const TimesCase cases[] = {
        {"clone in it", 1, 4, [] { return insert_frames(2, 1, false); }, 1, 5, {1, 2, 3, 3, 4, 5}},
        {"insert before it", 1, 4, [] { return insert_frames(0, 2, true); }, 3, 6, {1, 1, 1, 2, 3, 4, 5}},
        {"insert behind it", 1, 4, [] { return insert_frames(3, 1, true); }, 1, 4, {1, 2, 3, 4, 4, 5}},
        {"to the last there is", 1, 0, [] { return insert_frames(4, 1, true); }, 1, 0, {1, 2, 3, 4, 5, 5}},
        {"delete its ends", 1, 4, [] { return delete_frames(3, 1) && delete_frames(1, 1); }, 1, 2, {1, 3, 5}},
        {"delete before it", 2, 4, [] { return delete_frames(0, 2); }, 0, 2, {3, 4, 5}},
        {"delete all of it", 4, 0, [] { return delete_frames(3, 2); }, 0, 0, {1, 2, 3}},
    };
    for (const TimesCase& one : cases) {
        std::filesystem::remove_all("WORKSPACE");
        make_workspace({1, 2, 3, 4, 5}, 0);
        guides.first_frame = one.first;
        guides.range_end = one.end;
        ASSERT_TRUE(one.act() && save_workspace_state(state_file, true) && open_workspace()) << one.name;
        EXPECT_TRUE(std::ranges::equal(one.times_after, std::span(guides.frame_times).first<7>())) << one.name;
        EXPECT_EQ(guides.first_frame, one.first_after) << one.name;
        EXPECT_EQ(guides.range_end, one.end_after) << one.name;
    }
}

TEST_F(WorkspaceTest, GhostsAreTheNeighboursAsTheirFilesHaveThem) {
    make_workspace({1, 2, 3, 4, 5}, 2);
    const auto ids = [] {
        for (int look = 0; look < 6; ++look) keep_ghosts();
        Ids shown;
        for (const GhostPicture& ghost : shown_ghosts())
            shown.push_back(static_cast<int>(*pixels_at(ghost.picture, 0, 0)));
        return shown;
    };
    EXPECT_TRUE(ids().empty());
    guides.ghost = GHOST_BEHIND;
    guides.ghosts_before = 3, guides.ghosts_after = 1;
    EXPECT_EQ(ids(), (Ids{1, 4, 2}));  // the farthest first
    paint(33);
    ASSERT_TRUE(fetch_frame(2, 3));
    EXPECT_EQ(ids(), (Ids{1, 2, 5, 33}));
    guides.pinned_frame = 4 + 1;
    EXPECT_EQ(ids(), (Ids{5}));
    ASSERT_TRUE(insert_frames(3, 1, true));
    EXPECT_EQ(ids(), (Ids{5}));
}

TEST_F(WorkspaceTest, LimitsOfTheRow) {
    Ids ids;
    for (int id = 1; id <= frame_slots - 1; ++id) ids.push_back(id);
    make_workspace(ids, 98);
    EXPECT_FALSE(insert_frames(98, 2, true));
    EXPECT_FALSE(insert_frames(100, 1, true));
    ASSERT_TRUE(insert_frames(98, 1, false));
    ids.push_back(99);
    EXPECT_EQ(ids_on_disk(), ids);
    EXPECT_FALSE(insert_frames(0, 1, true));
    EXPECT_TRUE(pending_box_count == 1 && pending_boxes[0].first == LABEL_FRAMES_FULL);
    ASSERT_TRUE(fetch_frame(98, 99) && delete_frames(99, 1));
    EXPECT_EQ(frame_index, 98);
    EXPECT_FALSE(delete_frames(-1, 1) || delete_frames(0, 0) || delete_frames(99, 1));
    ASSERT_TRUE(delete_frames(0, 98));
    EXPECT_FALSE(delete_frames(0, 1));
    EXPECT_TRUE(pending_box_count == 2 && pending_boxes[1].first == LABEL_LAST_FRAME);
    EXPECT_EQ(ids_on_disk(), Ids{99});
}

TEST_F(WorkspaceTest, ClearLeavesOneBlankFrameAndTheOptions) {
    make_screen();
    make_workspace({1, 2, 3}, 2);
    opt_cel_masking = 0;
    std::strcpy(workspace_title.data(), "MINE");
    std::strcpy(text_tool_text.data(), "MINE");
    clear_workspace();
    EXPECT_EQ(ids_on_disk(), Ids{0});
    EXPECT_TRUE(frame_index == 0 && frame_count == 1 && tile_id(1) == 0 && opt_cel_masking == 0);
    EXPECT_STREQ(workspace_title.data(), "UNNAMED WORKSPACE");
    EXPECT_STREQ(text_tool_text.data(), "");
    ASSERT_TRUE(open_workspace());
    EXPECT_STREQ(workspace_title.data(), "MINE");  // it was written before the title went
}

TEST_F(WorkspaceTest, UnreadableFrameIsKeptAsideAndNeverWrittenOver) {
    make_workspace({1, 2}, 0);
    ASSERT_TRUE(write_file("WORKSPACE/current.001", "BMgarbage", 9));
    ASSERT_TRUE(write_file("WORKSPACE/unreadable.001", "older", 5));
    ASSERT_TRUE(fetch_frame(0, 1));
    EXPECT_EQ(id_in_memory(), 0);
    EXPECT_EQ(std::filesystem::file_size("WORKSPACE/unreadable-2.001"), 9U);
    EXPECT_EQ(std::filesystem::file_size("WORKSPACE/unreadable.001"), 5U);
    EXPECT_EQ(status_message, MESSAGE_FRAME_UNREADABLE);
    EXPECT_EQ(ids_on_disk(), (Ids{1, 0}));
}

/// A link to a drive that isn't there stands for all that may be over in a moment.
TEST_F(WorkspaceTest, SoundFileThatCantBeReadNowStaysWhereItIs) {
    make_workspace({1, 2, 3}, 0);
    std::filesystem::create_directory("drive");
    const auto take_away = [](const std::string& file) {
        std::filesystem::rename("WORKSPACE/" + file, "drive/" + file);
        std::filesystem::create_symlink("../drive/" + file, "WORKSPACE/" + file);
        std::filesystem::rename("drive/" + file, "drive/away-" + file);
    };
    const auto bring_back = [](const std::string& file) {
        std::filesystem::rename("drive/away-" + file, "WORKSPACE/" + file);
    };
    take_away("current.001");
    paint(11);
    status_message = 0;
    EXPECT_FALSE(fetch_frame(0, 1));
    EXPECT_TRUE(id_in_memory() == 11 && frame_index == 0 && status_message == MESSAGE_FRAME_OUT_OF_REACH);
    EXPECT_FALSE(delete_frames(0, 1));
    EXPECT_TRUE(id_in_memory() == 11 && frame_count == 3);
    bring_back("current.001");
    ASSERT_TRUE(fetch_frame(0, 1));
    close_workspace();

    for (const char* file : {"current.001", "current.cel", "current.spa"}) take_away(file);
    ASSERT_TRUE(open_workspace());
    EXPECT_TRUE(frame_index == 0 && id_in_memory() == 11 && cel->w == 16);  // another Frame
    close_workspace();
    EXPECT_TRUE(files_in_workspace("unreadable") == 1 && files_in_workspace("unreadable.spa") == 1);
    for (const char* file : {"current.001", "current.cel"}) bring_back(file);
    EXPECT_EQ(ids_on_disk(), (Ids{11, 2, 3}));

    ASSERT_TRUE(open_workspace() && delete_frames(0, 1) && delete_frames(0, 1));
    take_away("current.000");
    ASSERT_TRUE(open_workspace());
    close_workspace();
    EXPECT_EQ(files_in_workspace("unreadable.000"), 0);  // the black that stood in is worth nothing
    ASSERT_TRUE(open_workspace());
    paint(33);
    close_workspace();
    EXPECT_TRUE(files_in_workspace("unreadable.000") == 1 && ids_on_disk() == Ids{33});  // both are kept
}

TEST_F(WorkspaceTest, MoveThatTheStateFileDoesntKnowOfIsEndedBeforeMoreIsWritten) {
    make_workspace({1, 2, 3, 4}, 1);
    ASSERT_TRUE(delete_frames(1, 1) && fetch_frame(1, 2));  // the state wasn't saved in between
    ASSERT_TRUE(open_workspace());
    EXPECT_EQ(ids_on_disk(), (Ids{1, 3, 4}));
    for (int slot = 1; slot < 3; ++slot)
        EXPECT_TRUE(tile_id(slot) == slot + 2 && frame_view[static_cast<unsigned>(slot)].pan_x == slot + 2) << slot;
}

TEST_F(WorkspaceTest, ThumbnailIsTheMeanOfBlocksRoundedUp) {
    const OwnedBitmap source = make_bitmap(5, 2), target = make_bitmap(4, 2, 0x123456);
    // 5 / 2 = 2.5: blocks of 2 pixels from x 0 and 2, of all 2 rows; the last column is in none.
    const std::array<Color, 10> pixels{0x010000, 0x020000, 0x0000ff, 0x000000, 0xffffff,
                                       0x010000, 0x010000, 0x0000ff, 0x000001, 0xffffff};
    for (int i = 0; i < 10; ++i) *pixels_at(source.get(), i % 5, i / 5) = pixels[static_cast<unsigned>(i)];
    reduce_bitmap(source.get(), target.get(), 1, 1, 2, 1);
    EXPECT_EQ(*pixels_at(target.get(), 1, 1), 0x020000U);  // 5 / 4, up
    EXPECT_EQ(*pixels_at(target.get(), 2, 1), 0x000080U);  // 511 / 4 = 127.75, up
    EXPECT_TRUE(*pixels_at(target.get(), 0, 1) == 0x123456 && *pixels_at(target.get(), 3, 1) == 0x123456);
    make_nail_tile(make_bitmap(3, 90, 0x445566).get(), 11);  // narrower than a tile: enlarged first
    EXPECT_TRUE(*pixels_at(nail_sheet, 40, 40) == 0x445566 && *pixels_at(nail_sheet, 79, 79) == 0x445566);
}

}  // namespace
}  // namespace nubo
