#include "exchange/RoadFiles.h"

#include "base/CodePage.h"
#include "base/FileBytes.h"
#include "base/Lines.h"
#include "base/RunTimeError.h"
#include "exchange/ExchangeError.h"
#include "project/LoadTables.h"
#include "project/Workspace.h"

#include <array>

namespace {

constexpr std::array kFiles{files::settings, files::horizontal,     files::vertical, files::breaks,
                            files::traverse, files::superelevation, files::widths};

}  // namespace

CompiledRoad Compile(const RoadFiles& road)
{
    const auto bytes = BytesOf(road);
    CompiledRoad result;
    EngineResults results;
    const auto read = [&](std::string_view file) {
        const auto found = bytes.find(std::string(file));
        return found == bytes.end() ? std::string() : found->second;
    };
    const Loaded loaded = loadTables(read, result.tables, results);
    result.whole = !loaded.cutAtGap && !loaded.neverEnds;
    return result;
}

std::map<std::string, std::string> BytesOf(const RoadFiles& road)
{
    std::map<std::string, std::string> all;
    for (const auto& entry : road)
        if (!attempt([&] { all[entry.first] = Cp936FromUtf8(JoinLines(entry.second)); }))
            throw ExchangeError(entry.first + " 里有代码页 936 没有的字");
    return all;
}

RoadFiles ReadRoadFiles(const std::string& folder)
{
    RoadFiles road;
    for (const auto file : kFiles) {
        const std::string path = folder + "/" + std::string(file);
        if (!FileExists(path)) continue;
        auto lines = SplitLines(WithoutBlankLines(ReadBytes(path)));
        if (!lines.empty() && lines.back().empty()) lines.pop_back();
        for (auto& line : lines) line = Utf8FromCp936(line);
        if (!lines.empty()) road[std::string(file)] = std::move(lines);
    }
    return road;
}

bool IsFieldText(const std::string& text)
{
    const bool plain = text.find_first_of(",\r\n\t") == std::string::npos && !text.empty();
    return plain && attempt([&] { Cp936FromUtf8(text); });
}
