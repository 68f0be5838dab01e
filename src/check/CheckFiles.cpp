#include "check/CheckFiles.h"

#include "base/Numbers.h"
#include "base/RunTimeError.h"
#include "check/CheckLines.h"

#include <algorithm>
#include <limits>

namespace {

using std::to_string;

/// The upper bound of a file's pieces must fit a 16-bit count, else the load takes the first line alone.
constexpr std::size_t kMaxRows = std::numeric_limits<std::int16_t>::max();

bool hasComma(std::string_view line) { return line.find(',') != std::string_view::npos; }

void checkFields(const CheckedRow& row, const FileShape& shape, int wanted, bool plain, Findings& findings)
{
    const int have = static_cast<int>(row.fields());
    if (!hasComma(row.bytes))
        findings.add(shape.name, row.line, 0, "这一行没有逗号，除第1项外都按0处理", Severity::Error);
    else if (have < wanted)
        findings.add({shape.name,
                      row.line,
                      0,
                      "只有" + to_string(have) + "项，应为" + to_string(wanted) + "项，缺少的按0处理",
                      {static_cast<double>(wanted - have), "项"},
                      Severity::Error});
    else if (have > wanted)
        findings.add({shape.name,
                      row.line,
                      0,
                      "有" + to_string(have) + "项，应为" + to_string(wanted) + "项，多余的不读取",
                      {static_cast<double>(have - wanted), "项"}});
    for (int f = 0; f < have && f < wanted; ++f) {
        const auto index = static_cast<std::size_t>(f);
        if ((plain && (f == shape.textField || f == shape.secondTextField)) || row.read(index)) continue;
        findings.add(shape.name, row.line, f + 1,
                     row.raw(index).empty() ? "是空的，按0处理" : "“" + row.text(index) + "”不是数字，按0处理",
                     Severity::Error);
    }
}

}  // namespace

std::string_view CheckedRow::raw(std::size_t field) const
{
    std::string_view rest = bytes;
    for (; field > 0; --field) {
        const auto comma = rest.find(',');
        if (comma == std::string_view::npos) return {};
        rest.remove_prefix(comma + 1);
    }
    return rest.substr(0, rest.find(','));
}

std::string CheckedRow::text(std::size_t field) const { return QuotedText(raw(field)); }

std::optional<double> CheckedRow::read(std::size_t field) const
{
    std::optional<double> value;
    attempt([&] { value = ParseNumber(raw(field)); });
    return value;
}

std::size_t CheckedRow::fields() const
{
    return static_cast<std::size_t>(std::count(bytes.begin(), bytes.end(), ',')) + 1;
}

class FileReader {
public:
    FileReader(const FileShape& shape, Findings& findings) : m_shape(shape), m_findings(findings)
    {
        m_file.name = shape.name;
    }

    const CheckedFile& file() const { return m_file; }

    void open(const std::string& folder)
    {
        auto text = ReadFile(folder, m_shape.name, m_findings);
        m_file.missing = text.missing;
        m_file.empty = text.missing;
        if (!text.bytes) return;
        m_file.m_bytes = std::move(*text.bytes);
        if (LooksLikeUtf8(m_file.m_bytes))
            m_findings.add(m_shape.name, 0, 0, "文件是UTF-8编码，应为代码页936（GBK），汉字会成乱码", Severity::Error);
        m_walk.emplace(m_file.m_bytes, m_shape.name, m_shape.loaded, m_findings,
                       [this](std::size_t offset, std::string_view bytes, int number) {
                           m_lastLine = number;
                           if (m_file.m_rows.size() <= kMaxRows)
                               m_file.m_rows.push_back({static_cast<std::uint32_t>(offset),
                                                        static_cast<std::uint32_t>(bytes.size()),
                                                        static_cast<std::int32_t>(number)});
                       });
    }

    bool nextLine() { return m_walk && m_walk->next(); }

    void endOfLines()
    {
        if (!m_walk) return;
        const LineSummary& summary = m_walk->summary();
        m_file.empty = summary.lines == 0;
        if (summary.unterminated)
            m_findings.add(m_shape.name, m_lastLine, 0, "最后一行没有以回车换行结尾，重写文件时会丢失这一行");
        m_onlyFirst = m_shape.loaded && summary.pieces() > kMaxRows + 1;
        if (m_onlyFirst || summary.lines > kMaxRows + (m_shape.closingRow || !m_shape.loaded ? 0 : 1))
            m_findings.add({m_shape.name,
                            0,
                            0,
                            "共" + to_string(summary.lines) + "行，超过" + to_string(kMaxRows) + "行，" +
                                (m_onlyFirst ? "打开项目时只读第1行" : "行数记不下"),
                            {static_cast<double>(summary.lines), "行"},
                            Severity::Error});
        auto& rows = m_file.m_rows;
        const auto looked = rows.begin() + static_cast<std::ptrdiff_t>(m_onlyFirst ? 1 : rows.size());
        const auto comma = [this](const CheckedFile::Row& row) { return hasComma(bytes(row)); };
        if (m_shape.loaded && !rows.empty() && std::none_of(rows.begin(), looked, comma)) {
            m_findings.add(m_shape.name, rows.back().line, 0, "没有一行含有逗号，打开项目时程序会停住不动",
                           Severity::Error);
            rows.clear();
        }
    }

    /// The last row is the last line with a comma. True: a line was dropped, and there may be more.
    bool dropTail()
    {
        auto& rows = m_file.m_rows;
        if (m_onlyFirst || rows.empty() || hasComma(bytes(rows.back()))) return false;
        m_findings.add(m_shape.name, rows.back().line, 0, "末尾没有逗号的行，不读取", Severity::Error);
        rows.pop_back();
        return true;
    }

    void checkRow(std::size_t i)
    {
        const bool start = i == 0 && m_shape.firstFields, end = i + 1 == m_file.size() && m_shape.lastFields;
        const int wanted = start ? m_shape.firstFields : end ? m_shape.lastFields : m_shape.fields;
        checkFields(m_file[i], m_shape, wanted, !start && !end, m_findings);
    }

private:
    std::string_view bytes(const CheckedFile::Row& row) const
    {
        return std::string_view(m_file.m_bytes).substr(row.offset, row.length);
    }

    const FileShape& m_shape;
    Findings& m_findings;
    CheckedFile m_file;
    std::optional<LineWalk> m_walk;  // nothing where there are no bytes
    int m_lastLine = 0;
    bool m_onlyFirst = false;
};

std::shared_ptr<const CheckedFile> ReadChecked(const std::string& folder, const FileShape& shape, CheckSteps& steps,
                                               Findings& findings)
{
    const auto reader = std::make_shared<FileReader>(shape, findings);
    steps.once([reader, &folder] { reader->open(folder); });
    steps.again([reader] { return reader->nextLine(); });
    steps.once([reader] { reader->endOfLines(); });
    steps.again([reader] { return reader->dropTail(); });
    steps.once(
        [reader, &steps] { steps.rows(reader->file().size(), [reader](std::size_t row) { reader->checkRow(row); }); });
    return {reader, &reader->file()};
}
