#pragma once
// Roads by chance, as the lines of their parameter files.

#include "exchange/NumberText.h"
#include "exchange/RoadFiles.h"

#include "base/Numbers.h"
#include "engine/Element.h"

#include <cmath>
#include <random>
#include <string>

class RandomRoad {
public:
    explicit RandomRoad(unsigned seed) : m_random(seed) {}

    RoadFiles vertices()
    {
        RoadFiles road = frame("交点法");
        double x = number(-1e6, 4e6), y = number(-1e5, 9e5), az = number(0, 360);
        std::vector<std::string> lines{rounded(number(0, 50000)) + "," + rounded(x) + "," + rounded(y)};
        const int count = whole(1, 6);
        for (int i = 0; i <= count; ++i) {
            const double leg = number(900, 1500);
            x += leg * std::cos(az * kPi / 180);
            y += leg * std::sin(az * kPi / 180);
            const double turn = number(3, 110) * (whole(0, 1) ? 1 : -1), radius = std::floor(number(60, 250));
            if (i == count) {
                lines.push_back(rounded(x) + "," + rounded(y));
                break;
            }
            // Spirals that leave an arc between them.
            const double arc = std::abs(turn) * kPi / 180 * radius * (std::abs(turn) < 15 ? 8 : 1);
            lines.push_back("交点" + std::to_string(i + 1) + "," + rounded(x) + "," + rounded(y) + "," + spiral(arc) +
                            "," + spiral(arc) + "," + rounded(radius * (std::abs(turn) < 15 ? 8 : 1)));
            az += turn;
        }
        road["平曲线参数.txt"] = lines;
        return road;
    }

    RoadFiles blocks()
    {
        RoadFiles road = frame("积木法");
        double x = number(-1e6, 4e6), y = number(-1e5, 9e5), stake = std::floor(number(0, 50000));
        double az = DegToDms(number(0, 360)), r = 0;
        std::vector<std::string> lines;
        for (int i = whole(2, 12); i > 0; --i) {
            const double length = std::floor(number(20, 200) * 1000) / 1000;
            double next = whole(0, 2) == 0   ? r
                          : whole(0, 2) == 0 ? 0
                                             : std::floor(number(80, 2000)) * (whole(0, 1) ? 1 : -1);
            if (i == 1) next = r;  // the closing row lies beyond the end and stretches the last spiral
            const auto end = ForwardElement(length, r, next, az, x, y);
            lines.push_back(ShortestText(stake) + "," + ShortestText(stake + length) + "," + ShortestText(x) + "," +
                            ShortestText(y) + "," + NumText(az) + "," + NumText(r) + "," + NumText(next));
            x = end.x;
            y = end.y;
            az = end.fwj;
            stake += length;
            r = next;
        }
        road["平曲线参数.txt"] = lines;
        return road;
    }

private:
    RoadFiles frame(const std::string& model)
    {
        RoadFiles road;
        road["其他参数.txt"] = {model, whole(0, 1) ? "线性" : "三次抛物线", "未设置", "未设置", "0"};
        std::vector<std::string> grades{"0," + rounded(number(0, 500))};
        double stake = 0;
        for (int i = whole(1, 5); i > 0; --i) {
            stake += std::floor(number(400, 900));
            grades.push_back(rounded(stake) + "," + rounded(number(0, 20) + 100) + "," +
                             rounded(std::floor(number(500, 2000))));
        }
        grades.push_back(rounded(stake + 700) + ",100.5");
        if (whole(0, 3)) road["竖曲线参数.txt"] = grades;
        if (whole(0, 1)) road["超高参数.txt"] = {"100,-2,-2,160,4,-4", "160,4,-4,300,4,-4", "300,4,-4,380,-2,-2"};
        if (whole(0, 1)) road["超高宽度参数.txt"] = {"0,900,2,12.25,12.25,.75,.75,13.00,12.25,.75,.75,-4"};
        if (whole(0, 1)) road["导线点参数.txt"] = {"D1,100.5,200,", "D<2>,1,2,备注&", "D1,3,4,"};
        return road;
    }
    double number(double from, double to) { return std::uniform_real_distribution<>(from, to)(m_random); }
    int whole(int from, int to) { return std::uniform_int_distribution<>(from, to)(m_random); }
    static std::string rounded(double value) { return FixedText(value, 3); }
    std::string spiral(double arc) { return whole(0, 4) == 0 ? "0" : rounded(std::floor(number(1, arc * 0.8))); }

    std::mt19937 m_random;
};
