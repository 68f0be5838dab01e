// The windows after a run of a file: amber of its own, and the line under the grid.

#include "FormDriver.h"
#include "RoadOfDoubts.h"

#include "screens/windows/frmDgdZb.h"
#include "screens/windows/frmFs.h"
#include "screens/windows/frmJgw.h"
#include "screens/windows/frmPlfy.h"
#include "support/QtTests.h"

using namespace Qt::StringLiterals;

class tst_filerun : public QObject {
    Q_OBJECT
private slots:
    void theFileRunOfTheStakeOutUsesTheStationInMemory()
    {
        Workspace w;
        const BatchText file("12100,0\r\n12110,-3\r\n");
        gStationX = 5;
        gStationY = 6.5;
        Driven<frmPlfy> f;
        w.dialogs.open(file.path.toStdString());
        f.click("bugPlfy");
        const QString note = u"文件计算用的测站是 (5, 6.5)"_s;
        for (int col = 1; col < 9; ++col) QCOMPARE(f.grid().doubt(2, col), col == 4 || col == 5 ? note : QString());
        // The window's own station becomes the one in memory by a calculation; a file run then agrees with it.
        f.tick("chePlFyzb");
        f.type("txtPlzbCzX", "5");
        f.type("txtPlzbCzY", "6.5");
        w.dialogs.open(file.path.toStdString());
        f.click("bugPlfy");
        QCOMPARE(f.rows(), 4);
        for (int col = 1; col < 9; ++col) QCOMPARE(f.grid().doubt(3, col), QString());
        w.dialogs.no();
        f.form.close();
    }

    void aFileOfStructuresTakesNoAngle()
    {
        Workspace w;
        const BatchText file("12100,1,1,2,2\r\n");
        Driven<frmJgw> f;
        f.pick("comJgwCz", 0);
        f.tick("cheJgwJj");
        f.type("txtJgwJj", "60");
        w.dialogs.open(file.path.toStdString());
        f.click("butTxt");
        for (int row = 1; row <= 4; ++row)
            for (int col = 1; col < 9; ++col)
                QCOMPARE(f.grid().doubt(row, col), col == 3 ? u"从文件读取按 90 度计算，未用夹角"_s : QString());
        QCOMPARE(f.row(1)[3], u"-0度00分00秒"_s);
        f.tick("cheJgwJj");
        w.dialogs.open(file.path.toStdString());
        f.click("butTxt");
        QCOMPARE(f.grid().doubt(5, 3), QString());
        w.dialogs.no();
        f.form.close();
    }

    void whatAFileRunDidStandsUnderTheGrid()
    {
        Workspace w;
        const BatchText file("5100,1002\r\n99999,99999\r\n");
        Driven<frmFs> f;
        auto& told = *f.get<QuietLine>("lblTold");
        QCOMPARE(told.text(), QString());
        w.dialogs.open(file.path.toStdString());
        f.click("butPlfs");
        QCOMPARE(told.text(), u"points.txt：2 行，得到 1 个结果；第 2 行没有对应的里程"_s);
        QVERIFY(told.doubtful());
        QVERIFY(told.isVisible() && told.y() > f.grid().y());
        QCOMPARE(told.focusPolicy(), Qt::NoFocus);
        f.type("txtFsx", "5100");
        f.type("txtFsY", "1002");
        f.click("butFsCalc");
        QCOMPARE(told.text(), QString());
        QVERIFY(!told.doubtful());
        QVERIFY(w.dialogs.messages.empty());
        w.dialogs.no();
        f.form.close();
    }

    void theLimitOfRowsIsTold()
    {
        Workspace w;
        Driven<frmPlfy> f;
        f.pick("comPlzbCz", 0);
        f.type("txtPlzbQdlc", "12000");
        f.type("txtPlzbZdlc", "13000");
        f.type("txtPlzbBc", "0.03125");  // a binary fraction: 32 rows a metre, row 32768 at 12000 + 32767 / 32
        f.click("butPlzbCalc");
        QCOMPARE(f.get<QuietLine>("lblTold")->text(), QString());
        f.type("txtPlzbZdlc", "13500");
        f.click("butPlzbCalc");
        QCOMPARE(w.dialogs.last().text.c_str(), "请输入正确的数值！");
        QCOMPARE(f.get<QuietLine>("lblTold")->text(), u"已达 32767 行上限，从 K13+023.96875 起没有计算"_s);
        w.dialogs.no();
        f.form.close();
    }

    void aSaveTellsOfRowsFromAnotherStation()
    {
        Workspace w;
        QTemporaryDir folder;
        Driven<frmDgdZb> f;
        f.type("txtDgdZbFylc", "12100");
        f.pick("comDgdCz", 0);
        f.click("butDgdCalc");
        f.click("butDgdCalc");
        auto& told = *f.get<QuietLine>("lblTold");
        w.dialogs.save(folder.filePath(u"a.xls"_s).toStdString());
        f.click("butDgdSave");
        QCOMPARE(told.text(), QString());
        f.pick("comDgdCz", 1);
        f.click("butDgdCalc");
        w.dialogs.save(folder.filePath(u"b.xls"_s).toStdString());
        f.click("butDgdSave");
        QCOMPARE(told.text(), u"第 1～2 行的测站是 (4900, 1000) 等，保存的表里写的是 (4950, 1010)"_s);
        QVERIFY(told.doubtful());
    }
};

VM_QT_TEST(tst_filerun)
#include "tst_filerun.moc"
