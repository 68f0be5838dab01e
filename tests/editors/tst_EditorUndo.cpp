// Undo and redo: cell by cell, row by row, a paste at once. tst_EditorModel does it at random.

#include "editors/EditorWindow.h"
#include "editors/windows/frmCg.h"
#include "editors/windows/frmDl.h"
#include "editors/windows/frmDxd.h"
#include "editors/windows/frmJmpqx.h"
#include "editors/windows/frmSqx.h"
#include "editors/windows/frmTfz.h"
#include "support/QtTests.h"

namespace {

constexpr auto kSqx = "竖曲线参数.txt";
constexpr auto kTwoRows = "0,10\r\n1,2,3\r\n4,5,6\r\n90,91\r\n";

using Sqx = OpenedEditor<frmSqx>;

void undo(const EditorWindow& w) { w.key(Qt::Key_Z, Qt::ControlModifier); }
void redo(const EditorWindow& w) { w.key(Qt::Key_Y, Qt::ControlModifier); }
Step undone(const char* state) { return {"undo", undo, state}; }
Step redone(const char* state) { return {"redo", redo, state}; }

QAction* entry(const EditorWindow& w, const char* caption)
{
    for (auto* action : w.grid.contextMenu()->actions())
        if (action->text() == QString::fromUtf8(caption)) return action;
    return nullptr;
}

}  // namespace

class tst_EditorUndo : public QObject {
    Q_OBJECT
private slots:
    void initTestCase() { QGuiApplication::setQuitOnLastWindowClosed(false); }

    void aFreshWindowHasNothingToUndo()
    {
        Sqx e{{{kSqx, kTwoRows}}};
        undo(e.w);
        redo(e.w);
        QCOMPARE(e.w.state(), "1,1 cur 0,0 rows 3 -- ()");
        QCOMPARE(e.w.cells(), "1,2,3/4,5,6");
        QVERIFY(!entry(e.w, "撤销")->isEnabled() && !entry(e.w, "重做")->isEnabled());
    }

    void cellsAreUndoneOneByOneAndEntered()
    {
        Sqx e{{{kSqx, kTwoRows}}, true};
        e.w.enterCell(1, 1);
        e.w.type("11");
        e.w.key(Qt::Key_Down);
        e.w.type("44");
        e.w.key(Qt::Key_Up);
        gGridLeftDown = true;  // no rule of the left button, whatever was pressed last
        play(e.w, {
                      undone("2,1 cur 2,1 rows 3 E- [4]"),
                      undone("1,1 cur 1,1 rows 3 E- [1]"),
                      undone("1,1 cur 1,1 rows 3 E- [1]"),  // nothing is left
                      redone("1,1 cur 1,1 rows 3 E- [11]"),
                      redone("2,1 cur 2,1 rows 3 E- [44]"),
                      redone("2,1 cur 2,1 rows 3 E- [44]"),
                  });
        QCOMPARE(e.w.cells(), "11,2,3/44,5,6");
        QVERIFY(e.w.box.hasFocus());
    }

    void anUndoMarksTheWindowAsEdited()
    {
        OpenedEditor<frmDl> e{{{"断链参数.txt", "7,7\r\n"}}};
        e.w.enterCell(1, 1);
        e.w.type("8");
        e.w.key(Qt::Key_Right);
        e.w.push("Save");
        QVERIFY(!e.form.Edited);
        play(e.w, {undone("1,1 cur 1,1 rows 2 E- [7]")});
        e.form.Edited = false;
        play(e.w, {redone("1,1 cur 1,1 rows 2 E- [8]")});
        e.dialogs.no();
        e.w.push("Back");
    }

    void theBoxTakesItsTypingBackFirst()
    {
        Sqx e{{{kSqx, kTwoRows}}};
        e.w.enterCell(1, 2);
        e.w.type("9");
        e.w.key(Qt::Key_Right);
        e.w.type("123");  // the window has written 12 already
        QCOMPARE(e.w.cells(), "1,9,12/4,5,6");
        play(e.w, {undone("1,3 cur 1,3 rows 3 E- [3]")});
        QCOMPARE(e.w.cells(), "1,9,3/4,5,6");  // and so it takes back
        play(e.w, {undone("1,2 cur 1,2 rows 3 E- [2]"), redone("1,2 cur 1,2 rows 3 E- [9]")});
    }

    void typingIntoABlankCellLeavesNothingBehind()
    {
        Sqx e;
        e.w.enterCell(1, 1);
        e.w.type("123");
        play(e.w, {undone("1,1 cur 1,1 rows 2 E- []")});
        e.w.key(Qt::Key_Right);
        QCOMPARE(e.w.cells(), ",,");
        QVERIFY(!entry(e.w, "撤销")->isEnabled());
    }

    void theBoxDoesItsTypingAgainFirst()
    {
        Sqx e{{{kSqx, kTwoRows}}};
        e.w.enterCell(1, 1);
        e.w.type("8");
        play(e.w, {undone("1,1 cur 1,1 rows 3 E- [1]"), redone("1,1 cur 1,1 rows 3 E- [8]")});
        e.w.key(Qt::Key_Right);
        QCOMPARE(e.w.cells(), "8,2,3/4,5,6");
        play(e.w, {undone("1,1 cur 1,1 rows 3 E- [1]")});
    }

    void rowsThatWereInsertedAndDeleted()
    {
        Sqx e{{{kSqx, kTwoRows}}};
        play(e.w, {
                      enterCell(2, 2, "2,2 cur 2,2 rows 3 E- [5]"),
                      push("Insert", "2,2 cur 2,2 rows 4 E- []"),
                      push("Del", "2,2 cur 2,2 rows 3 E- [5]"),
                      push("Del", "1,2 cur 2,2 rows 2 E- [2]"),
                      undone("2,2 cur 2,2 rows 3 E- [5]"),
                      undone("2,2 cur 2,2 rows 4 E- []"),
                      undone("2,2 cur 2,2 rows 3 E- [5]"),
                      redone("2,2 cur 2,2 rows 4 E- []"),
                      redone("2,2 cur 2,2 rows 3 E- [5]"),
                      redone("1,2 cur 1,2 rows 2 E- [2]"),
                      undone("2,2 cur 2,2 rows 3 E- [5]"),
                  });
        QCOMPARE(e.w.cells(), "1,2,3/4,5,6");
        QCOMPARE(e.w.cell(2, 0), "2");
    }

    void theBoxHasNothingToUndoInAnInsertedRow()
    {
        Sqx e{{{kSqx, kTwoRows}}};
        e.w.enterCell(1, 2);
        e.w.push("Insert");
        e.w.box.setFocus();
        play(e.w, {undone("1,2 cur 1,2 rows 3 E- [2]")});
        QCOMPARE(e.w.cells(), "1,2,3/4,5,6");
    }

    void aRowThatEnterAddedGoesWithOneUndo()
    {
        Sqx e{{{kSqx, kTwoRows}}};
        e.w.enterCell(2, 3);
        e.w.enter();
        e.w.enterCell(2, 3);
        gGridLeftDown = true;
        play(e.w, {
                      enter("3,1 cur 3,1 rows 5 ES []"),  // with the left button down Enter adds two
                      undone("2,1 cur 2,1 rows 3 ES [4]"),
                      redone("3,1 cur 3,1 rows 5 ES []"),
                  });
    }

    void aRowThatAClickAddedGoesWithWhatWasFilledIn()
    {
        OpenedEditor<frmCg> e{{{"超高参数.txt", "1,2,3,4,5,6\r\n"}}};
        e.w.click(1, 1);  // the header counts as complete: one row more
        e.w.click(2, 4);
        QCOMPARE(e.w.cells(), "1,2,3,4,5,6/4,5,6,,,/,,,,,");
        undo(e.w);
        QCOMPARE(e.w.cells(), "1,2,3,4,5,6/,,,,,");
        QCOMPARE(e.w.state(), "2,1 cur 2,1 rows 3 E- []");
        redo(e.w);
        QCOMPARE(e.w.cells(), "1,2,3,4,5,6/4,5,6,,,/,,,,,");
        QCOMPARE(e.w.state(), "2,1 cur 2,1 rows 4 E- [4]");
    }

    void whatABlockComputedGoesToo()
    {
        OpenedEditor<frmJmpqx> e{{{"平曲线参数.txt", "0,100,1000,2000,0,0,0\r\n"}}};
        e.w.click(1, 1);
        e.w.click(2, 7);
        QCOMPARE(e.w.cells(), "0,100,1000,2000,0,0,0/100,,1100,2000,0,0,/,,,,,,");
        undo(e.w);
        QCOMPARE(e.w.cells(), "0,100,1000,2000,0,0,0/,,,,,,");
    }

    void aPasteIsOneStepWithTheRowsThatItAdded()
    {
        Sqx e{{{kSqx, kTwoRows}}};
        e.w.enterCell(2, 2);
        e.w.paste("7\t8\r\n9\t10\r\n11\t12\r\n");
        QCOMPARE(e.w.cells(), "1,2,3/4,7,8/,9,10/,11,12");
        play(e.w, {undone("2,2 cur 2,2 rows 3 E- [5]")});
        QCOMPARE(e.w.cells(), "1,2,3/4,5,6");
        play(e.w, {redone("2,2 cur 2,2 rows 5 E- [7]")});
        QCOMPARE(e.w.cells(), "1,2,3/4,7,8/,9,10/,11,12");
    }

    void aPasteOverAFrameIsOneStep()
    {
        Sqx e{{{kSqx, kTwoRows}}};
        named<QLineEdit>(e.form, "txtSqxQdLc").setFocus();
        e.w.paste("5\t6\t7\n");
        named<QLineEdit>(e.form, "txtSqxZdlc").setText("77");
        QCOMPARE(e.frames(), (QStringList{"5", "6", "77", "91"}));
        e.w.grid.setFocus();
        e.form.Edited = false;
        undo(e.w);
        QCOMPARE(e.frames(), (QStringList{"0", "10", "77", "91"}));  // what was typed since stays
        QCOMPARE(e.form.focusWidget()->objectName(), "txtSqxQdLc");
        QVERIFY(e.form.Edited);
        redo(e.w);
        QCOMPARE(e.frames(), (QStringList{"5", "6", "77", "91"}));
        e.w.type("1");  // typed over the selected text
        undo(e.w);      // of the box itself
        QCOMPARE(e.frames(), (QStringList{"5", "6", "77", "91"}));
    }

    void aHeldKeyGoesThroughAllSteps()
    {
        Sqx e{{{kSqx, kTwoRows}}};
        const auto hold = [&](Qt::Key key) {
            for (int i = 0; i < 12; ++i) {
                QKeyEvent held(QEvent::KeyPress, key, Qt::ControlModifier, {}, i > 0);
                QApplication::sendEvent(QApplication::focusWidget(), &held);
            }
        };
        e.w.enterCell(1, 1);
        e.w.push("Insert");
        e.w.enterCell(1, 1);
        e.w.type("11");
        e.w.key(Qt::Key_Left);
        e.w.type("22");
        e.w.key(Qt::Key_Right);
        e.w.key(Qt::Key_Down);
        QCOMPARE(e.w.cells(), "1221,,/1,2,3/4,5,6");
        hold(Qt::Key_Z);
        e.w.key(Qt::Key_Down);
        QCOMPARE(e.w.cells(), "1,2,3/4,5,6");
        e.w.key(Qt::Key_Up);
        hold(Qt::Key_Y);
        e.w.key(Qt::Key_Down);
        QCOMPARE(e.w.cells(), "1221,,/1,2,3/4,5,6");
    }

    void whatIsHeldLeavesBoxAndCellAgreed()
    {
        Sqx e;
        e.w.enterCell(1, 1);
        e.w.type("11");
        e.w.key(Qt::Key_Left);
        e.w.type("22");
        for (int i = 0; i < 6; ++i) {
            QKeyEvent held(QEvent::KeyPress, Qt::Key_Z, Qt::ControlModifier, {}, i > 0);
            QApplication::sendEvent(QApplication::focusWidget(), &held);
        }
        QCOMPARE(e.w.box.text(), QString());
        e.w.key(Qt::Key_Down);
        QCOMPARE(e.w.cells(), ",,");
    }

    void undoGoesOnBehindASave()
    {
        OpenedEditor<frmDl> e{{{"断链参数.txt", "1,2\r\n3,4\r\n"}}};
        e.w.enterCell(1, 1);
        e.w.push("Del");
        e.w.push("Save");
        QCOMPARE(e.folder.text("断链参数.txt"), "3,4\r\n");
        QVERIFY(!e.form.Edited);
        undo(e.w);
        QCOMPARE(e.w.cells(), "1,2/3,4");
        QCOMPARE(e.folder.text("断链参数.txt"), "3,4\r\n");  // an undo writes nothing
        QVERIFY(e.form.Edited);
        e.w.push("Save");
        QCOMPARE(e.folder.text("断链参数.txt"), "1,2\r\n3,4\r\n");
        frmDl again;
        EditorWindow w(again);
        undo(w);
        QCOMPARE(w.state(), "1,1 cur 0,0 rows 3 -- ()");
    }

    void bytesMoveWithTheirRow()
    {
        OpenedEditor<frmDxd> e;
        const std::string file = "A,1,2,\xFF\xE4\r\nB,3,4,\xFE\xE4\r\nC,5,6,\xFF\xF5\r\n";
        e.folder.writeBytes("导线点参数.txt", file);
        frmDxd form;
        const EditorWindow w(form);
        w.enterCell(2, 4);
        w.type("gone");
        w.key(Qt::Key_Up);
        w.enterCell(1, 1);
        w.push("Del");
        w.enterCell(1, 1);
        w.push("Del");
        w.push("Save");
        QCOMPARE(e.folder.bytes("导线点参数.txt"), "C,5,6,\xFF\xF5\r\n");
        for (int i = 0; i < 3; ++i) undo(w);
        w.push("Save");
        QCOMPARE(e.folder.bytes("导线点参数.txt"), file);
        for (int i = 0; i < 3; ++i) redo(w);
        undo(w);
        w.push("Save");
        QCOMPARE(e.folder.bytes("导线点参数.txt"), "B,3,4,gone\r\nC,5,6,\xFF\xF5\r\n");
    }

    /// Scrolling hides the box of a slope editor, and a hidden box commits: not while its cell is being put back.
    void aCellOutOfSightIsUndone()
    {
        std::string rows;
        for (int i = 0; i < 200; ++i) rows += "1,2,3,4,5,6\r\n";
        const ProjectFolder::File settings{"其他参数.txt", "交点法\r\n线性\r\n1\r\n1\r\n0\r\n"};
        OpenedEditor<frmTfz> e{{settings, {"左幅填方参数.txt", rows}}};
        e.w.enterCell(1, 2);
        e.w.type("8");
        e.w.key(Qt::Key_Right);
        for (int i = 0; i < 20; ++i) e.w.key(Qt::Key_PageDown);
        play(e.w, {undone("1,2 cur 1,2 rows 201 E- [2]")});
        QCOMPARE(e.w.cell(1, 2), "2");
        QVERIFY(e.w.grid.viewport()->geometry().contains(e.w.grid.cellRect(1, 2).center()));
        for (int row = 2; row <= 200; ++row) QCOMPARE(e.w.cell(row, 3), "3");
    }

    void anEditAfterAnUndoEndsWhatCouldBeDoneAgain()
    {
        Sqx e{{{kSqx, kTwoRows}}};
        e.w.enterCell(1, 1);
        e.w.type("8");
        e.w.key(Qt::Key_Right);
        undo(e.w);
        e.w.type("7");
        e.w.key(Qt::Key_Right);
        redo(e.w);
        QCOMPARE(e.w.cells(), "7,2,3/4,5,6");
    }

    void menusOfferBoth()
    {
        Sqx e{{{kSqx, kTwoRows}}};
        e.w.enterCell(1, 1);
        e.w.type("8");
        e.w.key(Qt::Key_Right);
        entry(e.w, "撤销")->trigger();
        QCOMPARE(e.w.state(), "1,1 cur 1,1 rows 3 E- [1]");
        QVERIFY(!entry(e.w, "撤销")->isEnabled());
        entry(e.w, "重做")->trigger();
        QCOMPARE(e.w.state(), "1,1 cur 1,1 rows 3 E- [8]");
        e.w.key(Qt::Key_Z, Qt::ControlModifier);
        e.w.key(Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier);
        QCOMPARE(e.w.state(), "1,1 cur 1,1 rows 3 E- [8]");
    }
};

VM_QT_TEST(tst_EditorUndo)
#include "tst_EditorUndo.moc"
