// Keys to which the pattern gives no meaning: F2 and typing on a cell of the grid, what a filter says.

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
#include "support/QtTests.h"

#include <QToolTip>

namespace {

constexpr auto kSqx = "竖曲线参数.txt";
constexpr auto kTwoRows = "0,10\r\n1,2,3\r\n4,5,6\r\n90,91\r\n";
constexpr auto kSigned = "只能输入数字、小数点和负号";
constexpr auto kUnsigned = "只能输入数字和小数点";

using Sqx = OpenedEditor<frmSqx>;

/// What the tool tip says; "" while none is seen.
QString told() { return QToolTip::isVisible() ? QToolTip::text() : QString(); }

}  // namespace

class tst_EditorKeys : public QObject {
    Q_OBJECT
private slots:
    void ctrlSSavesAsTheButtonDoes()
    {
        const auto saved = [](auto how) {
            OpenedEditor<frmSqx> e{{{"竖曲线参数.txt", "0,10\r\n1,2,3\r\n90,91\r\n"}}};
            e.w.enterCell(1, 2);
            e.w.type("7");
            how(e.w);
            return std::pair(e.folder.text("竖曲线参数.txt"), e.dialogs.messages);
        };
        const auto byKey = saved([](const EditorWindow& w) { w.key(Qt::Key_S, Qt::ControlModifier); });
        const auto byButton = saved([](const EditorWindow& w) { w.push("Save"); });
        QCOMPARE(byKey.first, "0,10\r\n1,7,3\r\n90,91\r\n");
        QVERIFY(byKey == byButton);
    }

    void initTestCase() { QGuiApplication::setQuitOnLastWindowClosed(false); }
    void cleanup() { QToolTip::hideText(); }

    void typingOnACellOpensTheBoxWithTheCharacter()
    {
        Sqx e{{{kSqx, kTwoRows}}, true};
        e.w.grid.setFocus();
        play(e.w,
             {
                 type("4", "1,1 cur 1,1 rows 3 E- [4]"),  // the text of the cell is gone, no rule of the left button
                 type("5", "1,1 cur 1,1 rows 3 E- [45]"),
                 enter("1,2 cur 1,2 rows 3 ES [2]"),  // the first Enter of the window: column 1, then on
             });
        QCOMPARE(e.w.cells(), "45,2,3/4,5,6");
    }

    void typingGoesToTheCellThatTheGridsOwnKeysReached()
    {
        Sqx e{{{kSqx, kTwoRows}}};
        e.w.grid.setFocus();
        e.w.key(Qt::Key_Down, Qt::ShiftModifier);  // cells are selected, the box is hidden
        QCOMPARE(e.w.state(), "2,1 cur 2,1 rows 3 E- (4)");
        e.w.type("-");
        e.w.type("7");
        QCOMPARE(e.w.state(), "2,1 cur 2,1 rows 3 E- [-7]");
        e.w.grid.setFocus();
        QCOMPARE(e.w.cells(), "1,2,3/-7,5,6");
    }

    /// The box has gone back to the incomplete row: what is typed goes where it is seen.
    void typingBesideAnOpenBoxGoesIntoItsCell()
    {
        Sqx e{{{kSqx, "0,10\r\n1,,3\r\n4,5,6\r\n90,91\r\n"}}, true};
        e.w.click(2, 2);
        QCOMPARE(e.w.state(), "2,2 cur 1,2 rows 3 E- []");
        e.w.grid.setFocus();
        e.w.type("8");
        QCOMPARE(e.w.state(), "2,2 cur 1,2 rows 3 E- [8]");
    }

    void aCharacterThatTheColumnRefusesOpensNothing()
    {
        Sqx e{{{kSqx, kTwoRows}}};
        e.w.grid.setFocus();
        for (const char* refused : {"a", "+", ",", " ", "K"}) {
            QToolTip::hideText();
            e.w.type(refused);
            QCOMPARE(e.w.state(), "1,1 cur 0,0 rows 3 -- ()");
            QCOMPARE(told(), kSigned);
        }
        e.w.grid.setCol(3);
        e.w.type("-");
        QCOMPARE(e.w.state(), "1,3 cur 0,0 rows 3 -- ()");
        QCOMPARE(told(), kUnsigned);
        QCOMPARE(e.w.cells(), "1,2,3/4,5,6");
    }

    void aColumnOfWordsTakesAnyCharacter()
    {
        OpenedEditor<frmDxd> e{{{"导线点参数.txt", "A,1,2,r\r\n"}}};
        e.w.grid.setFocus();
        for (const char* typed : {"b", "K", ",", "+", " ", "1"}) e.w.type(typed);
        QCOMPARE(e.w.state(), "1,1 cur 1,1 rows 2 E- [bK,+ 1]");
        QCOMPARE(told(), "");
    }

    void keysThatTypeNothingOpenNothing()
    {
        Sqx e{{{kSqx, kTwoRows}}};
        e.w.grid.setFocus();
        for (const auto with : {Qt::ControlModifier, Qt::AltModifier, Qt::MetaModifier}) e.w.key(Qt::Key_1, with);
        for (const auto pressed : {Qt::Key_Delete, Qt::Key_Backspace, Qt::Key_F3, Qt::Key_Insert}) e.w.key(pressed);
        QCOMPARE(e.w.state(), "1,1 cur 0,0 rows 3 -- ()");
        QCOMPARE(told(), "");
    }

    void f2OpensTheBoxWithTheTextKept()
    {
        Sqx e{{{kSqx, kTwoRows}}, true};
        e.w.grid.setFocus();
        play(e.w, {
                      key(Qt::Key_F2, "1,1 cur 1,1 rows 3 E- [1]"),
                      type("5", "1,1 cur 1,1 rows 3 E- [15]"),
                  });
        QVERIFY(e.w.box.hasFocus());
    }

    void f2InTheBoxKeepsItsText()
    {
        Sqx e{{{kSqx, kTwoRows}}};
        play(e.w, {
                      enterCell(1, 2, "1,2 cur 1,2 rows 3 E- [2]"),  // all of it selected: a key would replace it
                      key(Qt::Key_F2, "1,2 cur 1,2 rows 3 E- [2]"),
                      type(".5", "1,2 cur 1,2 rows 3 E- [2.5]"),
                  });
    }

    void f2InAFrameBoxLeavesItAlone()
    {
        Sqx e{{{kSqx, kTwoRows}}};
        auto& stake = named<QLineEdit>(e.form, "txtSqxQdLc");
        stake.setFocus();
        e.w.key(Qt::Key_F2);
        QVERIFY(stake.hasFocus());
        QCOMPARE(e.w.state(), "1,1 cur 0,0 rows 3 -- ()");
    }

    /// Scrolling hides the box of a slope editor; a key on the grid brings it back.
    void bothBringBackABoxThatScrollingHid()
    {
        const ProjectFolder::File settings{"其他参数.txt", "交点法\r\n线性\r\n1\r\n1\r\n0\r\n"};
        OpenedEditor<frmTfz> e{{settings, {"左幅填方参数.txt", "1,2,3,4,5,6\r\n"}}};
        e.w.enterCell(1, 2);
        emit e.w.grid.Scroll();
        QCOMPARE(e.w.state(), "1,2 cur 1,2 rows 2 E- (2)");
        e.w.key(Qt::Key_F2);
        QCOMPARE(e.w.state(), "1,2 cur 1,2 rows 2 E- [2]");
        emit e.w.grid.Scroll();
        e.w.type("9");
        QCOMPARE(e.w.state(), "1,2 cur 1,2 rows 2 E- [9]");
    }

    void withoutColumnsNothingOpens()
    {
        OpenedEditor<frmTfz> e{{{"其他参数.txt", "交点法\r\n线性\r\n0\r\n0\r\n0\r\n"}}};
        e.w.grid.setFocus();
        e.w.key(Qt::Key_F2);
        e.w.type("1");
        QVERIFY(!e.w.box.isVisible());
        QVERIFY(e.seams.ended.empty());
    }

    void anEditorWhereEnterMovesNothingHasBoth()
    {
        OpenedEditor<frmJmpqx> e{{{"平曲线参数.txt", "0,100,1,2,3,0,0\r\n"}}};
        e.w.grid.setFocus();
        play(e.w, {
                      key(Qt::Key_F2, "1,1 cur 1,1 rows 2 E- [0]"),
                      key(Qt::Key_Down, "1,1 cur 1,1 rows 2 E- [0]"),
                  });
        e.w.grid.setFocus();
        e.w.type("7");
        QCOMPARE(e.w.state(), "1,1 cur 1,1 rows 2 E- [7]");
    }

    /// The filters themselves are told column by column in EditorTable_test; here each cell is asked.
    void everyColumnOfEveryEditorTakesItsOwnCharacters()
    {
        const ScriptedDialogs dialogs;
        const ScriptedPlatform seams;
        const ProjectFolder folder{{"其他参数.txt", "交点法\r\n线性\r\n2\r\n10\r\n0\r\n"}};
        const auto check = [](EditorForm& form) {
            const EditorWindow w(form);
            for (int col = 1; col <= form.table().lastColumn(); ++col) {
                const KeyFilter filter = form.table().columns[static_cast<std::size_t>(col)].filter;
                for (const char* typed : {"-", "x", "5", "."}) {
                    const bool number = *typed == '5' || *typed == '.';
                    const bool taken =
                        number || filter == KeyFilter::Any || (*typed == '-' && filter == KeyFilter::Signed);
                    w.grid.setFocus();
                    w.box.hide();
                    w.grid.setCol(col);
                    w.type(typed);
                    QCOMPARE(w.box.isVisible(), taken);
                    if (taken) QCOMPARE(w.box.text(), typed);
                    if (!taken) QCOMPARE(told(), filter == KeyFilter::Signed ? kSigned : kUnsigned);
                    w.box.setText({});
                    QVERIFY(!form.EnterStarted);
                }
            }
        };
        frmJdpqx jd;
        frmJmpqx jm;
        frmSqx sqx;
        frmCg cg;
        frmCgkd cgkd;
        frmDxd dxd;
        frmDl dl;
        frmTfz tfz;
        frmTfy tfy;
        frmWfz wfz;
        frmWfy wfy;
        for (EditorForm* form :
             std::initializer_list<EditorForm*>{&jd, &jm, &sqx, &cg, &cgkd, &dxd, &dl, &tfz, &tfy, &wfz, &wfy}) {
            check(*form);
            form->hide();
        }
    }

    void aSwallowedCharacterSaysWhatTheColumnTakes()
    {
        Sqx e{{{kSqx, kTwoRows}}};
        for (const auto& [col, words] : {std::pair{1, kSigned}, {2, kSigned}, {3, kUnsigned}}) {
            e.w.enterCell(1, col);
            QToolTip::hideText();
            e.w.type("1");
            QCOMPARE(told(), "");
            e.w.type("x");
            QCOMPARE(told(), words);
        }
        QTRY_COMPARE_WITH_TIMEOUT(told(), "", 3000);
    }
};

VM_QT_TEST(tst_EditorKeys)
#include "tst_EditorKeys.moc"
