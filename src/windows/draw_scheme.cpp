// The preview of the colour scheme window: the usual elements in the colours that are being edited.
#include "gui/draw_lists.h"
#include "gui/shapes.h"
#include "windows/kit/draw_elements.h"

namespace nubo {
namespace {

void scheme_box(int slot, SchemeColor fill) { GUI_box(slot, color_scheme[fill], color_scheme[SCHEME_BORDER]); }

void labeled_box(int slot, SchemeColor fill, TextColor text) {
    scheme_box(slot, fill);
    GUI_center_text_of(slot, text);
}

}  // namespace

void draw_scheme_panel(int slot) { scheme_box(slot, SCHEME_BACKGROUND); }

void draw_scheme_shadow(int slot) { labeled_box(slot, SCHEME_SHADOW, TEXT_PREVIEW_LIGHT_ALT); }

void draw_scheme_border(int slot) { labeled_box(slot, SCHEME_BORDER, TEXT_PREVIEW_BUTTON); }

void draw_scheme_button(int slot) {
    if (is_lit(slot))
        labeled_box(slot, SCHEME_HIGHLIGHT_BACK, TEXT_PREVIEW_LIGHT_ALT);
    else
        labeled_box(slot, SCHEME_BACKGROUND, TEXT_PREVIEW_BUTTON);
}

void draw_scheme_button_dark(int slot) {
    if (is_lit(slot))
        labeled_box(slot, SCHEME_SHADOW, TEXT_PREVIEW_LIGHT);
    else
        labeled_box(slot, SCHEME_BACKGROUND, TEXT_PREVIEW_HIGHLIGHT);
}

void draw_scheme_field(int slot) {
    const bool refused = gui::invalid[at(slot)] != 0;
    draw_field_in(slot, {color_scheme[refused ? SCHEME_HIGHLIGHT_FORE : SCHEME_BACKGROUND], color_scheme[SCHEME_BORDER],
                         TEXT_PREVIEW_LIGHT});
}

void draw_scheme_list(int slot) {
    draw_list_in(slot, {color_scheme[SCHEME_BACKGROUND], color_scheme[SCHEME_BORDER], color_scheme[SCHEME_SHADOW],
                        TEXT_PREVIEW_LIGHT, TEXT_PREVIEW_SELECTED});
}

}  // namespace nubo
