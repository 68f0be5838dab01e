// The windows of import, export, saving a grid in other forms, and measured points.

#include "RoadXml.h"

#include "base/FileBytes.h"
#include "base/ReplaceFile.h"
#include "controls/XPButton.h"
#include "exchange/windows/Exchange.h"
#include "exchange/windows/frmDr.h"
#include "exchange/windows/frmScbj.h"
#include "project/LoadTables.h"
#include "support/ProjectFolder.h"
#include "support/QtTests.h"
#include "support/ScriptedDialogs.h"
#include "support/Windows.h"
#include "ui/MSFlexGrid.h"

#include <QMenu>
#include <QPlainTextEdit>
#include <QProcess>

using namespace Qt::StringLiterals;

namespace {

std::string roadXml()
{
    RoadXml xml;
    return xml.text({{200, 0, 0}, {60, 0, 400}, {150, 400, 400}, {60, 400, 0}, {300, 0, 0}});
}

std::string inFolder(const char* name) { return gAppPath + "/" + name; }

/// Three points of a batch in a grid of coordinates.
void fill(MSFlexGrid& grid)
{
    grid.setCols(4);
    grid.setRows(1);
    int c = 0;
    for (const auto& header : {u"序号"_s, u"里 程"_s, u"X坐标"_s, u"Y坐标"_s}) grid.setTextMatrix(0, c++, header);
    grid.appendRow({{StakeCell(1000), Fixed3Cell(3000000), Fixed3Cell(500000)}, ""});
    grid.appendRow({{StakeCell(1020.5), Fixed3Cell(3000017.75), Fixed3Cell(500010.25)}, ""});
}

QAction& entry(const MSFlexGrid& grid, const char* name)
{
    return *grid.contextMenu()->findChild<QAction*>(QString::fromUtf8(name));
}

/// What another program reads out of a PDF.
QString pdfText(const std::string& path)
{
    QProcess reader;
    reader.start(u"pdftotext"_s, {u"-layout"_s, QString::fromStdString(path), u"-"_s});
    if (!reader.waitForFinished()) return {};
    // A font that draws a radical and the character of its shape alike makes the reader pick either.
    return QString::fromUtf8(reader.readAllStandardOutput()).normalized(QString::NormalizationForm_KC);
}

}  // namespace

class tst_Exchange : public QObject {
    Q_OBJECT

private slots:
    void importMakesAProjectAndShowsItsReport()
    {
        ProjectFolder folder;
        WriteBytes(inFolder("a.xml"), roadXml());
        ScriptedDialogs dialogs;
        dialogs.open(inFolder("a.xml"));
        QStringList listed;
        QString report;
        QTimer::singleShot(0, qApp, [&] {
            auto* form = QApplication::activeModalWidget();
            QVERIFY(form);
            QCOMPARE(textOf(*form, "txtDrMc"), u"K"_s);
            type(*form, "txtDrMc", " 新线 ");
            QTimer::singleShot(0, qApp, [&] {
                auto* shown = QApplication::activeModalWidget();
                QVERIFY(shown);
                report = named<QPlainTextEdit>(*shown, "txtDrBg").toPlainText();
                click(*shown, "butDrBgBack");
            });
            click(*form, "cmdDrOK");
        });
        ImportProject(nullptr, [&](const QString& name) { listed << name; });
        QCOMPARE(listed, QStringList{u"新线"_s});
        QVERIFY(report.contains(u"第2个单元（Spiral）"_s));
        QVERIFY(FileExists(ProjectPath("新线") + "/平曲线参数.txt"));
    }

    void aTakenNameIsRefusedAndTheFormStays()
    {
        ProjectFolder folder;
        WriteBytes(inFolder("a.xml"), roadXml());
        ScriptedDialogs dialogs;
        dialogs.open(inFolder("a.xml"));
        QStringList listed;
        useModal([&] { ImportProject(nullptr, [&](const QString& name) { listed << name; }); },
                 [&](QWidget& form) {
                     type(form, "txtDrMc", "测试");
                     click(form, "cmdDrOK");
                     QVERIFY(form.isVisible());
                     type(form, "txtDrMc", "新");
                     type(form, "txtDrPy", "1.5");
                     click(form, "cmdDrOK");
                     QVERIFY(form.isVisible());
                 });
        QCOMPARE(listed, QStringList());
        QCOMPARE(dialogs.messages.size(), size_t(2));
        QCOMPARE(dialogs.messages[0].title, std::string("错误"));
        QVERIFY(dialogs.messages[1].text.find("整米数") != std::string::npos);
    }

    void aFileThatIsNoRoadIsOneBox()
    {
        ProjectFolder folder;
        WriteBytes(inFolder("a.xml"), "<a/>");
        ScriptedDialogs dialogs;
        dialogs.open(inFolder("a.xml"));
        ImportProject(nullptr, [](const QString&) { QFAIL("nothing was made"); });
        QCOMPARE(dialogs.messages, (std::vector<Msg>{{"不是 LandXML 文件", "注意", Icon::Exclamation}}));
    }

    void exportWritesLandXml()
    {
        ProjectFolder folder{{"其他参数.txt", "积木法\r\n未设置\r\n未设置\r\n未设置\r\n未设置\r\n"},
                             {"平曲线参数.txt", "0,100,1,2,0,0,0\r\n"}};
        ScriptedDialogs dialogs;
        dialogs.save(inFolder("b.xml")).save(inFolder("b.geojson"));
        ExportProject(nullptr, u"测试"_s);
        ExportProject(nullptr, u"测试"_s);
        QVERIFY(ReadBytes(inFolder("b.xml")).find("<Line length=\"100\"") != std::string::npos);
        QVERIFY(ReadBytes(inFolder("b.geojson")).find("LineString") != std::string::npos);
        QCOMPARE(dialogs.messages.size(), size_t(2));
        QCOMPARE(dialogs.messages[0].text, std::string("保存成功！"));
    }

    void aGridIsSavedInOtherForms()
    {
        ProjectFolder folder;
        MSFlexGrid grid;
        addSaveAs(grid);
        ScriptedDialogs dialogs;
        grid.setRows(1);
        entry(grid, "mnuSaveAs").trigger();
        QCOMPARE(dialogs.messages.back().text, std::string("没有计算数据，无需保存！"));
        fill(grid);
        dialogs.save(inFolder("c.dat")).save(inFolder("c.xlsx")).save(inFolder("c.doc"));
        for (int i = 0; i < 3; ++i) entry(grid, "mnuSaveAs").trigger();
        QCOMPARE(ReadBytes(inFolder("c.dat")),
                 std::string("01000000,ZZ,500000.000,3000000.000,\r\n01020500,ZZ,500010.250,3000017.750,\r\n"));
        QVERIFY(ReadBytes(inFolder("c.xlsx")).starts_with("PK"));
        QVERIFY(dialogs.messages.back().text.find(".xlsx") != std::string::npos);
    }

    void measuredPointsBeyondAToleranceAreAmber()
    {
        ProjectFolder folder{{"其他参数.txt", "积木法\r\n未设置\r\n未设置\r\n未设置\r\n未设置\r\n"},
                             {"平曲线参数.txt", "0,100,1000,2000,30,0,0\r\n"}};
        Tables tables;
        loadTables(ProjectPath("测试"), tables);
        WriteBytes(inFolder("放样.txt"), "A,1008.660,2005,\r\n");
        ScriptedDialogs dialogs;
        dialogs.open(inFolder("放样.txt")).save(inFolder("d.xlsx")).save(inFolder("d.pdf"));
        frmScbj form(tables, {{"A", 1008.72, 2005, {}}, {"B", 5, 5, {}}});
        form.show();
        auto& grid = named<MSFlexGrid>(form, "MsfgScbj");
        QCOMPARE(grid.Rows(), 3);
        QCOMPARE(grid.warning(1), QString());
        QCOMPARE(grid.warning(2), u"没有找到对应的桩号"_s);
        type(form, "txtScbjPm", "0.05");
        click(form, "butScbjFy");
        QCOMPARE(grid.warning(1), u"超过限差"_s);
        QCOMPARE(grid.TextMatrix(1, 11), u"0.060"_s);
        click(form, "butScbjSave");
        click(form, "butScbjSave");
        QVERIFY(ReadBytes(inFolder("d.xlsx")).starts_with("PK"));
        QVERIFY(ReadBytes(inFolder("d.pdf")).starts_with("%PDF"));
        const QString text = pdfText(inFolder("d.pdf"));
        QVERIFY2(text.contains(u"测试 实测点与设计比较"_s), qPrintable(text));
        for (int r = 0; r < grid.Rows(); ++r)
            for (int c = 0; c < grid.Cols(); ++c)
                QVERIFY2(text.contains(grid.TextMatrix(r, c)), qPrintable(grid.TextMatrix(r, c)));
        QCOMPARE(text.count(u"超限"_s), 1);
    }

    void everyPageOfAPrintedComparisonHasItsHeader()
    {
        ProjectFolder folder;
        ScriptedDialogs dialogs;
        dialogs.save(inFolder("e.pdf"));
        std::vector<MeasuredPoint> many;
        for (int i = 1; i <= 90; ++i) many.push_back({"P" + std::to_string(i), 5, 5, {}});
        const Tables tables;
        frmScbj form(tables, many);
        form.show();
        click(form, "butScbjSave");
        const QString text = pdfText(inFolder("e.pdf"));
        const auto pages = text.split(u'\f', Qt::SkipEmptyParts);
        QVERIFY(pages.size() > 1);
        for (const auto& page : pages) QCOMPARE(page.count(u"点位偏差"_s), 1);
        for (int i = 1; i <= 90; ++i) QVERIFY(text.contains(u"P%1 "_s.arg(i)));
    }
};

VM_QT_TEST(tst_Exchange)
#include "tst_Exchange.moc"
