// SAVE, LOAD and NEW of the Workspace's window, from the press to what stands on disk and on the screen.
#include "framework/outline_font.h"
#include "menus_kit.h"
#include "platform/system_calls.h"
#include "windows/files/file_browser.h"
#include "windows/files/file_list.h"
#include "windows/files/opened_files.h"
#include "windows/files/picture_files.h"
#include "windows/files/workspace_archives.h"
#include "windows/workspace_window.h"
#include "workspace/archive.h"
#include "workspace/frame_store.h"
#include "workspace/preferred_font.h"
#include "workspace/previous.h"

namespace nubo {
namespace {

namespace fs = std::filesystem;

class WorkspaceArchivesTest : public ActivityTest {
protected:
    WorkspaceArchivesTest() {
        system_calls.fsync = system_calls.syncfs = [](int) { return 0; };
        replace_bitmap(preview_bitmap, make_bitmap(preview_w, preview_h));
        fs::create_directory("projects");
        std::strncpy(default_image_dir.data(), fs::absolute("projects").c_str(), path_size - 1);
    }

    static void paint(Color color) { clear_frame_to(color); }
    static User::Pause press(User& user, Label label) { return click(user, slot_of(label)); }
    static std::string told() { return status_message == MESSAGE_TOLD ? told_text.data() : ""; }
    static bool loads() { return menu_id == WINDOW_BOX && gui::label[slot_window + 1] == LABEL_LOADING_WORKSPACE; }
};

TEST_F(WorkspaceArchivesTest, AreSavedUnderATypedNameAndChosenFromTheList) {
    paint(0x111111);
    std::strcpy(image_file.data(), "sprite.png");  // not to be lost for a Workspace
    play_on(workspace_window, [](User& user) -> Script {
        co_await user.wait(3);
        co_await press(user, LABEL_WORKSPACE_SAVE);
        for (const int key : {KEY_T, KEY_O, KEY_W, KEY_N, KEY_ENTER}) co_await user.tap_key(key);
        co_await user.wait_until([] { return !told().empty(); });
    });
    exit_requested = 0;
    std::vector<std::string> names;
    for (const auto& entry : fs::directory_iterator("projects")) names.push_back(entry.path().filename());
    ASSERT_EQ(names.size(), 1u);
    EXPECT_TRUE(has_ending(names[0], "WSP")) << names[0];
    EXPECT_EQ(told(), "SAVED 1 FRAME TO TOWN.WSP");
    paint(0x222222);
    play_on(workspace_window, [](User& user) -> Script {
        co_await user.wait(3);
        co_await press(user, LABEL_WORKSPACE_LOAD);
        EXPECT_EQ(slot_of(LABEL_PREVIOUS_WORKSPACE), -1) << "nothing was put away yet";
        co_await user.tap_key(KEY_DOWN);
        co_await user.tap_key(KEY_DOWN);
        co_await press(user, LABEL_OKAY);
        co_await user.wait_until([] { return told().starts_with("LOADED"); });
    });
    exit_requested = 0;
    EXPECT_EQ(frame_pixel(5, 5), 0x111111u);
    EXPECT_EQ(menu_id, WINDOW_DRAWING_MENU);
    play_on(workspace_window, [](User& user) -> Script {
        co_await user.wait(3);
        co_await press(user, LABEL_WORKSPACE_LOAD);
        co_await press(user, LABEL_PREVIOUS_WORKSPACE);
        co_await press(user, LABEL_CANCEL);  // of the list: the browser comes back
        co_await press(user, LABEL_PREVIOUS_WORKSPACE);
        constexpr int first_row = slot_content + 1;
        EXPECT_EQ(gui::type[first_row], ELEMENT_KEPT_WORKSPACE);
        EXPECT_EQ(gui::active[first_row + 1], 0) << "one was put away";
        co_await click(user, first_row);
        co_await user.wait_until([] { return frame_pixel(5, 5) == 0x222222u; });
    });
}

TEST_F(WorkspaceArchivesTest, NewKeepsTheOldOneAndLoadingRemembersTheCloseButton) {
    paint(0x333333);
    insert_frames(0, 1, false);
    play_on(workspace_window, [](User& user) -> Script {
        co_await user.wait(3);
        co_await press(user, LABEL_WORKSPACE_NEW);
        co_await press(user, LABEL_OKAY);
        co_await user.wait_until([] { return !told().empty(); });
    });
    exit_requested = 0;
    EXPECT_EQ(frame_count, 1);
    EXPECT_EQ(frame_pixel(5, 5), 0u);
    for (const char* kept : {"previous.wsp", "previous-2.wsp", "previous-5.wsp"})
        EXPECT_FALSE(save_file(kept, PURPOSE_ARCHIVE)) << "the next LOAD would write over it";
    EXPECT_TRUE(save_file("previous-6.wsp", PURPOSE_ARCHIVE));
    play_on(
        [] {
            open_files({previous_workspace_file(), "none.png"});
        },
        [](User& user) -> Script {
            co_await user.wait_until(loads);
            exit_requested = 1;
        });
    EXPECT_EQ(exit_requested, 1);
    EXPECT_EQ(frame_count, 2);
    EXPECT_EQ(frame_pixel(5, 5), 0x333333u);
    paint(0x555555);
    EXPECT_TRUE(load_file(previous_workspace_file(), PURPOSE_PICTURE)) << "also where a picture is looked for";
    EXPECT_EQ(told(), "LOADED 2 FRAMES. THE OLD ONES ARE IN PREVIOUS.WSP");
    EXPECT_EQ(frame_pixel(5, 5), 0x333333u);
    new_workspace();
    EXPECT_EQ(told(), "A NEW WORKSPACE") << "nothing had changed";
    open_files({previous_workspace_file(), "previous-2.wsp"});
    EXPECT_EQ(frame_pixel(5, 5), 0x555555u) << "the second isn't taken";
    EXPECT_EQ(told(), "NOT OPENED: PREVIOUS-2.WSP, ONE WORKSPACE AT A TIME");
}

TEST_F(WorkspaceArchivesTest, WithoutRoomForTheOldOneNothingIsCleared) {
    paint(0x444444);
    fs::create_directories("previous-new.wsp/in_the_way");
    play_on(workspace_window, [](User& user) -> Script {
        co_await user.wait(3);
        co_await press(user, LABEL_WORKSPACE_NEW);
        co_await press(user, LABEL_OKAY);
        co_await user.wait_until([] { return !told().empty(); });
    });
    EXPECT_EQ(frame_pixel(5, 5), 0x444444u);
    EXPECT_TRUE(told().starts_with("NOTHING CLEARED"));
}

TEST_F(WorkspaceArchivesTest, BringTheirTextAndItsFont) {
    ASSERT_EQ(font_system_init(), 0);
    for (const char* folder : {"fonts", "mine"}) fs::create_directory(folder);
    for (const char* file : {"fonts/system.ttf", "mine/good.ttf"}) fs::copy_file(NUBO_FOLDER "/fonts/system.ttf", file);
    choose_preferred_font(fs::absolute("mine/good.ttf"));
    std::strcpy(text_tool_text.data(), "Wort");
    text_tool_size = 44;
    ASSERT_TRUE(save_file("projects/a.wsp", PURPOSE_ARCHIVE));
    for (const char* taken : {"good.ttf", system_font}) {
        choose_preferred_font(fs::absolute("fonts/system.ttf"));
        text_tool_text.fill('\0');
        text_tool_size = 10;
        ASSERT_TRUE(load_file("projects/a.wsp", PURPOSE_ARCHIVE));
        EXPECT_STREQ(font_name.data(), taken);
        EXPECT_EQ(font_text_height(preferred_font), 44);
        EXPECT_STREQ(text_tool_text.data(), "Wort");
        fs::remove("mine/good.ttf");  // as on another machine
    }
    font_system_exit();
}

}  // namespace
}  // namespace nubo
