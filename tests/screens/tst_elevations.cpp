// The elevation windows through real keys and clicks.

#include "FormDriver.h"

#include "screens/windows/frmDgdGc.h"
#include "screens/windows/frmPlGc.h"
#include "support/QtTests.h"

#include <QTemporaryDir>

#include <memory>

using namespace Qt::StringLiterals;

class tst_elevations : public QObject {
    Q_OBJECT
private slots:
    void init()
    {
        m = std::make_unique<Machine>();
        straightNorth();
        sharpProfile();
        gCgType = "0";
    }
    void cleanup() { m.reset(); }

    void oneElevation()
    {
        Driven<frmDgdGc> f;
        f.type("txtDgdGcFylc", "250");
        f.click("butDgdGcCalc");
        QCOMPARE(f.row(1), (QStringList{u"1"_s, u"K0+250.000"_s, u"中桩"_s, u"105"_s}));
        f.pick("comDgdGcz", 1);
        f.type("txtDgdGcPj", "3.50");
        f.tick("cheDgdLm");
        QVERIFY(f.open("txtDgdLmhd") && f.focused("txtDgdLmhd"));
        f.type("txtDgdLmhd", "0.18");
        f.click("butDgdGcCalc");
        QCOMPARE(f.row(2).mid(2), (QStringList{u"左3.5米"_s, u"104.82"_s}));
        f.tick("cheDgdLm");
        QVERIFY(!f.open("txtDgdLmhd"));
        f.click("butDgdGcCalc");
        QCOMPARE(f.row(3)[3], u"105"_s);
        m->dialogs.no();
        f.form.close();
    }

    void thicknessComesOffTheRoundedElevation()
    {
        Driven<frmDgdGc> f;
        f.tick("cheDgdLm");
        f.type("txtDgdLmhd", "0.18");
        f.type("txtDgdGcFylc", "0");
        f.click("butDgdGcCalc");
        QCOMPARE(f.row(1)[3], u"99.82"_s);
        m->dialogs.no();
        f.form.close();
    }

    /// Clearing the check box empties the box, and an empty box takes nothing off.
    void thicknessBoxFollowsItsCheckBox()
    {
        Driven<frmDgdGc> one;
        followsItsCheckBox(one, "cheDgdLm", "txtDgdLmhd");
        one.type("txtDgdGcFylc", "0");
        one.click("butDgdGcCalc");
        QCOMPARE(one.row(1)[3], u"100"_s);
        Driven<frmPlGc> run;
        followsItsCheckBox(run, "cheLm", "txtLmhd");
        m->dialogs.no();
        one.form.close();
    }

    /// Saved rows are not asked about at closing.
    void eachWindowSavesItsOwnLayout()
    {
        Driven<WithWorkbook<frmDgdGc>> one;
        one.type("txtDgdGcFylc", "100");
        one.click("butDgdGcCalc");
        savesInLayout(one, m->dialogs, "butDgdGcSave", kDgdGcExport);
        one.click("butDgdBack");
        Driven<WithWorkbook<frmPlGc>> run;
        run.type("txtPlGcQdlc", "0");
        run.type("txtPlGcZdlc", "90");
        run.type("txtPlGcJj", "30");
        run.type("txtPlGcPj", "2");
        run.click("butPlGcCalc");
        savesInLayout(run, m->dialogs, "butPlGcSave", kPlGcExport);
        run.click("butPlBack");
        const Msg saved{"保存成功！", "成功", Icon::Information};
        COMPARE_MESSAGES(m->dialogs, saved, saved);
        QVERIFY(!one.form.isVisible() && !run.form.isVisible());
    }

    void bothLimitsPass()
    {
        Driven<frmDgdGc> f;
        for (const char* stake : {"0", "1000"}) {
            f.type("txtDgdGcFylc", stake);
            f.click("butDgdGcCalc");
        }
        QCOMPARE(f.column(3), (QStringList{u"100"_s, u"105"_s}));
        m->dialogs.no();
        f.form.close();
    }

    void typingInThePickListSetsItBack()
    {
        Driven<frmDgdGc> f;
        f.pick("comDgdGcz", 2);
        f.type("txtDgdGcPj", "1");
        QTest::keyClicks(f.list("comDgdGcz"), u"y"_s);
        QCOMPARE(f.list("comDgdGcz")->Text(), u"中桩"_s);
        QVERIFY(!f.open("txtDgdGcPj"));
    }

    void refusalsInTheirOrder()
    {
        setBreaks({{100, 120}});
        gSqxCount = 0;
        Driven<frmDgdGc> f;
        f.pick("comDgdGcz", 1);
        const auto press = [&](const Msg& wanted, const char* focus = nullptr) {
            f.click("butDgdGcCalc");
            COMPARE_MESSAGES(m->dialogs, wanted);
            QVERIFY(f.focused(focus ? focus : "butDgdGcCalc"));  // else it stays on the button
            QCOMPARE(f.rows(), 0);
        };
        press(refused("计算里程不能为空！"), "txtDgdGcFylc");
        f.type("txtDgdGcFylc", "110");
        press(refused("偏距不能为空！"), "txtDgdGcPj");
        f.type("txtDgdGcPj", "1");
        press(refused("桩号不存在，请检查断链数据！", "注意"));
        f.type("txtDgdGcFylc", "5000");
        press({"还未输入竖曲线参数！", "注意"});
        gSqxCount = 2;
        press({"计算里程不能大于竖曲线终点里程！", "注意"});
        gSqxLc[0] = 50;
        f.type("txtDgdGcFylc", "20");
        press({"计算里程不能小于竖曲线起点里程！", "注意"});
        f.tick("cheDgdLm");
        f.type("txtDgdLmhd", "1-2");
        press(refused("请输入正确的数值！"));
    }

    void enterDoesNothingOnTheSingleScreen()
    {
        Driven<frmDgdGc> f;
        f.box("txtDgdGcFylc")->setFocus();
        QTest::keyClick(f.box("txtDgdGcFylc"), Qt::Key_Return);
        QVERIFY(f.focused("txtDgdGcFylc"));
    }

    void runOfElevations()
    {
        Driven<frmPlGc> f;
        fill(f, "0", "100", "50", "4");
        f.click("butPlGcCalc");
        QCOMPARE(f.row(2), (QStringList{u"2"_s, u"K0+050.000"_s, u"中桩"_s, u"101"_s, u"左4米"_s, u"101"_s, u"右4米"_s,
                                        u"101"_s}));
        QCOMPARE(f.rows(), 3);
        m->dialogs.no();
        f.form.close();
    }

    void runRefusals()
    {
        setBreaks({{100, 120}});
        gSqxCount = 0;
        gElemLc[0] = 10;
        Driven<frmPlGc> f;
        const auto press = [&](const Msg& wanted, const char* focus = nullptr) {
            f.click("butPlGcCalc");
            COMPARE_MESSAGES(m->dialogs, wanted);
            QVERIFY(f.focused(focus ? focus : "butPlGcCalc"));  // else it stays on the button
        };
        press(refused("开始里程不能为空！"), "txtPlGcQdlc");
        f.type("txtPlGcQdlc", "110");
        press(refused("结束里程不能为空！"), "txtPlGcZdlc");
        f.type("txtPlGcZdlc", "110");
        press(refused("开始里程不能等于结束里程！"));
        f.type("txtPlGcZdlc", "115");
        press(refused("还未输入竖曲线参数！", "注意"));
        gSqxCount = 2;
        press(refused("桩号不存在，请检查断链数据！", "注意"));
        f.type("txtPlGcQdlc", "5");
        press(refused("开始里程不能小于起点里程！"));
        f.type("txtPlGcQdlc", "20");
        press(refused("桩号不存在，请检查断链数据！", "注意"));
        f.type("txtPlGcZdlc", "1100");
        press(refused("结束里程不能大于终点里程！"));
        f.type("txtPlGcZdlc", "200");
        press(refused("间距不能为空！"), "txtPlGcJj");
        f.type("txtPlGcJj", "1..");
        press(refused("请输入正确的数值！"));
        QCOMPARE(f.rows(), 0);
    }

    void stepOfZeroOverflowsTheRowCounter()
    {
        Driven<frmPlGc> f;
        fill(f, "0", "100", "0", "");
        f.click("butPlGcCalc");
        COMPARE_MESSAGES(m->dialogs, refused("请输入正确的数值！"));
        QCOMPARE(f.row(32767)[0], u"32767"_s);
        QCOMPARE(f.row(32767)[3], u"100"_s);
        f.form.close();
        COMPARE_MESSAGES(m->dialogs, );  // a run that did not come to its end sets no flag
    }

    void stakesBeyondTheProfileMakeRowsWithAWarning()
    {
        gSqxLc = {0, 200, 400};
        Driven<frmPlGc> f;
        fill(f, "350", "450", "50", "");
        f.click("butPlGcCalc");
        QCOMPARE(f.rows(), 3);
        QVERIFY(f.grid().warning(1).isEmpty());
        QVERIFY(!f.grid().warning(3).isEmpty());
        COMPARE_MESSAGES(m->dialogs, );
        m->dialogs.no();
        f.form.close();
    }

    void fileRunHasNoTestForAProfileAndAppends()
    {
        BatchText file("100,-2\r\n200,3\r\n300,0\r\n");
        Driven<frmPlGc> f;
        m->dialogs.open(file.path.toStdString()).open(file.path.toStdString());
        f.click("bugPlgc");
        QCOMPARE(f.column(2), (QStringList{u"左2米"_s, u"右3米"_s, u"中桩"_s}));
        QCOMPARE(f.column(4), QStringList(3, QString()));
        gSqxCount = 0;
        f.click("bugPlgc");
        QCOMPARE(f.rows(), 3);
        COMPARE_MESSAGES(m->dialogs, );
        m->dialogs.no();
        f.form.close();
    }

    void enterGoesToTheNextBox()
    {
        Driven<frmPlGc> f;
        f.box("txtPlGcQdlc")->setFocus();
        QTest::keyClick(f.box("txtPlGcQdlc"), Qt::Key_Return);
        QVERIFY(f.focused("txtPlGcZdlc"));
    }

private:
    template <class Form>
    static void followsItsCheckBox(Driven<Form>& f, const char* check, const char* box)
    {
        f.tick(check);
        QVERIFY(f.open(box) && f.focused(box));
        f.type(box, "-.5");
        QCOMPARE(f.text(box), u"-.5"_s);
        f.tick(check);
        QVERIFY(!f.open(box));
        QCOMPARE(f.text(box), QString());
    }
    static void fill(Driven<frmPlGc>& f, const char* start, const char* end, const char* step, const char* offset)
    {
        f.type("txtPlGcQdlc", start);
        f.type("txtPlGcZdlc", end);
        f.type("txtPlGcJj", step);
        f.type("txtPlGcPj", offset);
    }
    std::unique_ptr<Machine> m;
};

VM_QT_TEST(tst_elevations)
#include "tst_elevations.moc"
