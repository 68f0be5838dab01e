// The order of work of a load. What happens to the rows of each file stands in the compiles.

#include "project/LoadTables.h"

#include "base/CodePage.h"
#include "base/FileBytes.h"
#include "base/Lines.h"
#include "base/RunTimeError.h"
#include "engine/Chainage.h"
#include "engine/FastRoute.h"
#include "project/Compile.h"
#include "project/Workspace.h"

#include <algorithm>

namespace {

/// The rows of a file were looked for without end; ends the load.
struct NeverEnds {
    Place place;
};

class Load {
public:
    Load(const ProjectReader& read, Tables& tables, EngineResults& results, Loaded& met)
        : m_read(read), m_tables(tables), m_results(results), m_met(met)
    {}

    void run()
    {
        scan(files::traverse, CompileTraversePoints);
        scan(files::breaks, CompileBreaks);
        ReduceBreaks(m_tables);
        if (setting(0) == model::byIntersectionPoints)
            scan(files::horizontal,
                 [this](const Rows& rows, Tables& t) { CompileIntersectionPoints(rows, t, m_results); });
        else
            scan(files::horizontal, CompileBlocks);
        scan(files::vertical, CompileVertical);
        if (const auto form = setting(1)) m_tables.cgType = form == "线性" ? "0" : "1";
        scan(files::superelevation, CompileSuperelevation);
        scan(files::widths, CompileWidths);
    }

private:
    /// The lines of a file, none where it cannot be read.
    std::vector<std::string> readLines(std::string_view file)
    {
        std::vector<std::string> lines;
        m_met.attemptFile([&] { lines = SplitLines(m_read(file)); });
        return lines;
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
        if (last < 0) {
            const auto text =
                std::find_if(rows.lines.rbegin(), rows.lines.rend(), [](const auto& line) { return !line.empty(); });
            throw NeverEnds{{std::string(file), static_cast<int>(rows.lines.rend() - text)}};
        }
        rows.last = static_cast<std::int16_t>(last);
        m_met.compiled.emplace_back(file);
        compile(rows, m_tables);
    }

    /// Line `index` (from 0) of the settings in UTF-8, nothing where the file has no second piece.
    std::optional<std::string> setting(int index)
    {
        const auto lines = readLines(files::settings);
        if (std::ssize(lines) - 1 <= 0) return std::nullopt;
        return Utf8FromCp936(at(lines, index));
    }

    const ProjectReader& m_read;
    Tables& m_tables;
    EngineResults& m_results;
    Loaded& m_met;
};

}  // namespace

void Loaded::remember(const FileError& error)
{
    const auto same = [&](const FileError& other) { return other.path() == error.path(); };
    if (!error.writing() && std::none_of(unreadable.begin(), unreadable.end(), same)) unreadable.push_back(error);
}

void ConvertStakes(const Tables& t, std::vector<double>& stakes, std::int16_t last)
{
    for (int i = 0; i <= last; ++i)
        if (!ConvertRowStake(t, at(stakes, i))) throw StakeInGap{};
}

Loaded loadTables(const ProjectReader& read, Tables& tables, EngineResults& results, Loaded met)
{
    tables.fast = {};
    try {
        Load(read, tables, results, met).run();
    } catch (const StakeInGap&) {
        met.cutAtGap = true;
    } catch (const NeverEnds& found) {
        met.neverEnds = found.place;
    }
    prepareRoute(tables);
    return met;
}

Loaded loadTables(const std::string& folder, Tables& tables)
{
    const auto bytesAfterOpening = [&folder](std::string_view file) {
        const std::string path = folder + "/" + std::string(file);
        std::string bytes;
        if (FileExists(path)) bytes = WithoutBlankLines(ReadBytes(path));
        return file == files::settings ? withFifthSetting(bytes) : bytes;
    };
    EngineResults results;
    return loadTables(bytesAfterOpening, tables, results);
}

std::string withFifthSetting(std::string settings)
{
    // The fifth line came later than the file: one more line a load until it is there.
    if (std::ssize(SplitLines(settings)) - 1 <= 4) settings += Cp936FromUtf8("未设置") + "\r\n";
    return settings;
}
