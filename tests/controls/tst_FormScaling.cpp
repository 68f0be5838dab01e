// Windows that stretch.

#include "controls/FormScaling.h"
#include "controls/XPButton.h"
#include "support/QtTests.h"

#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QTableView>
#include <QTimer>
#include <QVBoxLayout>
#include <QtTest>

namespace {

/// 300 x 200 with two boxes in place, one of them in a frame.
struct Window : QWidget {
    QLineEdit* box = new QLineEdit(this);
    QWidget* frame = new QWidget(this);
    QLineEdit* inner = new QLineEdit(frame);

    Window()
    {
        resize(300, 200);
        box->setGeometry(10, 20, 101, 31);
        frame->setGeometry(50, 60, 200, 100);
        inner->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
        new QVBoxLayout(frame);
        frame->layout()->addWidget(inner);
        frame->layout()->setContentsMargins(20, 30, 80, 40);
    }
};

}  // namespace

class tst_FormScaling : public QObject {
    Q_OBJECT
private slots:
    void controlsKeepTheirRelativePlaceAndSize()
    {
        Window w;
        ResizeInit(w);
        QCOMPARE(FormOldWidth, 300);
        QCOMPARE(FormOldHeight, 200);
        QCOMPARE(w.inner->geometry(), QRect(20, 30, 100, 30));
        w.resize(450, 300);
        ResizeForm(w);
        QCOMPARE(w.box->geometry(), QRect(15, 30, 152, 47));  // 151.5 and 46.5 rounded
        QCOMPARE(w.frame->geometry(), QRect(75, 90, 300, 150));
        QCOMPARE(w.inner->geometry(), QRect(30, 45, 150, 45));
        w.resize(600, 200);
        ResizeForm(w);
        QCOMPARE(w.box->geometry(), QRect(20, 20, 202, 31));
    }

    void roundingDoesNotBuildUp()
    {
        Window w;
        ResizeInit(w);
        w.setMinimumSize(1, 1);
        const QRect box = w.box->geometry(), frame = w.frame->geometry(), inner = w.inner->geometry();
        for (int i = 0; i < 200; ++i) {
            w.resize(31 + 7 * i % 611, 17 + 13 * i % 401);
            ResizeForm(w);
        }
        w.resize(300, 200);
        ResizeForm(w);
        QCOMPARE(w.box->geometry(), box);
        QCOMPARE(w.frame->geometry(), frame);
        QCOMPARE(w.inner->geometry(), inner);
    }

    void layoutsStandBackAndTextStaysReadable()
    {
        QWidget w;
        auto* column = new QVBoxLayout(&w);
        auto* label = new QLabel("计算里程");
        auto* box = new QLineEdit;
        box->setFixedWidth(123);
        column->addWidget(label);
        column->addWidget(box);
        ResizeInit(w);
        QVERIFY(!w.layout());
        QCOMPARE(box->width(), 123);
        const QSize least = w.minimumSize();
        QVERIFY(least.width() >= 123);
        QVERIFY(least.height() >= label->sizeHint().height() + box->sizeHint().height());
        const QSize was = w.size();
        w.resize(2 * was.width(), 2 * was.height());
        ResizeForm(w);
        QCOMPARE(box->width(), 246);
    }

    void theWindowDoesNotShrinkBelowWhatItsScaledControlsNeed()
    {
        Window w;
        auto* button = new XPButton("保 存", &w);
        const QSize needed = button->sizeHint();
        button->setGeometry(10, 170, 2 * needed.width(), needed.height());
        w.frame->layout()->setContentsMargins(20, 30, 80, 30);  // room for the box in the frame
        ResizeInit(w);
        QVERIFY(w.minimumWidth() < 300);
        w.resize(1, 1);
        ResizeForm(w);
        QVERIFY(w.width() > 100);
        for (const QWidget* control : {static_cast<QWidget*>(button), static_cast<QWidget*>(w.box)}) {
            QVERIFY(control->width() >= control->minimumSizeHint().width());
            QVERIFY(control->height() >= control->minimumSizeHint().height());
            QVERIFY(w.rect().contains(control->geometry()));
        }
        w.resize(w.minimumSize());
        QCOMPARE(w.size(), w.minimumSize());
    }

    void fontsAndGridColumnsStay()
    {
        Window w;
        QTableView grid(&w);
        grid.setGeometry(0, 0, 200, 100);
        const QFont font = w.box->font();
        ResizeInit(w);
        const int column = grid.horizontalHeader()->defaultSectionSize();
        w.resize(900, 600);
        ResizeForm(w);
        QCOMPARE(grid.geometry(), QRect(0, 0, 600, 300));
        QCOMPARE(w.box->font(), font);
        QCOMPARE(grid.horizontalHeader()->defaultSectionSize(), column);
    }

    void whatHasNoPlaceIsSkipped()
    {
        Window w;
        new QTimer(&w);
        auto* gone = new QLabel(&w);
        ResizeInit(w);
        delete gone;
        w.resize(600, 400);
        ResizeForm(w);
        QCOMPARE(w.box->geometry(), QRect(20, 40, 202, 62));
    }

    void windowNeverInitialisedStays()
    {
        Window w;
        w.resize(600, 400);
        ResizeForm(w);
        QCOMPARE(w.box->geometry(), QRect(10, 20, 101, 31));
    }

    void theWindowThatCalledLastOwnsTheScale()
    {
        Window one, two;
        ResizeInit(one);
        two.resize(600, 400);
        ResizeInit(two);
        QCOMPARE(FormOldWidth, 600);
        one.resize(600, 400);
        ResizeForm(one);
        QCOMPARE(one.box->geometry(), QRect(10, 20, 101, 31));
    }
};

VM_QT_TEST(tst_FormScaling)
#include "tst_FormScaling.moc"
