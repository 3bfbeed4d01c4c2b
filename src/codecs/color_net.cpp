#include "codecs/color_net.h"

#include "base/color.h"
#include <algorithm>
#include <climits>
#include <cstdlib>

// The search is written once, as the formulas stand, and compiled for each width, as the rows of `blend_rows.cpp` are.
#if defined(__x86_64__)
#define NUBO_FOR_AVX2 [[gnu::target("avx2")]]
#endif
#define NUBO_IN_PLACE [[gnu::always_inline]] inline

namespace nubo {
namespace {

// The constants of the algorithm, by the names of its paper.
constexpr int cycles = 100;
constexpr int net_bias_shift = 4;  // bits more than a colour's
constexpr int int_bias_shift = 16, int_bias = 1 << int_bias_shift;
constexpr int gamma_shift = 10, beta_shift = 10;
constexpr int beta = int_bias >> beta_shift, beta_gamma = int_bias << (gamma_shift - beta_shift);
constexpr int radius_bias_shift = 6, radius_start = static_cast<int>(net_size >> 3) << radius_bias_shift;
constexpr int radius_decrease = 30;
constexpr int alpha_bias_shift = 10, alpha_start = 1 << alpha_bias_shift;
constexpr int rad_bias_shift = 8, rad_bias = 1 << rad_bias_shift;
constexpr int alpha_rad_bias = 1 << (alpha_bias_shift + rad_bias_shift);

// ---- Search --------------------------------------------------------------------------------------------------------

/// The neuron whose distance less its bias is the least learns; the nearest has its frequency counted. In both the
/// first of equals: the number of the neuron stands below the distance in one word.
NUBO_IN_PLACE std::size_t search_loop(Neurons& n, int blue, int green, int red) {
    constexpr int number_bits = 8, number_mask = (1 << number_bits) - 1;
    int nearest = INT_MAX, favored = INT_MAX;
    for (int i = 0; i < static_cast<int>(net_size); ++i) {
        const auto at = static_cast<std::size_t>(i);
        const int distance = std::abs(n.blue[at] - blue) + std::abs(n.green[at] - green) + std::abs(n.red[at] - red);
        const int biased = distance - (n.bias[at] >> (int_bias_shift - net_bias_shift));
        nearest = std::min(nearest, distance * (1 << number_bits) + i);
        favored = std::min(favored, biased * (1 << number_bits) + i);
        const int less = n.frequency[at] >> beta_shift;
        n.frequency[at] -= less;
        n.bias[at] += less * (1 << gamma_shift);
    }
    const auto winner = static_cast<std::size_t>(nearest & number_mask);
    n.frequency[winner] += beta;
    n.bias[winner] -= beta_gamma;
    return static_cast<std::size_t>(favored & number_mask);
}

std::size_t search_plain(Neurons& n, int blue, int green, int red) { return search_loop(n, blue, green, red); }

#ifdef NUBO_FOR_AVX2
NUBO_FOR_AVX2 std::size_t search_avx2(Neurons& n, int blue, int green, int red) {
    return search_loop(n, blue, green, red);
}
#endif

constexpr std::array search_forms{
    NetSearch{"plain", search_plain},
#ifdef NUBO_FOR_AVX2
    NetSearch{"avx2", search_avx2},
#endif
};

/// Moves a component by `strength` / `whole` of its way to `to`.
void move(int& component, int to, int strength, int whole) { component -= strength * (component - to) / whole; }

}  // namespace

std::span<const NetSearch> net_search_forms() {
#ifdef NUBO_FOR_AVX2
    if (__builtin_cpu_supports("avx2") != 0) return search_forms;
#endif
    return std::span(search_forms).first(1);
}

// ---- Learning ------------------------------------------------------------------------------------------------------

ColorNet::ColorNet(std::size_t samples, int sample, const NetSearch& search)
    : search_(search), interval_(std::max<std::size_t>(samples / cycles, 1)), until_cooler_(interval_),
      alpha_decrease_(30 + (sample - 1) / 3), alpha_(alpha_start), radius_(radius_start) {
    for (std::size_t i = 0; i < net_size; ++i)
        neurons_.blue[i] = neurons_.green[i] = neurons_.red[i] = static_cast<int>(i) << net_bias_shift;  // grays
    neurons_.frequency.fill(int_bias / static_cast<int>(net_size));
    neurons_.bias.fill(0);
    set_strengths();
}

void ColorNet::learn(Color color) {
    const int blue = blue_of(color) << net_bias_shift, green = green_of(color) << net_bias_shift,
              red = red_of(color) << net_bias_shift;
    const std::size_t winner = search_.nearest(neurons_, blue, green, red);
    move(neurons_.blue[winner], blue, alpha_, alpha_start);
    move(neurons_.green[winner], green, alpha_, alpha_start);
    move(neurons_.red[winner], red, alpha_, alpha_start);
    move_neighbors(static_cast<int>(winner), blue, green, red);
    if (--until_cooler_ == 0) cool_down();
}

void ColorNet::move_neighbors(int winner, int blue, int green, int red) {
    const auto move_one = [&](int i, int distance) {
        const auto at = static_cast<std::size_t>(i);
        const int strength = strengths_[static_cast<std::size_t>(distance)];
        move(neurons_.blue[at], blue, strength, alpha_rad_bias);
        move(neurons_.green[at], green, strength, alpha_rad_bias);
        move(neurons_.red[at], red, strength, alpha_rad_bias);
    };
    const int last = std::min(winner + reach_, static_cast<int>(net_size)) - 1,
              first = std::max(winner - reach_, -1) + 1;
    for (int i = winner + 1; i <= last; ++i) move_one(i, i - winner);
    for (int i = winner - 1; i >= first; --i) move_one(i, winner - i);
}

void ColorNet::cool_down() {
    until_cooler_ = interval_;
    alpha_ -= alpha_ / alpha_decrease_;
    radius_ -= radius_ / radius_decrease;
    set_strengths();
}

void ColorNet::set_strengths() {
    reach_ = radius_ >> radius_bias_shift;
    if (reach_ <= 1) reach_ = 0;
    const int square = reach_ * reach_;
    for (int i = 0; i < reach_; ++i)
        strengths_[static_cast<std::size_t>(i)] = alpha_ * ((square - i * i) * rad_bias / square);
}

Color ColorNet::color(std::size_t i) const {
    const auto rounded = [](int component) {
        return std::min((component + (1 << (net_bias_shift - 1))) >> net_bias_shift, 255);
    };
    return pack_color(rounded(neurons_.red[i]), rounded(neurons_.green[i]), rounded(neurons_.blue[i]));
}

}  // namespace nubo
