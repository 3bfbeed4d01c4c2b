#pragma once
// Colours. A colour is a packed pixel 0x00RRGGBB, as `makecol` gives it in a window; the top byte is 0.
#include "state/shared.h"
#include <array>
#include <cstdint>

namespace nubo {

using Color = std::uint32_t;
inline constexpr Color transparent_color = 0xff00ff;  // nothing, in `overlay`, the Cel, `tip_sheet` and every sprite

// ---- Working colours -----------------------------------------------------------------------------------------------

inline constinit Color brush_color = 0xffffff;  // in which tools paint
inline constinit Color mask_color = 0x000000;   // the user's transparent colour of cels and erased areas
inline constexpr int color_slot_count = 10, favorite_count = 256, favorites_row = 18;
inline constinit std::array<Color, color_slot_count> color_slots{};  // the colour buttons of the drawing menu
inline constinit std::array<Color, favorite_count> favorites{};      // `favorites_row` to the row
inline constinit int favorites_page = 0;                             // first row shown

// ---- Spectrum and colourspace --------------------------------------------------------------------------------------

inline constinit Color spectrum_start = 0x000000, spectrum_end = 0xffffff;
inline constinit int spectrum_fold = 2;  // 0 to 3: how many times the band is folded
enum Colorspace : int { SPACE_VGA, SPACE_RGB, SPACE_HLS, SPACE_HSV, SPACE_COUNT };
inline constinit int colorspace = SPACE_RGB;

// ---- Interface colours ---------------------------------------------------------------------------------------------

inline constinit Color ui_white = 0xffffff, ui_black = 0x000000, ui_red = 0xff0000;
inline constinit Color ui_background = 0x9e9e9e, ui_border = 0x646464, ui_shadow = 0x3a3a3a;  // these five follow
inline constinit Color ui_highlight_fore = 0xff0000, ui_highlight_back = 0xdbdbdb;            // the ColorScheme
inline constexpr Color fixed_black = 0x000000, fixed_gray = 0x646464, fixed_light = 0xdbdbdb, fixed_white = 0xffffff;

enum SchemeColor : int {
    SCHEME_BACKGROUND,
    SCHEME_BORDER,
    SCHEME_SHADOW,
    SCHEME_HIGHLIGHT_FORE,
    SCHEME_HIGHLIGHT_BACK,
    SCHEME_TEXT_LIGHT,
    SCHEME_TEXT_BUTTON,
    SCHEME_TEXT_HIGHLIGHT,
    SCHEME_TEXT_LIGHT_ALT,
    SCHEME_TEXT_SELECTED,
    SCHEME_COUNT
};
using Scheme = std::array<Color, SCHEME_COUNT>;
inline constexpr Scheme default_scheme{0x9e9e9e, 0x646464, 0x3a3a3a, 0xff0000, 0xdbdbdb,
                                       0xdadada, 0x000000, 0x404040, 0xfa0c0c, 0x005cbc};
inline constinit Scheme color_scheme = default_scheme;

// ---- Screen tint ---------------------------------------------------------------------------------------------------

inline constinit Shared<int> tint_r = -1, tint_g = -1, tint_b = -1;  // 0 to 255, or -1 for no tint
inline constinit Shared<int> tint_strength = 0;                      // 0 to 254, moved by `BE_palette_control`

}  // namespace nubo
