#include "windows/cel/clipboard.h"

#include "base/bitmap.h"
#include "base/log.h"
#include "base/memory.h"
#include "codecs/alpha.h"
#include "codecs/bmp_file.h"
#include "codecs/clear_ground.h"
#include "codecs/gif.h"
#include "codecs/jpeg.h"
#include "codecs/png.h"
#include "gui/waiting.h"
#include "paint/surfaces.h"
#include "paint/undo.h"
#include "platform/clipboard.h"
#include "platform/input_file.h"
#include "platform/uri_list.h"
#include "state/frames.h"
#include "state/guides.h"
#include "state/run.h"
#include "windows/files/alpha_box.h"
#include "windows/files/picture_formats.h"
#include "windows/kit/confirm_box.h"
#include "windows/kit/over_frame.h"
#include "windows/kit/placement.h"
#include "workspace/notices.h"
#include "workspace/resize_frame.h"
#include <algorithm>
#include <array>
#include <memory>
#include <optional>
#include <span>
#include <utility>

namespace nubo {
namespace {

constexpr const char *png_kind = "image/png", *bmp_kind = "image/bmp";

// ---- Out -----------------------------------------------------------------------------------------------------------

struct CopiedPicture {
    OwnedBitmap bitmap;
    std::optional<Color> ground;  // the colour of it that is clear
};
// What was copied here last, for as long as it is on the clipboard: the offer holds it.
std::weak_ptr<const CopiedPicture> copied;

bool encode(const CopiedPicture& picture, const std::string& kind, Bytes& bytes) {
    BITMAP* const bitmap = picture.bitmap.get();
    const auto write = [&] {
        if (kind != png_kind) return write_bmp(bitmap, bytes), true;
        return picture.ground ? write_clear_png(bitmap, *picture.ground, bytes, PNG_FAST)
                              : write_png(bitmap, bytes, PNG_FAST);
    };
    return unless_memory_ends(write, false);
}

bool put(OwnedBitmap bitmap, std::optional<Color> ground) {
    if (!bitmap) return false;
    const auto kept = std::make_shared<const CopiedPicture>(CopiedPicture{std::move(bitmap), ground});
    const bool offered = offer_to_clipboard(
        {{png_kind, bmp_kind}, [kept](const std::string& kind, Bytes& bytes) { return encode(*kept, kind, bytes); }});
    if (offered) copied = kept;
    return offered;
}

/// As another program would get it.
ReadPicture copy_of(const CopiedPicture& picture) {
    ReadPicture copy{copy_bitmap(picture.bitmap.get())};
    if (copy.bitmap && picture.ground) copy.has_alpha = set_alpha_by_ground(copy.bitmap.get(), *picture.ground) > 0;
    return copy;
}

// ---- In ------------------------------------------------------------------------------------------------------------

ReadPicture read_listed_picture(FileBytes list) {
    const std::optional<std::string> path = only_local_file({reinterpret_cast<const char*>(list.data()), list.size()});
    if (!path) return {nullptr, "it doesn't name a single file of this machine"};
    FileType type = FILE_UNKNOWN;
    return read_picture_file(*path, type);
}

struct PictureKind {
    const char* name;
    ReadPicture (*read)(FileBytes bytes);
};
/// The best first. BMP has gone by several names.
constexpr std::array<PictureKind, 7> picture_kinds{{
    {png_kind, read_png},
    {bmp_kind, read_bmp},
    {"image/x-bmp", read_bmp},
    {"image/x-MS-bmp", read_bmp},
    {"image/jpeg", read_jpeg},
    {"image/gif", read_gif},
    {"text/uri-list", read_listed_picture},
}};

ReadPicture read_fetched(const Fetched& fetched) {
    const auto kind = std::ranges::find(picture_kinds, fetched.kind, &PictureKind::name);
    ReadPicture picture =
        unless_memory_ends([&] { return kind->read(fetched.bytes); }, {nullptr, "there isn't memory enough"});
    if (!picture.cause.empty())
        UA_log("[ ERROR ] : The clipboard's %s can't be read: %s", kind->name, picture.cause.c_str());
    return picture;
}

/// A pass of waiting for another program's picture; one that comes soon needs no words. False when the user leaves.
bool wait_for_picture(std::optional<Waiting>& wait, int pass) {
    constexpr int told_from = 15;  // of 50 a second
    if (!wait) wait.emplace();
    if (pass == told_from) {
        set_told_text("WAITING FOR THE PICTURE. RIGHT CLICK CANCELS");
        wait->set_prompt(MESSAGE_TOLD);
    }
    const HandStep hand = wait->pass();
    return hand != HAND_RIGHT && hand != HAND_ESCAPES;
}

/// What is there: the first kind that is whole, or else the first of which there is a part. Null with FETCH_DONE: a
/// picture that can't be read.
FetchEnd fetch_picture(ReadPicture& picture) {
    serve_clipboard();  // another program may have copied just now
    if (const auto ours = copied.lock()) {
        picture = copy_of(*ours);
        return FETCH_DONE;
    }
    std::vector<std::string> kinds;
    for (const PictureKind& kind : picture_kinds) kinds.emplace_back(kind.name);
    std::optional<Waiting> wait;  // most pictures come before the next look
    const auto goes_on = [&wait, pass = 0]() mutable { return wait_for_picture(wait, pass++); };
    FetchEnd end = FETCH_NOTHING;
    for (std::span<const std::string> left = kinds; !left.empty();) {
        const Fetched fetched = fetch_from_clipboard(left, goes_on);
        if (fetched.end == FETCH_LEFT) return FETCH_LEFT;
        if (fetched.end == FETCH_NOTHING) break;
        end = FETCH_DONE;
        ReadPicture read = read_fetched(fetched);
        const bool is_whole = read.bitmap && read.cause.empty();
        if (is_whole || !picture.bitmap) picture = std::move(read);
        if (is_whole) break;
        const auto tried = std::ranges::find(left, fetched.kind) - left.begin();
        left = left.subspan(static_cast<std::size_t>(tried) + 1);
    }
    return end;
}

// ---- Pasting -------------------------------------------------------------------------------------------------------

void float_over_frame(OwnedBitmap picture) {
    const BorrowedCel borrowed(std::move(picture), 0, 0);
    if (!borrowed) return flash_message(MESSAGE_NO_MEMORY);
    run_over_shadow([] { place_picture(); });
}

void fill_frame(BITMAP* picture) {
    if (!save_undo(false)) return;
    const int width = std::min(picture->w, current_frame->w), height = std::min(picture->h, current_frame->h);
    blit(picture, current_frame, 0, 0, 0, 0, width, height);
    note_touched({0, 0, width - 1, height - 1});
}

/// False if nothing is to be pasted any more.
bool let_frame_grow(const BITMAP* picture) {
    if (picture->w <= frame_w && picture->h <= frame_h) return true;
    if (!confirm(LABEL_CLIPBOARD_LARGER, LABEL_RESIZE_TO_MATCH)) return exit_requested == 0;
    return resize_frame(frame_index, std::max<int>(frame_w, picture->w), std::max<int>(frame_h, picture->h), 0, false);
}

}  // namespace

int clipboard_put(BITMAP* bitmap) {
    const bool is_clear = guides.clear_ground != 0;
    return put(copy_bitmap(bitmap), is_clear ? std::optional(mask_color) : std::nullopt) ? 1 : 0;
}

BITMAP* clipboard_get() {
    ReadPicture picture;
    fetch_picture(picture);
    settle_alpha(picture, ALPHA_MASK, mask_color, mask_color);
    return picture.bitmap.release();
}

void clipboard_copy() {
    if (clipboard_put(current_frame) == 1) flash_message(MESSAGE_FRAME_COPIED);
}

void clipboard_copy_cel() {
    prepare_cel();
    if (put(copy_bitmap(cel), transparent_color)) flash_message(MESSAGE_CEL_COPIED);
}

void clipboard_paste() {
    ReadPicture picture;
    if (fetch_picture(picture) == FETCH_LEFT) return;
    if (!picture.bitmap) return flash_message(MESSAGE_CLIPBOARD_EMPTY);
    const std::optional<AlphaRule> rule = !picture.has_alpha || !copied.expired() ? ALPHA_MASK : ask_alpha_rule();
    if (!rule || !let_frame_grow(picture.bitmap.get())) return;
    const bool floats = picture.bitmap->w < frame_w && picture.bitmap->h < frame_h;
    settle_alpha(picture, *rule, mask_color, floats ? transparent_color : mask_color);
    if (floats)
        float_over_frame(std::move(picture.bitmap));
    else
        fill_frame(picture.bitmap.get());
    const std::string lost = loss_text(picture.loss);
    if (!lost.empty() && exit_requested == 0) flash_text("FROM THE CLIPBOARD" + lost);
}

}  // namespace nubo
