// Pictures that are opened from outside, each as a Frame of its own.
#include "windows/files/opened_files.h"

#include "gui/text_field.h"
#include "menus_kit.h"
#include "platform/file_inbox.h"
#include "state/status.h"
#include "state/windows.h"
#include "windows/files/file_browser.h"
#include "windows/files/picture_formats.h"
#include "workspace/workspace_kit.h"

namespace nubo {
namespace {

class OpenedFilesTest : public MenuTest {
protected:
    OpenedFilesTest() { replace_bitmap(preview_bitmap, make_bitmap(preview_w, preview_h)); }
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
    clear_frame_to(9);  // unsaved work
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

TEST_F(OpenedFilesTest, WhatIsntThereIsCalledSo) {
    workspace_.make_workspace({1}, 0);
    for (const char* name : {"/nonexist", "/nonexist.wsp"}) {
        EXPECT_EQ(said_of({name}), std::string("nubo: ") + name + ": there is no such file\n");
        EXPECT_NE(std::string(told_text.data()).find("THERE IS NO SUCH FILE"), std::string::npos) << told_text.data();
    }
}

// Each Frame keeps its own file, wherever it moves in the row; one that was never opened has none.
TEST_F(OpenedFilesTest, SaveOffersTheFileThatWasOpened) {
    workspace_.make_workspace({1, 2}, 0);
    const std::string folder = std::string(program_dir.data()) + "/mine";
    std::filesystem::create_directory("mine");
    for (const char* name : {"mine/a.png", "mine/b.png"}) put(name, 11);
    std::strncpy(image_file.data(), "first.png", file_name_size - 1);
    open_files({folder + "/a.png", folder + "/b.png"});
    insert_frames(0, 1, true);
    fetch_frame(frame_index, 1);
    delete_frames(1, 1);
    static std::string offered, opened;
    const auto offers = [&](int slot) {
        EXPECT_TRUE(fetch_frame(frame_index, slot));
        exit_requested = 0;
        play_on(save_frame_command, [](User& user) -> Script {
            co_await user.wait(3);
            std::array<char, field_size> text{};
            GUI_read_field(key_focus, text);
            offered = text.data();
            opened = image_dir.data();
            exit_requested = 1;
        });
        return offered;
    };
    EXPECT_EQ(offers(2), "a.png");
    EXPECT_EQ(opened, folder);
    EXPECT_EQ(offers(3), "b.png");
    EXPECT_EQ(offers(1), "") << "of another Frame";
}

// Whatever stands open, the user is told at once; what holds nothing that could be lost gives way.
TEST_F(OpenedFilesTest, WhatAnotherStartHandsOverIsOpenedBehindWhatWaits) {
    workspace_.make_workspace({1}, 0);
    put("a.png", 11);
    open_file_inbox(program_dir.data());
    static const auto hand_over = [] {
        ASSERT_TRUE(hand_over_files(program_dir.data(), {std::string(program_dir.data()) + "/a.png"}));
    };
    static const auto is_told = [] {
        return status_message == MESSAGE_TOLD &&
               std::string(told_text.data()) == "A.PNG WILL BE OPENED WHEN THIS IS DONE";
    };
    play([](User& user) -> Script {
        hand_over();
        co_await user.wait_until([] { return frame_count == 2; });
        for (const int key : std::array<int, 2>{0, KEY_F9}) {  // a menu, LOAD
            const int frames = frame_count;
            if (key == 0) co_await click(user, slot_of(LABEL_USER));
            if (key != 0) co_await user.tap_key(key);
            co_await user.wait_until([] { return menu_id != WINDOW_DRAWING_MENU; });
            hand_over();
            co_await user.wait_until([frames] { return frame_count > frames && menu_id == WINDOW_DRAWING_MENU; });
        }
        co_await user.tap_key(KEY_F5);  // SAVE
        co_await user.wait_until([] { return menu_id != WINDOW_DRAWING_MENU; });
        hand_over();
        co_await user.wait_until(is_told);
        EXPECT_EQ(frame_count, 4);
        co_await user.tap_key(KEY_ESC);
        co_await user.wait_until([] { return frame_count == 5; });
        co_await user.press_left(20, 20);
        hand_over();
        co_await user.wait_until(is_told);
        EXPECT_EQ(frame_count, 5);
        co_await user.release_left();
        co_await user.wait_until([] { return frame_count == 6; });
    });
    close_file_inbox();
    EXPECT_EQ(workspace_.ids_on_disk().back(), 11);
}

}  // namespace
}  // namespace nubo
