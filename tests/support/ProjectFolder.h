#pragma once
// A workspace of a test in a folder of its own, gone when it goes out of scope, with a fresh `shared`.
//
//     ProjectFolder folder{{"其他参数.txt", "交点法\r\n线性\r\n"}, {"断链参数.txt", "100,120\r\n"}};
//     LoadProject();
//     EXPECT_EQ(folder.text("断链参数.txt"), …);
//
// Texts are UTF-8 and go to disk in code page 936; bytes() and writeBytes() leave them as they are.

#include "base/CodePage.h"
#include "project/OpenRoad.h"
#include "project/Workspace.h"
#include "tables/CalcTables.h"

#include <filesystem>
#include <fstream>
#include <initializer_list>
#include <iterator>
#include <map>
#include <random>
#include <string>
#include <utility>
#include <vector>

class ProjectFolder {
public:
    using File = std::pair<std::string, std::string>;  ///< name, text in UTF-8

    ProjectFolder(std::initializer_list<File> files = {}, const std::string& name = "测试")
    {
        shared = {};
        openRoad = {};
        m_root = std::filesystem::temp_directory_path() / ("velumark-" + std::to_string(std::random_device{}()));
        std::filesystem::create_directories(m_root);
        gAppPath = m_root.string();
        gProjectFolder.clear();
        project(name, files);
    }
    ProjectFolder(const ProjectFolder&) = delete;
    ProjectFolder& operator=(const ProjectFolder&) = delete;
    ~ProjectFolder()
    {
        std::error_code ignored;
        std::filesystem::remove_all(m_root, ignored);
        shared = {};
        openRoad = {};
        gAppPath.clear();
        gProject.clear();
        gProjectFolder.clear();
    }

    /// Another project of the same workspace, listed in the catalogue; it becomes gProject. The tables stay.
    void project(const std::string& name, std::initializer_list<File> files = {})
    {
        std::filesystem::create_directories(ProjectPath(name));
        std::ofstream(WorkspacePath() + "/项目名称.txt", std::ios::binary | std::ios::app)
            << Cp936FromUtf8(name) << "\r\n";
        gProject = name;
        for (const auto& [file, text] : files) write(file, text);
    }

    /// Files of the current project.
    std::string path(const std::string& file) const { return ProjectPath(gProject) + "/" + file; }
    void write(const std::string& file, const std::string& text) const { writeBytes(file, Cp936FromUtf8(text)); }
    void writeBytes(const std::string& file, const std::string& bytes) const
    {
        std::ofstream(path(file), std::ios::binary | std::ios::trunc) << bytes;
    }
    void remove(const std::string& file) const { std::filesystem::remove(path(file)); }
    bool has(const std::string& file) const { return std::filesystem::exists(path(file)); }
    std::string bytes(const std::string& file) const { return bytesOf(path(file)); }
    std::string text(const std::string& file) const { return Utf8FromCp936(bytes(file)); }

    /// The bytes of any file, "" where it is missing.
    static std::string bytesOf(const std::string& path)
    {
        std::ifstream in(path, std::ios::binary);
        return {std::istreambuf_iterator<char>(in), {}};
    }
    /// The bytes of each file of any folder by its name.
    static std::map<std::string, std::string> filesIn(const std::filesystem::path& folder)
    {
        std::map<std::string, std::string> files;
        for (const auto& file : std::filesystem::directory_iterator(folder))
            files[file.path().filename().string()] = bytesOf(file.path().string());
        return files;
    }
    /// Folder of the program in this test, UTF-8.
    std::string root() const { return m_root.string(); }

private:
    std::filesystem::path m_root;
};
