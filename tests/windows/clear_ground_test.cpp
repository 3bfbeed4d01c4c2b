// Pictures that leave with clear pixels, and come in with them.
#include "browser_kit.h"
#include "codecs/picture_files.h"
#include "state/guides.h"
#include "windows/files/file_browser.h"

namespace nubo {
namespace {

TEST_F(FileBrowserTest, WithClearThePreviewWarnsAndThePictureComesBackToTheBit) {
    mask_color = 0;
    new_frame(40, 30, 0xff8040);
    rectfill(current_frame, 0, 0, 9, 29, 0);
    static std::vector<Color> before;
    before = frame_pixels();
    for (const char* name : {"a.png", "a.gif", "a.bmp"}) {
        std::strncpy(image_file.data(), name, file_name_size - 1);
        play_on(save_frame_command, [](User& user) -> Script {
            co_await user.wait(3);
            if (guides.clear_ground == 0) {
                co_await click(user, slot_of_text("CLEAR"));
                const OwnedBitmap seen = copy_bitmap(preview_bitmap);
                EXPECT_EQ(*pixels_at(preview_bitmap, 60, 20), 0xff8040u);
                EXPECT_NE(*pixels_at(preview_bitmap, 10, 20), *pixels_at(preview_bitmap, 10, 14)) << "the checker";
                preview_clear_frame(FILE_PNG);
                EXPECT_TRUE(same_pixels(seen.get(), preview_bitmap));
            }
            co_await user.tap_key(KEY_ENTER);
        });
        EXPECT_EQ(guides.clear_ground, 1);
        new_frame(3, 3, 0x123456);
        play_on([] { EXPECT_TRUE(load_file(image_file.data(), PURPOSE_PICTURE)); },
                [](User& user) -> Script {
                    co_await user.wait(3);
                    if (menu_id == WINDOW_BOX) co_await click(user, mask_slot);
                });
        EXPECT_EQ(frame_pixels(), before) << name;
    }
}

TEST_F(FileBrowserTest, CutOutBringsACelThatIsClearWhereThePictureIs) {
    mask_color = 0x00ff00;
    new_frame(6, 4, 0x00ff00);
    *pixels_at(current_frame, 2, 1) = transparent_color;  // a colour as any other
    guides.clear_ground = 1;
    ASSERT_TRUE(write_picture_file("a.png", current_frame));
    new_frame(20, 20, 0xffffff);
    play_on(load_frame_command, [](User& user) -> Script {
        co_await user.wait(3);
        co_await click_row(user, 1);
        co_await click(user, slot_of_text("CUT-OUT"));
        EXPECT_EQ(cel_place.mode, CEL_PASTE);
        co_await click_place(user, 100, 100, right_button);
    });
    EXPECT_EQ(cel_mask->w, 6);
    EXPECT_EQ(frame_pixel(2, 1), 0xff00feu);
    EXPECT_EQ(count_pixels(0xffffff), 399);
}

}  // namespace
}  // namespace nubo
