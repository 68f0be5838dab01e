#include "exchange/windows/Exchange.h"

#include "base/FileBytes.h"
#include "base/ReplaceFile.h"
#include "exchange/FieldFile.h"
#include "exchange/GridPoints.h"
#include "exchange/MapFile.h"
#include "exchange/ProjectExport.h"
#include "exchange/windows/Saying.h"
#include "exchange/windows/frmDr.h"
#include "exchange/windows/frmDrBg.h"
#include "exchange/windows/frmScbj.h"
#include "project/Workspace.h"
#include "ui/MSFlexGrid.h"
#include "ui/RunHandler.h"

#include <QMenu>

using namespace Qt::StringLiterals;

void ImportProject(QWidget* caller, const std::function<void(const QString& name)>& listed)
{
    const auto path = dialogs().openFile("LandXML (*.xml)|*.xml|");
    if (!path) return;
    saying([&] {
        frmDr form{landxml::File(*path)};
        QStringList said;
        QObject::connect(&form, &frmDr::created, &form, [&](const QString& name, const QStringList& report) {
            listed(name);
            said = report;
        });
        form.showModal(caller);
        if (said.isEmpty()) return;
        frmDrBg report(u"导入报告"_s, said);
        report.showModal(caller);
    });
}

void ExportProject(QWidget* caller, const QString& project)
{
    const auto path = dialogs().saveFile("LandXML (*.xml)|*.xml|GeoJSON (*.geojson)|*.geojson|");
    if (!path) return;
    std::vector<std::string> report;
    const bool written = saying([&] {
        const std::string name = toUtf8(project), folder = ProjectPath(name);
        if (!fromUtf8(*path).endsWith(u".geojson"_s, Qt::CaseInsensitive))
            return WriteResult(*path, ProjectAsLandXml(folder, name, report));
        const Tables tables = TablesOfProject(folder);
        const RoadFiles files = ReadRoadFiles(folder);
        FieldRun run;
        run.extra = MainPoints(tables, files);
        MapRoad road{.name = name, .tables = tables, .files = files};
        FieldPoints points(tables, run);
        while (auto point = points.next()) road.points.push_back(std::move(*point));
        WriteResult(*path, MapText(road, MapForm::GeoJson));
    });
    if (!written) return;
    if (report.empty()) {
        dialogs().box({"保存成功！", "", Icon::Information});
        return;
    }
    QStringList lines{u"已写出 "_s + fromUtf8(*path)};
    for (const auto& line : report) lines << fromUtf8(line);
    frmDrBg form(u"导出报告"_s, lines);
    form.showModal(caller);
}

void addSaveAs(MSFlexGrid& grid)
{
    auto* menu = grid.contextMenu();
    menu->addSeparator();
    auto* entry = menu->addAction(u"另存为…"_s, &grid, [&grid] {
        runHandler([&grid] {
            if (grid.Rows() < 2) {
                dialogs().box({"没有计算数据，无需保存！", "注意", Icon::Exclamation});
                return;
            }
            const auto path = dialogs().saveFile("Excel 工作簿 (*.xlsx)|*.xlsx|点号,编码,Y,X,H (*.dat)|*.dat|CSV "
                                                 "(*.csv)|*.csv|文本 (*.txt)|*.txt|GSI-16 "
                                                 "(*.gsi)|*.gsi|");
            if (!path) return;
            if (saying([&] { SaveGridAs(*path, gProject, grid.text(), shared.tables); }))
                dialogs().box({"保存成功！", "", Icon::Information});
        });
    });
    entry->setObjectName(u"mnuSaveAs"_s);
}

void addComparison(MSFlexGrid& grid)
{
    auto* entry = grid.contextMenu()->addAction(u"实测比较…"_s, &grid, [&grid] {
        runHandler([&grid] {
            const auto path = dialogs().openFile("实测点 (*.dat;*.csv;*.txt;*.gsi)|*.dat *.csv *.txt *.gsi|");
            if (!path) return;
            std::vector<MeasuredPoint> measured;
            if (!saying([&] { measured = ReadMeasured(*path, ReadBytes(*path)); })) return;
            frmScbj form(shared.tables, std::move(measured));
            form.showModal(grid.window());
        });
    });
    entry->setObjectName(u"mnuScbj"_s);
}
