#include "base/FileError.h"
#include "cli/Commands.h"
#include "exchange/ExchangeError.h"
#include "exchange/ProjectExport.h"
#include "project/Workspace.h"

#include <ostream>

namespace {

std::string projectFolder() { return gProjectFolder.empty() ? ProjectPath(gProject) : gProjectFolder; }

int run(const Call& call)
{
    std::vector<std::string> report;
    const std::string path = call.args.value("--landxml");
    bool written = false;
    try {
        const std::string text = ProjectAsLandXml(projectFolder(), gProject, report);
        written = WriteOutput(call, path, [&] { return text; });
    } catch (const ExchangeError& error) {
        call.err << error.what() << '\n';
    } catch (const FileError& error) {
        call.err << error.what() << '\n';
    }
    if (written && !call.args.has("--quiet"))
        for (const auto& line : report) call.err << line << '\n';
    return written ? kDone : kRefused;
}

constexpr Way kWays[] = {"--landxml"};
constexpr Option kOptions[] = {
    {"--landxml", "文件", "写成 LandXML 1.2"},
};

}  // namespace

const Command kExportCommand{
    .name = "export",
    .summary = "把线路写成别的程序能读的文件",
    .help = R"(LandXML 里有平曲线、交点、断链、纵断面、超高和导线点，另附参数文件的原文，导入时逐字恢复。
边坡参数不导出。日期和时间是最新的参数文件的，所以同一条线路总是写出同一个文件。

例子：
  velumark-calc 示例一 export --landxml 示例一.xml
)",
    .ways = kWays,
    .options = kOptions,
    .loads = false,
    .forms = "",
    .run = run,
};
