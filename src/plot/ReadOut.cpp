#include "plot/ReadOut.h"

#include "engine/Elevation.h"

#include <cmath>

namespace plot {

const char* nameOf(Bend bend) { return bend == Bend::Straight ? "直线" : bend == Bend::Spiral ? "缓和曲线" : "圆曲线"; }

std::string radiusText(double radius)
{
    if (radius == 0) return "∞";
    return (radius < 0 ? "左" : "右") + shortest(std::abs(radius), 3);
}

std::string describe(const Element& e)
{
    std::string text = nameOf(e.bend);
    if (e.bend == Bend::Arc) text += " R=" + radiusText(e.r1);
    if (e.bend == Bend::Spiral) text += " R=" + radiusText(e.r1) + "～" + radiusText(e.r2);
    if (const auto a = e.parameter()) text += " A=" + fixed(*a, 3);
    return text + " L=" + fixed(e.length(), 3);
}

std::optional<ReadOut> readOutAt(const Road& road, Point p)
{
    const auto foot = road.footOf(p);
    if (!foot) return {};
    ReadOut out{
        p.y + road.origin().y, p.x + road.origin().x, *foot, surfaceAt(road.tables(), foot->stake, foot->offset), {}};
    const double offset = std::round(foot->offset * 1000) / 1000;
    out.text = "X " + fixed(out.x, 3) + "   Y " + fixed(out.y, 3) + "   " + road.stakeText(foot->stake) + "   " +
               (offset == 0 ? "中" : (offset < 0 ? "左" : "右") + fixed(std::abs(offset), 3) + "米");
    if (out.elevation) out.text += "   高程 " + fixed(*out.elevation, 3);
    out.text += "   " + describe(road.elements()[foot->element]);
    return out;
}

std::string profileReadOut(const Road& road, double stake)
{
    const Tables& t = road.tables();
    const RoadSection section = sectionAt(t, stake);
    std::string text = road.stakeText(stake);
    const auto add = [&](const char* name, double offset) {
        if (const auto e = surfaceAt(t, stake, offset)) text += "   " + std::string(name) + " " + fixed(*e, 3);
    };
    if (section.left.width > 0) add("左边缘", -section.left.width);
    add("中桩", 0);
    if (section.right.width > 0) add("右边缘", section.right.width);
    return text;
}

}  // namespace plot
