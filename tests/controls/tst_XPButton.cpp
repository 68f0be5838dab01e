// The button as a control: properties, events, hover, keys.

#include "controls/XPButton.h"
#include "support/QtTests.h"
#include "support/ScriptedDialogs.h"

#include <QAccessible>
#include <QCursor>
#include <QPushButton>
#include <QSignalSpy>
#include <QVBoxLayout>
#include <QtTest>

namespace {

struct Window : QWidget {
    XPButton* button = new XPButton("计 算", this);
    XPButton* other = new XPButton("返 回", this);
    QStringList log;  // events in their order

    Window()
    {
        button->setGeometry(20, 20, 90, 30);
        other->setGeometry(20, 80, 90, 30);
        resize(200, 150);
        const auto say = [this](const QString& what) { log << what; };
        using B = XPButton;
        connect(button, &B::Click, this, [say] { say("Click"); });
        connect(button, &B::DblClick, this, [say] { say("DblClick"); });
        connect(button, &B::KeyDown, this, [say](int k, int s) { say(QString("KeyDown %1 %2").arg(k).arg(s)); });
        connect(button, &B::KeyPress, this, [say](int k) { say(QString("KeyPress %1").arg(k)); });
        connect(button, &B::KeyUp, this, [say](int k, int s) { say(QString("KeyUp %1 %2").arg(k).arg(s)); });
        connect(button, &B::MouseDown, this, [say](int b, int s, int x, int y) {
            say(QString("MouseDown %1 %2 %3 %4").arg(b).arg(s).arg(x).arg(y));
        });
        connect(button, &B::MouseMove, this, [say](int b, int s, int x, int y) {
            say(QString("MouseMove %1 %2 %3 %4").arg(b).arg(s).arg(x).arg(y));
        });
        connect(button, &B::MouseUp, this,
                [say](int b, int s, int x, int y) { say(QString("MouseUp %1 %2 %3 %4").arg(b).arg(s).arg(x).arg(y)); });
        connect(button, &B::MouseEnter, this, [say](int x, int y) { say(QString("Enter %1 %2").arg(x).arg(y)); });
        connect(button, &B::MouseLeave, this, [say](int x, int y) { say(QString("Leave %1 %2").arg(x).arg(y)); });
        move(100, 100);
        QCursor::setPos(5, 5);
        show();
        [[maybe_unused]] const bool shown = QTest::qWaitForWindowActive(this);
        other->setFocus();
    }
    QStringList take() { return std::exchange(log, {}); }
};

}  // namespace

class tst_XPButton : public QObject {
    Q_OBJECT
private slots:
    void propertiesInTheirStoredOrder()
    {
        const QStringList expected{"Caption",      "ForeColor",        "ColorStyle",   "FocusDottedRect",
                                   "Enabled",      "FontType",         "Icon",         "IconMask",
                                   "RoundedValue", "CaptionAlignment", "IconAlignment"};
        QStringList names;
        const auto& meta = XPButton::staticMetaObject;
        for (int i = meta.propertyOffset(); i < meta.propertyCount(); ++i) names << meta.property(i).name();
        QCOMPARE(names, expected);

        // Stored values go through the setters in the same order.
        XPButton button;
        QSignalSpy changed(&button, &XPButton::PropertyChanged);
        button.ReadProperties({});
        QStringList reported;
        for (const auto& signal : changed)
            if (const auto name = signal.at(0).toString(); reported.isEmpty() || reported.last() != name)
                reported << name;
        QCOMPARE(reported, expected);
    }

    void defaultsOfANewControl()
    {
        XPButton button;
        button.setObjectName("butCalc");
        QCOMPARE(button.Caption(), "butCalc");
        QCOMPARE(button.ForeColor(), 0u);
        QCOMPARE(button.ColorStyle(), 1);
        QCOMPARE(button.FocusDottedRect(), true);
        QCOMPARE(button.Enabled(), true);
        QVERIFY(button.Icon().isNull());
        QVERIFY(button.IconMask().isNull());
        QCOMPARE(button.RoundedValue(), 5);
        QCOMPARE(button.CaptionAlignment(), 2);
        QCOMPARE(button.IconAlignment(), 1);
    }

    void defaultsWhenNothingIsStored()
    {
        QWidget parent;
        QFont ambient = parent.font();
        ambient.setPointSize(17);
        parent.setFont(ambient);
        XPButton button(&parent);
        button.setObjectName("butCalc");
        button.setForeColor(77);
        button.setColorStyle(3);
        button.setFocusDottedRect(false);
        button.setEnabled(false);
        QPixmap pixmap(3, 3);
        pixmap.fill(Qt::red);
        button.setIcon(pixmap);
        button.setIconMask(pixmap);
        button.setRoundedValue(0);
        button.setCaptionAlignment(0);
        button.setIconAlignment(2);
        button.setFontType(QFont("Sans", 33));
        button.ReadProperties({});
        QCOMPARE(button.Caption(), QString());
        QCOMPARE(button.ForeColor(), 0u);
        QCOMPARE(button.ColorStyle(), 1);
        QCOMPARE(button.FocusDottedRect(), true);
        QCOMPARE(button.Enabled(), true);
        QCOMPARE(button.FontType().pointSize(), 17);
        QVERIFY(button.Icon().isNull());
        QVERIFY(button.IconMask().isNull());
        QCOMPARE(button.RoundedValue(), 5);
        QCOMPARE(button.CaptionAlignment(), 2);
        QCOMPARE(button.IconAlignment(), 1);
    }

    void storedPropertiesComeBack()
    {
        XPButton one, two;
        one.setCaption("保 存");
        one.setForeColor(0x123456);
        one.setColorStyle(2);
        one.setRoundedValue(9);
        one.setEnabled(false);
        two.ReadProperties(one.WriteProperties());
        QCOMPARE(two.Caption(), "保 存");
        QCOMPARE(two.ForeColor(), 0x123456u);
        QCOMPARE(two.ColorStyle(), 2);
        QCOMPARE(two.RoundedValue(), 9);
        QCOMPARE(two.isEnabled(), false);
    }

    void everySetterReportsAndRepaints_data()
    {
        QTest::addColumn<QVariant>("value");
        QPixmap pixmap(4, 4);
        pixmap.fill(Qt::red);
        QTest::newRow("Caption") << QVariant("返 回");
        QTest::newRow("ForeColor") << QVariant(255u);
        QTest::newRow("ColorStyle") << QVariant(3);
        QTest::newRow("FocusDottedRect") << QVariant(false);
        QTest::newRow("Enabled") << QVariant(false);
        QTest::newRow("FontType") << QVariant(QFont("Sans", 20));
        QTest::newRow("Icon") << QVariant(pixmap);
        QTest::newRow("IconMask") << QVariant(pixmap);
        QTest::newRow("RoundedValue") << QVariant(0);
        QTest::newRow("CaptionAlignment") << QVariant(0);
        QTest::newRow("IconAlignment") << QVariant(2);
    }
    void everySetterReportsAndRepaints()
    {
        QFETCH(QVariant, value);
        struct Painted : XPButton {
            int times = 0;
            void paintEvent(QPaintEvent* event) override
            {
                ++times;
                XPButton::paintEvent(event);
            }
        } button;
        const char* name = QTest::currentDataTag();
        button.show();
        QVERIFY(QTest::qWaitForWindowExposed(&button));
        QTRY_VERIFY(button.times > 0);
        for (int turn = 0; turn < 2; ++turn) {  // an unchanged value is reported too
            QTest::qWait(1);
            button.times = 0;
            QSignalSpy changed(&button, &XPButton::PropertyChanged);
            QVERIFY(button.setProperty(name, value));
            QCOMPARE(changed.count(), 1);
            QCOMPARE(changed.at(0).at(0).toString(), QString(name));
            QTRY_VERIFY(button.times > 0);
        }
        if (value.typeId() != QMetaType::QPixmap) QCOMPARE(button.property(name), value);
    }
    void disablingThroughTheBaseClassIsTheSame()
    {
        XPButton button;
        QSignalSpy changed(&button, &XPButton::PropertyChanged);
        static_cast<QWidget&>(button).setEnabled(false);
        QCOMPARE(button.Enabled(), false);
        QCOMPARE(changed.count(), 1);
        QCOMPARE(changed.at(0).at(0).toString(), "Enabled");
    }

    void leftButtonPressesAndReleaseClicks()
    {
        Window w;
        QTest::mousePress(w.button, Qt::LeftButton, Qt::ShiftModifier, {7, 8});
        QVERIFY(w.button->Pressed());
        QVERIFY(w.button->HasFocus());
        QCOMPARE(w.take(), QStringList{"MouseDown 1 1 7 8"});
        QTest::mouseRelease(w.button, Qt::LeftButton, Qt::ControlModifier, {9, 8});
        QVERIFY(!w.button->Pressed());
        QCOMPARE(w.take(), (QStringList{"MouseUp 1 2 9 8", "Click"}));
    }
    void otherButtonsNeitherPressNorClick()
    {
        Window w;
        QTest::mousePress(w.button, Qt::RightButton, Qt::AltModifier, {7, 8});
        QVERIFY(!w.button->Pressed());
        QTest::mouseRelease(w.button, Qt::RightButton, {}, {7, 8});
        QTest::mouseClick(w.button, Qt::MiddleButton, {}, {7, 8});
        QCOMPARE(w.take(),
                 (QStringList{"MouseDown 2 4 7 8", "MouseUp 2 0 7 8", "MouseDown 4 0 7 8", "MouseUp 4 0 7 8"}));
    }
    void releaseOutsideIsNoClick()
    {
        Window w;
        QTest::mousePress(w.button, Qt::LeftButton, {}, {7, 8});
        QTest::mouseRelease(w.button, Qt::LeftButton, {}, {7, 99});
        QVERIFY(!w.button->Pressed());
        QVERIFY(!w.take().contains("Click"));
    }
    void quickClicksAreAllCounted()
    {
        Window w;
        QTest::mouseClick(w.button, Qt::LeftButton, {}, {7, 8});
        w.take();
        QMouseEvent second(QEvent::MouseButtonDblClick, QPointF(7, 8), w.button->mapToGlobal(QPointF(7, 8)),
                           Qt::LeftButton, Qt::LeftButton, {});
        QApplication::sendEvent(w.button, &second);
        QVERIFY(w.button->Pressed());
        QTest::mouseRelease(w.button, Qt::LeftButton, {}, {7, 8});
        QCOMPARE(w.take(), (QStringList{"MouseDown 1 0 7 8", "DblClick", "MouseUp 1 0 7 8", "Click"}));
    }
    void mouseMovesAreReported()
    {
        Window w;
        // Some desktops say a little later where the mouse is, and of its first way only that it has come in.
        QTest::mouseMove(w.button, {1, 1});
        QTRY_VERIFY(!w.log.isEmpty());
        w.take();
        QTest::mouseMove(w.button, {3, 4});
        QTRY_VERIFY(!w.log.isEmpty());
        QCOMPARE(w.take(), QStringList{"MouseMove 0 0 3 4"});
    }

    void spacePressesAndItsReleaseClicks()
    {
        Window w;
        w.button->setFocus();
        QTest::keyPress(w.button, Qt::Key_Space);
        QVERIFY(w.button->Pressed());
        QCOMPARE(w.take(), (QStringList{"KeyDown 32 0", "KeyPress 32"}));
        QTest::keyRelease(w.button, Qt::Key_Space);
        QVERIFY(!w.button->Pressed());
        QCOMPARE(w.take(), (QStringList{"KeyUp 32 0", "Click"}));
    }
    void spaceReleasedElsewhereDoesNotClick()
    {
        Window w;
        w.button->setFocus();
        QTest::keyPress(w.button, Qt::Key_Space);
        w.other->setFocus();
        QVERIFY(!w.button->Pressed());
        QTest::keyRelease(w.button, Qt::Key_Space);
        QVERIFY(!w.take().contains("Click"));
    }
    void enterClicksAtOnce()
    {
        Window w;
        w.button->setFocus();
        QTest::keyPress(w.button, Qt::Key_Return);
        QVERIFY(!w.button->Pressed());
        QCOMPARE(w.take(), (QStringList{"KeyDown 13 0", "KeyPress 13", "Click"}));
        QTest::keyRelease(w.button, Qt::Key_Return);
        QCOMPARE(w.take(), QStringList{"KeyUp 13 0"});
        QTest::keyClick(w.button, Qt::Key_Enter);
        QCOMPARE(w.take(), (QStringList{"KeyDown 13 0", "KeyPress 13", "Click", "KeyUp 13 0"}));
    }
    void otherKeysAreReportedAndDoNothing()
    {
        Window w;
        w.button->setFocus();
        QTest::keyClick(w.button, 'b');
        QTest::keyClick(w.button, Qt::Key_F5);
        QVERIFY(!w.button->Pressed());
        QCOMPARE(w.take(), (QStringList{"KeyDown 66 0", "KeyPress 98", "KeyUp 66 0", "KeyDown 116 0", "KeyUp 116 0"}));
    }
    void focusIsNoticed()
    {
        Window w;
        QVERIFY(!w.button->HasFocus());
        w.button->setFocus();
        QVERIFY(w.button->HasFocus());
        QTest::keyClick(w.button, Qt::Key_Tab);
        QVERIFY(!w.button->HasFocus());
        QVERIFY(w.other->HasFocus());
    }

    void disabledRaisesNothing()
    {
        Window w;
        w.button->setEnabled(false);
        QTest::mouseClick(w.button, Qt::LeftButton, {}, {7, 8});
        QTest::mouseDClick(w.button, Qt::LeftButton, {}, {7, 8});
        QTest::mouseMove(w.button, {9, 9});
        QTest::keyClick(w.button, Qt::Key_Space);
        QTest::keyClick(w.button, Qt::Key_Return);
        QCursor::setPos(w.button->mapToGlobal(QPoint(9, 9)));
        QTest::qWait(200);
        QCOMPARE(w.take(), QStringList{});
        QVERIFY(!w.button->Hover());
        QVERIFY(!w.button->Pressed());
    }

    void hoverIsNoticedByTheTimer()
    {
        Window w;
        const auto* timer = w.button->findChild<QTimer*>("tmrCheck");
        QCOMPARE(timer->interval(), 50);
        QVERIFY(timer->isActive());
        QCursor::setPos(w.button->mapToGlobal(QPoint(10, 12)));
        QTRY_VERIFY(w.button->Hover());
        const QPoint entered = w.button->mapToGlobal(QPoint(10, 12));
        QCOMPARE(w.take().filter("Enter"), QStringList{QString("Enter %1 %2").arg(entered.x()).arg(entered.y())});
        QTest::qWait(150);
        QVERIFY(w.take().filter("Enter").isEmpty());  // once
        QCursor::setPos(w.mapToGlobal(QPoint(190, 140)));
        QTRY_VERIFY(!w.button->Hover());
        const QPoint left = w.mapToGlobal(QPoint(190, 140));
        QCOMPARE(w.take().filter("Leave"), QStringList{QString("Leave %1 %2").arg(left.x()).arg(left.y())});
    }
    void cursorLeavingWhilePressedKeepsPressed()
    {
        Window w;
        QCursor::setPos(w.button->mapToGlobal(QPoint(10, 12)));
        QTRY_VERIFY(w.button->Hover());
        QTest::mousePress(w.button, Qt::LeftButton, {}, {10, 12});
        QCursor::setPos(w.mapToGlobal(QPoint(190, 140)));
        QTRY_VERIFY(!w.button->Hover());
        QVERIFY(w.button->Pressed());
        QTest::mouseRelease(w.button, Qt::LeftButton, {}, {170, 120});
        QVERIFY(!w.button->Pressed());
    }
    void hideStopsTheTimerAndClearsTheState()
    {
        Window w;
        w.button->setFocus();
        QCursor::setPos(w.button->mapToGlobal(QPoint(10, 12)));
        QTRY_VERIFY(w.button->Hover());
        QTest::mousePress(w.button, Qt::LeftButton, {}, {10, 12});
        w.button->hide();
        QVERIFY(!w.button->findChild<QTimer*>("tmrCheck")->isActive());
        QVERIFY(!w.button->Hover());
        QVERIFY(!w.button->Pressed());
        QVERIFY(!w.button->HasFocus());
        w.take();
        QTest::qWait(200);
        QCOMPARE(w.take(), QStringList{});
        w.button->show();
        QTRY_VERIFY(w.button->Hover());
    }

    void clickMayDeleteTheButton()
    {
        for (const bool byKey : {true, false}) {
            auto* button = new XPButton("返 回");
            connect(button, &XPButton::Click, button, [button] { delete button; });
            QPointer<XPButton> alive(button);
            button->show();
            if (byKey)
                button->pressKey(*std::make_unique<QKeyEvent>(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier, "\r"));
            else
                QTest::mouseClick(button, Qt::LeftButton);
            QVERIFY(!alive);
        }
    }

    void accessKeyShowsItsInteger()
    {
        ScriptedDialogs dialogs;
        XPButton button("计 算");
        button.AccessKeyPress(65);
        QCOMPARE(dialogs.messages.size(), 1u);
        QCOMPARE(dialogs.last().text, "65");
        QCOMPARE(dialogs.last().icon, Icon::None);
        QCOMPARE(dialogs.last().buttons, Msg::Ok);
    }

    void captionIsNeverCutOff()
    {
        QFont font;
        for (const int points : {9, 12, 18, 27}) {
            font.setPointSize(points);
            XPButton button("线路左边桩坐标");
            button.setFontType(font);
            const QFontMetrics metrics(font);
            QVERIFY(button.sizeHint().width() >= metrics.horizontalAdvance(button.Caption()) + 8);
            QVERIFY(button.sizeHint().height() >= metrics.height() + 6);
        }
        XPButton button("计 算");
        const int before = button.sizeHint().width();
        button.setCaption("线路左边桩坐标线路左边桩坐标");
        QVERIFY(button.sizeHint().width() > before);
    }

    void screenReadersKnowIt()
    {
        XPButton button("计 算");
        auto* face = QAccessible::queryAccessibleInterface(&button);
        QVERIFY(face);
        QCOMPARE(face->role(), QAccessible::Button);
        QCOMPARE(face->text(QAccessible::Name), "计 算");
        QSignalSpy clicks(&button, &XPButton::Click);
        face->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
        QCOMPARE(clicks.count(), 1);
        button.setEnabled(false);
        face->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
        QCOMPARE(clicks.count(), 1);
    }
};

VM_QT_TEST(tst_XPButton)
#include "tst_XPButton.moc"
