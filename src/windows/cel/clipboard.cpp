#include "windows/cel/clipboard.h"

#include "base/bitmap.h"
#include "base/log.h"
#include "base/memory.h"
#include "codecs/bmp_file.h"
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
#include "state/run.h"
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
constexpr Color color_bits = 0xffffff;

// ---- Out -----------------------------------------------------------------------------------------------------------

// What was copied here last, for as long as it is on the clipboard: the offer holds it.
std::weak_ptr<BITMAP> copied;

bool encode(BITMAP* picture, const std::string& kind, Bytes& bytes) {
    const auto write = [&] {
        return kind == png_kind ? write_png(picture, bytes, PNG_FAST) : (write_bmp(picture, bytes), true);
    };
    return unless_memory_ends(write, false);
}

// ---- In ------------------------------------------------------------------------------------------------------------

ReadPicture read_cut_out_gif(FileBytes bytes) {
    ReadPicture picture = read_gif(bytes);
    for (int y = 0; picture.bitmap && y < picture.bitmap->h; ++y) {
        Color* const row = pixels_at(picture.bitmap.get(), 0, y);
        std::replace(row, row + picture.bitmap->w, transparent_color, Color{clear_pixel});
    }
    return picture;
}

ReadPicture read_listed_picture(FileBytes list) {
    const std::optional<std::string> path = only_local_file({reinterpret_cast<const char*>(list.data()), list.size()});
    if (!path) return {nullptr, "it doesn't name a single file of this machine"};
    FileType type = file_type_from_magic(*path);
    if (type == FILE_PNG || type == FILE_GIF) {
        constexpr std::size_t file_size_max = std::size_t{1} << 30;
        Bytes bytes;
        if (read_file(*path, file_size_max, bytes))
            return type == FILE_PNG ? read_cut_out_png(bytes) : read_cut_out_gif(bytes);
    }
    return read_picture_file(*path, type);
}

struct PictureKind {
    const char* name;
    ReadPicture (*read)(FileBytes bytes);
};
/// The best first. BMP has gone by several names.
constexpr std::array<PictureKind, 7> picture_kinds{{
    {png_kind, read_cut_out_png},
    {bmp_kind, read_bmp},
    {"image/x-bmp", read_bmp},
    {"image/x-MS-bmp", read_bmp},
    {"image/jpeg", read_jpeg},
    {"image/gif", read_cut_out_gif},
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
        picture.bitmap = copy_bitmap(ours.get());
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

/// Makes `clear` of the clear pixels.
void settle_row(const Color* from, int count, Color clear, Color* to) {
    std::transform(from, from + count, to, [clear](Color pixel) { return pixel == clear_pixel ? clear : pixel; });
}

void float_over_frame(OwnedBitmap picture) {
    for (int y = 0; y < picture->h; ++y) {
        Color* const row = pixels_at(picture.get(), 0, y);
        settle_row(row, picture->w, transparent_color, row);
    }
    const BorrowedCel borrowed(std::move(picture), 0, 0);
    if (!borrowed) return flash_message(MESSAGE_NO_MEMORY);
    run_over_shadow([] { place_cel(false, true); });
}

void fill_frame(BITMAP* picture) {
    if (!save_undo(false)) return;
    const int width = std::min(picture->w, current_frame->w), height = std::min(picture->h, current_frame->h);
    for (int y = 0; y < height; ++y)
        settle_row(pixels_at(picture, 0, y), width, mask_color & color_bits, pixels_at(current_frame, 0, y));
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
    const std::shared_ptr<BITMAP> kept = copy_bitmap(bitmap);
    if (!kept) return 0;
    const bool offered = offer_to_clipboard({{png_kind, bmp_kind}, [kept](const std::string& kind, Bytes& bytes) {
                                                 return encode(kept.get(), kind, bytes);
                                             }});
    if (offered) copied = kept;
    return offered ? 1 : 0;
}

BITMAP* clipboard_get() {
    ReadPicture picture;
    fetch_picture(picture);
    return picture.bitmap.release();
}

void clipboard_copy() {
    if (clipboard_put(current_frame) == 1) flash_message(MESSAGE_FRAME_COPIED);
}

void clipboard_paste() {
    ReadPicture fetched;
    if (fetch_picture(fetched) == FETCH_LEFT) return;
    OwnedBitmap picture = std::move(fetched.bitmap);
    if (!picture) return flash_message(MESSAGE_CLIPBOARD_EMPTY);
    if (!let_frame_grow(picture.get())) return;
    if (picture->w < frame_w && picture->h < frame_h)
        float_over_frame(std::move(picture));
    else
        fill_frame(picture.get());
    const std::string lost = loss_text(fetched.loss);
    if (!lost.empty() && exit_requested == 0) flash_text("FROM THE CLIPBOARD" + lost);
}

}  // namespace nubo
