#pragma once
// Bitmap fonts, the colours of text, and how the next text is drawn. The engine stands in framework/text.h.
#include <array>

struct BITMAP;

namespace nubo {

// ---- Fonts ---------------------------------------------------------------------------------------------------------

inline constexpr int font_slot_count = 16, character_count = 256;
/// The slots in use; the rest stay empty.
enum Font : int { FONT_NARROW = 4, FONT_WIDE = 5 };
inline constexpr int advance_default = 8;  // pixels
struct FontSlot {
    BITMAP* sheet = nullptr;                      // all glyphs side by side, one cell wide each; 0xff00ff is nothing
    int cell_w = 0, cell_h = 0;                   // pixels; 0 in a slot never loaded
    std::array<int, character_count> glyph_x{};   // left edge of the character's cell; 0, an empty one, if undefined
    std::array<int, character_count> glyph_dy{};  // added to the pen's y
    std::array<int, character_count> advance{};   // pen movement
    int shadow_dx = 0, shadow_dy = 0;             // offset of the shadow from the glyph
    int shadow_style = 0;                         // for texts that name none
    std::array<int, 8> tones{};                   // palette indices of the sheet's last row
    int generation = 0;                           // grows with each load: recoloured copies of the sheet are stale
};
inline constinit std::array<FontSlot, font_slot_count> font_slots{};

// ---- How text is drawn; stays until the next change ----------------------------------------------------------------

enum TextShadow : int { SHADOW_NONE, SHADOW_SOLID, SHADOW_MIXED, SHADOW_SOFT };
struct TextAttributes {
    int font_slot = 0;
    int color_row = 0;                // of `text_colors`; 0 draws the sheet's own colours
    int shadow = SHADOW_NONE;         // a TextShadow; 0 takes the slot's
    int shadow_value = 0;             // SOLID and SOFT: a palette index; MIXED: a mix of 0 to 256
    int outline = 0;                  // palette index of a one-pixel outline, 0 none
    int blend = 0, blend_amount = 0;  // above 0 translucent of a strength, below 0 washed to near white by a mix
};
inline constinit TextAttributes text_attributes;

/// Movements of all text, off in the editor.
struct TextMotion {
    bool sine_on = false, slant_on = false;
    int sine_delay = 0, sine_amplitude = 0;
    float slant = 0;
};
inline constinit TextMotion text_motion;

// ---- Colours of text -----------------------------------------------------------------------------------------------

/// Glyphs are drawn in eight tones, the palette's entries 128 to 135; a row names what takes their place.
inline constexpr int text_tones = 8, first_tone = 128, tone_kept = -1;
/// The rows that have a name. The texts' colour codes, "|c24", carry the same numbers.
enum TextColor : int {
    TEXT_OWN_COLORS = 0,
    TEXT_GRAY = 21,
    TEXT_FRAME_RATE = 23,  // orange
    TEXT_YELLOW = 24,
    TEXT_GREEN = 32,
    TEXT_RED = 34,
    TEXT_RED_BUTTON = 36,  // of a red button, in fact yellow
    TEXT_BUTTON,           // 37 to 41 and 43 follow the ColorScheme
    TEXT_LIGHT_ALT,
    TEXT_SELECTED,
    TEXT_HIGHLIGHT,
    TEXT_LIGHT,
    TEXT_ORANGE,
    TEXT_LIGHT_ALT_DARK,
    TEXT_PREVIEW_BUTTON = 47,  // 47 to 51 and 53: the same six in the scheme window's preview
    TEXT_PREVIEW_LIGHT_ALT,
    TEXT_PREVIEW_SELECTED,
    TEXT_PREVIEW_HIGHLIGHT,
    TEXT_PREVIEW_LIGHT,
    TEXT_PREVIEW_LIGHT_ALT_DARK = 53,
    TEXT_COLOR_ROWS = 99
};
/// `[row][tone]`: a Color, or `tone_kept` where the sheet's own stays. Filled by `UA_init_text_colors`.
inline constinit std::array<std::array<int, text_tones>, TEXT_COLOR_ROWS> text_colors{};

}  // namespace nubo
