#pragma once
// A road by blocks that fills every table, for the tests of a load.

#include "support/ProjectFolder.h"
#include "support/ScriptedDialogs.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

inline const std::vector<std::string> kFiles{"其他参数.txt",   "平曲线参数.txt", "竖曲线参数.txt",  "断链参数.txt",
                                             "导线点参数.txt", "超高参数.txt",   "超高宽度参数.txt"};
inline const std::vector<std::string> kTables(kFiles.begin() + 1, kFiles.end());

/// Every table, no breaks.
inline const std::initializer_list<ProjectFolder::File> kRoad{
    {"其他参数.txt", "积木法\r\n线性\r\n2\r\n3\r\n12\r\n"},
    {"平曲线参数.txt", "0,100,10,20,30,0,0\r\n100,200,96.6,70,30,0,50\r\n"},
    {"竖曲线参数.txt", "0,10\r\n50,12,900\r\n200,11\r\n"},
    {"断链参数.txt", ""},
    {"导线点参数.txt", "A,1,2,\r\nB,3,4,备注\r\n"},
    {"超高参数.txt", "0,-2,-2,200,-2,-2\r\n"},
    {"超高宽度参数.txt", "0,200,1,5,5,1,1,6,6,2,2,-4\r\n"},
};

/// An empty project, and a dialogs that shows boxes to nobody.
struct LoadTest : testing::Test {
    ScriptedDialogs dialogs;
    ProjectFolder folder;

    void files(std::initializer_list<ProjectFolder::File> all) const
    {
        for (const auto& [name, text] : all) folder.write(name, text);
    }
};
