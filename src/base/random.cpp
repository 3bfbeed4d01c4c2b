#include "base/random.h"

#include "state/shared.h"
#include <algorithm>
#include <bit>
#include <cstdio>
#include <ctime>
#include <memory>
#include <vector>

namespace nubo {
namespace {

using SeedWords = std::array<std::uint32_t, MersenneTwister::state_words>;

int (*random_source)(int n) = nullptr;

/// What `UA_random` gave since a tape was begun.
struct Tape {
    std::vector<int> draws;
    std::size_t next = 0;
    bool runs = false;
};
Tape tape;
std::array<Shared<std::uint32_t>, MersenneTwister::state_words>
    words_for_handlers{};  // their flow seeds itself by them

/// A bounded number by rejection: the masked output is drawn anew until it is in range, so that none is favoured.
int bounded(MersenneTwister& generator, int n) {
    if (n <= 1) return 0;
    const auto last = static_cast<std::uint32_t>(n) - 1;
    const std::uint32_t mask = std::bit_ceil(last + 1) - 1;
    for (;;)
        if (const std::uint32_t drawn = generator.next() & mask; drawn <= last) return static_cast<int>(drawn);
}

/// Hashes the bytes of the time and the processor clock into one word (FNV-1a).
std::uint32_t time_seed() {
    const std::time_t now = std::time(nullptr);
    const std::clock_t ticks = std::clock();
    std::uint32_t hash = 2166136261U;
    const auto take = [&hash](const void* bytes, std::size_t size) {
        for (std::size_t i = 0; i < size; ++i) hash = (hash ^ static_cast<const unsigned char*>(bytes)[i]) * 16777619U;
    };
    take(&now, sizeof now);
    take(&ticks, sizeof ticks);
    return hash;
}

struct FileCloser {
    void operator()(std::FILE* file) const { std::fclose(file); }
};

bool read_seed(SeedWords& words) {
    const std::unique_ptr<std::FILE, FileCloser> urandom(std::fopen("/dev/urandom", "rb"));
    return urandom && std::all_of(words.begin(), words.end(), [&](std::uint32_t& word) {
               return std::fread(&word, sizeof word, 1, urandom.get()) == 1;
           });
}

void seed_generator(MersenneTwister& generator) {
    if (SeedWords words{}; read_seed(words))
        generator.seed(words);
    else
        generator.seed(time_seed());
}

/// A handler draws on a thread of its own, whose generator hasn't been seeded.
void seed_this_flow() {
    SeedWords words{};
    std::copy(words_for_handlers.begin(), words_for_handlers.end(), words.begin());
    random_second.seed(words);
}

}  // namespace

void MersenneTwister::seed(std::uint32_t word) {
    is_seeded_ = true;
    state_[0] = word;
    for (std::uint32_t i = 1; i < state_words; ++i)
        state_[i] = 1812433253U * (state_[i - 1] ^ (state_[i - 1] >> 30)) + i;
    at_ = state_words;
}

void MersenneTwister::seed(std::span<const std::uint32_t> words) {
    seed(19650218U);
    std::size_t i = 1, j = 0;
    const auto step_i = [&] {
        if (++i < state_words) return;
        state_[0] = state_[state_words - 1];
        i = 1;
    };
    for (std::size_t k = std::max(state_words, words.size()); k > 0; --k) {
        state_[i] = (state_[i] ^ ((state_[i - 1] ^ (state_[i - 1] >> 30)) * 1664525U)) + words[j] +
                    static_cast<std::uint32_t>(j);
        step_i();
        if (++j == words.size()) j = 0;
    }
    for (std::size_t k = state_words - 1; k > 0; --k) {
        state_[i] =
            (state_[i] ^ ((state_[i - 1] ^ (state_[i - 1] >> 30)) * 1566083941U)) - static_cast<std::uint32_t>(i);
        step_i();
    }
    state_[0] = 0x80000000U;
}

void MersenneTwister::refill() {
    constexpr std::size_t middle = 397;
    for (std::size_t k = 0; k < state_words; ++k) {
        const std::uint32_t y = (state_[k] & 0x80000000U) | (state_[(k + 1) % state_words] & 0x7fffffffU);
        state_[k] = state_[(k + middle) % state_words] ^ (y >> 1) ^ ((y & 1U) != 0 ? 0x9908b0dfU : 0U);
    }
    at_ = 0;
}

std::uint32_t MersenneTwister::next() {
    if (at_ == state_words) refill();
    std::uint32_t y = state_[at_++];
    y ^= y >> 11;
    y ^= (y << 7) & 0x9d2c5680U;
    y ^= (y << 15) & 0xefc60000U;
    return y ^ (y >> 18);
}

void UA_seed_random() {
    seed_generator(random_first);
    seed_generator(random_second);
    for (auto& word : words_for_handlers) word = random_second.next();
}

namespace {

int drawn(int n) { return n > 1 && random_source != nullptr ? random_source(n) : bounded(random_first, n); }

}  // namespace

int UA_random(int n) {
    if (!tape.runs) return drawn(n);
    if (tape.next == tape.draws.size()) tape.draws.push_back(drawn(n));
    return tape.draws[tape.next++];
}

RandomTape::RandomTape() { tape.runs = true; }
RandomTape::~RandomTape() {
    tape.draws.clear();
    tape.next = 0;
    tape.runs = false;
}
void RandomTape::rewind() { tape.next = 0; }

int UA_random_b(int n) {
    if (n > 1 && random_source != nullptr) return random_source(n);
    if (!random_second.is_seeded()) seed_this_flow();
    return bounded(random_second, n);
}

void set_random_source(int (*source)(int n)) { random_source = source; }

}  // namespace nubo
