#include "base/geometry.h"

#include <gtest/gtest.h>

namespace nubo {
namespace {

TEST(Geometry, DistancesTruncateAndReachAcrossAllInts) {
    EXPECT_EQ(UA_distance_2d(1, 2, 4, 6), 5);
    EXPECT_EQ(UA_distance_2d(0, 0, -1, 1), 1);             // 1.41
    EXPECT_EQ(UA_distance_3d(0, 0, 0, 2, 3, 6), 7);        // 4 + 9 + 36 = 49
    EXPECT_EQ(UA_distance_3d(-3, 5, 1, -1, 2, -5), 7);     // the same, moved
    EXPECT_EQ(UA_distance_2d(0, 0, 60000, 60000), 84852);  // 84852.8; the squares pass an int
    EXPECT_EQ(UA_distance_2d(INT_MIN, INT_MIN, INT_MAX, INT_MAX), INT_MAX);
}

TEST(Geometry, DirectionsByQuadrant) {
    struct Case {
        int x, y;
        double degrees;
        int of_256;
    };
    // A right angle and its half come out just below themselves and truncate to 89 and 44 whole degrees. So larger x
    // and y, at the right below, are 44 * 0.7111111 = 31.3, 31 - 64 + 256 = 223; the others alike.
    for (const auto& [x, y, degrees, of_256] : {Case{5, 0, 270, 192},
                                                {5, 5, 315, 223},
                                                {-5, 5, 45, 32},    // 180 - 44 = 136: 96.7
                                                {-5, 0, 90, 63},    // 180: just below 128
                                                {-5, -5, 135, 95},  // 180 + 44 = 224: 159.3
                                                {0, -5, 180, 128},  // 360 - 89 = 271: 192.7
                                                {5, -5, 225, 160},  // 360 - 44 = 316: 224.7
                                                {0, 0, 270, 192},
                                                {4, 3, 306.8699, 217}}) {  // 36.87: 36 * 0.711 = 25.6
        EXPECT_NEAR(UA_angle_degrees(7, -9, 7 + x, -9 + y), degrees, 1e-4) << x << ' ' << y;
        EXPECT_EQ(UA_angle_256(7, -9, 7 + x, -9 + y), of_256) << x << ' ' << y;
    }
    for (const int below : {1, 5, 1000, INT_MAX}) {
        EXPECT_LT(UA_angle_degrees(0, 0, 0, below), 360);
        EXPECT_GT(UA_angle_degrees(0, 0, 0, below), 359.9);
        EXPECT_EQ(UA_angle_256(0, 0, 0, below), 255);  // 89 * 0.711 = 63.3
    }
}

}  // namespace
}  // namespace nubo
