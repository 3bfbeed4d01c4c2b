#include "framework/scrambler.h"

#include <gtest/gtest.h>
#include <numeric>

namespace nubo {
namespace {

using Bytes = std::vector<std::uint8_t>;

TEST(Scrambler, WalksTheKeyByItsOwnBytes) {
    // By hand: the key begins 9d 37 c2 58 eb 14 7f a6. The index goes 0, 1 (9d mod 1 is 0), then 1 + 1 + 37h mod 3 = 3,
    // then 3 + 1 + 58h mod 5 = 7. The bytes' bits are reversed: 01 is 80.
    EXPECT_EQ(scramble_bytes(Bytes{0x01, 0x00, 0xff, 0x00}, 0),
              (Bytes{0, 0x80 ^ 0x9d, 0x00 ^ 0x37, 0xff ^ 0x58, 0x00 ^ 0xa6}));
    EXPECT_EQ(scramble_bytes(Bytes{0xc0}, 7), (Bytes{7, 0x03 ^ 0xa6}));
}

TEST(Scrambler, RoundTripsWithEverySeed) {
    Bytes payload(5000);
    std::iota(payload.begin(), payload.end(), std::uint8_t{0});
    for (int seed = 0; seed < scramble_seeds; ++seed)
        EXPECT_EQ(unscramble_bytes(scramble_bytes(payload, seed)), payload);
    EXPECT_EQ(unscramble_bytes(Bytes{3}), Bytes{});
}

TEST(Scrambler, RefusesAFileWithoutASeed) {
    EXPECT_FALSE(unscramble_bytes(Bytes{}));
    EXPECT_FALSE(unscramble_bytes(Bytes{8, 1, 2}));
}

}  // namespace
}  // namespace nubo
