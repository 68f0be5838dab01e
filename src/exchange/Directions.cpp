#include "exchange/Directions.h"

#include "exchange/LandXmlUnits.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <numbers>
#include <string_view>

namespace {

constexpr double kPiTrue = std::numbers::pi;

/// A written direction and the azimuth that the points give.
struct Pair {
    double written, azimuth;  // radians
    double tolerance;
};

struct Convention {
    std::string_view name;
    double (*azimuth)(double written);
};
constexpr std::array kConventions{
    Convention{"从北起顺时针", [](double d) { return d; }},
    Convention{"从东起逆时针", [](double d) { return kPiTrue / 2 - d; }},
    Convention{"从北起逆时针", [](double d) { return -d; }},
    Convention{"从东起顺时针", [](double d) { return kPiTrue / 2 + d; }},
    Convention{"从南起顺时针", [](double d) { return kPiTrue + d; }},
};

bool follow(const std::vector<Pair>& pairs, const Convention& convention)
{
    return std::all_of(pairs.begin(), pairs.end(), [&](const Pair& p) {
        return std::abs(std::remainder(convention.azimuth(p.written) - p.azimuth, 2 * kPiTrue)) <= p.tolerance;
    });
}

}  // namespace

std::vector<std::string> CheckDirections(const landxml::Alignment& road, const Shape& shape, landxml::AngleUnit unit)
{
    std::vector<Pair> pairs;
    for (const auto& solved : shape.elements) {
        const auto* found = &road.elements[solved.source];
        const double tolerance = std::max(2e-4, 0.002 / std::max(solved.length, 0.001));
        if (found->dirStart) pairs.push_back({landxml::RadiansOf(*found->dirStart, unit), solved.az, tolerance});
        if (found->dirEnd) pairs.push_back({landxml::RadiansOf(*found->dirEnd, unit), solved.endAz, tolerance});
    }
    if (pairs.empty()) return {};
    for (const auto& convention : kConventions) {
        if (!follow(pairs, convention)) continue;
        if (&convention == &kConventions.front()) return {};
        return {"文件里的方向（dir）是" + std::string(convention.name) + "的，与坐标一致；导入只用坐标"};
    }
    return {"文件里的方向（dir，单位" + std::string(landxml::NameOf(unit)) + "）与坐标不符，没有采用"};
}
