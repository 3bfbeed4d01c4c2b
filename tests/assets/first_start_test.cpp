// The first start of a fresh program folder: the delivered settings and Workspace, through the program's own readers.
#include "harness/harness.h"

#include "codecs/png.h"
#include "framework/outline_font.h"
#include "paint/stroke.h"
#include "paint/surfaces.h"
#include "state/cel.h"
#include "state/frames.h"
#include "state/options.h"
#include "state/run.h"
#include "state/stroke.h"
#include "state/texts_labels.h"
#include "state/tools.h"
#include "windows/hotkey_window.h"
#include "workspace/nail.h"
#include "workspace/user_settings.h"
#include "workspace/workspace.h"

namespace nubo {
namespace {

namespace fs = std::filesystem;

/// A copy of the staged folder's settings, sheets and first Workspace, with the bitmaps that a start makes.
class FirstStart : public testing::Test {
protected:
    void SetUp() override {
        fs::copy(NUBO_FOLDER "/resource", "resource");
        fs::create_directory("WORKSPACE");
        for (const char* part : {"000", "001", "002", "spa", "cel", "nal", "tip"})
            fs::copy(std::string(NUBO_FOLDER "/WORKSPACE/alternate.") + part, "WORKSPACE");
        folder_.path().copy(program_dir.data(), path_size - 1);
        UA_log_open(nullptr);
        make_bitmaps();
        fs::create_directory("fonts");
        fs::copy(NUBO_FOLDER "/fonts/system.ttf", "fonts");
        ASSERT_EQ(font_system_init(), 0);
    }
    void TearDown() override {
        font_system_exit();
        UA_log_close();
    }

    static void make_bitmaps() {
        const OwnedBitmap tips(load_png("resource/brushie.PNG", nullptr));
        ASSERT_NE(tips, nullptr);
        replace_bitmap(tip_sheet, make_bitmap(tip_sheet_w, tip_sheet_h, transparent_color));
        blit(tips.get(), tip_sheet, 0, 0, 0, 0, tip_sheet_w, tip_image_h);
        replace_bitmap(nail_sheet, make_bitmap(nail_side, nail_side));
        replace_bitmap(cel, make_bitmap(2, 2));
        replace_bitmap(cel_mask, make_bitmap(2, 2));
        replace_bitmap(original_frame, make_bitmap(2, 2));
    }

    ScratchFolder folder_;
};

TEST_F(FirstStart, TakesTheDeliveredWorkspaceOver) {
    ASSERT_TRUE(open_workspace());
    EXPECT_EQ(frame_count, 3);
    EXPECT_EQ(frame_index, 0);
    EXPECT_EQ(current_frame->w, view_w);
    EXPECT_EQ(current_frame->h, view_h);
    EXPECT_EQ(cel_mask->w, 32);
    EXPECT_EQ(brush_color, 0xffffffu);
    EXPECT_EQ(mask_color, 0u);
    EXPECT_EQ(image_dir[0], '\0') << "no folder of the machine that built it";
    EXPECT_NE(preferred_font, nullptr);
    EXPECT_EQ(font_dir[0], '\0') << "none for the fonts either: they are the program's own";
    EXPECT_TRUE(fs::exists("WORKSPACE/current.spa"));
    EXPECT_FALSE(fs::exists("WORKSPACE/alternate.000"));
    // A value out of its range, a missing picture: each would be told in the log as damage.
    EXPECT_EQ(workspace_damaged, 0) << log_text();
    EXPECT_EQ(log_text().find("ERROR"), std::string::npos) << log_text();
}

TEST_F(FirstStart, GivesColoursAndATipWorthHaving) {
    ASSERT_TRUE(open_workspace());
    EXPECT_EQ(std::set<Color>(color_slots.begin(), color_slots.end()).size(), color_slots.size());
    EXPECT_GT(std::set<Color>(favorites.begin(), favorites.end()).size(), favorites.size() * 9 / 10);
    int covered = 0;
    for (int y = 0; y < custom_tip_h; ++y)
        for (int x = 0; x < custom_tip_w; ++x) covered += getr(getpixel(tip_sheet, x, custom_tip_y + y)) < tip_outside;
    EXPECT_GT(covered, custom_tip_w * custom_tip_h / 5);
    EXPECT_LT(covered, custom_tip_w * custom_tip_h) << "a bristle has gaps";
    // Each Frame has its thumbnail: a tile of one colour would be none.
    for (int slot = 0; slot < frame_count; ++slot) {
        std::set<int> colors;
        for (int i = 0; i < nail_tile * nail_tile; ++i)
            colors.insert(getpixel(nail_sheet, slot * nail_tile + i % nail_tile, i / nail_tile));
        EXPECT_GT(colors.size(), 10u) << "frame " << slot;
    }
}

/// Whether one stamp of the ink somewhere on a raster over the Frame changes a pixel.
bool shows(int ink) {
    constexpr int step = 12;
    const OwnedBitmap before = copy_bitmap(current_frame);
    for (int y = step; y < current_frame->h; y += step)
        for (int x = step; x < current_frame->w; x += step) {
            tool_slots[0] = TOOL_LINE;
            active_tool_slot = active_ink_slot = 0;
            ink_slots[0] = ink;
            click_points[0] = click_points[1] = {x, y};
            draw_to_frame(0, 0, TOOL_LINE, ink, brush_tip, brush_color);
            for (int row = 0; row < current_frame->h; ++row)
                if (!std::equal(pixels_at(before.get(), 0, row), pixels_at(before.get(), 0, row) + before->w,
                                pixels_at(current_frame, 0, row)))
                    return true;
        }
    return false;
}

TEST_F(FirstStart, EveryInkShowsAtItsFirstUse) {
    ASSERT_TRUE(open_workspace());
    for (int ink = 0; ink < INK_COUNT; ++ink) {
        EXPECT_TRUE(shows(ink)) << label_text[static_cast<std::size_t>(LABEL_INK_FIRST + ink)];
        blit(original_frame, current_frame, 0, 0, 0, 0, current_frame->w, current_frame->h);
    }
}

TEST_F(FirstStart, NoToolIsLeftAtNothing) {
    ASSERT_TRUE(open_workspace());
    for (const BrushTool tool : {TOOL_EDGE, TOOL_FILL, TOOL_SEP})
        EXPECT_GT(tool_option(tool, OPTION_TOLERANCE), 0) << tool;
    EXPECT_GT(tool_option(TOOL_SPRAY, OPTION_SPRAY_DENSITY), 0);
    EXPECT_GT(tool_option(TOOL_SPRAY, OPTION_SPRAY_RADIUS), 0);
    EXPECT_GT(tool_option(TOOL_DRIZ, OPTION_DRIZ_RADIUS), 0);
    EXPECT_GT(tool_option(TOOL_DRIZ, OPTION_DRIZ_TAPER), 0);
    EXPECT_GT(polygon_values.sides, 2);
    EXPECT_GT(polygon_values.radius, 0);
    EXPECT_GT(spiral_values.wraps * spiral_values.scale, 0);
    EXPECT_GT(supershape_values.n1 * supershape_values.arms * supershape_values.magnitude, 0);
}

TEST_F(FirstStart, TheSecondStartComesBackAsLeft) {
    ASSERT_TRUE(open_workspace());
    putpixel(current_frame, 100, 100, 0x123456);
    note_touched({100, 100, 100, 100});
    brush_color = 0x654321;
    ink_option(INK_GLASS, OPTION_STRENGTH) = 77;
    close_workspace();
    brush_color = 0;
    ink_option(INK_GLASS, OPTION_STRENGTH) = 0;
    ASSERT_TRUE(open_workspace());
    EXPECT_EQ(getpixel(current_frame, 100, 100), 0x123456);
    EXPECT_EQ(brush_color, 0x654321u);
    EXPECT_EQ(ink_option(INK_GLASS, OPTION_STRENGTH), 77);
    EXPECT_EQ(frame_count, 3);
}

TEST_F(FirstStart, AWorkspaceThatStandsThereIsNotTouched) {
    ASSERT_TRUE(open_workspace());
    putpixel(current_frame, 100, 100, 0x123456);
    note_touched({100, 100, 100, 100});
    close_workspace();
    const std::string state = bytes_of("WORKSPACE/current.spa"), frame = bytes_of("WORKSPACE/current.000");
    fs::copy(NUBO_FOLDER "/WORKSPACE/alternate.spa", "WORKSPACE");  // as if the set had been brought once more
    fs::copy(NUBO_FOLDER "/WORKSPACE/alternate.000", "WORKSPACE");
    ASSERT_TRUE(open_workspace());
    EXPECT_EQ(bytes_of("WORKSPACE/current.spa"), state);
    EXPECT_EQ(bytes_of("WORKSPACE/current.000"), frame);
    EXPECT_FALSE(fs::exists("WORKSPACE/alternate.spa"));
}

TEST_F(FirstStart, TheSettingsHoldTheKeysAndTheNewcomersOptions) {
    load_user_settings();
    const auto has_key = [](Hotkey row, int key) { return hotkeys[row][KEY_PRIMARY] == key; };
    EXPECT_TRUE(has_key(HOTKEY_CEL_GET, KEY_ESC));
    EXPECT_TRUE(has_key(HOTKEY_FRAME_NEXT, KEY_PGDN));
    EXPECT_TRUE(has_key(HOTKEY_COPY, key_ctrl | KEY_C));
    EXPECT_TRUE(has_key(HOTKEY_REDO, key_shift | KEY_U));
    EXPECT_TRUE(has_key(HOTKEY_EXIT, KEY_Q));
    EXPECT_TRUE(has_key(HOTKEY_RAPID_EXIT, 0));
    EXPECT_EQ(hotkeys[HOTKEY_PAN_RIGHT][KEY_ALTERNATE], KEY_D);
    EXPECT_EQ(hotkeys[HOTKEY_UNDO][KEY_ALTERNATE], key_ctrl | KEY_Z);
    EXPECT_EQ(hotkeys[HOTKEY_REDO][KEY_ALTERNATE], key_ctrl | KEY_Y);
    EXPECT_EQ(hotkeys[HOTKEY_ZOOM_IN][KEY_ALTERNATE], KEY_EQUALS);
    EXPECT_EQ(hotkeys[HOTKEY_ZOOM_OUT][KEY_ALTERNATE], KEY_MINUS);
    for (int row = 0; row < hotkey_rows; ++row)
        for (const KeySide side : {KEY_PRIMARY, KEY_ALTERNATE}) EXPECT_FALSE(dupe_hotkey_check(row, side)) << row;
    EXPECT_EQ(opt_undo_depth, undo_depth_all);
    EXPECT_EQ(opt_cursor_zoom, 1) << "off: it keeps its size";
    EXPECT_EQ(opt_crosshair_scaling, 0);
    EXPECT_EQ(opt_tooltips, 1);
    EXPECT_EQ(opt_gif_reduction, REDUCTION_BEST);
    EXPECT_EQ(opt_tool_distance, 1);
    EXPECT_EQ(opt_crosshair_strength, 60);
    EXPECT_EQ(opt_crosshair_color, 1);
    EXPECT_EQ(opt_zoom_preview_size, 2);
    EXPECT_EQ(mouse_reversed, 0);
    EXPECT_EQ(workspace_damaged, 0) << log_text();

    // With no change the next exit writes the same bytes: none of them was brought into range by the reader.
    ASSERT_TRUE(save_user_settings());
    EXPECT_EQ(bytes_of("resource/user.def"), bytes_of(NUBO_FOLDER "/resource/user.def"));
}

}  // namespace
}  // namespace nubo
