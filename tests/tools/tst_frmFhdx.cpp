// The traverse form with its sheet and its plan: states, messages, and the journey of a traverse typed in by hand.

#ifndef Q_MOC_RUN  // moc does not read concepts
#include "Traverse.h"
#endif
#include "controls/XPButton.h"
#include "office/windows/DrawingWindow.h"
#include "office/windows/SheetView.h"
#include "office/windows/SheetWindow.h"
#include "support/PastePreview.h"
#include "support/QtTests.h"
#include "support/ScriptedDialogs.h"
#include "tools/windows/frmFhdx.h"
#include "ui/Theme.h"

#include <QLabel>
#include <QRadioButton>
#include <QtTest>

namespace {

const Msg kCalcFault{"输入数据有误，请检查后再计算", "错误", Icon::None};
const Msg kDrawFault{"输入数据有误，请检查后再运行", "错误", Icon::Exclamation};

template <class Kind>
QList<Kind*> windows()
{
    QList<Kind*> found;
    for (auto* widget : QApplication::topLevelWidgets())
        if (auto* kind = qobject_cast<Kind*>(widget); kind && kind->isVisible()) found << kind;
    return found;
}

struct Journey {
    ScriptedDialogs dialogs;
    frmFhdx form;
    Journey()
    {
        shared = {};
        form.show();
    }
    ~Journey()
    {
        for (auto* window : windows<SheetWindow>()) delete window;
        for (auto* window : windows<DrawingWindow>()) delete window;
    }
    XPButton* button(const char* name) { return form.findChild<XPButton*>(name); }
    void click(const char* name) { QTest::mouseClick(button(name), Qt::LeftButton, {}, button(name)->rect().center()); }
    bool enabled(const char* name) { return button(name)->isEnabled(); }
    SheetWindow* makeSheet(const QString& count, bool left = true)
    {
        form.findChild<QLineEdit*>("txtDxd")->setText(count);
        form.findChild<QRadioButton*>(left ? "optZ" : "optY")->setChecked(true);
        click("butFhdxBg");
        const auto open = windows<SheetWindow>();
        return open.isEmpty() ? nullptr : open.last();
    }
    /// Types a column of values, Enter after each, through the window system.
    static void typeDown(SheetWindow* window, const char* from, const QStringList& values)
    {
        QApplication::setActiveWindow(window);
        window->view().setFocus();
        window->view().setCurrent(from);
        for (const auto& value : values) {
            for (const QChar c : value) QTest::keyClick(QApplication::focusWidget(), c.toLatin1());
            QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
        }
    }
    /// The published traverse, every value typed.
    static void typeTraverse(SheetWindow* window)
    {
        typeDown(window, "a4", {"A", "B", "1", "2", "3", "4", "C", "D"});
        typeDown(window, "b6", {"99.0100", "167.4536", "123.1124", "189.2036", "179.5918", "129.2724"});
        typeDown(window, "e7", {"225.85", "139.03", "172.57", "100.07", "102.48"});
        typeDown(window, "l4", {"3037.7326", "2507.69"});
        typeDown(window, "m4", {"2063.6010", "1215.63"});
        typeDown(window, "l16", {"2166.74", "2851.8382"});
        typeDown(window, "m16", {"1757.27", "2485.7207"});
    }
};

QString at(SheetWindow* window, const char* address) { return QString::fromStdString(window->sheet().text(address)); }
double numberOf(SheetWindow* window, const char* address) { return window->sheet().number(address).value_or(-1); }

}  // namespace

class tst_frmFhdx : public QObject {
    Q_OBJECT
private slots:
    void initTestCase() { applyTheme(*qApp); }

    void controlsAtStart()
    {
        Journey j;
        QCOMPARE(j.form.windowTitle(), "附和导线一般平差");
        QVERIFY(j.form.findChild<QRadioButton*>("optY")->isChecked());
        QCOMPARE(j.form.findChild<QRadioButton*>("optY")->text(), "右角");
        QCOMPARE(j.form.findChild<QRadioButton*>("optZ")->text(), "左角");
        QVERIFY(j.enabled("butFhdxBg") && !j.enabled("butFhdxCalc") && !j.enabled("butFhdxZd"));
        QVERIFY(j.enabled("butFhdxBack"));
        QString label;
        for (const auto* text : j.form.findChildren<QLabel*>())
            if (text->buddy() == j.form.findChild<QLineEdit*>("txtDxd")) label = text->text();
        QCOMPARE(label, "导线点个数");
    }
    void theWindowItCameFromIsBlockedButDoesNotComeBeforeTheSheet()
    {
        ScriptedDialogs dialogs;
        QWidget main;
        QLineEdit field(&main);
        main.show();
        frmFhdx form(&main);
        form.show();
        QCOMPARE(form.windowType(), Qt::Window);  // a desktop raises what a dialog belongs to
        QVERIFY(form.isModal());
        QTest::mouseClick(main.windowHandle(), Qt::LeftButton, {}, field.geometry().center());
        QVERIFY(!field.hasFocus());
        form.unload();
    }
    void onlyDigitsEnterTheCount()
    {
        Journey j;
        auto* box = j.form.findChild<QLineEdit*>("txtDxd");
        QTest::keyClicks(box, "-1.2a3 ");
        QCOMPARE(box->text(), "123");
    }
    void printedAnglesAndDistancesArePasted()
    {
        Journey j;
        auto* window = j.makeSheet("8");
        Journey::typeTraverse(window);
        const QString angles = "99°01′00″\n167°45'36\"\n123°11′24″\n189°20′36″\n179°59′18″\n129°27′24″\n";
        QApplication::clipboard()->setText(angles);
        window->view().setCurrent("b6");
        withPreview([&] { window->view().paste(); },
                    [](QWidget& preview) {
                        QCOMPARE(rowsOf(preview).section(u'/', 0, 1), "B6|99°01′00″|99.0100/B8|167°45'36\"|167.4536");
                        QTest::keyClick(preview.focusWidget(), Qt::Key_Return);
                    });
        QCOMPARE(numberOf(window, "b8"), 167.4536);
        QCOMPARE(numberOf(window, "b16"), 129.2724);
        gFhdxN = 12;  // as the plan leaves it: the sheet keeps its own count
        QApplication::clipboard()->setText("1,757.27");
        window->view().setCurrent("m16");
        window->view().paste();
        QCOMPARE(numberOf(window, "m16"), 1757.27);
        QApplication::clipboard()->setText("90°00′00″");
        window->view().setCurrent("b20");
        window->view().paste();  // below the table texts are texts
        QCOMPARE(at(window, "b20"), "90°00′00″");
        gFhdxN = 8;
        window->view().setCurrent("b20");
        window->view().clear();
        j.click("butFhdxCalc");
        QVERIFY(j.dialogs.messages.empty());
        // What was computed is text there; pasted back it is a number again, and the traverse can be computed again.
        // 99.01 shows as 99°0′60″, which is no angle of a design table.
        QCOMPARE(at(window, "b6"), "99°0′60″");
        Journey::typeDown(window, "b6", {"99.0100"});
        window->view().select("b8", "b16");
        window->view().copy();
        withPreview([&] { window->view().paste(); },
                    [](QWidget& preview) { QTest::keyClick(preview.focusWidget(), Qt::Key_Return); });
        j.click("butFhdxCalc");
        QVERIFY(j.dialogs.messages.empty());
    }
    void emptyAndSmallCountsAreRefused()
    {
        Journey j;
        QVERIFY(!j.makeSheet(""));
        QCOMPARE(j.dialogs.last(), (Msg{"请输入导线点个数", "注意", Icon::Exclamation}));
        QCOMPARE(j.form.focusWidget()->objectName(), "txtDxd");
        QVERIFY(!j.makeSheet("4"));
        QCOMPARE(j.dialogs.last(), (Msg{"导线点个数不能小于5", "错误", Icon::Exclamation}));
        QVERIFY(j.enabled("butFhdxBg") && !j.enabled("butFhdxCalc"));
        QCOMPARE(j.dialogs.messages.size(), 2u);
    }
    void aCountThatFailsSaysNothing()
    {
        Journey j;
        QVERIFY(!j.makeSheet("99999"));
        QVERIFY(j.makeSheet("16384"));  // as far as it got
        QVERIFY(j.enabled("butFhdxBg") && !j.enabled("butFhdxCalc"));
        QCOMPARE(j.dialogs.messages.size(), 0u);
    }
    void theBackButtonCloses()
    {
        Journey j;
        j.click("butFhdxBack");
        QVERIFY(!j.form.isVisible());
    }

    void f5CalculatesOnceThereIsASheet()
    {
        Journey j;
        QTest::keyClick(&j.form, Qt::Key_F5);
        QVERIFY(j.dialogs.messages.empty() && !j.enabled("butFhdxZd"));
        auto* sheet = j.makeSheet("8");
        QVERIFY(sheet);
        j.typeTraverse(sheet);
        QTest::keyClick(&j.form, Qt::Key_F5);
        QVERIFY(j.dialogs.messages.empty() && j.enabled("butFhdxZd"));
        QVERIFY(qAbs(numberOf(sheet, "l8") - 2299.83) < 0.01);
    }

    void theWholeJourney()
    {
        Journey j;
        auto* sheet = j.makeSheet("8");
        QVERIFY(sheet);
        QVERIFY(!j.enabled("butFhdxBg") && j.enabled("butFhdxCalc") && !j.enabled("butFhdxZd"));
        QVERIFY(!sheet->isUnsaved());
        j.typeTraverse(sheet);
        QVERIFY(sheet->isUnsaved());
        j.click("butFhdxCalc");
        QVERIFY(j.dialogs.messages.empty());
        QVERIFY(j.enabled("butFhdxZd"));
        const struct {
            const char *x, *y;
            double north, east;
        } published[] = {{"l8", "m8", 2299.83, 1303.80},
                         {"l10", "m10", 2186.29, 1383.97},
                         {"l12", "m12", 2192.45, 1556.40},
                         {"l14", "m14", 2179.74, 1655.64}};
        for (const auto& point : published) {
            QVERIFY(qAbs(numberOf(sheet, point.x) - point.north) < 0.01);
            QVERIFY(qAbs(numberOf(sheet, point.y) - point.east) < 0.01);
        }

        // A second press reads texts: the message, and the known azimuths are numbers again.
        j.click("butFhdxCalc");
        QCOMPARE(j.dialogs.last(), kCalcFault);
        QVERIFY(sheet->sheet().number("d5").has_value());
        QCOMPARE(at(sheet, "d7").right(1), "″");
        QVERIFY(qAbs(numberOf(sheet, "l8") - 2299.83) < 0.01);

        // One cell changed by hand between two calculations, the angles taken back first.
        sheet->view().undo();
        sheet->view().undo();
        QCOMPARE(at(sheet, "b8"), "167.4536");
        QCOMPARE(at(sheet, "l8"), "");
        j.typeDown(sheet, "e7", {"225.88"});
        j.click("butFhdxCalc");
        QCOMPARE(j.dialogs.messages.size(), 1u);
        // 3 cm more along 157°: fx was -0.145, and cos 157° of it is -0.028.
        QCOMPARE(at(sheet, "e21"), "fx=-0.173");

        // Drawn twice: the second time from what the first left in the count.
        j.click("butFhdxZd");
        QCOMPARE(gFhdxN, 12);
        auto plans = windows<DrawingWindow>();
        QCOMPARE(plans.size(), 1);
        const auto points = std::get<Drawing::Polyline>(plans[0]->view().drawing().entities[0]).points;
        QCOMPARE(points.size(), 8u);
        QCOMPARE(points[1], (Drawing::Point{1215.63, 2507.69}));
        j.click("butFhdxZd");
        QCOMPARE(gFhdxN, 20);
        plans = windows<DrawingWindow>();
        QCOMPARE(plans.size(), 2);
        size_t most = 0;
        for (auto* plan : plans)
            most = qMax(most, std::get<Drawing::Polyline>(plan->view().drawing().entities[0]).points.size());
        QCOMPARE(most, 12u);

        // Closed: the message of the calculation; the plan needs it too.
        j.dialogs.no();
        sheet->close();
        j.click("butFhdxCalc");
        QCOMPARE(j.dialogs.last(), kCalcFault);
        j.click("butFhdxZd");
        QCOMPARE(j.dialogs.last(), kDrawFault);
    }
    void aBadCellStopsTheDrawing()
    {
        Journey j;
        auto* sheet = j.makeSheet("8");
        j.typeTraverse(sheet);
        j.click("butFhdxCalc");
        j.typeDown(sheet, "l8", {"x"});
        j.click("butFhdxZd");
        QCOMPARE(j.dialogs.last(), kDrawFault);
        QVERIFY(windows<DrawingWindow>().isEmpty());
    }
    void whatIsBeingTypedIsDrawn()
    {
        Journey j;
        auto* sheet = j.makeSheet("8");
        j.typeTraverse(sheet);
        j.click("butFhdxCalc");
        sheet->view().setCurrent("l8");
        for (const char c : std::string("2300.5")) QTest::keyClick(QApplication::focusWidget(), c);  // and no Enter
        j.click("butFhdxZd");
        const auto plans = windows<DrawingWindow>();
        QCOMPARE(plans.size(), 1);
        QCOMPARE(std::get<Drawing::Polyline>(plans[0]->view().drawing().entities[0]).points[2].y, 2300.5);
    }
    void aPerfectTraverseEndsWithTheMessage()
    {
        Journey j;
        auto* sheet = j.makeSheet("5", false);
        j.typeDown(sheet, "b6", {"180", "180", "180"});
        j.typeDown(sheet, "e7", {"50", "50"});
        j.typeDown(sheet, "m4", {"-50", "0"});
        j.typeDown(sheet, "m10", {"100", "150"});
        j.click("butFhdxCalc");
        QCOMPARE(j.dialogs.last(), kCalcFault);
        QCOMPARE(at(sheet, "g16"), "f=√(fx*fx+fy*fy)=0");
        QVERIFY(!j.enabled("butFhdxZd"));
    }
    void theKindOfAngleIsReadAtTheCalculation()
    {
        Journey j;
        auto* sheet = j.makeSheet("8", false);
        QCOMPARE(at(sheet, "b2"), " 观测右角               (  °′ ″ )");
        j.typeTraverse(sheet);
        j.form.findChild<QRadioButton*>("optZ")->setChecked(true);
        j.click("butFhdxCalc");
        QVERIFY(qAbs(numberOf(sheet, "l8") - 2299.83) < 0.01);
    }
    void aHundredAndFourPointsFailAndANewFormStartsAfresh()
    {
        Journey j;
        j.makeSheet("104");
        j.click("butFhdxCalc");
        QCOMPARE(j.dialogs.last(), kCalcFault);
        frmFhdx again;
        again.show();
        QVERIFY(again.findChild<XPButton*>("butFhdxBg")->isEnabled());
        QVERIFY(!again.findChild<XPButton*>("butFhdxCalc")->isEnabled());
    }
    void theSheetOutlivesTheForm()
    {
        Journey j;
        auto* sheet = j.makeSheet("5");
        j.form.unload();
        QVERIFY(sheet->isVisible());
        j.typeDown(sheet, "a4", {"A"});
        QCOMPARE(at(sheet, "a4"), "A");
    }
};

VM_QT_TEST(tst_frmFhdx)
#include "tst_frmFhdx.moc"
