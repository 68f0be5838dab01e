#pragma once
// A short road with everything that a window can doubt, opened.

#include "project/LoadProject.h"
#include "support/ProjectFolder.h"
#include "support/ScriptedDialogs.h"
#include "support/Windows.h"

inline const std::initializer_list<ProjectFolder::File> kRoad{
    {"其他参数.txt", "交点法\r\n线性\r\n2\r\n3\r\n12\r\n"},
    {"平曲线参数.txt", "12000,5000,1000\r\nJD1,6000,1000,50,50,600\r\n6900,1500\r\n"},
    {"竖曲线参数.txt", "12000,100\r\n12500,110,0\r\n13500,105\r\n"},
    {"超高宽度参数.txt", "12000,13500,2,5,5,0.75,0.75,5,5,0.75,0.75,-4\r\n"},
    {"超高参数.txt", "12000,-2,-2,13500,-2,-2\r\n"},
    {"导线点参数.txt", "P0,4900,1000,\r\nP1,4950,1010,\r\n"},
};

struct Workspace {
    ScriptedDialogs dialogs;
    ScriptedPlatform seams;
    ProjectFolder folder{kRoad, "示例一"};

    Workspace() { LoadProject(); }
};
