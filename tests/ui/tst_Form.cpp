// What all forms have in common: life, keys, boxes, pick lists.

#include "base/Numbers.h"
#include "base/RunTimeError.h"
#include "controls/XPButton.h"
#include "support/QtTests.h"
#include "support/ScriptedDialogs.h"
#include "ui/Form.h"
#include "ui/MSFlexGrid.h"
#include "ui/Platform.h"
#include "ui/Theme.h"

#include <QAbstractItemView>
#include <QCheckBox>
#include <QClipboard>
#include <QDropEvent>
#include <QMimeData>
#include <QPointer>
#include <QSignalSpy>
#include <QTableView>
#include <QToolTip>
#include <QVBoxLayout>
#include <QtTest>

namespace {

class frmSample : public Form {
public:
    QStringList log;
    bool stays = false;            // answer of QueryUnload
    bool sendsTab = false;         // Enter sends Tab
    QString swallows;              // characters the preview takes away
    std::function<void()> onLoad;  // runs at the end of Form_Load

    QLineEdit* first = control<QLineEdit>("txtFirst");
    QLineEdit* second = control<QLineEdit>("txtSecond");
    QCheckBox* check = control<QCheckBox>("cheOne", QStringLiteral("夹角"));
    PickList* list = control<PickList>("comOne");
    MSFlexGrid* grid = control<MSFlexGrid>("Msfg");
    XPButton* button = control<XPButton>("butOne", QStringLiteral("计 算"));

    frmSample() : Form("frmSample", "样例")
    {
        auto* column = new QVBoxLayout(this);
        for (QWidget* each : std::initializer_list<QWidget*>{first, second, check, list, grid, button})
            column->addWidget(each);
        grid->setCols(3);
        grid->setRows(3);
        on(button, &XPButton::Click, [this] { log << "Click"; });
    }
    using Form::refuse, Form::showBox, Form::on;

    void Form_Load() override
    {
        log << "Load";
        if (onLoad) onLoad();
    }
    bool QueryUnload() override
    {
        log << "Query";
        return !stays;
    }
    void Form_Unload() override { log << "Unload"; }
    void Form_Resize() override
    {
        if (isVisible()) log << "Resize";
    }
    bool Form_KeyPress(int keyAscii) override
    {
        log << QString("Key %1").arg(keyAscii);
        if (sendsTab && keyAscii == 13) return enterSendsTab();
        return swallows.contains(QChar(keyAscii));
    }
    void open()
    {
        show();
        [[maybe_unused]] const bool shown = QTest::qWaitForWindowActive(this);
        log.clear();
    }
    QStringList take() { return std::exchange(log, {}); }
};

void commit(QWidget* target, const QString& text)
{
    QInputMethodEvent event;
    event.setCommitString(text);
    QApplication::sendEvent(target, &event);
}

/// Ctrl is held, and the process does not end, until this goes.
struct Machine {
    Platform before = platform();
    bool ctrl = false;
    QList<int> ends;

    Machine()
    {
        platform().keyIsDown = [this](int key) { return key == 17 && ctrl; };
        platform().endProcess = [this](int code) { ends << code; };
    }
    ~Machine() { platform() = before; }
};

bool isX(int key) { return key == 'x' || key == 8; }

}  // namespace

class tst_Form : public QObject {
    Q_OBJECT
private slots:
    void initTestCase() { applyTheme(*qApp); }

    void controlsBearTheirGivenNames()
    {
        frmSample form;
        QCOMPARE(form.objectName(), "frmSample");
        QCOMPARE(form.windowTitle(), "样例");
        QCOMPARE(form.findChild<QLineEdit*>("txtSecond"), form.second);
    }

    void modalLife()
    {
        ScriptedDialogs dialogs;
        frmSample form;
        QTimer::singleShot(0, &form, [&] {
            QVERIFY(form.isVisible());
            QVERIFY(form.isModal());
            form.log << "seen";
            form.unload();
        });
        form.showModal();
        QVERIFY(!form.isVisible());
        QCOMPARE(form.take(), (QStringList{"Load", "seen", "Unload"}));  // closed by program: no question
    }
    void closeBoxAndEscAskFirst()
    {
        for (const bool byEsc : {false, true}) {
            frmSample form;
            form.open();
            form.stays = true;
            const auto leave = [&] {
                if (byEsc)
                    QTest::keyClick(form.first, Qt::Key_Escape);
                else
                    form.close();
            };
            leave();
            QVERIFY(form.isVisible());
            QCOMPARE(form.take().filter(QRegularExpression("Query|Unload")), QStringList{"Query"});
            form.stays = false;
            leave();
            QVERIFY(!form.isVisible());
            QCOMPARE(form.take().filter(QRegularExpression("Query|Unload")), (QStringList{"Query", "Unload"}));
        }
    }
    void escLeavesFromEveryControl()
    {
        for (const char* name : {"txtFirst", "cheOne", "comOne", "Msfg", "butOne"}) {
            frmSample form;
            form.open();
            auto* control = form.findChild<QWidget*>(name);
            control->setFocus();
            QTest::keyClick(control, Qt::Key_Escape);
            QVERIFY2(!form.isVisible(), name);
            QCOMPARE(form.take(), (QStringList{"Key 27", "Query", "Unload"}));
        }
    }
    void heldEscDoesNotLeave()
    {
        frmSample form;
        form.open();
        QKeyEvent repeated(QEvent::KeyPress, Qt::Key_Escape, {}, "\x1b", true);
        QApplication::sendEvent(form.first, &repeated);
        QVERIFY(form.isVisible());
    }
    void unloadFromAHandlerOfItsOwnClosing()
    {
        frmSample form;
        form.open();
        form.unload();
        form.unload();
        QCOMPARE(form.take(), QStringList{"Unload"});
    }
    void firstSizeShowsTheWholeContent()
    {
        frmSample form;
        form.grid->setCols(9);
        form.open();
        QVERIFY(form.width() >= form.sizeHint().width() || form.width() >= form.screen()->availableSize().width() - 16);
        form.resize(900, 500);
        QCOMPARE(form.take(), QStringList{"Resize"});
    }

    void enterDoesOnlyWhatThePreviewSays()
    {
        frmSample form;
        form.open();
        form.first->setFocus();
        QTest::keyClick(form.first, Qt::Key_Return);
        QVERIFY(form.isVisible());
        QVERIFY(form.first->hasFocus());
        QCOMPARE(form.take(), QStringList{"Key 13"});
    }
    void previewSeesEachKeyOnceBeforeItsControl()
    {
        frmSample form;
        form.open();
        form.first->setFocus();
        QTest::keyClicks(form.first, "a1");
        QTest::keyClick(form.first, Qt::Key_Backspace);
        QTest::keyClick(form.first, Qt::Key_Left);  // types nothing
        QTest::keyClick(form.first, Qt::Key_Delete);
        QTest::keyClick(form.first, Qt::Key_F5);
        QTest::keyClick(form.first, Qt::Key_Tab);
        QCOMPARE(form.take(), (QStringList{"Key 97", "Key 49", "Key 8"}));
        QCOMPARE(form.first->text(), "");
        form.grid->setFocus();
        QTest::keyClick(form.grid, Qt::Key_Return);  // the grid hands it on to the form: still one key
        QTest::keyClick(form.grid, Qt::Key_Return);
        QCOMPARE(form.take(), (QStringList{"Key 13", "Key 13"}));
        form.list->setFocus();
        QTest::keyClicks(form.list, "b");
        QCOMPARE(form.take(), QStringList{"Key 98"});
        QCOMPARE(form.list->Text(), "b");
    }
    void previewMaySwallow()
    {
        frmSample form;
        form.open();
        form.swallows = "a";
        QTest::keyClicks(form.first, "abab");
        QCOMPARE(form.first->text(), "bb");
    }
    void previewSeesEachCommittedCharacter()
    {
        frmSample form;
        form.open();
        form.first->setFocus();
        form.swallows = "坏";
        commit(form.first, "好坏1");
        QCOMPARE(form.first->text(), "好1");
        QCOMPARE(form.take(), (QStringList{"Key 22909", "Key 22351", "Key 49"}));
    }
    void otherWindowsAreNotPreviewed()
    {
        frmSample below, above;
        below.open();
        above.open();
        QTest::keyClicks(above.first, "a");
        QCOMPARE(below.take(), QStringList{});
        QCOMPARE(above.take(), QStringList{"Key 97"});
    }
    void enterSendsTabAndSelectsTheText()
    {
        frmSample form;
        form.open();
        form.sendsTab = true;
        form.second->setText("123");
        form.second->deselect();
        form.first->setFocus();
        QTest::keyClick(form.first, Qt::Key_Return);
        QVERIFY(form.second->hasFocus());
        QCOMPARE(form.second->selectedText(), "123");
        setLocked(form.second, true);
        form.first->setFocus();
        QTest::keyClick(form.first, Qt::Key_Enter);
        QVERIFY(form.check->hasFocus());  // a locked box is passed over
    }
    void enterOnAButtonClicksFirstThenThePreviewRuns()
    {
        frmSample form;
        form.open();
        form.sendsTab = true;
        form.button->setFocus();
        QTest::keyClick(form.button, Qt::Key_Return);
        QCOMPARE(form.take(), (QStringList{"Click", "Key 13"}));
        QVERIFY(form.first->hasFocus());
    }
    void enterOnAButtonThatClosesTheFormEndsThere()
    {
        frmSample form;
        connect(form.button, &XPButton::Click, &form, [&] { form.unload(); });
        form.open();
        form.button->setFocus();
        QTest::keyClick(form.button, Qt::Key_Return);
        QCOMPARE(form.take(), (QStringList{"Click", "Unload"}));
    }

    void refusalShowsItsBoxThenFocusesItsField()
    {
        ScriptedDialogs dialogs;
        frmSample form;
        form.open();
        form.first->setFocus();
        const Msg msg{.text = "偏距不能为空！", .title = "错误", .icon = Icon::Exclamation};
        dialogs.onBox = [&] { QVERIFY(form.first->hasFocus()); };
        form.refuse({msg, "txtSecond"});
        QCOMPARE(dialogs.last(), msg);
        QVERIFY(form.second->hasFocus());
        dialogs.onBox = {};
        form.refuse({msg, ""});
        QVERIFY(form.second->hasFocus());
        form.showBox("数据保存成功！", "", Icon::Information);
        QCOMPARE(dialogs.last(), (Msg{.text = "数据保存成功！", .title = "", .icon = Icon::Information}));
    }

    void anErrorThatLeavesAHandlerEndsTheProcess()
    {
        ScriptedDialogs dialogs;
        Machine machine;
        frmSample form;
        form.on(form.check, &QCheckBox::clicked, [](bool) { throw RunTimeError(RunTimeError::TypeMismatch); });
        form.open();
        form.check->click();
        QCOMPARE(dialogs.messages.size(), 1u);
        QCOMPARE(dialogs.last().text, "实时错误 '13'：\n\n类型不匹配");
        QCOMPARE(dialogs.last().icon, Icon::Critical);
        QCOMPARE(machine.ends, QList<int>{1});
    }
    void anErrorInLoadEndsTheProcessUnseen()
    {
        ScriptedDialogs dialogs;
        Machine machine;
        frmSample form;
        form.onLoad = [] { throw RunTimeError(RunTimeError::Subscript); };
        form.showModal();
        QVERIFY(!form.isVisible());
        QCOMPARE(dialogs.last().text, "实时错误 '9'：\n\n下标越界");
        QCOMPARE(machine.ends, QList<int>{1});
    }
    void handlersMayTakeFewerArgumentsThanTheSignal()
    {
        frmSample form;
        int toggled = 0;
        bool state = false;
        form.on(form.check, &QCheckBox::toggled, [&] { ++toggled; });
        form.on(form.check, &QCheckBox::toggled, [&](bool on) { state = on; });
        form.check->toggle();
        QCOMPARE(toggled, 1);
        QVERIFY(state);
    }

    void filterKeepsKeysOfItsSet()
    {
        Machine machine;
        QLineEdit box;
        filterKeys(&box, IsSignedDecimalKey);
        QTest::keyClicks(&box, "a-1,2 .x5e");
        QCOMPARE(box.text(), "-12.5");
        QTest::keyClick(&box, Qt::Key_Backspace);
        QTest::keyClick(&box, Qt::Key_Home);
        QTest::keyClick(&box, Qt::Key_Delete);
        QCOMPARE(box.text(), "12.");
        filterKeys(&box, IsUnsignedDecimalKey);  // replaces the first
        QTest::keyClicks(&box, "-7");
        QCOMPARE(box.text(), "712.");
    }
    void filterLooksAtEachCommittedCharacter()
    {
        Machine machine;
        QLineEdit box;
        filterKeys(&box, IsUnsignedDecimalKey);
        commit(&box, "1二2.x3");
        QCOMPARE(box.text(), "12.3");
        commit(&box, "十");
        QCOMPARE(box.text(), "12.3");
        commit(&box, "45");
        QCOMPARE(box.text(), "12.345");
    }
    void aSwallowedCharacterShowsForTwoSecondsWhatIsAllowed()
    {
        const auto told = [] { return QToolTip::isVisible() ? QToolTip::text() : QString(); };
        const std::pair<bool (*)(int), const char*> filters[] = {
            {IsIntegerKey, "只能输入数字"},
            {IsUnsignedDecimalKey, "只能输入数字和小数点"},
            {IsSignedDecimalKey, "只能输入数字、小数点和负号"},
            {[](int key) { return key >= '1' && key <= '5'; }, "只能输入 1～5"},
        };
        Machine machine;
        QLineEdit box;
        box.show();
        for (const auto& [keep, words] : filters) {
            filterKeys(&box, keep);
            QToolTip::hideText();  // takes its time
            QTRY_COMPARE(told(), "");
            QTest::keyClicks(&box, "3");
            for (const auto key : {Qt::Key_Return, Qt::Key_Tab, Qt::Key_Left, Qt::Key_F3, Qt::Key_Escape})
                QTest::keyClick(&box, key);
            QTest::keyClick(&box, Qt::Key_A, Qt::ControlModifier);
            QCOMPARE(told(), "");
            QTest::keyClicks(&box, "x");
            QCOMPARE(told(), words);
            QToolTip::hideText();
            QTRY_COMPARE(told(), "");
            commit(&box, "二");
            QCOMPARE(told(), words);
        }
        QElapsedTimer shown;
        shown.start();
        QTest::keyClicks(&box, "x");
        QTRY_COMPARE_WITH_TIMEOUT(told(), "", 4000);
        QVERIFY2(shown.elapsed() > 1500, qPrintable(QString::number(shown.elapsed())));
    }
    void aFilterMayBringItsOwnWords()
    {
        Machine machine;
        QLineEdit box;
        box.show();
        int asked = 0;
        filterKeys(
            &box, [&](int) { return ++asked < 0; }, WhileCtrl::Filtered, QStringLiteral("只能输入英文字母和数字"));
        QTest::keyClicks(&box, "-");
        QCOMPARE(QToolTip::text(), "只能输入英文字母和数字");
        QCOMPARE(asked, 1);  // what answers with a sound is not asked about characters that nobody typed
        QToolTip::hideText();
        QTRY_VERIFY(!QToolTip::isVisible());
        box.setReadOnly(true);
        QTest::keyClicks(&box, "-");
        QVERIFY(!QToolTip::isVisible());
    }
    void heldCtrlLetsAnythingPass()
    {
        Machine machine;
        QLineEdit box;
        filterKeys(&box, IsUnsignedDecimalKey);
        machine.ctrl = true;
        QTest::keyClicks(&box, "a-b");
        commit(&box, "中");
        QCOMPARE(box.text(), "a-b中");
        machine.ctrl = false;
        QTest::keyClicks(&box, "c");
        QCOMPARE(box.text(), "a-b中");
    }
    void aPasteIsNotFiltered()
    {
        QLineEdit box;  // with the machine's own key state
        filterKeys(&box, IsUnsignedDecimalKey);
        QGuiApplication::clipboard()->setText("12-3 K");
        QTest::keyClick(&box, Qt::Key_V, Qt::ControlModifier);
        QCOMPARE(box.text(), "12-3 K");
    }
    /// Every spreadsheet cell on the clipboard ends with a line end.
    void OfAPasteOnlyTheFirstLineGoesIn_data()
    {
        QTest::addColumn<QString>("pasted");
        QTest::addColumn<QString>("kept");
        QTest::newRow("plain") << "12.5"
                               << "12.5";
        for (const auto* end : {"\n", "\r\n", "\r", "\u2028", "\u2029"}) {
            const auto name = QByteArray(end).toHex();
            QTest::newRow("a cell " + name) << "12" + QString(end) << "12";
            QTest::newRow("two " + name) << "12" + QString(end) + "34"
                                         << "12";
            QTest::newRow("a line end first " + name) << QString(end) + "34"
                                                      << "";
        }
    }
    void OfAPasteOnlyTheFirstLineGoesIn()
    {
        QFETCH(QString, pasted);
        QFETCH(QString, kept);
        QGuiApplication::clipboard()->setText(pasted);
        QMimeData dragged;
        dragged.setText(pasted);
        const std::function<void(QLineEdit*)> ways[] = {
            [](QLineEdit* box) { QTest::keyClick(box, Qt::Key_V, Qt::ControlModifier); },
            [](QLineEdit* box) { QTest::keyClick(box, Qt::Key_Insert, Qt::ShiftModifier); },
            [](QLineEdit* box) { box->paste(); },  // from its menu
            [&](QLineEdit* box) {
                const QRect cursor = box->inputMethodQuery(Qt::ImCursorRectangle).toRect();
                QDragEnterEvent over(cursor.center(), Qt::CopyAction, &dragged, Qt::LeftButton, {});
                QApplication::sendEvent(box, &over);
                QDropEvent drop(cursor.center(), Qt::CopyAction, &dragged, Qt::LeftButton, {});
                QApplication::sendEvent(box, &drop);
            },
            [&](QLineEdit* box) { commit(box, pasted); },
        };
        frmSample form;
        form.open();
        filterKeys(form.second, IsSignedDecimalKey, WhileCtrl::Passes);
        platform().keyIsDown = [](int key) { return key == 17; };
        int number = 0;
        for (const auto& way : ways) {
            ++number;
            for (auto* box : {form.first, form.second, form.list->lineEdit()})
                for (const auto& [before, behind] : {std::pair{"", ""}, {"7", ""}, {"7", "9"}}) {
                    box->setText(QString(before) + behind);
                    box->setFocus();
                    box->setCursorPosition(static_cast<int>(strlen(before)));
                    way(box);
                    QVERIFY2(box->text() == before + kept + behind,
                             qPrintable(QString("way %1: %2").arg(number).arg(box->text())));
                }
        }
        platform().keyIsDown = [](int) { return false; };
        form.second->setText("");
        commit(form.second, pasted);  // never 1234, also where the filter takes the line end away
        QCOMPARE(form.second->text(), kept);
    }
    void ACutPasteIsUndoneAsAnyOther()
    {
        frmSample form;
        form.open();
        form.first->setFocus();
        QTest::keyClicks(form.first, "7");
        QGuiApplication::clipboard()->setText("12\r\n");
        QTest::keyClick(form.first, Qt::Key_V, Qt::ControlModifier);
        QCOMPARE(form.first->text(), "712");
        QTest::keyClick(form.first, Qt::Key_Z, Qt::ControlModifier);
        QCOMPARE(form.first->text(), "7");
    }
    void textsOfTheProgramStayWhole()
    {
        frmSample form;
        form.open();
        form.first->setText("over\nunder");
        QCOMPARE(form.first->text(), "over\nunder");
        form.first->setFocus();
        form.first->end(false);
        QTest::keyClicks(form.first, "x");
        QCOMPARE(form.first->text(), "over\nunderx");
        const QString longText(40000, u'1');
        form.first->setText(longText);
        QCOMPARE(form.first->text(), longText);
    }
    void theTabKeyStopsAtTheChosenOption()
    {
        struct frmOptions : Form {
            QLineEdit* box = control<QLineEdit>("txtOne");
            QRadioButton* first = control<QRadioButton>("optFirst");
            QRadioButton* second = control<QRadioButton>("optSecond");
            frmOptions() : Form("frmOptions", "样例")
            {
                second->setChecked(true);
                auto* column = new QVBoxLayout(this);
                for (QWidget* each : std::initializer_list<QWidget*>{box, first, second}) column->addWidget(each);
            }
        } form;
        form.show();
        QVERIFY(QTest::qWaitForWindowActive(&form));
        for (auto* chosen : {form.second, form.first}) {
            chosen->setChecked(true);
            for (const auto key : {Qt::Key_Tab, Qt::Key_Backtab}) {
                form.box->setFocus();
                QTest::keyClick(form.box, key);
                QCOMPARE(form.focusWidget(), chosen);
            }
        }
    }
    void someFiltersHoldWhileCtrlIsHeldToo()
    {
        Machine machine;
        machine.ctrl = true;
        QLineEdit box;
        filterKeys(&box, isX, WhileCtrl::Filtered);
        QTest::keyClicks(&box, "axb");
        QGuiApplication::clipboard()->setText("abc");
        QTest::keyClick(&box, Qt::Key_V, Qt::ControlModifier);
        QCOMPARE(box.text(), "x");
    }
    void previewComesBeforeTheFilter()
    {
        Machine machine;
        frmSample form;
        form.open();
        filterKeys(form.first, isX);
        form.swallows = "y";
        QTest::keyClicks(form.first, "xyz");
        commit(form.first, "yxz");
        QCOMPARE(form.first->text(), "xx");
        QCOMPARE(form.take(), (QStringList{"Key 120", "Key 121", "Key 122", "Key 121", "Key 120", "Key 122"}));
    }

    void lockedBoxesAreGreyAndPassedOver()
    {
        QLineEdit box;
        box.setText("1");
        setLocked(&box, true);
        QTest::keyClicks(&box, "2");
        QCOMPARE(box.text(), "1");
        QVERIFY(box.isReadOnly());
        QVERIFY(!(box.focusPolicy() & Qt::TabFocus));
        const QColor grey = box.palette().color(QPalette::Base);
        QVERIFY(grey != QColor(Qt::white));
        setLocked(&box, false);
        QTest::keyClicks(&box, "2");
        QCOMPARE(box.text(), "12");
        QVERIFY(box.focusPolicy() & Qt::TabFocus);
        QCOMPARE(box.palette().color(QPalette::Base), QColor(Qt::white));
    }

    void nothingIsPickedAtFirst()
    {
        PickList list;
        list.setText("中桩");
        QSignalSpy clicks(&list, &PickList::Click);
        for (const auto* item : {"中桩", "左边桩", "右边桩"}) list.AddItem(item);
        QCOMPARE(list.ListIndex(), -1);
        QCOMPARE(list.Text(), "中桩");
        QCOMPARE(clicks.count(), 0);
    }
    void pickingClicksAlsoTheSameItemAgain()
    {
        PickList list;
        for (const auto* item : {"中桩", "左边桩", "右边桩"}) list.AddItem(item);
        QStringList picked;
        connect(&list, &PickList::Click, &list,
                [&] { picked << QString("%1 %2").arg(list.ListIndex()).arg(list.Text()); });
        list.show();
        QVERIFY(QTest::qWaitForWindowActive(&list));
        QTest::keyClick(&list, Qt::Key_Down);
        QTest::keyClick(&list, Qt::Key_Down);
        QCOMPARE(picked, (QStringList{"0 中桩", "1 左边桩"}));
        for (int turn = 0; turn < 2; ++turn) {  // the second time it is picked already
            list.showPopup();
            QTRY_VERIFY(list.view()->isVisible());
            QTest::keyClick(list.view(), Qt::Key_End);
            QTest::keyClick(list.view(), Qt::Key_Return);
            QTRY_VERIFY(!list.view()->isVisible());
        }
        QCOMPARE(picked.mid(2), (QStringList{"2 右边桩", "2 右边桩"}));
        list.setText("中桩");
        QCOMPARE(list.ListIndex(), -1);
        QCOMPARE(picked.size(), 4);
    }
    void theWheelOverAPickListPicksNothing()
    {
        PickList list;
        for (const auto* item : {"中桩", "左边桩", "右边桩"}) list.AddItem(item);
        list.setText("中桩");
        QSignalSpy clicks(&list, &PickList::Click);
        QSignalSpy changes(&list, &PickList::Change);
        list.show();
        QVERIFY(QTest::qWaitForWindowActive(&list));
        for (QWidget* under : {static_cast<QWidget*>(&list), static_cast<QWidget*>(list.lineEdit())})
            for (const int turned : {-120, 120})
                for (const Qt::KeyboardModifiers held : {Qt::NoModifier, Qt::ControlModifier}) {
                    QWheelEvent wheel({5, 5}, under->mapToGlobal(QPointF(5, 5)), {}, {0, turned}, {}, held,
                                      Qt::NoScrollPhase, false);
                    QApplication::sendEvent(under, &wheel);
                    QVERIFY(!wheel.isAccepted());  // what stands beneath may scroll
                }
        QCOMPARE(clicks.count() + changes.count(), 0);
        QCOMPARE(list.ListIndex(), -1);
        QCOMPARE(list.Text(), "中桩");
        list.showPopup();
        QTRY_VERIFY(list.view()->isVisible());
        QTest::keyClick(list.view(), Qt::Key_Down);
        QTest::keyClick(list.view(), Qt::Key_Return);
        QCOMPARE(clicks.count(), 1);  // the open list picks
    }
    void typingIsAChangeAndNoPick()
    {
        PickList list;
        for (const auto* item : {"中桩", "左边桩"}) list.AddItem(item);
        list.setText("中桩");
        QSignalSpy clicks(&list, &PickList::Click);
        int changes = 0;
        connect(&list, &PickList::Change, &list, [&] {
            ++changes;
            list.setText("中桩");
        });
        list.show();
        QVERIFY(QTest::qWaitForWindowActive(&list));
        QTest::keyClicks(&list, "ab");
        QCOMPARE(changes, 2);
        QCOMPARE(list.Text(), "中桩");
        QTest::keyClick(&list, Qt::Key_Return);  // leaving a text that is an item's picks nothing
        list.clearFocus();
        QCOMPARE(clicks.count(), 0);
        QCOMPARE(list.ListIndex(), -1);
    }
};

VM_QT_TEST(tst_Form)
#include "tst_Form.moc"
