#include "cli/Results.h"

#include "base/FileBytes.h"
#include "base/FileError.h"
#include "base/Numbers.h"
#include "base/RunTimeError.h"
#include "cli/Culprit.h"
#include "cli/Output.h"
#include "cli/RunNotes.h"
#include "exchange/Xlsx.h"
#include "office/Xls.h"
#include "project/Workspace.h"
#include "screens/Handler.h"
#include "tables/CalcTables.h"

#include <algorithm>
#include <cctype>
#include <cmath>
#include <istream>
#include <ostream>
#include <system_error>

namespace {

constexpr TypedColumn kCoordinateTyped[] = {
    {1, "stake"},    {2, "offset"}, {3, "skew_deg"}, {4, "azimuth_deg"},
    {5, "distance"}, {6, "x"},      {7, "y"},        {8, "tangent_deg"},
};
constexpr TypedColumn kInverseTyped[] = {{3, "stake"}, {4, "offset"}, {1, "x"}, {2, "y"}};
constexpr TypedColumn kElevationTyped[] = {
    {1, "stake"},          {2, "offset"},       {3, "elevation"},       {4, "offset_left"},
    {5, "elevation_left"}, {6, "offset_right"}, {7, "elevation_right"},
};
constexpr TypedColumn kCornerTyped[] = {
    {1, "stake"}, {3, "skew_deg"}, {4, "azimuth_deg"}, {5, "distance"}, {6, "x"}, {7, "y"}, {8, "tangent_deg"},
};
constexpr TypedColumn kMainPointTyped[] = {
    {2, "t1"},        {3, "t2"},    {4, "ls1"},   {5, "ls2"},
    {6, "zh_stake"},  {7, "zh_x"},  {8, "zh_y"},  {9, "zh_azimuth_deg"},
    {10, "hy_stake"}, {11, "hy_x"}, {12, "hy_y"}, {13, "hy_azimuth_deg"},
    {14, "yh_stake"}, {15, "yh_x"}, {16, "yh_y"}, {17, "yh_azimuth_deg"},
    {18, "hz_stake"}, {19, "hz_x"}, {20, "hz_y"}, {21, "hz_azimuth_deg"},
};

}  // namespace

const ResultKind kCoordinateResult{kCoordinateColumns, kPlfyExport, kCoordinateTyped};
const ResultKind kInverseResult{kInverseColumns, kFsExport, kInverseTyped};
const ResultKind kElevationResult{kElevationColumns, kDgdGcExport, std::span(kElevationTyped).first(3)};
const ResultKind kElevationRunResult{kElevationRunColumns, kPlGcExport, kElevationTyped};
const ResultKind kCornerResult{kCornerColumns, kJgwExport, kCornerTyped};
const ResultKind kMainPointResult{kMainPointColumns, kZdcsExport, kMainPointTyped};

Results::Results(const Call& call, const ResultKind& kind) : m_call(call), m_kind(kind), m_grid(Headers(kind.columns))
{
    if (call.args.has("--no-limit")) m_stream.emplace(call, Headers(kind.columns), kind.typed);
}

void Results::refuse(const std::string& text)
{
    if (m_line > 0) {
        const std::string file = m_call.args.value("--file");
        m_call.err << (file == "-" ? "" : file + " ") << "第" << m_line << "行：";
    }
    m_call.err << text << '\n';
    m_refused = true;
}

namespace {

/// The text that a line or an option stumbled over.
std::string named(std::string_view choked) { return choked.empty() ? "" : "“" + std::string(choked) + "”："; }

}  // namespace

bool Results::press(const std::function<Outcome()>& handler, std::string_view option)
{
    try {
        const Outcome outcome = handler();
        if (outcome) return true;
        const std::string culprit = Culprit(m_call, *outcome.refusal, option);
        refuse((culprit.empty() ? named(outcome.choked) : culprit) + outcome.refusal->msg.text);
    } catch (const RunTimeError& error) {  // of a handler without a trap
        refuse(named(error.choked()) + error.what());
    }
    return false;
}

namespace {

/// Takes the next line off a text that any editor may have written: its lines end with CR LF, LF or CR.
std::string_view takeLine(std::string_view& bytes)
{
    const auto line = bytes.substr(0, bytes.find_first_of("\r\n"));
    bytes.remove_prefix(line.size());
    bytes.remove_prefix(bytes.starts_with("\r\n") ? 2 : bytes.empty() ? 0 : 1);
    return line;
}

}  // namespace

void Results::pressLines(const std::function<bool(const std::string& line)>& line)
{
    std::string bytes;
    try {
        bytes = InputBytes(m_call);
    } catch (const RunTimeError& error) {
        return refuse(error.what());
    }
    constexpr std::string_view kMark = "\xEF\xBB\xBF";
    std::string_view rest = bytes;
    if (rest.starts_with(kMark)) rest.remove_prefix(kMark.size());
    while (!rest.empty()) {
        ++m_line;
        const std::string text(takeLine(rest));
        if (IsBlank(text)) continue;
        if (full()) {
            refuse("一次最多" + std::to_string(INT16_MAX) + "行结果，后面的行没有计算");
            break;
        }
        if (!line(text)) break;
    }
    m_line = 0;
}

int Results::finish()
{
    if (m_stream) {
        m_stream->end();
        return m_refused ? kRefused : kDone;
    }
    m_grid.setRows(m_rows.state.rows + 1);  // a row that did not fit any more is none
    const GridText& grid = m_grid.text();
    for (int row = 0; row < grid.rows() && !m_call.args.has("--quiet"); ++row)
        if (!grid.warning(row).empty()) m_call.err << "第" << row << "行结果：" << grid.warning(row) << '\n';

    const std::string path = m_call.args.value("-o");
    const bool sheet = m_call.format == Format::Sheet, book = m_call.format == Format::Workbook,
               empty = m_rows.state.rows == 0;
    const OutputTable table{grid, m_kind.typed};
    if (path.empty()) {
        // Headers without a row tell a person nothing; a program that reads CSV or JSON wants them.
        if (!empty || m_call.format != Format::Table) m_call.out << Rendered(table, m_call.format);
    } else if (empty && (m_refused || sheet || book)) {
        refuse(std::string(message::kNothingToSave));
    } else if (!WriteOutput(m_call, path, [&] {
                   return book    ? XlsxBytes({grid, gProject})
                          : sheet ? XlsBytes(ResultSheet(m_kind.sheet, {grid, m_rows.state.rows, stationPick, own}))
                                  : FileBytes(path, table, m_call.format);
               })) {
        m_refused = true;
    }
    RunNotes notes;
    for (int row = 0; row < grid.rows(); ++row) notes.add(grid.notes(row));
    if (!m_call.args.has("--quiet")) m_call.err << notes.lines();
    return m_refused ? kRefused : kDone;
}

std::optional<StationInput> ReadStationOption(const Call& call)
{
    const std::string text = call.args.value("--station");
    if (text.empty()) return StationInput{};
    if (const auto comma = text.find(','); comma != std::string::npos)
        return StationInput{.typed = true, .pick = {}, .x = text.substr(0, comma), .y = text.substr(comma + 1)};
    // As in the list of a window, a project with a single traverse point has none to pick.
    const auto found = std::find(gDxdName.begin(), gDxdName.end(), text);
    if (gDxdCount < 1 || found == gDxdName.end()) {
        call.err << NamedValue(call, "--station")
                 << (gDxdCount < 1 && found != gDxdName.end() ? "项目只有一个导线点，不能选作测站，请直接给出坐标"
                                                              : "没有这个导线点")
                 << '\n';
        return std::nullopt;
    }
    return StationInput{.pick = text, .pickIndex = static_cast<int>(found - gDxdName.begin()), .x = {}, .y = {}};
}

void RefuseLongWalk(const Call& call)
{
    const auto number = [&](const char* option) { return ParseNumber(StakeNumber(call.args.value(option))); };
    const double step = number("--step");
    double way = std::max(0.0, number("--to") - number("--from"));
    if (step < 0) {  // ends by its rows, but a gap is stepped over without one
        way = 0;
        for (int i = 0; i <= gDlCount && gHasDl; ++i) way = std::max(way, at(gDlAhead, i) - at(gDlBack, i));
    }
    if (step != 0 && way / std::abs(step) > kMostSteps)
        Refuse(NamedValue(call, "--step") + "这一段要走十亿步以上，请把间距加大");
}

std::string InputBytes(const Call& call)
{
    const std::string file = call.args.value("--file");
    if (file != "-") return ReadStream(file);
    std::string bytes;
    char block[16384];
    while (call.in.read(block, sizeof block) || call.in.gcount() > 0)
        bytes.append(block, static_cast<std::size_t>(call.in.gcount()));
    if (call.in.bad()) throw FileError("标准输入", FileError::Reading, std::make_error_code(std::errc::io_error));
    return bytes;
}

SignedOffset::SignedOffset(std::string_view text) : length(Trim(text))
{
    if (length.empty()) return;
    std::optional<double> offset;
    attempt([&] { offset = ParseNumber(length); });
    if (offset == 0) {
        length.clear();
        return;
    }
    const bool left = offset && length.starts_with('-');
    side = left ? "左边桩" : "右边桩";
    if (left) length.erase(0, 1);
}

std::string StakeNumber(const std::string& text)
{
    const auto trimmed = Trim(text);
    const bool negative = trimmed.starts_with('-');
    auto rest = trimmed.substr(negative ? 1 : 0);
    if (!rest.starts_with('K') && !rest.starts_with('k')) return text;
    rest.remove_prefix(1);
    const auto plus = rest.find('+');
    const auto isDigit = [](unsigned char c) { return std::isdigit(c) != 0; };
    if (plus == std::string_view::npos ||
        !std::all_of(rest.begin(), rest.begin() + static_cast<std::ptrdiff_t>(plus), isDigit))
        return text;
    const auto metres = rest.substr(plus + 1);
    const auto whole = std::find(metres.begin(), metres.end(), '.') - metres.begin();
    if (whole != 3 || !std::all_of(metres.begin(), metres.begin() + 3, isDigit)) return text;
    return (negative ? "-" : "") + std::string(rest.substr(0, plus)) + std::string(metres);
}
