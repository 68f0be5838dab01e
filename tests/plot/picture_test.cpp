// Lines, texts and their clipping.

#include "PlotTest.h"

#include "plot/Angles.h"
#include "plot/Labels.h"

#include <cmath>

using namespace plot;

TEST(PlotClip, ALineIsCutAtTheEdges)
{
    Picture picture;
    picture.line(Layer::Straight, {-10, 5}, {20, 5});
    const Picture inside = clipped(picture, {{0, 0}, {10, 10}}, 0.1);
    ASSERT_EQ(inside.entities.size(), 1u);
    const auto& points = std::get<Polyline>(inside.entities[0].shape).points;
    EXPECT_EQ(points, (std::vector<Point>{{0, 5}, {10, 5}}));
}

TEST(PlotClip, ALineThatComesBackIsTwo)
{
    Picture picture;
    picture.polyline(Layer::Straight, {{1, 1}, {1, 20}, {9, 20}, {9, 1}});
    EXPECT_EQ(clipped(picture, {{0, 0}, {10, 10}}, 0.1).entities.size(), 2u);
}

TEST(PlotClip, NothingLeavesTheBox)
{
    Picture picture;
    picture.circle(Layer::Arc, {4e6, -3e6}, 5e6 + 3);
    const Box box{{-1000, -800}, {1000, 800}};
    const Picture inside = clipped(picture, box, 0.5);
    ASSERT_FALSE(inside.entities.empty()) << "the circle passes 3 m beside the middle";
    for (const auto& entity : inside.entities)
        for (const Point p : std::get<Polyline>(entity.shape).points) EXPECT_TRUE(box.grown(1e-6).holds(p));
}

TEST(PlotArc, ChordsStayWithinTheTolerance)
{
    for (const double radius : {1.0, 50.0, 1e6}) {
        const Arc arc{{0, 0}, radius, 10, 70};
        const auto points = flattened(arc, radius / 1e5);
        for (std::size_t i = 1; i < points.size(); ++i)
            EXPECT_GT(length(0.5 * (points[i - 1] + points[i])), radius * (1 - 1.01e-5));
    }
}

TEST(PlotTransform, GoesThereAndBack)
{
    Transform by = turned(37, 2.5);
    by.shift = {100, -20};
    for (const bool down : {false, true}) {
        by.downwards = down;
        const Point p{12.5, -7}, q = by.inverse(by(p));
        EXPECT_NEAR(q.x, p.x, 1e-9);
        EXPECT_NEAR(q.y, p.y, 1e-9);
    }
}

TEST(PlotTransform, AnArcKeepsItsPoints)
{
    Picture picture;
    picture.entities.push_back({Layer::Arc, Arc{{1, 2}, 5, 20, 80}});
    for (const bool down : {false, true}) {
        Transform by = turned(30, 3);
        by.downwards = down;
        const Picture result = transformed(picture, by);
        const auto& arc = std::get<Arc>(result.entities[0].shape);
        const auto& whole = std::get<Arc>(picture.entities[0].shape);
        const Point first = by(whole.centre + whole.radius * directionOf(20));
        // On a screen, whose y runs down, angles run the other way round and the ends change places.
        const Point p = arc.centre + arc.radius * directionOf(down ? arc.to : arc.from);
        EXPECT_NEAR(p.x, first.x, 1e-9);
        EXPECT_NEAR(p.y, first.y, 1e-9);
    }
}

TEST(PlotUpright, TextsStandOnTheirFeet)
{
    for (const double turn : {0.0, 40.0, -120.0, 200.0})
        for (double a = -360; a <= 360; a += 7.5) {
            const double seen = std::remainder(upright(a, turn) + turn, 360);
            EXPECT_GT(seen, -90.001);
            EXPECT_LT(seen, 90.001);
            EXPECT_NEAR(std::abs(std::remainder(upright(a, turn) - a, 180)), 0, 1e-9) << "the same line";
        }
}

TEST(PlotLabels, TheFirstKeepsItsPlace)
{
    Labels labels;
    Picture picture;
    const Text one{{0, 0}, 2, "K12+300"};
    EXPECT_TRUE(labels.put(picture, Layer::Stakes, one, 1));
    EXPECT_FALSE(labels.put(picture, Layer::Stakes, one, 1));
    const Text choices[] = {one, {{0, 10}, 2, "K12+300"}};
    EXPECT_TRUE(labels.put(picture, Layer::Stakes, choices, 1));
    EXPECT_EQ(picture.entities.size(), 2u);
}

TEST(PlotLabels, TextsKeepInsideTheRoom)
{
    Labels labels(Box{{0, 0}, {20, 20}});
    EXPECT_FALSE(labels.take({{15, 10}, 2, "K12+300.000"}, 0));
    EXPECT_TRUE(labels.take({{19, 10}, 2, "K12+300.000", 0, Align::Right}, 0));
}
