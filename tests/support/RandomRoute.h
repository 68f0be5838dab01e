#pragma once
// Random but sensible roads, from a seed, laid out by the exact geometry and stored as the tables store them.

#include "base/Numbers.h"
#include "engine/Element.h"
#include "support/Tables.h"
#include "support/TrueGeometry.h"

#include <algorithm>
#include <random>
#include <vector>

/// A polygon of `count` intersection points with unequal spirals, both turns; the tangents never overlap.
inline std::vector<truth::Vertex> randomVertices(std::mt19937_64& random, int count)
{
    using Uniform = std::uniform_real_distribution<double>;
    const auto draw = [&](double from, double to) { return Uniform(from, to)(random); };
    std::vector<truth::Vertex> vertices{{static_cast<double>(3000000), static_cast<double>(500000)}};
    double az = draw(0, 6.28), free = 50;  // of the leg so far
    for (int i = 0; i < count; ++i) {
        truth::Vertex v;
        const double turn = draw(0.12, i % 7 == 3 ? 2.2 : 1.1);
        v.r = std::round(draw(60, 900));
        const double arc = turn * static_cast<double>(v.r);
        v.ls1 = std::round(draw(0.1, 0.6) * arc);
        v.ls2 = std::round(draw(0.1, 0.6) * arc);
        const double tangent = static_cast<double>((v.r + v.ls1 * v.ls1 / (24 * v.r)) * std::tan(turn / 2)) +
                               static_cast<double>(std::max(v.ls1, v.ls2));
        const double leg = free + tangent + draw(5, 300);
        v.x = vertices.back().x + leg * std::cos(az);
        v.y = vertices.back().y + leg * std::sin(az);
        v.x = std::round(v.x * 1000) / 1000;
        v.y = std::round(v.y * 1000) / 1000;
        vertices.push_back(v);
        free = tangent;
        // Turn back where the road has wandered off its heading, so that it goes on rather than in a circle.
        az += (az > 3.14 ? -1 : 1) * turn;
    }
    vertices.push_back({std::round(vertices.back().x + (free + 100) * std::cos(az)),
                        std::round(vertices.back().y + (free + 100) * std::sin(az))});
    return vertices;
}

/// The elements of such a road: start stake 0, points to a tenth of a micrometre, azimuths packed, the closing row as a
/// compile leaves it (0.01 behind the end, point 0 and 0).
inline void setRoute(const std::vector<truth::Vertex>& vertices, double startStake = 0)
{
    const truth::Route route = truth::routeOf(vertices, startStake);
    const auto row = [](truth::Real lc, const truth::Pose& p, double r1, double r2) {
        truth::Real az = truth::toDeg(p.az);
        if (az < 0) az += 360;
        if (az >= 360) az -= 360;
        return ElementRow{static_cast<double>(lc),
                          static_cast<double>(p.x),
                          static_cast<double>(p.y),
                          DegToDms(static_cast<double>(az)),
                          r1,
                          r2};
    };
    const auto& first = route.curves.front().zh;
    std::vector<ElementRow> rows{row(startStake, {vertices[0].x, vertices[0].y, first.az}, 0, 0)};
    for (std::size_t i = 0; i < route.curves.size(); ++i) {
        const auto& c = route.curves[i];
        const double r = static_cast<double>(vertices[i + 1].r) * (c.turn < 0 ? -1 : 1);
        rows.push_back(row(c.zhStake, c.zh, 0, r));
        rows.push_back(row(c.zhStake + c.in.length, c.hy, r, r));
        rows.push_back(row(c.zhStake + c.length - c.out.length, c.yh, r, 0));
        rows.push_back(row(c.zhStake + c.length, c.hz, 0, 0));
    }
    rows.push_back({static_cast<double>(route.endStake) + 0.01, 0, 0, rows[rows.size() - 5].fwj, 0, 0});
    setElements(rows);
}

/// A chain of blocks as the block editor makes it: each start is the rounded end of the block before; straights, arcs,
/// spirals from a straight and between two radii; the closing row 0.0001 behind the end, all zeros.
inline void setBlocks(std::mt19937_64& random, int count)
{
    const auto draw = [&](double from, double to) { return std::uniform_real_distribution<double>(from, to)(random); };
    std::vector<ElementRow> rows;
    ElementPoint at{Fixed3(draw(2e6, 4e6)), Fixed3(draw(4e5, 6e5)), DegToDms(draw(0, 360))};
    double stake = Fixed3(draw(0, 5000)), radius = 0;
    for (int i = 0; i < count; ++i) {
        const int kind = static_cast<int>(random() % 3);  // as it was, to or from a straight, to another radius
        const double next = kind == 0   ? radius
                            : kind == 1 ? (radius == 0 ? (random() % 2 ? 1 : -1) * Fixed3(draw(60, 800)) : 0)
                                        : (radius < 0 ? -1 : 1) * Fixed3(draw(60, 800));
        const double length = Fixed3(draw(20, radius == 0 && next == 0 ? 300 : 90));
        rows.push_back({stake, at.x, at.y, at.fwj, radius, next});
        at = ForwardElement(length, radius, next, at.fwj, at.x, at.y);
        stake += length;
        radius = next;
    }
    rows.push_back({stake + 0.0001, 0, 0, 0, 0, 0});
    setElements(rows);
}
