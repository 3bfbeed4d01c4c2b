#pragma once
// Many colours in few groups: boxes of the colour space are cut in two where that makes their colours most alike, and
// then each colour goes to the mean that is nearest to it.
#include "state/colors.h"
#include <array>
#include <cstddef>
#include <vector>

namespace nubo {

/// A colour between the whole ones, and how many pixels it stands for.
struct WeighedColor {
    std::array<double, 3> rgb{};  // 0 to 255 each
    double weight = 0;
};

/// The means of at most `most`, 1 to 256, groups, in whole numbers; a mean that would be `kept` is one off in blue.
std::vector<Color> means_of_groups(std::vector<WeighedColor> colors, std::size_t most, Color kept);

}  // namespace nubo
