// The dialogs on Qt: real boxes and file dialogs, answered by keys and clicks.

#include "support/QtTests.h"
#include "ui/Desktop.h"
#include "ui/Platform.h"
#include "ui/QtDialogs.h"
#include "ui/Theme.h"

#include <QAbstractButton>
#include <QCloseEvent>
#include <QDialogButtonBox>
#include <QFileDialog>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QTemporaryDir>
#include <QVBoxLayout>
#include <QtTest>

#include <ctime>

namespace {

/// Runs once the modal window is up.
template <class Window, class Action>
void whenUp(Action action)
{
    auto* timer = new QTimer(qApp);
    QObject::connect(timer, &QTimer::timeout, timer, [timer, action] {
        auto* window = qobject_cast<Window*>(QApplication::activeModalWidget());
        if (!window || !window->isVisible()) return;
        timer->deleteLater();
        timer->stop();
        action(window);
    });
    timer->start(10);
}

Msg question(bool defaultIsYes)
{
    return {.text = "数据已改变，是否保存？",
            .title = "注意",
            .icon = Icon::Question,
            .buttons = Msg::YesNo,
            .preset = defaultIsYes ? Msg::Yes : Msg::No};
}

QAbstractButton* withText(QWidget* window, const QString& text)
{
    for (auto* button : window->findChildren<QAbstractButton*>())
        if (button->text() == text) return button;
    return nullptr;
}

}  // namespace

class tst_QtDialogs : public QObject {
    Q_OBJECT
    QtDialogs m_dialogs;
private slots:
    void initTestCase() { applyTheme(*qApp); }

    void iconsOfBoxes_data()
    {
        QTest::addColumn<int>("icon");
        QTest::addColumn<int>("shown");
        QTest::newRow("none") << int(Icon::None) << int(QMessageBox::NoIcon);
        QTest::newRow("information") << int(Icon::Information) << int(QMessageBox::Information);
        QTest::newRow("exclamation") << int(Icon::Exclamation) << int(QMessageBox::Warning);
        QTest::newRow("critical") << int(Icon::Critical) << int(QMessageBox::Critical);
        QTest::newRow("question") << int(Icon::Question) << int(QMessageBox::Question);
    }
    void iconsOfBoxes()
    {
        QFETCH(int, icon);
        QFETCH(int, shown);
        int seen = -1;
        whenUp<QMessageBox>([&](QMessageBox* box) {
            seen = box->icon();
            box->close();
        });
        m_dialogs.box({.text = "x", .title = "", .icon = static_cast<Icon>(icon)});
        QCOMPARE(seen, shown);
    }

    void aBoxShowsItsTextsPlainly()
    {
        QString text, title;
        QStringList buttons;
        whenUp<QMessageBox>([&](QMessageBox* box) {
            text = box->text();
            title = box->windowTitle();
            QCOMPARE(box->textFormat(), Qt::PlainText);
            for (auto* button : box->buttons()) buttons << button->text();
            QTest::keyClick(box, Qt::Key_Return);
        });
        QVERIFY(m_dialogs.box({.text = "<b>不是</b>粗体", .title = "注意", .icon = Icon::Exclamation}));
        QCOMPARE(text, "<b>不是</b>粗体");
        QCOMPARE(title, "注意");
        QCOMPARE(buttons, QStringList{"确定"});
    }

    void aBoxWithoutATitleShowsNoFileName()
    {
        QWidget below;  // and leaves the window that it stands over as it is
        auto* field = new QLineEdit(&below);
        below.show();
        QVERIFY(QTest::qWaitForWindowActive(&below));
        for (const QString title : {"", "注意"}) {
            QString shown, kept;
            whenUp<QMessageBox>([&](QMessageBox* box) {
                shown = box->windowHandle()->title();
                kept = box->windowTitle();
                box->close();
            });
            m_dialogs.box({.text = "数据保存成功！", .title = title.toStdString(), .icon = Icon::Information});
            QCOMPARE(kept, title);
            QCOMPARE(shown, title.isEmpty() ? UnseenTitle() : title);
            QVERIFY(!field->windowHandle());
        }
    }

    void questionsAreAnswered_data()
    {
        QTest::addColumn<bool>("defaultIsYes");
        QTest::addColumn<int>("key");
        QTest::addColumn<bool>("answer");
        QTest::newRow("Enter takes Yes") << true << int(Qt::Key_Return) << true;
        QTest::newRow("Enter takes No") << false << int(Qt::Key_Return) << false;
        QTest::newRow("Y is Yes") << false << int(Qt::Key_Y) << true;
        QTest::newRow("N is No") << true << int(Qt::Key_N) << false;
    }
    void questionsAreAnswered()
    {
        QFETCH(bool, defaultIsYes);
        QFETCH(int, key);
        QFETCH(bool, answer);
        QStringList buttons;
        whenUp<QMessageBox>([&](QMessageBox* box) {
            for (auto* button : box->buttons()) buttons << button->text();
            QTest::keyClick(box, static_cast<Qt::Key>(key));
        });
        QCOMPARE(m_dialogs.box(question(defaultIsYes)), answer);
        buttons.sort();
        QCOMPARE(buttons, (QStringList{"否(&N)", "是(&Y)"}));
    }
    void questionsTakeClicks()
    {
        for (const bool yes : {true, false}) {
            whenUp<QMessageBox>([&](QMessageBox* box) { withText(box, yes ? "是(&Y)" : "否(&N)")->click(); });
            QCOMPARE(m_dialogs.box({.text = "x", .title = "", .icon = Icon::Question, .buttons = Msg::YesNo}), yes);
        }
    }

    void escAndTheCloseBoxLeaveAQuestionStanding()
    {
        for (const bool yes : {true, false}) {
            whenUp<QMessageBox>([&](QMessageBox* box) {
                auto* button = withText(box, yes ? "否(&N)" : "是(&Y)");
                for (QWidget* on : {static_cast<QWidget*>(box), static_cast<QWidget*>(button)})
                    for (int i = 0; i < 2; ++i) QTest::keyClick(on, Qt::Key_Escape);
                QVERIFY(!box->close());
                box->windowHandle()->close();  // as the desktop asks it to
                box->reject();
                QTest::qWait(20);
                QVERIFY(box->isVisible());
                withText(box, yes ? "是(&Y)" : "否(&N)")->click();
            });
            QCOMPARE(m_dialogs.box(question(!yes)), yes);
        }
    }
    /// Enter held on the button that asks, Space, a letter or Alt and a letter: their repetitions answer nothing.
    void aHeldKeyLeavesAQuestionStanding_data()
    {
        QTest::addColumn<int>("key");
        QTest::addColumn<int>("with");
        QTest::newRow("Enter") << int(Qt::Key_Return) << 0;
        QTest::newRow("Enter of the number pad") << int(Qt::Key_Enter) << int(Qt::KeypadModifier);
        QTest::newRow("Space") << int(Qt::Key_Space) << 0;
        QTest::newRow("Esc") << int(Qt::Key_Escape) << 0;
        QTest::newRow("N") << int(Qt::Key_N) << 0;
        QTest::newRow("Y") << int(Qt::Key_Y) << 0;
        QTest::newRow("Alt+N") << int(Qt::Key_N) << int(Qt::AltModifier);
        QTest::newRow("Alt+Y") << int(Qt::Key_Y) << int(Qt::AltModifier);
    }
    void aHeldKeyLeavesAQuestionStanding()
    {
        QFETCH(int, key);
        QFETCH(int, with);
        for (const bool yes : {true, false}) {
            whenUp<QMessageBox>([&](QMessageBox* box) {
                const QString text = with || key > 0x7F ? QString() : QString(QChar(key)).toLower();
                const auto held = Qt::KeyboardModifiers(with);
                for (QWidget* on : {static_cast<QWidget*>(box), box->focusWidget()})
                    for (int i = 0; i < 5; ++i) {
                        QTest::simulateEvent(on, true, key, held, text, true);
                        QTest::simulateEvent(on, false, key, held, text, true);
                    }
                qt_handleKeyEvent(box->windowHandle(), QEvent::KeyPress, key, held, text, true);
                QTest::simulateEvent(box->focusWidget(), false, key, held, text, false);  // let go at last
                QTest::qWait(150);  // a button that a letter pressed would be clicked by now
                QVERIFY(box->isVisible());
                QTest::mouseClick(withText(box, yes ? "是(&Y)" : "否(&N)"), Qt::LeftButton);
            });
            QCOMPARE(m_dialogs.box(question(!yes)), yes);
        }
    }
    void aMessageIsClosedByAnyOfThese()
    {
        const std::function<void(QMessageBox*)> ways[] = {
            [](QMessageBox* box) { QTest::keyClick(box, Qt::Key_Escape); },
            [](QMessageBox* box) { QTest::keyClick(box, Qt::Key_Return); },
            [](QMessageBox* box) { box->close(); },
        };
        for (const auto& way : ways) {
            bool closed = false;
            whenUp<QMessageBox>([&](QMessageBox* box) {
                way(box);
                closed = !box->isVisible();
                if (!closed) withText(box, "确定")->click();
            });
            QVERIFY(m_dialogs.box({.text = "x", .title = ""}));
            QVERIFY(closed);
        }
    }
    void theFocusComesBackToTheFieldThatAsked()
    {
        QWidget window;
        auto* column = new QVBoxLayout(&window);
        QLineEdit first, second;
        column->addWidget(&first);
        column->addWidget(&second);
        window.show();
        second.setFocus();
        QVERIFY(QTest::qWaitForWindowActive(&window));
        QWidget other;
        for (const bool yes : {true, false}) {
            whenUp<QMessageBox>([&](QMessageBox* box) {
                QCOMPARE(box->parentWidget(), &window);
                other.show();  // as a desktop that activates some other window when the box goes
                other.activateWindow();
                withText(box, yes ? "是(&Y)" : "否(&N)")->click();
            });
            m_dialogs.box(question(yes));
            QTRY_COMPARE(QApplication::focusWidget(), &second);
            other.hide();
        }
    }

    void filtersOfDialogs()
    {
        QCOMPARE(nameFilters("(*.txt)|*.txt|"), QStringList{"(*.txt)"});
        QCOMPARE(nameFilters("(*.txt)|*.txt"), QStringList{"(*.txt)"});
        QCOMPARE(nameFilters("表格|*.xls;*.xlsx|(*.*)|*.*|"), (QStringList{"表格 (*.xls *.xlsx)", "(*.*)"}));
        QCOMPARE(nameFilters(""), QStringList{});
    }
    void opensAnExistingFile()
    {
        QTemporaryDir folder;
        const QString path = folder.filePath("坐标.txt");
        QFile(path).open(QIODevice::WriteOnly);
        QStringList filters;
        whenUp<QFileDialog>([&](QFileDialog* dialog) {
            filters = dialog->nameFilters();
            QCOMPARE(dialog->acceptMode(), QFileDialog::AcceptOpen);
            dialog->findChild<QLineEdit*>()->setText(path);
            QTest::keyClick(dialog->findChild<QLineEdit*>(), Qt::Key_Return);
        });
        QCOMPARE(m_dialogs.openFile("(*.txt)|*.txt|"), std::optional(path.toStdString()));
        QCOMPARE(filters, QStringList{"(*.txt)"});
    }
    void savesUnderTheNameJustAsGiven()
    {
        QTemporaryDir folder;
        const QString path = folder.filePath("成果");
        QFile(path).open(QIODevice::WriteOnly);  // stands already: no question
        whenUp<QFileDialog>([&](QFileDialog* dialog) {
            QCOMPARE(dialog->acceptMode(), QFileDialog::AcceptSave);
            dialog->findChild<QLineEdit*>()->setText(path);
            QTest::keyClick(dialog->findChild<QLineEdit*>(), Qt::Key_Return);
        });
        QCOMPARE(m_dialogs.saveFile("(*.xls)|*.xls|"), std::optional(path.toStdString()));  // no extension added
    }
    void aQuotationMarkIsACharacterOfTheName_data()
    {
        QTest::addColumn<QString>("name");
        for (const char* name : {"3\"管.xls", "\"成果\"", "a\"", "\"b.xls", "\"a\" \"b\"", "\""})
            QTest::newRow(name) << QString::fromUtf8(name);
    }
    void aQuotationMarkIsACharacterOfTheName()
    {
        QFETCH(QString, name);
        QTemporaryDir folder;
        const auto typeIt = [&](QFileDialog* dialog) {
            dialog->setDirectory(folder.path());
            auto* typed = dialog->findChild<QLineEdit*>();
            typed->clear();
            typed->insert(name);
            QTest::keyClick(typed, Qt::Key_Return);
            if (dialog->isVisible()) dialog->reject();
        };
        whenUp<QFileDialog>(typeIt);
        const std::string path = folder.filePath(name).toStdString();
        QCOMPARE(m_dialogs.saveFile("(*.xls)|*.xls|"), std::optional(path));
        QVERIFY(QFile(folder.filePath(name)).open(QIODevice::WriteOnly));
        whenUp<QFileDialog>(typeIt);
        QCOMPARE(m_dialogs.openFile("(*.*)|*.*|"), std::optional(path));
    }
    void aMissingFileWithAQuotationMarkOpensNoOther()
    {
        QTemporaryDir folder;
        QVERIFY(QFile(folder.filePath("b.txt")).open(QIODevice::WriteOnly));
        whenUp<QFileDialog>([&](QFileDialog* dialog) {
            dialog->setDirectory(folder.path());
            auto* typed = dialog->findChild<QLineEdit*>();
            typed->setFocus();
            QTRY_VERIFY(typed->hasFocus());
            typed->setText("a\"b.txt");
            whenUp<QMessageBox>([dialog](QMessageBox* told) {
                QVERIFY(told->text().contains("a\"b.txt"));
                told->close();
                QTimer::singleShot(0, dialog, [dialog] { dialog->reject(); });
            });
            QTest::keyClick(typed, Qt::Key_Return);
        });
        QCOMPARE(QString::fromStdString(m_dialogs.openFile("(*.txt)|*.txt|").value_or("none")), "none");
    }
    void dialogsAreCancelled()
    {
        whenUp<QFileDialog>([](QFileDialog* dialog) { QTest::keyClick(dialog, Qt::Key_Escape); });
        QVERIFY(!m_dialogs.openFile("(*.txt)|*.txt|"));
        whenUp<QFileDialog>([](QFileDialog* dialog) { dialog->close(); });
        QVERIFY(!m_dialogs.saveFile("(*.txt)|*.txt|"));
    }
    void dialogsSpeakChinese()
    {
        QStringList texts;
        whenUp<QFileDialog>([&](QFileDialog* dialog) {
            for (auto* button : dialog->findChild<QDialogButtonBox*>()->buttons()) texts << button->text();
            dialog->close();
        });
        m_dialogs.openFile("(*.txt)|*.txt|");
        QVERIFY2(texts.join(' ').contains("取消") && texts.join(' ').contains("打开"), qPrintable(texts.join(' ')));
        QCOMPARE(QMessageBox(QMessageBox::NoIcon, "", "", QMessageBox::Cancel).button(QMessageBox::Cancel)->text(),
                 "取消");
    }

    void turnsRunTimersAndOnlyOneKindTakesInput()
    {
        struct Box : QLineEdit {
            int closings = 0;
            void closeEvent(QCloseEvent* event) override
            {
                ++closings;
                event->ignore();
            }
        } box;
        box.show();
        QVERIFY(QTest::qWaitForWindowActive(&box));
        const auto input = [&] {
            QCoreApplication::postEvent(&box, new QKeyEvent(QEvent::KeyPress, Qt::Key_7, {}, "7"));
            QCoreApplication::postEvent(&box, new QCloseEvent);
        };
        bool timer = false;
        QTimer::singleShot(0, &box, [&] { timer = true; });
        input();
        m_dialogs.turn();
        QVERIFY(timer);
        m_dialogs.turnWithInput();
        QCOMPARE(box.text(), "");  // dropped, not kept for later
        QCOMPARE(box.closings, 0);
        input();
        m_dialogs.turnWithInput();
        QCOMPARE(box.text(), "7");
        QCOMPARE(box.closings, 1);
    }
    void turnWithInputRestsWhereNothingWaits()
    {
        QCoreApplication::processEvents();
        QElapsedTimer clock;
        clock.start();
        const auto before = std::clock();
        for (int i = 0; i < 5; ++i) m_dialogs.turnWithInput();
        const double cpu = 1000.0 * static_cast<double>(std::clock() - before) / CLOCKS_PER_SEC;
        QVERIFY2(cpu < 50, qPrintable(QString::number(cpu)));  // of up to 500 ms
    }

    void keyStateIsAsked()
    {
        QVERIFY(!KeyIsDown(17));
        QVERIFY(!KeyIsDown(65));
        const auto before = platform();
        platform().keyIsDown = [](int key) { return key == 17; };
        QVERIFY(KeyIsDown(17));
        QVERIFY(!KeyIsDown(16));
        platform() = before;
    }
    void whatIsNotThereIsNotOpened() { QVERIFY(!platform().open("/nowhere/Velumark帮助.chm")); }
};

VM_QT_TEST(tst_QtDialogs)
#include "tst_QtDialogs.moc"
