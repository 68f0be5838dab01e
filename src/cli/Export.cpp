#include "base/FileError.h"
#include "base/Numbers.h"
#include "base/RunTimeError.h"
#include "cli/Commands.h"
#include "cli/Results.h"
#include "exchange/ExchangeError.h"
#include "exchange/MapFile.h"
#include "exchange/ProjectExport.h"
#include "project/Workspace.h"

#include <ostream>

namespace {

std::string projectFolder() { return gProjectFolder.empty() ? ProjectPath(gProject) : gProjectFolder; }

double number(const Call& call, std::string_view option)
{
    double value = 0;
    if (!attempt([&] { value = ParseNumber(StakeNumber(call.args.value(option))); }))
        throw ExchangeError(std::string(option) + "：“" + call.args.value(option) + "”不是数");
    return value;
}

std::string landXml(const Call&, std::vector<std::string>& report)
{
    return ProjectAsLandXml(projectFolder(), gProject, report);
}

std::string map(const Call& call, MapForm form, std::vector<std::string>& report)
{
    const auto& args = call.args;
    const Tables tables = TablesOfProject(projectFolder());
    const RoadFiles files = ReadRoadFiles(projectFolder());
    MapRoad road{.name = gProject, .tables = tables, .files = files};
    const auto add = [&](const FieldRun& run) {
        FieldPoints points(tables, run);
        while (auto point = points.next()) road.points.push_back(std::move(*point));
    };
    FieldRun main;
    main.extra = MainPoints(tables, files);
    add(main);
    if (args.has("--step")) {
        if (!args.has("--from") || !args.has("--to")) throw WrongUsage("--step 还需要 --from 和 --to");
        FieldRun run;
        run.from = number(call, "--from");
        run.to = number(call, "--to");
        run.step = number(call, "--step");
        add(run);
    }
    if (args.has("--gk")) road.projection = GaussKruegerOfText(args.value("--gk"));
    if (form == MapForm::Kml && !road.projection)
        report.emplace_back("KML 应是经纬度：没有给 --gk，写的是项目自己的坐标");
    return MapText(road, form);
}

int run(const Call& call)
{
    std::vector<std::string> report;
    const std::string option = std::string(OptionsOf(call.way).front().name), path = call.args.value(option);
    bool written = false;
    try {
        const std::string text = option == "--landxml"   ? landXml(call, report)
                                 : option == "--geojson" ? map(call, MapForm::GeoJson, report)
                                                         : map(call, MapForm::Kml, report);
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

constexpr Way kWays[] = {"--landxml", "--geojson [--gk] [--from] [--to] [--step]",
                         "--kml [--gk] [--from] [--to] [--step]"};
constexpr Option kOptions[] = {
    {"--landxml", "文件", "写成 LandXML 1.2"},
    {"--geojson", "文件", "中线、主点和逐桩的点，写成 GeoJSON"},
    {"--kml", "文件", "中线、主点和逐桩的点，写成 KML"},
    {"--gk", "中央子午线[,东偏移]", "换算成 CGCS2000 的经纬度；东偏移不给时为 500000，38500000 带有带号"},
    {"--from", "桩号", "逐桩的点的开始里程"},
    {"--to", "桩号", "逐桩的点的结束里程"},
    {"--step", "间距", "逐桩的点的间距，米；不给时只有主点"},
};

}  // namespace

const Command kExportCommand{
    .name = "export",
    .summary = "把线路写成别的程序能读的文件",
    .help = R"(LandXML 里有平曲线、交点、断链、纵断面、超高和导线点，另附参数文件的原文，导入时逐字恢复。
边坡参数不导出。日期和时间是最新的参数文件的，所以同一条线路总是写出同一个文件。

例子：
  velumark-calc 示例一 export --landxml 示例一.xml
  velumark-calc 示例一 export --geojson 示例一.geojson --gk 117 --from 12000 --to 13000 --step 20
  velumark-calc 示例一 export --kml 示例一.kml --gk 117,39500000
)",
    .ways = kWays,
    .options = kOptions,
    .loads = false,
    .forms = "",
    .run = run,
};
