#include "cli/Results.h"

#include "cli/Output.h"
#include "engine/Numbers.h"
#include "engine/RunTimeError.h"
#include "office/Xls.h"
#include "project/CalcTables.h"
#include "project/TextFile.h"

#include <algorithm>
#include <cctype>
#include <istream>
#include <iterator>
#include <ostream>

Results::Results(const Call& call, const ResultKind& kind)
    : m_call(call), m_kind(kind), m_grid(kind.columns), m_format(FormatOf(call.args))
{}

void Results::refuse(const std::string& text)
{
    m_call.err << m_place << text << '\n';
    m_refused = true;
}

bool Results::press(const std::function<Outcome()>& handler)
{
    try {
        const Outcome outcome = handler();
        if (outcome) return true;
        refuse(outcome.refusal->msg.text);
    } catch (const RunTimeError& error) {  // of a handler without a trap
        refuse(error.what());
    }
    return false;
}

namespace {

/// Lines of a text that any editor may have written: CR LF, LF or CR, with or without a mark in front.
std::vector<std::string> linesOf(std::string_view bytes)
{
    constexpr std::string_view kMark = "\xEF\xBB\xBF";
    if (bytes.starts_with(kMark)) bytes.remove_prefix(kMark.size());
    std::vector<std::string> lines;
    while (!bytes.empty()) {
        const auto end = std::min(bytes.find_first_of("\r\n"), bytes.size());
        lines.emplace_back(bytes.substr(0, end));
        bytes.remove_prefix(end);
        bytes.remove_prefix(bytes.starts_with("\r\n") ? 2 : bytes.empty() ? 0 : 1);
    }
    return lines;
}

}  // namespace

void Results::pressLines(const std::function<bool(const std::string& line)>& line)
{
    const std::string file = m_call.args.value("--file");
    std::string bytes;
    if (file == "-") {
        bytes.assign(std::istreambuf_iterator<char>(m_call.in), {});
    } else {
        try {
            bytes = ReadBytes(file);
        } catch (const RunTimeError& error) {
            return refuse("无法读取文件 " + file + "：" + error.what());
        }
    }
    int number = 0;
    for (const auto& text : linesOf(bytes)) {
        ++number;
        if (IsBlank(text)) continue;
        m_place = (file == "-" ? "" : file + " ") + "第" + std::to_string(number) + "行：";
        if (full()) {
            refuse("一次最多" + std::to_string(INT16_MAX) + "行结果，后面的行没有计算");
            break;
        }
        if (!line(text)) break;
    }
    m_place.clear();
}

int Results::finish()
{
    m_grid.setRows(m_state.rows + 1);  // a row that did not fit any more is none
    std::vector<std::string> warnings;
    for (int row = 0; row < m_grid.Rows(); ++row) {
        warnings.push_back(m_grid.warning(row));
        if (!warnings.back().empty() && !m_call.args.has("--quiet"))
            m_call.err << "第" << row << "行结果：" << warnings.back() << '\n';
    }

    const std::string path = m_call.args.value("-o");
    if (path.empty()) {
        // Headers without a row tell a person nothing; a program that reads CSV or JSON wants them.
        if (m_state.rows > 0 || m_format != Format::Table) m_call.out << Rendered(m_grid.text(), warnings, m_format);
    } else if (EndsWithNoCase(path, ".xls") && m_kind.sheet.needsRows && m_state.rows == 0) {
        refuse(std::string(message::kNothingToSave));
    } else {
        try {
            WriteBytes(path, EndsWithNoCase(path, ".xls")
                                 ? XlsBytes(ResultSheet(
                                       m_kind.sheet, {m_grid.text(), m_state.rows, stationPick, structures, skewEnds}))
                                 : FileBytes(path, m_grid.text(), warnings, m_format));
        } catch (const RunTimeError& error) {
            refuse("无法保存文件 " + path + "：" + error.what());
        }
    }
    return m_refused ? kRefused : kDone;
}

std::optional<StationInput> ReadStationOption(const Call& call)
{
    const std::string text = call.args.value("--station");
    if (text.empty()) return StationInput{};
    if (const auto comma = text.find(','); comma != std::string::npos)
        return StationInput{.typed = true, .pick = {}, .x = text.substr(0, comma), .y = text.substr(comma + 1)};
    const auto found = std::find(gDxdName.begin(), gDxdName.end(), text);
    if (found == gDxdName.end()) {
        call.err << "没有名为 " << text << " 的导线点\n";
        return std::nullopt;
    }
    return StationInput{.pick = text, .pickIndex = static_cast<int>(found - gDxdName.begin()), .x = {}, .y = {}};
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
    const auto whole = std::min(metres.find('.'), metres.size());
    if (whole != 3 || !std::all_of(metres.begin(), metres.begin() + 3, isDigit)) return text;
    return (negative ? "-" : "") + std::string(rest.substr(0, plus)) + std::string(metres);
}
