#include "game/screen_effects.h"

#include "base/bitmap.h"
#include "state/effects.h"

namespace nubo {

bool create_effect_bitmaps() {
    constexpr int placeholder = 2;
    // Each is written whole before it is read, and until then takes no memory.
    replace_bitmap(fog_mask, make_uncleared_bitmap(fog_w, fog_h));
    replace_bitmap(sprite_scratch, make_uncleared_bitmap(sprite_scratch_w, sprite_scratch_h));
    replace_bitmap(letter_scratch, make_uncleared_bitmap(letter_scratch_w, letter_scratch_h));
    replace_bitmap(polygon_scratch, make_uncleared_bitmap(placeholder, placeholder));
    replace_bitmap(ripple_scratch, make_uncleared_bitmap(placeholder, placeholder));
    return fog_mask && sprite_scratch && letter_scratch && polygon_scratch && ripple_scratch;
}

}  // namespace nubo
