// Keys that the rules of the calculation windows do not speak of, what their boxes say about themselves, and the rows
// on paper.

#include "FormDriver.h"

#include "project/LoadProject.h"
#include "screens/windows/ResultPaper.h"
#include "screens/windows/frmDgdGc.h"
#include "screens/windows/frmDgdZb.h"
#include "screens/windows/frmFs.h"
#include "screens/windows/frmJgw.h"
#include "screens/windows/frmPl.h"
#include "screens/windows/frmPlGc.h"
#include "screens/windows/frmPlfy.h"
#include "screens/windows/frmZdcs.h"
#include "support/ProjectFolder.h"
#include "support/QtTests.h"

#include <QMenu>
#include <QPdfWriter>

using namespace Qt::StringLiterals;

namespace {

const std::initializer_list<ProjectFolder::File> kRoad{
    {"其他参数.txt", "积木法\r\n线性\r\n2\r\n3\r\n12\r\n"},
    {"平曲线参数.txt", "12000,13000.5,5000,1000,0,0,0\r\n"},
    {"竖曲线参数.txt", "12100,100\r\n12500,110,0\r\n12900.25,105\r\n"},
};

struct Workspace {
    ProjectFolder folder{kRoad, "示例:一"};
    ScriptedDialogs dialogs;

    Workspace() { LoadProject(); }
};

template <class Form>
void closes(Driven<Form>& f, ScriptedDialogs& dialogs)
{
    dialogs.no();
    f.form.close();
}

}  // namespace

class tst_keys : public QObject {
    Q_OBJECT
private slots:
    void f5CalculatesFromAnyFieldAndComesBackToTheFirst()
    {
        Workspace w;
        Driven<frmDgdZb> f;
        f.type("txtDgdZbFylc", "12100");
        f.tick("cheDgdZb");
        f.type("txtDgdCzX", "1");
        f.type("txtDgdCzY", "2");
        f.box("txtDgdCzY")->setFocus();
        QTest::keyClick(f.form.focusWidget(), Qt::Key_F5);
        QCOMPARE(f.rows(), 1);
        QVERIFY(f.focused("txtDgdZbFylc"));
        QCOMPARE(f.box("txtDgdZbFylc")->selectedText(), u"12100"_s);
        QTest::keyClicks(f.form.focusWidget(), u"12200"_s);
        QTest::keyClick(f.form.focusWidget(), Qt::Key_F5);
        QCOMPARE(f.column(1), (QStringList{u"K12+100.000"_s, u"K12+200.000"_s}));
        f.grid().setFocus();
        QTest::keyClick(f.form.focusWidget(), Qt::Key_F5);
        QCOMPARE(f.rows(), 3);
        QVERIFY(f.focused("txtDgdZbFylc"));
        closes(f, w.dialogs);
    }

    void afterARefusalTheFocusIsTheRefusals()
    {
        Workspace w;
        Driven<frmDgdZb> f;
        f.pick("comDgdZbz", 1);
        f.type("txtDgdZbFylc", "12100");
        f.box("txtDgdZbFylc")->setFocus();
        QTest::keyClick(f.form.focusWidget(), Qt::Key_F5);
        COMPARE_MESSAGES(w.dialogs, refused("偏距不能为空！"));
        QVERIFY(f.focused("txtDgdPj"));
        f.type("txtDgdPj", "5");
        f.type("txtDgdZbFylc", "99999");
        f.box("txtDgdPj")->setFocus();
        QTest::keyClick(f.form.focusWidget(), Qt::Key_F5);
        COMPARE_MESSAGES(w.dialogs, refused("不能大于终点里程！"));
        QVERIFY(f.focused("txtDgdPj"));  // this refusal names no field
        QCOMPARE(f.rows(), 0);
    }

    void f5OnEveryScreen()
    {
        Workspace w;
        const auto press = [&w](auto& f, std::initializer_list<std::pair<const char*, const char*>> texts, int rows) {
            for (const auto& [box, text] : texts) f.type(box, text);
            QTest::keyClick(f.form.focusWidget(), Qt::Key_F5);
            QCOMPARE(f.rows(), rows);
            QVERIFY(f.focused(texts.begin()->first));
            closes(f, w.dialogs);
        };
        Driven<frmPlfy> run;
        press(run, {{"txtPlzbQdlc", "12100"}, {"txtPlzbZdlc", "12120"}, {"txtPlzbBc", "10"}}, 3);
        Driven<frmFs> inverse;
        press(inverse, {{"txtFsx", "5100"}, {"txtFsY", "1001"}}, 1);
        Driven<frmDgdGc> height;
        press(height, {{"txtDgdGcFylc", "12200"}}, 1);
        Driven<frmPlGc> heights;
        press(heights, {{"txtPlGcQdlc", "12200"}, {"txtPlGcZdlc", "12220"}, {"txtPlGcJj", "10"}}, 3);
        Driven<frmJgw> corners;
        press(corners,
              {{"txtJgwFylc", "12200"}, {"txtJgwKq", "1"}, {"txtJgwKh", "1"}, {"txtJgwZz", "1"}, {"txtJgwZy", "1"}}, 4);
        Driven<frmZdcs> points;  // has nothing to calculate
        QTest::keyClick(&points.form, Qt::Key_F5);
        QCOMPARE(points.rows(), 0);
    }

    void otherKeysAndHeldOnesDoNothing()
    {
        Workspace w;
        Driven<frmDgdZb> f;
        f.type("txtDgdZbFylc", "12100");
        QTest::keyClick(f.form.focusWidget(), Qt::Key_F5, Qt::ControlModifier);
        QTest::keyClick(f.form.focusWidget(), Qt::Key_F4);
        QKeyEvent held(QEvent::KeyPress, Qt::Key_F5, Qt::NoModifier, {}, true);
        QApplication::sendEvent(f.form.focusWidget(), &held);
        QCOMPARE(f.rows(), 0);
        QCOMPARE(f.text("txtDgdZbFylc"), u"12100"_s);
    }

    void ctrlSSavesAndProposesAName()
    {
        Workspace w;
        QTemporaryDir folder;
        Driven<frmPlfy> f;
        QTest::keyClick(f.form.focusWidget(), Qt::Key_S, Qt::ControlModifier);
        QCOMPARE(w.dialogs.last().text.c_str(), "没有计算数据，无需保存！");
        f.type("txtPlzbQdlc", "12100");
        f.type("txtPlzbZdlc", "12120");
        f.type("txtPlzbBc", "10");
        f.click("butPlzbCalc");
        w.dialogs.save(folder.filePath(u"a.xls"_s).toStdString());
        QTest::keyClick(f.box("txtPlzbBc"), Qt::Key_S, Qt::ControlModifier);
        QCOMPARE(w.dialogs.proposals, (std::vector<std::string>{"示例_一 批量放样.xls"}));
        QCOMPARE(w.dialogs.filters.back(), "(*.xls)|*.xls");
        QVERIFY(QFile::exists(folder.filePath(u"a.xls"_s)));
        QCOMPARE(f.text("txtPlzbBc"), u"10"_s);
        f.form.close();  // nothing is unsaved
    }

    void boxesSayWhichStakesTheRoadHas()
    {
        Workspace w;
        Driven<frmDgdZb> point;
        QCOMPARE(point.box("txtDgdZbFylc")->placeholderText(), u"12000～13000.5"_s);
        QVERIFY(point.box("txtDgdZbFylc")->toolTip().contains(u"12000～13000.5"_s));
        QVERIFY(point.box("txtDgdJj")->toolTip().contains(u"度.分秒"_s));
        Driven<frmPlfy> run;
        QCOMPARE(run.box("txtPlzbQdlc")->placeholderText(), u"12000"_s);
        QCOMPARE(run.box("txtPlzbZdlc")->placeholderText(), u"13000.5"_s);
        Driven<frmDgdGc> height;
        QVERIFY(height.box("txtDgdGcFylc")->toolTip().contains(u"12100～12900.25"_s));
        Driven<frmPlGc> heights;
        QCOMPARE(heights.box("txtPlGcQdlc")->placeholderText(), u"12100"_s);
        QCOMPARE(heights.box("txtPlGcZdlc")->placeholderText(), u"12900.25"_s);
        Driven<frmJgw> corners;
        Driven<frmPl> batch(corners.form);
        QCOMPARE(batch.box("txtQdlc")->placeholderText(), u"12000"_s);
        QCOMPARE(batch.box("txtZdlc")->placeholderText(), u"13000.5"_s);
        // Grey text is no text: an empty box is refused as ever.
        point.click("butDgdCalc");
        COMPARE_MESSAGES(w.dialogs, refused("计算里程不能为空！"));
    }

    void everyNumberBoxHasAToolTip()
    {
        Workspace w;
        const auto all = [](QWidget& form) {
            int boxes = 0;
            for (const auto* box : form.findChildren<QLineEdit*>()) {
                if (!box->objectName().startsWith(u"txt"_s) || box->objectName().contains(u"Wait"_s)) continue;
                QVERIFY2(!box->toolTip().isEmpty(), qPrintable(box->objectName()));
                ++boxes;
            }
            QVERIFY(boxes >= 2);
        };
        Driven<frmDgdZb> point;
        Driven<frmPlfy> run;
        Driven<frmFs> inverse;
        Driven<frmDgdGc> height;
        Driven<frmPlGc> heights;
        Driven<frmJgw> corners;
        Driven<frmPl> batch(corners.form);
        for (QWidget* form : std::initializer_list<QWidget*>{&point.form, &run.form, &inverse.form, &height.form,
                                                             &heights.form, &corners.form, &batch.form})
            all(*form);
    }

    void withoutARoadNoRangeIsNamed()
    {
        const Machine m;
        openRoad = {};
        Driven<frmDgdZb> f;
        QCOMPARE(f.box("txtDgdZbFylc")->placeholderText(), QString());
        QVERIFY(!f.box("txtDgdZbFylc")->toolTip().contains(u'～'));
    }

    void rowsGoToPdf()
    {
        Workspace w;
        QTemporaryDir folder;
        Driven<frmPlfy> f;
        auto* menu = f.grid().contextMenu();
        const auto find = [&](const char* name) {
            for (auto* action : menu->actions())
                if (action->objectName() == QString::fromUtf8(name)) return action;
            qFatal("no entry %s", name);
        };
        find("mnuPdf")->trigger();
        QCOMPARE(w.dialogs.last().text.c_str(), "没有计算数据，无需保存！");
        f.type("txtPlzbQdlc", "12000");
        f.type("txtPlzbZdlc", "13000");
        f.type("txtPlzbBc", "8");
        f.click("butPlzbCalc");
        QCOMPARE(f.rows(), 126);
        const QString path = folder.filePath(u"a.pdf"_s);
        w.dialogs.save(path.toStdString());
        find("mnuPdf")->trigger();
        QCOMPARE(w.dialogs.proposals.back(), "示例_一 批量放样.pdf");
        QCOMPARE(w.dialogs.last().text.c_str(), "保存成功！");
        QFile file(path);
        QVERIFY(file.open(QIODevice::ReadOnly));
        const QByteArray bytes = file.readAll();
        QVERIFY(bytes.startsWith("%PDF-"));
        const auto pages = bytes.count("/Type /Page\n");
        QVERIFY2(pages >= 3 && pages <= 5, qPrintable(QString::number(pages)));
        // Cancelled, refused: nothing is written.
        w.dialogs.cancelSave();
        find("mnuPdf")->trigger();
        w.dialogs.save(path.toStdString()).no();
        find("mnuPdf")->trigger();
        QVERIFY(find("mnuPrint")->text() == u"打印…"_s);
        closes(f, w.dialogs);
    }
};

VM_QT_TEST(tst_keys)
#include "tst_keys.moc"
