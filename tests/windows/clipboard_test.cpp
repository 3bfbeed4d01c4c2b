// Copying and pasting by a user, on a clipboard that the test fills and empties itself.
#include "windows/cel/clipboard.h"

#include "codecs/alpha.h"
#include "codecs/bmp_file.h"
#include "codecs/gif.h"
#include "codecs/jpeg.h"
#include "codecs/png.h"
#include "menus_kit.h"
#include "platform/clipboard.h"
#include "platform/safe_file.h"
#include "platform/uri_list.h"
#include "state/guides.h"
#include <malloc.h>

namespace nubo {
namespace {

constexpr Color red = 0xff0000, green = 0x00ff00, blue = 0x0000ff, white = 0xffffff, black = 0;

/// What another program has on the clipboard, and what this one has put there.
struct FakeClipboard {
    std::string kind;
    Bytes bytes;
    Bytes as_bmp{};  // the same as another kind, if not empty
    std::optional<ClipboardOffer> offered;
    bool stalls = false;
};
FakeClipboard fake;

Fetched fetch_fake(std::span<const std::string> kinds, const std::function<bool()>& goes_on) {
    while (fake.stalls)
        if (!goes_on()) return {FETCH_LEFT, {}, {}};
    for (const std::string& kind : kinds) {
        if (kind == fake.kind) return {FETCH_DONE, kind, fake.bytes};
        if (kind == "image/bmp" && !fake.as_bmp.empty()) return {FETCH_DONE, kind, fake.as_bmp};
    }
    return {};
}
const ClipboardStandIn stand_in{[](ClipboardOffer offer) { return fake.offered = std::move(offer), true; }, fetch_fake};

class ClipboardTest : public MenuTest {
protected:
    ClipboardTest() {
        fake = {};
        set_clipboard_stand_in(&stand_in);
        replace_bitmap(cel, make_bitmap(5, 5, blue));
        replace_bitmap(cel_mask, make_bitmap(5, 5, blue));
        cel_x = 9;
        mask_color = green;
    }
    ~ClipboardTest() override { fake = {}; }
    static OwnedBitmap picture(int width, int height, Color color) { return make_bitmap(width, height, color); }
    /// Another program copies the bitmap.
    static void there_is(OwnedBitmap bitmap) {
        fake.kind = "image/png";
        fake.bytes.clear();
        write_png(bitmap.get(), fake.bytes);
    }
    /// A red picture with a green pixel in its upper left corner.
    static void there_is_red(int width, int height) {
        OwnedBitmap bitmap = picture(width, height, red);
        *pixels_at(bitmap.get(), 0, 0) = green;
        there_is(std::move(bitmap));
    }
    static User::Pause ctrl(User& user, int code) {
        return user.wait_until([code, update = 0]() mutable {
            ++update;
            ::key[KEY_LCONTROL] = update < 14 ? 1 : 0;
            ::key[code] = update > 4 && update < 10 ? 1 : 0;
            return update > 20;
        });
    }
    static void expect_the_cel_is_back() {
        EXPECT_EQ(cel_place.mode, -1);
        EXPECT_EQ(cel->w, 5);
        EXPECT_EQ(*pixels_at(cel_mask, 4, 4), blue);
        EXPECT_EQ(cel_x, 9);
        EXPECT_EQ(menu_id, WINDOW_DRAWING_MENU);
    }
};

TEST_F(ClipboardTest, CopyOffersTheFrameAsItWas) {
    hline(current_frame, 10, 20, 30, red);
    const std::vector<Color> copied = frame_pixels();
    play([](User& user) -> Script {
        co_await ctrl(user, KEY_C);
        EXPECT_EQ(status_message, MESSAGE_FRAME_COPIED);
        clear_frame_to(white);
        co_await ctrl(user, KEY_V);
        EXPECT_EQ(frame_pixel(10, 20), red) << "our own picture needs no other program";
    });
    ASSERT_TRUE(fake.offered);
    for (const std::string& kind : fake.offered->kinds) {
        Bytes bytes;
        ASSERT_TRUE(fake.offered->encode(kind, bytes)) << kind;
        const ReadPicture read = kind == "image/png" ? read_png(bytes) : read_bmp(bytes);
        ASSERT_TRUE(read.bitmap) << kind << ": " << read.cause;
        ASSERT_TRUE(adopt_frame(copy_bitmap(read.bitmap.get())));
        EXPECT_EQ(frame_pixels(), copied) << kind;
    }
}

TEST_F(ClipboardTest, WithClearTheGroundIsClearForOthersAndForUsAsItWas) {
    new_frame(6, 5, green);  // the mask colour
    *pixels_at(current_frame, 2, 1) = red;
    guides.clear_ground = 1;
    play([](User& user) -> Script {
        co_await ctrl(user, KEY_C);
        clear_frame_to(white);
        co_await ctrl(user, KEY_V);
        EXPECT_EQ(count_pixels(green), 29) << "without a question";
    });
    ASSERT_TRUE(fake.offered);
    Bytes bytes;
    ASSERT_TRUE(fake.offered->encode("image/png", bytes));
    const ReadPicture read = read_png(bytes);
    ASSERT_TRUE(read.bitmap && read.has_alpha);
    EXPECT_EQ(*pixels_at(read.bitmap.get(), 2, 1), 0xffff0000u);
    EXPECT_EQ(*pixels_at(read.bitmap.get(), 5, 4), red) << "clear, in the colour of the nearest that isn't";
}

TEST_F(ClipboardTest, TheCelIsCopiedAsPasteLeavesItOut) {
    opt_cel_masking = 1;
    *pixels_at(cel_mask, 1, 2) = mask_color;
    *pixels_at(cel_mask, 3, 0) = transparent_color;
    play([](User& user) -> Script {
        ::key[KEY_LSHIFT] = 1;
        co_await ctrl(user, KEY_C);
        ::key[KEY_LSHIFT] = 0;
        EXPECT_EQ(status_message, MESSAGE_CEL_COPIED);
    });
    ASSERT_TRUE(fake.offered);
    Bytes bytes;
    ASSERT_TRUE(fake.offered->encode("image/png", bytes));
    const ReadPicture read = read_png(bytes);
    ASSERT_TRUE(read.bitmap && read.has_alpha && read.bitmap->w == 5);
    for (int y = 0; y < 5; ++y)
        for (int x = 0; x < 5; ++x) {
            const bool is_clear = (x == 1 && y == 2) || (x == 3 && y == 0);
            EXPECT_EQ(*pixels_at(read.bitmap.get(), x, y), is_clear ? blue : 0xff000000 | blue) << x << ',' << y;
        }
}

TEST_F(ClipboardTest, WithoutADisplayNothingIsThere) {
    set_clipboard_stand_in(nullptr);
    play([](User& user) -> Script {
        co_await ctrl(user, KEY_C);
        EXPECT_EQ(status_message, status_coordinates);
        co_await ctrl(user, KEY_V);
        EXPECT_EQ(status_message, MESSAGE_CLIPBOARD_EMPTY);
    });
    EXPECT_EQ(undo_steps(), 0);
}

TEST_F(ClipboardTest, ABadKindIsFollowedByTheNext) {
    there_is_red(40, 30);
    const Bytes whole = fake.bytes;
    write_bmp(picture(3, 2, blue).get(), fake.as_bmp);
    for (const std::size_t left : {std::size_t{4}, whole.size() / 2, whole.size()}) {  // garbage, a part, all
        fake.bytes.assign(whole.begin(), whole.begin() + static_cast<std::ptrdiff_t>(left));
        const OwnedBitmap got(clipboard_get());
        ASSERT_TRUE(got);
        EXPECT_EQ(got->w, left == whole.size() ? 40 : 3) << left;
    }
    fake.bytes.resize(4);
    fake.as_bmp.resize(20);
    EXPECT_EQ(clipboard_get(), nullptr);
}

TEST_F(ClipboardTest, ASmallerPictureFloatsAndLandsAsItIs) {
    there_is_red(3, 2);
    take_ink(INK_GRAY);
    play([](User& user) -> Script {
        co_await ctrl(user, KEY_V);
        EXPECT_EQ(status_message, MESSAGE_PICTURE_REPOSITION);
        EXPECT_EQ(cel_place.x, 0);
        EXPECT_EQ(frame_pixel(1, 1), black) << "nothing is painted yet";
        co_await click_place(user, 1, 1);
        co_await user.move_to(41, 31);
        co_await click_place(user, 41, 31, right_button);
        expect_the_cel_is_back();
        EXPECT_EQ(frame_pixel(40, 30), green);
        EXPECT_EQ(count_pixels(red), 5);
        co_await user.tap_key(KEY_U);
        EXPECT_EQ(count_pixels(black), view_w * view_h);
        co_await ctrl(user, KEY_V);
        ::key[KEY_LSHIFT] = 1;
        co_await click_place(user, 100, 100, right_button);
        ::key[KEY_LSHIFT] = 0;
        EXPECT_EQ(count_pixels(red) + count_pixels(green), 0) << "with SHIFT by the ink, which takes the Frame's";
        co_await user.wait(2);
        co_await user.tap_key(KEY_U);
        for (const int way : {0, 1}) {
            co_await ctrl(user, KEY_V);
            EXPECT_EQ(cel->w, 3);
            if (way == 0) {
                co_await user.hold_key(KEY_ESC);
                co_await user.release_key(KEY_ESC);
                expect_the_cel_is_back();
            } else {
                exit_requested = 1;
                co_await user.wait(4);
            }
        }
    });
    expect_the_cel_is_back();
    EXPECT_EQ(undo_steps(), 0);
    EXPECT_EQ(count_pixels(black), view_w * view_h);
}

TEST_F(ClipboardTest, ALetterThatStaysDownWithoutItsCtrlIsNoKeyOfItsOwn) {
    there_is_red(3, 2);
    play([](User& user) -> Script {
        for (const int code : {KEY_V, KEY_C}) {
            co_await user.hold_key(KEY_LCONTROL);
            co_await user.hold_key(code);
            co_await user.release_key(KEY_LCONTROL);
            co_await user.wait(20);
            co_await user.release_key(code);
            if (code == KEY_C) break;
            co_await click_place(user, 100, 100, right_button);
            EXPECT_EQ(frame_pixel(0, 0), green) << "V would have flipped it";
        }
        EXPECT_EQ(menu_id, WINDOW_DRAWING_MENU) << "C would have opened the colour window";
        co_await user.hold_key(KEY_C);
        co_await user.release_key(KEY_C);
        EXPECT_EQ(menu_id, WINDOW_COLOR) << "struck anew it does";
        co_await user.hold_key(KEY_ESC);
        co_await user.release_key(KEY_ESC);
    });
}

TEST_F(ClipboardTest, APictureThatFillsADirectionIsPastedAtOnce) {
    new_frame(20, 16);
    there_is_red(20, 4);
    play([](User& user) -> Script {
        refuse_bitmap(0);
        co_await ctrl(user, KEY_V);
        refuse_bitmap(-1);
        EXPECT_EQ(count_pixels(black), 20 * 16) << "what can't be undone isn't done";
        co_await ctrl(user, KEY_V);
        expect_the_cel_is_back();
        EXPECT_EQ(frame_pixel(0, 0), green);
        EXPECT_EQ(count_pixels(red), 20 * 4 - 1);
        EXPECT_EQ(undo_steps(), 1);
        co_await user.tap_key(KEY_U);
        EXPECT_EQ(count_pixels(black), 20 * 16);
    });
}

TEST_F(ClipboardTest, ALargerPictureAsksWhetherTheFrameShallGrow) {
    new_frame(20, 16);
    there_is_red(30, 10);
    play([](User& user) -> Script {
        co_await ctrl(user, KEY_V);
        EXPECT_NE(slot_of(LABEL_CLIPBOARD_LARGER), -1);
        EXPECT_NE(slot_of(LABEL_RESIZE_TO_MATCH), -1);
        co_await click(user, slot_of(LABEL_CANCEL));
        expect_the_cel_is_back();
        EXPECT_EQ(slot_of(LABEL_UNDO), DRAWING_UNDO);
        EXPECT_EQ(frame_w, 20);
        EXPECT_EQ(count_pixels(red), 20 * 10 - 1) << "cut off";
        co_await user.tap_key(KEY_U);
        EXPECT_EQ(count_pixels(black), 20 * 16);
        co_await ctrl(user, KEY_V);
        co_await click(user, slot_of(LABEL_OKAY));
        expect_the_cel_is_back();
        EXPECT_EQ(frame_w, 30);
        EXPECT_EQ(frame_h, 16) << "the larger of both";
        EXPECT_EQ(frame_pixel(29, 9), red);
        EXPECT_EQ(frame_pixel(29, 10), black);
        co_await user.tap_key(KEY_U);
        EXPECT_EQ(count_pixels(black), 30 * 16);
        there_is_red(40, 40);
        co_await ctrl(user, KEY_V);
        exit_requested = 1;
        co_await user.wait(4);
    });
    EXPECT_EQ(count_pixels(black), 30 * 16) << "the end of the program is no answer";
}

TEST_F(ClipboardTest, WhatIsTransparentIsACutOutOrTheMaskColor) {
    OwnedBitmap bitmap = picture(3, 1, 0);
    const std::array<Color, 3> pixels{0xff0000ff, 0x7f0000ff, 0x800000ff};
    std::ranges::copy(pixels, pixels_at(bitmap.get(), 0, 0));
    there_is(std::move(bitmap));
    new_frame(4, 4, white);
    play([](User& user) -> Script {
        co_await ctrl(user, KEY_V);
        co_await click(user, mask_slot);
        co_await click_place(user, 100, 100, right_button);
        EXPECT_EQ(frame_pixel(0, 0), blue);
        EXPECT_EQ(frame_pixel(1, 0), white) << "the Frame shows through";
        EXPECT_STREQ(told_text.data(), "FROM THE CLIPBOARD. ALPHA DROPPED") << "what was half there";
        EXPECT_EQ(frame_pixel(2, 0), blue);
        new_frame(3, 1, white);
        co_await ctrl(user, KEY_V);
        co_await click(user, mask_slot);
        EXPECT_EQ(frame_pixel(1, 0), green) << "the mask colour";
        EXPECT_EQ(frame_pixel(2, 0), blue);
        co_await ctrl(user, KEY_V);
        co_await click(user, flatten_slot);
        EXPECT_EQ(frame_pixel(1, 0), 0x00807fU) << "127 of blue on green";
        clear_frame_to(white);
        co_await ctrl(user, KEY_V);
        co_await click(user, leave_slot);
        EXPECT_EQ(count_pixels(white), 3) << "left";
        new_frame(3, 1, transparent_color);
        co_await ctrl(user, KEY_C);
        co_await ctrl(user, KEY_V);
        EXPECT_EQ(frame_pixel(1, 0), transparent_color) << "a colour as any other where nothing is transparent";
    });
}

TEST_F(ClipboardTest, APaletteHasTransparentColorsToo) {
    const OwnedBitmap bitmap(create_bitmap_ex(8, 4, 1));
    for (int x = 0; x < 4; ++x) putpixel(bitmap.get(), x, 0, x);
    Bytes bytes;
    ASSERT_TRUE(write_png(bitmap.get(), bytes));
    const std::string_view name = "IDAT", alpha{"\0\0\0\3tRNS\xff\x7f\x80\0\0\0\0", 15};
    const auto pixels = std::search(bytes.begin(), bytes.end(), name.begin(), name.end()) - 4;
    bytes.insert(pixels, alpha.begin(), alpha.end());
    ReadPicture read = read_png(bytes);
    ASSERT_TRUE(read.bitmap) << read.cause;
    settle_alpha(read, ALPHA_MASK, green, green);
    for (int x = 0; x < 4; ++x) EXPECT_EQ(*pixels_at(read.bitmap.get(), x, 0) == green, x == 1) << x;
}

TEST_F(ClipboardTest, EveryKindIsRead) {
    const ScratchFolder scratch;
    const OwnedBitmap bitmap = picture(40, 30, red);
    Bytes png, bmp, jpeg, gif;
    ASSERT_TRUE(write_png(bitmap.get(), png) && write_jpeg(bitmap.get(), 100, jpeg) &&
                write_gif(bitmap.get(), REDUCTION_FAST, gif));
    write_bmp(bitmap.get(), bmp);
    write_file("a b.png", png.data(), png.size());
    const auto text = [](const std::string& list) { return Bytes(list.begin(), list.end()); };
    const std::string uri = "file://" + scratch.path() + "/a%20b.png\r\n";
    struct Case {
        const char* kind;
        Bytes bytes;
        bool is_read;
    };
    const Case cases[] = {{"image/png", png, true},
                          {"image/bmp", bmp, true},
                          {"image/x-MS-bmp", bmp, true},
                          {"image/jpeg", jpeg, true},
                          {"image/gif", gif, true},
                          {"text/uri-list", text("#copied\r\n" + uri), true},
                          {"text/uri-list", text(uri + uri), false},
                          {"text/uri-list", {}, false},
                          {"image/png", bmp, false},
                          {"image/bmp", {bmp.begin(), bmp.end() - 1}, false},
                          {"image/bmp", {}, false},
                          {"text/plain", text(uri), false}};
    for (const Case& one : cases) {
        fake.kind = one.kind;
        fake.bytes = one.bytes;
        const OwnedBitmap read(clipboard_get());
        ASSERT_EQ(read != nullptr, one.is_read) << one.kind;
        if (!read) continue;
        EXPECT_TRUE(read->w == 40 && read->h == 30) << one.kind;
        EXPECT_NEAR(static_cast<int>(*pixels_at(read.get(), 20, 15) >> 16), 0xff, 16) << one.kind;  // JPEG, GIF: about
    }
}

TEST(UriList, OnlyOneFileOfThisMachineIsTaken) {
    struct Case {
        const char *list, *path;
    };
    const Case cases[] = {{"file:///a/b.png", "/a/b.png"},
                          {"file://localhost/%41%2fb.png\n", "/A/b.png"},
                          {"\r\n# one\r\nfile:///c\r\n", "/c"},
                          {"file://elsewhere.example/a", nullptr},
                          {"http://localhost/a", nullptr},
                          {"/a/b.png", nullptr},
                          {"file:///a%2", nullptr},
                          {"file:///a%zz", nullptr},
                          {"file:///a%00b", nullptr},
                          {"", nullptr}};
    for (const Case& one : cases) {
        const auto path = only_local_file(one.list);
        EXPECT_EQ(path.has_value(), one.path != nullptr) << one.list;
        EXPECT_EQ(path.value_or(""), one.path != nullptr ? one.path : "");
    }
}

TEST_F(ClipboardTest, AWaitIsLeftByTheUser) {
    there_is_red(3, 2);
    fake.stalls = true;
    play([](User& user) -> Script {
        for (const int way : {0, 1}) {
            co_await user.hold_key(KEY_LCONTROL);
            co_await user.hold_key(KEY_V);
            co_await user.release_key(KEY_V);
            co_await user.release_key(KEY_LCONTROL);
            const int shown = frames_shown;
            co_await user.wait(20);
            EXPECT_GE(frames_shown - shown, 20) << "the picture goes on";
            if (way == 0) {
                co_await user.hold_key(KEY_ESC);
                co_await user.release_key(KEY_ESC);
            } else {
                co_await click_place(user, 100, 100, right_button);
            }
            EXPECT_EQ(status_message, status_coordinates);
            EXPECT_EQ(first_live_slot, 0);
            EXPECT_EQ(gui::hidden[slot_window], 0) << "the press was the wait's";
        }
        co_await ctrl(user, KEY_V);
        exit_requested = 1;
        co_await user.wait(4);
    });
    EXPECT_EQ(count_pixels(black), view_w * view_h);
    expect_the_cel_is_back();
}

/// Bytes that the program holds; 0 under a sanitizer, which finds what is lost by itself.
std::size_t bytes_held() {
    const struct mallinfo2 held = mallinfo2();
    return held.uordblks + held.hblkhd;
}

TEST_F(ClipboardTest, AThousandCopiesAndPastesLeaveNothingBehind) {
    new_frame(64, 64);
    play([](User& user) -> Script {
        constexpr int times = 1000, settled = 100;
        std::size_t before = 0;
        co_await user.hold_key(KEY_LCONTROL);
        for (int i = 0; i < times; ++i) {
            if (i % settled == 0) reset_undo_slots();  // which may grow
            if (i == settled) before = bytes_held();
            const Color color = i % 2 ? red : blue;
            clear_frame_to(color);
            co_await user.tap_key(KEY_C);
            clear_frame_to(0);
            co_await user.tap_key(KEY_V);
            EXPECT_EQ(frame_pixel(9, 9), color);
            if (testing::Test::HasFailure()) co_return;
        }
        reset_undo_slots();
        constexpr std::size_t slack = 64 * 1024;  // four of a thousand Frames of this size
        EXPECT_LT(bytes_held(), before + slack);
    });
}

}  // namespace
}  // namespace nubo
