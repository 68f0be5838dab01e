// Blocks from design tables: what is converted is shown before it is taken. And the whole grid on its way out.

#include "editors/EditorWindow.h"
#include "editors/windows/frmCg.h"
#include "editors/windows/frmDl.h"
#include "editors/windows/frmDxd.h"
#include "editors/windows/frmJmpqx.h"
#include "editors/windows/frmSqx.h"
#include "editors/windows/frmTfz.h"
#include "support/PastePreview.h"
#include "support/QtTests.h"
#include "support/SharedDiff.h"

namespace {

constexpr auto kSqx = "竖曲线参数.txt";
constexpr auto kTwoRows = "0,10\r\n1,2,3\r\n4,5,6\r\n90,91\r\n";

using Sqx = OpenedEditor<frmSqx>;

QString clipboard() { return QApplication::clipboard()->text(); }

}  // namespace

class tst_EditorPaste : public QObject {
    Q_OBJECT
private slots:
    void initTestCase() { QGuiApplication::setQuitOnLastWindowClosed(false); }

    void aPrintedTableIsShownAndTaken()
    {
        Sqx e{{{kSqx, kTwoRows}}};
        e.w.enterCell(2, 1);
        withPreview([&] { e.w.paste("K12+000\t1,012.345\t９００\r\nK13+250.5\t15\t1200\r\n"); },
                    [&](QWidget& preview) {
                        QCOMPARE(preview.objectName(), "frmZt");
                        QCOMPARE(rowsOf(preview),
                                 "第 2 行“变坡点里程”|K12+000|12000/第 2 行“变坡点高程”|1,012.345|1012.345/"
                                 "第 2 行“竖曲线半径”|９００|900/第 3 行“变坡点里程”|K13+250.5|13250.5");
                        QCOMPARE(e.w.cells(), "1,2,3/4,5,6");  // nothing is taken yet
                        QVERIFY(preview.focusWidget()->objectName() == "cmdZtOk");
                        QTest::keyClick(preview.focusWidget(), Qt::Key_Return);
                    });
        QCOMPARE(e.w.cells(), "1,2,3/12000,1012.345,900/13250.5,15,1200");
        QCOMPARE(e.w.state(), "2,1 cur 2,1 rows 4 E- [12000]");
        e.w.push("Save");
        QCOMPARE(e.folder.text(kSqx), "0,10\r\n1,2,3\r\n12000,1012.345,900\r\n13250.5,15,1200\r\n90,91\r\n");
    }

    void escOrCancelTakesNothing()
    {
        const std::function<void(QWidget&)> ways[] = {
            [](QWidget& preview) { QTest::keyClick(preview.focusWidget(), Qt::Key_Escape); },
            [](QWidget& preview) { click(preview, "cmdZtCancel"); },
            [](QWidget& preview) { preview.close(); },
        };
        for (const auto& way : ways) {
            Sqx e{{{kSqx, kTwoRows}}};
            e.w.enterCell(1, 1);
            e.form.Edited = false;
            const Shared before = shared;
            withPreview([&] { e.w.paste("K12+000\t12\t900\r\nK13+250\t15\t1200\r\n5\t6\t7\n"); }, way);
            QCOMPARE(e.w.state(), "1,1 cur 1,1 rows 3 -- [1]");
            QCOMPARE(e.w.cells(), "1,2,3/4,5,6");
            QVERIFY(shared == before);
            QVERIFY(e.dialogs.messages.empty());
        }
    }

    /// No window comes up: withPreview would fail without one, and paste would not return with one.
    void plainNumbersGoInWithoutAQuestion()
    {
        Sqx e{{{kSqx, kTwoRows}}};
        e.w.enterCell(1, 1);
        e.w.paste("7\t8\t9\r\n10\t-1.5\t.5\r\n");
        QVERIFY(!QApplication::activeModalWidget() || QApplication::activeModalWidget() == &e.form);
        QCOMPARE(e.w.cells(), "7,8,9/10,-1.5,.5");
    }

    void whatCannotBeReadIsRefusedByCellWithoutAPreview()
    {
        Sqx e{{{kSqx, kTwoRows}}};
        e.w.enterCell(1, 1);
        e.w.paste("K12+000\t12\t900\r\nK12+45\t15\t1200\r\n");
        QCOMPARE(e.dialogs.messages,
                 (std::vector<Msg>{{"粘贴已取消：第 2 行“变坡点里程”不能填“K12+45”！", "注意", Icon::Exclamation}}));
        QCOMPARE(e.w.cells(), "1,2,3/4,5,6");
    }

    void percentAndAnglesInTheirColumns()
    {
        OpenedEditor<frmCg> cg;
        cg.w.enterCell(1, 1);
        withPreview([&] { cg.w.paste("K1+000\t-2%\t－２％\tK1+050\t+6%\t-6%\r\n"); },
                    [](QWidget& preview) { click(preview, "cmdZtOk"); });
        QCOMPARE(cg.w.cells(), "1000,-2,-2,1050,6,-6");
        OpenedEditor<frmJmpqx> jm;
        jm.w.enterCell(1, 1);
        withPreview([&] { jm.w.paste("0\t100\t1\t2\t45°00′30″\t0\t0\r\n"); },
                    [](QWidget& preview) { click(preview, "cmdZtOk"); });
        QCOMPARE(jm.w.cells(), "0,100,1,2,45.0030,0,0");
    }

    void aSingleCellOfASpreadsheetAndAnyOtherText()
    {
        OpenedEditor<frmDl> e{{{"断链参数.txt", "100,120\r\n"}}};
        e.w.enterCell(1, 1);
        withPreview([&] { e.w.paste("K0+110.5\r\n"); }, [](QWidget& preview) { click(preview, "cmdZtOk"); });
        QCOMPARE(e.w.state(), "1,1 cur 1,1 rows 2 E- [110.5]");
        e.w.paste("K0+115");  // no block: into the box as it is, as ever
        QCOMPARE(e.w.box.text(), "K0+115");
    }

    void frameBoxesTakePrintedStakes()
    {
        Sqx e;
        auto& stake = named<QLineEdit>(e.form, "txtSqxQdLc");
        stake.setFocus();
        withPreview([&] { e.w.paste("K12+000\t45.5\r\n"); },
                    [](QWidget& preview) {
                        QCOMPARE(rowsOf(preview), "“起点里程”|K12+000|12000");
                        click(preview, "cmdZtOk");
                    });
        QCOMPARE(e.frames(), (QStringList{"12000", "45.5", "", ""}));
        auto& end = named<QLineEdit>(e.form, "txtSqxZdlc");
        end.setFocus();
        withPreview([&] { e.w.paste("K13+000\n"); }, [](QWidget& preview) { preview.close(); });
        QCOMPARE(end.text(), "");
        withPreview([&] { e.w.paste("K13+000\n"); }, [](QWidget& preview) { click(preview, "cmdZtOk"); });
        QCOMPARE(end.text(), "13000");
        QTest::keyClick(&end, Qt::Key_End);
        e.w.paste("5\n");  // a single cell goes in where the cursor stands
        QCOMPARE(end.text(), "130005");
    }

    void aBlockOfARealSpreadsheet()
    {
        OpenedEditor<frmDxd> e;
        e.w.enterCell(1, 1);
        e.w.paste("\"D 1\"\t2856486.512\t512730.907\t\"路边\r\n石\"\"A\"\"\"\r\n\t\t\t\r\nD2\t1\t2\t\r\n");
        QCOMPARE(e.w.cells(), "\"D 1\",2856486.512,512730.907,路边 石\"A\"/,,,/D2,1,2,");
        QVERIFY(e.dialogs.messages.empty());
    }

    // Out

    void theWholeGridIsCopiedWithItsHeader()
    {
        Sqx e{{{kSqx, kTwoRows}}};
        e.w.enterCell(1, 2);
        e.w.type("77");
        e.w.key(Qt::Key_C, Qt::ControlModifier | Qt::ShiftModifier);
        QCOMPARE(clipboard(), "变坡点里程\t变坡点高程\t竖曲线半径\n1\t77\t3\n4\t5\t6");
        QCOMPARE(e.w.state(), "1,2 cur 1,2 rows 3 E- [77]");
        QApplication::clipboard()->clear();
        for (auto* entry : e.w.grid.contextMenu()->actions())
            if (entry->text() == "复制整表含表头") entry->trigger();
        QCOMPARE(clipboard(), "变坡点里程\t变坡点高程\t竖曲线半径\n1\t77\t3\n4\t5\t6");
    }

    void thePlainCopyStaysAsItWas()
    {
        Sqx e{{{kSqx, kTwoRows}}};
        e.w.grid.setFocus();
        e.w.key(Qt::Key_Right, Qt::ShiftModifier);
        e.w.key(Qt::Key_C, Qt::ControlModifier);
        QCOMPARE(clipboard(), "1\t2");
    }

    void withoutColumnsThereIsNothingToCopy()
    {
        OpenedEditor<frmTfz> e{{{"其他参数.txt", "交点法\r\n线性\r\n0\r\n0\r\n0\r\n"}}};
        QApplication::clipboard()->setText("before");
        e.w.key(Qt::Key_C, Qt::ControlModifier | Qt::ShiftModifier);
        QCOMPARE(clipboard(), "before");
    }
};

VM_QT_TEST(tst_EditorPaste)
#include "tst_EditorPaste.moc"
