#include "framework/resources.h"

#include "codecs/gif.h"
#include "font_sheet.h"
#include "harness/harness.h"
#include "platform/faults.h"
#include "state/resources.h"
#include <chrono>

namespace nubo {
namespace {

namespace fs = std::filesystem;

void write_text(const char* path, std::string_view text) { std::ofstream(path, std::ios::binary) << text; }

void set_age(const char* path, int hours) {
    fs::last_write_time(path, fs::file_time_type::clock::now() - std::chrono::hours(hours));
}

/// Expects that `call` ends the program with -1 and that message box, which goes to standard output here.
void expect_end(void (*call)(), const std::string& message) {
    constexpr int exit_minus_one = 255;
    const auto call_aloud = [&] {
        dup2(STDERR_FILENO, STDOUT_FILENO);
        call();
    };
    EXPECT_EXIT(call_aloud(), testing::ExitedWithCode(exit_minus_one), message);
}

class ResourcesTest : public testing::Test {
protected:
    ResourcesTest() {
        UA_log_open();
        set_test_palette();
    }
    ~ResourcesTest() override { UA_log_close(); }
    /// Writes a GIF in the test palette whose pixels are the palette's entries for the colours of `picture`.
    static void write_gif(const char* path, BITMAP* picture) {
        BITMAP* const indexed = create_bitmap_ex(8, picture->w, picture->h);
        for (int y = 0; y < picture->h; ++y)
            for (int x = 0; x < picture->w; ++x)
                indexed->line[y][x] = static_cast<unsigned char>(UA_palette_index(*pixels_at(picture, x, y)));
        PALETTE palette;
        get_palette(palette);
        ASSERT_EQ(save_gif(path, indexed, palette), 0);
        destroy_bitmap(indexed);
    }
    static void write_dot(const char* path, int index) {
        write_gif(path, make_bitmap(3, 2, UA_palette_color(index)).get());
    }
    /// The colour of the picture that the resource `name` holds.
    static Color loaded_color(const char* name) {
        const OwnedBitmap bitmap(UA_load_resource_bitmap(Folder("."), name));
        return bitmap ? *pixels_at(bitmap.get(), 2, 1) : transparent_color;
    }
    ScratchFolder folder_;
};

TEST_F(ResourcesTest, ANewerPlainPictureIsScrambledOverTheOldAndIsGone) {
    write_dot("ART.gif", 7);
    EXPECT_EQ(loaded_color("ART"), UA_palette_color(7));
    EXPECT_FALSE(fs::exists("ART.gif") || fs::exists("prat"));
    EXPECT_NE(bytes_of("ART").substr(1, 3), "GIF");
    EXPECT_EQ(global_palette[7].r, 7 * 9);
    set_age("ART", 2);
    write_dot("ART.gif", 9);
    EXPECT_EQ(loaded_color("ART"), UA_palette_color(9));
    write_dot("ART.gif", 11);
    set_age("ART.gif", 2);  // older than what is there: stays, and counts for nothing
    EXPECT_EQ(loaded_color("ART"), UA_palette_color(9));
    EXPECT_TRUE(fs::exists("ART.gif"));
}

TEST_F(ResourcesTest, AFullDiskHindersNoPictureFromBeingLoaded) {
    write_dot("ART.gif", 7);
    faults::arm(faults::CALL_WRITE, 0, ENOSPC, true);
    EXPECT_EQ(loaded_color("ART"), UA_palette_color(7));
    EXPECT_TRUE(fs::exists("ART.gif"));
    faults::disarm();
    EXPECT_EQ(loaded_color("ART"), UA_palette_color(7));
    faults::arm(faults::CALL_ANY, 0, EROFS, true);
    EXPECT_EQ(loaded_color("ART"), UA_palette_color(7));
    faults::disarm();
}

TEST_F(ResourcesTest, WhatTheStartNeedsEndsTheProgramWhenItIsMissing) {
    expect_end([] { UA_load_resource_bitmap(Folder("."), "ART"); },
               "A critical resource file is missing. Please reinstall the program.");
    expect_end([] { UA_convert_resource("ART.gif", "ART"); },
               "A resource file conversion failed. Please reinstall the game and try again.");
    expect_end([] { UA_pack_resource("a", "b"); },
               "A critical resource file is missing. Please reinstall the application.");
    expect_end([] { UA_unpack_resource("a", "b"); }, "A critical resource file is missing. Please reinstall the game.");
    EXPECT_EQ(log_text(), "ERROR: Failed to find a resource file. File = ART\n"
                          "ERROR: Failed to convert a resource file. File = ART.gif\n"
                          "[ ERROR ] : Missing resource file while compressing!\n"
                          "[ ERROR ] : Missing resource file while decompressing!\n");
}

TEST_F(ResourcesTest, TheFrameworksImagesAreReadyForTheInterface) {
    FontSheet sheet;
    sheet.add('A', 0, 6, {"01"});
    for (const char* const font : {"UA_FONT_04.gif", "UA_FONT_05.gif"}) write_gif(font, sheet.bitmap());
    write_dot("UA_GUI.gif", 0);
    write_dot("PALETTE.gif", 3);
    PALETTE dark{};
    set_palette(dark);
    UA_load_framework_video(Folder("."));
    EXPECT_EQ(*pixels_at(gui_sheet, 0, 0), transparent_color);
    EXPECT_EQ(UA_palette_index(UA_palette_color(200)), 200);  // the palette is current
    const OwnedBitmap target = make_bitmap(320, 240);
    set_font(FONT_WIDE, TEXT_LIGHT);
    EXPECT_EQ(UA_text(target.get(), 0, 0, "A"), 6);
    EXPECT_EQ(*pixels_at(target.get(), 1, 0), 0xdadadau);
    write_text("UA_FONT_05", "\3");
    expect_end([] { UA_load_framework_video(Folder(".")); },
               "A critical resource file is missing. Please reinstall the program.");
}

TEST_F(ResourcesTest, TheObjectLibraryIsReadLineByLine) {
    write_text("obj_lib.def", "1\n2\n3\n4\n2\n10\n20\n30\n40\n5\n6\n7\n8\n0\n9\n-1 and words\nwords\n0\n1\n128\n7");
    UA_load_object_library(Folder("."));
    ASSERT_EQ(library_count, 3);
    EXPECT_EQ(object_library[0].pair_count, 2);
    EXPECT_EQ(object_library[0].pairs[1].angle, 30);
    EXPECT_EQ(object_library[0].pairs[1].radius, 40);
    EXPECT_EQ(object_library[1].header[3], 8);
    EXPECT_EQ(object_library[2].header[1], -1);
    EXPECT_EQ(object_library[2].pairs[0].radius, 7);
    EXPECT_EQ(log_text(), "");
}

}  // namespace
}  // namespace nubo
