// Which file a name in the browser means: its kind, its folder, what is typed of it, and which file is left alone.
#include "browser_kit.h"
#include "state/browse.h"
#include "workspace/folders.h"
#include "workspace/user_settings.h"
#include <sys/utsname.h>
#include <sys/wait.h>

namespace nubo {
namespace {

using BrowserNamesTest = FileBrowserTest;

TEST_F(BrowserNamesTest, AFileIsNamedAsTheUserMeansIt) {
    struct Case {
        const char *typed, *made;  // null: nothing
        FileType type;
        Label filter = LABEL_NONE;
    };
    static constexpr std::array cases{Case{"photo.jpeg", "photo.jpeg", FILE_JPG},
                                      Case{"v1.2", "v1.2.GIF", FILE_GIF, LABEL_GIF}, Case{"v1.2", "v1.2", FILE_PNG},
                                      Case{"b.Jpeg", "b.Jpeg", FILE_JPG, LABEL_GIF},
                                      Case{"hero.tiff", nullptr, FILE_UNKNOWN, LABEL_PNG}};
    static const Case* one;
    for (const Case& each : cases) {
        one = &each;
        exit_requested = 0;
        play_on(save_frame_command, [](User& user) -> Script {
            co_await user.wait(3);
            if (one->filter != LABEL_NONE) co_await click(user, slot_of(one->filter));
            GUI_set_field(key_focus, {.visible = 25, .max = 254}, one->typed);
            co_await click(user, slot_of(LABEL_OKAY));
            if (const int okay = slot_of(LABEL_OKAY); okay != -1) co_await click(user, okay);  // of the JPG's quality
            exit_requested = 1;
        });
        EXPECT_EQ(file_type_from_magic(one->made != nullptr ? one->made : one->typed), one->type) << one->typed;
        EXPECT_EQ(std::string(told_text.data()).find("TIFF") == 0, one->made == nullptr) << told_text.data();
        fs::remove(one->made != nullptr ? one->made : one->typed);
        EXPECT_TRUE(fs::is_empty(".")) << one->typed;
    }
}

TEST_F(BrowserNamesTest, WhatIsWriteProtectedIsLoadedAndNotReplaced) {
    new_frame(30, 20, 0x00ff00);
    ASSERT_TRUE(write_picture_file("locked.png", current_frame));
    fs::permissions("locked.png", fs::perms(0444));
    const auto size = fs::file_size("locked.png");
    new_frame(10, 10);
    EXPECT_FALSE(save_file("locked.png", PURPOSE_PICTURE));
    EXPECT_NE(std::string(told_text.data()).find("LOCKED.PNG"), std::string::npos) << told_text.data();
    EXPECT_EQ(fs::file_size("locked.png"), size);
    play_on(load_frame_command, [](User& user) -> Script {
        co_await user.wait(3);
        EXPECT_TRUE(is_shown("locked.png"));
        co_await user.tap_key(KEY_L);
        co_await user.tap_key(KEY_ENTER);
    });
    EXPECT_EQ(frame_w, 30);
    play_on(save_frame_command, [](User& user) -> Script {
        co_await user.wait(3);
        EXPECT_FALSE(is_shown("locked.png"));
        co_await user.tap_key(KEY_ENTER);  // the name is offered
        EXPECT_EQ(slot_of(LABEL_OVERWRITE), -1);
        EXPECT_EQ(menu_id, WINDOW_FILE_BROWSER) << "to take another name";
        co_await user.tap_key(KEY_ESC);
    });
}

// A process of this machine that has ended leaves its file; without a host the names were once.
TEST_F(BrowserNamesTest, WhatAKilledSaveLeftGoesWithTheNext) {
    const pid_t ended = fork();
    if (ended == 0) _exit(0);
    ASSERT_EQ(waitpid(ended, nullptr, 0), ended);
    utsname system{};
    uname(&system);
    const std::string gone = std::to_string(ended), here = std::string("-") + system.nodename;
    const std::vector<std::string> go{".a.png." + gone + "-0" + here + ".unfinished",
                                      ".b.c." + gone + "-12.unfinished"};
    const std::vector<std::string> stay{".a.png." + std::to_string(getpid()) + "-7" + here + ".unfinished",
                                        ".a.png." + gone + "-0-another.unfinished", "a." + gone + "-0.unfinished",
                                        ".notes.unfinished", ".a.png." + gone + "-0" + here};
    for (const std::string& name : go) put(name.c_str(), "x");
    for (const std::string& name : stay) put(name.c_str(), "x");
    ASSERT_TRUE(save_file("a.png", PURPOSE_PICTURE));
    for (const std::string& name : go) EXPECT_FALSE(fs::exists(name)) << name;
    for (const std::string& name : stay) EXPECT_TRUE(fs::exists(name)) << name;
}

TEST_F(BrowserNamesTest, LettersOfASecondAreOneTextAndEnterOpensWhatIsShown) {
    static const auto shown = [] {
        std::array<char, field_size> text{};
        GUI_read_field(list_slot() - 1, text);
        return std::string(text.data());
    };
    int width = 10;
    for (const char* name : {"db1.png", "dB16.png", "dark.png", "photo.png", "sub.png/x"}) {
        if (std::string(name).ends_with("/x")) fs::create_directory("sub.png");
        new_frame(width++, 10);
        ASSERT_TRUE(write_picture_file(name, current_frame));
    }
    struct Case {
        std::vector<int> keys;
        const char* shown;
        int width;  // of what ENTER has loaded; 5: nothing
    };
    static const std::array cases{Case{{KEY_D, KEY_B, KEY_1, KEY_6}, "dB16.png", 11},
                                  Case{{KEY_P, KEY_D}, "pd", 5},  // D alone would find another
                                  Case{{KEY_P, KEY_X, KEY_BACKSPACE}, "photo.png", 13},
                                  Case{{KEY_D, KEY_D}, "db1.png", 10},  // the second that begins so
                                  Case{{KEY_D, KEY_B, KEY_1, KEY_STOP}, "db1.png", 10}};
    static const Case* one;
    for (const Case& each : cases) {
        one = &each;
        new_frame(5, 10);
        play_on(load_frame_command, [](User& user) -> Script {
            co_await user.wait(3);
            for (const int key : one->keys) co_await user.tap_key(key);
            EXPECT_EQ(shown(), one->shown);
            co_await user.tap_key(KEY_ENTER);
        });
        EXPECT_EQ(frame_w, one->width) << one->shown;
    }
    play_on(load_frame_command, [](User& user) -> Script {
        co_await user.wait(3);
        co_await user.tap_key(KEY_D);
        co_await user.wait(2000);  // a second is over
        co_await user.tap_key(KEY_S);
        EXPECT_EQ(shown(), "sub.png/");
        co_await user.tap_key(KEY_ENTER);
        EXPECT_TRUE(is_shown("x"));
        co_await user.tap_key(KEY_ESC);
    });
}

TEST_F(BrowserNamesTest, EachKindOfFileHasItsOwnFolderAlsoAfterARestart) {
    default_image_dir.fill('\0');
    for (const char* name : {"resource", "pictures", "palettes", "mine", "SCHEMES"}) fs::create_directory(name);
    const std::string here = folder_.path();
    std::strncpy(program_dir.data(), here.c_str(), path_size - 1);
    std::strncpy(image_dir.data(), (here + "/pictures").c_str(), path_size - 1);
    browse_in(Folder(image_dir.data()));
    static std::string opened, goes_to;
    static const auto visit = [](BrowserMode mode, FilePurpose purpose, const std::string& next) {
        static BrowserMode how;
        static FilePurpose what;
        how = mode, what = purpose, goes_to = next;
        play_on([] { file_browser(how, what); },
                [](User& user) -> Script {
                    co_await user.wait(3);
                    opened = image_dir.data();
                    GUI_set_field(list_slot() - 2, {.visible = 25, .max = 254}, goes_to.c_str());
                    gui::click[at(list_slot() - 2)] = 1;
                    co_await user.wait(3);
                    co_await user.tap_key(KEY_ESC);
                });
        return opened;
    };
    EXPECT_EQ(visit(BROWSE_TO_LOAD, PURPOSE_SCHEME, here + "/SCHEMES"), here + "/SCHEMES");
    EXPECT_EQ(visit(BROWSE_TO_SAVE, PURPOSE_ARCHIVE, here + "/mine"), here + "/pictures");
    EXPECT_EQ(visit(BROWSE_TO_LOAD, PURPOSE_FAVORITES, here + "/palettes"), here + "/pictures");
    EXPECT_EQ(visit(BROWSE_TO_SAVE, PURPOSE_PICTURE, here + "/pictures"), here + "/pictures");
    ASSERT_TRUE(save_user_settings());
    browse_places = {};
    load_user_settings();
    EXPECT_EQ(visit(BROWSE_TO_LOAD, PURPOSE_ARCHIVE, here), here + "/mine");
    EXPECT_EQ(visit(BROWSE_TO_SAVE, PURPOSE_SCHEME, here), here + "/SCHEMES");
    EXPECT_EQ(visit(BROWSE_TO_LOAD, PURPOSE_PICTURE, here), here + "/pictures");
}

}  // namespace
}  // namespace nubo
