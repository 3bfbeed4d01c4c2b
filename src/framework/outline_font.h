#pragma once
// Text in outline fonts: the face of a font file, sized by the height of its line, whose glyphs are kept once they are
// rendered, drawn into bitmaps. The interface has its bitmap fonts (framework/text.h) instead. Main flow only.
#include "state/outline_fonts.h"
#include <allegro.h>
#include <string>
#include <string_view>

namespace nubo {

// ---- The layer -----------------------------------------------------------------------------------------------------

/// Starts FreeType; 0, or its error. Before any font is loaded, with both handles null.
int font_system_init();

/// Destroys the fonts in both handles and ends FreeType. Before it all other fonts must be gone.
void font_system_exit();

/// Sets the background of antialiased text that names none, -1 for none, and returns the one before.
int font_text_mode(int color);

// ---- Fonts ---------------------------------------------------------------------------------------------------------

/// A font of a file with outlines or bitmaps, at its first size or at 8 pixels, without spacing. Null if the file can't
/// be read as a font, is no regular file or larger than 64 MiB; nothing is logged. The caller destroys it.
OutlineFont* font_load(const std::string& path);
/// The same of a copy of `size` bytes.
OutlineFont* font_load_from_memory(const void* data, int size);
/// Null is accepted.
void font_destroy(OutlineFont* font);

struct OutlineFontDestroyer {
    void operator()(OutlineFont* font) const { font_destroy(font); }
};

/// Sets the size at which a line is `height` pixels high, from ascender to descender: the nearest one at or below, and
/// of bitmaps exactly that one. 0; or -1, with the old size kept, if there is none. Another size empties the cache.
int font_set_height(OutlineFont* font, int height);

/// True for a font of bitmaps in a single size, which it has had since it was loaded.
bool font_has_one_size(const OutlineFont* font);

/// Pixels after each glyph that moves the pen, held to 0 to 4,096.
void font_set_spacing(OutlineFont* font, int pixels);

/// The name of the language in which texts are written. It chooses nothing: the bytes are UTF-8 for all of them.
void font_set_language(OutlineFont* font, const char* name);

/// How a text becomes characters, held to 0 to 2. 2: it is UTF-8, in which a wrong byte stands for its own code. Else
/// each byte does.
enum TextConversion : int { CONVERT_BYTES = 0, CONVERT_WIDE = 2 };
void font_set_convert(OutlineFont* font, int mode);

// ---- Text ----------------------------------------------------------------------------------------------------------

/// The two forms of a glyph, which is rendered only in the one that is asked for.
enum TextEdges : int { EDGES_ROUGH, EDGES_SMOOTH };

/// The width of a text in pixels: what the pen moves. With edges the glyphs are rendered on the way, for one who goes
/// on to draw: each is read from the file once then.
int font_text_length(OutlineFont* font, std::string_view text);
int font_text_length(OutlineFont* font, std::string_view text, TextEdges edges);

/// The height that was set last.
int font_text_height(const OutlineFont* font);

/// Draws a text whose line begins with its top left corner at (x, y), cut at the bitmap's clip rectangle. A glyph of
/// more than 4,096 pixels on a side isn't drawn. `font_textout` sets hard pixels.
void font_textout(BITMAP* bitmap, OutlineFont* font, std::string_view text, int x, int y, int color);
/// Antialiased, mixed with what the bitmap holds, or, with a `background` of 0 or more, with that.
void font_textout_aa(BITMAP* bitmap, OutlineFont* font, std::string_view text, int x, int y, int color);
void font_textout_aa(BITMAP* bitmap, OutlineFont* font, std::string_view text, int x, int y, int color, int background);

/// The same into an 8-bit bitmap of coverage, 0 to 255: the red of white text on black.
void font_cover(BITMAP* coverage, OutlineFont* font, std::string_view text, int x, int y, TextEdges edges);

}  // namespace nubo
