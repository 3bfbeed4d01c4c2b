// TEXT by the scripted user: typing, carrying, size, gap, another font, both ways to the paint and those without.
#include "windows/text_window.h"

#include "framework/outline_font.h"
#include "gui/text_field.h"
#include "menus_kit.h"
#include "paint/inks.h"
#include "paint/tool_text.h"
#include "state/guides.h"
#include "windows/files/file_list.h"
#include "workspace/preferred_font.h"

namespace nubo {
namespace {

constexpr Color white = 0xffffff;
constexpr const char* delivered_fonts = NUBO_FOLDER "/fonts";

void set_text(const char* text) {
    text_tool_text.fill('\0');
    std::strncpy(text_tool_text.data(), text, text_size - 1);
}

int sliders_slot(Label label) { return slot_of(label) + 1; }
int font_button() {
    int slot = 0;
    while (gui::type[at(slot)] != ELEMENT_FILE_NAME) ++slot;
    return slot;
}
int input_slot() { return sliders_slot(LABEL_INPUT); }

/// What is drawn of a text in the preferred font, with its line's corner at (x, y): white on black.
std::vector<Color> picture_of(const char* text, int x, int y, int smooth = 1) {
    const OwnedBitmap coverage(create_bitmap_ex(8, current_frame->w, current_frame->h));
    clear_bitmap(coverage.get());
    font_cover(coverage.get(), preferred_font, text, x, y, smooth != 0 ? EDGES_SMOOTH : EDGES_ROUGH);
    std::vector<Color> pixels;
    for (int row = 0; row < coverage->h; ++row)
        for (int column = 0; column < coverage->w; ++column)
            pixels.push_back(static_cast<Color>(coverage->line[row][column]) * 0x010101);
    return pixels;
}

int shown_pixels() {
    int count = 0;
    for (int y = 0; y < overlay->h; ++y)
        count += static_cast<int>(std::ranges::count_if(std::span(pixels_at(overlay, 0, y), view_w),
                                                        [](Color c) { return c != transparent_color; }));
    return count;
}

class TextWindowTest : public GuiTest {
protected:
    TextWindowTest() {
        EXPECT_EQ(font_system_init(), 0);
        register_text_window();
        font_slots[FONT_WIDE].cell_w = font_slots[FONT_WIDE].advance['A'] = 6;  // by which a field places its cursor
        std::strncpy(font_dir.data(), delivered_fonts, path_size - 1);
        std::strncpy(font_name.data(), system_font, file_name_size - 1);
        EXPECT_TRUE(select_preferred_font());
        take_tool(TOOL_TEXT);
        tool_option(TOOL_TEXT, OPTION_ANTIALIAS) = 1;
        set_text("");
    }
    ~TextWindowTest() override { font_system_exit(); }
    TextWindowTest(const TextWindowTest&) = delete;
    TextWindowTest& operator=(const TextWindowTest&) = delete;
};

TEST_F(TextWindowTest, AWordIsTypedCarriedAndPainted) {
    play([](User& user) -> Script {
        co_await click_place(user, 100, 60);
        EXPECT_EQ(menu_id, WINDOW_TEXT);
        EXPECT_EQ(gui::y[slot_window], 196);
        EXPECT_EQ(status_message, MESSAGE_CEL_REPOSITION);
        for (const int key : {KEY_H, KEY_I, KEY_G}) co_await user.tap_key(key);
        EXPECT_STREQ(text_in_hand.data(), "hig");
        EXPECT_NE(*pixels_at(overlay, 104, 75), transparent_color) << "the stem of the h";
        co_await click_place(user, 104, 75);  // takes it up
        EXPECT_EQ(status_message, MESSAGE_TEXT_POINT);
        co_await user.move_to(10, 200);
        co_await click_place(user, 144, 85);  // sets it down, 40 further right and 10 down
        co_await click_place(user, 300, 20);  // beside it: nothing
        EXPECT_EQ(status_message, MESSAGE_CEL_REPOSITION);
        co_await user.tap_key(KEY_ENTER);
        EXPECT_EQ(menu_id, WINDOW_DRAWING_MENU);
    });
    EXPECT_EQ(frame_pixels(), picture_of("hig", 140, 70));
    EXPECT_EQ(undo_steps(), 1);
    EXPECT_STREQ(text_tool_text.data(), "hig");
    EXPECT_EQ(text_tool_size, 28) << "in place of none";
    EXPECT_EQ(tool_preview, -1);
}

TEST_F(TextWindowTest, ItIsPaintedWhereItIsShownAtEveryZoom) {
    set_text("Ag");
    for (const int level : {1, 2, 4}) {
        new_frame(320, 240);
        zoom = level;
        pan_x = pan_y = level > 1 ? 20 : 0;
        play([](User& user) -> Script {
            co_await click_place(user, 60, 40);
            co_await user.wait(2);
            EXPECT_GT(shown_pixels(), 10);
            co_await right_click_outside(user);
        });
        const int corner = level > 1 ? 20 : 0, scale = zoom_scale[at(level)];
        EXPECT_EQ(frame_pixels(), picture_of("Ag", corner + 60 / scale, corner + 40 / scale)) << level;
    }
}

TEST_F(TextWindowTest, AcrossTheSeamOfTilesItComesInOnTheOtherSide) {
    set_text("Ag");
    guides.tiles = TILES_BOTH;
    play([](User& user) -> Script {
        co_await click_place(user, 310, 50);
        co_await user.wait(2);
        EXPECT_GT(shown_pixels(), 10);
        co_await right_click_outside(user);
    });
    std::vector<Color> expected = picture_of("Ag", 60, 50);
    for (auto row = expected.begin(); row != expected.end(); row += frame_w)
        std::rotate(row, row + frame_w - 250, row + frame_w);
    EXPECT_EQ(frame_pixels(), expected);
}

TEST_F(TextWindowTest, OnlyACommitPaintsAndKeeps) {
    const auto leave = [](auto script) {
        play(script);
        EXPECT_EQ(undo_steps(), 0);
        EXPECT_STREQ(text_tool_text.data(), "");
        EXPECT_EQ(text_tool_size, 0);
        EXPECT_EQ(tool_preview, -1);
        exit_requested = 0;
    };
    leave([](User& user) -> Script {
        co_await click_place(user, 100, 60);
        co_await user.tap_key(KEY_H);
        co_await click(user, slot_of(LABEL_CANCEL));
        EXPECT_EQ(menu_id, WINDOW_DRAWING_MENU);
    });
    leave([](User& user) -> Script {
        co_await click_place(user, 100, 60);
        co_await user.tap_key(KEY_H);
        co_await click_place(user, 104, 75);
        co_await user.move_to(200, 90);
        co_await user.tap_key(KEY_ESC);  // puts it back
        EXPECT_EQ(click_points[0], (Point{90, 50}));
        EXPECT_EQ(menu_id, WINDOW_TEXT);
        co_await click_place(user, middle_x(input_slot()), middle_y(input_slot()), right_button);  // on the window
        EXPECT_EQ(menu_id, WINDOW_TEXT);
        co_await user.tap_key(KEY_ESC);
        EXPECT_EQ(menu_id, WINDOW_DRAWING_MENU);
    });
    play([](User& user) -> Script {  // nothing to paint, or nothing in the Frame: no step of undo
        co_await click_place(user, 100, 60);
        co_await user.tap_key(KEY_SPACE);
        co_await click(user, slot_of(LABEL_OKAY));
        co_await click_place(user, 100, 60);
        co_await user.tap_key(KEY_H);
        click_points[0] = {500, 500};
        co_await click(user, slot_of(LABEL_OKAY));
    });
    EXPECT_EQ(undo_steps(), 0);
}

// Whatever stands above the line; what the handler typed into the last picture too.
TEST_F(TextWindowTest, TheProgramsEndPaintsNothingAndKeepsWhatStandsInTheWindow) {
    static int above;
    replace_bitmap(preview_bitmap, make_bitmap(preview_w, preview_h));
    for (above = 0; above < 3; ++above) {
        set_text("");
        text_tool_size = 28;
        play([](User& user) -> Script {
            co_await click_place(user, 100, 60);
            gui::slider_value[at(sliders_slot(LABEL_SIZE))] = 300;
            gui::slider_value[at(sliders_slot(LABEL_GAP))] = 9;
            for (const int key : {KEY_H, KEY_I}) co_await user.tap_key(key);
            if (above == 0) GUI_insert_field(input_slot(), "g", 2);
            if (above == 1) co_await click_place(user, 120, 150);  // carries it
            if (above == 2) co_await click(user, font_button());
            EXPECT_EQ(menu_id, above == 2 ? WINDOW_FILE_BROWSER : WINDOW_TEXT);
            exit_requested = 1;
            co_await user.wait(10);
        });
        EXPECT_STREQ(text_tool_text.data(), above == 0 ? "hig" : "hi");
        EXPECT_EQ(text_tool_size, 300);
        EXPECT_EQ(undo_steps() + count_pixels(white), 0);
        exit_requested = 0;
    }
}

TEST_F(TextWindowTest, ARightPressPaintsWhileItIsCarriedWhicheverWayTheButtonsAre) {
    mouse_reversed = 1;
    set_text("L");
    play([](User& user) -> Script {
        co_await click_place(user, 100, 180);
        EXPECT_EQ(gui::y[slot_window], 0) << "out of the way of a press below the middle";
        co_await click_place(user, 104, 195);
        EXPECT_EQ(status_message, MESSAGE_TEXT_POINT);
        co_await click_place(user, 124, 155, right_button);
        EXPECT_EQ(menu_id, WINDOW_DRAWING_MENU);
    });
    EXPECT_EQ(frame_pixels(), picture_of("L", 120, 140));
}

TEST_F(TextWindowTest, TheOpeningPressPicksNothingUp) {
    set_text("L");
    play([](User& user) -> Script {
        co_await user.press_left(100, 60);
        co_await user.move_to(110, 75);
        EXPECT_EQ(menu_id, WINDOW_DRAWING_MENU);
        co_await user.release_left();
        co_await user.wait(6);
        EXPECT_EQ(status_message, MESSAGE_CEL_REPOSITION);
        co_await user.tap_key(KEY_ENTER);
    });
    EXPECT_EQ(frame_pixels(), picture_of("L", 100, 60));
}

TEST_F(TextWindowTest, WhatIsShownFollowsTextSizeGapAndEdges) {
    set_text("HH");
    play([](User& user) -> Script {
        const auto box_width = [] {
            int left = view_w, right = 0;
            for (int y = 0; y < 190; ++y)
                for (int x = 0; x < view_w; ++x)
                    if (*pixels_at(overlay, x, y) != transparent_color)
                        left = std::min(left, x), right = std::max(right, x);
            return right - left;
        };
        co_await click_place(user, 60, 30);
        const int width = box_width();
        gui::slider_value[at(sliders_slot(LABEL_GAP))] = 9;
        co_await user.wait(4);
        EXPECT_EQ(box_width(), width + 9) << "between two letters";
        gui::slider_value[at(sliders_slot(LABEL_GAP))] = 0;
        gui::slider_value[at(sliders_slot(LABEL_SIZE))] = 100;
        co_await user.wait(4);
        EXPECT_GT(box_width(), 3 * width);
        tool_option(TOOL_TEXT, OPTION_ANTIALIAS) = 0;
        co_await user.wait(4);
        for (int y = 50; y < 120; ++y) {
            const Color pixel = *pixels_at(overlay, 100, y);
            EXPECT_TRUE(pixel == transparent_color || pixel == white || pixel == fixed_black) << y;  // of the box
        }
        for (int i = 0; i < 2; ++i) co_await user.tap_key(KEY_BACKSPACE);
        EXPECT_EQ(shown_pixels(), 0) << "an emptied line leaves nothing";
        co_await user.tap_key(KEY_L);
        co_await click(user, slot_of(LABEL_OKAY));
    });
    EXPECT_EQ(frame_pixels(), picture_of("l", 60, 30, 0));
    EXPECT_EQ(text_tool_size, 100);
}

// On the overlay two colours mean "nothing here".
TEST_F(TextWindowTest, TextInTheColorsOfNothingIsSeen) {
    set_text("MMM");
    new_frame(320, 240, 0x808080);
    for (const Color color : {Color{0xff00ff}, Color{0x000000}, Color{0xff00fe}}) {
        brush_color = color;
        mask_color = color == 0x000000 ? 0x000000 : 0xff00fe;
        play([](User& user) -> Script {
            co_await click_place(user, 100, 60);
            int like_it = 0;
            for (int x = 103; x < 150; ++x) {  // behind the box's left side
                const Color pixel = *pixels_at(overlay, x, 75);
                like_it += pixel != mask_color && pixel != transparent_color && (pixel ^ brush_color) < 4 ? 1 : 0;
            }
            EXPECT_GT(like_it, 4) << brush_color;
            co_await click(user, slot_of(LABEL_OKAY));
        });
        EXPECT_GT(count_pixels(color), 50) << "the paint has the colour itself";
        new_frame(320, 240, 0x808080);
    }
}

// GLOW lights the pixels ahead, into which the brush colour is then mixed: a pixel at a time, as all inks are told.
TEST_F(TextWindowTest, EveryInkIsGivenTheColorMixedWithTheFrame) {
    set_text("Sg");
    for (const Ink ink : {INK_GLASS, INK_GLOW, INK_ADD, INK_RGRAD, INK_OPAQUE}) {
        new_frame(320, 240, 0x305070);
        rectfill(current_frame, 30, 0, 60, 59, 0x90a010);
        take_ink(ink, 200);
        ink_option(INK_GLOW, OPTION_GLOW_RADIUS) = 3;
        brush_color = 0xe0c020;
        const OwnedBitmap before = copy_bitmap(current_frame);
        play([](User& user) -> Script {
            co_await click_place(user, 20, 10);
            co_await click(user, slot_of(LABEL_OKAY));
        });
        const std::vector<Color> painted = frame_pixels(), grey = picture_of("Sg", 20, 10);
        blit(before.get(), current_frame, 0, 0, 0, 0, 320, 240);
        ASSERT_TRUE(save_undo(false));
        clear_stroke_mask();
        for (int y = 0; y < 60; ++y)
            for (int x = 0; x < 120; ++x)
                if (const int red = static_cast<int>(grey[at(y * 320 + x)] >> 16); red != 0)
                    apply_ink(x, y, ink, blend_color(frame_pixel(x, y), brush_color, red), 0);
        EXPECT_TRUE(painted == frame_pixels()) << ink;
    }
}

TEST_F(TextWindowTest, AFailingSizeIsLoggedOnceAndTheOldOneStays) {
    const ScratchFolder scratch;
    UA_log_open();
    set_text("A");
    play([](User& user) -> Script {
        co_await click_place(user, 100, 60);
        gui::slider_value[at(sliders_slot(LABEL_SIZE))] = 0;
        co_await user.wait(20);
        co_await user.tap_key(KEY_B);
        EXPECT_GT(shown_pixels(), 50) << "at the old size";
        co_await click(user, slot_of(LABEL_CANCEL));
    });
    const std::string log = log_text(), line = "[ STATS ] : Size = 0";
    EXPECT_NE(log.find(line), std::string::npos);
    EXPECT_EQ(log.find(line), log.rfind(line));
}

// Above 65,535 pixels. INPUT takes 120 letters, which are few enough again; a state file may hold more.
TEST_F(TextWindowTest, ALineThatIsTooLargeIsToldAndNeitherShownNorPainted) {
    TextInHand line;
    EXPECT_TRUE(line.follow({"W", 350, 0, 1}));
    EXPECT_FALSE(line.follow({std::string(250, 'W'), 350, 0, 1}));
    line.draw_preview();
    line.commit();
    EXPECT_EQ(shown_pixels() + count_pixels(white) + undo_steps(), 0);
    set_text(std::string(250, 'W').c_str());
    text_tool_size = 350;
    play([](User& user) -> Script {
        co_await click_place(user, 100, 60);
        EXPECT_EQ(status_message, MESSAGE_TOLD);
        EXPECT_EQ(std::string(text_in_hand.data()).size(), 120u);
        EXPECT_GT(shown_pixels(), 50);
        co_await click(user, slot_of(LABEL_CANCEL));
    });
}

// The browser opens where the font lies, in places of fonts, and leaves the folder of pictures alone.
TEST_F(TextWindowTest, AnotherFontKeepsTextPlaceAndSize) {
    const ScratchFolder fonts;
    std::filesystem::copy_file(NUBO_FOLDER "/fonts/system.ttf", "other.ttf");
    std::ofstream("broken.ttf") << "no font";
    std::strncpy(program_dir.data(), NUBO_FOLDER, path_size - 1);
    std::strncpy(font_dir.data(), fonts.path().c_str(), path_size - 1);
    std::strncpy(image_file.data(), "mine.png", file_name_size - 1);
    replace_bitmap(preview_bitmap, make_bitmap(preview_w, preview_h));
    set_text("HH");
    play([](User& user) -> Script {
        const auto row_of = [](const char* name) {
            int list = 0;
            while (gui::type[at(list)] != ELEMENT_FILE_LIST) ++list;
            return Point{gui::x[at(list)] + 20, gui::y[at(list)] + 4 + find_file(name) * file_row_h};
        };
        co_await click_place(user, 100, 60);
        gui::slider_value[at(sliders_slot(LABEL_SIZE))] = 40;
        gui::slider_value[at(sliders_slot(LABEL_GAP))] = 5;
        co_await user.tap_key(KEY_H);
        co_await click(user, font_button());
        EXPECT_EQ(menu_id, WINDOW_FILE_BROWSER);
        Point row = row_of("other.ttf");
        co_await click_place(user, row.x, row.y);
        EXPECT_NE(preview_font, nullptr);
        co_await click(user, slot_of(LABEL_OKAY));
        EXPECT_EQ(menu_id, WINDOW_TEXT);
        EXPECT_STREQ(font_name.data(), "other.ttf");
        EXPECT_STREQ(text_in_hand.data(), "HHh");
        EXPECT_EQ(gui::slider_value[at(sliders_slot(LABEL_SIZE))], 40);
        EXPECT_EQ(font_text_height(preferred_font), 40);
        EXPECT_STREQ(image_file.data(), "mine.png");
        co_await click(user, font_button());
        row = row_of("broken.ttf");
        co_await click_place(user, row.x, row.y);
        co_await click(user, slot_of(LABEL_OKAY));
        EXPECT_EQ(gui::type[high_slot], ELEMENT_FAILURE_BOX);
        co_await click_place(user, 5, 5);
        EXPECT_EQ(gui::active[high_slot], 0);
        EXPECT_STREQ(font_name.data(), "other.ttf");
        EXPECT_EQ(font_dir.data(), std::filesystem::current_path());
        co_await user.tap_key(KEY_ENTER);
    });
    EXPECT_EQ(frame_pixels(), picture_of("HHh", 100, 60));
    EXPECT_EQ(text_tool_size, 40);
}

// A font of bitmaps has the sizes that it has; the user's own comes back with the next font of outlines.
TEST_F(TextWindowTest, AFontOfOneSizeTakesTheSliderAwayAndAnyFontIsPreviewedAtOnce) {
    const ScratchFolder fonts;
    UA_log_open();
    std::filesystem::copy_file(NUBO_FOLDER "/fonts/NuboWide.bdf", "a.bdf");
    std::filesystem::copy_file(NUBO_FOLDER "/fonts/system.ttf", "b.OTF");
    std::strncpy(font_dir.data(), fonts.path().c_str(), path_size - 1);
    replace_bitmap(preview_bitmap, make_bitmap(preview_w, preview_h));
    set_text("H");
    text_tool_size = 40;
    play([](User& user) -> Script {
        co_await click_place(user, 100, 60);
        const int size = sliders_slot(LABEL_SIZE);
        for (const char* name : {"a.bdf", "b.OTF"}) {
            co_await click(user, font_button());
            font_destroy(std::exchange(preview_font, nullptr));
            int list = 0;
            while (gui::type[at(list)] != ELEMENT_FILE_LIST) ++list;
            co_await click_place(user, gui::x[at(list)] + 20, gui::y[at(list)] + 4 + find_file(name) * file_row_h);
            EXPECT_NE(preview_font, nullptr) << name;
            co_await click(user, slot_of(LABEL_OKAY));
            co_await user.wait(4);
            EXPECT_EQ(gui::has_slider[at(size)], name[0] == 'b' ? 1 : 0);
            EXPECT_EQ(font_text_height(preferred_font), name[0] == 'b' ? 40 : 7);
        }
        EXPECT_EQ(gui::slider_value[at(size)], 40);
        co_await click(user, slot_of(LABEL_CANCEL));
    });
    EXPECT_EQ(log_text().find("Font error"), std::string::npos);
}

}  // namespace
}  // namespace nubo
