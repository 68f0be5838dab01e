#pragma once
// A project of a long road with all its tables.

#include "support/ProjectFolder.h"

#include <cstdio>
#include <string>

/// A zigzag of `points` intersection points 400 m apart, with one row of every other table a point.
inline void writeRoad(const ProjectFolder& folder, int points)
{
    const auto number = [](double value) {
        char text[40];
        std::snprintf(text, sizeof text, "%.3f", value);
        return std::string(text);
    };
    std::string route = "0,3000000,500000\r\n", profile = "0,100\r\n", slopes, widths;
    for (int i = 1; i <= points; ++i) {
        const std::string stake = number(i * 390.0), next = number((i + 1) * 390.0);
        route += "JD" + std::to_string(i) + "," + number(3000000 + i * 400.0) + "," + number(500000 + i % 2 * 120.0) +
                 ",50,60," + number(250 + i % 90) + "\r\n";
        profile += stake + "," + number(100 + i % 7) + ",6000\r\n";
        slopes += stake + ",-2,-2," + next + ",4,-4\r\n";
        widths += stake + "," + next + ",2,5,5,1,1,6,6,1,1,-4\r\n";
    }
    folder.write("其他参数.txt", "交点法\r\n线性\r\n2\r\n3\r\n12\r\n");
    folder.write("平曲线参数.txt", route + number(3000000 + (points + 1) * 400.0) + ",500000\r\n");
    folder.write("竖曲线参数.txt", profile + number((points + 1) * 390.0) + ",100\r\n");
    folder.write("超高参数.txt", slopes);
    folder.write("超高宽度参数.txt", widths);
    folder.write("断链参数.txt", "50000,50030\r\n90000,89980\r\n");
    folder.write("导线点参数.txt", "导线点一,3000000,500000,\r\n");
}
