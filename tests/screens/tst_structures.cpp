// Corner points, their batch window and the main-point table through real keys and clicks.

#include "FormDriver.h"

#include "screens/windows/frmJgw.h"
#include "screens/windows/frmPl.h"
#include "screens/windows/frmZdcs.h"
#include "support/QtTests.h"

#include <QRadioButton>
#include <QTemporaryDir>

#include <memory>

using namespace Qt::StringLiterals;

class tst_structures : public QObject {
    Q_OBJECT
private slots:
    void tabFromTheGridGoesToTheChosenOption()
    {
        Driven<frmJgw> f;
        for (const auto* chosen : {"optJgwXz", "optJgwZz"}) {
            f.get<QRadioButton>(chosen)->setChecked(true);
            for (QWidget* at = f.get<MSFlexGrid>("MsfgJgw");;) {
                at->setFocus();
                QTest::keyClick(at, Qt::Key_Tab);
                at = f.form.focusWidget();
                if (qobject_cast<QRadioButton*>(at)) break;
                QVERIFY2(at != f.get<MSFlexGrid>("MsfgJgw"), "no option");
            }
            QCOMPARE(f.form.focusWidget()->objectName(), chosen);
        }
    }
    void init()
    {
        m = std::make_unique<Machine>();
        straightNorth();
        fourPoints();
    }
    void cleanup() { m.reset(); }

    void squareOnAStraightToTheNorthInBothModes()
    {
        const QStringList xs = {u"1105.000"_s, u"1105.000"_s, u"1095.000"_s, u"1095.000"_s};
        const QStringList ys = {u"1997.000"_s, u"2004.000"_s, u"1997.000"_s, u"2004.000"_s};
        for (const char* mode : {"optJgwXz", "optJgwZz"}) {
            Driven<frmJgw> f;
            fill(f, "100");
            QTest::mouseClick(f.get<QRadioButton>(mode), Qt::LeftButton, {}, QPoint(8, 8));
            f.click("butJgwCalc");
            QCOMPARE(f.column(2), (QStringList{u"左前点"_s, u"右前点"_s, u"左后点"_s, u"右后点"_s}));
            QCOMPARE(f.column(6), xs);
            QCOMPARE(f.column(7), ys);
            QCOMPARE(f.column(3), QStringList(4, u"无"_s));
            QCOMPARE(f.column(1), QStringList(4, u"K0+100.000"_s));
            m->dialogs.no();
            f.form.close();
        }
    }

    void negativeAngleShowsAsTyped()
    {
        Driven<frmJgw> f;
        fill(f, "100");
        f.tick("cheJgwJj");
        QVERIFY(f.open("txtJgwJj") && f.focused("txtJgwJj"));
        f.type("txtJgwJj", "-30");
        f.click("butJgwCalc");
        QCOMPARE(f.row(1)[3], u"-30度00分00秒"_s);
        f.tick("cheJgwJj");
        QVERIFY(!f.open("txtJgwJj"));
        QCOMPARE(f.text("txtJgwJj"), QString());
        m->dialogs.no();
        f.form.close();
    }

    void endOfTheRoadUsesTheLastCentre()
    {
        Driven<frmJgw> f;
        fill(f, "300");
        f.click("butJgwCalc");
        f.type("txtJgwFylc", "1000");
        f.click("butJgwCalc");
        QCOMPARE(f.row(5)[1], u"K1+000.000"_s);
        QCOMPARE(f.row(5)[6], f.row(1)[6]);
        QVERIFY(!f.grid().warning(5).isEmpty());
        m->dialogs.no();
        f.form.close();
    }

    void refusalsInTheirOrder()
    {
        setBreaks({{100, 120}});
        gElemLc[0] = 10;
        Driven<frmJgw> f;
        const auto press = [&](const char* text, const char* focus, const char* title = "错误") {
            f.click("butJgwCalc");
            COMPARE_MESSAGES(m->dialogs, refused(text, title));
            QVERIFY(f.focused(focus ? focus : "butJgwCalc"));  // else it stays on the button
            QCOMPARE(f.rows(), 0);
        };
        f.tick("cheJgwJj");
        f.tick("cheJgw");
        press("结构物中心里程不能为空！", "txtJgwFylc");
        f.type("txtJgwFylc", "5");
        press("不能小于起点里程！", nullptr);
        f.type("txtJgwFylc", "-1001");
        press("不能大于终点里程！", nullptr);
        f.type("txtJgwFylc", "110");
        press("夹角不能为空！", "txtJgwJj");
        f.type("txtJgwJj", "60");
        press("K前不能为空！", "txtJgwKq");
        f.type("txtJgwKq", "1");
        press("K后不能为空！", "txtJgwKh");
        f.type("txtJgwKh", "1");
        press("Z左不能为空！", "txtJgwZz");
        f.type("txtJgwZz", "1");
        press("Z右不能为空！", "txtJgwZy");
        f.type("txtJgwZy", "1");
        press("桩号不存在，请检查断链数据！", nullptr, "注意");
        f.type("txtJgwFylc", "50");
        press("测站X坐标不能为空！", "txtJgwCzX");
        f.type("txtJgwCzX", "1");
        press("测站Y坐标不能为空！", "txtJgwCzY");
        f.type("txtJgwCzY", "-1.2.3");
        press("请输入正确的数值！", nullptr);
    }

    void the101stStructureWritesItsRowsAndFails()
    {
        Driven<frmJgw> f;
        fill(f, "100");
        for (int i = 0; i < 100; ++i) f.click("butJgwCalc");
        COMPARE_MESSAGES(m->dialogs, );
        f.click("butJgwCalc");
        COMPARE_MESSAGES(m->dialogs, refused("请输入正确的数值！"));
        QCOMPARE(f.rows(), 404);
        m->dialogs.no();
        f.form.close();
    }

    // The run of structures

    void runHandsOverAndAppends()
    {
        Driven<frmJgw> f;
        fill(f, "");
        inBatchWindow(f, [&](Batch& b) {
            b.type("txtQdlc", "100");
            b.type("txtZdlc", "200");
            b.type("txtBc", "50");
            b.click("butOK");
            QVERIFY(!b.shown());
        });
        QCOMPARE(f.rows(), 12);
        QCOMPARE(f.row(5)[1], u"K0+150.000"_s);
        QVERIFY(!gPlBatch);
        COMPARE_MESSAGES(m->dialogs, );
        m->dialogs.no();
        f.form.close();
    }

    void runRefusals()
    {
        gElemLc[0] = 10;
        Driven<frmJgw> f;
        f.tick("cheJgwJj");
        f.tick("cheJgw");
        inBatchWindow(f, [&](Batch& b) {
            const auto press = [&](const char* text, const char* title) {
                b.click("butOK");
                COMPARE_MESSAGES(m->dialogs, refused(text, title));
                QVERIFY(b.shown());
            };
            press("批量计算起点不能为空！", "注意");
            b.type("txtQdlc", "5");
            press("批量计算终点不能为空！", "注意");
            b.type("txtZdlc", "5");
            press("批量计算间距不能为空！", "注意");
            b.type("txtBc", "0");
            press("批量计算间距不能为0！", "注意");
            b.type("txtBc", "10");
            press("批量计算起点不能等于批量计算终点！", "注意");
            b.type("txtZdlc", "2000");
            press("开始里程不能小于起点里程！", "错误");
            QCOMPARE(gPlStart, 0.0);
            b.type("txtQdlc", "20");
            press("结束里程不能大于终点里程！", "错误");
            QCOMPARE(gPlEnd, 0.0);
            b.type("txtZdlc", "40");
            press("夹角不能为空！", "错误");
            f.type("txtJgwJj", "60");
            press("K前不能为空！", "错误");
            f.type("txtJgwKq", "1");
            press("K后不能为空！", "错误");
            f.type("txtJgwKh", "1");
            press("Z左不能为空！", "错误");
            f.type("txtJgwZz", "1");
            press("Z右不能为空！", "错误");
            f.type("txtJgwZy", "1");
            press("测站X坐标不能为空！", "错误");
            f.type("txtJgwCzX", "1");
            press("测站Y坐标不能为空！", "错误");
            b.click("butCancel");
            QVERIFY(!b.shown());
        });
        QVERIFY(!gPlBatch);
        QCOMPARE(f.rows(), 0);
    }

    /// After an error inside a run the next press of the calculate button runs the batch again.
    void errorInARunLeavesItArmed()
    {
        Driven<frmJgw> f;
        fill(f, "");
        f.type("txtJgwKq", "1.2.3");
        inBatchWindow(f, [&](Batch& b) {
            b.type("txtQdlc", "100");
            b.type("txtZdlc", "150");
            b.type("txtBc", "50");
            b.click("butOK");
        });
        COMPARE_MESSAGES(m->dialogs, refused("请输入正确的数值！"));
        QVERIFY(gPlBatch);
        f.type("txtJgwKq", "5");
        f.type("txtJgwFylc", "700");
        f.click("butJgwCalc");
        QCOMPARE(f.rows(), 8);
        QCOMPARE(f.row(1)[1], u"K0+100.000"_s);
        QVERIFY(!gPlBatch);
        m->dialogs.no();
        f.form.close();
    }

    void fileIsLaidOutSquare()
    {
        BatchText file("100,5,5,3,4\r\n200,1.50,2,3,4\r\n");
        Driven<frmJgw> f;
        f.tick("cheJgwJj");
        f.type("txtJgwJj", "45");
        m->dialogs.open(file.path.toStdString());
        f.click("butTxt");
        QCOMPARE(f.column(3), QStringList(8, u"-0度00分00秒"_s));
        QCOMPARE(f.row(1)[6] + u" "_s + f.row(1)[7], u"1105.000 1997.000"_s);
        m->dialogs.no();
        f.form.close();
    }

    /// The groups do not follow a deletion, and all of them show mode and station as they stand at the save.
    void savedSheetKeepsGroupsOfFourWhateverIsDeleted()
    {
        struct Structures : frmJgw {
            Worksheet sheet() { return ResultSheet(kJgwExport, exportData()); }
        };
        Driven<WithWorkbook<Structures>> f;
        fill(f, "100");
        f.click("butJgwCalc");
        f.type("txtJgwKq", "9");
        f.click("butJgwCalc");
        f.grid().setRow(1);
        f.click("butJgwDel");
        QCOMPARE(f.rows(), 7);
        QTest::mouseClick(f.get<QRadioButton>("optJgwZz"), Qt::LeftButton, {}, QPoint(8, 8));
        f.pick("comJgwCz", 1);
        const Worksheet sheet = f.form.sheet();
        for (const char* cell : {"k3", "k6"})  // k6: the first row of the second structure
            QCOMPARE(sheet.text(cell).c_str(), "斜交正做：K前5,K后5,Z左3,Z右4");
        for (const char* cell : {"k7", "k9"}) QCOMPARE(sheet.text(cell).c_str(), "斜交正做：K前9,K后5,Z左3,Z右4");
        QCOMPARE(sheet.text("j3").c_str(), "P1 0,0");
        savesInLayout(f, m->dialogs, "butJgwSave", kJgwExport);
        COMPARE_MESSAGES(m->dialogs, Msg{"保存成功！", "成功", Icon::Information});
        f.form.close();
    }

    void controlsKeepTheirPlacesWhenTheWindowStretches()
    {
        Driven<frmJgw> f;
        stretchesWithItsControls(f, "txtJgwKq");
    }

    void stationIsPickedOrTyped()
    {
        Driven<frmJgw> f;
        stationFollowsPickAndCheckBox(f, "comJgwCz", "cheJgw", "txtJgwCzX", "txtJgwCzY");
    }

    void enterGoesToTheNextBoxOnBothWindows()
    {
        Driven<frmJgw> f;
        f.type("txtJgwKh", "5");
        f.box("txtJgwKq")->setFocus();
        QTest::keyClick(f.box("txtJgwKq"), Qt::Key_Return);
        QVERIFY(f.focused("txtJgwKh"));
        QCOMPARE(f.box("txtJgwKh")->selectedText(), u"5"_s);
        inBatchWindow(f, [&](Batch& b) {
            b.type("txtZdlc", "200");
            auto* start = b.window->findChild<QLineEdit*>(u"txtQdlc"_s);
            auto* end = b.window->findChild<QLineEdit*>(u"txtZdlc"_s);
            start->setFocus();
            QTest::keyClick(start, Qt::Key_Return);
            QCOMPARE(b.window->focusWidget(), end);
            QCOMPARE(end->selectedText(), u"200"_s);
        });
    }

    void sketchFollowsTheMode()
    {
        Driven<frmJgw> f;
        fill(f, "100");
        f.tick("cheJgwJj");
        f.type("txtJgwJj", "50");
        auto* sketch = f.get<QWidget>("drawJgw");
        const QImage skewEnds = sketch->grab().toImage();
        QTest::mouseClick(f.get<QRadioButton>("optJgwZz"), Qt::LeftButton, {}, QPoint(8, 8));
        const QImage square = sketch->grab().toImage();
        QVERIFY(skewEnds != square);
        f.type("txtJgwJj", "130");
        QVERIFY(sketch->grab().toImage() != square);
    }

    // Main points

    void mainPointsShowNominalStakes()
    {
        twoPoints();
        setBreaks({{300, 320}});
        Driven<frmZdcs> f;
        QCOMPARE(f.rows(), 2);
        QCOMPARE(f.row(1).mid(0, 10), (QStringList{u"1"_s, u"JD1"_s, u"50.500"_s, u"51.250"_s, u"30.000"_s, u"40.000"_s,
                                                   u"100.000"_s, u"1.000"_s, u"2.000"_s, u"30度15分30秒"_s}));
        QCOMPARE(f.row(2)[6], u"420.000"_s);  // 400 lies behind the jump of 20
        f.form.close();
        Driven<frmZdcs> again;
        QCOMPARE(again.row(2)[6], u"440.000"_s);  // converted once more, in place
        QCOMPARE(again.row(1)[6], u"100.000"_s);
    }

    void secondPassOfAnOverlapShowsAMinus()
    {
        twoPoints();
        setBreaks({{410, 390}});
        gZdZhLc[2] = 420;
        Driven<frmZdcs> f;
        QCOMPARE(f.row(2)[6], u"-400.000"_s);
        QCOMPARE(gZdZhLc[2], -400.0);
    }

    void stakesAreStoredRounded()
    {
        twoPoints();
        gZdZhLc[1] = 100.00051;
        Driven<frmZdcs> f;
        QCOMPARE(gZdZhLc[1], 100.001);
    }

    void savesItsOwnLayout()
    {
        twoPoints();
        Driven<WithWorkbook<frmZdcs>> f;
        savesInLayout(f, m->dialogs, "butZdSave", kZdcsExport);
        COMPARE_MESSAGES(m->dialogs, Msg{"保存成功！", "成功", Icon::Information});
    }

    void savesAnEmptyTableToo()
    {
        QTemporaryDir folder;
        Driven<frmZdcs> f;
        m->dialogs.save(folder.filePath(u"z.xls"_s).toStdString());
        f.click("butZdSave");
        COMPARE_MESSAGES(m->dialogs, Msg{"保存成功！", "成功", Icon::Information});
        QVERIFY(QFile::exists(folder.filePath(u"z.xls"_s)));
        f.click("butZdBack");
        QVERIFY(!f.form.isVisible());
    }

    void moreThan500PointsEndTheProgram()
    {
        gZdCount = 501;
        frmZdcs form;
        form.show();
        QVERIFY(m->ended >= 0);
        QVERIFY(!form.isVisible());
    }

private:
    struct Batch {
        QDialog* window;
        bool shown() const { return window->isVisible(); }
        void type(const char* name, const char* keys)
        {
            auto* box = window->findChild<QLineEdit*>(QString::fromUtf8(name));
            box->clear();
            QTest::keyClicks(box, QString::fromUtf8(keys));
        }
        void click(const char* name)
        {
            QTest::mouseClick(window->findChild<XPButton*>(QString::fromUtf8(name)), Qt::LeftButton);
        }
    };

    /// Opens frmPl by its button and works in it while it is up.
    template <class Body>
    void inBatchWindow(Driven<frmJgw>& f, Body body)
    {
        bool worked = false;
        QTimer::singleShot(0, this, [&] {
            for (auto* widget : QApplication::topLevelWidgets())
                if (auto* dialog = qobject_cast<QDialog*>(widget); dialog && dialog->objectName() == u"frmPl"_s) {
                    Batch batch{dialog};
                    body(batch);
                    worked = true;
                    if (dialog->isVisible()) dialog->close();
                }
        });
        f.click("pljs");
        QVERIFY(worked);
    }

    template <class Form>
    static void fill(Driven<Form>& f, const char* stake)
    {
        f.type("txtJgwFylc", stake);
        f.type("txtJgwKq", "5");
        f.type("txtJgwKh", "5");
        f.type("txtJgwZz", "3");
        f.type("txtJgwZy", "4");
    }

    static void twoPoints()
    {
        gZdCount = 2;
        for (std::size_t i = 1; i <= 2; ++i) {
            gZdJd[i] = "JD" + std::to_string(i);
            gZdT1[i] = 50.5, gZdT2[i] = 51.25, gZdLs1[i] = 30, gZdLs2[i] = 40;
            gZdZhLc[i] = i == 1 ? 100 : 400, gZdZhX[i] = 1, gZdZhY[i] = 2, gZdZhFwj[i] = 30.1530;
        }
    }
    std::unique_ptr<Machine> m;
};

VM_QT_TEST(tst_structures)
#include "tst_structures.moc"
