#pragma once
// What the file browser shows of the chosen file, in `preview_bitmap`. Main flow only.
#include "state/files.h"
#include <string>

namespace nubo {

enum PreviewMessage : int {
    PREVIEW_UNAVAILABLE,
    PREVIEW_BORKED,
    PREVIEW_DISABLED,
    PREVIEW_TOO_LARGE,
    PREVIEW_UNREADABLE
};

/// Writes one of the preview's messages in place of a picture.
void set_preview_message(PreviewMessage kind);

/// Shows the picture at `path`, on a checker where it is clear, or why it isn't shown; `opt_file_preview` decides. With
/// `asked` the user has pressed the preview, so that the limit of size counts for nothing.
void preview_picture(const std::string& path, FileType type, bool asked);

/// Shows the Frame as a file of the type will have it with its mask colour clear, on a checker, and how many pixels
/// that will be; of a type that has no clear pixels it says so.
void preview_clear_frame(FileType type);

/// Shows the font at `path`: its "A", and below it the text that is typed for TEXT. Empty for a file that is no font.
void preview_font_file(const std::string& path);

/// Empties the preview.
void clear_preview();

}  // namespace nubo
