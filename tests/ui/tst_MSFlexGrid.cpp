// The grid: texts, current cell, positions, mouse and keys, copying, large tables.

#include "base/RunTimeError.h"
#include "support/QtTests.h"
#include "ui/GridSink.h"
#include "ui/MSFlexGrid.h"
#include "ui/Theme.h"

#include <QAbstractButton>
#include <QClipboard>
#include <QHeaderView>
#include <QHelpEvent>
#include <QLineEdit>
#include <QMenu>
#include <QScrollBar>
#include <QSignalSpy>
#include <QToolTip>
#include <QVBoxLayout>
#include <QtTest>

namespace {

constexpr int kTwipsPerPixel = 15;

void fill(MSFlexGrid& grid, int rows, int cols)
{
    grid.setCols(cols);
    grid.setRows(rows);
    for (int row = 0; row < rows; ++row)
        for (int col = 0; col < cols; ++col) grid.setTextMatrix(row, col, QString("r%1c%2").arg(row).arg(col));
}

QStringList column(const MSFlexGrid& grid, int col)
{
    QStringList texts;
    for (int row = 0; row < grid.Rows(); ++row) texts << grid.TextMatrix(row, col);
    return texts;
}

template <class Statement>
int errorOf(Statement statement)
{
    try {
        statement();
    } catch (const RunTimeError& error) {
        return error.number();
    }
    return 0;
}

/// A shown grid of 5 data rows and 4 columns beside a box; its events in their order.
struct Window : QWidget {
    MSFlexGrid* grid = new MSFlexGrid;
    QLineEdit* box = new QLineEdit;
    QStringList log;

    Window()
    {
        auto* column = new QVBoxLayout(this);
        column->addWidget(grid);
        column->addWidget(box);
        resize(500, 400);
        fill(*grid, 6, 5);
        connect(grid, &MSFlexGrid::Click, this,
                [this] { log << QString("Click %1 %2").arg(grid->Row()).arg(grid->Col()); });
        connect(grid, &MSFlexGrid::MouseDown, this, [this](int button) { log << QString("MouseDown %1").arg(button); });
        connect(grid, &MSFlexGrid::Scroll, this, [this] { log << "Scroll"; });
        connect(grid, &MSFlexGrid::RowColChange, this,
                [this] { log << QString("RowColChange %1 %2").arg(grid->Row()).arg(grid->Col()); });
        show();
        [[maybe_unused]] const bool shown = QTest::qWaitForWindowActive(this);
    }
    QStringList take() { return std::exchange(log, {}); }
    /// The middle of a data cell in the viewport.
    QPoint at(int row, int col) const { return grid->viewport()->mapFromParent(grid->cellRect(row, col).center()); }
    /// The same on its row number.
    void number(void (*action)(QWidget*, Qt::MouseButton, Qt::KeyboardModifiers, QPoint, int), int row,
                Qt::MouseButton button = Qt::LeftButton)
    {
        auto* numbers = grid->verticalHeader()->viewport();
        action(numbers, button, {}, numbers->mapFrom(grid, grid->cellRect(row, 0).center()), -1);
    }
    /// The pointer with the left button held.
    void drag(QPoint to)
    {
        QMouseEvent move(QEvent::MouseMove, to, grid->viewport()->mapToGlobal(to), Qt::NoButton, Qt::LeftButton, {});
        QApplication::sendEvent(grid->viewport(), &move);
    }
    void key(Qt::Key pressed) { QTest::keyClick(grid, pressed); }
    QString current() const { return QString("%1 %2").arg(grid->Row()).arg(grid->Col()); }
    /// Positions count from inside a border of 45 twips: grid Left + ColPos + 45 is the cell's place on the form.
    int frame() const { return grid->frameWidth() * kTwipsPerPixel - 45; }
    void mouse(void (*action)(QWidget*, Qt::MouseButton, Qt::KeyboardModifiers, QPoint, int), int row, int col,
               Qt::MouseButton button = Qt::LeftButton)
    {
        action(grid->viewport(), button, {}, at(row, col), -1);
    }
};

}  // namespace

class tst_MSFlexGrid : public QObject {
    Q_OBJECT
private slots:
    void initTestCase() { applyTheme(*qApp); }

    void headerRowAndSequenceColumnArePartOfTheTexts()
    {
        MSFlexGrid grid;
        QCOMPARE(grid.Rows(), 1);
        fill(grid, 3, 3);
        QCOMPARE(grid.TextMatrix(0, 0), "r0c0");
        QCOMPARE(grid.TextMatrix(0, 2), "r0c2");
        QCOMPARE(grid.TextMatrix(2, 0), "r2c0");
        QCOMPARE(grid.text().text(2, 1), std::string("r2c1"));
        QCOMPARE(grid.horizontalHeader()->model()->headerData(1, Qt::Horizontal).toString(), "r0c2");
        QCOMPARE(grid.horizontalHeader()->model()->headerData(1, Qt::Vertical).toString(), "r2c0");
    }

    void rowsGrowEmptyAndAreCut()
    {
        MSFlexGrid grid;
        fill(grid, 3, 2);
        grid.setRows(5);
        QCOMPARE(column(grid, 1), (QStringList{"r0c1", "r1c1", "r2c1", "", ""}));
        grid.setRow(4);
        grid.setRows(3);
        QCOMPARE(grid.Row(), 2);
        grid.setRows(1);
        QCOMPARE(grid.Row(), 0);
        grid.setRows(2);
        QCOMPARE(grid.TextMatrix(1, 1), "");
        QCOMPARE(grid.Row(), 1);
    }

    void columnsGrowAndAreCut()
    {
        MSFlexGrid grid;
        fill(grid, 2, 3);
        grid.setColWidth(1, 3000);
        grid.setCols(5);
        QCOMPARE(grid.ColWidth(1), 3000);
        QCOMPARE(grid.TextMatrix(1, 4), "");
        grid.setCol(4);
        grid.setCols(2);
        QCOMPARE(grid.Col(), 1);
        QCOMPARE(grid.TextMatrix(1, 1), "r1c1");
    }

    void outsideTheGridIsSubscript()
    {
        MSFlexGrid grid;
        fill(grid, 3, 3);
        constexpr int subscript = RunTimeError::Subscript;
        QCOMPARE(errorOf([&] { grid.setRow(3); }), subscript);
        QCOMPARE(errorOf([&] { grid.setRow(-1); }), subscript);
        QCOMPARE(errorOf([&] { grid.setCol(3); }), subscript);
        QCOMPARE(errorOf([&] { grid.setRows(0); }), subscript);
        QCOMPARE(errorOf([&] { grid.setCols(0); }), subscript);
        QCOMPARE(errorOf([&] { (void)grid.TextMatrix(3, 0); }), subscript);
        QCOMPARE(errorOf([&] { (void)grid.TextMatrix(0, 3); }), subscript);
        QCOMPARE(errorOf([&] { grid.setTextMatrix(0, -1, "x"); }), subscript);
        QCOMPARE(errorOf([&] { grid.setColWidth(3, 100); }), subscript);
        QCOMPARE(errorOf([&] { (void)grid.ColPos(3); }), subscript);
        QCOMPARE(errorOf([&] { (void)grid.RowPos(3); }), subscript);
        QCOMPARE(errorOf([&] { grid.AddItem("x", 0); }), subscript);
        QCOMPARE(errorOf([&] { grid.AddItem("x", 4); }), subscript);
        QCOMPARE(grid.Rows(), 3);
        QCOMPARE(grid.Row(), 1);
    }

    void neitherTheHeaderNorTheLastDataRowCanGo()
    {
        MSFlexGrid grid;
        fill(grid, 3, 2);
        QCOMPARE(errorOf([&] { grid.RemoveItem(0); }), int(RunTimeError::Subscript));
        QCOMPARE(errorOf([&] { grid.RemoveItem(3); }), int(RunTimeError::Subscript));
        grid.RemoveItem(1);
        QCOMPARE(column(grid, 1), (QStringList{"r0c1", "r2c1"}));
        QCOMPARE(errorOf([&] { grid.RemoveItem(1); }), int(RunTimeError::Subscript));
        grid.setRows(1);
        QCOMPARE(errorOf([&] { grid.RemoveItem(0); }), int(RunTimeError::Subscript));
        QCOMPARE(grid.Rows(), 1);
    }

    void addItemGoesAtItsIndexOrToTheEnd()
    {
        MSFlexGrid grid;
        fill(grid, 3, 3);
        grid.AddItem("a\tb\tc\tbeyond the last column", 2);
        QCOMPARE(column(grid, 0), (QStringList{"r0c0", "r1c0", "a", "r2c0"}));
        QCOMPARE(grid.TextMatrix(2, 2), "c");
        grid.AddItem("");
        QCOMPARE(grid.Rows(), 5);
        QCOMPARE(column(grid, 1), (QStringList{"r0c1", "r1c1", "b", "r2c1", ""}));
    }

    void currentCellKeepsItsNumbersWhenRowsComeAndGo()
    {
        MSFlexGrid grid;
        fill(grid, 5, 3);
        grid.setRow(2);
        grid.setCol(2);
        grid.AddItem("", 2);  // a row before the current one: the new row is current
        QCOMPARE(grid.Row(), 2);
        QCOMPARE(grid.Col(), 2);
        QCOMPARE(grid.currentIndex(), grid.model()->index(1, 1));
        grid.RemoveItem(2);
        QCOMPARE(grid.Row(), 2);
        QCOMPARE(grid.TextMatrix(2, 1), "r2c1");
        grid.setRow(4);
        grid.RemoveItem(4);
        QCOMPARE(grid.Row(), 3);
    }

    void aCurrentRowIsVisibleFromTheFirstResultOn()
    {
        MSFlexGrid grid;
        grid.setCols(4);
        QCOMPARE(grid.Row(), 0);
        grid.appendRow({{"a", "b", "c"}, {}});
        QCOMPARE(grid.Row(), 1);
        QCOMPARE(grid.currentIndex(), grid.model()->index(0, 0));
        QCOMPARE(grid.model()->index(0, 2).data(Qt::BackgroundRole).value<QColor>(), theme::kCurrentRow);
        grid.appendRow({{"d", "e", "f"}, {}});
        QCOMPARE(grid.Row(), 1);
        QVERIFY(!grid.model()->index(1, 0).data(Qt::BackgroundRole).isValid());
    }

    void theNewestRowIsInSightAndAfterARemovalTheCurrentOne()
    {
        Window w;
        for (int i = 0; i < 100; ++i) w.grid->appendRow({{"a"}, {}});
        const QRect cells = w.grid->viewport()->geometry();
        QVERIFY(cells.contains(w.grid->cellRect(105, 1).center()));
        QVERIFY(!cells.contains(w.grid->cellRect(1, 1).center()));
        QCOMPARE(w.grid->Row(), 1);
        w.grid->RemoveItem(1);
        QVERIFY(cells.contains(w.grid->cellRect(1, 1).center()));
    }
    void clearEmptiesEveryCellAndKeepsTheRows()
    {
        MSFlexGrid grid;
        fill(grid, 3, 2);
        grid.appendRow({{"x"}, "warned"});
        grid.Clear();
        QCOMPARE(grid.Rows(), 4);
        QCOMPARE(column(grid, 0) + column(grid, 1), QStringList(8, ""));
        QCOMPARE(grid.warning(3), "");
    }

    void renumberingWritesRowNumbersAsText()
    {
        MSFlexGrid grid;
        fill(grid, 4, 2);
        RenumberGrid(grid);
        QCOMPARE(column(grid, 0), (QStringList{"r0c0", "1", "2", "3"}));
        grid.AddItem("", 2);
        RenumberGrid(grid);
        QCOMPARE(column(grid, 0), (QStringList{"r0c0", "1", "2", "3", "4"}));
        grid.RemoveItem(1);
        QCOMPARE(column(grid, 0), (QStringList{"r0c0", "2", "3", "4"}));
        RenumberGrid(grid);
        QCOMPARE(column(grid, 0), (QStringList{"r0c0", "1", "2", "3"}));
        grid.setTextMatrix(2, 0, "?");
        RenumberGrid(grid);
        QCOMPARE(column(grid, 0), (QStringList{"r0c0", "1", "2", "3"}));
        grid.Clear();
        RenumberGrid(grid);
        QCOMPARE(column(grid, 0), (QStringList{"", "1", "2", "3"}));
        grid.setRows(2);
        grid.setRows(4);
        RenumberGrid(grid);
        QCOMPARE(column(grid, 0), (QStringList{"", "1", "2", "3"}));
    }

    void warningsStayWithTheirRow()
    {
        MSFlexGrid grid;
        grid.setCols(3);
        grid.appendRow({{"a", "b"}, {}});
        grid.appendRow({{"c", "d"}, "第二行不可靠"});
        const auto cell = [&](int row, int role) { return grid.model()->index(row - 1, 1).data(role); };
        QCOMPARE(cell(2, Qt::BackgroundRole).value<QColor>(), QColor(0xFF, 0xF3, 0xCD));
        QCOMPARE(cell(2, Qt::ToolTipRole).toString(), "第二行不可靠");
        QCOMPARE(cell(1, Qt::ToolTipRole).toString(), "");
        grid.AddItem("", 1);
        QCOMPARE(grid.warning(2), "");
        QCOMPARE(grid.warning(3), "第二行不可靠");
        grid.RemoveItem(1);
        grid.RemoveItem(1);
        QCOMPARE(grid.warning(1), "第二行不可靠");
        grid.setRows(1);
        grid.appendRow({{"e", "f"}, {}});
        QCOMPARE(grid.warning(1), "");
        QCOMPARE(grid.TextMatrix(1, 2), "f");
    }

    void widthsAndPositionsAreTwips()
    {
        Window w;
        for (int col = 0; col < 5; ++col) w.grid->setColWidth(col, 1500 + 300 * col);
        QCOMPARE(w.grid->ColWidth(3), 2400);
        const int frame = w.frame();
        QCOMPARE(w.grid->ColPos(0), frame);
        QCOMPARE(w.grid->ColPos(1), frame + 1500);
        QCOMPARE(w.grid->ColPos(2), frame + 1500 + 1800);
        QCOMPARE(w.grid->cellRect(1, 2).width(), 2100 / kTwipsPerPixel);
        const int header = w.grid->horizontalHeader()->height() * kTwipsPerPixel;
        const int height = w.grid->rowHeight(0) * kTwipsPerPixel;
        QCOMPARE(w.grid->RowPos(0), frame);
        QCOMPARE(w.grid->RowPos(1), frame + header);
        QCOMPARE(w.grid->RowPos(3), frame + header + 2 * height);
        // A width that is no whole number of pixels stays as it was set.
        w.grid->setColWidth(1, 1234);
        QCOMPARE(w.grid->ColWidth(1), 1234);
    }
    void positionsFollowScrolling()
    {
        Window w;
        fill(*w.grid, 200, 5);
        for (int col = 0; col < 5; ++col) w.grid->setColWidth(col, 3000);
        const int x = w.grid->ColPos(3), y = w.grid->RowPos(50);
        w.take();
        w.grid->horizontalScrollBar()->setValue(120);
        QCOMPARE(w.take(), QStringList{"Scroll"});
        QCOMPARE(w.grid->ColPos(3), x - 120 * kTwipsPerPixel);
        QCOMPARE(w.grid->ColPos(0), w.frame());  // fixed
        w.grid->verticalScrollBar()->setValue(75);
        QCOMPARE(w.take(), QStringList{"Scroll"});
        QCOMPARE(w.grid->RowPos(50), y - 75 * kTwipsPerPixel);
        QCOMPARE(w.grid->RowPos(0), w.frame());
    }
    void aBoxAtPositionPlus45TwipsCoversItsCell()
    {
        Window w;
        w.grid->setColWidth(2, 1700);
        for (const int row : {0, 1, 4})
            for (const int col : {0, 1, 3}) {
                const QPoint place((w.grid->ColPos(col) + 45) / kTwipsPerPixel,
                                   (w.grid->RowPos(row) + 45) / kTwipsPerPixel);
                QCOMPARE(place, w.grid->cellRect(row, col).topLeft());
            }
    }
    void longHeadersWrap()
    {
        Window w;
        const int height = w.grid->horizontalHeader()->height();
        w.grid->setTextMatrix(0, 2, "第一级坡率 第一级坡高 第一级平台宽");
        w.grid->setColWidth(2, 1200);
        QTRY_VERIFY(w.grid->horizontalHeader()->height() > height);
    }
    void columnsCanBeDragged()
    {
        Window w;
        for (int col = 0; col < 5; ++col) w.grid->setColWidth(col, 1500);
        auto* header = w.grid->horizontalHeader()->viewport();
        QTest::mousePress(header, Qt::LeftButton, {}, {99, 5});
        QTest::mouseMove(header, {139, 5});
        QTest::mouseRelease(header, Qt::LeftButton, {}, {139, 5});
        QCOMPARE(w.grid->ColWidth(1), 2100);
        auto* corner = w.grid->findChild<QAbstractButton*>();
        QTest::mousePress(corner, Qt::LeftButton, {}, {98, 5});
        QTest::mouseMove(corner, {118, 5});
        QTest::mouseRelease(corner, Qt::LeftButton, {}, {118, 5});
        QCOMPARE(w.grid->ColWidth(0), 1800);
        QCOMPARE(w.grid->ColPos(1), w.frame() + 120 * kTwipsPerPixel);
    }

    void clickComesOnTheReleaseAfterMouseDownAndTheMove()
    {
        Window w;
        w.mouse(QTest::mousePress, 3, 2);
        QCOMPARE(w.take(), QStringList{"MouseDown 1"});
        QCOMPARE(w.current(), "1 1");
        w.mouse(QTest::mouseRelease, 3, 2);
        QCOMPARE(w.take(), (QStringList{"RowColChange 3 2", "Click 3 2"}));
        w.mouse(QTest::mouseClick, 3, 2);
        QCOMPARE(w.take(), (QStringList{"MouseDown 1", "Click 3 2"}));
    }
    void otherButtonsMoveNothing()
    {
        Window w;
        w.mouse(QTest::mouseClick, 2, 2);
        w.take();
        w.mouse(QTest::mouseClick, 4, 1, Qt::RightButton);
        w.grid->contextMenu()->close();
        w.mouse(QTest::mouseClick, 5, 3, Qt::MiddleButton);
        w.mouse(QTest::mouseClick, 3, 3, Qt::BackButton);
        w.mouse(QTest::mouseDClick, 3, 1, Qt::RightButton);
        w.grid->contextMenu()->close();
        const auto log = w.take();
        QCOMPARE(log.first(3), (QStringList{"MouseDown 2", "MouseDown 4", "MouseDown 2"}));
        QVERIFY(log.filter(QRegularExpression("Click|RowCol")).isEmpty());
        QCOMPARE(w.current(), "2 2");
        w.key(Qt::Key_Down);  // from where the current cell is
        QCOMPARE(w.current(), "3 2");
    }
    void aPressReleasedElsewhereMovesNothing()
    {
        Window w;
        w.mouse(QTest::mouseClick, 2, 2);
        w.take();
        const auto drag = [&](QPoint from, QPoint to) {
            QTest::mousePress(w.grid->viewport(), Qt::LeftButton, {}, from);
            for (const QPoint at : {(from + to) / 2, to}) w.drag(at);
            QTest::mouseRelease(w.grid->viewport(), Qt::LeftButton, {}, to);
        };
        drag(w.at(4, 1), w.at(5, 3));
        QCOMPARE(w.grid->selectedText(false), "r4c1\tr4c2\tr4c3\nr5c1\tr5c2\tr5c3");  // to copy
        drag(w.at(4, 1), w.at(5, 1) + QPoint(0, 60));
        drag(w.at(3, 1), w.at(3, 1) - QPoint(200, 0));
        drag(w.at(5, 1) + QPoint(0, 60), w.at(4, 1));
        QCOMPARE(w.take(), QStringList(4, "MouseDown 1"));
        QCOMPARE(w.current(), "2 2");
        w.key(Qt::Key_Up);
        QCOMPARE(w.current(), "1 2");
    }
    void aClickIsOneWhateverIsHeldWithIt()
    {
        Window w;
        for (const auto held : {Qt::ShiftModifier, Qt::ControlModifier, Qt::AltModifier}) {
            w.mouse(QTest::mouseClick, 1, 1);
            w.take();
            QTest::mouseClick(w.grid->viewport(), Qt::LeftButton, held, w.at(3, 2));
            QCOMPARE(w.take(), (QStringList{"MouseDown 1", "RowColChange 3 2", "Click 3 2"}));
        }
        w.mouse(QTest::mouseClick, 2, 2);
        QTest::mouseClick(w.grid->viewport(), Qt::LeftButton, Qt::ShiftModifier, w.at(3, 3));
        QCOMPARE(w.grid->selectedText(false), "r2c2\tr2c3\nr3c2\tr3c3");
    }
    void anotherButtonInBetweenDoesNotUndoTheClick()
    {
        Window w;
        w.mouse(QTest::mousePress, 3, 2);
        w.mouse(QTest::mousePress, 4, 1, Qt::RightButton);
        w.mouse(QTest::mouseRelease, 4, 1, Qt::RightButton);
        w.grid->contextMenu()->close();
        QCOMPARE(w.current(), "1 1");
        w.mouse(QTest::mouseRelease, 3, 2);
        QCOMPARE(w.take().last(), "Click 3 2");
    }
    void aClickOnARowNumberIsOneOnColumn1()
    {
        Window w;
        w.mouse(QTest::mouseClick, 2, 3);
        w.take();
        w.number(QTest::mousePress, 4);
        QCOMPARE(w.take(), QStringList{"MouseDown 1"});
        QCOMPARE(w.current(), "2 3");
        w.number(QTest::mouseRelease, 4);
        QCOMPARE(w.take(), (QStringList{"RowColChange 4 1", "Click 4 1"}));
        QCOMPARE(w.grid->selectedText(false), "r4c1\tr4c2\tr4c3\tr4c4");  // the whole row, to copy
        w.key(Qt::Key_Down);
        QCOMPARE(w.current(), "5 1");
    }
    void anythingElseOnTheRowNumbersMovesNothing()
    {
        Window w;
        w.mouse(QTest::mouseClick, 2, 3);
        w.take();
        for (const auto button : {Qt::RightButton, Qt::MiddleButton}) w.number(QTest::mouseClick, 4, button);
        w.number(QTest::mousePress, 4);
        w.number(QTest::mouseRelease, 5);
        w.number(QTest::mousePress, 4);
        w.number(QTest::mousePress, 5, Qt::RightButton);
        w.number(QTest::mouseRelease, 4, Qt::RightButton);
        QTest::mouseRelease(w.grid->verticalHeader()->viewport(), Qt::LeftButton, {}, {5, 395});
        QTest::mouseClick(w.grid->verticalHeader()->viewport(), Qt::LeftButton, {}, {5, 395});  // below the rows
        QTest::mouseClick(w.grid->horizontalHeader()->viewport(), Qt::LeftButton, {}, {30, 5});
        QTest::mouseDClick(w.grid->horizontalHeader()->viewport(), Qt::LeftButton, {}, {30, 5});
        QTest::mouseClick(w.grid->findChild<QAbstractButton*>(), Qt::LeftButton, {}, {5, 5});
        QVERIFY2(w.take().filter(QRegularExpression("Click|RowCol")).isEmpty(), "a click");
        QCOMPARE(w.current(), "2 3");
        w.key(Qt::Key_Right);
        QCOMPARE(w.current(), "2 4");
    }
    void quickClicksOnTwoRowNumbersAreTwo()
    {
        Window w;
        w.number(QTest::mouseClick, 2);
        w.take();
        for (const auto& [row, event] : {std::pair{3, "Click 3 1"}, {3, ""}}) {
            w.number(
                [](QWidget* on, Qt::MouseButton button, Qt::KeyboardModifiers, QPoint at, int) {
                    QMouseEvent second(QEvent::MouseButtonDblClick, at, on->mapToGlobal(at), button, button, {});
                    QApplication::sendEvent(on, &second);
                },
                row);
            w.number(QTest::mouseRelease, row);
            QCOMPARE(w.take().filter(" 3 1").filter("Click").join(' '), event);
        }
    }
    void aTapIsAClick()
    {
        Window w;
        const std::unique_ptr<QPointingDevice> screen(QTest::createTouchDevice());
        QTest::touchEvent(&w, screen.get()).press(0, w.at(3, 2), w.grid->viewport());
        QTest::touchEvent(&w, screen.get()).release(0, w.at(3, 2), w.grid->viewport());
        QCOMPARE(w.take(), (QStringList{"MouseDown 1", "RowColChange 3 2", "Click 3 2"}));
        QTest::touchEvent(&w, screen.get()).press(0, w.at(4, 1), w.grid->viewport());
        QTest::touchEvent(&w, screen.get()).move(0, w.at(5, 1), w.grid->viewport());
        QTest::touchEvent(&w, screen.get()).release(0, w.at(5, 1), w.grid->viewport());
        QCOMPARE(w.current(), "3 2");
    }
    void theWheelMovesNothing()
    {
        Window w;
        fill(*w.grid, 200, 5);
        w.mouse(QTest::mouseClick, 2, 2);
        w.take();
        for (QWidget* on : {w.grid->viewport(), w.grid->verticalHeader()->viewport()}) {
            QWheelEvent turn({20, 20}, on->mapToGlobal(QPointF(20, 20)), {}, {0, -240}, {}, {}, Qt::NoScrollPhase,
                             false);
            QApplication::sendEvent(on, &turn);
        }
        QVERIFY(w.grid->verticalScrollBar()->value() > 0);
        QVERIFY(w.take().filter(QRegularExpression("Click|RowCol")).isEmpty());
        QCOMPARE(w.current(), "2 2");
    }
    void fixedCellsAreNoClick()
    {
        Window w;
        auto* across = w.grid->horizontalHeader()->viewport();
        QTest::mouseClick(across, Qt::LeftButton, {}, {30, 5});
        w.number(QTest::mouseClick, 1, Qt::RightButton);
        QTest::mouseClick(w.grid->findChild<QAbstractButton*>(), Qt::LeftButton, {}, {5, 5});
        const auto log = w.take();
        QCOMPARE(log.filter("MouseDown"), (QStringList{"MouseDown 1", "MouseDown 2", "MouseDown 1"}));
        QVERIFY(log.filter("Click").isEmpty());
    }
    void emptyRoomBelowTheRowsIsNoClick()
    {
        Window w;
        w.grid->setRow(2);
        w.take();
        QTest::mouseClick(w.grid->viewport(), Qt::LeftButton, {}, w.at(5, 1) + QPoint(0, 60));
        QCOMPARE(w.take(), QStringList{"MouseDown 1"});
        QCOMPARE(w.grid->Row(), 2);
    }
    void secondPressOfADoubleClickIsNoSecondClick()
    {
        Window w;
        w.mouse(QTest::mouseClick, 3, 2);
        w.take();
        QMouseEvent second(QEvent::MouseButtonDblClick, w.at(3, 2), w.grid->viewport()->mapToGlobal(w.at(3, 2)),
                           Qt::LeftButton, Qt::LeftButton, {});
        QApplication::sendEvent(w.grid->viewport(), &second);
        w.mouse(QTest::mouseRelease, 3, 2);
        QCOMPARE(w.take(), QStringList{});
    }
    void settingTheCellByProgramIsNoUserMove()
    {
        Window w;
        w.grid->setRow(3);
        w.grid->setCol(2);
        w.grid->setRows(9);
        QCOMPARE(w.take(), QStringList{});
    }
    void arrowsMoveAndTabLeaves()
    {
        Window w;
        w.grid->setFocus();
        w.grid->setRow(2);
        QTest::keyClick(w.grid, Qt::Key_Down);
        QTest::keyClick(w.grid, Qt::Key_Right);
        QCOMPARE(w.take(), (QStringList{"RowColChange 3 1", "RowColChange 3 2"}));
        QTest::keyClick(w.grid, Qt::Key_Tab);
        QVERIFY(w.box->hasFocus());
    }
    void keysNeverOpenAnEditor()
    {
        Window w;
        w.grid->setFocus();
        w.grid->setTextMatrix(4, 1, "5 starts this row");
        for (const auto key : {Qt::Key_F2, Qt::Key_5, Qt::Key_Return}) QTest::keyClick(w.grid, key);
        QCOMPARE(w.grid->Row(), 1);  // nor does typing look for a row
        w.mouse(QTest::mouseDClick, 2, 2);
        QVERIFY(w.grid->findChildren<QLineEdit*>().isEmpty());
        QCOMPARE(w.grid->TextMatrix(2, 2), "r2c2");
    }

    void copiesTheSelectionTabSeparated()
    {
        Window w;
        w.grid->setFocus();
        w.grid->setTextMatrix(3, 3, "one\ttwo");
        w.mouse(QTest::mousePress, 2, 2);
        QTest::mouseMove(w.grid->viewport(), w.at(3, 3));
        w.grid->selectionModel()->select({w.grid->model()->index(1, 1), w.grid->model()->index(2, 2)},
                                         QItemSelectionModel::ClearAndSelect);
        w.mouse(QTest::mouseRelease, 3, 3);
        QTest::keyClick(w.grid, Qt::Key_C, Qt::ControlModifier);
        QCOMPARE(QGuiApplication::clipboard()->text(), "r2c2\tr2c3\nr3c2\tone two");
    }
    void menuCopiesWithHeaderAndSelectsAll()
    {
        Window w;
        const auto entries = w.grid->contextMenu()->actions();
        QStringList captions;
        for (const auto* entry : entries)
            if (!entry->isSeparator()) captions << entry->text();
        QCOMPARE(captions, (QStringList{"复制", "复制含表头", "全选"}));
        w.grid->setRow(5);
        entries.at(0)->trigger();
        QCOMPARE(QGuiApplication::clipboard()->text(), "r5c1");
        entries.at(1)->trigger();
        QCOMPARE(QGuiApplication::clipboard()->text(), "r0c1\nr5c1");
        w.grid->setRows(3);
        entries.last()->trigger();
        entries.at(1)->trigger();
        QCOMPARE(QGuiApplication::clipboard()->text(),
                 "r0c1\tr0c2\tr0c3\tr0c4\nr1c1\tr1c2\tr1c3\tr1c4\nr2c1\tr2c2\tr2c3\tr2c4");
    }
    void menuOpensOnTheRightRelease()
    {
        Window w;
        w.mouse(QTest::mousePress, 2, 2, Qt::RightButton);
        QVERIFY(!w.grid->contextMenu()->isVisible());
        w.mouse(QTest::mouseRelease, 2, 2, Qt::RightButton);
        QVERIFY(w.grid->contextMenu()->isVisible());
        w.grid->contextMenu()->close();
    }
    void nothingSorts()
    {
        Window w;
        QVERIFY(!w.grid->isSortingEnabled());
        const auto before = column(*w.grid, 1);
        QTest::mouseClick(w.grid->horizontalHeader()->viewport(), Qt::LeftButton, {}, {30, 5});
        QCOMPARE(column(*w.grid, 1), before);
    }

    void textsCutOffAreToldByAToolTip()
    {
        Window w;
        w.grid->setColWidth(1, 600);
        w.grid->setTextMatrix(1, 1, "123度45分06秒");
        const auto tipAt = [&](int row, int col) {
            QHelpEvent help(QEvent::ToolTip, w.at(row, col), w.grid->viewport()->mapToGlobal(w.at(row, col)));
            QApplication::sendEvent(w.grid->viewport(), &help);
            return QToolTip::isVisible() ? QToolTip::text() : QString();
        };
        QCOMPARE(tipAt(1, 1), "123度45分06秒");
        QToolTip::hideText();
        w.grid->setColWidth(1, 3000);
        QTRY_VERIFY(!QToolTip::isVisible());
        QCOMPARE(tipAt(1, 1), "");
    }

    void aWholeRowHasRoomHoweverSmallTheGrid_data()
    {
        QTest::addColumn<int>("points");
        for (const int points : {9, 14, 28}) QTest::addRow("%d", points) << points;
    }
    void aWholeRowHasRoomHoweverSmallTheGrid()
    {
        QFETCH(int, points);
        QWidget around;
        MSFlexGrid grid(&around);
        QFont font = grid.font();
        font.setPointSize(points);
        grid.setFont(font);
        fill(grid, 5, 9);  // wider than what is left of it, so that there is a bar below
        grid.resize(200, grid.minimumSizeHint().height());
        around.show();
        QVERIFY(grid.horizontalScrollBar()->isVisible());
        QCOMPARE(grid.cellRect(1, 1).top(), grid.viewport()->geometry().top());
        QVERIFY(grid.cellRect(1, 1).bottom() <= grid.viewport()->geometry().bottom());
    }

    void hintShowsOnlyInAnEmptyGrid()
    {
        Window w;
        w.grid->setRows(1);
        QTest::qWait(1);
        const QImage empty = w.grid->viewport()->grab().toImage();
        w.grid->setHint("输入里程，按“计 算”得到坐标");
        QVERIFY(w.grid->viewport()->grab().toImage() != empty);
        w.grid->setHint("");
        QCOMPARE(w.grid->viewport()->grab().toImage(), empty);
        w.grid->setRows(2);
        const QImage filled = w.grid->viewport()->grab().toImage();
        w.grid->setHint("输入里程，按“计 算”得到坐标");
        QCOMPARE(w.grid->viewport()->grab().toImage(), filled);
    }

    void digitsOfTheGridAreOfOneWidth() { QVERIFY(digitsOfOneWidth(MSFlexGrid().font())); }

    void sinkNumbersAndCountsTheRows()
    {
        Window w;
        ResultTable table(*w.grid);
        table.state.rows = 7;
        {
            GridSink sink(*w.grid, table);
            sink.clear();
            QCOMPARE(table.state.rows, 7);  // only a row sets it
            sink.row({{"a", "b"}, ""});
            QCOMPARE(table.state.rows, 1);
            sink.row({{"c", "d"}, "warned"});
            QCOMPARE(table.state.rows, 2);
            QCOMPARE(w.grid->Rows(), 3);
        }
        QCOMPARE(column(*w.grid, 0), (QStringList{"r0c0", "1", "2"}));
        QCOMPARE(column(*w.grid, 2), (QStringList{"r0c2", "b", "d"}));
        QCOMPARE(w.grid->warning(2), "warned");
        QCOMPARE(w.grid->model()->rowCount(), 2);
        QCOMPARE(w.grid->Row(), 1);
    }
    void sinkAppendsToEarlierRows()
    {
        Window w;
        ResultTable table(*w.grid);
        GridSink(*w.grid, table).row({{"a"}, ""});
        QCOMPARE(table.state.rows, 6);
        QCOMPARE(w.grid->TextMatrix(6, 0), "6");
        QCOMPARE(w.grid->TextMatrix(5, 1), "r5c1");
    }
    void rowsShowWhileABoxIsUp()
    {
        Window w;
        w.grid->setRows(1);
        ResultTable table(*w.grid);
        GridSink sink(*w.grid, table);
        sink.row({{"a", "b"}, ""});
        QCOMPARE(w.grid->model()->rowCount(), 0);
        int shown = 0;
        QEventLoop box;  // a modal box takes input as ever
        QTimer::singleShot(20, &box, [&] {
            shown = w.grid->model()->rowCount();
            QTest::keyClick(w.box, Qt::Key_7);
            box.quit();
        });
        box.exec();
        QCOMPARE(shown, 1);
        QCOMPARE(w.box->text(), "7");
    }
    void row32768IsAnOverflowAndStaysEmpty()
    {
        MSFlexGrid grid;
        grid.setCols(3);
        ResultTable table(grid);
        {
            GridSink sink(grid, table);
            for (int i = 0; i < 32767; ++i) sink.row({{"a", "b"}, ""});
            QCOMPARE(table.state.rows, 32767);
            QCOMPARE(errorOf([&] { sink.row({{"a", "b"}, ""}); }), int(RunTimeError::Overflow));
        }
        QCOMPARE(table.state.rows, 32767);
        QCOMPARE(grid.Rows(), 32769);
        QCOMPARE(grid.TextMatrix(32767, 0), "32767");
        QCOMPARE(grid.TextMatrix(32767, 1), "a");
        QCOMPARE(grid.TextMatrix(32768, 1), "");
    }
    void longWorkPaintsAndEscAbandonsIt()
    {
        Window w;
        w.grid->setRows(1);
        w.box->setFocus();
        ResultTable table(*w.grid);
        QTimer::singleShot(100, &w, [&] { QTest::keyClick(w.box, Qt::Key_7); });
        QTimer::singleShot(150, &w, [&] { w.mouse(QTest::mouseClick, 1, 1); });
        QTimer::singleShot(200, &w, [&] { w.close(); });
        QTimer::singleShot(400, &w, [&] { QTest::keyClick(w.box, Qt::Key_Escape); });
        bool told = false;
        {
            GridSink sink(*w.grid, table);
            while (!sink.abandoned()) {
                sink.row({{"a", "b"}, ""});
                const auto* busy = w.grid->findChild<BusyRow*>();
                told = told || (busy->isVisible() && w.grid->model()->rowCount() > 0);
                QTest::qSleep(5);
            }
            QVERIFY(table.state.rows > 0);
        }
        QVERIFY(told);
        QVERIFY(w.isVisible());                       // closing was refused,
        QCOMPARE(w.box->text(), "");                  // typing too,
        QVERIFY(w.take().filter("Click").isEmpty());  // and clicks
        QCOMPARE(w.grid->Rows() - 1, table.state.rows);
        QTest::keyClick(w.box, Qt::Key_7);
        QCOMPARE(w.box->text(), "7");
    }
};

VM_QT_TEST(tst_MSFlexGrid)
#include "tst_MSFlexGrid.moc"
