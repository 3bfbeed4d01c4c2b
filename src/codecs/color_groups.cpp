#include "codecs/color_groups.h"

#include "base/color.h"
#include "codecs/nearest_color.h"
#include <algorithm>
#include <cmath>
#include <span>

namespace nubo {
namespace {

using Components = std::array<double, 3>;

/// Sums over some colours, from which their mean and their spread follow.
struct Sums {
    double weight = 0;
    Components first{}, second{};  // of the components, and of their squares
    void add(const WeighedColor& color) {
        weight += color.weight;
        for (std::size_t i = 0; i < first.size(); ++i) {
            first[i] += color.weight * color.rgb[i];
            second[i] += color.weight * color.rgb[i] * color.rgb[i];
        }
    }
    /// The sum of squared differences from the mean along one component.
    double spread(std::size_t i) const { return weight > 0 ? second[i] - first[i] * first[i] / weight : 0; }
};

Color whole_color(const Components& sum, double weight, Color kept) {
    const auto rounded = [&](std::size_t i) { return clamp_component(std::lround(sum[i] / weight)); };
    const Color color = pack_color(rounded(0), rounded(1), rounded(2));
    return color == kept ? color ^ 1 : color;
}

// ---- Cutting -------------------------------------------------------------------------------------------------------

struct Box {
    std::span<WeighedColor> colors;
    Sums sums;
    std::size_t longest = 0;  // the component along which it spreads most
    double spread = 0;        // there; 0 where it can't be cut
};

Box box_of(std::span<WeighedColor> colors) {
    Box box{colors, {}};
    for (const WeighedColor& color : colors) box.sums.add(color);
    for (std::size_t i = 0; i < 3; ++i)
        if (box.sums.spread(i) > box.sums.spread(box.longest)) box.longest = i;
    if (colors.size() > 1) box.spread = box.sums.spread(box.longest);
    return box;
}

/// How many of the colours, which are in order along the box's longest component, go to its lower half: those with
/// which both halves spread least.
std::size_t best_cut(const Box& box) {
    const std::size_t along = box.longest;
    double weight = 0, sum = 0, best = -1;
    std::size_t cut = 1;
    for (std::size_t i = 0; i + 1 < box.colors.size(); ++i) {
        weight += box.colors[i].weight;
        sum += box.colors[i].weight * box.colors[i].rgb[along];
        const double rest = box.sums.first[along] - sum;
        const double gain = sum * sum / weight + rest * rest / (box.sums.weight - weight);
        if (gain > best) best = gain, cut = i + 1;
    }
    return cut;
}

std::vector<Box> cut_into_boxes(std::span<WeighedColor> colors, std::size_t most) {
    std::vector<Box> boxes{box_of(colors)};
    while (boxes.size() < most) {
        const auto widest = std::ranges::max_element(boxes, {}, &Box::spread);
        if (widest->spread <= 0) break;
        const Box box = *widest;
        std::ranges::sort(box.colors, {}, [along = box.longest](const WeighedColor& c) { return c.rgb[along]; });
        const std::size_t cut = best_cut(box);
        *widest = box_of(box.colors.first(cut));
        boxes.push_back(box_of(box.colors.subspan(cut)));
    }
    return boxes;
}

// ---- Moving --------------------------------------------------------------------------------------------------------

/// The means of what is nearest to each of the colours; one that is nearest to nothing stays.
void move_to_means(std::vector<Color>& means, std::span<const WeighedColor> colors, Color kept) {
    NearestColor nearest(means, kept);
    std::vector<Sums> sums(means.size());
    for (const WeighedColor& color : colors)
        sums[static_cast<std::size_t>(nearest.slot_of(whole_color(color.rgb, 1, kept)))].add(color);
    for (std::size_t i = 0; i < means.size(); ++i)
        if (sums[i].weight > 0) means[i] = whole_color(sums[i].first, sums[i].weight, kept);
}

}  // namespace

std::vector<Color> means_of_groups(std::vector<WeighedColor> colors, std::size_t most, Color kept) {
    constexpr int rounds = 6;  // what more of them move is hardly seen
    std::vector<Box> boxes = cut_into_boxes(colors, most);
    std::ranges::stable_sort(boxes, std::greater{}, [](const Box& box) { return box.sums.weight; });
    std::vector<Color> means;
    for (const Box& box : boxes) means.push_back(whole_color(box.sums.first, box.sums.weight, kept));
    for (int round = 0; round < rounds; ++round) move_to_means(means, colors, kept);
    return means;
}

}  // namespace nubo
