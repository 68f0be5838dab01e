// The coordinate windows through real keys and clicks: one point, a run of stakes, the way back.

#include "FormDriver.h"

#include "screens/windows/frmDgdZb.h"
#include "screens/windows/frmFs.h"
#include "screens/windows/frmPlfy.h"
#include "support/QtTests.h"

#include <QClipboard>
#include <QTemporaryDir>

#include <memory>

using namespace Qt::StringLiterals;

class tst_coordinates : public QObject {
    Q_OBJECT
private slots:
    void init()
    {
        m = std::make_unique<Machine>();
        straightNorth();
        fourPoints();
    }
    void cleanup() { m.reset(); }

    // One point

    void onePressOneRow()
    {
        Driven<frmDgdZb> f;
        f.type("txtDgdZbFylc", "150");
        f.pick("comDgdCz", 0);
        f.click("butDgdCalc");
        QCOMPARE(f.row(1), (QStringList{u"1"_s, u"K0+150.000"_s, u"中桩"_s, u"无"_s, u"33度41分24秒"_s, u"180.278"_s,
                                        u"1150.000"_s, u"2000.000"_s, u"0度00分00秒"_s}));
        f.pick("comDgdZbz", 2);
        f.type("txtDgdPj", "12.50");
        f.click("butDgdCalc");
        QCOMPARE(f.row(2)[2], u"右12.5米"_s);
        QCOMPARE(f.row(2)[7], u"2012.500"_s);
        QCOMPARE(f.column(0), (QStringList{u"1"_s, u"2"_s}));
        m->dialogs.no();
        f.form.close();
    }

    void endStakeKeepsTheLastPoint()
    {
        Driven<frmDgdZb> f;
        f.type("txtDgdZbFylc", "1000");
        f.click("butDgdCalc");
        QCOMPARE(f.row(1).mid(6), (QStringList{u"0.000"_s, u"0.000"_s, u"0度00分00秒"_s}));
        QVERIFY(!f.grid().warning(1).isEmpty());
        f.type("txtDgdZbFylc", "400");
        f.click("butDgdCalc");
        f.type("txtDgdZbFylc", "1000");
        f.click("butDgdCalc");
        QCOMPARE(f.row(3)[1], u"K1+000.000"_s);
        QCOMPARE(f.row(3)[6], u"1400.000"_s);
        QVERIFY(f.grid().warning(2).isEmpty());
        m->dialogs.no();
        f.form.close();
    }

    void offsetBoxIsEmptiedWhenThePickGoesBack()
    {
        Driven<frmDgdZb> f;
        QVERIFY(!f.open("txtDgdPj"));
        f.pick("comDgdZbz", 1);
        QVERIFY(f.open("txtDgdPj"));
        QVERIFY(f.focused("txtDgdPj"));
        f.type("txtDgdPj", "5");
        f.pick("comDgdZbz", 0);
        QVERIFY(!f.open("txtDgdPj"));
        QCOMPARE(f.text("txtDgdPj"), QString());
    }

    void typingInThePickListSetsItBack()
    {
        Driven<frmDgdZb> f;
        f.pick("comDgdZbz", 1);
        f.type("txtDgdPj", "5");
        QTest::keyClicks(f.list("comDgdZbz"), u"x"_s);
        QCOMPARE(f.list("comDgdZbz")->Text(), u"中桩"_s);
        QVERIFY(!f.open("txtDgdPj"));
        QCOMPARE(f.text("txtDgdPj"), QString());
    }

    void skewModeOpensAngleAndOffsetAndIgnoresThePick()
    {
        Driven<frmDgdZb> f;
        f.tick("cheDgdJj");
        QVERIFY(f.open("txtDgdJj") && f.open("txtDgdPj"));
        QVERIFY(f.focused("txtDgdJj"));
        QVERIFY(!f.list("comDgdZbz")->isEnabled());
        f.type("txtDgdZbFylc", "100");
        f.type("txtDgdJj", "90");
        f.type("txtDgdPj", "4");
        f.click("butDgdCalc");
        QCOMPARE(f.row(1)[2], u"斜交4米"_s);
        QCOMPARE(f.row(1)[3], u"90度00分00秒"_s);
        QCOMPARE(f.row(1)[7], u"2004.000"_s);
        f.tick("cheDgdJj");
        QVERIFY(!f.open("txtDgdJj") && !f.open("txtDgdPj"));
        QCOMPARE(f.text("txtDgdJj") + f.text("txtDgdPj"), QString());
        QVERIFY(f.list("comDgdZbz")->isEnabled());
        m->dialogs.no();
        f.form.close();
    }

    /// Leaving the skew mode treats the offset box as the pick does: with a side picked it stays open.
    void leavingSkewModeWithASidePickedKeepsTheOffset()
    {
        Driven<frmDgdZb> f;
        f.pick("comDgdZbz", 2);
        QVERIFY(f.open("txtDgdPj") && f.list("comDgdZbz")->Text() == u"右边桩"_s);
        f.tick("cheDgdJj");
        f.type("txtDgdJj", "45");
        f.type("txtDgdPj", "4");
        f.tick("cheDgdJj");
        QVERIFY(f.open("txtDgdPj") && f.focused("txtDgdPj"));
        QCOMPARE(f.text("txtDgdPj"), u"4"_s);
        QVERIFY(!f.open("txtDgdJj"));
        QCOMPARE(f.text("txtDgdJj"), QString());
        QCOMPARE(f.list("comDgdZbz")->Text(), u"右边桩"_s);
    }

    void skewOfZeroShowsAMinus()
    {
        Driven<frmDgdZb> f;
        f.tick("cheDgdJj");
        f.type("txtDgdZbFylc", "100");
        f.type("txtDgdPj", "4");
        f.type("txtDgdJj", "0");
        f.click("butDgdCalc");
        f.type("txtDgdJj", "-30.1530");
        f.click("butDgdCalc");
        QCOMPARE(f.column(3), (QStringList{u"-0度00分00秒"_s, u"-30度15分30秒"_s}));
        m->dialogs.no();
        f.form.close();
    }

    void nothingPickedMeansTheOrigin()
    {
        gStationX = gStationY = 77;
        Driven<frmDgdZb> f;
        f.type("txtDgdZbFylc", "0");
        f.click("butDgdCalc");
        QCOMPARE(f.row(1)[5], u"2236.068"_s);  // root of 1000 squared and 2000 squared
        QCOMPARE(gStationX, 0.0);
        COMPARE_MESSAGES(m->dialogs, );
        m->dialogs.no();
        f.form.close();
    }

    void stationOnThePoint()
    {
        Driven<frmDgdZb> f;
        f.tick("cheDgdZb");
        f.type("txtDgdCzX", "1100");
        f.type("txtDgdCzY", "2000");
        f.type("txtDgdZbFylc", "100");
        f.click("butDgdCalc");
        QCOMPARE(f.row(1).mid(4, 2), (QStringList{u"0度00分00秒"_s, u"0.000"_s}));
        m->dialogs.no();
        f.form.close();
    }

    void stationIsPickedOrTyped()
    {
        Driven<frmDgdZb> f;
        stationFollowsPickAndCheckBox(f, "comDgdCz", "cheDgdZb", "txtDgdCzX", "txtDgdCzY");
    }

    void singleTraversePointShowsAnEmptyList()
    {
        gDxdCount = 0;
        Driven<frmDgdZb> f;
        QCOMPARE(f.list("comDgdCz")->count(), 0);
    }

    void negativeStakeWithoutBreaks()
    {
        Driven<frmDgdZb> f;
        f.type("txtDgdZbFylc", "-200");
        f.click("butDgdCalc");
        QCOMPARE(f.row(1)[1], u"-K0+200.000"_s);
        QCOMPARE(f.row(1)[6], u"1200.000"_s);
        m->dialogs.no();
        f.form.close();
    }

    void refusalsInTheirOrderWithTheirFocus()
    {
        setBreaks({{100, 120}});
        Driven<frmDgdZb> f;
        f.pick("comDgdZbz", 1);
        f.tick("cheDgdZb");
        const auto press = [&](const char* text, const char* focus, const char* title = "错误") {
            f.box("txtDgdPj")->setFocus();
            f.click("butDgdCalc");
            COMPARE_MESSAGES(m->dialogs, refused(text, title));
            QVERIFY(f.focused(focus ? focus : "butDgdCalc"));  // else it stays on the button
            QCOMPARE(f.rows(), 0);
        };
        press("计算里程不能为空！", "txtDgdZbFylc");
        f.type("txtDgdZbFylc", "110");
        press("偏距不能为空！", "txtDgdPj");
        f.tick("cheDgdJj");
        press("夹角不能为空！", "txtDgdJj");
        f.type("txtDgdJj", "45");
        press("偏距不能为空！", "txtDgdPj");
        f.type("txtDgdPj", "3");
        press("桩号不存在，请检查断链数据！", nullptr, "注意");
        f.type("txtDgdZbFylc", "5000");
        press("测站X坐标不能为空！", "txtDgdCzX");
        f.type("txtDgdCzX", "1");
        press("测站Y坐标不能为空！", "txtDgdCzY");
        QCOMPARE(gStationX, 1.0);  // already changed
        f.type("txtDgdCzY", "2");
        press("不能大于终点里程！", nullptr);
        gElemLc[0] = 50;
        f.type("txtDgdZbFylc", "10");
        press("不能小于起点里程！", nullptr);
        f.type("txtDgdZbFylc", "1.2.3");
        press("请输入正确的数值！", nullptr);
        f.form.close();
        COMPARE_MESSAGES(m->dialogs, );  // nothing changed, nothing asked
    }

    void deleteOnAnEmptyGridDoesNothing()
    {
        Driven<frmDgdZb> f;
        f.click("butDgdDel");
        QCOMPARE(f.rows(), 0);
        COMPARE_MESSAGES(m->dialogs, );
    }

    void deleteTakesTheCursorsRow()
    {
        Driven<frmDgdZb> f;
        for (const char* stake : {"100", "200", "300"}) {
            f.type("txtDgdZbFylc", stake);
            f.click("butDgdCalc");
        }
        f.grid().setRow(2);
        f.click("butDgdDel");
        QCOMPARE(f.column(1), (QStringList{u"K0+100.000"_s, u"K0+300.000"_s}));
        QCOMPARE(f.column(0), (QStringList{u"1"_s, u"2"_s}));
        f.click("butDgdDel");
        f.click("butDgdDel");
        QCOMPARE(f.rows(), 0);
        m->dialogs.no();  // a deletion does not take the flag back
        f.form.close();
        QCOMPARE(m->dialogs.last().text.c_str(), "数据已改变，是否保存？");
    }

    void enterDoesNothingHere()
    {
        Driven<frmDgdZb> f;
        f.box("txtDgdZbFylc")->setFocus();
        QTest::keyClick(f.box("txtDgdZbFylc"), Qt::Key_Return);
        QVERIFY(f.focused("txtDgdZbFylc"));
        QVERIFY(f.form.isVisible());
    }

    void saveWithoutRows()
    {
        Driven<frmDgdZb> f;
        f.click("butDgdSave");
        COMPARE_MESSAGES(m->dialogs, refused("没有计算数据，无需保存！", "注意"));
    }

    void saveShowsTheWaitBoxAndTakesTheFlagBack()
    {
        QTemporaryDir folder;
        Driven<frmDgdZb> f;
        f.type("txtDgdZbFylc", "100");
        f.click("butDgdCalc");
        bool seen = false;
        m->dialogs.onTurn = [&] { seen = seen || f.box("txtWait")->isVisible(); };
        m->dialogs.save(folder.filePath(u"a.xls"_s).toStdString());
        f.click("butDgdSave");
        QVERIFY(seen);
        QVERIFY(!f.box("txtWait")->isVisible());
        QVERIFY(QFile::exists(folder.filePath(u"a.xls"_s)));
        COMPARE_MESSAGES(m->dialogs, Msg{"保存成功！", "成功", Icon::Information});
        f.form.close();
        COMPARE_MESSAGES(m->dialogs, );
    }

    /// Saved rows are not asked about at closing.
    void eachWindowSavesItsOwnLayout()
    {
        Driven<WithWorkbook<frmPlfy>> run;
        run.pick("comPlzbCz", 1);
        run.type("txtPlzbQdlc", "0");
        run.type("txtPlzbZdlc", "90");
        run.type("txtPlzbBc", "30");
        run.click("butPlzbCalc");
        savesInLayout(run, m->dialogs, "butPlzbSave", kPlfyExport);
        run.click("butPlzbBack");
        Driven<WithWorkbook<frmFs>> inverse;
        inverse.type("txtFsx", "1050");
        inverse.type("txtFsY", "2001");
        inverse.click("butFsCalc");
        savesInLayout(inverse, m->dialogs, "butFsSave", kFsExport);
        inverse.click("butFsBack");
        const Msg saved{"保存成功！", "成功", Icon::Information};
        COMPARE_MESSAGES(m->dialogs, saved, saved);
        QVERIFY(!run.form.isVisible() && !inverse.form.isVisible());
    }

    void closeAsksAndGoesWhateverTheSaveDid()
    {
        Driven<frmDgdZb> f;
        f.type("txtDgdZbFylc", "100");
        f.click("butDgdCalc");
        m->dialogs.yes().cancelSave();
        f.click("butDgdBack");
        COMPARE_MESSAGES(m->dialogs, Msg{"数据已改变，是否保存？", "注意", Icon::Question, Msg::YesNo});
        QVERIFY(!f.form.isVisible());
    }

    void controlsKeepTheirPlacesWhenTheWindowStretches()
    {
        Driven<frmDgdZb> one;
        stretchesWithItsControls(one, "txtDgdZbFylc");
        Driven<frmPlfy> run;
        stretchesWithItsControls(run, "txtPlzbQdlc");
    }

    // A run of stakes

    void runStopsAtTheLastWholeStep()
    {
        Driven<frmPlfy> f;
        fillRun(f, "0", "100", "30", "");
        f.click("butPlzbCalc");
        QCOMPARE(f.column(1), (QStringList{u"K0+000.000"_s, u"K0+030.000"_s, u"K0+060.000"_s, u"K0+090.000"_s}));
        fillRun(f, "0", "90", "30", "");
        f.click("butPlzbCalc");
        QCOMPARE(f.rows(), 4);
        m->dialogs.no();
        f.form.close();
    }

    void centreLeftRight()
    {
        Driven<frmPlfy> f;
        fillRun(f, "0", "10", "10", "5");
        f.click("butPlzbCalc");
        QCOMPARE(f.column(2), (QStringList{u"中桩"_s, u"左5米"_s, u"右5米"_s, u"中桩"_s, u"左5米"_s, u"右5米"_s}));
        QCOMPARE(f.column(7).mid(0, 3), (QStringList{u"2000.000"_s, u"1995.000"_s, u"2005.000"_s}));
        m->dialogs.no();
        f.form.close();
    }

    void startAboveTheEndClearsTheGridAndKeepsTheCounter()
    {
        QTemporaryDir folder;
        Driven<frmPlfy> f;
        fillRun(f, "0", "60", "30", "");
        f.click("butPlzbCalc");
        QCOMPARE(f.rows(), 3);
        fillRun(f, "60", "30", "30", "");
        f.click("butPlzbCalc");
        QCOMPARE(f.rows(), 0);
        COMPARE_MESSAGES(m->dialogs, );
        // The counter still says three: the save reads past the rows and ends without a word.
        const QString path = folder.filePath(u"a.xls"_s);
        m->dialogs.save(path.toStdString());
        f.click("butPlzbSave");
        QVERIFY(!QFile::exists(path));
        COMPARE_MESSAGES(m->dialogs, );
        m->dialogs.no();
        f.form.close();
    }

    void lastStakeOfTheRouteRepeatsTheRowBefore()
    {
        Driven<frmPlfy> f;
        fillRun(f, "900", "1000", "50", "");
        f.click("butPlzbCalc");
        QCOMPARE(f.column(6), (QStringList{u"1900.000"_s, u"1950.000"_s, u"1950.000"_s}));
        QVERIFY(!f.grid().warning(3).isEmpty());
        m->dialogs.no();
        f.form.close();
    }

    void skewRunNeedsAnOffset()
    {
        Driven<frmPlfy> f;
        fillRun(f, "0", "90", "30", "");
        f.tick("chePlzbJj");
        QVERIFY(f.open("txtPlzbPj"));
        f.type("txtPlzbJj", "45");
        f.click("butPlzbCalc");
        COMPARE_MESSAGES(m->dialogs, refused("偏距不能为空！"));
        QVERIFY(f.focused("txtPlzbPj"));
        f.tick("chePlzbJj");
        f.click("butPlzbCalc");
        QCOMPARE(f.rows(), 4);
        m->dialogs.no();
        f.form.close();
    }

    void runRefusals()
    {
        setBreaks({{100, 120}});
        gElemLc[0] = 10;
        Driven<frmPlfy> f;
        const auto press = [&](const char* text, const char* focus, const char* title = "错误") {
            f.click("butPlzbCalc");
            COMPARE_MESSAGES(m->dialogs, refused(text, title));
            QVERIFY(f.focused(focus ? focus : "butPlzbCalc"));  // else it stays on the button
        };
        press("开始里程不能为空！", "txtPlzbQdlc");
        f.type("txtPlzbQdlc", "110");
        press("结束里程不能为空！", "txtPlzbZdlc");
        f.type("txtPlzbZdlc", "110");
        press("开始里程不能等于结束里程！", nullptr);
        f.type("txtPlzbZdlc", "115");
        press("桩号不存在，请检查断链数据！", nullptr, "注意");
        f.type("txtPlzbQdlc", "5");
        press("开始里程不能小于起点里程！", nullptr);
        f.type("txtPlzbQdlc", "20");
        press("桩号不存在，请检查断链数据！", nullptr, "注意");
        f.type("txtPlzbZdlc", "2000");
        press("结束里程不能大于终点里程！", nullptr);
        f.type("txtPlzbZdlc", "200");
        press("间距不能为空！", "txtPlzbBc");
        f.type("txtPlzbBc", "0");
        press("间距不能为0！", nullptr);
        f.type("txtPlzbBc", "10");
        f.tick("chePlFyzb");
        press("测站X坐标不能为空！", "txtPlzbCzX");
        f.type("txtPlzbCzX", "1");
        press("测站Y坐标不能为空！", "txtPlzbCzY");
        f.type("txtPlzbCzY", "1..");
        press("请输入正确的数值！", nullptr);
        QCOMPARE(f.rows(), 0);
    }

    void fileRunAppendsAndUsesTheStationInMemory()
    {
        gStationX = 1000;
        gStationY = 1900;
        BatchText file("0,-3\r\n\r\n100,0\r\n200,4.5,x\r\n");
        Driven<frmPlfy> f;
        m->dialogs.open(file.path.toStdString()).open(file.path.toStdString());
        f.click("bugPlfy");
        f.click("bugPlfy");
        QCOMPARE(f.column(2).mid(0, 3), (QStringList{u"左3米"_s, u"中桩"_s, u"右4.5米"_s}));
        QCOMPARE(f.rows(), 6);
        QCOMPARE(f.row(2)[5], u"141.421"_s);
        QCOMPARE(file.bytes(), QByteArray("0,-3\r\n100,0\r\n200,4.5,x\r\n"));  // the blank line is gone for good
        QCOMPARE(m->dialogs.filters, (std::vector<std::string>{"(*.txt)|*.txt|", "(*.txt)|*.txt|"}));
        m->dialogs.no();
        f.form.close();
    }

    void fileRunStopsAtAGapAndKeepsItsRows()
    {
        setBreaks({{100, 120}});
        BatchText file("50,0\r\n110,0\r\n300,0\r\n");
        Driven<frmPlfy> f;
        m->dialogs.open(file.path.toStdString());
        f.click("bugPlfy");
        COMPARE_MESSAGES(m->dialogs, refused("桩号不存在，请检查断链数据！", "注意"));
        QCOMPARE(f.rows(), 1);
        f.form.close();
        COMPARE_MESSAGES(m->dialogs, );  // the flag was not set
    }

    /// The angle box follows its check box; the offset box is always open and is not touched.
    void skewCheckBoxOfARunLeavesTheOffsetAlone()
    {
        Driven<frmPlfy> f;
        f.type("txtPlzbPj", "5");
        f.tick("chePlzbJj");
        QVERIFY(f.open("txtPlzbJj") && f.focused("txtPlzbJj"));
        f.type("txtPlzbJj", "45");
        f.tick("chePlzbJj");
        QVERIFY(!f.open("txtPlzbJj") && f.open("txtPlzbPj"));
        QCOMPARE(f.text("txtPlzbJj") + f.text("txtPlzbPj"), u"5"_s);
    }

    void stationOfARunIsPickedOrTyped()
    {
        Driven<frmPlfy> f;
        stationFollowsPickAndCheckBox(f, "comPlzbCz", "chePlFyzb", "txtPlzbCzX", "txtPlzbCzY");
    }

    void enterGoesToTheNextBoxAndSelectsItsText()
    {
        Driven<frmPlfy> f;
        fillRun(f, "0", "90", "30", "");
        f.box("txtPlzbQdlc")->setFocus();
        QTest::keyClick(f.box("txtPlzbQdlc"), Qt::Key_Return);
        QVERIFY(f.focused("txtPlzbZdlc"));
        QCOMPARE(f.box("txtPlzbZdlc")->selectedText(), u"90"_s);
    }

    void escAbandonsALongRunAndItsRowsStay()
    {
        // A road of so many short elements that looking through them makes the run long on any machine.
        std::vector<ElementRow> road;
        for (int i = 0; i <= 30000; ++i) road.push_back({i / 30.0, 1000 + i / 30.0, 2000, 0, 0, 0});
        setElements(road);
        Driven<frmPlfy> f;
        fillRun(f, "0", "999", ".05", "");
        QTimer esc;
        connect(&esc, &QTimer::timeout, [&] { QTest::keyClick(&f.form, Qt::Key_Escape); });
        esc.start(0);
        f.click("butPlzbCalc");
        esc.stop();
        QVERIFY2(f.rows() > 0 && f.rows() < 19980, qPrintable(QString::number(f.rows())));
        QVERIFY(f.form.isVisible());
        QCOMPARE(f.row(f.rows())[0], QString::number(f.rows()));
        COMPARE_MESSAGES(m->dialogs, );
        m->dialogs.no();  // the rows that stand are unsaved
        f.form.close();
        QCOMPARE(m->dialogs.last().text.c_str(), "数据已改变，是否保存？");
    }

    // The way back

    void pointGivesStakeAndOffset()
    {
        setElements({{0, 1000, 2000, 30, 0, 0}, {1000, 0, 0, 30, 0, 0}});
        Driven<frmFs> f;
        f.type("txtFsx", "1043.3013");  // 50 m along azimuth 30 degrees
        f.type("txtFsY", "2025.50");
        f.click("butFsCalc");
        QCOMPARE(f.row(1).mid(1, 2), (QStringList{u"1043.3013"_s, u"2025.5"_s}));
        QCOMPARE(f.row(1)[3], u"K0+050.250"_s);
        QCOMPARE(f.row(1)[4], u"右0.433米"_s);
        m->dialogs.no();
        f.form.close();
    }

    void emptyBoxes()
    {
        Driven<frmFs> f;
        f.click("butFsCalc");
        COMPARE_MESSAGES(m->dialogs, refused("X坐标不能为空！"));
        QVERIFY(f.focused("txtFsx"));
        f.type("txtFsx", "1");
        f.click("butFsCalc");
        COMPARE_MESSAGES(m->dialogs, refused("Y坐标不能为空！"));
        QVERIFY(f.focused("txtFsY"));
    }

    void enterGoesFromXToYAndSelectsItsText()
    {
        Driven<frmFs> f;
        f.type("txtFsY", "2000");
        f.box("txtFsx")->setFocus();
        QTest::keyClick(f.box("txtFsx"), Qt::Key_Return);
        QVERIFY(f.focused("txtFsY"));
        QCOMPARE(f.box("txtFsY")->selectedText(), u"2000"_s);
    }

    void textThatIsNoNumberEndsTheProgram()
    {
        Driven<frmFs> f;
        f.type("txtFsx", "1.2.3");
        f.type("txtFsY", "1");
        f.click("butFsCalc");
        QCOMPARE(m->dialogs.messages.size(), std::size_t(1));
        QVERIFY(m->dialogs.last().icon == Icon::Critical);
        QVERIFY(m->ended >= 0);
    }

    void projectWithoutElementsEndsTheProgram()
    {
        shared = {};
        Driven<frmFs> f;
        f.type("txtFsx", "1");
        f.type("txtFsY", "1");
        f.click("butFsCalc");
        QVERIFY(m->ended >= 0);
    }

    void pointThatFindsNoStakeIsDroppedInSilence()
    {
        // Behind the last normal and off the line: the walk ends at the last stake and never settles.
        setElements({{0, 1000, 2000, 30, 0, 0}, {1000, 0, 0, 30, 0, 0}});
        Driven<frmFs> f;
        f.type("txtFsx", "2300");
        f.type("txtFsY", "2300");
        f.click("butFsCalc");
        QCOMPARE(f.rows(), 0);
        COMPARE_MESSAGES(m->dialogs, );
        m->dialogs.no();  // the flag is set all the same
        f.form.close();
        QCOMPARE(m->dialogs.last().text.c_str(), "数据已改变，是否保存？");
    }

    void fileOfPointsSkipsWhatFindsNoStake()
    {
        setElements({{0, 1000, 2000, 30, 0, 0}, {1000, 0, 0, 30, 0, 0}});
        BatchText file("1043.3013,2025,P1\r\n2300,2300\r\n1086.6025,2050\r\n");
        Driven<frmFs> f;
        m->dialogs.open(file.path.toStdString());
        f.click("butPlfs");
        QCOMPARE(f.column(3), (QStringList{u"K0+050.000"_s, u"K0+100.000"_s}));
        m->dialogs.no();
        f.form.close();
    }

    void fileWithABadFieldMakesNoRow()
    {
        BatchText file("1000,2000\r\n\r\nx,1\r\n");
        Driven<frmFs> f;
        m->dialogs.open(file.path.toStdString());
        f.click("butPlfs");
        QCOMPARE(f.rows(), 0);
        QCOMPARE(file.bytes(), QByteArray("1000,2000\r\nx,1\r\n"));  // cleaned all the same
        f.form.close();
        COMPARE_MESSAGES(m->dialogs, );
    }

    void fileWithoutFinalLineEnd()
    {
        BatchText kept("1050,2001\r\n1060,2002"), lost("1050,2001\r\n\r\n1060,2002");
        Driven<frmFs> f;
        m->dialogs.open(kept.path.toStdString()).open(lost.path.toStdString());
        f.click("butPlfs");
        QCOMPARE(f.rows(), 2);
        QCOMPARE(kept.bytes(), QByteArray("1050,2001\r\n1060,2002"));
        f.click("butPlfs");
        QCOMPARE(f.rows(), 3);
        QCOMPARE(lost.bytes(), QByteArray("1050,2001\r\n"));
        m->dialogs.no();
        f.form.close();
    }

    void cancelledDialogEndsInSilence()
    {
        Driven<frmFs> f;
        m->dialogs.cancelOpen();
        f.click("butPlfs");
        QCOMPARE(f.rows(), 0);
        COMPARE_MESSAGES(m->dialogs, );
    }

    void copiesTheSelectionTabSeparated()
    {
        Driven<frmDgdZb> f;
        f.type("txtDgdZbFylc", "100");
        f.click("butDgdCalc");
        f.grid().selectAll();
        QTest::keyClick(&f.grid(), Qt::Key_C, Qt::ControlModifier);
        const QString copied = QGuiApplication::clipboard()->text();
        QVERIFY2(copied.startsWith(u"1\tK0+100.000\t中桩\t无"_s) || copied.startsWith(u"K0+100.000\t中桩\t无"_s),
                 qPrintable(copied));
        m->dialogs.no();
        f.form.close();
    }

private:
    static void fillRun(Driven<frmPlfy>& f, const char* start, const char* end, const char* step, const char* offset)
    {
        f.type("txtPlzbQdlc", start);
        f.type("txtPlzbZdlc", end);
        f.type("txtPlzbBc", step);
        f.type("txtPlzbPj", offset);
    }
    std::unique_ptr<Machine> m;
};

VM_QT_TEST(tst_coordinates)
#include "tst_coordinates.moc"
