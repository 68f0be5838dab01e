// The look that all windows share, and the kit that lays them out.

#include "controls/FormScaling.h"
#include "controls/XPButton.h"
#include "support/QtTests.h"
#include "ui/Layout.h"
#include "ui/MSFlexGrid.h"
#include "ui/Theme.h"
#include "ui/Twips.h"

#include <QApplication>
#include <QCheckBox>
#include <QDialogButtonBox>
#include <QFontInfo>
#include <QLabel>
#include <QPushButton>
#include <QScreen>
#include <QStyle>
#include <QtTest>

#include <algorithm>
#include <array>

class tst_Theme : public QObject {
    Q_OBJECT
private slots:
    void initTestCase()
    {
        QFont small = QApplication::font();
        small.setPointSize(6);
        QApplication::setFont(small);
        applyTheme(*qApp);
    }

    void fontsHaveNinePointsOrMore() { QCOMPARE(QApplication::font().pointSizeF(), 9.0); }
    void largerFontsOfTheDesktopStay()
    {
        const QFont before = QApplication::font();
        QFont large = before;
        large.setPointSize(14);
        QApplication::setFont(large);
        applyTheme(*qApp);
        QCOMPARE(QApplication::font().pointSizeF(), 14.0);
        QApplication::setFont(before);
    }
    void digitsAreOfOneWidth() { QVERIFY(digitsOfOneWidth(QApplication::font())); }
    void oneStyleOnEveryDesktop() { QCOMPARE(QApplication::style()->name(), "fusion"); }
    void standardButtonsSpeakChinese()
    {
        QDialogButtonBox box(QDialogButtonBox::Ok | QDialogButtonBox::Cancel | QDialogButtonBox::Close);
        QCOMPARE(box.button(QDialogButtonBox::Ok)->text(), "确定");
        QCOMPARE(box.button(QDialogButtonBox::Cancel)->text(), "取消");
        QCOMPARE(box.button(QDialogButtonBox::Close)->text(), "关闭");
    }

    void aTwipIsAFifteenthOfAPixelAt96Dpi()
    {
        QWidget widget;
        QCOMPARE(widget.logicalDpiX(), 96);
        QCOMPARE(twipsToPixels(1500, widget), 100);
        QCOMPARE(pixelsToTwips(100, widget), 1500);
        QCOMPARE(twipsToPixels(8, widget), 1);  // to the nearest
        QCOMPARE(twipsToPixels(7, widget), 0);
    }

    void labelsStandRightAlignedInOneColumn()
    {
        QWidget around;  // a window of its own would have a least width on some desktops
        QWidget window(&around);
        auto* one = new QLineEdit(&window);
        auto* two = new QLineEdit(&window);
        auto* check = new QCheckBox("夹角", &window);
        auto* three = new QLineEdit(&window);
        ui::arrange(window, {ui::fieldColumn({{QString("计算里程"), one}, {QString("偏距"), two}, {check, three}})});
        window.adjustSize();
        around.show();
        const auto labels = window.findChildren<QLabel*>();
        QCOMPARE(labels.size(), 2);
        QCOMPARE(labels[0]->geometry().right(), labels[1]->geometry().right());
        QCOMPARE(labels[0]->buddy(), one);
        QCOMPARE(one->x(), two->x());
        QCOMPARE(one->x(), three->x());
        QCOMPARE(one->x() - labels[0]->geometry().right() - 1, 8);
        QCOMPARE(std::min(labels[0]->x(), check->x()), 12);  // the widest head
        QCOMPARE(two->y() - one->geometry().bottom() - 1, 8);
    }

    void buttonsOfARowAreEquallyWide()
    {
        QWidget window;
        auto* one = new XPButton("计 算", &window);
        auto* two = new XPButton("从文件批量计算", &window);
        ui::arrange(window, {new MSFlexGrid(&window), ui::buttonRow({one, two})});
        window.resize(500, 200);
        window.show();
        QCOMPARE(one->width(), two->width());
        QVERIFY(one->width() >= two->sizeHint().width());
        QCOMPARE(two->geometry().right() + 1, 500 - 12);
        QCOMPARE(two->x() - one->geometry().right() - 1, 8);
    }

    void theGridTakesTheRoomThatIsLeft()
    {
        QWidget window;
        auto* box = new QLineEdit(&window);
        auto* grid = new MSFlexGrid(&window);
        auto* button = new XPButton("计 算", &window);
        ui::arrange(window, {ui::fieldLine({{QString("里程"), box}}), grid, ui::buttonRow({button})});
        window.resize(500, 300);
        window.show();
        QTest::qWait(1);
        const int fields = box->height(), buttons = button->height(), before = grid->height();
        window.resize(500, 500);
        QTRY_COMPARE(grid->height(), before + 200);
        QCOMPARE(box->height(), fields);
        QCOMPARE(button->height(), buttons);
    }

    void fieldsThatTheWidthCannotHoldStandInColumnsUnderEachOther()
    {
        QWidget window;
        std::vector<QLineEdit*> boxes;
        ui::Fields fields;
        for (const auto* caption : {"开始里程", "结束里程", "间距", "偏距", "夹角"}) {
            boxes.push_back(new QLineEdit(&window));
            ui::fitDigits(boxes.back());
            fields.emplace_back(QString::fromUtf8(caption), boxes.back());
        }
        ui::arrange(window, {ui::fieldLine(fields), new MSFlexGrid(&window)});
        const int wide = window.sizeHint().width();
        QVERIFY(wide > 5 * boxes[0]->width());
        window.resize(std::max(wide, 1000), 400);
        window.show();
        for (const auto* box : boxes) QCOMPARE(box->y(), boxes[0]->y());
        window.resize(600, 400);
        QTest::qWait(1);
        QCOMPARE(window.width(), 600);
        const int perLine = static_cast<int>(
            std::count_if(boxes.begin(), boxes.end(), [&](const QLineEdit* box) { return box->y() == boxes[0]->y(); }));
        QVERIFY(perLine > 1 && perLine < 5);
        for (int i = 0; i < 5; ++i) {
            const auto* box = boxes[static_cast<std::size_t>(i)];
            QCOMPARE(box->y(), boxes[0]->y() + i / perLine * (box->height() + 8));
            QCOMPARE(box->x(), boxes[static_cast<std::size_t>(i % perLine)]->x());
            QVERIFY(box->geometry().right() <= 600 - 12);
        }
        const auto labels = window.findChildren<QLabel*>();
        QCOMPARE(labels[0]->geometry().right(), labels[perLine]->geometry().right());
        QVERIFY(window.findChild<MSFlexGrid*>()->y() > boxes[4]->geometry().bottom());
    }

    void controlsOfASmallToolStayTogetherWhenItIsMaximised()
    {
        QWidget window;
        auto* box = new QLineEdit(&window);
        auto* one = new XPButton("确 定", &window);
        auto* two = new XPButton("取 消", &window);
        ui::fitDigits(box);
        ui::arrange(window,
                    {ui::frame("导线", ui::fieldColumn({{QString("导线点个数"), box}})), ui::buttonRow({one, two})});
        const auto places = [&] {
            return std::array{one->pos() - two->pos(), box->mapTo(&window, QPoint()) - two->pos(),
                              QPoint(one->width(), one->height())};
        };
        window.show();
        const auto before = places();
        window.resize(1366, 700);
        QTest::qWait(1);
        QCOMPARE(places(), before);
        const QRect all = window.childrenRect();
        QVERIFY(std::abs(all.center().x() - window.rect().center().x()) <= 1);
        QVERIFY(std::abs(all.center().y() - window.rect().center().y()) <= 1);
    }

    void boxesHoldTheirDigits()
    {
        QLineEdit box;
        ui::fitDigits(&box, 13);
        QVERIFY(box.width() >= box.fontMetrics().horizontalAdvance("3456789.12345") + 8);
    }

    void aWindowOpensWithEveryColumnInSightWhereTheScreenAllows()
    {
        QWidget window;
        auto* grid = new MSFlexGrid(&window);
        grid->setCols(4);
        for (int col = 0; col < 4; ++col) grid->setColWidth(col, 1500);
        grid->setRows(100);
        ui::arrange(window, {grid});
        fitToContent(window);
        window.show();
        QTest::qWait(1);
        QVERIFY(window.width() <= window.screen()->availableSize().width());
        QVERIFY(grid->cellRect(1, 3).right() < grid->viewport()->geometry().right() + 1);
        QCOMPARE(window.findChild<QWidget*>("qt_scrollarea_hcontainer")->isVisible(), false);
    }

    void aWindowIsNeverMadeLargerThanItsScreenHasRoom()
    {
        QWidget window;
        auto* grid = new MSFlexGrid(&window);
        grid->setCols(30);
        ui::arrange(window, {grid});
        fitToContent(window, {5000, 4000});
        const QSize screen = window.screen()->size();
        QVERIFY(window.width() <= screen.width() - 16);
        QVERIFY(window.height() <= screen.height() - 70);  // title bar and task bar
    }

    void theWaitBoxStandsOverTheGridUntilItIsShown()
    {
        QWidget window;
        auto* grid = new MSFlexGrid(&window);
        auto* wait = new QLineEdit(&window);
        ui::arrange(window, {grid});
        window.resize(600, 400);
        window.show();
        ui::placeWaitBox(wait, grid);
        QVERIFY(!wait->isVisible());
        QCOMPARE(wait->text(), "正在保存中，请耐心等待");
        QVERIFY(grid->geometry().contains(wait->geometry()));
        QVERIFY(wait->width() >= wait->fontMetrics().horizontalAdvance(wait->text()));
    }
};

VM_QT_TEST(tst_Theme)
#include "tst_Theme.moc"
