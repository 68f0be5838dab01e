#pragma once
// A project folder in memory for fuzz targets, and a dialogs that says yes.

#include "dialogs/Dialogs.h"
#include "project/LoadProject.h"
#include "project/Workspace.h"

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <optional>
#include <string>
#include <string_view>

struct FuzzDialogs final : Dialogs {
    bool box(const Msg&) override { return true; }
    void turn() override {}
    std::optional<std::string> openFile(std::string_view) override { return std::nullopt; }
    std::optional<std::string> saveFile(std::string_view) override { return std::nullopt; }
};

/// The folder of the loads to come; made at the first use, gone when the process ends.
class FuzzFolder {
public:
    FuzzFolder()
    {
        const char* memory = "/dev/shm";
        auto base = std::filesystem::is_directory(memory) ? std::filesystem::path(memory)
                                                          : std::filesystem::temp_directory_path();
        std::string name = (base / "velumark-fuzz-XXXXXX").string();
        if (!mkdtemp(name.data())) std::abort();
        gProjectFolder = name;
        setDialogs(&m_dialogs);
    }
    ~FuzzFolder()
    {
        std::error_code ignored;
        std::filesystem::remove_all(gProjectFolder, ignored);
    }
    void write(std::string_view file, std::string_view bytes) const
    {
        std::ofstream(ParameterFile(file), std::ios::binary | std::ios::trunc) << bytes;
    }
    /// False where the load would hang.
    static bool load() { return !loadOpenProject().neverEnds; }

private:
    FuzzDialogs m_dialogs;
};
