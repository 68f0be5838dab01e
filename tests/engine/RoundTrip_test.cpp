// Random roads of both models, there and back.

#include "support/RandomRoute.h"
#include "support/RoundTrip.h"

#include <gtest/gtest.h>

#include <random>

namespace {

class RoundTripTest : public FreshTables<testing::Test> {
protected:
    static constexpr int kRoads = 200, kPoints = 100;
};

TEST_F(RoundTripTest, RoadsOfIntersectionPoints)
{
    std::mt19937_64 random(10);
    RoundTrip trip;
    for (int road = 0; road < kRoads; ++road) {
        setRoute(randomVertices(random, 1 + road % 8));
        trip.goRandomly(random, kPoints, 1000);
    }
    trip.print("intersection points");
    EXPECT_TRUE(trip.unexplained.empty());
    EXPECT_GT(trip.good, trip.points * 9 / 10);
}

TEST_F(RoundTripTest, RoadsOfBlocks)
{
    std::mt19937_64 random(11);
    RoundTrip trip;
    for (int road = 0; road < kRoads; ++road) {
        setBlocks(random, 3 + road % 12);
        trip.goRandomly(random, kPoints, 1000);
    }
    trip.print("blocks");
    EXPECT_TRUE(trip.unexplained.empty());
    EXPECT_GT(trip.good, trip.points * 9 / 10);
}

}  // namespace
