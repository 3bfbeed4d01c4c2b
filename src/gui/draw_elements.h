#pragma once
// The drawings of the toolkit's own element types, one function each, for the table in draw.cpp. Each draws the slot
// into `screen_buffer`; which fields it reads is told where it stands.

namespace nubo {

void draw_slider(int slot);  // over any element with `has_slider`

// ---- Captions, titles, buttons: draw_buttons.cpp -------------------------------------------------------------------

void draw_caption(int slot);
void draw_title(int slot);
void draw_button(int slot);
void draw_button_down(int slot);
void draw_button_lit(int slot);
void draw_button_lit_dark(int slot);
void draw_radio_on(int slot);
void draw_radio_off(int slot);
void draw_arrow(int slot);
void draw_number(int slot);

// ---- Boxes: draw_boxes.cpp -----------------------------------------------------------------------------------------

void draw_box(int slot);
void draw_window(int slot);
void draw_failure_box(int slot);
void draw_progress(int slot);
void draw_swatch_wait(int slot);

// ---- Lists and fields: draw_lists.cpp ------------------------------------------------------------------------------

void draw_list(int slot);
void draw_text_field(int slot);

// ---- The console: console.cpp --------------------------------------------------------------------------------------

void draw_console(int slot);

}  // namespace nubo
