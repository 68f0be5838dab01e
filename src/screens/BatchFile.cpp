#include "screens/BatchFile.h"

#include "base/CodePage.h"
#include "base/FileBytes.h"
#include "base/FileError.h"
#include "base/Lines.h"
#include "base/Numbers.h"
#include "base/RunTimeError.h"
#include "base/TextFile.h"
#include "dialogs/Dialogs.h"
#include "screens/Handler.h"

#include <algorithm>
#include <optional>

namespace {

/// How far a file was read.
struct Reading {
    std::ptrdiff_t line = -1;    // the one at hand; -1 before the first and without any
    bool strayLineEnds = false;  // LF or CR alone
};

std::vector<BatchLine> readBatch(const std::string& path, std::size_t fields, Reading& reading)
{
    RewriteWithoutBlankLines(path);
    const auto lines = SplitLines(ReadBytes(path));
    for (const auto& line : lines) reading.strayLineEnds |= line.find_first_of("\r\n") != std::string::npos;
    const auto last = LastCommaLine(lines);
    if (last < 0) throw RunTimeError(RunTimeError::Subscript);
    std::vector<BatchLine> batch;
    for (reading.line = 0; reading.line <= last; ++reading.line)
        batch.push_back(ParseBatchLine(at(lines, reading.line), fields));
    return batch;
}

constexpr const char* kStrayLineEnds = "换行不是 CR LF";

std::string numberOf(std::ptrdiff_t line) { return "第 " + std::to_string(line + 1) + " 行"; }

/// The text that is no number, as far as a line of a window holds it.
std::string quoted(std::string_view choked)
{
    constexpr std::size_t kMost = 24;  // bytes
    const bool whole = choked.size() <= kMost;
    return "“" + Utf8FromCp936(std::string(whole ? choked : choked.substr(0, kMost))) + (whole ? "”" : "…”");
}

/// Why nothing of a file was computed.
std::string notRead(const Reading& reading, const RunTimeError& error, std::size_t fields)
{
    if (const auto* failed = dynamic_cast<const FileError*>(&error)) return std::string(failed->reason());
    if (reading.line < 0) return "没有用逗号分开的数";
    if (error.number() == RunTimeError::Subscript)
        return numberOf(reading.line) + "不足 " + std::to_string(fields) + " 个数";
    return numberOf(reading.line) + quoted(error.choked()) +
           (error.number() == RunTimeError::Overflow ? "太大" : "不是数字");
}

/// Why a run stopped at a line.
std::string notComputed(const RunTimeError& error, const WhyNot& whyNot)
{
    if (!error.choked().empty()) return std::string("“").append(error.choked()) + "”不是数字";
    const std::string known = whyNot ? whyNot() : "";
    return known.empty() ? error.what() : known;
}

std::string numbersOf(const std::vector<std::ptrdiff_t>& lines)
{
    constexpr std::size_t kMost = 10;
    std::string text;
    for (std::size_t i = 0; i < std::min(lines.size(), kMost); ++i)
        text += (i > 0 ? "、" : "") + std::to_string(lines[i] + 1);
    return "第 " + text + (lines.size() > kMost ? " 等 " + std::to_string(lines.size()) + " 行" : " 行");
}

/// What became of a file.
struct FileRun {
    std::string name;
    std::size_t fields;
    Reading reading{};
    std::size_t lines = 0;  ///< 0: none was computed
    std::ptrdiff_t line = 0;
    std::vector<std::ptrdiff_t> withoutStake{};
    std::string stopped{};  ///< why it ended before the end

    std::string told() const
    {
        if (lines == 0 && reading.strayLineEnds) return std::string("没有计算：") + kStrayLineEnds;
        if (lines == 0) return name + "：没有计算，" + stopped;
        std::string text = name + "：" + std::to_string(lines) + " 行，得到 " +
                           std::to_string(static_cast<std::size_t>(line) - withoutStake.size()) + " 个结果";
        if (!withoutStake.empty()) text += "；" + numbersOf(withoutStake) + "没有对应的里程";
        if (static_cast<std::size_t>(line) < lines)
            text += "；从" + numberOf(line) + "起没有计算" + (stopped.empty() ? "" : "：" + stopped);
        if (reading.strayLineEnds) text += std::string("；") + kStrayLineEnds + "，只读了能分开的行";
        return text;
    }
    bool doubtful() const
    {
        return lines == 0 || static_cast<std::size_t>(line) < lines || !withoutStake.empty() || reading.strayLineEnds;
    }
};

}  // namespace

BatchLine ParseBatchLine(const std::string& line, std::size_t fields)
{
    const auto texts = SplitFields(line);
    BatchLine numbers;
    for (std::size_t i = 0; i < fields; ++i) numbers.push_back(ParseNumber(at(texts, static_cast<std::ptrdiff_t>(i))));
    return numbers;
}

std::vector<BatchLine> ReadBatchFile(const std::string& path, std::size_t fields)
{
    Reading reading;
    return readBatch(path, fields, reading);
}

Outcome CalcBatchFile(std::size_t fields, RowSink& rows, const std::function<bool(const BatchLine&)>& add,
                      const WhyNot& whyNot)
{
    std::optional<FileRun> run;
    Outcome outcome = Handle(Trap::Silent, [&] {
        const auto path = dialogs().openFile("(*.txt)|*.txt|");
        if (!path) return;
        run = FileRun{.name = path->substr(path->find_last_of("/\\") + 1), .fields = fields};
        try {
            const auto batch = readBatch(*path, fields, run->reading);
            run->lines = batch.size();
            for (const auto& line : batch) {
                if (rows.abandoned()) {
                    run->stopped = "已停止";
                    break;
                }
                if (!add(line)) run->withoutStake.push_back(run->line);
                ++run->line;
            }
        } catch (const RunTimeError& error) {
            run->stopped = run->lines == 0 ? notRead(run->reading, error, fields) : notComputed(error, whyNot);
            throw;
        }
        rows.changed();
    });
    if (!run) return outcome;
    if (outcome.refusal) run->stopped = outcome.refusal->msg.text.substr(0, outcome.refusal->msg.text.rfind("！"));
    outcome.told = run->told();
    outcome.doubtful = run->doubtful();
    return outcome;
}
