#include "cli/CheckFiles.h"

#include "engine/Numbers.h"
#include "engine/RunTimeError.h"
#include "project/TextFile.h"

#include <algorithm>

namespace {

using std::to_string;

bool continuation(unsigned char c) { return (c & 0xC0) == 0x80; }

/// True where the bytes are well-formed UTF-8 with at least one Chinese character of three bytes: code page 936 does
/// not give that by chance (its two-byte pairs may look like two-byte sequences at most).
bool looksLikeUtf8(std::string_view bytes)
{
    bool three = false;
    for (std::size_t i = 0; i < bytes.size();) {
        const auto c = static_cast<unsigned char>(bytes[i]);
        const std::size_t length = c < 0x80 ? 1 : (c >> 5) == 6 ? 2 : (c >> 4) == 14 ? 3 : (c >> 3) == 30 ? 4 : 0;
        if (length == 0 || i + length > bytes.size()) return false;
        for (std::size_t k = 1; k < length; ++k)
            if (!continuation(static_cast<unsigned char>(bytes[i + k]))) return false;
        three = three || length == 3;
        i += length;
    }
    return three;
}

/// A field as it is shown: control characters would break the line.
std::string shown(std::string text)
{
    for (char& c : text)
        if (static_cast<unsigned char>(c) < ' ') c = ' ';
    return text;
}

struct RawLine {
    std::string bytes;
    int number;
};

/// The lines that hold text; reports everything about line ends, blank lines and the encoding.
std::vector<RawLine> readLines(const std::string& path, const std::string& name, std::vector<Finding>& findings)
{
    const std::string bytes = ReadBytes(path);
    std::vector<RawLine> lines;
    if (bytes.empty()) return lines;
    if (looksLikeUtf8(bytes)) findings.push_back({name, 0, 0, "文件是UTF-8编码，应为代码页936（GBK），汉字会成乱码"});
    const auto pieces = SplitLines(bytes);
    for (std::size_t i = 0; i < pieces.size(); ++i) {
        const int number = static_cast<int>(i) + 1;
        const bool last = i + 1 == pieces.size();
        if (pieces[i].empty()) {
            if (!last) findings.push_back({name, number, 0, "空行，打开项目时会被删除"});
            continue;
        }
        if (last) findings.push_back({name, number, 0, "最后一行没有以回车换行结尾，重写文件时会丢失这一行"});
        if (pieces[i].find_first_of("\r\n") != std::string::npos)
            findings.push_back({name, number, 0, "行内有单独的回车或换行符，换行应为回车加换行"});
        lines.push_back({pieces[i], number});
    }
    return lines;
}

void checkFields(CheckedRow& row, const FileShape& shape, int wanted, bool plain, std::vector<Finding>& findings)
{
    const int have = static_cast<int>(row.fields.size());
    if (have < wanted)
        findings.push_back(
            {shape.name, row.line, 0, "只有" + to_string(have) + "项，应为" + to_string(wanted) + "项，缺少的按0处理"});
    else if (have > wanted)
        findings.push_back(
            {shape.name, row.line, 0, "有" + to_string(have) + "项，应为" + to_string(wanted) + "项，多余的不读取"});
    row.numbers.assign(row.fields.size(), 0);
    for (int f = 0; f < have; ++f) {
        if (plain && (f == shape.textField || f == shape.secondTextField)) continue;
        const auto index = static_cast<std::size_t>(f);
        try {
            row.numbers[index] = ParseNumber(row.fields[index]);
        } catch (const RunTimeError&) {
            if (f < wanted)
                findings.push_back({shape.name, row.line, f + 1,
                                    row.fields[index].empty() ? "是空的，按0处理"
                                                              : "“" + shown(row.fields[index]) + "”不是数字，按0处理"});
        }
    }
}

}  // namespace

CheckedFile ReadChecked(const std::string& folder, const FileShape& shape, std::vector<Finding>& findings)
{
    CheckedFile file{shape.name, {}, false};
    const std::string path = folder + "/" + shape.name;
    if (!FileExists(path)) {
        file.missing = true;
        return file;
    }
    auto lines = readLines(path, shape.name, findings);
    const bool comma =
        std::any_of(lines.begin(), lines.end(), [](auto& l) { return l.bytes.find(',') != std::string::npos; });
    if (!lines.empty() && !comma) {
        findings.push_back({shape.name, lines.back().number, 0, "没有一行含有逗号，打开项目时程序会停住不动"});
        return file;
    }
    while (!lines.empty() && lines.back().bytes.find(',') == std::string::npos) {
        findings.push_back({shape.name, lines.back().number, 0, "末尾没有逗号的行，不读取"});
        lines.pop_back();
    }
    for (std::size_t i = 0; i < lines.size(); ++i) {
        CheckedRow row{lines[i].number, SplitFields(Utf8FromCp936(lines[i].bytes)), {}};
        const bool start = i == 0 && shape.firstFields, end = i + 1 == lines.size() && shape.lastFields;
        if (lines[i].bytes.find(',') == std::string::npos)
            findings.push_back({shape.name, row.line, 0, "这一行没有逗号，除第1项外都按0处理"});
        else
            checkFields(row, shape,
                        start ? shape.firstFields
                        : end ? shape.lastFields
                              : shape.fields,
                        !start && !end, findings);
        row.numbers.resize(row.fields.size());
        file.rows.push_back(std::move(row));
    }
    return file;
}

std::vector<std::string> ReadSettings(const std::string& folder, std::vector<Finding>& findings)
{
    const std::string name = "其他参数.txt";
    std::vector<std::string> settings;
    if (!FileExists(folder + "/" + name)) {
        findings.push_back({name, 0, 0, "文件不存在"});
        return settings;
    }
    for (const auto& line : readLines(folder + "/" + name, name, findings))
        settings.push_back(Utf8FromCp936(line.bytes));
    if (settings.size() < 4) findings.push_back({name, 0, 0, "只有" + to_string(settings.size()) + "行，应为5行"});
    const auto grades = [&](std::size_t line, int limit, const std::string& what) {
        if (line >= settings.size() || settings[line] == "未设置") return;
        try {
            const double n = ParseNumber(settings[line]);
            if (n >= 1 && n <= limit) return;
        } catch (const RunTimeError&) {
        }
        findings.push_back({name, static_cast<int>(line) + 1, 0,
                            what + "“" + settings[line] + "”不是1到" + to_string(limit) + "的数"});
    };
    grades(2, 5, "填方最大边坡级数");
    grades(3, 10, "挖方最大边坡级数");
    return settings;
}
