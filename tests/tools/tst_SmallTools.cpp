// The windows of the two small tools: controls, keys, and that each button reaches its computing.

#include "controls/XPButton.h"
#include "support/QtTests.h"
#include "support/ScriptedDialogs.h"
#include "support/Windows.h"
#include "tools/windows/frmQljs.h"
#include "tools/windows/frmZbzfs.h"

#include <QGroupBox>
#include <QLabel>

namespace {

/// The label that stands before a box.
QString labelOf(const QWidget& window, const char* box)
{
    for (auto* label : window.findChildren<QLabel*>())
        if (label->buddy() && label->buddy()->objectName() == QString::fromUtf8(box)) return label->text();
    return {};
}

QString frameOf(const QWidget& control)
{
    auto* frame = qobject_cast<QGroupBox*>(control.parentWidget());
    return frame ? frame->title() : QString();
}

void type(const QWidget& window, std::initializer_list<std::pair<const char*, const char*>> texts)
{
    for (const auto& [box, text] : texts) ::type(window, box, text);
}

}  // namespace

class tst_SmallTools : public QObject {
    Q_OBJECT

private slots:
    void zbzfsControls_data()
    {
        QTest::addColumn<QString>("frame");
        QTest::addColumn<QString>("label");
        QTest::addColumn<QString>("taken");  // of what is typed; a result takes nothing
        const auto row = [](const char* name, const char* frame, const char* label, const char* taken) {
            QTest::newRow(name) << QString::fromUtf8(frame) << QString::fromUtf8(label) << QString::fromUtf8(taken);
        };
        row("txtZsCzX", "坐标正算", "测站点X", "-1.2.3");
        row("txtZsCzY", "坐标正算", "测站点Y", "-1.2.3");
        row("txtZsFwj", "坐标正算", "方位角", "-1.2.3");
        row("txtZsJl", "坐标正算", "距 离", "1.2.3");
        row("txtZsJsdX", "坐标正算", "计算点X", "");
        row("txtZsJsdY", "坐标正算", "计算点Y", "");
        row("txtFsCzx", "坐标反算", "测站点X", "-1.2.3");
        row("txtFsCzy", "坐标反算", "测站点Y", "-1.2.3");
        row("txtFsHsX", "坐标反算", "后视点X", "-1.2.3");
        row("txtFsHsY", "坐标反算", "后视点Y", "-1.2.3");
        row("txtFsFwj", "坐标反算", "计算方位角", "");
        row("txtFsJl", "坐标反算", "计算距离", "");
    }
    void zbzfsControls()
    {
        QFETCH(QString, frame);
        QFETCH(QString, label);
        QFETCH(QString, taken);
        ScriptedPlatform seams;
        frmZbzfs form;
        form.show();
        auto& box = named<QLineEdit>(form, QTest::currentDataTag());
        QCOMPARE(frameOf(box), frame);
        QCOMPARE(labelOf(form, QTest::currentDataTag()), label);
        QTest::keyClicks(&box, QStringLiteral("-1a.2 .e+3"));
        QCOMPARE(box.text(), taken);
    }
    void zbzfsWindow()
    {
        frmZbzfs form;
        QCOMPARE(form.windowTitle(), QStringLiteral("坐标正反算"));
        for (const auto& [name, frame] : {std::pair{"butZsCalc", "坐标正算"},
                                          {"butZsBack", "坐标正算"},
                                          {"butFsCalc", "坐标反算"},
                                          {"butFsBack", "坐标反算"}})
            QCOMPARE(frameOf(named<XPButton>(form, name)), QString::fromUtf8(frame));
    }
    void zbzfsForward()
    {
        ScriptedDialogs dialogs;
        frmZbzfs form;
        form.show();
        type(form, {{"txtZsCzX", "1000"}, {"txtZsCzY", "2000"}, {"txtZsFwj", "30"}, {"txtZsJl", "100"}});
        click(form, "butZsCalc");
        QCOMPARE(textOf(form, "txtZsJsdX"), QStringLiteral("1086.603"));
        QCOMPARE(textOf(form, "txtZsJsdY"), QStringLiteral("2050.000"));
    }
    void zbzfsInverse()
    {
        ScriptedDialogs dialogs;
        frmZbzfs form;
        form.show();
        type(form, {{"txtFsCzx", "1000"}, {"txtFsCzy", "2000"}, {"txtFsHsX", "600"}, {"txtFsHsY", "2300"}});
        click(form, "butFsCalc");
        QCOMPARE(textOf(form, "txtFsFwj"), QStringLiteral("143度07分48秒"));
        QCOMPARE(textOf(form, "txtFsJl"), QStringLiteral("500.000"));
    }
    void f5CalculatesWhereTheFocusIs()
    {
        ScriptedDialogs dialogs;
        frmZbzfs form;
        form.show();
        form.activateWindow();
        type(form, {{"txtZsCzX", "1000"}, {"txtZsCzY", "2000"}, {"txtZsFwj", "30"}, {"txtZsJl", "100"}});
        type(form, {{"txtFsCzx", "1000"}, {"txtFsCzy", "2000"}, {"txtFsHsX", "600"}, {"txtFsHsY", "2300"}});
        const auto f5 = [&](const char* in) {
            auto* box = form.findChild<QLineEdit*>(QString::fromUtf8(in));
            box->setFocus();
            QTest::keyClick(box, Qt::Key_F5);
        };
        f5("txtZsFwj");
        QCOMPARE(textOf(form, "txtZsJsdX") + u'|' + textOf(form, "txtFsJl"), QStringLiteral("1086.603|"));
        f5("txtFsHsY");
        QCOMPARE(textOf(form, "txtFsJl"), QStringLiteral("500.000"));
        frmQljs radius;
        radius.show();
        type(radius, {{"txtA", "100"}, {"txtR", "200"}, {"txtL0", "30"}});
        QTest::keyClick(radius.findChild<QLineEdit*>(QStringLiteral("txtR")), Qt::Key_F5);
        QCOMPARE(radius.findChild<QLabel*>(QStringLiteral("lbeR"))->text(), QStringLiteral("500"));
        QVERIFY(dialogs.messages.empty());
    }
    void zbzfsRefusalTakesTheFocusBack()
    {
        ScriptedDialogs dialogs;
        frmZbzfs form;
        form.show();
        type(form, {{"txtZsCzX", "1000"}, {"txtZsCzY", "2000"}, {"txtZsJl", "100"}});
        click(form, "butZsCalc");
        QCOMPARE(dialogs.messages, (std::vector<Msg>{{"方位角不能为空！", "注意", Icon::Exclamation}}));
        QCOMPARE(form.focusWidget()->objectName(), QStringLiteral("txtZsFwj"));
        click(form, "butFsCalc");
        QCOMPARE(dialogs.last().text, std::string("测站X坐标不能为空！"));
        QCOMPARE(form.focusWidget()->objectName(), QStringLiteral("txtFsCzx"));
    }
    void textThatIsNoNumberEndsTheProgram()
    {
        ScriptedDialogs dialogs;
        ScriptedPlatform seams;
        frmZbzfs form;
        form.show();
        type(form, {{"txtZsCzX", "1.2.3"}, {"txtZsCzY", "2"}, {"txtZsFwj", "3"}, {"txtZsJl", "4"}});
        click(form, "butZsCalc");
        QCOMPARE(seams.ended, std::vector<int>{1});
        type(form, {{"txtFsCzx", "-"}, {"txtFsCzy", "2"}, {"txtFsHsX", "3"}, {"txtFsHsY", "4"}});
        click(form, "butFsCalc");
        QCOMPARE(seams.ended, (std::vector<int>{1, 1}));
        QCOMPARE(textOf(form, "txtZsJsdX") + textOf(form, "txtFsFwj"), QString());
    }
    void zbzfsBackButtonsClose()
    {
        for (const char* back : {"butZsBack", "butFsBack"}) {
            frmZbzfs form;
            form.show();
            click(form, back);
            QVERIFY2(!form.isVisible(), back);
        }
    }
    void enterGoesToTheNextBoxAndSelectsItsText()
    {
        ScriptedPlatform seams;
        frmZbzfs form;
        form.show();
        type(form, {{"txtZsCzY", "2000"}});
        auto& first = named<QLineEdit>(form, "txtZsCzX");
        first.setFocus();
        QTest::keyClick(&first, Qt::Key_Return);
        QCOMPARE(form.focusWidget()->objectName(), QStringLiteral("txtZsCzY"));
        QCOMPARE(named<QLineEdit>(form, "txtZsCzY").selectedText(), QStringLiteral("2000"));
    }
    void zbzfsByKeyboardAlone()
    {
        ScriptedDialogs dialogs;
        ScriptedPlatform seams;
        frmZbzfs form;
        form.show();
        const auto typeAll = [&](std::initializer_list<const char*> texts) {
            for (const char* text : texts) {
                QTest::keyClicks(form.focusWidget(), QString::fromUtf8(text));
                QTest::keyClick(form.focusWidget(), Qt::Key_Return);
            }
        };
        named<QLineEdit>(form, "txtZsCzX").setFocus();
        typeAll({"1000", "2000", "30", "100"});
        QCOMPARE(form.focusWidget()->objectName(), QStringLiteral("butZsCalc"));
        QTest::keyClick(form.focusWidget(), Qt::Key_Return);
        QCOMPARE(textOf(form, "txtZsJsdX"), QStringLiteral("1086.603"));
        QCOMPARE(textOf(form, "txtZsJsdY"), QStringLiteral("2050.000"));
        named<QLineEdit>(form, "txtFsCzx").setFocus();
        typeAll({"1000", "2000", "600", "2300"});
        QCOMPARE(form.focusWidget()->objectName(), QStringLiteral("butFsCalc"));
        QTest::keyClick(form.focusWidget(), Qt::Key_Return);
        QCOMPARE(textOf(form, "txtFsJl"), QStringLiteral("500.000"));
        QVERIFY(dialogs.messages.empty());
    }

    void qljsControls_data()
    {
        QTest::addColumn<QString>("label");
        QTest::newRow("txtA") << QStringLiteral("缓和参数A");
        QTest::newRow("txtR") << QStringLiteral("曲线半径R");
        QTest::newRow("txtL0") << QStringLiteral("缓和曲线长L0");
        QTest::newRow("lbeL") << QStringLiteral("完整曲线长");
        QTest::newRow("lbeR") << QStringLiteral("曲率半径");
    }
    void qljsControls()
    {
        QFETCH(QString, label);
        ScriptedPlatform seams;
        frmQljs form;
        form.show();
        QCOMPARE(labelOf(form, QTest::currentDataTag()), label);
        auto* box = form.findChild<QLineEdit*>(QString::fromUtf8(QTest::currentDataTag()));
        if (!box) return;
        QTest::keyClicks(box, QStringLiteral("-1a.2 .e+3"));
        QCOMPARE(box->text(), QStringLiteral("-1.2.3"));
    }
    void qljsWindow()
    {
        frmQljs form;
        QCOMPARE(form.windowTitle(), QStringLiteral("曲率半径计算"));
        QCOMPARE(named<QPushButton>(form, "Command1").text(), QStringLiteral("计算"));
        QVERIFY(form.findChildren<XPButton*>().isEmpty());  // the one window with a plain button
    }
    void qljsCalculates()
    {
        ScriptedDialogs dialogs;
        frmQljs form;
        form.show();
        type(form, {{"txtA", "100"}, {"txtR", "200"}, {"txtL0", "30"}});
        click(form, "Command1");
        QCOMPARE(named<QLabel>(form, "lbeL").text(), QStringLiteral("50"));
        QCOMPARE(named<QLabel>(form, "lbeR").text(), QStringLiteral("500"));
        type(form, {{"txtL0", "50"}});
        click(form, "Command1");
        QCOMPARE(named<QLabel>(form, "lbeR").text(), QStringLiteral("无限大,完整"));
    }
    void qljsRefusesWithoutAnIconOrAFocus()
    {
        ScriptedDialogs dialogs;
        frmQljs form;
        form.show();
        click(form, "Command1");
        type(form, {{"txtA", "100"}});
        click(form, "Command1");
        QCOMPARE(dialogs.messages, (std::vector<Msg>{{"缓和参数A不能为空！", "注意", Icon::None},
                                                     {"曲线半径R不能为空！", "注意", Icon::None}}));
        QCOMPARE(form.focusWidget()->objectName(), QStringLiteral("Command1"));
    }
    void qljsEmptyL0EndsTheProgram()
    {
        ScriptedDialogs dialogs;
        ScriptedPlatform seams;
        frmQljs form;
        form.show();
        type(form, {{"txtA", "100"}, {"txtR", "200"}});
        click(form, "Command1");
        QCOMPARE(seams.ended, std::vector<int>{1});
    }
    void qljsEnterMovesOn()
    {
        ScriptedDialogs dialogs;
        ScriptedPlatform seams;
        frmQljs form;
        form.show();
        auto& first = named<QLineEdit>(form, "txtA");
        first.setFocus();
        for (const char* next : {"txtR", "txtL0", "Command1"}) {
            QTest::keyClick(form.focusWidget(), Qt::Key_Return);
            QCOMPARE(form.focusWidget()->objectName(), QString::fromUtf8(next));
        }
        QVERIFY(dialogs.messages.empty());
    }
    void qljsByKeyboardAlone()
    {
        ScriptedDialogs dialogs;
        ScriptedPlatform seams;
        frmQljs form;
        form.show();
        named<QLineEdit>(form, "txtA").setFocus();
        for (const char* typed : {"100", "200", "30"}) {
            QTest::keyClicks(form.focusWidget(), QString::fromUtf8(typed));
            QTest::keyClick(form.focusWidget(), Qt::Key_Return);
        }
        QTest::keyClick(form.focusWidget(), Qt::Key_Return);  // the button clicks, and Enter moves on to the first box
        QCOMPARE(named<QLabel>(form, "lbeR").text(), QStringLiteral("500"));
        QCOMPARE(form.focusWidget()->objectName(), QStringLiteral("txtA"));
        QCOMPARE(named<QLineEdit>(form, "txtA").selectedText(), QStringLiteral("100"));
    }
};

VM_QT_TEST(tst_SmallTools)
#include "tst_SmallTools.moc"
