// What each editor has of its own, in its window.

#include "base/Numbers.h"
#include "controls/XPButton.h"
#include "editors/EditorWindow.h"
#include "editors/windows/frmCg.h"
#include "editors/windows/frmCgkd.h"
#include "editors/windows/frmDl.h"
#include "editors/windows/frmDxd.h"
#include "editors/windows/frmJdpqx.h"
#include "editors/windows/frmJmpqx.h"
#include "editors/windows/frmSqx.h"
#include "editors/windows/frmTfy.h"
#include "editors/windows/frmTfz.h"
#include "editors/windows/frmWfy.h"
#include "editors/windows/frmWfz.h"
#include "project/LoadProject.h"
#include "support/QtTests.h"
#include "support/Tables.h"

#include <QGroupBox>
#include <QHeaderView>
#include <QLabel>
#include <QScrollBar>

#include <memory>

namespace {

const Msg kSaved{"数据保存成功！", "", Icon::Information};
const Msg kIncomplete{"请输入完整的数据！", "注意", Icon::Exclamation};
constexpr auto kSettings = "其他参数.txt";

template <class F>
using Opened = OpenedEditor<F>;

struct Editor {
    const char* name;
    const char* caption;
    const char* controls;  ///< buttons and boxes with a name of their own, in tab order
    int width, sequenceWidth, columns;
    std::function<std::unique_ptr<EditorForm>()> make;
};

template <class F>
std::unique_ptr<EditorForm> make()
{
    return std::make_unique<F>();
}

const std::vector<Editor> kEditors{
    {"frmJdpqx", "平曲线交点法参数",
     "txtJdpqxQdLc txtJdpqxQdX txtJdpqxQdy txtJdpqxZdx txtJdpqxZdy MsfgJdpqx txtJdpqxInput cmdJdpqxInsert cmdJdpqxDel "
     "butJdView cmdJdpqxBack cmdJdpqxSave",
     1500, 1500, 7, make<frmJdpqx>},
    {"frmJmpqx", "平曲线积木法参数", "MsfgJmpqx txtJmpqxInput cmdJmpqxInsert cmdJmpqxDel cmdJmpqxBack cmdJmpqxSave",
     1500, 1500, 8, make<frmJmpqx>},
    {"frmSqx", "竖曲线参数",
     "txtSqxQdLc txtSqxQdgc txtSqxZdlc txtSqxZdgc MsfgSqx txtSqxInput cmdSqxInsert cmdSqxDel cmdSqxBack cmdSqxSave",
     2300, 2300, 4, make<frmSqx>},
    {"frmCg", "超高参数", "MsfgCg txtCgInput cmdCgInsert cmdCgDel cmdCgBack cmdCgSave", 1700, 1700, 7, make<frmCg>},
    {"frmCgkd", "超高宽度参数", "MsfgCgkd txtCgkdInput cmdCgkdInsert cmdCgkdDel cmdCgkdBack cmdCgkdSave", 1200, 600, 13,
     make<frmCgkd>},
    {"frmDxd", "导线点设置", "MsfgDxd txtDxdInput cmdDxdDel cmdDxdBack cmdDxdSave", 1500, 1500, 5, make<frmDxd>},
    {"frmDl", "断链参数", "MsfgDl txtDlInput cmdDlDel cmdDlBack cmdDlSave", 2000, 2000, 3, make<frmDl>},
    {"frmTfz", "左幅填方参数", "MsfgTfz txtTfzInput cmdTfzInsert cmdTfzDel cmdTfzBack cmdTfzSave", 1200, 600, 13,
     make<frmTfz>},
    {"frmTfy", "右幅填方参数", "MsfgTfy txtTfyInput cmdTfyInsert cmdTfyDel cmdTfyBack cmdTfySave", 1200, 600, 13,
     make<frmTfy>},
    {"frmWfz", "左幅挖方参数", "MsfgWfz txtWfzInput cmdWfzInsert cmdWfzDel cmdWfzBack cmdWfzSave", 1200, 600, 61,
     make<frmWfz>},
    {"frmWfy", "右幅挖方参数", "MsfgWfy txtWfyInput cmdWfyInsert cmdWfyDel cmdWfyBack cmdWfySave", 1200, 600, 61,
     make<frmWfy>},
};

const ProjectFolder::File kTwoAndTen{kSettings, "交点法\r\n线性\r\n2\r\n10\r\n12\r\n"};

/// The named controls that take the focus, in the order of the Tab key.
QString tabOrder(const QWidget& form)
{
    QStringList names;
    for (QWidget* w = form.nextInFocusChain(); w != &form; w = w->nextInFocusChain())
        if ((w->focusPolicy() & Qt::TabFocus) && !w->objectName().startsWith(QStringLiteral("qt_")) &&
            w->objectName() != QString())
            names << w->objectName();
    return names.join(u' ');
}

QString caption(const QWidget& form, const char* button) { return named<XPButton>(form, button).Caption(); }

}  // namespace

class tst_Editors : public QObject {
    Q_OBJECT
private slots:
    void initTestCase() { QGuiApplication::setQuitOnLastWindowClosed(false); }

    void controlsOfEveryEditor()
    {
        for (const Editor& editor : kEditors) {
            const ProjectFolder folder{kTwoAndTen};
            const auto form = editor.make();
            const EditorWindow w(*form);
            QCOMPARE(form->objectName(), editor.name);
            QCOMPARE(form->windowTitle(), QString::fromUtf8(editor.caption));
            QCOMPARE(tabOrder(*form), editor.controls);
            QCOMPARE(w.grid.Cols(), editor.columns);
            QCOMPARE(w.grid.Rows(), 2);
            for (int col = 0; col < w.grid.Cols(); ++col) {
                const bool remark = form->table().stem == "Dxd" && col == 4;
                QCOMPARE(w.grid.ColWidth(col), col == 0 ? editor.sequenceWidth : remark ? 8000 : editor.width);
                QCOMPARE(w.cell(0, col),
                         QString::fromStdString(form->table().columns[static_cast<std::size_t>(col)].header));
                const auto header = col == 0
                                        ? w.grid.model()->headerData(0, Qt::Vertical, Qt::TextAlignmentRole)
                                        : w.grid.model()->headerData(col - 1, Qt::Horizontal, Qt::TextAlignmentRole);
                QCOMPARE(header.toInt() & Qt::AlignCenter, int(Qt::AlignCenter));
                if (col > 0) {
                    const auto shown = w.grid.model()->data(w.grid.model()->index(0, col - 1), Qt::TextAlignmentRole);
                    QCOMPARE(shown.toInt() & Qt::AlignCenter, int(Qt::AlignCenter));
                    QVERIFY(!w.grid.model()->headerData(col - 1, Qt::Horizontal, Qt::ToolTipRole).toString().isEmpty());
                }
            }
            QCOMPARE(caption(*form, qPrintable(w.control("cmd", "Del"))), QStringLiteral("删除一行"));
            QCOMPARE(caption(*form, qPrintable(w.control("cmd", "Back"))), QStringLiteral("返 回"));
            QCOMPARE(caption(*form, qPrintable(w.control("cmd", "Save"))), QStringLiteral("保 存"));
            if (auto* insert = form->findChild<XPButton*>(w.control("cmd", "Insert")))
                QCOMPARE(insert->Caption(), QStringLiteral("插入一行"));
            QVERIFY(!w.box.isVisible());
            QVERIFY(!form->Edited);
        }
    }

    void framesOfTheIntersectionPoints()
    {
        Opened<frmJdpqx> e;
        QCOMPARE(named<QGroupBox>(e.form, "Frame1").title(), QStringLiteral("起点(必须为ZH点或者ZH点前直线上的一点)"));
        QCOMPARE(named<QGroupBox>(e.form, "Frame2").title(), QStringLiteral("终点(必须为HZ点或者HZ点后直线上一点)"));
        QCOMPARE(caption(e.form, "butJdView"), QStringLiteral("查看主点参数"));
        for (const auto& [box, label] : {std::pair{"txtJdpqxQdLc", "里程"},
                                         {"txtJdpqxQdX", "X坐标"},
                                         {"txtJdpqxQdy", "Y坐标"},
                                         {"txtJdpqxZdx", "X坐标"},
                                         {"txtJdpqxZdy", "Y坐标"}}) {
            auto& edit = named<QLineEdit>(e.form, box);
            bool labelled = false;
            for (const auto* l : e.form.findChildren<QLabel*>())
                labelled = labelled || (l->buddy() == &edit && l->text() == QString::fromUtf8(label));
            QVERIFY2(labelled, box);
            e.form.Edited = false;
            QTest::keyClicks(&edit, "-1.5x");
            QCOMPARE(edit.text(), "-1.5");
            QVERIFY(e.form.Edited);
        }
    }

    // frmJdpqx

    void jdSaveStopsAtEachEmptyBoxAndFocusesIt()
    {
        Opened<frmJdpqx> e{{{"平曲线参数.txt", "0,0,0\r\nJD1,100,0,0,0,50\r\n100,100\r\n"}}};
        const std::pair<const char*, const char*> boxes[] = {{"txtJdpqxQdLc", "请先输入起点里程！"},
                                                             {"txtJdpqxQdX", "请先输入起点X坐标！"},
                                                             {"txtJdpqxQdy", "请先输入起点Y坐标！"},
                                                             {"txtJdpqxZdx", "请先输入终点X坐标！"},
                                                             {"txtJdpqxZdy", "请先输入终点Y坐标！"}};
        for (const auto& [box, message] : boxes) {
            const QString text = textOf(e.form, box);
            type(e.form, box, "  ");
            e.w.push("Save");
            QCOMPARE(e.dialogs.last(), (Msg{message, "注意", Icon::Exclamation}));
            QCOMPARE(e.form.focusWidget()->objectName(), box);
            named<QLineEdit>(e.form, box).setText(text);
        }
        QVERIFY(e.form.Edited);
        QCOMPARE(e.folder.text("平曲线参数.txt"), "0,0,0\r\nJD1,100,0,0,0,50\r\n100,100\r\n");
    }

    void jdSaveCompilesTheProjectAfterItsMessage()
    {
        Opened<frmJdpqx> e{{kTwoAndTen, {"平曲线参数.txt", "0,0,0\r\nJD1,100,0,0,0,50\r\n100,100\r\n"}}};
        LoadProject();
        QCOMPARE(gZdCount, 1);
        QCOMPARE(gZdJd[1], "JD1");
        e.w.click(1, 1);
        e.w.type("Nr. 1a");
        std::string whenSaved;
        e.dialogs.onBox = [&] { whenSaved = gZdJd[1]; };
        e.w.push("Save");
        QCOMPARE(e.dialogs.messages, std::vector<Msg>{kSaved});
        QCOMPARE(whenSaved, "JD1");
        QCOMPARE(gZdJd[1], "Nr. 1a");
        QCOMPARE(e.folder.text("平曲线参数.txt"), "0,0,0\r\nNr. 1a,100,0,0,0,50\r\n100,100\r\n");
    }

    void onlyTheIntersectionPointsCompileOnSave()
    {
        for (const Editor& editor : kEditors) {
            if (std::string(editor.name) == "frmJdpqx") continue;
            ScriptedDialogs dialogs;
            const ProjectFolder folder{kTwoAndTen};
            const auto form = editor.make();
            const EditorWindow w(*form);
            for (auto* box : form->findChildren<QLineEdit*>())
                if (box != &w.box) box->setText(QStringLiteral("1"));
            for (int col = 1; col < w.grid.Cols(); ++col) w.grid.setTextMatrix(1, col, QStringLiteral("1"));
            const Shared before = shared;
            w.push("Save");
            QCOMPARE(dialogs.messages, std::vector<Msg>{kSaved});
            QVERIFY(shared == before);
        }
    }

    void jdNeedsOnePoint()
    {
        Opened<frmJdpqx> e;
        for (const auto* box : {"txtJdpqxQdLc", "txtJdpqxQdX", "txtJdpqxQdy", "txtJdpqxZdx", "txtJdpqxZdy"})
            type(e.form, box, "1");
        e.w.push("Save");
        QCOMPARE(e.dialogs.messages, (std::vector<Msg>{{"至少需要输入一个交点！", "注意", Icon::Exclamation}}));
        QVERIFY(!e.folder.has("平曲线参数.txt"));
    }

    void viewIsRefusedWithoutMainPointsAndWithoutAnIcon()
    {
        Opened<frmJdpqx> e;
        click(e.form, "butJdView");
        QCOMPARE(e.dialogs.messages, (std::vector<Msg>{{"请先输入参数！", "注意", Icon::None}}));
    }

    void viewShowsTheStateOfTheLastLoad()
    {
        Opened<frmJdpqx> e{{kTwoAndTen, {"平曲线参数.txt", "0,0,0\r\nJD1,100,0,0,0,50\r\n100,100\r\n"}}};
        LoadProject();
        e.w.click(1, 1);
        e.w.type("unsaved");
        useModal([&] { click(e.form, "butJdView"); },
                 [](QWidget& window) {
                     QCOMPARE(window.objectName(), "frmZdcs");
                     QCOMPARE(named<MSFlexGrid>(window, "msfgZdcs").TextMatrix(1, 1), "JD1");
                 });
        QVERIFY(e.form.isVisible());
    }

    // frmJmpqx

    void blocksHaveNoEnterAndKeysCommitNothing()
    {
        for (const bool leftDown : {true, false}) {
            Opened<frmJmpqx> e{{}, leftDown};
            play(e.w, {
                          enter("1,1 cur 0,0 rows 2 -- ()"),
                          enterCell(1, 2, "1,2 cur 1,2 rows 2 -- []"),
                          type("12", "1,2 cur 1,2 rows 2 E- [12]"),
                          enter("1,2 cur 1,2 rows 2 E- [12]"),
                      });
            QCOMPARE(e.w.cell(1, 2), "");
            e.w.click(1, 3);
            QCOMPARE(e.w.cell(1, 2), "12");
        }
    }

    void aBlockStartsAtTheEndOfTheOneAbove()
    {
        Opened<frmJmpqx> e{{{"平曲线参数.txt", "0,100,1000,2000,0,0,50\r\n"}}};
        play(e.w, {
                      push("Insert", "1,1 cur 0,0 rows 3 -- ()"),
                      push("Del", "1,1 cur 0,0 rows 2 E- (0)"),
                  });
        e.w.grid.setRows(3);
        play(e.w, {click(2, 3, "2,3 cur 2,3 rows 4 E- [1090.452]")});
        QCOMPARE(e.w.cell(2, 1), "100");
        QCOMPARE(e.w.cell(2, 2), "");
        QCOMPARE(e.w.cell(2, 6), "50");
        QCOMPARE(e.w.cell(3, 1), "");  // the added row stays blank until it is clicked in its turn
        // A clothoid of 100 m that ends at radius 50 turns by one radian: x = 100 (1 - 1/10 + 1/216 - 1/9360 + ...).
        QVERIFY(std::abs(DmsToDeg(e.w.cell(2, 5).toDouble()) - 57.29578) < 0.0001);
    }

    void aBlockReachedWithoutTheLeftButtonStaysBlank()
    {
        Opened<frmJmpqx> e{{{"平曲线参数.txt", "0,100,1000,2000,0,0,50\r\n1,2,3,4,5,6,7\r\n"}}};
        e.w.grid.setRows(4);
        play(e.w, {enterCell(3, 1, "3,1 cur 3,1 rows 4 -- []")});
        QCOMPARE(e.w.cells(), "0,100,1000,2000,0,0,50/1,2,3,4,5,6,7/,,,,,,");
    }

    void aBlockInAGapIsRefusedAndKeepsItsCopies()
    {
        Opened<frmJmpqx> e{{{"平曲线参数.txt", "0,60,1000,2000,0,0,25\r\n"}}};
        setBreaks({{50, 70}});
        e.w.grid.setRows(3);
        play(e.w, {click(2, 1, "2,1 cur 2,1 rows 4 -- []")});  // the box is not refreshed
        QCOMPARE(e.dialogs.messages, (std::vector<Msg>{{"桩号不存在，请检查断链数据！", "注意", Icon::Exclamation}}));
        QCOMPARE(e.w.cells(), "0,60,1000,2000,0,0,25/60,,,,,25,/,,,,,,");
    }

    void breaksTypedButNotCompiledHaveNoEffect()
    {
        Opened<frmJmpqx> e{{ProjectFolder::File{"平曲线参数.txt", "0,60,1000,2000,0,0,0\r\n"},
                            ProjectFolder::File{"断链参数.txt", "50,70\r\n"}}};
        e.w.grid.setRows(3);
        e.w.click(2, 1);
        QVERIFY(e.dialogs.messages.empty());
        QCOMPARE(e.w.cell(2, 3), "1060");
    }

    void backInAnIncompleteBlockTheResultsGoIntoTheClickedRow()
    {
        Opened<frmJmpqx> e{
            {{"平曲线参数.txt", "0,100,1000,2000,0,0,0\r\n,150,1100,2000,0,,0\r\n,,,,,,\r\n,,,,,,\r\n"}}};
        play(e.w, {click(3, 3, "3,3 cur 2,3 rows 5 E- [1100]")});
        QCOMPARE(e.w.cells(), "0,100,1000,2000,0,0,0/100,150,1100,2000,0,0,0/,,1150,2000,0,,/,,,,,,");
    }

    // Fill-in

    void superelevationByMouseAndByEnter()
    {
        Opened<frmCg> mouse{{{"超高参数.txt", "0,-2,-3,100,4,-4\r\n"}}};
        play(mouse.w, {
                          click(1, 6, "1,6 cur 1,6 rows 3 E- [-4]"),  // the header above counts as complete
                          click(2, 1, "2,1 cur 2,1 rows 4 E- [100]"),
                          click(2, 4, "2,4 cur 2,4 rows 4 E- []"),
                      });
        QCOMPARE(mouse.w.cells(), "0,-2,-3,100,4,-4/100,4,-4,,,/,,,,,");

        Opened<frmCg> keys{{{"超高参数.txt", "0,-2,-3,100,4,-4\r\n"}}};
        for (int i = 0; i < 6; ++i) keys.w.enter();
        QCOMPARE(keys.w.state(), "2,1 cur 2,1 rows 3 ES []");
        QCOMPARE(keys.w.cells(), "0,-2,-3,100,4,-4/,,,,,");
    }

    /// gGridLeftDown outlives the click, so the Enter after it runs the left button's rules too.
    void enterFillsInWhileTheLeftButtonWasTheLast()
    {
        Opened<frmCg> e{{{"超高参数.txt", "0,-2,-3,100,4,-4\r\n5,6,7,8,9,1\r\n"}}, true};
        e.w.enterCell(2, 6);
        gGridLeftDown = true;
        e.w.form.EnterStarted = true;
        e.w.enter();
        QCOMPARE(e.w.state(), "3,1 cur 3,1 rows 5 ES [8]");
        QCOMPARE(e.w.cells(), "0,-2,-3,100,4,-4/5,6,7,8,9,1/8,9,1,,,/,,,,,");
    }

    void superelevationBackInAnIncompleteRow()
    {
        Opened<frmCg> e{{{"超高参数.txt", "0,-2,-3,100,4,-4\r\n,,,,,\r\n,,,,,\r\n"}}};
        play(e.w, {click(3, 1, "3,1 cur 2,1 rows 4 E- [100]")});
        QCOMPARE(e.w.cells(), "0,-2,-3,100,4,-4/100,4,-4,,,/,,,,,");
    }

    void widthsWithOnlyTheRightEndShoulderEmpty()
    {
        Opened<frmCgkd> e{{{"超高宽度参数.txt", "0,100,0,5,5,1,1,6,6,2,,-4\r\n,,,,,,,,,,,\r\n"}}};
        play(e.w, {
                      click(2, 1, "2,1 cur 2,1 rows 4 E- [100]"),  // a row more: column 11 does not count
                      click(2, 2, "2,2 cur 1,2 rows 4 E- [100]"),  // here it does: back to row 1
                  });
        QCOMPARE(e.w.cells(), "0,100,0,5,5,1,1,6,6,2,,-4/100,,,6,6,2,,,,,,/,,,,,,,,,,,");
    }

    void slopesByMouseAndByEnter()
    {
        const ProjectFolder::File one{kSettings, "交点法\r\n线性\r\n1\r\n1\r\n0\r\n"};
        Opened<frmTfz> mouse{{one, {"左幅填方参数.txt", "0,5,1.5,100,6,1.75,0\r\n"}}};
        QCOMPARE(mouse.form.GradeCount, 1);
        play(mouse.w, {
                          click(1, 1, "1,1 cur 1,1 rows 3 E- [0]"),
                          click(2, 2, "2,2 cur 2,2 rows 4 E- [6]"),
                      });
        QCOMPARE(mouse.w.cells(), "0,5,1.5,100,6,1.75/100,6,1.75,,,/,,,,,");

        Opened<frmWfy> keys{{one, {"右幅挖方参数.txt", "0,5,1.5,100,6,1.75,0\r\n"}}};
        for (int i = 0; i < 6; ++i) keys.w.enter();
        QCOMPARE(keys.w.cells(), "0,5,1.5,100,6,1.75/,,,,,");
    }

    // frmDxd, frmDl

    void aRemarkAloneIsRefused()
    {
        Opened<frmDxd> e;
        e.w.click(1, 4);
        e.w.type("x");
        e.w.push("Save");
        QCOMPARE(e.dialogs.messages, std::vector<Msg>{kIncomplete});
        QVERIFY(!e.folder.has("导线点参数.txt"));
    }

    void allBlankGridsSaveAnEmptyFile()
    {
        for (const Editor& editor : kEditors) {
            const std::string name = editor.name;
            if (name == "frmJdpqx" || name == "frmSqx") continue;
            ScriptedDialogs dialogs;
            const ProjectFolder folder{kTwoAndTen};
            const auto form = editor.make();
            const std::string file(form->table().file);
            folder.write(file, "old,old\r\n");
            const EditorWindow w(*form);
            w.grid.setRows(1);
            w.grid.setRows(4);
            w.push("Save");
            QCOMPARE(dialogs.messages, std::vector<Msg>{kSaved});
            QVERIFY(folder.has(file));
            QCOMPARE(folder.bytes(file), "");
        }
    }

    void enterLeavesTheRemarkToTheNextRow()
    {
        Opened<frmDxd> e{{{"导线点参数.txt", "A,1,2,r\r\n"}}};
        e.w.enterCell(1, 4);
        e.form.EnterStarted = true;
        play(e.w, {enter("2,1 cur 2,1 rows 3 ES []")});
    }

    void aStaleBoxDoesNotBlankACellOnSave()
    {
        Opened<frmDl> e{{{"断链参数.txt", "100,120\r\n200,190\r\n,\r\n"}}};
        play(e.w, {
                      enterCell(1, 1, "1,1 cur 1,1 rows 4 E- [100]"),
                      focusOut("1,1 cur 1,1 rows 4 E- [100]"),
                  });
        e.w.grid.setRow(3);
        play(e.w, {push("Del", "2,1 cur 1,1 rows 3 E- [200]")});
        e.w.box.clear();
        e.w.push("Save");
        QCOMPARE(e.folder.text("断链参数.txt"), "100,120\r\n200,190\r\n");
    }

    // Windows that stretch

    void widthsAndPointsStretchWithTheirWindow()
    {
        const auto stretch = [](EditorForm& form) {
            EditorWindow w(form);
            w.click(1, 2);
            const QSize start = form.size();
            const QRect grid = w.grid.geometry();
            const int width = w.grid.ColWidth(1);
            const int fontSize = w.grid.font().pointSize();
            form.resize(start.width() * 2, start.height() * 2);
            QTest::qWait(10);
            QVERIFY(std::abs(w.grid.width() - 2 * grid.width()) <= 1);
            QVERIFY(std::abs(w.grid.height() - 2 * grid.height()) <= 1);
            QVERIFY(std::abs(w.grid.x() - 2 * grid.x()) <= 1);
            QCOMPARE(w.grid.ColWidth(1), width);
            QCOMPARE(w.grid.font().pointSize(), fontSize);
            QCOMPARE(w.box.geometry(), w.grid.cellRect(1, 2).translated(w.grid.pos()));
            form.resize(start);
            QTest::qWait(10);
            QCOMPARE(w.grid.geometry(), grid);
            QCOMPARE(w.box.geometry(), w.grid.cellRect(1, 2).translated(w.grid.pos()));
        };
        const ProjectFolder folder;
        frmCgkd widths;
        stretch(widths);
        frmDxd points;
        stretch(points);
    }

    // Side slopes

    void scrollHidesTheBoxAndTheNextClickShowsIt()
    {
        Opened<frmWfz> e{{kTwoAndTen}};
        e.w.click(1, 1);
        e.w.type("5");
        e.w.grid.horizontalScrollBar()->setValue(200);
        QCOMPARE(e.w.state(), "1,1 cur 1,1 rows 3 E- (5)");
        QCOMPARE(e.w.cell(1, 1), "5");  // hiding takes the focus away
        QVERIFY(e.w.grid.hasFocus());
        e.w.click(1, 6);
        QCOMPARE(e.w.state(), "1,6 cur 1,6 rows 3 E- []");
    }

    /// The row that the entry goes back to is scrolled into sight; that hides the box for a moment, with the text of
    /// the clicked cell still in it.
    void backInARowOutOfSightItsCellsStay()
    {
        std::string rows;
        for (int i = 0; i < 60; ++i) rows += std::to_string(i) + ",1,2,3,4,5,6,7,8,9,10,\r\n";
        Opened<frmTfz> e{{kTwoAndTen, {"左幅填方参数.txt", rows}}};
        const QString before = e.w.cells();
        e.w.grid.scrollTo(e.w.grid.model()->index(29, 0), QAbstractItemView::PositionAtTop);
        play(e.w, {click(30, 1, "30,1 cur 29,1 rows 61 E- [28]")});
        QCOMPARE(e.w.cells(), before);
        QCOMPARE(e.w.box.geometry(), e.w.grid.cellRect(29, 1).translated(e.w.grid.pos()));
    }

    void enterReachesColumnsOutOfSight()
    {
        Opened<frmWfz> e{{kTwoAndTen}};
        for (int i = 0; i < 59; ++i) {
            e.w.enter();
            QVERIFY(e.w.box.isVisible());
            QVERIFY(e.w.box.hasFocus());
            QCOMPARE(e.w.box.geometry(), e.w.grid.cellRect(1, i + 2).translated(e.w.grid.pos()));
        }
        QCOMPARE(e.w.state(), "1,60 cur 1,60 rows 2 -S []");
        e.w.enter();
        QCOMPARE(e.w.state(), "2,1 cur 2,1 rows 3 -S []");
    }

    void keysOfTheStakeColumns()
    {
        Opened<frmTfy> e{{kTwoAndTen}};  // two grades: stakes in columns 1 and 7
        for (int col = 1; col <= 12; ++col) {
            e.w.enterCell(1, col);
            e.w.type("-1a.5");
            QCOMPARE(e.w.box.text(), col == 1 || col == 7 ? "-1.5" : "1.5");
        }
    }

    void aLineHoldsThirtyOrSixtyFields()
    {
        Opened<frmTfy> fill{{kTwoAndTen}};
        for (int col = 1; col <= 12; ++col) {
            fill.w.enterCell(1, col);
            fill.w.type("7");
        }
        fill.w.push("Save");
        QCOMPARE(fill.folder.text("右幅填方参数.txt"),
                 "7,7,7,7,7,7,7,7,7,7,7,7,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0\r\n");
    }

    void withoutColumnsNothingCanBeEditedOrLost()
    {
        for (const auto* grades : {"0", "6", "未设置", "x"}) {
            Opened<frmTfz> e{{{kSettings, "交点法\r\n线性\r\n" + std::string(grades) + "\r\n0\r\n0\r\n"},
                              {"左幅填方参数.txt", "1,2,3\r\n"}},
                             true};
            QCOMPARE(e.w.grid.Cols(), 0);
            e.w.grid.setFocus();
            for (const auto pressed : {Qt::Key_Return, Qt::Key_A, Qt::Key_Down, Qt::Key_PageUp}) e.w.key(pressed);
            QTest::mouseClick(e.w.grid.viewport(), Qt::LeftButton, {}, {30, 30});
            e.w.paste("1\t2\n");
            e.w.push("Insert");
            e.w.push("Del");
            e.w.push("Save");
            QVERIFY(e.dialogs.messages.empty());
            QVERIFY(e.seams.ended.empty());
            QCOMPARE(e.folder.text("左幅填方参数.txt"), "1,2,3\r\n");
            e.w.push("Back");
            QVERIFY(!e.form.isVisible());
        }
    }

    void stakeColumnsAreSetOff()
    {
        Opened<frmWfz> e{{kTwoAndTen}};
        for (int col = 1; col <= 60; ++col)
            QCOMPARE(e.w.grid.itemDelegateForColumn(col - 1) != nullptr, col == 1 || col == 31);
    }
};

VM_QT_TEST(tst_Editors)
#include "tst_Editors.moc"
