// Amber cells in the windows: each doubt on every window that can have it, on the cells concerned and nowhere else, and
// rows and shared values as without it.

#include "FormDriver.h"
#include "RoadOfDoubts.h"

#include "screens/windows/frmDgdGc.h"
#include "screens/windows/frmDgdZb.h"
#include "screens/windows/frmFs.h"
#include "screens/windows/frmJgw.h"
#include "screens/windows/frmPlGc.h"
#include "screens/windows/frmPlfy.h"
#include "screens/windows/frmZdcs.h"
#include "support/FailingCalls.h"
#include "support/QtTests.h"
#include "support/SharedDiff.h"
#include "support/Windows.h"
#include "ui/Theme.h"

#include <functional>
#include <memory>

using namespace Qt::StringLiterals;

namespace {

enum class Station { None, Typed, Picked };

/// A window, how it makes rows, and which columns of its first row can be doubtful.
struct Case {
    const char* name;
    std::function<std::unique_ptr<QDialog>()> make;
    std::vector<std::pair<const char*, const char*>> boxes;
    const char* calc;  ///< nullptr: its rows come with the window
    const char *pick, *typed, *x, *y;
    QList<int> alignment, profile, seen;
};

template <class Window>
std::unique_ptr<QDialog> make()
{
    return std::make_unique<Window>();
}

const std::vector<Case>& cases()
{
    static const QList<int> point{4, 5, 6, 7, 8}, seen{4, 5};
    static const std::vector<Case> all{
        {"frmDgdZb",
         make<frmDgdZb>,
         {{"txtDgdZbFylc", "12100"}},
         "butDgdCalc",
         "comDgdCz",
         "cheDgdZb",
         "txtDgdCzX",
         "txtDgdCzY",
         point,
         {},
         seen},
        {"frmPlfy",
         make<frmPlfy>,
         {{"txtPlzbQdlc", "12100"}, {"txtPlzbZdlc", "12120"}, {"txtPlzbBc", "10"}, {"txtPlzbPj", "3"}},
         "butPlzbCalc",
         "comPlzbCz",
         "chePlFyzb",
         "txtPlzbCzX",
         "txtPlzbCzY",
         point,
         {},
         seen},
        {"frmJgw",
         make<frmJgw>,
         {{"txtJgwFylc", "12100"}, {"txtJgwKq", "1"}, {"txtJgwKh", "1"}, {"txtJgwZz", "2"}, {"txtJgwZy", "2"}},
         "butJgwCalc",
         "comJgwCz",
         "cheJgw",
         "txtJgwCzX",
         "txtJgwCzY",
         point,
         {},
         seen},
        {"frmFs",
         make<frmFs>,
         {{"txtFsx", "5100"}, {"txtFsY", "1002"}},
         "butFsCalc",
         nullptr,
         nullptr,
         nullptr,
         nullptr,
         {3, 4},
         {},
         {}},
        {"frmDgdGc",
         make<frmDgdGc>,
         {{"txtDgdGcFylc", "12100"}},
         "butDgdGcCalc",
         nullptr,
         nullptr,
         nullptr,
         nullptr,
         {},
         {3},
         {}},
        {"frmPlGc",
         make<frmPlGc>,
         {{"txtPlGcQdlc", "12100"}, {"txtPlGcZdlc", "12120"}, {"txtPlGcPj", "3"}, {"txtPlGcJj", "10"}},
         "butPlGcCalc",
         nullptr,
         nullptr,
         nullptr,
         nullptr,
         {},
         {3, 5, 7},
         {}},
        {"frmZdcs",
         make<frmZdcs>,
         {},
         nullptr,
         nullptr,
         nullptr,
         nullptr,
         nullptr,
         {1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15, 16, 17, 18, 19, 20, 21},
         {},
         {}},
    };
    return all;
}

/// What a window shows after a calculation.
struct Seen {
    QStringList texts;
    QMap<QString, QList<int>> doubts;  ///< columns of row 1 by tool tip; the other rows have the same
    Shared after;
};

Seen calculated(const Case& c, Station station)
{
    const auto window = c.make();
    window->show();
    for (const auto& [box, text] : c.boxes) type(*window, box, text);
    if (c.pick && station == Station::Typed) {
        named<QCheckBox>(*window, c.typed).setChecked(true);
        type(*window, c.x, "4900");
        type(*window, c.y, "1000");
    } else if (c.pick && station == Station::Picked) {
        auto& pick = named<PickList>(*window, c.pick);
        QTest::keyClick(&pick, Qt::Key_Down);
    }
    if (c.calc) click(*window, c.calc);
    const auto& grid = *window->findChild<MSFlexGrid*>();
    Seen seen;
    for (int row = 1; row < grid.Rows(); ++row)
        for (int col = 0; col < grid.Cols(); ++col) seen.texts << grid.TextMatrix(row, col);
    if (grid.Rows() < 2) qFatal("%s: no row", c.name);
    for (int col = 1; col < grid.Cols(); ++col) {
        const auto cell = grid.model()->index(0, col - 1);
        const QString tip = cell.data(Qt::ToolTipRole).toString();
        if (cell.data(Qt::AccessibleDescriptionRole).toString() != tip) qFatal("what a reader of the screen says");
        if ((cell.data(Qt::BackgroundRole).value<QColor>() == theme::kAmber) == tip.isEmpty()) qFatal("amber");
        if (!tip.isEmpty()) seen.doubts[tip] << col;
        for (int row = 2; row < grid.Rows(); ++row)
            if (!grid.TextMatrix(row, col).isEmpty() && grid.doubt(row, col) != tip) qFatal("another row %d", row);
    }
    seen.after = shared;
    if (c.calc) {
        auto* dialogs_ = static_cast<ScriptedDialogs*>(&dialogs());
        dialogs_->no();  // unsaved results
    }
    window->close();
    return seen;
}

using Doubts = QMap<QString, QList<int>>;
Doubts on(const QString& text, const QList<int>& columns)
{
    return columns.isEmpty() ? Doubts() : Doubts{{text, columns}};
}

}  // namespace

class tst_doubts : public QObject {
    Q_OBJECT

    /// Runs every window plainly, then after `change`: the texts are the same, and these cells are amber.
    static void compare(const std::function<void(Workspace&)>& change, const std::function<Doubts(const Case&)>& wanted,
                        Station station = Station::Typed)
    {
        for (const auto& c : cases()) {
            Workspace w;
            const Shared loaded = shared;
            const Seen plain = calculated(c, station);
            QVERIFY2(plain.doubts.isEmpty(), c.name);
            shared = loaded;
            change(w);
            shared = loaded;  // what is compared starts alike
            const Seen doubted = calculated(c, station);
            QCOMPARE(doubted.doubts, wanted(c));
            QCOMPARE(doubted.texts, plain.texts);
            QCOMPARE(differences(doubted.after, plain.after), "");
            QVERIFY(w.dialogs.messages.size() <= 3);  // the questions at closing and what a load says
        }
    }

private slots:
    void theAlignmentChangedOnDisk()
    {
        compare([](Workspace& w) { w.folder.write("平曲线参数.txt", "12000,1,1\r\nJD1,2,2,0,0,9\r\n3,5\r\n"); },
                [](const Case& c) { return on(u"平曲线参数.txt 已修改，尚未重新读入"_s, c.alignment); });
    }

    void theProfileChangedOnDisk()
    {
        compare([](Workspace& w) { w.folder.write("竖曲线参数.txt", "12000,1\r\n12500,2,0\r\n13500,3\r\n"); },
                [](const Case& c) { return on(u"竖曲线参数.txt 已修改，尚未重新读入"_s, c.profile); });
    }

    void theWidthsChangedOnDisk()
    {
        compare([](Workspace& w) { w.folder.write("超高宽度参数.txt", ""); },
                [](const Case& c) { return on(u"超高宽度参数.txt 已修改，尚未重新读入"_s, c.profile); });
    }

    void breaksChangedOnDiskConcernBoth()
    {
        compare([](Workspace& w) { w.folder.write("断链参数.txt", "12300,12320\r\n"); },
                [](const Case& c) { return on(u"断链参数.txt 已修改，尚未重新读入"_s, c.alignment + c.profile); });
    }

    void theTraverseChangedOnDiskConcernsAPickedStation()
    {
        const auto change = [](Workspace& w) { w.folder.write("导线点参数.txt", "P0,1,1,\r\nP1,2,2,\r\n"); };
        compare(
            change, [](const Case&) { return Doubts(); }, Station::Typed);
        compare(
            change, [](const Case& c) { return on(u"导线点参数.txt 已修改，尚未重新读入"_s, c.seen); },
            Station::Picked);
    }

    void theGroupsOfAnotherProject()
    {
        compare(
            [](Workspace& w) {
                w.folder.project("另一", {{"其他参数.txt", "交点法\r\n线性\r\n2\r\n3\r\n12\r\n"}});
                LoadProject();
            },
            [](const Case& c) {
                Doubts doubts = on(u"此项目没有平曲线参数，沿用“示例一”的数据"_s, c.alignment);
                doubts.insert(on(u"此项目没有竖曲线参数，沿用“示例一”的数据；此项目没有超高参数，沿用“示例一”的数据；"
                                 "此项目没有超高宽度参数，沿用“示例一”的数据"_s,
                                 c.profile));
                return doubts;
            });
    }

    void aFileThatCouldNotBeRead()
    {
        compare(
            [](Workspace& w) {
                const FailingCalls denied([path = w.folder.path("平曲线参数.txt")](const Call& call) {
                    return call.name == "open" && call.path == path ? EACCES : 0;
                });
                LoadProject();
            },
            [](const Case& c) { return on(u"平曲线参数.txt 无法读取，沿用先前读入的数据"_s, c.alignment); });
    }

    void noStation()
    {
        for (const auto& c : cases()) {
            const Workspace w;
            QCOMPARE(calculated(c, Station::None).doubts, on(u"没有测站：方位角和距离从坐标原点算起"_s, c.seen));
        }
    }

    void twoDoubtsAboutOneCell()
    {
        Workspace w;
        w.folder.write("平曲线参数.txt", "");
        const auto doubts = calculated(cases().front(), Station::None).doubts;
        QCOMPARE(doubts[u"平曲线参数.txt 已修改，尚未重新读入"_s], (QList<int>{6, 7, 8}));
        QCOMPARE(doubts[u"没有测站：方位角和距离从坐标原点算起；平曲线参数.txt 已修改，尚未重新读入"_s],
                 (QList<int>{4, 5}));
    }

    void anOffsetBeyondTheFormation()
    {
        Workspace w;
        const QString note = u"偏距超出路基，高程取路基边缘"_s;
        Driven<frmDgdGc> one;
        one.type("txtDgdGcFylc", "12100");
        one.pick("comDgdGcz", 2);
        for (const auto* offset : {"5", "5.01"}) {
            one.type("txtDgdGcPj", offset);
            one.click("butDgdGcCalc");
        }
        QCOMPARE(one.grid().doubt(1, 3), QString());
        QCOMPARE(one.grid().doubt(2, 3), note);
        QCOMPARE(one.grid().doubt(2, 1) + one.grid().doubt(2, 2), QString());
        QCOMPARE(one.row(1)[3], one.row(2)[3]);  // the same edge
        Driven<frmPlGc> run;
        run.type("txtPlGcQdlc", "12100");
        run.type("txtPlGcZdlc", "12110");
        run.type("txtPlGcPj", "6");
        run.type("txtPlGcJj", "10");
        run.click("butPlGcCalc");
        for (int col = 1; col < 8; ++col) QCOMPARE(run.grid().doubt(1, col), col == 5 || col == 7 ? note : QString());
        w.dialogs.no().no();
        one.form.close();
        run.form.close();
    }

    void aStakeThatTwoPlacesShare()
    {
        Workspace w;
        w.folder.write("断链参数.txt", "12300,12280\r\n");
        LoadProject();
        const QString note = u"此里程有两处（长链），负号表示第二处"_s;
        Driven<frmDgdZb> point;
        Driven<frmDgdGc> height;
        point.pick("comDgdCz", 0);
        for (const auto* stake : {"12290", "-12290", "12310", "12270"}) {
            point.type("txtDgdZbFylc", stake);
            point.click("butDgdCalc");
            height.type("txtDgdGcFylc", stake);
            height.click("butDgdGcCalc");
        }
        for (int row = 1; row <= 4; ++row) {
            for (int col = 1; col < 9; ++col)
                QCOMPARE(point.grid().doubt(row, col), col == 1 && row < 3 ? note : QString());
            for (int col = 1; col < 4; ++col)
                QCOMPARE(height.grid().doubt(row, col), col == 1 && row < 3 ? note : QString());
        }
        w.dialogs.no().no();
        point.form.close();
        height.form.close();
    }

    void aRunOverStakesThatTwoPlacesShare()
    {
        Workspace w;
        w.folder.write("断链参数.txt", "12300,12280\r\n");
        LoadProject();
        const QString note = u"此里程有两处（长链），负号表示第二处"_s;
        const auto sharedRows = [&](MSFlexGrid& grid, const QString& stake) {
            int rows = 0;
            for (int row = 1; row < grid.Rows(); ++row) {
                const bool twice = grid.TextMatrix(row, 1) == stake;
                rows += twice ? 1 : 0;
                for (int col = 1; col < grid.Cols(); ++col)
                    if (grid.doubt(row, col) != (twice && col == 1 ? note : QString())) return -row;
            }
            return rows;
        };
        Driven<frmPlfy> points;
        points.pick("comPlzbCz", 0);
        points.type("txtPlzbQdlc", "12265");
        points.type("txtPlzbZdlc", "12305");
        points.type("txtPlzbBc", "20");
        points.type("txtPlzbPj", "3");
        points.click("butPlzbCalc");
        QCOMPARE(sharedRows(points.grid(), u"K12+285.000"_s), 3);
        Driven<frmPlGc> heights;
        heights.type("txtPlGcQdlc", "12265");
        heights.type("txtPlGcZdlc", "12305");
        heights.type("txtPlGcJj", "20");
        heights.type("txtPlGcPj", "3");
        heights.click("butPlGcCalc");
        QCOMPARE(sharedRows(heights.grid(), u"K12+285.000"_s), 1);
        Driven<frmJgw> corners;
        corners.pick("comJgwCz", 0);
        for (const auto* size : {"txtJgwKq", "txtJgwKh", "txtJgwZz", "txtJgwZy"}) corners.type(size, "2");
        for (const auto* stake : {"12265", "12285", "12305"}) {
            corners.type("txtJgwFylc", stake);
            corners.click("butJgwCalc");
        }
        QCOMPARE(sharedRows(corners.grid(), u"K12+285.000"_s), 4);
        w.dialogs.no().no().no();
        points.form.close();
        heights.form.close();
        corners.form.close();
    }
};

VM_QT_TEST(tst_doubts)
#include "tst_doubts.moc"
