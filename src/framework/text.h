#pragma once
// The text engine: all text of the interface, from bitmap fonts, into the logical screen or a bitmap of its kind.
//
// A text may hold colour codes: "|c" and two digits set `color_row`, take no room, and stay in force after the text.
// Main flow only.
#include "platform/folder.h"
#include "state/colors.h"
#include "state/fonts.h"
#include <allegro.h>
#include <initializer_list>
#include <span>
#include <string_view>

namespace nubo {

// ---- Colours -------------------------------------------------------------------------------------------------------

/// Fills the colour table with the values of the start.
void UA_init_text_colors();

/// Gives the two brightest tones of a row one colour each; the interface's fonts use no other. For the ColorScheme.
void set_text_color(TextColor row, Color first, Color second);
inline void set_text_color(TextColor row, Color both) { set_text_color(row, both, both); }

/// The dark form of TEXT LIGHT ALT: the red halved, the green and blue quartered.
Color dark_text_color(Color color);

// ---- Codes ---------------------------------------------------------------------------------------------------------

/// The characters of a code: "|", the letter of its kind, two digits.
inline constexpr std::size_t text_code_size = 4;
/// True when `text` begins with a code of that kind.
bool is_text_code(std::string_view text, char kind);
/// The number, 0 to 99, of the code with which `text` begins.
int text_code_value(std::string_view text);

// ---- Fonts ---------------------------------------------------------------------------------------------------------

/// Loads the font sheets of these names into a slot; the first gives the sizes. Without a file the program ends; false
/// when one holds no sheet.
bool UA_load_font(const Folder& folder, int slot, std::initializer_list<const char*> names);

/// The same of sheets in memory, 0xff00ff where nothing is, in colours of Allegro's current palette. False, after a log
/// line, when the slot or the sheets' sizes are impossible; the slot is then as it was.
///
/// A sheet is a grid of cells one pixel wider and higher than a glyph, with values as palette indices of pixels. Cell
/// 0, top row: cell width, cell height, shadow offset x and y. The other cells, top row: character code, `glyph_dy`,
/// `advance`; the glyph stands one pixel right and down of the cell's corner. The sheet's last row: the eight tones.
bool build_font(int slot, std::span<BITMAP* const> sheets);

/// For the author of a font: writes an empty sheet of cells of that size, at least 3 wide, to "font.pcx" in the current
/// directory, with 55 characters of that advance, and ends the program. Sizes that a sheet can't hold are only logged.
void UA_make_font_template(int cell_w, int cell_h, int advance);

// ---- Drawing -------------------------------------------------------------------------------------------------------

/// An argument that leaves its attribute as it is.
inline constexpr int attribute_kept = -1;
/// Sets the attributes of the texts that follow: the slot, and each other one that isn't `attribute_kept`. `reserved`
/// has no effect. A slot of 16 or more is logged and changes nothing.
void UA_set_font(int slot, int color_row, int shadow, int shadow_value, int reserved, int outline, int blend,
                 int blend_amount);

/// The usual call: plain text of one colour.
inline void set_font(Font font, TextColor color) { UA_set_font(font, color, 0, 0, 0, 0, 0, 0); }

/// As `x`: nothing is drawn, only measured.
inline constexpr int text_measure_x = -9000;
/// Draws `text` with the top left corner of its first cell at (x, y) and returns its width in pixels, the sum of the
/// advances. 0 after a log line when the slot set is none.
int UA_text(BITMAP* target, int x, int y, std::string_view text);

/// Draws names of files and what users type, as they stand: no bar begins a colour code, each character has a cell of
/// `cell_w`, and a "?" stands for what the font lacks, or an empty box where it lacks that, too.
void UA_text_as_is(BITMAP* target, int x, int y, std::string_view text, int cell_w);

/// The width of a text in the font set. Colour codes in it stay in force, as those of a drawn text do.
inline int text_width(std::string_view text) { return UA_text(nullptr, text_measure_x, 0, text); }

// ---- Movements -----------------------------------------------------------------------------------------------------

/// Switches the wobble of all text on or off: character n moves down by `amplitude` times the sine of n * 15 and a
/// phase of `UA_phase`, one of the clock's ("delay" 0 to 8) or a fixed one (9). A slot above 15 or a delay above 9 is
/// logged.
void UA_set_font_sine(int slot, int delay, int amplitude);

/// Switches the slant of all text on or off: a glyph's rows move right by `slant` times their count from the bottom.
void UA_set_font_slant(int slot, float slant);

}  // namespace nubo
