#pragma once
// Random numbers: two independent Mersenne Twisters, MT19937 of Matsumoto and Nishimura (1998), as in the authors'
// reference of 2002 ("mt19937ar").
#include <array>
#include <cstddef>
#include <cstdint>
#include <span>

namespace nubo {

/// One generator of 32-bit words.
class MersenneTwister {
public:
    /// The reference's `init_genrand`: a single word of seed.
    void seed(std::uint32_t word);
    /// The reference's `init_by_array`; `words` holds at least one.
    void seed(std::span<const std::uint32_t> words);
    bool is_seeded() const { return is_seeded_; }
    /// The next word, all 32 bits random.
    std::uint32_t next();

    static constexpr std::size_t state_words = 624;

private:
    void refill();

    std::array<std::uint32_t, state_words> state_{};
    std::size_t at_ = state_words;
    bool is_seeded_ = false;
};

/// The two generators of the program. The first serves the paint engine, on the main flow; the second the framework, on
/// both flows, each of which has its own: two can't step one state.
inline MersenneTwister random_first;
inline constinit thread_local MersenneTwister random_second;

/// Seeds both from "/dev/urandom", or else from the time. Called once at start; tests seed the generators themselves.
void UA_seed_random();

/// A random number from 0 to `n` - 1 of the first generator; 0 for an `n` of 1 or less, which draws nothing.
int UA_random(int n);

/// The same of the second generator. Callable from both flows.
int UA_random_b(int n);

/// As long as it lives the draws of `UA_random` are kept, to be given again. Not one in another.
class RandomTape {
public:
    RandomTape();
    ~RandomTape();
    RandomTape(const RandomTape&) = delete;
    RandomTape& operator=(const RandomTape&) = delete;
    /// The next draws are those from the first on, as far as there are.
    void rewind();
};

/// Takes the draws of both from `source`, which is called with each n above 1; null goes back to the generator.
/// For tests that tell beforehand what is drawn.
void set_random_source(int (*source)(int n));

}  // namespace nubo
