#include "windows/files/file_preview.h"

#include "codecs/alpha.h"
#include "codecs/clear_ground.h"
#include "framework/outline_font.h"
#include "framework/text.h"
#include "paint/cel_pixels.h"
#include "platform/input_file.h"
#include "platform/safe_file.h"
#include "state/colors.h"
#include "state/frames.h"
#include "state/options.h"
#include "state/run.h"
#include "windows/files/picture_formats.h"
#include "workspace/nail.h"
#include "workspace/notices.h"
#include <algorithm>
#include <array>

namespace nubo {
namespace {

constexpr std::array<std::array<std::string_view, 3>, 5> message_lines{{
    {"PREVIEW", "UNAVAILABLE"},
    {"THIS FILE", "IS BORKED"},
    {"PREVIEWS", "DISABLED"},
    {"FILE TOO LARGE", "FOR PREVIEW", "(CLICK TO VIEW)"},
    {"THIS FILE", "CAN'T BE READ"},
}};

bool is_over_limit(const std::string& path) {
    constexpr std::size_t limit_unit = 1'024'000;
    return InputFile(path).size() >= static_cast<std::size_t>(opt_file_preview_limit) * limit_unit;
}

/// Over the whole preview, whatever its proportions.
void show_picture(BITMAP* picture) {
    if (picture->w < preview_w || picture->h < preview_h)
        stretch_blit(picture, preview_bitmap, 0, 0, picture->w, picture->h, 0, 0, preview_w, preview_h);
    else
        reduce_bitmap(picture, preview_bitmap, 0, 0, preview_w, preview_h);
}

// ---- Clear pixels --------------------------------------------------------------------------------------------------

/// Lays a picture with alpha on a checker, whose squares have one size in the preview.
void lay_on_checker(BITMAP* picture) {
    constexpr int square = 6;
    constexpr std::array<Color, 2> colors{0xb0b0b0, 0x707070};
    for (int y = 0; y < picture->h; ++y) {
        const int row = y * preview_h / picture->h / square;
        Color* const pixels = pixels_at(picture, 0, y);
        for (int x = 0; x < picture->w; ++x)
            pixels[x] = flattened(pixels[x], colors[at((x * preview_w / picture->w / square + row) % 2)]);
    }
}

/// Two lines along the lower edge.
void show_lines(const std::string& first, const std::string& second) {
    constexpr int line_h = 8, text_h = 6, top = preview_h - 2 * line_h - 1;
    rectfill(preview_bitmap, 0, top, preview_w - 1, preview_h - 1, static_cast<int>(fixed_black));
    set_font(FONT_WIDE, TEXT_GRAY);
    int y = top + (line_h - text_h);
    for (const std::string& text : {first, second}) {
        UA_text(preview_bitmap, (preview_w - text_width(text)) / 2, y, text);
        y += line_h;
    }
}

// ---- Fonts ---------------------------------------------------------------------------------------------------------

constexpr int letter_height = 75, letter_spacing = 5, sample_height = 18;

/// The "A", in the middle of a preview that is `height` pixels high.
void show_letter(OutlineFont* font, Color background, int height) {
    const OwnedBitmap scratch = make_bitmap(preview_w, preview_h, background);
    if (!scratch) return;
    font_textout_aa(scratch.get(), font, "A", preview_w / 2, 0, static_cast<int>(fixed_black),
                    static_cast<int>(background));
    constexpr int any_difference = 1;
    const std::optional<Area> box = content_area(scratch.get(), background, any_difference);
    if (!box) return;
    blit(scratch.get(), preview_bitmap, box->left, box->top, (preview_w - box->width()) / 2,
         std::max(height - box->height(), 0) / 2, box->width(), box->height());
}

/// The user's own text along the lower edge.
void show_sample(OutlineFont* font, Color background, const std::string& text) {
    constexpr int left = 3;
    font_set_spacing(font, 0);
    font_set_height(font, sample_height);
    font_textout_aa(preview_bitmap, font, text, left, preview_h - sample_height - 1, static_cast<int>(fixed_black),
                    static_cast<int>(background));
}

}  // namespace

void preview_font_file(const std::string& path) {
    const Color background = color_scheme[SCHEME_BACKGROUND];
    clear_to_color(preview_bitmap, static_cast<int>(background));
    font_destroy(preview_font);
    preview_font = font_load(path);
    if (preview_font == nullptr) return;
    font_set_language(preview_font, "chinese-traditional");
    font_set_convert(preview_font, CONVERT_WIDE);
    font_set_spacing(preview_font, letter_spacing);
    font_text_mode(-1);
    font_set_height(preview_font, letter_height);
    const std::string sample = text_in_hand.data();
    const bool has_sample = sample.find_first_not_of(' ') != std::string::npos;
    show_letter(preview_font, background, has_sample ? preview_h - sample_height : preview_h);
    if (has_sample) show_sample(preview_font, background, sample);
}

void clear_preview() { clear_to_color(preview_bitmap, static_cast<int>(fixed_black)); }

void set_preview_message(PreviewMessage kind) {
    constexpr int line_h = 8, text_h = 6;
    clear_preview();
    const auto& lines = message_lines[static_cast<std::size_t>(kind)];
    int count = 0;
    while (count < static_cast<int>(lines.size()) && !lines[at(count)].empty()) ++count;
    int y = (preview_h - (count - 1) * line_h - text_h) / 2;
    set_font(FONT_WIDE, TEXT_GRAY);
    for (int i = 0; i < count; ++i, y += line_h)
        UA_text(preview_bitmap, (preview_w - text_width(lines[at(i)])) / 2, y, lines[at(i)]);
}

void preview_picture(const std::string& path, FileType type, bool asked) {
    if (opt_file_preview == PREVIEW_NONE) return set_preview_message(PREVIEW_DISABLED);
    if (opt_file_preview == PREVIEW_LIMIT && !asked && is_over_limit(path))
        return set_preview_message(PREVIEW_TOO_LARGE);
    if (type == FILE_WSP || !file_exists(path)) return set_preview_message(PREVIEW_UNAVAILABLE);
    const BusyNotice notice(InputFile(path).size());
    FileType read_as = FILE_UNKNOWN;
    const ReadPicture picture = read_picture_file(path, read_as);
    if (!picture.bitmap) return set_preview_message(why_unreadable(path).empty() ? PREVIEW_BORKED : PREVIEW_UNREADABLE);
    if (picture.has_alpha) lay_on_checker(picture.bitmap.get());
    show_picture(picture.bitmap.get());
}

void preview_clear_frame(FileType type) {
    const OwnedBitmap picture = copy_bitmap(current_frame);
    if (!picture) return set_preview_message(PREVIEW_UNAVAILABLE);
    const FileFormat& format = file_format(type);
    if (!format.tells_clear) {
        show_picture(picture.get());
        return show_lines("NO CLEAR PIXELS", "IN A " + std::string(format.ending()));
    }
    const int count = set_alpha_by_ground(picture.get(), mask_color);
    lay_on_checker(picture.get());
    show_picture(picture.get());
    show_lines(std::to_string(count) + (count == 1 ? " PIXEL" : " PIXELS"), "WILL BE CLEAR");
}

}  // namespace nubo
