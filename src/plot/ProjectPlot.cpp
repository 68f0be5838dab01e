#include "plot/ProjectPlot.h"

#include "base/CodePage.h"
#include "base/FileBytes.h"
#include "base/FileError.h"
#include "base/Lines.h"
#include "base/Numbers.h"
#include "base/RunTimeError.h"
#include "engine/Chainage.h"
#include "project/LoadTables.h"
#include "project/OpenRoad.h"
#include "project/Workspace.h"

#include <algorithm>
#include <cmath>

namespace plot {

namespace {

std::string bytesOf(const std::string& path)
{
    if (LookAt(path) != Look::Regular) return {};
    try {
        return ReadBytes(path);
    } catch (const FileError&) {  // what cannot be read is not drawn
        return {};
    }
}

/// A whole number of a settings line; 0 where it is none.
int gradesOf(const std::vector<std::string>& settings, std::size_t line)
{
    double value = 0;
    if (line < settings.size()) attempt([&] { value = ParseNumber(settings[line]); });
    return value >= 1 && value <= 10 && value == std::floor(value) ? static_cast<int>(value) : 0;
}

}  // namespace

SlopeFiles slopesOf(const std::string& folder, const Tables& t)
{
    const auto settings = SplitLines(bytesOf(folder + "/" + std::string(files::settings)));
    const auto rows = [&](std::string_view file, std::size_t line) {
        return readSlopes(bytesOf(folder + "/" + std::string(file)), gradesOf(settings, line), t);
    };
    return {rows(files::leftFill, 2), rows(files::rightFill, 2), rows(files::leftCut, 3), rows(files::rightCut, 3)};
}

std::unique_ptr<OwnRoad> roadOf(const std::string& folder)
{
    auto own = std::make_unique<OwnRoad>();
    if (!FolderExists(folder)) {
        own->refusal = "没有这个项目：" + folder;
        return own;
    }
    const Loaded loaded = loadTables(folder, own->tables);
    if (!loaded.unreadable.empty()) own->refusal = loaded.unreadable.front().what();
    if (loaded.neverEnds) own->refusal = loaded.neverEnds->file + "里没有一行含有逗号";
    if (loaded.cutAtGap) own->refusal = std::string(kStakeInGap);
    if (own->refusal.empty()) {
        own->road = std::make_unique<Road>(own->tables);
        if (own->road->empty()) own->refusal = "这个项目没有平曲线参数";
    }
    return own;
}

std::vector<std::string> listedProjects()
{
    std::vector<std::string> names;
    for (const auto& line : SplitLines(bytesOf(WorkspacePath() + "/项目名称.txt")))
        if (!line.empty()) names.push_back(Utf8FromCp936(line));
    return names;
}

Doubts doubtsOf(const Tables& t)
{
    Doubts doubts;
    if (&t != &shared.tables) return doubts;
    std::vector<std::string> said;
    const auto look = [&](std::string_view file) {
        const std::string why = doubtAbout(file);
        if (!why.empty() && std::find(said.begin(), said.end(), why) == said.end()) said.push_back(why);
        return !why.empty();
    };
    doubts.groups = {.horizontal = look(files::horizontal),
                     .breaks = look(files::breaks),
                     .traverse = look(files::traverse),
                     .vertical = look(files::vertical),
                     .crossfall = look(files::superelevation),
                     .widths = look(files::widths)};
    for (const auto& why : said) doubts.text += (doubts.text.empty() ? "" : "；") + why;
    return doubts;
}

}  // namespace plot
