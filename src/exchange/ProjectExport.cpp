#include "exchange/ProjectExport.h"

#include "base/FileBytes.h"
#include "base/FileError.h"
#include "base/FilePath.h"
#include "engine/Chainage.h"
#include "exchange/ExchangeError.h"
#include "exchange/ExportLandXml.h"
#include "project/LoadTables.h"
#include "project/Workspace.h"

#include <algorithm>
#include <array>
#include <chrono>
#include <filesystem>

namespace {

/// When the newest of the files was written; 0 where none stands.
std::time_t newest(const std::string& folder, const RoadFiles& files)
{
    std::time_t latest = 0;
    for (const auto& [file, lines] : files) {
        std::error_code error;
        const auto time = std::filesystem::last_write_time(filePath(folder + "/" + file), error);
        if (!error)
            latest = std::max(latest, std::chrono::system_clock::to_time_t(std::chrono::file_clock::to_sys(time)));
    }
    return latest;
}

}  // namespace

Tables TablesOfProject(const std::string& folder)
{
    Tables tables;
    const Loaded loaded = loadTables(folder, tables);
    if (!loaded.unreadable.empty()) throw FileError(loaded.unreadable.front());
    if (loaded.neverEnds)
        throw ExchangeError("参数文件无法读取：" + folder + "/" + loaded.neverEnds->file + " 里没有一行含有逗号");
    if (loaded.cutAtGap) throw ExchangeError(std::string(kStakeInGap));
    return tables;
}

std::string ProjectAsLandXml(const std::string& folder, const std::string& name, std::vector<std::string>& report)
{
    const Tables tables = TablesOfProject(folder);
    const RoadFiles files = ReadRoadFiles(folder);
    constexpr std::array kSlopes{files::leftFill, files::rightFill, files::leftCut, files::rightCut};
    if (std::any_of(kSlopes.begin(), kSlopes.end(), [&](std::string_view slope) {
            const std::string file = folder + "/" + std::string(slope);
            return FileExists(file) && !ReadBytes(file).empty();
        }))
        report.emplace_back("没有导出边坡参数：LandXML 没有位置");
    return LandXmlText(
        {.name = name, .files = files, .tables = tables, .written = newest(folder, files), .report = &report});
}
