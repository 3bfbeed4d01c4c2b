#pragma once
// The drawings of the element types that show something of the editor, for the table in hand_over.cpp. Each draws the
// slot into `screen_buffer`.

namespace nubo {

// ---- Colours: color_elements.cpp -----------------------------------------------------------------------------------

void draw_swatch(int slot);
void draw_swatch_mask(int slot);
void draw_swatch_brush(int slot);
void draw_spectrum(int slot);
void draw_variant(int slot);
void draw_color_map(int slot);

// ---- Tips: draw_tips.cpp -------------------------------------------------------------------------------------------

void draw_tip_cell(int slot);
void draw_custom_tip(int slot);
void draw_tip_button(int slot);

// ---- Words, numbers, the preview of a file: draw_words.cpp ---------------------------------------------------------

void draw_frame_count(int slot);
void draw_hotkey(int slot);
void draw_file_name(int slot);
void draw_description(int slot);
void draw_preview(int slot);

// ---- The sample of the colour scheme window: draw_scheme.cpp -------------------------------------------------------

void draw_scheme_panel(int slot);
void draw_scheme_shadow(int slot);
void draw_scheme_border(int slot);
void draw_scheme_button(int slot);
void draw_scheme_button_dark(int slot);
void draw_scheme_field(int slot);
void draw_scheme_list(int slot);

// ---- Of one window each, in its own file ---------------------------------------------------------------------------

void draw_about(int slot);
void draw_anchor_preview(int slot);
void draw_file_list(int slot);
void draw_help_text(int slot);
void draw_kept_workspace(int slot);
void draw_minimap(int slot);
void draw_thumbnail(int slot);
void draw_zoom_preview(int slot);

}  // namespace nubo
