#pragma once
// The kinds of files that the file browser opens and saves.

namespace nubo {

/// What a file is, by the ending of its name or by its first bytes.
enum FileType : int {
    FILE_UNKNOWN = -1,
    FILE_GIF,
    FILE_PCX,
    FILE_BMP,
    FILE_PNG,
    FILE_JPG,
    FILE_LBM,
    FILE_TTF,
    FILE_FON,
    FILE_WSP,
    FILE_FAVORITES,  // told by its first bytes alone, like the next
    FILE_SCHEME,
    FILE_TYPE_COUNT
};

/// What the user opens the browser for.
enum FilePurpose : int { PURPOSE_PICTURE = 1, PURPOSE_FONT, PURPOSE_ARCHIVE, PURPOSE_FAVORITES, PURPOSE_SCHEME };

enum BrowserMode : int { BROWSE_TO_LOAD, BROWSE_TO_SAVE, BROWSE_FOR_FONT };

}  // namespace nubo
