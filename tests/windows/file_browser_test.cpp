// The file browser and what it opens and saves, on a folder of the test's own.
#include "windows/files/file_browser.h"

#include "browser_kit.h"
#include "codecs/picture_files.h"
#include "platform/faults.h"
#include "windows/colors/color_files.h"
#include "windows/files/jpeg_quality_window.h"
#include "workspace/folders.h"
#include "workspace/frame_memory.h"
#include "workspace/notices.h"

namespace nubo {
namespace {

TEST_F(FileBrowserTest, TypesAreToldByEndingAndByTheFirstBytes) {
    EXPECT_EQ(file_type_from_extension("a.PnG", BROWSE_TO_LOAD), FILE_PNG);
    EXPECT_EQ(file_type_from_extension(".GIF", BROWSE_TO_LOAD), FILE_GIF);
    EXPECT_EQ(file_type_from_extension("gif", BROWSE_TO_LOAD), FILE_UNKNOWN);
    EXPECT_EQ(file_type_from_extension("a.b.jpeg", BROWSE_TO_LOAD), FILE_JPG);
    EXPECT_EQ(file_type_from_extension("a.Iff", BROWSE_TO_LOAD), FILE_LBM);
    EXPECT_EQ(file_type_from_extension("town.v2", BROWSE_TO_LOAD), FILE_UNKNOWN);
    EXPECT_EQ(file_type_from_extension("a.wsp", BROWSE_TO_SAVE), FILE_WSP);
    EXPECT_EQ(file_type_from_extension("a.ttf", BROWSE_FOR_FONT), FILE_TTF);
    EXPECT_EQ(file_type_from_extension("a.png", BROWSE_FOR_FONT), FILE_UNKNOWN);
    put("a", "xPNG");
    put("b", "\xff\xd8\xff");
    put("c", "nWSP");
    put("d", "CO");
    EXPECT_EQ(file_type_from_magic("a"), FILE_PNG);
    EXPECT_EQ(file_type_from_magic("b"), FILE_JPG);
    EXPECT_EQ(file_type_from_magic("c"), FILE_WSP);
    EXPECT_EQ(file_type_from_magic("d"), FILE_UNKNOWN);
    EXPECT_EQ(file_type_from_magic("none"), FILE_UNKNOWN);
}

// JPEG comes near; a GIF has six bits a channel.
TEST_F(FileBrowserTest, EachFormatBringsBackWhatItTook) {
    constexpr Color left = 0xff0000, right = 0x00ff00;
    opt_gif_reduction = REDUCTION_BEST;
    for (const char* name : {"p.gif", "p.pcx", "p.bmp", "p.png", "p.jpg", "p.lbm", "p", "p.ttf"}) {
        new_frame(64, 48, left);
        rectfill(current_frame, 32, 0, 63, 47, static_cast<int>(right));
        jpeg_quality = 100;
        ASSERT_TRUE(write_picture_file(name, current_frame)) << name;
        const bool has_own_ending = std::string(name).size() == 5 && std::string(name) != "p.ttf";
        EXPECT_TRUE(has_own_ending || file_type_from_magic(name) == FILE_PNG) << name;
        new_frame(5, 5, 0x123456);
        ASSERT_TRUE(load_file(name, PURPOSE_PICTURE)) << name;
        EXPECT_EQ(frame_w, 64);
        EXPECT_EQ(frame_h, 48);
        const int off_by = std::string(name) == "p.jpg" ? 6 : std::string(name) == "p.gif" ? 3 : 0;
        const auto is_like = [&](int x, Color color) {
            const Color pixel = frame_pixel(x, 20);
            const int off = std::abs(red_of(pixel) - red_of(color)) + std::abs(green_of(pixel) - green_of(color)) +
                            std::abs(blue_of(pixel) - blue_of(color));
            return (pixel >> 24) == 0 && off <= off_by;
        };
        EXPECT_TRUE(is_like(10, left)) << name;
        EXPECT_TRUE(is_like(50, right)) << name;
    }
}

// A GIF has six bits a channel; near its edges a JPEG is off by more.
TEST_F(FileBrowserTest, OtherProgramsReadWhatIsSaved) {
    ASSERT_EQ(std::system("command -v pngtopnm >/dev/null"), 0) << "netpbm isn't here; ./test installs it";
    struct Case {
        const char *name, *reader;
        int off_by = 0, edge = 0;
    };
    opt_gif_reduction = REDUCTION_BEST;
    jpeg_quality = 100;
    new_frame(64, 48, 0x3163c5);
    rectfill(current_frame, 32, 0, 63, 47, 0xfd0240);
    for (const Case& one : {Case{"p.gif", "giftopnm", 3}, Case{"p.pcx", "pcxtoppm"}, Case{"p.bmp", "bmptopnm"},
                            Case{"p.png", "pngtopnm"}, Case{"p.jpg", "jpegtopnm", 3, 8}}) {
        ASSERT_TRUE(write_picture_file(one.name, current_frame));
        ASSERT_EQ(std::system((std::string(one.reader) + " p.* >out 2>errors").c_str()), 0) << one.name;
        fs::remove(one.name);
        Bytes pixels;
        const std::string head = "P6\n64 48\n255\n";
        ASSERT_TRUE(read_file("out", SIZE_MAX, pixels) && pixels.size() == head.size() + 64 * 48 * 3) << one.name;
        int wrong = 0;
        for (int i = 0; i < 64 * 48 * 3; ++i) {
            const int x = i / 3 % 64, value = pixels[head.size() + at(i)];
            const int wanted = static_cast<int>(frame_pixel(x, i / 3 / 64) >> (16 - 8 * (i % 3)) & 0xff);
            if ((x < 32 - one.edge || x >= 32 + one.edge) && std::abs(value - wanted) > one.off_by) ++wrong;
        }
        EXPECT_EQ(wrong, 0) << one.name;
    }
}

TEST_F(FileBrowserTest, WhatCantBeReadOrWrittenChangesNothing) {
    new_frame(20, 10, 0x445566);
    put("bad.png", "garbage");
    put("bad.jpg", std::string("\xff\xd8\xff\xe0") + std::string(40, '\0'));
    put("short", "COL");
    const auto colors = favorites;
    const auto scheme = color_scheme;
    for (const char* name : {"bad.png", "bad.jpg", "none.png"}) EXPECT_FALSE(load_file(name, PURPOSE_PICTURE)) << name;
    EXPECT_FALSE(load_file("short", PURPOSE_FAVORITES));
    EXPECT_FALSE(load_file("short", PURPOSE_SCHEME));
    EXPECT_EQ(favorites, colors);
    EXPECT_EQ(color_scheme, scheme);
    EXPECT_EQ(count_pixels(0x445566), 200);
    EXPECT_FALSE(save_file("nowhere/a.png", PURPOSE_PICTURE));
    EXPECT_EQ(status_message, MESSAGE_TOLD);
    std::strncpy(program_dir.data(), folder_.path().c_str(), path_size - 1);
    fs::create_directory("WORKSPACE");
    EXPECT_FALSE(save_file("WORKSPACE/current.000", PURPOSE_PICTURE));
    EXPECT_FALSE(fs::exists("WORKSPACE/current.000"));
    EXPECT_TRUE(save_file("WORKSPACE/mine.png", PURPOSE_PICTURE));
}

TEST_F(FileBrowserTest, ColorsKeepTheirFormToTheByte) {
    favorites.fill(0x010203);
    favorites[255] = 0xa0b0c0;
    ASSERT_TRUE(save_favorites("f"));
    ASSERT_EQ(fs::file_size("f"), 1027u);
    favorites.fill(0);
    EXPECT_EQ(load_favorites("f"), 1);
    EXPECT_EQ(favorites[0], 0x010203u);
    EXPECT_EQ(favorites[255], 0xa0b0c0u);
    ASSERT_TRUE(save_favorites("f.gpl"));  // a form for others, told by its contents when it comes back
    fs::rename("f.gpl", "g");
    favorites.fill(0);
    EXPECT_EQ(load_favorites("g"), 1);
    EXPECT_EQ(favorites[255], 0xa0b0c0u);
    put("two.pal", "JASC-PAL\r\n0100\r\n2\r\n9 9 9\r\n7 7 7\r\n");
    EXPECT_EQ(load_favorites("two.pal"), 1);
    EXPECT_EQ(favorites[1], 0x070707u);
    EXPECT_EQ(favorites[2], color_scheme[SCHEME_BACKGROUND]) << "blank behind a palette of two";
    put("s", "SCH" + std::string(38, '\0') + "\x7f");  // a byte short
    EXPECT_EQ(load_scheme("s"), -1);
    put("s", "SCH" + std::string(36, '\0') + "\x7f\x01\x02\x03");  // the top byte of a colour is none's
    EXPECT_EQ(load_scheme("s"), 1);
    EXPECT_EQ(color_scheme.back(), 0x010203u);
    color_scheme.fill(0x405060);
    ASSERT_TRUE(save_scheme("s"));
    color_scheme.fill(0);
    favorites.fill(0);
    EXPECT_TRUE(load_file("s", PURPOSE_PICTURE) && load_file("f", PURPOSE_PICTURE));
    EXPECT_EQ(ui_background, 0x405060u) << "looked for as a picture it is worn at once";
    EXPECT_EQ(favorites[255], 0xa0b0c0u);
}

TEST_F(FileBrowserTest, ADoubleClickLoadsAndFoldersAreEntered) {
    new_frame(30, 30, 0x00ff00);
    fs::create_directory("sub");
    ASSERT_TRUE(write_picture_file("sub/a.png", current_frame));
    new_frame(10, 10, 0);
    put("notes.txt", "x");
    play_on(load_frame_command, [](User& user) -> Script {
        co_await user.wait(3);
        EXPECT_TRUE(is_shown("sub") && is_shown("notes.txt") && is_shown(".."));
        co_await click_row(user, 1);
        EXPECT_TRUE(is_shown("a.png"));
        co_await click_row(user, 1);
        EXPECT_STREQ(image_file.data(), "a.png");
        EXPECT_EQ(*pixels_at(preview_bitmap, 50, 40), 0x00ff00u);
        EXPECT_EQ(frame_w, 10) << "one click only chooses";
        co_await click_row(user, 1);
    });
    EXPECT_EQ(frame_w, 30);
    EXPECT_TRUE(std::string(image_dir.data()).ends_with("/sub"));
}

TEST_F(FileBrowserTest, AFileIsOverwrittenOnlyWhenTheUserSaysSo) {
    put("a.png", "old");
    std::strncpy(image_file.data(), "a.png", file_name_size - 1);
    new_frame(10, 10, 0x123456);
    play_on(save_frame_command, [](User& user) -> Script {
        co_await user.wait(3);
        co_await user.tap_key(KEY_ENTER);
        co_await user.wait_until([] { return slot_of(LABEL_OVERWRITE) != -1; });
        const char* const named = gui::value_text[at(slot_of(LABEL_OVERWRITE) + 1)];
        EXPECT_STREQ(named != nullptr ? named : "", "A.PNG");
        co_await click(user, slot_of(LABEL_OVERWRITE) - 1);  // CANCEL stands before the question
        EXPECT_EQ(fs::file_size("a.png"), 3u);
        EXPECT_EQ(menu_id, WINDOW_FILE_BROWSER);
        co_await user.tap_key(KEY_ENTER);
        co_await user.wait_until([] { return slot_of(LABEL_OVERWRITE) != -1; });
        co_await click(user, slot_of(LABEL_OVERWRITE) - 2);
    });
    FileType type = FILE_UNKNOWN;
    const ReadPicture saved = read_picture_file("a.png", type);
    ASSERT_NE(saved.bitmap, nullptr);
    EXPECT_EQ(*pixels_at(saved.bitmap.get(), 5, 5), 0x123456u);
}

TEST_F(FileBrowserTest, ANameTypedInSaveTakesThePlaceOfTheStemThatIsOffered) {
    std::strncpy(image_file.data(), "hero1.png", file_name_size - 1);
    for (int i = 0; i < 2; ++i)
        play_on(save_frame_command, [](User& user) -> Script {
            co_await user.wait(3);
            co_await user.tap_key(KEY_X);
            co_await user.tap_key(KEY_Y);
            co_await user.tap_key(KEY_ENTER);
            if (slot_of(LABEL_OVERWRITE) != -1) co_await click(user, slot_of(LABEL_OVERWRITE) - 2);
        });
    EXPECT_STREQ(image_file.data(), "xy.png");
    EXPECT_EQ(std::distance(fs::directory_iterator("."), {}), 1) << "one picture, saved twice";
}

// The drawing menu is hidden meanwhile, and what a lost display would save is the Frame.
TEST_F(FileBrowserTest, TheQualityIsSeenAndTheFrameComesBack) {
    new_frame(64, 64);
    for (int i = 0; i < 64 * 64; ++i)
        *pixels_at(current_frame, i % 64, i / 64) = static_cast<Color>(i * 2654435761u) >> 8;
    jpeg_quality = 3;
    static std::vector<Color> before;
    before = frame_pixels();
    build_drawing_menu();
    play_on([] { EXPECT_EQ(jpeg_quality_window(), -1); },
            [](User& user) -> Script {
                co_await user.wait(3);
                EXPECT_NE(frame_pixels(), before);
                EXPECT_EQ(slot_of(LABEL_USER), -1);
                co_await user.tap_key(KEY_ESC);
            });
    EXPECT_EQ(frame_pixels(), before);
    EXPECT_EQ(jpeg_quality, 3);
    EXPECT_NE(slot_of(LABEL_USER), -1);
    play_on([] { EXPECT_EQ(jpeg_quality_window(), 8); },
            [](User& user) -> Script {
                co_await user.wait(3);
                const int okay = slot_of(LABEL_OKAY);
                co_await user.move_to(middle_x(okay - 1), middle_y(okay - 1));  // the slider: 5 a notch
                co_await user.turn_wheel(1);
                co_await click(user, slot_of(LABEL_VIEW));
                EXPECT_NE(frame_pixels(), before);
                end_frame_preview();
                EXPECT_EQ(frame_pixels(), before);
                co_await click(user, okay);
            });
    EXPECT_EQ(frame_pixels(), before);
    EXPECT_EQ(jpeg_quality, 8);
}

// ---- Names, folders, keys ------------------------------------------------------------------------------------------

TEST_F(FileBrowserTest, WhateverItsNameAFileIsFoundByItsRow) {
    static constexpr std::array names{"-x.png", "A.png", "a.png", "|c21 #\xe4\xc3\xa9.png"};
    for (int i = 0; i < static_cast<int>(names.size()); ++i) {
        new_frame(10 + i, 10);
        ASSERT_TRUE(write_picture_file(names[at(i)], current_frame));
    }
    play_on(
        [] {
            for (int i = 0; i < static_cast<int>(names.size()); ++i) {
                load_frame_command();
                EXPECT_EQ(frame_w, 10 + i) << names[at(i)];
            }
        },
        [](User& user) -> Script {
            for (int i = 0; i < static_cast<int>(names.size()); ++i) {
                co_await user.wait(300);  // or the next click were the second one of two
                EXPECT_EQ(file_names[at(i + 1)].name, names[at(i)]);
                co_await click_row(user, i + 1);
                co_await click_row(user, i + 1);
            }
        });
}

TEST_F(FileBrowserTest, KeysWalkTheListAndAFolderThatHasGoneIsTold) {
    for (const char* name : {"a.png", "b.png", "c.png"}) {
        new_frame(10 + name[0] - 'a', 10);
        ASSERT_TRUE(write_picture_file(name, current_frame));
    }
    for (const char* name : {"away", "sub"}) fs::create_directory(name);
    std::strncpy(default_image_dir.data(), (folder_.path() + "/sub").c_str(), path_size - 1);
    play_on(load_frame_command, [](User& user) -> Script {
        co_await user.wait(3);
        co_await user.tap_key(KEY_BACKSPACE);
        EXPECT_TRUE(is_shown("c.png"));
        fs::remove("away");
        co_await click_row(user, 1);
        EXPECT_EQ(status_message, MESSAGE_TOLD);
        EXPECT_TRUE(is_shown("c.png"));
        fs::create_directory("away");
        key_focus = -1;
        co_await user.tap_key(KEY_S);
        co_await click(user, slot_of(LABEL_OKAY));
        EXPECT_FALSE(is_shown("c.png")) << "OKAY enters the folder that the keys have come to";
        co_await user.tap_key(KEY_BACKSPACE);
        co_await user.tap_key(KEY_C);
        EXPECT_STREQ(image_file.data(), "c.png");
        co_await user.tap_key(KEY_UP);
        co_await user.tap_key(KEY_ENTER);
    });
    EXPECT_EQ(frame_w, 11);
}

TEST_F(FileBrowserTest, FiltersPlacesAndHomeAnswer) {
    put("a.png", "x");
    put("b.jpeg", "x");
    play_on(load_frame_command, [](User& user) -> Script {
        co_await user.wait(3);
        co_await click(user, slot_of(LABEL_JPG));
        EXPECT_TRUE(is_shown("b.jpeg") && !is_shown("a.png"));
        co_await click(user, slot_of(LABEL_PNG));
        EXPECT_TRUE(is_shown("a.png") && !is_shown("b.jpeg"));
        co_await click(user, slot_of(LABEL_PNG));
        EXPECT_TRUE(is_shown("a.png") && is_shown("b.jpeg"));
        co_await click(user, slot_of(LABEL_FLOAT));
        EXPECT_STREQ(default_image_dir.data(), "");
        const int root = slot_of(drive_label('C' - 'A'));
        EXPECT_EQ(gui::type[at(root)], ELEMENT_BUTTON_DOWN) << "the folder lies in it, and in no nearer place";
        co_await click(user, root);
        EXPECT_STREQ(image_dir.data(), "/");
        co_await click(user, slot_of(LABEL_HOME));
        EXPECT_STREQ(default_image_dir.data(), "/");
        co_await right_click_outside(user);
    });
    EXPECT_EQ(browse_folder().path(), "/");
}

TEST_F(FileBrowserTest, ItOpensInThePicturesTheFirstTimeAndWhereItWasWithoutItsHome) {
    setenv("HOME", folder_.path().c_str(), 1);
    unsetenv("XDG_CONFIG_HOME");
    for (const char* name : {"Pictures", "Pictures/last"}) fs::create_directory(name);
    default_image_dir.fill('\0');
    const auto opens_in = [](const std::string& folder) {
        play_on(load_frame_command, [](User& user) -> Script {
            co_await user.wait(3);
            co_await user.tap_key(KEY_ESC);
        });
        EXPECT_EQ(image_dir.data(), folder);
        exit_requested = 0;
    };
    opens_in(folder_.path() + "/Pictures");
    browse_in(Folder(folder_.path() + "/Pictures/last"));
    std::strncpy(default_image_dir.data(), "/not/there", path_size - 1);
    opens_in(folder_.path() + "/Pictures/last");
}

TEST_F(FileBrowserTest, ThePreviewSaysWhyItShowsNothing) {
    new_frame(30, 30, 0x00ff00);
    ASSERT_TRUE(write_picture_file("a.png", current_frame));
    put("bad.png", "x");
    const auto shows = [](PreviewMessage kind) {
        const OwnedBitmap seen = copy_bitmap(preview_bitmap);
        set_preview_message(kind);
        return same_pixels(seen.get(), preview_bitmap);
    };
    opt_file_preview_limit = 0;
    const auto preview = [&](const char* name, FilePreview mode, bool asked) {
        opt_file_preview = mode;
        preview_picture(folder_.path() + "/" + name, file_type_from_extension(name, BROWSE_TO_LOAD), asked);
    };
    preview("a.png", PREVIEW_LIMIT, false);
    EXPECT_TRUE(shows(PREVIEW_TOO_LARGE));
    preview("a.png", PREVIEW_LIMIT, true);
    EXPECT_EQ(*pixels_at(preview_bitmap, 50, 40), 0x00ff00u);
    preview("a.png", PREVIEW_NONE, false);
    EXPECT_TRUE(shows(PREVIEW_DISABLED));
    preview("bad.png", PREVIEW_ALL, false);
    EXPECT_TRUE(shows(PREVIEW_BORKED));
    fs::permissions("bad.png", fs::perms::none);
    EXPECT_FALSE(load_file("bad.png", PURPOSE_PICTURE));
    EXPECT_STREQ(told_text.data(), "THIS FILE MAY NOT BE READ");
    preview("a.wsp", PREVIEW_ALL, false);
    EXPECT_TRUE(shows(PREVIEW_UNAVAILABLE));
}

TEST_F(FileBrowserTest, PatienceIsAskedForWhileWorkLastsAndWhatCameOfItStays) {
    const auto says = [](const char* text) {
        return status_message == MESSAGE_TOLD && std::string(told_text.data()) == text;
    };
    {
        const BusyNotice brief(100'000);
        EXPECT_EQ(status_message, status_coordinates);
        const BusyNotice notice(200'000);
        EXPECT_TRUE(says("ONE MOMENT..."));
    }
    EXPECT_EQ(status_message, status_coordinates);
    new_frame(500, 400);  // pixels enough
    EXPECT_TRUE(save_file("a.bmp", PURPOSE_PICTURE));
    EXPECT_TRUE(says("SAVED BMP OF 600054 BYTES TO A.BMP")) << told_text.data();  // a head of 54, three a pixel
    EXPECT_TRUE(load_file("a.bmp", PURPOSE_PICTURE));
    EXPECT_TRUE(says("LOADED 500X400 BMP"));
    play_on([] { EXPECT_TRUE(load_file(NUBO_TEST_DATA "/png_greya16_n.png", PURPOSE_PICTURE)); },
            [](User& user) -> Script {
                co_await user.wait(3);
                co_await click(user, mask_slot);
            });
    EXPECT_TRUE(says("LOADED 13X11 PNG. ALPHA DROPPED. 16 BITS A CHANNEL CUT TO 8")) << told_text.data();
}

TEST_F(FileBrowserTest, AFullDiskLeavesTheOldFileAndNoOther) {
    for (const char* name : {"p.gif", "p.pcx", "p.bmp", "p.png", "p.jpg", "p.lbm"}) {
        put(name, "old");
        faults::arm(faults::CALL_WRITE, 0, ENOSPC, true);
        EXPECT_FALSE(write_picture_file(name, current_frame)) << name;
        EXPECT_TRUE(faults::struck()) << name;
        faults::disarm();
        EXPECT_EQ(fs::file_size(name), 3u) << name;
        fs::remove(name);
        EXPECT_TRUE(fs::is_empty(".")) << name;
    }
}

}  // namespace
}  // namespace nubo
