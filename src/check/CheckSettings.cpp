#include "base/Numbers.h"

#include "base/ParameterFiles.h"
#include "base/RunTimeError.h"
#include "check/CheckFiles.h"
#include "check/CheckLines.h"

namespace {

using std::to_string;

const std::string kName(files::settings);
constexpr const char* kUnset = "未设置";
constexpr std::size_t kLines = 5;

struct Setting {
    std::string text;
    int line = 0;
};

void grades(const std::vector<Setting>& settings, std::size_t index, int limit, const std::string& what,
            Findings& findings)
{
    if (index >= settings.size() || settings[index].text == kUnset) return;
    double n = 0;
    attempt([&] { n = ParseNumber(settings[index].text); });
    if (n >= 1 && n <= limit) return;
    findings.add(kName, settings[index].line, 0,
                 what + "“" + settings[index].text + "”不是1到" + to_string(limit) + "的数", Severity::Error);
}

/// What is read of the settings, between the steps.
struct Reading {
    std::optional<std::string> bytes;
    std::vector<Setting> settings;
    int lastLine = 0;
    std::optional<LineWalk> walk;
};

void open(Reading& reading, const std::string& folder, Findings& findings)
{
    auto file = ReadFile(folder, kName, findings);
    if (file.missing) findings.add(kName, 0, 0, "文件不存在");
    reading.bytes = std::move(file.bytes);
    if (!reading.bytes) return;
    if (LooksLikeUtf8(*reading.bytes))
        findings.add(kName, 0, 0, "文件是UTF-8编码，应为代码页936（GBK），汉字会成乱码", Severity::Error);
    reading.walk.emplace(*reading.bytes, kName, true, findings,
                         [&reading](std::size_t, std::string_view bytes, int number) {
                             reading.lastLine = number;
                             if (reading.settings.size() < kLines)
                                 reading.settings.push_back({QuotedText(bytes), number});
                         });
}

std::vector<std::string> finish(Reading& reading, Findings& findings)
{
    if (!reading.walk) return {kUnset};
    auto& settings = reading.settings;
    const LineSummary& summary = reading.walk->summary();
    if (summary.unterminated && summary.lines > kLines)
        findings.add(kName, reading.lastLine, 0, "最后一行没有以回车换行结尾，重写文件时会丢失这一行");
    if (summary.unterminated && summary.lines <= kLines) {
        // The load adds a line to a file of up to four line ends, and that line begins where the file ends.
        settings.back().text += kUnset;
        findings.add(kName, reading.lastLine, 0,
                     "最后一行没有以回车换行结尾，打开项目时后面会接上“未设置”，成为“" + settings.back().text + "”",
                     Severity::Error);
    }
    if (summary.lines + 1 < kLines)
        findings.add(kName, 0, 0, "只有" + to_string(summary.lines) + "行，应为5行", Severity::Error);
    grades(settings, 2, 5, "填方最大边坡级数", findings);
    grades(settings, 3, 10, "挖方最大边坡级数", findings);

    std::vector<std::string> texts;
    for (auto& setting : settings) texts.push_back(std::move(setting.text));
    if (texts.empty()) texts.emplace_back(kUnset);
    return texts;
}

}  // namespace

void ReadSettings(const std::string& folder, std::vector<std::string>& settings, CheckSteps& steps, Findings& findings)
{
    const auto reading = std::make_shared<Reading>();
    steps.once([reading, &folder, &findings] { open(*reading, folder, findings); });
    steps.again([reading] { return reading->walk && reading->walk->next(); });
    steps.once([reading, &settings, &findings] { settings = finish(*reading, findings); });
}
