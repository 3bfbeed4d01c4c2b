#pragma once
// The COLOR SCHEME window: ten swatches, and a sample of the interface in their colours. Main flow only.
#include "windows/colors/scheme.h"

namespace nubo {

/// The window's slots, in the order in which they are drawn.
enum SchemeSlot : int {
    SCHEME_LABEL_FIRST = slot_content,
    SCHEME_SWATCH_FIRST = scheme_swatch_first,
    SCHEME_OKAY = SCHEME_SWATCH_FIRST + SCHEME_COUNT,
    SCHEME_SAVE,
    SCHEME_LOAD,
    SCHEME_CANCEL,
    SCHEME_PREVIEW_HEADER,
    SCHEME_PREVIEW_PANEL,
    SCHEME_PREVIEW_TITLE,
    SCHEME_PREVIEW_LIST,
    SCHEME_PREVIEW_CAPTION,
    SCHEME_PREVIEW_FIELD,
    SCHEME_PREVIEW_SLIDER,
    SCHEME_PREVIEW_BUTTON,
    SCHEME_PREVIEW_BUTTON_DARK,
    SCHEME_SLOTS
};

/// Runs the window until it is left. Then the interface has the new colours, or with CANCEL the old ones.
void scheme_window();

}  // namespace nubo
