// The pattern that all editors share: the in-cell box, the rules of the left button, Enter, the row of buttons.

#include "editors/EditorWindow.h"
#include "editors/windows/frmCg.h"
#include "editors/windows/frmDl.h"
#include "editors/windows/frmDxd.h"
#include "editors/windows/frmSqx.h"
#include "editors/windows/frmTfz.h"
#include "support/QtTests.h"

#include <QDropEvent>
#include <QMimeData>
#include <QScrollBar>

namespace {

constexpr auto kSqx = "竖曲线参数.txt";
const Msg kSaved{"数据保存成功！", "", Icon::Information};
const Msg kAsk{"数据已修改，是否保存？", "", Icon::Question, Msg::YesNo, Msg::Yes};
const Msg kIncomplete{"请输入完整的数据！", "注意", Icon::Exclamation};

template <class F>
using Opened = OpenedEditor<F>;

using Sqx = Opened<frmSqx>;
constexpr auto kDxd = "导线点参数.txt";
constexpr auto kThreePoints = "A,1,2,\r\nB,3,4,\r\nC,5,6,\r\n";
constexpr auto kTwoRows = "0,10\r\n1,2,3\r\n4,5,6\r\n90,91\r\n";

}  // namespace

class tst_EditorPattern : public QObject {
    Q_OBJECT
private slots:
    void initTestCase() { QGuiApplication::setQuitOnLastWindowClosed(false); }

    // Load

    void aFreshWindow()
    {
        Sqx e;
        QCOMPARE(e.w.state(), "1,1 cur 0,0 rows 2 -- ()");
        QCOMPARE(e.w.cells(), ",,");
        QCOMPARE(e.w.cell(1, 0), "1");
        QCOMPARE(e.form.windowTitle(), "竖曲线参数");
        QCOMPARE(e.form.objectName(), "frmSqx");
    }

    void aLoadedGridHasNoSpareRow()
    {
        Sqx e{{{kSqx, kTwoRows}}};
        QCOMPARE(e.w.state(), "1,1 cur 0,0 rows 3 -- ()");
        QCOMPARE(e.w.cells(), "1,2,3/4,5,6");
        QCOMPARE(e.w.cell(2, 0), "2");
        QCOMPARE(textOf(e.form, "txtSqxQdLc"), "0");
        QCOMPARE(textOf(e.form, "txtSqxQdgc"), "10");
        QCOMPARE(textOf(e.form, "txtSqxZdlc"), "90");
        QCOMPARE(textOf(e.form, "txtSqxZdgc"), "91");
    }

    // Entering cells with the left button

    void leftButtonScript()
    {
        Sqx e;
        play(e.w, {
                      press(1, 1, "1,1 cur 0,0 rows 2 -- ()"),
                      release(1, 1, "1,1 cur 1,1 rows 3 -- []"),  // the header counts as a complete row
                      type("1", "1,1 cur 1,1 rows 3 E- [1]"),
                      type("2", "1,1 cur 1,1 rows 3 E- [12]"),
                      press(1, 2, "1,1 cur 1,1 rows 3 E- [12]"),
                      release(1, 2, "1,2 cur 1,2 rows 3 E- []"),
                      click(2, 3, "2,3 cur 1,3 rows 3 E- []"),  // row 1 is incomplete: the box goes back, the grid not
                      type("7", "2,3 cur 1,3 rows 3 E- [7]"),
                      click(2, 2, "2,2 cur 1,2 rows 3 E- []"),
                      type("5", "2,2 cur 1,2 rows 3 E- [5]"),
                      click(2, 1, "2,1 cur 2,1 rows 4 E- []"),  // row 1 is complete now, row 2 was the last
                      click(3, 1, "3,1 cur 2,1 rows 4 E- []"),
                      click(1, 1, "1,1 cur 1,1 rows 4 E- [12]"),
                  });
        QCOMPARE(e.w.cells(), "12,5,7/,,/,,");
    }

    void withoutTheLeftButtonNoRuleRuns()
    {
        Sqx e;
        play(e.w, {
                      enterCell(1, 1, "1,1 cur 1,1 rows 2 -- []"), type("1", "1,1 cur 1,1 rows 2 E- [1]"),
                      enterCell(1, 3, "1,3 cur 1,3 rows 2 E- []"), click(1, 3, "1,3 cur 1,3 rows 3 E- []"),
                      enterCell(2, 2, "2,2 cur 2,2 rows 3 E- []"),  // row 1 is incomplete, and no rule runs
                  });
    }

    void theRightButtonMovesNothingAndIsTheLastPressed()
    {
        Sqx e{{{kSqx, kTwoRows}}, true};
        play(e.w, {
                      rightClick(2, 1, "1,1 cur 0,0 rows 3 -- ()"), click(1, 2, "1,2 cur 1,2 rows 3 E- [2]"),
                      type("9", "1,2 cur 1,2 rows 3 E- [9]"),
                      rightClick(2, 1, "1,2 cur 1,2 rows 3 E- [9]"),  // leaves the cell
                  });
        QCOMPARE(e.w.cells(), "1,9,3/4,5,6");
        QVERIFY(!gGridLeftDown);
        play(e.w, {enter("1,2 cur 1,2 rows 3 ES [9]")});
    }

    void leftDownStaysOverKeyboardWorkAndFromWindowToWindow()
    {
        Sqx first;
        first.w.click(1, 1);
        QVERIFY(gGridLeftDown);
        first.w.type("1");
        first.w.enter();
        QVERIFY(gGridLeftDown);
        frmSqx other;
        EditorWindow w(other);
        w.enter();
        QCOMPARE(w.state(), "1,2 cur 1,2 rows 3 -S []");
        w.press(1, 1, Qt::MiddleButton);
        QVERIFY(!gGridLeftDown);
    }

    void clickInTheLastRowAddsOneRowOnlyUnderACompleteRow()
    {
        Sqx e{{{kSqx, "0,10\r\n1,2,3\r\n4,5,\r\n7,8,9\r\n90,91\r\n"}}};
        play(e.w, {
                      click(3, 1, "3,1 cur 2,1 rows 4 E- [4]"),
                      click(2, 3, "2,3 cur 2,3 rows 4 E- []"),
                      type("6", "2,3 cur 2,3 rows 4 E- [6]"),
                      click(3, 1, "3,1 cur 3,1 rows 5 E- [7]"),
                      click(3, 2, "3,2 cur 3,2 rows 5 E- [8]"),
                  });
    }

    // Enter

    void enterScriptWithLeftDown()
    {
        Sqx e{{}, true};
        play(e.w, {
                      enter("1,2 cur 1,2 rows 3 -S []"),  // both steps: column 1, then on; the first Click added a row
                      type("5", "1,2 cur 1,2 rows 3 ES [5]"),
                      enter("1,3 cur 1,3 rows 3 ES []"),
                      type("6", "1,3 cur 1,3 rows 3 ES [6]"),
                      enter("2,1 cur 1,1 rows 3 ES []"),  // row 1 lacks column 1
                      type("4", "2,1 cur 1,1 rows 3 ES [4]"),
                      enter("2,2 cur 2,2 rows 4 ES []"),  // complete: the last row was entered, one more
                      enter("2,3 cur 2,3 rows 4 ES []"),
                      enter("3,1 cur 2,1 rows 4 ES []"),
                  });
        QCOMPARE(e.w.cells(), "4,5,6/,,/,,");
    }

    void enterScriptWithoutLeftDown()
    {
        Sqx e;
        play(e.w, {
                      enter("1,2 cur 1,2 rows 2 -S []"),
                      type("5", "1,2 cur 1,2 rows 2 ES [5]"),
                      enter("1,3 cur 1,3 rows 2 ES []"),
                      enter("2,1 cur 2,1 rows 3 ES []"),  // one row more, whatever is empty
                      enter("2,2 cur 2,2 rows 3 ES []"),
                      enter("2,3 cur 2,3 rows 3 ES []"),
                      enter("3,1 cur 3,1 rows 4 ES []"),
                  });
        QCOMPARE(e.w.cells(), ",5,/,,/,,");
        QCOMPARE(e.w.cell(3, 0), "3");
    }

    void enterAtTheEndOfACompleteLastRowAddsTwoRowsWithLeftDown()
    {
        Sqx e{{{kSqx, kTwoRows}}, true};
        play(e.w, {
                      click(2, 3, "2,3 cur 2,3 rows 4 E- [6]"), key(Qt::Key_Down, "3,3 cur 3,3 rows 4 E- []"),
                      enter("3,2 cur 3,2 rows 5 ES []"),  // the first Enter goes to column 1: row 3 is the last
                  });
    }

    void enterOnTheLastRowAddsOneAndTheClickASecond()
    {
        Sqx e{{{kSqx, kTwoRows}}};
        play(e.w, {
                      enterCell(2, 2, "2,2 cur 2,2 rows 3 E- [5]"),
                      enter("2,2 cur 2,2 rows 3 ES [5]"),
                      enter("2,3 cur 2,3 rows 3 ES [6]"),
                  });
        gGridLeftDown = true;
        play(e.w, {enter("3,1 cur 3,1 rows 5 ES []")});
    }

    void enterFromAFrameBoxGoesToTheGrid()
    {
        Sqx e;
        named<QLineEdit>(e.form, "txtSqxQdLc").setFocus();
        e.w.enter();
        QCOMPARE(e.w.state(), "1,2 cur 1,2 rows 2 -S []");
        QVERIFY(e.w.box.hasFocus());
    }

    void enterOnTheNumberPadIsEnter()
    {
        Sqx e;
        e.w.key(Qt::Key_Enter, Qt::KeypadModifier);
        QCOMPARE(e.w.state(), "1,2 cur 1,2 rows 2 -S []");
    }

    // Leaving a cell

    void leavingWritesTheTrimmedText()
    {
        Sqx e{{{kSqx, kTwoRows}}};
        e.w.click(1, 1);
        e.w.box.setText("  8 ");
        play(e.w, {focusOut("1,1 cur 1,1 rows 3 E- [  8 ]")});
        QCOMPARE(e.w.cell(1, 1), "8");
    }

    void anEmptiedBoxKeepsTheOldText()
    {
        Sqx e{{{kSqx, kTwoRows}}};
        play(e.w, {
                      click(1, 1, "1,1 cur 1,1 rows 3 E- [1]"),
                      key(Qt::Key_Delete, "1,1 cur 1,1 rows 3 E- []"),
                      focusOut("1,1 cur 1,1 rows 3 E- []"),
                  });
        QCOMPARE(e.w.cell(1, 1), "1");
        e.w.click(1, 2);
        e.w.click(1, 1);
        e.w.box.setText("  ");
        e.w.click(1, 2);
        QCOMPARE(e.w.cells(), "1,2,3/4,5,6");
    }

    void onlyTraversePointsAndBreaksCanBeBlanked()
    {
        Opened<frmDl> dl{{{"断链参数.txt", "100,120\r\n"}}};
        play(dl.w, {
                       enterCell(1, 1, "1,1 cur 1,1 rows 2 E- [100]"),
                       key(Qt::Key_Delete, "1,1 cur 1,1 rows 2 E- []"),
                       focusOut("1,1 cur 1,1 rows 2 E- []"),
                   });
        QCOMPARE(dl.w.cells(), ",120");
        Opened<frmDxd> dxd{{{"导线点参数.txt", "A,1,2,r\r\n"}}};
        play(dxd.w, {
                        enterCell(1, 4, "1,4 cur 1,4 rows 2 E- [r]"),
                        key(Qt::Key_Delete, "1,4 cur 1,4 rows 2 E- []"),
                        enter("1,2 cur 1,2 rows 2 ES [1]"),
                    });
        QCOMPARE(dxd.w.cells(), "A,1,2,");
    }

    void eachKeyCommitsWhatTheBoxHeldBeforeIt()
    {
        Sqx e;
        e.w.click(1, 1);
        e.w.type("1");
        QCOMPARE(e.w.cell(1, 1), "");
        e.w.type("2");
        QCOMPARE(e.w.cell(1, 1), "1");
        e.w.type("x");  // refused by the box, but the window saw it
        QCOMPARE(e.w.cell(1, 1), "12");
        QCOMPARE(e.w.box.text(), "12");
    }

    /// Enter commits once more after it has moved on, so that the entered cell loses its blanks at once.
    void theSecondCommitOfEnterTrimsTheEnteredCell()
    {
        constexpr auto blanks = "0,10\r\n1, 2 ,3\r\n90,91\r\n";
        Sqx keys{{{kSqx, blanks}}};
        play(keys.w, {enter("1,2 cur 1,2 rows 2 ES [ 2 ]")});
        QCOMPARE(keys.w.cells(), "1,2,3");
        Sqx mouse{{{kSqx, blanks}}};
        play(mouse.w, {enterCell(1, 2, "1,2 cur 1,2 rows 2 E- [ 2 ]")});
        QCOMPARE(mouse.w.cells(), "1, 2 ,3");
        play(mouse.w, {focusOut("1,2 cur 1,2 rows 2 E- [ 2 ]")});
        QCOMPARE(mouse.w.cells(), "1,2,3");
    }

    void aKeyBeforeAnyCellCommitsNothing()
    {
        Opened<frmDl> dl{{{"断链参数.txt", "100,120\r\n"}}};
        dl.w.grid.setFocus();
        dl.w.key(Qt::Key_Escape, Qt::ShiftModifier);
        dl.w.key(Qt::Key_Backspace);
        QCOMPARE(dl.w.state(), "1,1 cur 0,0 rows 2 -- ()");
        QCOMPARE(dl.w.cells(), "100,120");
        QCOMPARE(dl.w.cell(0, 0), "序  号");
    }

    // Edited

    void enteringACellOfOtherContentMarksTheWindowAsEdited()
    {
        Sqx e{{{kSqx, "0,10\r\n5,5,\r\n90,91\r\n"}}};
        play(e.w, {
                      enterCell(1, 3, "1,3 cur 1,3 rows 2 -- []"),  // empty as the box was: no change
                      enterCell(1, 1, "1,1 cur 1,1 rows 2 E- [5]"),
                  });
    }

    void enteringACellOfTheSameContentDoesNot()
    {
        Sqx e{{{kSqx, "0,10\r\n5,5,3\r\n90,91\r\n"}}};
        e.w.click(1, 1);
        e.form.Edited = false;
        play(e.w, {enterCell(1, 2, "1,2 cur 1,2 rows 3 -- [5]")});
    }

    void aFrameBoxMarksTheWindowAsEdited()
    {
        for (const auto* box : {"txtSqxQdLc", "txtSqxQdgc", "txtSqxZdlc", "txtSqxZdgc"}) {
            Sqx e;
            QTest::keyClicks(&named<QLineEdit>(e.form, box), "1");
            QVERIFY(e.form.Edited);
        }
    }

    // Insert and delete

    void insertPutsAnEmptyRowBeforeTheCurrentOneAndClearsTheBox()
    {
        Sqx e{{{kSqx, kTwoRows}}};
        play(e.w, {
                      enterCell(2, 1, "2,1 cur 2,1 rows 3 E- [4]"),
                      push("Insert", "2,1 cur 2,1 rows 4 E- []"),
                  });
        QCOMPARE(e.w.cells(), "1,2,3/,,/4,5,6");
        QCOMPARE(e.w.cell(3, 0), "3");
        const QPoint before = e.w.box.pos();
        e.w.push("Insert");
        QCOMPARE(e.w.box.pos(), before);
        QCOMPARE(e.w.cells(), "1,2,3/,,/,,/4,5,6");
    }

    void whatIsTypedAfterAnInsertGoesIntoTheNewRow()
    {
        Sqx e{{{kSqx, kTwoRows}}};
        e.w.click(1, 2);
        e.w.push("Insert");
        e.w.box.setFocus();
        e.w.type("9");
        e.w.push("Save");
        QCOMPARE(e.w.cells(), ",9,/1,2,3/4,5,6");
        QCOMPARE(e.dialogs.messages, std::vector<Msg>{kIncomplete});
    }

    void insertInAFreshWindow()
    {
        Sqx e;
        play(e.w, {push("Insert", "1,1 cur 0,0 rows 3 -- ()")});
    }

    void deleteRemovesTheCurrentRowAndShowsTheCellThatIsThere()
    {
        Sqx e{{{kSqx, kTwoRows}}};
        play(e.w, {
                      enterCell(1, 2, "1,2 cur 1,2 rows 3 E- [2]"), push("Del", "1,2 cur 1,2 rows 2 E- [5]"),
                      push("Del", "1,2 cur 1,2 rows 2 E- [5]"),  // the only data row stays, without a word
                  });
        QCOMPARE(e.w.cells(), "4,5,6");
        QCOMPARE(e.w.cell(1, 0), "1");
        QVERIFY(e.dialogs.messages.empty());
    }

    void aDeletionAloneDoesNotMarkTheWindowAsEdited()
    {
        Sqx e{{{kSqx, "0,10\r\n1,2,3\r\n1,5,6\r\n90,91\r\n"}}};
        e.w.enterCell(1, 1);
        e.form.Edited = false;
        play(e.w, {push("Del", "1,1 cur 1,1 rows 2 -- [1]")});
    }

    void afterADeletionTheCellOfTheBoxMayBeGone()
    {
        Sqx e{{{kSqx, kTwoRows}}};
        play(e.w, {
                      enterCell(2, 2, "2,2 cur 2,2 rows 3 E- [5]"),
                      push("Del", "1,2 cur 2,2 rows 2 E- [2]"),
                  });
        e.w.box.setText("77");
        e.w.push("Save");  // the commit writes nothing, the save goes on
        QCOMPARE(e.dialogs.messages, std::vector<Msg>{kSaved});
        QCOMPARE(e.folder.text(kSqx), "0,10\r\n1,2,3\r\n90,91\r\n");
    }

    // Rows that are named by their number

    void DeletingARowAfterAClickOnItsNumberKeepsTheOthers()
    {
        Opened<frmDxd> e{{{kDxd, kThreePoints}}};
        play(e.w, {
                      click(1, 1, "1,1 cur 1,1 rows 4 E- [A]"),
                      clickNumber(2, "2,1 cur 2,1 rows 4 E- [B]"),
                      push("Del", "2,1 cur 2,1 rows 3 E- [C]"),
                      push("Save", "2,1 cur 2,1 rows 3 -- [C]"),
                  });
        QCOMPARE(e.folder.text(kDxd), "A,1,2,\r\nC,5,6,\r\n");
    }

    /// Whatever a press or a release elsewhere has selected: the row that goes is the current one, and the box's cell
    /// is where it was.
    void DeletingARowAfterAPressOnAnotherKeepsTheOthers()
    {
        using Gesture = std::function<void(EditorWindow&)>;
        const auto onNumbers = [](EditorWindow& w, int from, int to, Qt::MouseButton button) {
            auto* numbers = w.grid.verticalHeader()->viewport();
            const auto at = [&](int row) { return numbers->mapFrom(&w.grid, w.grid.cellRect(row, 0).center()); };
            QTest::mousePress(numbers, button, {}, at(from));
            QTest::mouseRelease(numbers, button, {}, at(to));
        };
        const Gesture gestures[] = {
            [](EditorWindow& w) { w.press(2, 1), w.release(3, 1); },
            [](EditorWindow& w) { w.press(2, 1), w.release(2, 2); },
            [](EditorWindow& w) { w.click(2, 1, Qt::MiddleButton); },
            [](EditorWindow& w) { w.click(2, 1, Qt::RightButton); },
            [&](EditorWindow& w) { onNumbers(w, 2, 3, Qt::LeftButton); },
            [&](EditorWindow& w) { onNumbers(w, 2, 2, Qt::MiddleButton); },
            [&](EditorWindow& w) { onNumbers(w, 2, 2, Qt::RightButton); },
        };
        for (const Gesture& gesture : gestures) {
            Opened<frmDxd> e{{{kDxd, kThreePoints}}};
            e.w.click(1, 1);
            gesture(e.w);
            play(e.w, {push("Del", "1,1 cur 1,1 rows 3 E- [B]"), push("Save", "1,1 cur 1,1 rows 3 -- [B]")});
            QCOMPARE(e.folder.text(kDxd), "B,3,4,\r\nC,5,6,\r\n");
        }
    }

    void aBlockPastedAfterAClickOnARowNumberGoesThere()
    {
        Opened<frmDxd> e{{{kDxd, kThreePoints}}};
        e.w.click(1, 1);
        e.w.clickNumber(2);
        e.w.paste("X\t7\t8\n");
        QCOMPARE(e.w.cells(), "A,1,2,/X,7,8,/C,5,6,");
        e.w.press(3, 1);
        e.w.release(1, 2);
        e.w.paste("Y\t7\t8\n");
        QCOMPARE(e.w.cells(), "A,1,2,/Y,7,8,/C,5,6,");
    }

    void anInsertAfterAClickOnARowNumberGoesBeforeThatRow()
    {
        Sqx e{{{kSqx, kTwoRows}}};
        play(e.w, {
                      enterCell(1, 1, "1,1 cur 1,1 rows 3 E- [1]"),
                      clickNumber(2, "2,1 cur 2,1 rows 4 E- [4]"),  // the left button's rules
                      push("Insert", "2,1 cur 2,1 rows 5 E- []"),
                  });
        QCOMPARE(e.w.cells(), "1,2,3/,,/4,5,6/,,");
    }

    /// Keys of the grid itself take the box along: Home, End, and those with Ctrl or Shift.
    void DeletingARowThatAKeyOfTheGridReachedKeepsTheOthers()
    {
        for (const auto with : {Qt::KeyboardModifiers(Qt::ShiftModifier), Qt::KeyboardModifiers(Qt::ControlModifier)}) {
            Opened<frmDxd> e{{{kDxd, kThreePoints}}};
            e.w.enterCell(1, 1);
            e.w.grid.setFocus();
            e.w.key(Qt::Key_Down, with);
            QCOMPARE(e.w.grid.Row(), 2);
            e.w.push("Del");
            e.w.push("Save");
            QCOMPARE(e.folder.text(kDxd), "A,1,2,\r\nC,5,6,\r\n");
        }
        Opened<frmDxd> e{{{kDxd, kThreePoints}}};
        e.w.enterCell(2, 2);
        e.w.grid.setFocus();
        e.w.key(Qt::Key_Home);
        QCOMPARE(e.w.state(), "2,1 cur 2,1 rows 4 E- [B]");
        e.w.grid.setFocus();
        e.w.key(Qt::Key_End, Qt::ControlModifier);
        QCOMPARE(e.w.state(), "3,4 cur 3,4 rows 4 E- []");
    }

    void cellsAreSelectedByShiftAndAnArrow()
    {
        Opened<frmDxd> e{{{kDxd, kThreePoints}}};
        e.w.grid.setFocus();
        e.w.key(Qt::Key_Right, Qt::ShiftModifier);
        e.w.key(Qt::Key_Down, Qt::ShiftModifier);
        QCOMPARE(e.w.grid.selectedText(false), "A\t1\nB\t3");
        QCOMPARE(e.w.state(), "2,2 cur 2,2 rows 4 E- (3)");
        QVERIFY(e.w.grid.hasFocus());
    }

    // Back and close

    void backUnloadsAWindowThatWasNotEdited()
    {
        Sqx e{{{kSqx, kTwoRows}}};
        e.w.push("Back");
        QVERIFY(!e.form.isVisible());
        QVERIFY(e.dialogs.messages.empty());
    }

    void yesOnBackSavesAndLeavesTheWindowOpen()
    {
        Sqx e{{{kSqx, kTwoRows}}};
        e.w.click(1, 1);
        e.w.type("9");
        e.dialogs.yes();
        e.w.push("Back");
        QCOMPARE(e.dialogs.messages, (std::vector<Msg>{kAsk, kSaved}));
        QVERIFY(e.form.isVisible());
        QVERIFY(!e.form.Edited);
        QCOMPARE(e.folder.text(kSqx), "0,10\r\n9,2,3\r\n4,5,6\r\n90,91\r\n");
        e.w.push("Back");
        QVERIFY(!e.form.isVisible());
    }

    void yesOnBackWithAFailedSaveLeavesTheWindowOpenToo()
    {
        Sqx e;
        e.w.click(1, 1);
        e.w.type("9");
        e.dialogs.yes();
        e.w.push("Back");
        QCOMPARE(e.dialogs.messages, (std::vector<Msg>{kAsk, {"请先输入起点里程！", "注意", Icon::Exclamation}}));
        QVERIFY(e.form.isVisible());
        QVERIFY(e.form.Edited);
    }

    void noOnBackUnloadsAndLeavesTheFile()
    {
        Sqx e{{{kSqx, kTwoRows}}};
        e.w.click(1, 1);
        e.w.type("9");
        e.dialogs.no();
        e.w.push("Back");
        QVERIFY(!e.form.isVisible());
        QCOMPARE(e.dialogs.messages, std::vector<Msg>{kAsk});
        QCOMPARE(e.folder.text(kSqx), kTwoRows);
    }

    void theCloseBoxAsksTheSame()
    {
        Sqx e{{{kSqx, kTwoRows}}};
        e.w.click(1, 1);
        e.w.type("9");
        e.dialogs.yes();
        e.form.close();
        QVERIFY(e.form.isVisible());
        QVERIFY(!e.form.Edited);
        QCOMPARE(e.dialogs.messages, (std::vector<Msg>{kAsk, kSaved}));
        e.w.box.setFocus();
        e.w.type("1");
        e.dialogs.no();
        e.form.close();
        QVERIFY(!e.form.isVisible());
        QCOMPARE(e.folder.text(kSqx), "0,10\r\n9,2,3\r\n4,5,6\r\n90,91\r\n");
    }

    void theCloseBoxOfAnUneditedWindowAsksNothing()
    {
        Sqx e;
        e.form.close();
        QVERIFY(!e.form.isVisible());
        QVERIFY(e.dialogs.messages.empty());
    }

    void escGoesTheWayOfTheCloseBox()
    {
        Sqx e;
        e.w.click(1, 1);
        e.w.type("9");
        e.dialogs.no();
        e.w.key(Qt::Key_Escape);
        QVERIFY(!e.form.isVisible());
        QCOMPARE(e.dialogs.messages, std::vector<Msg>{kAsk});
    }

    void closingByProgramDoesNotAsk()
    {
        Sqx e;
        e.w.click(1, 1);
        e.w.type("9");
        e.form.unload();
        QVERIFY(!e.form.isVisible());
        QVERIFY(e.dialogs.messages.empty());
    }

    // Save

    void saveTakesTheBoxAlong()
    {
        Sqx e{{{kSqx, kTwoRows}}};
        e.w.click(2, 3);
        e.w.type("77");
        e.w.push("Save");
        QCOMPARE(e.dialogs.messages, std::vector<Msg>{kSaved});
        QVERIFY(!e.form.Edited);
        QCOMPARE(e.folder.text(kSqx), "0,10\r\n1,2,3\r\n4,5,77\r\n90,91\r\n");
    }

    void aPartlyFilledRowStopsTheSave()
    {
        Sqx e{{{kSqx, kTwoRows}}};
        e.w.push("Insert");
        e.w.click(1, 2);
        e.w.type("5");
        e.w.push("Save");
        QCOMPARE(e.dialogs.messages, std::vector<Msg>{kIncomplete});
        QVERIFY(e.form.Edited);
        QCOMPARE(e.w.cells(), ",5,/1,2,3/4,5,6");
        QCOMPARE(e.folder.text(kSqx), kTwoRows);
    }

    void aFailedWriteIsSaidAndTheWindowStays()
    {
        Opened<frmDl> e;
        e.w.click(1, 1);
        e.w.type("1");
        e.w.enter();
        e.w.type("2");
        std::filesystem::remove_all(ProjectPath(gProject));
        e.w.push("Save");
        QCOMPARE(e.dialogs.messages,
                 (std::vector<Msg>{{"“断链参数.txt”无法写入！\n文件夹不存在", "错误", Icon::Exclamation}}));
        QVERIFY(e.form.Edited);
        QVERIFY(e.form.isVisible());
        QVERIFY(e.seams.ended.empty());
    }

    void saveByKeyboardAlone()
    {
        Opened<frmDl> e;
        e.w.enter();
        e.w.key(Qt::Key_Up);
        e.w.type("120");
        e.w.key(Qt::Key_Left);
        e.w.key(Qt::Key_Home);
        e.w.key(Qt::Key_Left);
        e.w.type("100");
        for (int i = 0; i < 3; ++i) e.w.key(Qt::Key_Tab);
        QCOMPARE(e.form.focusWidget()->objectName(), "cmdDlSave");
        e.w.key(Qt::Key_Space);
        QCOMPARE(e.dialogs.messages, std::vector<Msg>{kSaved});
        QCOMPARE(e.folder.text("断链参数.txt"), "100,120\r\n");
    }

    void aLongTextIsNotCutByAClick()
    {
        const std::string remark(40000, 'r'), number(40000, '1');
        Opened<frmDxd> dxd{{{kDxd, "A,1,2," + remark + "\r\n"}}};
        dxd.w.enterCell(1, 4);
        dxd.w.enterCell(1, 1);
        QCOMPARE(dxd.w.cell(1, 4).size(), 40000);
        Sqx sqx{{{kSqx, number + ",10\r\n1,2,3\r\n90,91\r\n"}}};
        sqx.w.push("Save");
        QCOMPARE(sqx.folder.text(kSqx), number + ",10\r\n1,2,3\r\n90,91\r\n");
    }

    void aLineFeedOfTheFileIsNotCutByAClick()
    {
        const std::string file = "A,1,2,over\nunder\r\n";
        Opened<frmDxd> e{{{kDxd, file}}};
        e.w.enterCell(1, 4);
        e.w.enterCell(1, 1);
        e.w.push("Save");
        QCOMPARE(e.folder.text(kDxd), file);
    }

    void ThreeRemarksThatLookAlikeStayThree()
    {
        Opened<frmDxd> e;
        const std::string file = "A,1,2,\xFF\xE4\r\nB,3,4,\xFE\xE4\r\nC,5,6,\xFF\xF5\r\n";
        e.folder.writeBytes(kDxd, file);
        frmDxd form;
        const EditorWindow w(form);
        w.enterCell(2, 4);
        w.enterCell(3, 4);
        w.enterCell(1, 1);
        w.push("Save");
        QCOMPARE(e.folder.bytes(kDxd), file);
        w.push("Del");
        w.push("Save");
        QCOMPARE(e.folder.bytes(kDxd), "B,3,4,\xFE\xE4\r\nC,5,6,\xFF\xF5\r\n");
    }

    // Key filters

    void whatAnInputMethodCommitsEndsAtItsLineEnd()
    {
        Opened<frmDxd> e;
        for (const int col : {1, 2}) {
            e.w.click(1, col);
            QInputMethodEvent commit;
            commit.setCommitString("12\n34");
            QApplication::sendEvent(&e.w.box, &commit);
            QCOMPARE(e.w.box.text(), "12");
        }
    }

    void keysOfTheBoxByColumn()
    {
        Sqx e;
        for (const auto& [col, kept] : {std::pair{1, "1.-2"}, {2, "1.-2"}, {3, "1.2"}}) {
            e.w.click(1, col);
            e.w.type("1.a-,+ e2");
            QCOMPARE(e.w.box.text(), kept);
            e.w.key(Qt::Key_Backspace);
            QCOMPARE(e.w.box.text() + "2", kept);
        }
        for (const auto* box : {"txtSqxQdLc", "txtSqxQdgc", "txtSqxZdlc", "txtSqxZdgc"}) {
            QTest::keyClicks(&named<QLineEdit>(e.form, box), "1.a-,+ e2");
            QCOMPARE(textOf(e.form, box), "1.-2");
        }
    }

    void twoPointsAndAMinusInTheMiddlePass()
    {
        Sqx e;
        e.w.click(1, 1);
        e.w.type("1.2.3-4");
        e.w.click(1, 2);
        QCOMPARE(e.w.cell(1, 1), "1.2.3-4");
    }

    void whileCtrlIsHeldAnythingPasses()
    {
        Sqx e;
        e.w.click(1, 3);
        platform().keyIsDown = [](int held) { return held == 17; };
        e.w.type("a-");
        QCOMPARE(e.w.box.text(), "a-");
    }

    void columnsWithoutAFilterTakeAnyKey()
    {
        Opened<frmDxd> e;
        for (const int col : {1, 4}) {
            e.w.click(1, col);
            e.w.type("a, b-1");
            QCOMPARE(e.w.box.text(), "a, b-1");
        }
    }

    // Comfort

    void arrowsEnterCellsWithoutTheMouseRule()
    {
        Sqx e{{{kSqx, kTwoRows}}, true};
        play(e.w, {
                      click(1, 1, "1,1 cur 1,1 rows 3 E- [1]"),
                      key(Qt::Key_Right, "1,2 cur 1,2 rows 3 E- [2]"),
                      key(Qt::Key_Down, "2,2 cur 2,2 rows 3 E- [5]"),  // the last row under a complete one: no row more
                      key(Qt::Key_Down, "2,2 cur 2,2 rows 3 E- [5]"),
                      key(Qt::Key_Left, "2,1 cur 2,1 rows 3 E- [4]"),
                      key(Qt::Key_Left, "2,1 cur 2,1 rows 3 E- [4]"),
                      key(Qt::Key_Up, "1,1 cur 1,1 rows 3 E- [1]"),
                      key(Qt::Key_PageDown, "2,1 cur 2,1 rows 3 E- [4]"),
                      key(Qt::Key_PageUp, "1,1 cur 1,1 rows 3 E- [1]"),
                  });
    }

    void arrowsInAnIncompleteRowDoNotGoBack()
    {
        Sqx e{{{kSqx, "0,10\r\n1,,3\r\n4,5,6\r\n90,91\r\n"}}, true};
        play(e.w, {
                      click(1, 1, "1,1 cur 1,1 rows 3 E- [1]"),
                      key(Qt::Key_Down, "2,1 cur 2,1 rows 3 E- [4]"),
                  });
    }

    void arrowsWithinTheTextBelongToTheBox()
    {
        Sqx e{{{kSqx, kTwoRows}}};
        play(e.w, {
                      enterCell(1, 2, "1,2 cur 1,2 rows 3 E- [2]"),
                      type("45", "1,2 cur 1,2 rows 3 E- [45]"),
                      key(Qt::Key_Left, "1,2 cur 1,2 rows 3 E- [45]"),
                      key(Qt::Key_Left, "1,2 cur 1,2 rows 3 E- [45]"),
                      key(Qt::Key_Left, "1,1 cur 1,1 rows 3 E- [1]"),
                  });
        QCOMPARE(e.w.cell(1, 2), "45");
        e.w.click(1, 2);
        e.w.key(Qt::Key_Right, Qt::ShiftModifier);
        QCOMPARE(e.form.CurCol, 2);
    }

    void aBlockFillsCellsFromTheCurrentOneOn()
    {
        Sqx e{{{kSqx, kTwoRows}}};
        e.w.click(2, 1);
        e.w.paste("7\t8\t9\r\n10\t11\t12\r\n");
        QCOMPARE(e.w.cells(), "1,2,3/7,8,9/10,11,12");
        QCOMPARE(e.w.state(), "2,1 cur 2,1 rows 4 E- [7]");
        QCOMPARE(e.w.cell(3, 0), "3");
    }

    void aBlockThatAFilterRefusesChangesNothing()
    {
        Sqx e{{{kSqx, kTwoRows}}};
        e.w.enterCell(1, 1);
        e.w.paste("7\t8\t9\r\nK10\t11\t12\r\n");
        QCOMPARE(e.w.cells(), "1,2,3/4,5,6");
        QCOMPARE(e.w.state(), "1,1 cur 1,1 rows 3 E- [1]");
        QCOMPARE(e.dialogs.messages,
                 (std::vector<Msg>{{"粘贴已取消：第 2 行“变坡点里程”不能填“K10”！", "注意", Icon::Exclamation}}));
    }

    void anyOtherPasteGoesIntoTheBoxUnfiltered()
    {
        Sqx e{{{kSqx, kTwoRows}}};
        e.w.enterCell(1, 3);
        e.w.paste("K1-x");
        QCOMPARE(e.w.state(), "1,3 cur 1,3 rows 3 E- [K1-x]");
    }

    void aBlockBeforeAnyCellGoesToTheGridsOwnCell()
    {
        Sqx e;
        e.w.grid.setFocus();
        e.w.paste("7\t8\t9\n");
        QCOMPARE(e.w.cells(), "7,8,9");
        QVERIFY(e.form.Edited);
    }

    void aBlockPastedIntoAFrameGoesOverItsBoxes()
    {
        Sqx e;
        const auto paste = [&](const char* box, const char* text) {
            named<QLineEdit>(e.form, box).setFocus();
            e.w.paste(text);
        };
        paste("txtSqxQdgc", "10.5\t900\r\n11.5\t\r\n");
        QCOMPARE(e.frames(), (QStringList{"", "10.5", "900", "11.5"}));
        paste("txtSqxQdLc", "0\n");  // a single cell of a spreadsheet ends with a line end
        QCOMPARE(e.frames(), (QStringList{"0", "10.5", "900", "11.5"}));
        QTest::keyClick(e.form.focusWidget(), Qt::Key_Left);
        paste("txtSqxQdLc", "12\r\n");  // and goes in where the cursor stands
        QCOMPARE(e.frames().first(), "120");
        QVERIFY(e.form.Edited);
    }

    void aBlockThatDoesNotFitAFrameChangesNothing()
    {
        Sqx e{{{kSqx, kTwoRows}}};
        auto& last = named<QLineEdit>(e.form, "txtSqxZdlc");
        const Msg refused{"粘贴已取消：“3”超出了最后一个输入框“终点高程”！", "注意", Icon::Exclamation};
        const QString six = "1\t2\t3\t4\t5\t6\r\n";
        QApplication::clipboard()->setText(six);
        last.setFocus();
        QTest::keyClick(&last, Qt::Key_V, Qt::ControlModifier);
        QTest::keyClick(&last, Qt::Key_Insert, Qt::ShiftModifier);
        QMimeData dragged;
        dragged.setText(six);
        QDragEnterEvent over(QPoint(5, 5), Qt::CopyAction, &dragged, Qt::LeftButton, {});
        QApplication::sendEvent(&last, &over);
        QDropEvent drop(QPointF(5, 5), Qt::CopyAction, &dragged, Qt::LeftButton, {});
        QApplication::sendEvent(&last, &drop);
        QCOMPARE(e.dialogs.messages.size(), 2u);  // who dropped it does not wait for the box
        QCoreApplication::processEvents();
        QTimer::singleShot(0, &last, [] {
            auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
            for (auto* entry : menu->actions())
                if (entry->text().contains(QRegularExpression("Paste|粘贴"))) entry->trigger();
            menu->close();
        });
        QContextMenuEvent wanted(QContextMenuEvent::Mouse, {5, 5}, last.mapToGlobal(QPoint(5, 5)));
        QApplication::sendEvent(&last, &wanted);
        QCOMPARE(e.dialogs.messages.size(), 4u);
        QCOMPARE(e.dialogs.messages, std::vector<Msg>(4, refused));
        QCOMPARE(e.frames(), (QStringList{"0", "10", "90", "91"}));
        QVERIFY(!e.form.Edited);
    }

    void aQuotedCellWithALineEndInsideStaysOneCell()
    {
        Opened<frmDxd> e;
        e.w.click(1, 1);
        e.w.paste("A\t1\t2\t\"at the\nbridge\"\r\nB\t3\t4\tr\r\n");
        QCOMPARE(e.w.cells(), "A,1,2,at the bridge/B,3,4,r");
    }

    /// CurRow counts to 32,767; what a file holds beyond that is shown and saved, but no cell of it is entered.
    void rowsBeyondSixteenBitsAreNotEntered()
    {
        std::string lines;
        for (int i = 0; i < 32770; ++i) lines += "1,2\r\n";
        Opened<frmDl> e{{{"断链参数.txt", lines}}};
        play(e.w, {
                      click(32768, 2, "32768,2 cur 0,0 rows 32771 -- ()"),
                      click(32767, 2, "32767,2 cur 32767,2 rows 32771 E- [2]"),
                      key(Qt::Key_Down, "32767,2 cur 32767,2 rows 32771 E- [2]"),
                      key(Qt::Key_PageDown, "32767,2 cur 32767,2 rows 32771 E- [2]"),
                      click(32770, 1, "32770,1 cur 0,0 rows 32771 E- (2)"),  // the box belongs to no cell
                      push("Save", "32770,1 cur 0,0 rows 32771 -- (2)"),
                      enterCell(32767, 1, "32767,1 cur 32767,1 rows 32771 E- [1]"),
                      click(32770, 2, "32770,2 cur 0,0 rows 32771 E- (1)"),
                      push("Del", "32769,2 cur 0,0 rows 32770 E- (2)"),
                      push("Save", "32769,2 cur 0,0 rows 32770 -- (2)"),
                  });
        QVERIFY(e.seams.ended.empty());
        QCOMPARE(e.folder.text("断链参数.txt"), lines.substr(5));
    }

    // The box over its cell

    void theBoxCoversItsCell()
    {
        Opened<frmCg> e{{{"超高参数.txt", "1,2,3,4,5,6\r\n4,5,6,7,8,9\r\n"}}};
        e.w.click(2, 4);
        const auto onCell = [&] {
            const QRect cell = e.w.grid.cellRect(2, 4).translated(e.w.grid.pos());
            return e.w.box.geometry() == cell;
        };
        QVERIFY(onCell());
        QCOMPARE(e.w.box.parentWidget(), &e.form);
        e.w.grid.setColWidth(1, 3000);
        QVERIFY(onCell());
        e.w.grid.setColWidth(4, 900);
        QVERIFY(onCell());
        e.w.grid.setColWidth(0, 2500);
        QTest::qWait(10);
        QVERIFY(onCell());
        e.form.resize(e.form.width() + 90, e.form.height() + 60);
        QTest::qWait(10);
        QVERIFY(onCell());
    }

    void theBoxScrollsWithItsCell()
    {
        std::string rows;
        for (int i = 0; i < 200; ++i) rows += "1,2,3,4,5,6\r\n";
        Opened<frmCg> e{{{"超高参数.txt", rows}}};
        e.w.click(3, 2);
        e.w.grid.verticalScrollBar()->setValue(2);
        QCOMPARE(e.w.box.geometry(), e.w.grid.cellRect(3, 2).translated(e.w.grid.pos()));
        QVERIFY(e.w.box.isVisible());
        QVERIFY(e.w.box.mask().isEmpty());
        e.w.grid.scrollToBottom();
        QVERIFY(!e.w.box.mask().isEmpty());  // above the cells: nothing of it is seen
        QVERIFY(!e.w.box.mask().intersects(e.w.box.rect()));
        e.w.type("8");
        QVERIFY(e.w.box.mask().isEmpty());  // typing brings the cell back into sight
        QCOMPARE(e.w.state(), "3,2 cur 3,2 rows 201 E- [8]");
    }

    void aCellOutOfSightIsScrolledIntoSightWhenEntered()
    {
        std::string rows;
        for (int i = 0; i < 200; ++i) rows += "1,2,3,4,5,6\r\n";
        Opened<frmCg> e{{{"超高参数.txt", rows}}};
        e.w.click(1, 1);
        for (int i = 0; i < 100; ++i) e.w.key(Qt::Key_Down);
        QCOMPARE(e.form.CurRow, 101);
        QVERIFY(e.w.grid.viewport()->geometry().contains(e.w.grid.cellRect(101, 1).center()));
        QCOMPARE(e.w.box.geometry(), e.w.grid.cellRect(101, 1).translated(e.w.grid.pos()));
    }
};

VM_QT_TEST(tst_EditorPattern)
#include "tst_EditorPattern.moc"
