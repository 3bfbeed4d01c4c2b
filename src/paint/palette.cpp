#include "paint/palette.h"

#include "state/guides.h"

namespace nubo {

std::span<const Color> palette() {
    std::size_t length = static_cast<std::size_t>(guides.palette_length);
    if (length != 0) return std::span(favorites).first(length);
    length = favorites.size();
    while (length > 0 && favorites[length - 1] == color_scheme[SCHEME_BACKGROUND]) --length;
    return std::span(favorites).first(length);
}

}  // namespace nubo
