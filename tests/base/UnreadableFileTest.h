#pragma once
// A whole project, and which of its files a load could not read.

#include "base/FileBytes.h"
#include "base/ReplaceFile.h"
#include "base/RunTimeError.h"
#include "project/LoadProject.h"
#include "support/ProjectFolder.h"
#include "support/ScriptedDialogs.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <map>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace fs = std::filesystem;

inline constexpr std::string_view kAllFiles[] = {files::settings, files::horizontal,     files::vertical, files::breaks,
                                                 files::traverse, files::superelevation, files::widths};

struct UnreadableFile : testing::Test {
    ScriptedDialogs dialogs;
    ProjectFolder folder{{"其他参数.txt", "交点法\r\n线性\r\n未设置\r\n未设置\r\n未设置\r\n"},
                         {"平曲线参数.txt", "0,0,0\r\nJD1,1000,0,50,50,400\r\n2000,500\r\n"},
                         {"竖曲线参数.txt", "0,10\r\n500,20,8000\r\n1500,10\r\n"},
                         {"断链参数.txt", "900,910\r\n"},
                         {"导线点参数.txt", "D1,1,2,\r\nD2,3,4,\r\n"},
                         {"超高参数.txt", "0,2,2,1500,2,2\r\n"},
                         {"超高宽度参数.txt", "0,1500,2,12,12,3,3,12,12,3,3,4\r\n"}};

    /// Every file below the program's folder with its bytes.
    std::map<std::string, std::string> everything() const
    {
        std::map<std::string, std::string> all;
        for (const auto& entry : fs::recursive_directory_iterator(folder.root())) {
            const auto path = entry.path().string();
            all[path] = fs::is_regular_file(entry.symlink_status()) ? ProjectFolder::bytesOf(path) : "";
        }
        return all;
    }
    static std::vector<std::pair<std::string, std::string>> unreadable(const Loaded& loaded)
    {
        std::vector<std::pair<std::string, std::string>> found;
        for (const auto& error : loaded.unreadable) found.emplace_back(error.name(), error.reason());
        return found;
    }
};
