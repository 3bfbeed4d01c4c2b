#pragma once
// The neural net that learns 256 colours: a line of neurons, of which the nearest to each sample and its neighbours
// move toward it, less and less of them and by less and less.
#include "state/colors.h"
#include <array>
#include <cstddef>
#include <span>

namespace nubo {

inline constexpr std::size_t net_size = 256;

/// The neurons, a column for each quantity. Components have 4 bits more than a colour's.
struct Neurons {
    alignas(64) std::array<int, net_size> blue, green, red;
    alignas(64) std::array<int, net_size> frequency, bias;  // of being the nearest, in 65536ths; what favours the rare
};

/// One form of the search for the neuron that learns a sample; each gives the same. It also moves all frequencies and
/// biases.
struct NetSearch {
    const char* name;
    std::size_t (*nearest)(Neurons& neurons, int blue, int green, int red);
};
/// The forms that this processor runs, from "plain" to the widest.
std::span<const NetSearch> net_search_forms();

class ColorNet {
public:
    /// For `samples` samples in all, every `sample`-th pixel of the picture.
    ColorNet(std::size_t samples, int sample, const NetSearch& search = net_search_forms().back());

    void learn(Color color);

    /// What neuron i has come to.
    Color color(std::size_t i) const;

private:
    void move_neighbors(int winner, int blue, int green, int red);
    void cool_down();
    void set_strengths();

    Neurons neurons_;
    const NetSearch& search_;
    std::size_t interval_, until_cooler_;  // samples
    int alpha_decrease_, alpha_, radius_;
    int reach_ = 0;                              // neurons to either side that learn too
    std::array<int, net_size / 8> strengths_{};  // by their distance from the winner
};

}  // namespace nubo
