// Pictures that are opened from outside, each as a Frame of its own.
#include "windows/opened_files.h"

#include "harness/user.h"
#include "platform/file_inbox.h"
#include "state/view.h"
#include "windows/picture_formats.h"
#include "workspace/workspace_kit.h"

namespace nubo {
namespace {

class OpenedFilesTest : public EditorTest {
protected:
    /// The Workspace of the test's own folder, and pictures beside it; a picture of one colour is known by it.
    struct Workspace : WorkspaceTest {
        Workspace() { SetUp(); }
        void TestBody() override {}
        using WorkspaceTest::ids_on_disk;
        using WorkspaceTest::make_workspace;
    };
    static void put(const char* name, Color color) {
        const OwnedBitmap picture = make_bitmap(30, 20, color);
        ASSERT_TRUE(write_picture_file(name, picture.get()));
    }
    std::string said_of(const std::vector<std::string>& files) {
        testing::internal::CaptureStderr();
        open_files(files);
        return testing::internal::GetCapturedStderr();
    }
    Workspace workspace_;
};

TEST_F(OpenedFilesTest, EachBecomesAFrameAtTheEndAndTheFirstIsShown) {
    workspace_.make_workspace({1, 2}, 0);
    clear_to_color(current_frame, 9);  // unsaved work
    const int said_before = status_message;
    open_files({});  // a start without any
    EXPECT_EQ(status_message, said_before);
    put("a.png", 11);
    put("b c.bmp", 12);
    std::ofstream("bad.png") << "no picture";
    const std::string said = said_of({"bad.png", "a.png", "none.gif", "b c.bmp"});
    EXPECT_EQ(workspace_.ids_on_disk(), (Ids{9, 2, 11, 12}));
    EXPECT_EQ(frame_count, 4);
    EXPECT_EQ(frame_index, 2);
    EXPECT_EQ(count_pixels(11), 30 * 20);
    EXPECT_NE(said.find("bad.png"), std::string::npos);
    EXPECT_NE(said.find("none.gif"), std::string::npos);
    EXPECT_EQ(said.find("a.png"), std::string::npos);
}

TEST_F(OpenedFilesTest, WhatTheyLoseIsSaid) {
    workspace_.make_workspace({1}, 0);
    const std::string files = NUBO_TEST_DATA;
    open_files({files + "/gif_animated.gif"});
    EXPECT_STREQ(told_text.data(), "OPENED AS A NEW FRAME. FIRST OF 3 IMAGES");
    open_files({files + "/png_rgba8_n.png", files + "/gif_two.gif"});
    EXPECT_STREQ(told_text.data(), "OPENED 2 PICTURES AS NEW FRAMES. ALPHA DROPPED");
}

TEST_F(OpenedFilesTest, WhatFindsNoSlotIsNamed) {
    workspace_.make_workspace(Ids(99, 5), 98);
    put("a.png", 11);
    put("b.png", 12);
    const std::string said = said_of({"a.png", "b.png"});
    EXPECT_EQ(frame_count, 100);
    EXPECT_EQ(frame_index, 99);
    EXPECT_EQ(workspace_.ids_on_disk().back(), 11);
    EXPECT_EQ(said, "nubo: b.png: there are 100 Frames already\n");
}

TEST_F(OpenedFilesTest, WhatAnotherStartHandsOverIsOpened) {
    workspace_.make_workspace({1}, 0);
    put("a.png", 11);
    open_file_inbox(program_dir.data());
    ASSERT_TRUE(hand_over_files(program_dir.data(), {std::string(program_dir.data()) + "/a.png"}));
    open_handed_files();
    open_handed_files();
    close_file_inbox();
    EXPECT_EQ(workspace_.ids_on_disk(), (Ids{1, 11}));
}

}  // namespace
}  // namespace nubo
