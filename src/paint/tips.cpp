#include "paint/tips.h"

#include "base/bitmap.h"
#include "base/color.h"
#include "state/run.h"

namespace nubo {

void read_tip(int style, TipValues& values) {
    const int left = tip_w * (style % tip_columns), top = tip_h * (style / tip_columns);
    std::uint8_t* value = values.data();
    for (int row = 0; row < tip_h; ++row) {
        const Color* const cell = pixels_at(tip_sheet, left, top + row);
        for (int column = 0; column < tip_w; ++column) *value++ = static_cast<std::uint8_t>(red_of(cell[column]));
    }
}

}  // namespace nubo
