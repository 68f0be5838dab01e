// Plan, profile and cross-section in their windows: what mouse, wheel and keys do, what leaves as a file, and that
// nothing shared moves.

#include "controls/XPButton.h"
#include "editors/windows/frmJdpqx.h"
#include "engine/Route.h"
#include "plot/Sheets.h"
#include "project/LoadProject.h"
#include "screens/windows/frmDgdZb.h"
#include "screens/windows/frmJgw.h"
#include "support/ProjectFolder.h"
#include "support/QtTests.h"
#include "support/RunProgram.h"
#include "support/ScriptedDialogs.h"
#include "support/Windows.h"
#include "ui/MSFlexGrid.h"
#include "views/PicturePainter.h"
#include "views/PlanArea.h"
#include "views/ProfileArea.h"
#include "views/TypedStake.h"
#include "views/Views.h"
#include "views/frmHdm.h"
#include "views/frmPmt.h"
#include "views/frmZdm.h"

#include <QClipboard>
#include <QSignalSpy>
#include <QWheelEvent>

#include <cstring>
#include <filesystem>
#include <fstream>

namespace {

namespace fs = std::filesystem;

/// The samples as a workspace, 示例一 loaded.
struct Samples {
    ProjectFolder folder;
    Samples()
    {
        for (const char* name : {"示例一", "示例二"})
            fs::copy(fs::path(VM_SOURCE_DIR "/samples") / name, ProjectPath(name));
        std::ofstream(WorkspacePath() + "/项目名称.txt", std::ios::binary | std::ios::trunc)
            << Cp936FromUtf8("示例一\r\n示例二\r\n");
        load("示例一");
    }
    static void load(const char* name)
    {
        gProject = name;
        LoadProject();
    }
    std::map<std::string, std::string> files() const
    {
        std::map<std::string, std::string> all;
        for (const auto& entry : fs::recursive_directory_iterator(WorkspacePath()))
            if (entry.is_regular_file()) all[entry.path().string()] = ProjectFolder::bytesOf(entry.path().string());
        return all;
    }
};

void shown(QWidget& window)
{
    window.show();
    QVERIFY(QTest::qWaitForWindowExposed(&window));
}

QPointF screenOf(const PlanArea& area, double stake, double offset)
{
    const auto p = pointAt(shared.tables, stake, 90, offset);
    const plot::Road road(shared.tables);
    return area.onScreen(road.local(p->x, p->y));
}

void wheel(QWidget& widget, QPointF at, int steps)
{
    QWheelEvent event(at, widget.mapToGlobal(at), {}, {0, 120 * steps}, Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase,
                      false);
    QApplication::sendEvent(&widget, &event);
}

QString readOut(const QWidget& form) { return named<QLabel>(form, "lblReadOut").text(); }
QString pinned(const QWidget& form) { return named<QLabel>(form, "lblPinned").text(); }

}  // namespace

class tst_Views : public QObject {
    Q_OBJECT
private slots:
    void theTableListsEveryElement()
    {
        Samples samples;
        frmPmt form;
        shown(form);
        const auto& grid = named<MSFlexGrid>(form, "MsfgPmt");
        QCOMPARE(grid.Rows() - 1,
                 39);  // four for each of ten points and the first straight, less two spirals of no length
        QCOMPARE(grid.TextMatrix(2, 1), QStringLiteral("缓和曲线"));
        QCOMPARE(grid.TextMatrix(2, 2), QStringLiteral("K12+364.042"));
        QCOMPARE(grid.TextMatrix(2, 4), QStringLiteral("60.000"));
        QCOMPARE(grid.TextMatrix(2, 6), QStringLiteral("158.745"));  // root of 60 times 420
        QCOMPARE(grid.TextMatrix(3, 5), QStringLiteral("右420"));
    }

    void theCursorReadsAndAClickPins()
    {
        Samples samples;
        frmPmt form;
        shown(form);
        type(form, "txtLc", "K12+480");
        click(form, "cmdZd");
        QVERIFY(pinned(form).contains(u"K12+480.000"));
        const QPoint at = screenOf(form.area(), 12480, 3).toPoint();
        QTest::mouseMove(&form.area(), at + QPoint(1, 1));  // of a first way some desktops tell only that it came in
        QTest::mouseMove(&form.area(), at);
        QTRY_VERIFY(readOut(form).contains(u"K12+4"));
        QVERIFY(readOut(form).contains(u"右"));
        QVERIFY(readOut(form).contains(u"圆曲线 R=右420"));
        QVERIFY(readOut(form).contains(u"高程 "));
        QTest::mouseClick(&form.area(), Qt::LeftButton, {}, at);
        const QString kept = pinned(form);
        QTest::mouseMove(&form.area(), at + QPoint(60, 40));
        QCOMPARE(pinned(form), kept);
    }

    void theButtonsAskForTheOtherViewsAtThePin()
    {
        Samples samples;
        frmPmt form;
        shown(form);
        QSignalSpy profile(&form, &frmPmt::profileWanted), section(&form, &frmPmt::sectionWanted);
        type(form, "txtLc", "K12+480");
        click(form, "cmdZd");
        click(form, "cmdZdm");
        click(form, "cmdHdm");
        QCOMPARE(profile, QList<QVariantList>{{12480.0}});
        QCOMPARE(section, QList<QVariantList>{{12480.0}});
    }

    void theWheelZoomsToTheCursorAndADragPans()
    {
        Samples samples;
        frmPmt form;
        shown(form);
        auto& area = form.area();
        const QPointF at(area.width() / 3.0, area.height() / 4.0);
        const plot::Point before = area.local(at);
        const double scale = area.scale();
        wheel(area, at, 3);
        QVERIFY(area.scale() > 1.9 * scale);
        QVERIFY(plot::length(area.local(at) - before) < 1e-6);
        const plot::Point gripped = area.local({100, 100});
        QTest::mousePress(&area, Qt::LeftButton, {}, {100, 100});
        QTest::mouseMove(&area, {140, 120});
        QTest::mouseMove(&area, {160, 130});
        QTest::mouseRelease(&area, Qt::LeftButton, {}, {160, 130});
        QVERIFY(plot::length(area.local({160, 130}) - gripped) < 1e-6);
        QVERIFY(pinned(form).isEmpty());  // a drag is no click
        QTest::keyClick(&area, Qt::Key_Home);
        QVERIFY(std::abs(area.scale() - scale) < 1e-9);
    }

    void aStakeThatIsNoneIsSaid()
    {
        Samples samples;
        frmPmt form;
        shown(form);
        ScriptedDialogs dialogs;
        for (const char* text : {"abc", "", "K13+400", "99999"}) {  // 13400 is left out by a break
            type(form, "txtLc", text);
            click(form, "cmdZd");
        }
        QCOMPARE(dialogs.messages, std::vector<Msg>(4, {"桩号不在线路上！", "注意", Icon::Exclamation}));
    }

    void enterInTheBoxGoesThere()
    {
        Samples samples;
        frmPmt form;
        shown(form);
        auto& box = named<QLineEdit>(form, "txtLc");
        box.setFocus();
        QTest::keyClicks(&box, QStringLiteral("15000"));
        QTest::keyClick(&box, Qt::Key_Return);
        QVERIFY(pinned(form).contains(u"K15+000.000"));
        QVERIFY(form.isVisible());
    }

    void thePickedElementIsThePickedRow()
    {
        Samples samples;
        frmPmt form;
        shown(form);
        auto& grid = named<MSFlexGrid>(form, "MsfgPmt");
        type(form, "txtLc", "12480");
        click(form, "cmdZd");
        QTest::mouseClick(&form.area(), Qt::LeftButton, {}, screenOf(form.area(), 12470, 0).toPoint());
        QCOMPARE(grid.Row(), 3);
        grid.setRow(30);
        emit grid.RowColChange();
        const plot::Road road(shared.tables);
        const auto middle = form.area().onScreen(road.elements()[29].box.centre());
        QVERIFY(form.area().rect().contains(middle.toPoint()));
    }

    void aDoubleClickOpensTheEditorAtItsRow()
    {
        Samples samples;
        ScriptedDialogs dialogs;
        frmPmt form;
        shown(form);
        type(form, "txtLc", "14286");  // the fourth intersection point
        click(form, "cmdZd");
        int row = 0;
        QString name, caption;
        QTimer::singleShot(400, &form, [&] {
            auto* editor = QApplication::activeModalWidget();
            if (!editor) return;
            name = editor->objectName();
            auto& grid = named<MSFlexGrid>(*editor, "MsfgJdpqx");
            row = grid.Row();
            caption = grid.TextMatrix(row, 1);
            editor->close();
        });
        const auto at = screenOf(form.area(), 14250, 0).toPoint();
        QTest::mouseDClick(&form.area(), Qt::LeftButton, {}, at);
        QCOMPARE(name, QStringLiteral("frmJdpqx"));
        QCOMPARE(row, 4);
        QCOMPARE(caption, QStringLiteral("JD4"));
    }

    void aRowOfTheResultsShowsAndIsPickedBack()
    {
        Samples samples;
        ScriptedDialogs dialogs;
        frmDgdZb screen;
        shown(screen);
        for (const char* stake : {"12340", "12400", "12460"}) {
            type(screen, "txtDgdZbFylc", stake);
            click(screen, "butDgdCalc");
        }
        auto& grid = named<MSFlexGrid>(screen, "MsfgDgdzb");
        QCOMPARE(grid.Rows(), 4);
        frmPmt form(&grid);
        shown(form);
        type(form, "txtLc", "12400");
        click(form, "cmdZd");
        grid.setRow(3);
        QTest::mouseClick(&form.area(), Qt::LeftButton, {}, screenOf(form.area(), 12400, 0).toPoint());
        QCOMPARE(grid.Row(), 2);
        form.close();
        dialogs.no();  // the screen asks about its rows
        screen.close();
    }

    void aSecondRoadIsLaidBeside()
    {
        Samples samples;
        const auto files = samples.files();
        const Shared before = shared;
        frmPmt form;
        shown(form);
        auto& list = named<QComboBox>(form, "comDj");
        QCOMPARE(list.count(), 3);
        const auto alone = form.area().grab().toImage();
        list.setCurrentIndex(2);
        emit list.activated(2);
        QVERIFY(form.area().grab().toImage() != alone);
        QCOMPARE(samples.files(), files);
        QVERIFY(shared == before);
    }

    void drawingsLeaveInFourForms()
    {
        Samples samples;
        frmPmt plan;
        frmZdm profile;
        frmHdm section;
        for (ViewForm* form :
             {static_cast<ViewForm*>(&plan), static_cast<ViewForm*>(&profile), static_cast<ViewForm*>(&section)}) {
            shown(*form);
            for (const auto& [extension, start] :
                 {std::pair{"svg", "<?xml"}, {"dxf", "  0\r\nSECTION"}, {"pdf", "%PDF"}, {"png", "\x89PNG"}}) {
                const QString path = QString::fromStdString(samples.folder.root()) + QStringLiteral("/图.") +
                                     QString::fromUtf8(extension);
                QVERIFY(form->exportTo(path));
                QVERIFY(ProjectFolder::bytesOf(path.toStdString()).starts_with(start));
            }
            form->close();
        }
    }

    void pointsOfAPdfLieWhereTheTablesSay()
    {
        for (const char* name : {"示例一", "示例二"}) {
            Samples samples;
            Samples::load(name);
            frmPmt form;
            shown(form);
            const std::string pdf = samples.folder.root() + "/plan.pdf",
                              points = samples.folder.root() + "/points.json";
            QVERIFY(form.exportTo(QString::fromStdString(pdf)));
            std::ofstream file(points);
            const plot::Road road(shared.tables);
            file.precision(17);
            file << R"({"scale": )" << plot::planScale(road, plot::kA3, road.start(), road.end()) << R"(, "points": [)";
            const char* between = "";
            for (std::size_t i = 0; i < static_cast<std::size_t>(gElemCount); ++i) {
                if (gElemLc[i + 1] - gElemLc[i] < 1e-4) continue;
                file << between << '[' << gElemX[i] << ", " << gElemY[i] << ']';
                between = ", ";
            }
            file << "]}";
            file.close();
            const Ran ran = runProgram("/usr/bin/python3", {VM_SOURCE_DIR "/tests/plot/read_paper.py", pdf, points});
            QVERIFY2(ran.code == 0, ran.err.c_str());
        }
    }

    void sheetsOfAScaleLeaveAsPagesOfTheirPaper()
    {
        Samples samples;
        frmPmt plan;
        frmZdm profile;
        for (ViewForm* form : {static_cast<ViewForm*>(&plan), static_cast<ViewForm*>(&profile)}) {
            shown(*form);
            named<QComboBox>(*form, "comBl").setCurrentIndex(5);  // 1:2000: the road of 6.5 km is 3.3 m of paper
            named<QComboBox>(*form, "comTz").setCurrentIndex(1);
            const std::string pdf = samples.folder.root() + "/sheets.pdf";
            QVERIFY(form->exportTo(QString::fromStdString(pdf)));
            const std::string told = runProgram("/usr/bin/pdfinfo", {pdf}).out;
            const auto number = [&](const char* name) {
                return QString::fromStdString(told.substr(told.find(name) + std::strlen(name))).trimmed();
            };
            QVERIFY(number("Pages:").section(u'\n', 0, 0).toInt() >= 13);  // 3.3 m on windows of 267 mm
            QVERIFY(told.find("(A4)") != std::string::npos);
            const QString png = QString::fromStdString(samples.folder.root()) + QStringLiteral("/图.png");
            QVERIFY(form->exportTo(png));
            const QImage first(QString::fromStdString(samples.folder.root()) + QStringLiteral("/图-01.png"));
            QCOMPARE(first.size(), QSize(2339, 1654));  // 297 x 210 mm at 200 dots an inch
            QVERIFY(!fs::exists(png.toStdString()));
            form->close();
        }
    }

    void cornersOfStructuresAreOutlined()
    {
        Samples samples;
        ScriptedDialogs dialogs;
        frmJgw screen;
        shown(screen);
        type(screen, "txtJgwFylc", "12480");
        for (const auto& [box, text] :
             {std::pair{"txtJgwKq", "4"}, {"txtJgwKh", "6"}, {"txtJgwZz", "9"}, {"txtJgwZy", "11"}})
            type(screen, box, text);
        click(screen, "butJgwCalc");
        auto& grid = named<MSFlexGrid>(screen, "MsfgJgw");
        QCOMPARE(grid.Rows(), 5);
        frmPmt form(&grid);
        shown(form);
        const QString path = QString::fromStdString(samples.folder.root()) + QStringLiteral("/图.dxf");
        QVERIFY(form.exportTo(path));
        // One closed outline of four corners: sides of 20, 10, 20 and 10 m in turn, not a bow tie.
        const std::string dxf = ProjectFolder::bytesOf(path.toStdString());
        const auto from = dxf.find("LWPOLYLINE", dxf.find("ENTITIES"));
        std::vector<plot::Point> corners;
        for (auto at = from; at != std::string::npos; at = dxf.find("LWPOLYLINE", at + 1)) {
            const auto end = dxf.find("\r\n  0\r\n", at);
            const auto entity = QString::fromStdString(dxf.substr(at, end - at)).split(QStringLiteral("\r\n"));
            if (!entity.contains(QStringLiteral("计算点"))) continue;
            for (int i = 0; i + 3 < entity.size(); ++i)
                if (entity[i] == u" 10" && entity[i + 2] == u" 20")
                    corners.push_back({entity[i + 1].toDouble(), entity[i + 3].toDouble()});
        }
        QCOMPARE(corners.size(), 4u);
        std::vector<double> sides;
        for (std::size_t i = 0; i < 4; ++i) sides.push_back(plot::length(corners[(i + 1) % 4] - corners[i]));
        QVERIFY(std::abs(sides[0] - sides[2]) < 0.003 && std::abs(sides[1] - sides[3]) < 0.003);
        QVERIFY(std::abs(std::min(sides[0], sides[1]) - 10) < 0.003);
        QVERIFY(std::abs(std::max(sides[0], sides[1]) - 20) < 0.003);
        form.close();
        dialogs.no();
        screen.close();
    }

    void anExistingFileIsAskedAbout()
    {
        Samples samples;
        frmPmt form;
        shown(form);
        ScriptedDialogs dialogs;
        const std::string path = samples.folder.root() + "/图.svg";
        dialogs.save(samples.folder.root() + "/图");
        named<QAction>(form, "svg").trigger();
        QVERIFY(fs::exists(path));
        std::ofstream(path, std::ios::trunc) << "old";
        dialogs.save(path).no();
        named<QAction>(form, "svg").trigger();
        QCOMPARE(ProjectFolder::bytesOf(path), std::string("old"));
        dialogs.save("/no/such/folder/图.svg");
        named<QAction>(form, "svg").trigger();
        QCOMPARE(dialogs.last().icon, Icon::Exclamation);
    }

    void theProfileReadsLeftCentreAndRight()
    {
        Samples samples;
        frmZdm form;
        shown(form);
        auto& area = form.area();
        QTest::mouseMove(&area, {area.width() / 2, area.height() / 3});
        QTRY_VERIFY(readOut(form).contains(u"左边缘"));
        QVERIFY(readOut(form).contains(u"中桩") && readOut(form).contains(u"右边缘"));
        const double wide = area.to() - area.from();
        const QPointF at(area.width() / 2.0, 100);
        const double stake = area.stakeAt(at);
        wheel(area, at, 4);
        QVERIFY(area.to() - area.from() < wide / 2);
        QVERIFY(std::abs(area.stakeAt(at) - stake) < 1e-6);
        type(form, "txtLc", "15000");
        click(form, "cmdZd");
        QVERIFY(pinned(form).contains(u"K15+000.000"));
        QVERIFY(area.from() < 14968 && area.to() > 14968);  // continuous: 32.36 m less
    }

    void theSectionMovesBySliderAndKeys()
    {
        Samples samples;
        frmHdm form(12100.0);
        shown(form);
        QCOMPARE(form.stake(), 12100.0);
        auto& area = named<QWidget>(form, "picHdm");
        QTest::keyClick(&area, Qt::Key_Right);
        QCOMPARE(form.stake(), 12101.0);
        QTest::keyClick(&area, Qt::Key_PageDown);
        QCOMPARE(form.stake(), 12111.0);
        named<QSlider>(form, "sldLc").setValue(400);
        QCOMPARE(form.stake(), 12400.0);
        auto& grid = named<MSFlexGrid>(form, "MsfgHdm");
        QCOMPARE(grid.Rows(), 6);
        named<QCheckBox>(form, "cheLm").setChecked(true);
        type(form, "txtLmhd", "0.5");
        QVERIFY(std::abs(grid.TextMatrix(1, 3).toDouble() - grid.TextMatrix(1, 4).toDouble() - 0.5) < 1e-9);
        click(form, "cmdFz");
        QVERIFY(QApplication::clipboard()->text().contains(QStringLiteral("中桩\tK12+400.000\t0.000")));
        ScriptedDialogs dialogs;
        dialogs.save(samples.folder.root() + "/点.csv");
        click(form, "cmdDcd");
        QVERIFY(ProjectFolder::bytesOf(samples.folder.root() + "/点.csv").find("右路基边缘,K12+400.000,5.000") !=
                std::string::npos);
    }

    void nothingSharedMoves()
    {
        Samples samples;
        const Shared before = shared;
        const auto files = samples.files();
        frmPmt plan;
        frmZdm profile;
        frmHdm section;
        for (QWidget* form :
             {static_cast<QWidget*>(&plan), static_cast<QWidget*>(&profile), static_cast<QWidget*>(&section)}) {
            shown(*form);
            type(*form, "txtLc", "14000");
            click(*form, "cmdZd");
            auto& area = *form->findChild<DrawingArea*>();
            for (const QPoint at : {QPoint(50, 50), QPoint(200, 90), QPoint(300, 160)}) {
                QTest::mouseMove(&area, at);
                QTest::mouseClick(&area, Qt::LeftButton, {}, at);
                wheel(area, at, 2);
                (void)area.grab();
            }
            form->close();
        }
        QVERIFY(shared == before);
        QCOMPARE(samples.files(), files);
        QCOMPARE(gProject, std::string("示例一"));
    }

    void staleGroupsAreSaidInAmber()
    {
        Samples samples;
        samples.folder.project("空项目");
        LoadProject();  // keeps what the project before left
        frmPmt form;
        shown(form);
        const auto& notice = named<QLabel>(form, "lblNotice");
        QVERIFY(notice.isVisible());
        QVERIFY(notice.text().startsWith(u"此项目没有平曲线参数，沿用“示例一”的数据；"));
        Samples::load("示例一");
        frmPmt fresh;
        shown(fresh);
        QVERIFY(!named<QLabel>(fresh, "lblNotice").isVisible());
    }

    void aFileThatChangesWhileAViewIsOpenIsSaidWhenItIsLookedAtAgain()
    {
        Samples samples;
        frmPmt plan;
        frmZdm profile;
        frmHdm section(12400.0);
        QWidget other;
        for (ViewForm* form :
             {static_cast<ViewForm*>(&plan), static_cast<ViewForm*>(&profile), static_cast<ViewForm*>(&section)}) {
            shown(*form);
            const auto& notice = named<QLabel>(*form, "lblNotice");
            const auto amber = [&] {
                const QImage image = form->findChild<DrawingArea*>()->grab().toImage();
                const auto look = plot::lookOf(plot::Layer::Amber).colour;
                int count = 0;
                for (int y = 0; y < image.height(); ++y)
                    for (int x = 0; x < image.width(); ++x) count += image.pixel(x, y) == qRgb(look.r, look.g, look.b);
                return count;
            };
            QVERIFY(!notice.isVisible());
            QCOMPARE(amber(), 0);
            const std::string file = form == &plan ? "平曲线参数.txt" : "竖曲线参数.txt";
            const std::string bytes = samples.folder.bytes(file);
            shown(other);
            other.activateWindow();
            QTRY_VERIFY(!form->isActiveWindow());
            samples.folder.writeBytes(file, bytes + "1\r\n");
            form->activateWindow();
            QTRY_VERIFY(notice.isVisible());
            QCOMPARE(notice.text(), QString::fromStdString(file) + QStringLiteral(" 已修改，尚未重新读入"));
            QVERIFY(amber() > 20);
            samples.folder.writeBytes(file, bytes);
            form->close();
        }
    }

    void keysOpenTheViewsOnceThereIsARoad()
    {
        {
            ProjectFolder empty;
            frmDgdZb screen;
            ViewKeys keys(nullptr);
            shown(screen);
            QTest::keyClick(&screen, Qt::Key_F6);
            QVERIFY(!QApplication::activeModalWidget() || QApplication::activeModalWidget() == &screen);
            screen.close();
        }
        Samples samples;
        ScriptedDialogs dialogs;
        ViewKeys keys(nullptr);
        frmDgdZb screen;
        shown(screen);
        for (const auto& [key, name] :
             {std::pair{Qt::Key_F6, "frmPmt"}, {Qt::Key_F7, "frmZdm"}, {Qt::Key_F8, "frmHdm"}}) {
            QString seen;
            QTimer::singleShot(200, &screen, [&] {
                auto* view = QApplication::activeModalWidget();
                if (!view || view == &screen) return;
                seen = view->objectName();
                view->close();
            });
            QTest::keyClick(&screen, key);
            QCOMPARE(seen, QString::fromUtf8(name));
        }
        screen.close();
    }

    void aProjectThatIsNotOpenIsLookedAt()
    {
        Samples samples;
        const Shared before = shared;
        const auto files = samples.files();
        ScriptedDialogs dialogs;
        QWidget caller;
        QString words;
        int rows = 0;
        QTimer::singleShot(300, &caller, [&] {
            auto* view = QApplication::activeModalWidget();
            if (!view) return;
            words = view->objectName();
            rows = named<MSFlexGrid>(*view, "MsfgPmt").Rows() - 1;
            view->close();
        });
        lookAtPlan(&caller, "示例二");
        QCOMPARE(words, QStringLiteral("frmPmt"));
        QCOMPARE(rows, 17);  // blocks of its file
        lookAtProfile(&caller, "没有");
        QCOMPARE(dialogs.messages.size(), 1u);
        QVERIFY(shared == before);
        QCOMPARE(gProject, std::string("示例一"));
        QCOMPARE(samples.files(), files);
    }

    void theLineOfThePinTellsOfItsCross()
    {
        Samples samples;
        frmPmt form;
        shown(form);
        QTest::mouseClick(&form.area(), Qt::LeftButton, {}, {200, 220});
        QVERIFY(pinned(form).startsWith(u"定点："));
        type(form, "txtLc", "13412.36");
        click(form, "cmdZd");
        QVERIFY2(pinned(form).contains(u"K13+380.000"), qPrintable(pinned(form)));  // the break ahead of it
        const auto back = pointAt(shared.tables, 13380, 90, 0);
        QVERIFY(pinned(form).contains(QString::number(back->x, 'f', 3)));
        // The editor over it may leave another road: the place stays, its numbers are read anew.
        const QString before = pinned(form), x = before.section(u' ', 1, 1);
        ScriptedDialogs dialogs;
        QTimer::singleShot(400, &form, [&] {
            Samples::load("示例二");
            QApplication::activeModalWidget()->close();
        });
        QTest::mouseDClick(&form.area(), Qt::LeftButton, {}, screenOf(form.area(), 13380, 0).toPoint());
        QVERIFY(form.area().pinned());
        QVERIFY(pinned(form) != before);
        QVERIFY2(std::abs(pinned(form).section(u' ', 1, 1).toDouble() - x.toDouble()) < 1, qPrintable(pinned(form)));
    }

    void aStormOfTheWheelKeepsTheRoadInSight()
    {
        Samples samples;
        frmPmt form;
        shown(form);
        const plot::Road road(shared.tables);
        const double whole = form.area().scale();
        const QPointF middle = QRectF(form.area().rect()).center();
        for (int i = 0; i < 120; ++i) wheel(form.area(), middle, -1);
        QVERIFY(std::max(road.box().width(), road.box().height()) * form.area().scale() > 12);
        for (int i = 0; i < 200; ++i) wheel(form.area(), middle, 1);
        QCOMPARE(form.area().scale(), 1000.0);  // a millimetre a pixel
        (void)form.grab();
        click(form, "cmdQt");
        QCOMPARE(form.area().scale(), whole);
    }

    void keysGoToTheDrawing()
    {
        Samples samples;
        frmPmt plan;
        frmZdm profile;
        frmHdm section(12100.0);
        for (auto& [form, area] : std::initializer_list<std::pair<ViewForm*, const char*>>{
                 {&plan, "picPmt"}, {&profile, "picZdm"}, {&section, "picHdm"}}) {
            shown(*form);
            QCOMPARE(form->focusWidget()->objectName(), QString::fromLatin1(area));
        }
        QTest::keyClick(section.focusWidget(), Qt::Key_Right);
        QCOMPARE(section.stake(), 12101.0);
    }

    void aLowProfileKeepsItsBands()
    {
        Samples samples;
        frmZdm form;
        shown(form);
        auto& area = *form.findChild<ProfileArea*>();
        area.setParent(nullptr);  // as a low screen has it, whatever the window around it needs
        for (const QSize size : {QSize(900, 560), QSize(880, 330), QSize(880, 285)}) {
            area.setFixedSize(size);
            shown(area);
            // Lines run between and under the six bands, from the titles to the end: rows of dark pixels.
            const QImage image = area.grab().toImage();
            const auto dark = [&](int y) {
                int n = 0;
                for (int x = 0; x < image.width(); ++x) n += qGray(image.pixel(x, y)) < 150;
                return n > image.width() * 8 / 10;
            };
            int lines = 0;
            for (int y = 2; y < image.height() - 2; ++y) lines += dark(y) && !dark(y - 1);
            QVERIFY2(lines >= 7, qPrintable(QString::number(lines)));
        }
        area.setParent(&form);
    }

    void aProfileOfTwoMetresIsLookedAt()
    {
        ProjectFolder folder;
        shared.tables.sqxLc = {100, 102};
        shared.tables.sqxGc = {50, 50.1};
        shared.tables.sqxR = {0, 0};
        shared.tables.sqxCount = 1;
        frmZdm form;
        shown(form);
        auto& area = *form.findChild<ProfileArea*>();
        for (const int steps : {1, 1, -1, -9, 9}) {
            wheel(area, QRectF(area.rect()).center(), steps);
            QVERIFY(area.from() >= 100 && area.to() <= 102 && area.to() > area.from());
        }
        // Typed backwards, without an alignment: one section.
        shared.tables.sqxLc = {102, 100};
        frmHdm section;
        shown(section);
        QVERIFY(section.stake() <= 102 && section.stake() >= 100);
    }

    void withoutAnAlignmentTheViewsSaySo()
    {
        ProjectFolder folder;
        frmPmt plan;
        frmZdm profile;
        frmHdm section;
        ScriptedDialogs dialogs;
        for (ViewForm* form :
             {static_cast<ViewForm*>(&plan), static_cast<ViewForm*>(&profile), static_cast<ViewForm*>(&section)}) {
            shown(*form);
            (void)form->grab();
            QVERIFY(!form->exportTo(QStringLiteral("/tmp/none.svg")));
            form->close();
        }
        QCOMPARE(dialogs.messages.size(), 3u);
        QVERIFY(dialogs.messages[0].text.starts_with("没有平曲线参数"));
    }

    void typedStakes()
    {
        Samples samples;
        QCOMPARE(typedStake(shared.tables, "12500"), std::optional(12500.0));
        QCOMPARE(typedStake(shared.tables, " K12+500.5 "), std::optional(12500.5));
        QCOMPARE(typedStake(shared.tables, "13420"), std::optional(13420 - 32.36));
        QVERIFY(!typedStake(shared.tables, "13400"));
        QVERIFY(!typedStake(shared.tables, "K+"));
    }
};

VM_QT_TEST(tst_Views)
#include "tst_Views.moc"
