#include "base/random.h"
#include "harness/harness.h"

#include <thread>

namespace nubo {
namespace {

TEST(MersenneTwister, GivesTheWordsOfTheStandardLibrarysOwn) {
    std::mt19937 reference(5489U);
    MersenneTwister ours;
    ours.seed(5489U);
    for (int i = 0; i < 2000; ++i) ASSERT_EQ(ours.next(), reference()) << i;
}

TEST(MersenneTwister, SeedsFromAnArrayAsTheAuthorsPrintedOutput) {
    // The first numbers of the reference's "mt19937ar.out", for the array {0x123, 0x234, 0x345, 0x456}.
    constexpr std::array<std::uint32_t, 4> words{0x123, 0x234, 0x345, 0x456};
    MersenneTwister ours;
    ours.seed(words);
    for (const std::uint32_t expected : {1067595299U, 955945823U, 477289528U, 4107218783U, 4228976476U})
        EXPECT_EQ(ours.next(), expected);
}

TEST(RandomNumbers, StayInRangeAndReachBothEnds) {
    EXPECT_EQ(UA_random(1), 0);
    EXPECT_EQ(UA_random(0), 0);
    EXPECT_EQ(UA_random(-5), 0);
    std::array<int, 5> seen{};
    for (int i = 0; i < 500; ++i) {
        const int drawn = UA_random(5);
        ASSERT_TRUE(drawn >= 0 && drawn < 5);
        ++seen[static_cast<std::size_t>(drawn)];
    }
    for (const int count : seen) EXPECT_GT(count, 50);  // 100 each on average
}

TEST(RandomNumbers, EachFlowHasAFrameworksGeneratorOfItsOwn) {
    UA_seed_random();
    random_second.seed(5489U);
    std::mt19937 reference(5489U);
    std::array<int, 64> seen{};
    const auto draw = [&seen] {
        for (int i = 0; i < 2000; ++i) ++seen[static_cast<std::size_t>(UA_random_b(64))];
    };
    std::thread(draw).join();
    for (const int count : seen) EXPECT_GT(count, 5);  // it is seeded; 31 each on average
    EXPECT_EQ(UA_random_b(64), static_cast<int>(reference() & 63)) << "the other flow stepped this one's";
}

}  // namespace
}  // namespace nubo
