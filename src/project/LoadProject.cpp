// The order of work of a load. What happens to the rows of each file stands in the compiles.

#include "project/LoadProject.h"

#include "desk/Desk.h"
#include "engine/Chainage.h"
#include "project/CalcTables.h"
#include "project/Compile.h"
#include "project/TextFile.h"
#include "project/Workspace.h"

#include <algorithm>
#include <chrono>
#include <functional>
#include <thread>
#include <utility>

namespace {

Hang onHang = Hang::ForEver;
std::function<void()> beginOfHang;
bool stoppedAtGap = false;
bool changesFiles = true;  // false: what a load would do to the files is done to their bytes alone
std::vector<FileError> unreadable;

/// attempt, which also remembers the file that could not be read.
template <class Statement>
bool attemptFile(Statement statement)
{
    return attempt([&] {
        try {
            statement();
        } catch (const FileError& error) {
            const auto same = [&](const FileError& other) { return other.path() == error.path(); };
            if (!error.writing() && std::none_of(unreadable.begin(), unreadable.end(), same))
                unreadable.push_back(error);
            throw;
        }
    });
}

std::string upgraded(std::string settings)
{
    // The fifth line came later than the file: one more line a load until it is there.
    if (std::ssize(SplitLines(settings)) - 1 <= 4) settings += Cp936FromUtf8("未设置") + "\r\n";
    return settings;
}

/// The bytes that this load would leave in a file.
std::string bytesInMemory(std::string_view file)
{
    const auto path = ParameterFile(file);
    std::string bytes;
    if (FileExists(path)) bytes = WithoutBlankLines(ReadBytes(path));
    return file == files::settings ? upgraded(bytes) : bytes;
}

/// The lines of a file of the project, which is created if missing; none where it cannot be read.
std::vector<std::string> readLines(std::string_view file)
{
    std::vector<std::string> lines;
    attemptFile(
        [&] { lines = SplitLines(changesFiles ? ReadBytesCreating(ParameterFile(file)) : bytesInMemory(file)); });
    return lines;
}

[[noreturn]] void hang(std::string_view file, const std::vector<std::string>& lines)
{
    if (onHang == Hang::Throw) {
        const auto text = std::find_if(lines.rbegin(), lines.rend(), [](const auto& line) { return !line.empty(); });
        throw LoadWouldHang(std::string(file), static_cast<int>(lines.rend() - text));
    }
    if (beginOfHang) beginOfHang();
    while (true) {
        desk().turnWithInput();
        std::this_thread::sleep_for(std::chrono::milliseconds(20));
    }
}

/// Finds the rows of a file and hands them to its compile; an empty file has none and leaves its tables alone.
template <class Compile>
void scan(std::string_view file, Compile compile)
{
    Rows rows{readLines(file)};
    if (rows.lines.empty()) return;
    const auto top = std::ssize(rows.lines) - 1;
    // A file of more lines than a 16-bit count holds: that assignment is dropped and line 0 is the last one.
    if (!attempt([&] { toInt16(top); })) rows.lines.resize(1);
    const auto last = LastCommaLine(rows.lines);
    if (last < 0) hang(file, rows.lines);
    rows.last = static_cast<std::int16_t>(last);
    compile(rows);
}

void cleanFiles()
{
    for (const auto file : {files::settings, files::horizontal, files::traverse, files::breaks, files::vertical,
                            files::superelevation, files::widths}) {
        attemptFile([&] {
            const auto path = ParameterFile(file);
            if (FileExists(path)) RemoveBlankLines(path);
        });
    }
}

void upgradeSettings()
{
    attemptFile([] {
        const auto path = ParameterFile(files::settings);
        const auto bytes = ReadBytesCreating(path);
        if (const auto grown = upgraded(bytes); grown != bytes) WriteBytes(path, grown);
    });
}

/// Line `index` (from 0) of the settings in UTF-8, nothing where the file has no second piece.
std::optional<std::string> setting(int index)
{
    const auto lines = readLines(files::settings);
    if (std::ssize(lines) - 1 <= 0) return std::nullopt;
    return Utf8FromCp936(at(lines, index));
}

void loadInOrder()
{
    if (changesFiles) {
        cleanFiles();
        upgradeSettings();
    }
    scan(files::traverse, CompileTraversePoints);
    scan(files::breaks, CompileBreaks);
    ReduceBreaks();
    const bool intersectionPoints = setting(0) == "交点法";
    scan(files::horizontal, intersectionPoints ? CompileIntersectionPoints : CompileBlocks);
    scan(files::vertical, CompileVertical);
    if (const auto form = setting(1)) gCgType = form == "线性" ? "0" : "1";
    scan(files::superelevation, CompileSuperelevation);
    scan(files::widths, CompileWidths);
}

}  // namespace

void ConvertStakes(std::vector<double>& stakes, std::int16_t last)
{
    for (int i = 0; i <= last; ++i)
        if (!ConvertRowStake(shared.tables, at(stakes, i))) throw StakeInGap{};
}

namespace {

void load(bool changing)
{
    stoppedAtGap = false;
    changesFiles = changing;
    unreadable.clear();
    try {
        loadInOrder();
    } catch (const StakeInGap&) {
        stoppedAtGap = true;
        desk().box({"桩号不存在，请检查断链数据！", "注意", Icon::Exclamation});
    }
}

}  // namespace

void LoadProject() { load(true); }

void LoadProjectInMemory() { load(false); }

void SetHang(Hang hang) { onHang = hang; }
void WhenLoadHangs(std::function<void()> begin) { beginOfHang = std::move(begin); }

bool LoadStoppedAtGap() { return stoppedAtGap; }

const std::vector<FileError>& UnreadableFiles() { return unreadable; }
