#include "windows/file_preview.h"

#include "framework/text.h"
#include "platform/input_file.h"
#include "state/options.h"
#include "state/run.h"
#include "windows/picture_formats.h"
#include "workspace/nail.h"
#include <array>

namespace nubo {
namespace {

constexpr std::array<std::array<std::string_view, 3>, 4> message_lines{{
    {"PREVIEW", "UNAVAILABLE"},
    {"THIS FILE", "IS BORKED"},
    {"PREVIEWS", "DISABLED"},
    {"FILE TOO LARGE", "FOR PREVIEW", "(CLICK TO VIEW)"},
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

}  // namespace

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
    if (type >= FILE_WSP) return set_preview_message(PREVIEW_UNAVAILABLE);
    FileType read_as = FILE_UNKNOWN;
    const ReadPicture picture = read_picture_file(path, read_as);
    if (!picture.bitmap) return set_preview_message(PREVIEW_BORKED);
    show_picture(picture.bitmap.get());
}

}  // namespace nubo
