// The parameter wizard and its three small windows.

#include "base/RunTimeError.h"
#include "controls/XPButton.h"
#include "editors/windows/frmBpjs.h"
#include "editors/windows/frmPqxSelect.h"
#include "editors/windows/frmSelect.h"
#include "editors/windows/frmSelectCg.h"
#include "engine/Elevation.h"
#include "support/ProjectFolder.h"
#include "support/QtTests.h"
#include "support/ScriptedDialogs.h"
#include "support/Windows.h"
#include "tables/CalcTables.h"
#include "ui/MSFlexGrid.h"

#include <QClipboard>
#include <QGroupBox>
#include <QLabel>
#include <QRadioButton>

namespace {

constexpr auto kSettings = "其他参数.txt";
constexpr auto kUnset = "未设置\r\n未设置\r\n未设置\r\n未设置\r\n未设置\r\n";
constexpr auto kSet = "交点法\r\n线性\r\n2\r\n3\r\n12\r\n";
const Msg kGradesFirst{"请先设置最大边坡级数！", "注意", Icon::Exclamation};

template <class F>
struct Opened {
    ScriptedDialogs dialogs;
    ScriptedPlatform seams;
    ProjectFolder folder;
    F form;

    explicit Opened(std::initializer_list<ProjectFolder::File> files) : folder(files), form()
    {
        form.show();
        form.activateWindow();
        if (!QTest::qWaitForWindowActive(&form)) qFatal("the window did not become active");
    }
};

void pick(const QWidget& window, const char* option)
{
    auto& button = named<QRadioButton>(window, option);
    QTest::mouseClick(&button, Qt::LeftButton, {}, {10, button.height() / 2});
}

void choose(const QWidget& wizard, int option) { pick(wizard, qPrintable(QStringLiteral("optCs%1").arg(option))); }

/// Name of the window that 下一步 opens; it is closed again.
QString next(const QWidget& wizard)
{
    QString name;
    useModal([&] { click(wizard, "cmdSelectNext"); }, [&](QWidget& window) { name = window.objectName(); });
    return name;
}

bool hasLabel(const QWidget& form, const char* text)
{
    for (const auto* label : form.findChildren<QLabel*>())
        if (label->text() == QString::fromUtf8(text)) return true;
    return false;
}

}  // namespace

class tst_Wizard : public QObject {
    Q_OBJECT
private slots:
    void initTestCase() { QGuiApplication::setQuitOnLastWindowClosed(false); }

    // frmSelect

    void controlsOfTheWizard()
    {
        const Opened<frmSelect> e{{kSettings, kSet}};
        QCOMPARE(named<QGroupBox>(e.form, "Frame1").title(), QStringLiteral("参数"));
        const char* captions[] = {"导线点",   "平曲线",   "竖曲线",   "超 高",    "超高宽度", "断 链",
                                  "边坡参数", "左幅填方", "右幅填方", "左幅挖方", "右幅挖方"};
        for (int i = 0; i < 11; ++i) {
            const auto& option = named<QRadioButton>(e.form, qPrintable(QStringLiteral("optCs%1").arg(i)));
            QCOMPARE(option.text(), QString::fromUtf8(captions[i]));
            QCOMPARE(option.isChecked(), i == 0);
        }
        QCOMPARE(named<XPButton>(e.form, "cmdSelectNext").Caption(), QStringLiteral("下一步"));
        QCOMPARE(named<XPButton>(e.form, "cmdSelectBack").Caption(), QStringLiteral("返 回"));
    }

    void anOptionNotClickedYetActsAsTheFirst()
    {
        const Opened<frmSelect> e{{kSettings, kSet}};
        QCOMPARE(next(e.form), "frmDxd");
    }

    void eachOptionOpensItsWindowAndTheWizardStays()
    {
        const Opened<frmSelect> e{{kSettings, kSet}};
        const char* forms[] = {"frmDxd",  "frmJdpqx", "frmSqx", "frmCg",  "frmCgkd", "frmDl",
                               "frmBpjs", "frmTfz",   "frmTfy", "frmWfz", "frmWfy"};
        for (int i = 0; i < 11; ++i) {
            choose(e.form, i);
            QCOMPARE(next(e.form), forms[i]);
            QVERIFY(e.form.isVisible());
        }
        QVERIFY(e.dialogs.messages.empty());
    }

    void whatIsUnsetIsAskedFirst()
    {
        const Opened<frmSelect> e{{kSettings, kUnset}};
        for (const auto& [option, form] : {std::pair{1, "frmPqxSelect"}, {3, "frmSelectCg"}}) {
            choose(e.form, option);
            QCOMPARE(next(e.form), form);
        }
        QVERIFY(e.dialogs.messages.empty());
        for (const int option : {7, 8, 9, 10}) {
            choose(e.form, option);
            QCOMPARE(next(e.form), "frmBpjs");
            QCOMPARE(e.dialogs.last(), kGradesFirst);
        }
        QCOMPARE(e.dialogs.messages.size(), 4u);
    }

    void blocksAreTheOtherModel()
    {
        const Opened<frmSelect> e{{kSettings, "积木法\r\n线性\r\n"}};
        choose(e.form, 1);
        QCOMPARE(next(e.form), "frmJmpqx");
    }

    void aCutGradeCountOfZeroOpensAWindowWithoutColumns()
    {
        const Opened<frmSelect> e{{kSettings, "交点法\r\n线性\r\n2\r\n0\r\n12\r\n"}};
        choose(e.form, 9);
        useModal([&] { click(e.form, "cmdSelectNext"); },
                 [](QWidget& window) {
                     QCOMPARE(window.objectName(), "frmWfz");
                     QCOMPARE(named<MSFlexGrid>(window, "MsfgWfz").Cols(), 0);
                 });
    }

    void settingsThatAreGoneAreNamedAndTheWizardStays()
    {
        const Opened<frmSelect> e{};
        for (const int option : {1, 3, 7, 10}) {
            choose(e.form, option);
            click(e.form, "cmdSelectNext");
            QCOMPARE(e.dialogs.last(),
                     (Msg{"“其他参数.txt”不存在或不完整，请重新打开项目！", "注意", Icon::Exclamation}));
            QVERIFY(e.form.isVisible());
        }
        QVERIFY(e.seams.ended.empty());
    }

    void backCompilesTheProjectAndUnloads()
    {
        const Opened<frmSelect> e{{kSettings, kSet}, {"导线点参数.txt", "A,1,2,\r\n"}};
        QVERIFY(gDxdName.empty());
        click(e.form, "cmdSelectBack");
        QVERIFY(!e.form.isVisible());
        QCOMPARE(gDxdName.at(0), "A");
        QVERIFY(e.dialogs.messages.empty());
    }

    /// The one message that a way back can bring; the wizard goes all the same.
    void backNamesAStakeInAChainageGap()
    {
        const Opened<frmSelect> e{{kSettings, kSet},
                                  {"断链参数.txt", "100,200\r\n"},
                                  {"竖曲线参数.txt", "0,10\r\n150,11,1000\r\n400,12\r\n"}};
        click(e.form, "cmdSelectBack");
        QCOMPARE(e.dialogs.messages, (std::vector<Msg>{{"桩号不存在，请检查断链数据！", "注意", Icon::Exclamation}}));
        QVERIFY(!e.form.isVisible());
    }

    void escapeCompilesAsBackDoes()
    {
        Opened<frmSelect> e{{kSettings, kSet}, {"导线点参数.txt", "A,1,2,\r\n"}};
        QTest::keyClick(&e.form, Qt::Key_Escape);
        QVERIFY(!e.form.isVisible());
        QCOMPARE(gDxdName.at(0), "A");
    }

    void theCloseBoxDoesNotCompile()
    {
        Opened<frmSelect> e{{kSettings, kSet}, {"导线点参数.txt", "A,1,2,\r\n"}};
        e.form.close();
        QVERIFY(!e.form.isVisible());
        QVERIFY(gDxdName.empty());
    }

    void theWizardByKeyboard()
    {
        const Opened<frmSelect> e{{kSettings, kSet}};
        QCOMPARE(e.form.focusWidget()->objectName(), "optCs0");
        QTest::keyClick(e.form.focusWidget(), Qt::Key_Down);
        QTest::keyClick(e.form.focusWidget(), Qt::Key_Down);
        QTest::keyClick(e.form.focusWidget(), Qt::Key_Right);
        QCOMPARE(e.form.focusWidget()->objectName(), "optCs8");
        QTest::keyClick(e.form.focusWidget(), Qt::Key_Left);
        QCOMPARE(e.form.focusWidget()->objectName(), "optCs2");
        QTest::keyClick(e.form.focusWidget(), Qt::Key_Tab);
        QCOMPARE(e.form.focusWidget()->objectName(), "cmdSelectNext");
        QString name;
        useModal([&] { QTest::keyClick(e.form.focusWidget(), Qt::Key_Return); },
                 [&](QWidget& window) { name = window.objectName(); });
        QCOMPARE(name, "frmSqx");
    }

    void enterOnAnOptionGoesOn()
    {
        const Opened<frmSelect> e{{kSettings, kSet}};
        QTest::keyClick(e.form.focusWidget(), Qt::Key_Down);
        QTest::keyClick(e.form.focusWidget(), Qt::Key_Down);
        QString name;
        useModal([&] { QTest::keyClick(e.form.focusWidget(), Qt::Key_Return); },
                 [&](QWidget& window) { name = window.objectName(); });
        QCOMPARE(name, "frmSqx");
    }

    void enterOnATypeTakesIt()
    {
        const Opened<frmPqxSelect> e{{kSettings, kUnset}};
        QTest::keyClick(e.form.focusWidget(), Qt::Key_Right);
        QCOMPARE(e.form.focusWidget()->objectName(), "optPqxSelectJm");
        QString name;
        useModal([&] { QTest::keyClick(e.form.focusWidget(), Qt::Key_Return); },
                 [&](QWidget& window) { name = window.objectName(); });
        QCOMPARE(name, "frmJmpqx");
        QVERIFY(e.folder.text(kSettings).starts_with("积木法\r\n"));
        QVERIFY(!e.form.isVisible());
    }

    void theChoiceOfTheModelSaysThatItIsForGood()
    {
        const Opened<frmPqxSelect> pqx{{kSettings, kUnset}};
        QVERIFY(named<QLabel>(pqx.form, "lblNote").text().contains(QStringLiteral("不能再改")));
        const Opened<frmSelectCg> cg{{kSettings, kUnset}};
        QVERIFY(!cg.form.findChild<QLabel*>(QStringLiteral("lblNote")));
    }

    void besideEachOptionStandsWhatThereIs()
    {
        const auto states = [](const QWidget& form) {
            QStringList all;
            for (int i = 0; i < 11; ++i) all << named<QLabel>(form, ("lblState" + std::to_string(i)).c_str()).text();
            return all;
        };
        const QString none = QStringLiteral("没有");
        {
            const Opened<frmSelect> e{{kSettings, kUnset}};
            QCOMPARE(states(e.form), QStringList(11, none));
        }
        const Opened<frmSelect> e{{kSettings, kSet},
                                  {"导线点参数.txt", "P1,1,1,\r\nP2,2,2,\r\n"},
                                  {"平曲线参数.txt", "0,0,0\r\nJ1,100,0,0,0,50\r\nJ2,200,9,0,0,50\r\n300,0\r\n"},
                                  {"竖曲线参数.txt", "0,1\r\n50,2,900\r\n100,1\r\n"},
                                  {"超高参数.txt", "0,-2,-2,100,-2,-2\r\n"},
                                  {"断链参数.txt", "50,60\r\n70,80\r\n90,100\r\n"},
                                  {"右幅挖方参数.txt", "0,1,2\r\n"}};
        QCOMPARE(states(e.form),
                 (QStringList{QStringLiteral("2 个"), QStringLiteral("交点法 2 个"), QStringLiteral("1 个变坡点"),
                              QStringLiteral("线性 1 段"), none, QStringLiteral("3 处"),
                              QStringLiteral("填 2 级，挖 3 级"), none, none, none, QStringLiteral("1 行")}));
        const auto files = ProjectFolder::filesIn(ProjectPath(gProject));
        e.folder.write("断链参数.txt", "");
        choose(e.form, 5);
        QCOMPARE(next(e.form), "frmDl");  // and back
        QCOMPARE(named<QLabel>(e.form, "lblState5").text(), none);
        QCOMPARE(ProjectFolder::filesIn(ProjectPath(gProject)).size(), files.size());
        QCOMPARE(named<QLabel>(e.form, "lblState5").focusPolicy(), Qt::NoFocus);
    }

    void anAlignmentWithoutDataKeepsItsModel()
    {
        const Opened<frmSelect> e{{kSettings, "积木法\r\n三次抛物线\r\n未设置\r\n未设置\r\n未设置\r\n"},
                                  {"超高参数.txt", "0,-2,-2,100,-2,-2\r\n"}};
        QCOMPARE(named<QLabel>(e.form, "lblState1").text(), QStringLiteral("积木法，没有数据"));
        QCOMPARE(named<QLabel>(e.form, "lblState3").text(), QStringLiteral("三次抛物线 1 段"));
    }

    void theDownKeyGoesThroughAllElevenOptions()
    {
        const Opened<frmSelect> e{{kSettings, kSet}};
        const auto chosen = [&] {
            QStringList names;
            for (const auto* option : e.form.findChildren<QRadioButton*>())
                if (option->isChecked()) names << option->objectName();
            return names;
        };
        for (const auto& [key, step] : {std::pair{Qt::Key_Down, 1}, {Qt::Key_Up, 10}}) {
            int at = 0;
            for (int i = 0; i < 11; ++i) {
                QCOMPARE(e.form.focusWidget()->objectName(), QStringLiteral("optCs%1").arg(at));
                QCOMPARE(chosen(), QStringList{e.form.focusWidget()->objectName()});
                QTest::keyClick(e.form.focusWidget(), key);
                at = (at + step) % 11;
            }
            QCOMPARE(at, 0);
        }
        for (int i = 0; i < 8; ++i) QTest::keyClick(e.form.focusWidget(), Qt::Key_Down);
        QCOMPARE(next(e.form), "frmTfy");
    }

    // frmPqxSelect, frmSelectCg

    void controlsOfTheModelChoice()
    {
        const Opened<frmPqxSelect> e{{kSettings, kUnset}};
        QCOMPARE(e.form.windowTitle(), QStringLiteral("平曲线计算模型"));
        QCOMPARE(named<QRadioButton>(e.form, "optPqxSelectJd").text(), QStringLiteral("交点法"));
        QCOMPARE(named<QRadioButton>(e.form, "optPqxSelectJm").text(), QStringLiteral("积木法"));
        QVERIFY(named<QRadioButton>(e.form, "optPqxSelectJd").isChecked());
        QCOMPARE(named<XPButton>(e.form, "cmdPqxSelectOk").Caption(), QStringLiteral("确 定"));
        QCOMPARE(named<XPButton>(e.form, "cmdPqxSelectCancel").Caption(), QStringLiteral("取 消"));
    }

    void theModelIsStoredAndItsEditorOpens()
    {
        for (const auto& [option, form, text] :
             {std::tuple{"optPqxSelectJd", "frmJdpqx", "交点法"}, {"optPqxSelectJm", "frmJmpqx", "积木法"}}) {
            const Opened<frmPqxSelect> e{{kSettings, kUnset}};
            pick(e.form, option);
            useModal([&] { click(e.form, "cmdPqxSelectOk"); },
                     [&](QWidget& window) {
                         QCOMPARE(window.objectName(), form);
                         QVERIFY(e.form.isVisible());
                     });
            QVERIFY(!e.form.isVisible());
            QCOMPARE(gPqxModel, text);
            QCOMPARE(e.folder.text(kSettings), std::string(text) + "\r\n未设置\r\n未设置\r\n未设置\r\n未设置\r\n");
        }
    }

    void cancelStoresNoModel()
    {
        const Opened<frmPqxSelect> e{{kSettings, kUnset}};
        click(e.form, "cmdPqxSelectCancel");
        QVERIFY(!e.form.isVisible());
        QCOMPARE(gPqxModel, "");
        QCOMPARE(e.folder.text(kSettings), kUnset);
    }

    void controlsOfTheTypeChoice()
    {
        const Opened<frmSelectCg> e{{kSettings, kUnset}};
        QCOMPARE(e.form.windowTitle(), QStringLiteral("选择超高类型"));
        QCOMPARE(named<QRadioButton>(e.form, "optCgSelectXx").text(), QStringLiteral("线性超高"));
        QCOMPARE(named<QRadioButton>(e.form, "optCgSelectPwx").text(), QStringLiteral("三次抛物线"));
        QVERIFY(named<QRadioButton>(e.form, "optCgSelectXx").isChecked());
        QCOMPARE(named<XPButton>(e.form, "cmdCgSelectOk").Caption(), QStringLiteral("确 定"));
        QCOMPARE(named<XPButton>(e.form, "cmdCgSelectCancel").Caption(), QStringLiteral("取 消"));
    }

    void theTypeIsStoredAndItsEditorOpens()
    {
        for (const auto& [option, text] : {std::pair{"optCgSelectXx", "线性"}, {"optCgSelectPwx", "三次抛物线"}}) {
            const Opened<frmSelectCg> e{{kSettings, kUnset}};
            pick(e.form, option);
            useModal([&] { click(e.form, "cmdCgSelectOk"); },
                     [](QWidget& window) { QCOMPARE(window.objectName(), "frmCg"); });
            QVERIFY(!e.form.isVisible());
            QCOMPARE(gCgType, text);
            QCOMPARE(e.folder.text(kSettings), "未设置\r\n" + std::string(text) + "\r\n未设置\r\n未设置\r\n未设置\r\n");
        }
    }

    void cancelStoresNoType()
    {
        const Opened<frmSelectCg> e{{kSettings, kUnset}};
        click(e.form, "cmdCgSelectCancel");
        QVERIFY(!e.form.isVisible());
        QCOMPARE(gCgType, "");
        QCOMPARE(e.folder.text(kSettings), kUnset);
    }

    /// The chosen text stays in gCgType until the next load, and elevations beside the centre fail on it.
    void theChosenTypeIsNoNumberUntilTheNextLoad()
    {
        const Opened<frmSelectCg> e{{kSettings, kUnset}};
        gSqxLc = {0, 50, 100}, gSqxGc = {10, 10, 10}, gSqxR = {0, 0, 0}, gSqxCount = 2;
        useModal([&] { click(e.form, "cmdCgSelectOk"); }, [](QWidget&) {});
        QCOMPARE(gCgType, "线性");
        QCOMPARE(ElevationAt(10, 0), 10.0);
        try {
            ElevationAt(10, 1);
            QFAIL("no error");
        } catch (const RunTimeError& error) {
            QCOMPARE(error.number(), RunTimeError::TypeMismatch);
        }
    }

    // frmBpjs

    void controlsOfTheGradeCounts()
    {
        const Opened<frmBpjs> e{{kSettings, kSet}};
        QCOMPARE(e.form.windowTitle(), QStringLiteral("最大边坡级数"));
        for (const auto* label :
             {"填方最大边坡级数(1～5)", "挖方最大边坡级数(1～10)", "挖方边坡限制高度",
              "(对应图纸上>N米但<M米不设平台中的M，如>10米但是<12米时不设置平台则输入12，没有则无需输入)"})
            QVERIFY2(hasLabel(e.form, label), label);
        QCOMPARE(named<XPButton>(e.form, "cmdBpjsOk").Caption(), QStringLiteral("确 定"));
        QCOMPARE(named<XPButton>(e.form, "cmdPdjsCancel").Caption(), QStringLiteral("取 消"));
        QCOMPARE(textOf(e.form, "txtTfJs"), "2");
        QCOMPARE(textOf(e.form, "txtWfJs"), "3");
        QCOMPARE(textOf(e.form, "txtXzcs"), "12");
    }

    void unsetLinesLeaveTheirBoxEmpty()
    {
        const Opened<frmBpjs> e{{kSettings, "x\r\ny\r\n未设置\r\n4\r\n未设置\r\n"}};
        QCOMPARE(textOf(e.form, "txtTfJs"), "");
        QCOMPARE(textOf(e.form, "txtWfJs"), "4");
        QCOMPARE(textOf(e.form, "txtXzcs"), "");
    }

    void keysOfTheGradeCounts()
    {
        for (const bool ctrl : {false, true}) {
            const Opened<frmBpjs> e{{kSettings, kUnset}};
            platform().keyIsDown = [=](int held) { return ctrl && held == 17; };
            QTest::keyClicks(&named<QLineEdit>(e.form, "txtTfJs"), "a0.-678912345");
            QTest::keyClicks(&named<QLineEdit>(e.form, "txtWfJs"), "a.-0123456789");
            QTest::keyClicks(&named<QLineEdit>(e.form, "txtXzcs"), "a-1.5");
            QCOMPARE(textOf(e.form, "txtTfJs"), "12345");
            QCOMPARE(textOf(e.form, "txtWfJs"), "0123456789");
            QCOMPARE(textOf(e.form, "txtXzcs"), ctrl ? "a-1.5" : "1.5");
            for (const auto* box : {"txtTfJs", "txtWfJs", "txtXzcs"}) {
                const QString before = textOf(e.form, box);
                QTest::keyClick(&named<QLineEdit>(e.form, box), Qt::Key_Backspace);
                QCOMPARE(textOf(e.form, box).size(), before.size() - 1);
            }
        }
    }

    void aPasteIntoAGradeCountIsCancelledToo()
    {
        const Opened<frmBpjs> e{{kSettings, kUnset}};
        platform().keyIsDown = [](int held) { return held == 17; };
        QGuiApplication::clipboard()->setText(QStringLiteral("3"));
        for (const auto* box : {"txtTfJs", "txtWfJs"}) {
            QTest::keyClick(&named<QLineEdit>(e.form, box), Qt::Key_V, Qt::ControlModifier);
            QCOMPARE(textOf(e.form, box), "");
        }
    }

    void aCountAboveItsLimitIsClearedAndTheFocusComesBack()
    {
        const Opened<frmBpjs> e{{kSettings, kUnset}};
        auto& fill = named<QLineEdit>(e.form, "txtTfJs");
        auto& cut = named<QLineEdit>(e.form, "txtWfJs");
        fill.setFocus();
        QTest::keyClicks(&fill, "11");
        QTest::keyClick(&fill, Qt::Key_Tab);
        QCOMPARE(e.dialogs.messages, (std::vector<Msg>{{"填方最大坡度级数不能大于5！", "注意", Icon::Exclamation}}));
        QCOMPARE(fill.text(), "");
        QVERIFY(fill.hasFocus());

        QTest::keyClicks(&fill, "5");
        QTest::keyClick(&fill, Qt::Key_Tab);
        QVERIFY(cut.hasFocus());
        QTest::keyClicks(&cut, "11");
        QTest::mouseClick(&named<XPButton>(e.form, "cmdPdjsCancel"), Qt::LeftButton);
        QCOMPARE(e.dialogs.last(), (Msg{"挖方最大坡度级数不能大于10！", "注意", Icon::Exclamation}));
        QCOMPARE(cut.text(), "");
        QCOMPARE(e.dialogs.messages.size(), 2u);
    }

    /// The release of the click that left the box goes to the message.
    void aButtonDoesNotStayPressedAfterARefusalOnLeavingABox()
    {
        for (const auto* name : {"cmdBpjsOk", "cmdPdjsCancel"}) {
            Opened<frmBpjs> e{{kSettings, kUnset}};
            auto& cut = named<QLineEdit>(e.form, "txtWfJs");
            auto& button = named<XPButton>(e.form, name);
            cut.setFocus();
            QTest::keyClicks(&cut, "11");
            QWidget message;
            e.dialogs.onBox = [&] { QTest::mouseRelease(&message, Qt::LeftButton); };
            QTest::mousePress(&button, Qt::LeftButton);
            QCOMPARE(e.dialogs.messages.size(), 1u);
            QVERIFY(!button.Pressed());
            QVERIFY(cut.hasFocus());
            QTest::mouseClick(&button, Qt::LeftButton);  // and clicks as ever
            QCOMPARE(e.form.isVisible(), QByteArray(name) == "cmdBpjsOk");
            QVERIFY(!button.Pressed());
        }
    }

    void fiveAndTenPassAndSoDoesAnEmptyBox()
    {
        const Opened<frmBpjs> e{{kSettings, kUnset}};
        auto& fill = named<QLineEdit>(e.form, "txtTfJs");
        fill.setFocus();
        QTest::keyClick(&fill, Qt::Key_Tab);
        QTest::keyClick(e.form.focusWidget(), Qt::Key_Backtab);
        QTest::keyClicks(&fill, "5");
        QTest::keyClick(&fill, Qt::Key_Tab);
        QTest::keyClicks(e.form.focusWidget(), "10");
        QTest::keyClick(e.form.focusWidget(), Qt::Key_Tab);
        QVERIFY(e.dialogs.messages.empty());
        QCOMPARE(e.form.focusWidget()->objectName(), "txtXzcs");
    }

    void closingWithACountAboveItsLimitSaysNothing()
    {
        Opened<frmBpjs> e{{kSettings, kUnset}};
        auto& fill = named<QLineEdit>(e.form, "txtTfJs");
        fill.setFocus();
        QTest::keyClicks(&fill, "11");
        e.form.close();
        QVERIFY(!e.form.isVisible());
        QVERIFY(e.dialogs.messages.empty());
    }

    void enterGoesToTheNextFieldAndSelectsIt()
    {
        const Opened<frmBpjs> e{{kSettings, kSet}};
        named<QLineEdit>(e.form, "txtTfJs").setFocus();
        QTest::keyClick(e.form.focusWidget(), Qt::Key_Return);
        auto& cut = named<QLineEdit>(e.form, "txtWfJs");
        QVERIFY(cut.hasFocus());
        QCOMPARE(cut.selectedText(), "3");
        QTest::keyClick(e.form.focusWidget(), Qt::Key_Return);
        QVERIFY(named<QLineEdit>(e.form, "txtXzcs").hasFocus());
        QTest::keyClick(e.form.focusWidget(), Qt::Key_Return);
        QCOMPARE(e.form.focusWidget()->objectName(), "cmdBpjsOk");
    }

    void okAsksForBothCounts()
    {
        const Opened<frmBpjs> e{{kSettings, kUnset}};
        click(e.form, "cmdBpjsOk");
        QCOMPARE(e.dialogs.last(), (Msg{"请输入填方最大边坡级数！", "注意", Icon::Exclamation}));
        QCOMPARE(e.form.focusWidget()->objectName(), "txtTfJs");
        type(e.form, "txtTfJs", "3");
        click(e.form, "cmdBpjsOk");
        QCOMPARE(e.dialogs.last(), (Msg{"请输入挖方最大边坡级数！", "注意", Icon::Exclamation}));
        QCOMPARE(e.form.focusWidget()->objectName(), "txtWfJs");
        type(e.form, "txtWfJs", "0");
        click(e.form, "cmdBpjsOk");
        QVERIFY(!e.form.isVisible());
        QCOMPARE(e.folder.text(kSettings), "未设置\r\n未设置\r\n3\r\n0\r\n0\r\n");
        QCOMPARE(e.dialogs.messages.size(), 2u);
    }

    void okLeavesTheSlopeFilesAlone()
    {
        const Opened<frmBpjs> e{{kSettings, kSet}, {"左幅填方参数.txt", "1,2,3\r\n"}};
        type(e.form, "txtTfJs", "4");
        click(e.form, "cmdBpjsOk");
        QCOMPARE(e.folder.text(kSettings), "交点法\r\n线性\r\n4\r\n3\r\n12\r\n");
        QCOMPARE(e.folder.text("左幅填方参数.txt"), "1,2,3\r\n");
    }

    void cancelStoresNoCounts()
    {
        const Opened<frmBpjs> e{{kSettings, kSet}};
        type(e.form, "txtTfJs", "4");
        click(e.form, "cmdPdjsCancel");
        QVERIFY(!e.form.isVisible());
        QCOMPARE(e.folder.text(kSettings), kSet);
    }
};

VM_QT_TEST(tst_Wizard)
#include "tst_Wizard.moc"
