#pragma once
// Which colours pictures have, how often, and the few that stand best for all of them.
#include "codecs/nearest_color.h"
#include "state/colors.h"
#include <allegro.h>
#include <cstddef>
#include <cstdint>
#include <unordered_map>
#include <vector>

namespace nubo {

/// The colours of one picture or of several. Takes some 10 MiB, and throws without them.
class ColorUse {
public:
    /// Pixels of `kept`, the mask colour, are counted, but nothing is to stand for them.
    explicit ColorUse(Color kept = nothing_kept);

    void add(BITMAP* picture);

    /// The number of different colours, `kept` among them.
    std::size_t count() const { return others_ + (has_kept() ? 1 : 0); }
    bool has_kept() const { return has_kept_; }

    /// At most `most`, 1 to 256, colours for all pixels but those of `kept`: their own by falling use where they are no
    /// more, else the means of as many groups of alike colours. None of them is `kept`.
    std::vector<Color> best_colors(std::size_t most) const;

private:
    /// Colours that have the upper six bits of each component in common.
    struct Bin {
        std::uint64_t count = 0, red = 0, green = 0, blue = 0;
    };
    void add(Color color, std::uint64_t times);
    std::vector<Color> by_use() const;

    Color kept_;
    bool has_kept_ = false;
    std::size_t others_ = 0;
    std::vector<std::uint64_t> seen_;                // a bit for each colour
    std::unordered_map<Color, std::uint64_t> uses_;  // as long as there are at most 256
    std::vector<Bin> bins_;
};

}  // namespace nubo
