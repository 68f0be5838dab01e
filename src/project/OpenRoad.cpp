#include "project/OpenRoad.h"

#include "base/CodePage.h"
#include "base/FileBytes.h"
#include "base/Lines.h"
#include "base/Numbers.h"
#include "engine/Chainage.h"
#include "project/Workspace.h"

#include <algorithm>
#include <cmath>
#include <initializer_list>
#include <utility>

namespace {

constexpr std::string_view kAlignmentFiles[] = {files::horizontal, files::breaks};
constexpr std::string_view kProfileFiles[] = {files::vertical, files::superelevation, files::widths};

constexpr int kModelLine = 0, kFormLine = 1;  // of the settings

std::string groupOf(std::string_view file) { return std::string(file.substr(0, file.find('.'))); }

void join(std::string& all, const std::string& one)
{
    if (one.empty() || all.find(one) != std::string::npos) return;
    all += (all.empty() ? "" : "；") + one;
}

std::string lineOf(const std::string& bytes, int index)
{
    const auto lines = SplitLines(bytes);
    return index < std::ssize(lines) ? lines[static_cast<std::size_t>(index)] : std::string();
}

/// What the last load left open about the rows of a file.
std::string leftByLoad(std::string_view file)
{
    const auto source = openRoad.sources.find(file);
    const bool has = source != openRoad.sources.end();
    const bool other = has && source->second.project != openRoad.project;
    const std::string kept = other ? "，沿用“" + source->second.project + "”的数据" : has ? "，沿用先前读入的数据" : "";
    const std::string group = groupOf(file);

    const auto bytes = openRoad.files.find(file);
    const bool inTables = has && source->second.load == openRoad.loads;
    if (inTables) {
        const bool partly = openRoad.met.cutAtGap && openRoad.met.compiled.back() == file;
        return partly ? group + "只读入了一部分：有桩号在断链中不存在" : "";
    }
    const auto& failed = openRoad.met.unreadable;
    const std::string path = openRoad.folder + std::string(file);
    if (std::any_of(failed.begin(), failed.end(), [&](const FileError& error) { return error.path() == path; }))
        return std::string(file) + " 无法读取" + kept;
    if (bytes != openRoad.files.end() && bytes->second.empty()) {
        if (!has) return "";
        return other ? "此项目没有" + group + kept : group + "已没有数据" + kept;
    }
    return group + "没有读入" + kept;
}

/// The bytes of a file now, those of the load where nobody can say.
std::string bytesNow(std::string_view file, const std::string& asRead)
{
    const std::string path = openRoad.folder + std::string(file);
    std::string bytes = asRead;
    attempt([&] { bytes = FileExists(path) ? ReadBytes(path) : std::string(); });
    return bytes;
}

std::string changedSince(std::string_view file)
{
    const auto read = openRoad.files.find(file);
    if (read == openRoad.files.end() || bytesNow(file, read->second) == read->second) return "";
    return std::string(file) + " 已修改，尚未重新读入";
}

/// A line of the settings decides what the tables hold; the others do not.
std::string settingChanged(int index)
{
    const auto read = openRoad.files.find(files::settings);
    if (read == openRoad.files.end() ||
        lineOf(bytesNow(files::settings, read->second), index) == lineOf(read->second, index))
        return "";
    return std::string(files::settings).append(" 已修改，尚未重新读入");
}

std::string unreadableSettings()
{
    const auto& failed = openRoad.met.unreadable;
    const std::string path = openRoad.folder + std::string(files::settings);
    const bool fails =
        std::any_of(failed.begin(), failed.end(), [&](const FileError& error) { return error.path() == path; });
    return fails ? std::string(files::settings).append(" 无法读取") : "";
}

std::string leftOpen()
{
    std::string all = unreadableSettings();
    for (const auto file : kAlignmentFiles) join(all, leftByLoad(file));
    for (const auto file : kProfileFiles) join(all, leftByLoad(file));
    join(all, leftByLoad(files::traverse));
    return all;
}

std::string stakeText(double continuous)
{
    const auto [value, secondPass] = ToNominal(continuous);
    return (secondPass ? "-" : "") + FormatStake(RoundHalfUp3(value));
}

/// What the closing row of the elements adds to the road's last stake.
double beyondEnd() { return openRoad.byIntersectionPoints ? 0.01 : 0.0001; }

/// In whole millimetres that the screens take: the first one rounded up, the last one down.
StakeRange rangeOf(double first, double last)
{
    constexpr double kSlack = 1e-4;  // of a millimetre: what arithmetic leaves of a whole one
    const auto text = [](double continuous, bool up) {
        const auto [value, secondPass] = ToNominal(continuous);
        const double mm = value * 1000;
        return (secondPass ? "-" : "") + NumText((up ? std::ceil(mm - kSlack) : std::floor(mm + kSlack)) / 1000);
    };
    return {text(first, true), text(last, false)};
}

/// From the first stake to the last one, without what the closing row adds to it.
std::string stretch()
{
    std::string text;
    attempt([&] { text = stakeText(at(gElemLc, 0)) + "～" + stakeText(at(gElemLc, gElemCount) - beyondEnd()); });
    return text;
}

}  // namespace

void OpenRoad::projectDeleted(const std::string& name)
{
    const auto gone = [&](std::string& of) {
        if (of == name) of += "（已删除）";
    };
    gone(project);
    for (auto& [file, source] : sources) gone(source.project);
}

void OpenRoad::remember(const Loaded& loaded, Files asRead)
{
    project = Trim(gProject);
    ++loads;
    folder = ParameterFile("");
    met = loaded;
    files = std::move(asRead);
    for (const auto& file : met.compiled) {
        sources[file] = {project, loads};
        if (file == ::files::horizontal)
            byIntersectionPoints = Utf8FromCp936(lineOf(files[std::string(::files::settings)], kModelLine)) == "交点法";
    }
}

namespace {

RoadText openText()
{
    if (openRoad.loads == 0) return {"尚未打开项目"};
    if (const auto named = Trim(gProject); named != openRoad.project)
        return {"计算用“" + openRoad.project + "”的数据，编辑和表头是“" + std::string(named) + "”", true};
    std::string text = "当前项目：" + openRoad.project;
    if (gElemCount > 0) {
        if (const auto stakes = stretch(); !stakes.empty()) text += "　" + stakes;
        text += openRoad.byIntersectionPoints ? "　交点法" : "　积木法";
    } else {
        text += "　没有平曲线";
    }
    if (gHasDl) text += "　断链 " + std::to_string(gDlCount + 1) + " 处";
    const auto doubts = leftOpen();
    if (!doubts.empty()) text += "　" + doubts;
    return {text, !doubts.empty()};
}

}  // namespace

RoadText roadText()
{
    RoadText road = openText();
    if (!openRoad.notKept.empty()) road = {openRoad.notKept + "　" + road.text, true};
    return road;
}

std::optional<StakeRange> alignmentRange()
{
    std::optional<StakeRange> range;
    if (gElemCount > 0)
        attempt(
            [&] { range = rangeOf(at(gElemLc, 0), at(gElemLc, gElemCount) - (openRoad.loads > 0 ? beyondEnd() : 0)); });
    return range;
}

std::optional<StakeRange> profileRange()
{
    std::optional<StakeRange> range;
    if (gSqxCount > 0) attempt([&] { range = rangeOf(at(gSqxLc, 0), at(gSqxLc, gSqxCount)); });
    return range;
}

RoadDoubts lookAtRoad()
{
    RoadDoubts doubts;
    if (openRoad.loads == 0) return doubts;
    doubts.alignment = doubts.profile = unreadableSettings();
    join(doubts.alignment, settingChanged(kModelLine));
    join(doubts.profile, settingChanged(kFormLine));
    const auto look = [](std::string& into, std::string_view file) {
        join(into, leftByLoad(file));
        join(into, changedSince(file));
    };
    for (const auto file : kAlignmentFiles) look(doubts.alignment, file);
    look(doubts.profile, files::breaks);
    for (const auto file : kProfileFiles) look(doubts.profile, file);
    look(doubts.traverse, files::traverse);
    return doubts;
}

std::string doubtAbout(std::string_view file)
{
    if (openRoad.loads == 0) return "";
    if (Trim(gProject) != openRoad.project) return openRoad.sources.contains(file) ? roadText().text : "";
    std::string doubt = leftByLoad(file);
    join(doubt, changedSince(file));
    if (file == files::horizontal) join(doubt, settingChanged(kModelLine));
    if (file == files::superelevation) join(doubt, settingChanged(kFormLine));
    return doubt;
}
