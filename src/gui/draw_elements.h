#pragma once
// The drawings of the element types, one function each, for the table in draw.cpp. Each draws the slot into
// `screen_buffer`; which fields it reads is told where it stands.

namespace nubo {

void draw_nothing(int slot);
void draw_slider(int slot);  // over any element with `has_slider`

// ---- Captions, titles, buttons: draw_buttons.cpp -------------------------------------------------------------------

void draw_value_text(int slot);
void draw_caption(int slot);
void draw_description(int slot);
void draw_title(int slot);
void draw_button(int slot);
void draw_button_down(int slot);
void draw_button_lit(int slot);
void draw_button_lit_dark(int slot);
void draw_radio_on(int slot);
void draw_radio_off(int slot);
void draw_arrow(int slot);
void draw_hotkey(int slot);
void draw_frame_count(int slot);
void draw_number(int slot);
void draw_file_name(int slot);

// ---- Boxes, swatches, pictures: draw_pictures.cpp ------------------------------------------------------------------

void draw_box(int slot);
void draw_window(int slot);
void draw_failure_box(int slot);
void draw_progress(int slot);
void draw_swatch(int slot);
void draw_swatch_wait(int slot);
void draw_swatch_mask(int slot);
void draw_swatch_brush(int slot);
void draw_preview(int slot);
void draw_thumbnail(int slot);
void draw_tip_cell(int slot);
void draw_custom_tip(int slot);
void draw_tip_button(int slot);

// ---- Lists and fields: draw_lists.cpp ------------------------------------------------------------------------------

void draw_list(int slot);
void draw_text_field(int slot);

// ---- The preview of the colour scheme window: draw_scheme.cpp ------------------------------------------------------

void draw_scheme_panel(int slot);
void draw_scheme_shadow(int slot);
void draw_scheme_border(int slot);
void draw_scheme_button(int slot);
void draw_scheme_button_dark(int slot);
void draw_scheme_field(int slot);
void draw_scheme_list(int slot);

}  // namespace nubo
