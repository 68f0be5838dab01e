// What a grid does with its width: words of its header, the last column, a column that stays in sight.

#include "support/QtTests.h"
#include "ui/GridHeader.h"
#include "ui/MSFlexGrid.h"
#include "ui/PinnedColumn.h"

#include <QScrollBar>
#include <QtTest>

class tst_GridHeader : public QObject {
    Q_OBJECT
private slots:
    void headerWordsAreNotBrokenOffByOneCharacter()
    {
        const QFontMetrics metrics(QApplication::font());
        const QString words = QStringLiteral("中央分隔带宽度");
        for (int characters = 2; characters < 8; ++characters) {
            const int width = metrics.horizontalAdvance(words.left(characters));
            const auto lines = evenLines(words, metrics, width).split(u'\n');
            QCOMPARE(lines.join(QString()), words);
            for (const auto& line : lines) {
                QVERIFY(metrics.horizontalAdvance(line) <= width);
                if (characters > 3) QVERIFY(line.size() >= 3);
            }
        }
        QCOMPARE(evenLines(words, metrics, metrics.horizontalAdvance(words)), words);
        QCOMPARE(evenLines(QStringLiteral("里 程"), metrics, 500), QStringLiteral("里 程"));
    }
    void aHeaderIsAsHighAsItsLines()
    {
        MSFlexGrid grid;
        grid.setCols(3);
        grid.setTextMatrix(0, 1, QStringLiteral("起点左幅路基宽度"));
        grid.setColWidth(1, 3000);
        grid.setColWidth(2, 3000);
        grid.show();
        QTest::qWait(1);
        const int one = grid.cellRect(0, 1).height();
        grid.setColWidth(1, 1200);
        const int line = grid.fontMetrics().lineSpacing();
        QTRY_VERIFY(grid.cellRect(0, 1).height() >= one + line);
        QVERIFY(grid.cellRect(0, 1).height() < one + 2 * line);
    }

    void theLastColumnTakesTheFreeWidth()
    {
        MSFlexGrid grid;
        grid.setCols(4);
        for (int col = 0; col < 4; ++col) grid.setColWidth(col, 1500);
        grid.setLastColumnFills(true);
        grid.setRows(3);
        grid.resize(700, 200);
        grid.show();
        const auto right = [&] { return grid.cellRect(1, 3).right(); };
        const auto edge = [&] { return grid.viewport()->geometry().right(); };
        QTRY_COMPARE(right(), edge());
        grid.resize(900, 200);
        QTRY_COMPARE(right(), edge());
        grid.horizontalHeader()->resizeSection(0, 140);  // as the mouse does
        QCOMPARE(right(), edge());
        QCOMPARE(grid.ColWidth(1), 2100);
        QCOMPARE(grid.ColWidth(3), 1500);
        grid.resize(300, 200);
        QTRY_COMPARE(grid.cellRect(1, 3).width(), 100);  // never narrower than its own width
        QCOMPARE(grid.ColWidth(3), 1500);
    }

    void aPinnedColumnStaysInSightWhileTheOthersScroll()
    {
        MSFlexGrid grid;
        grid.setCols(12);
        for (int row = 1; row <= 5; ++row) {
            grid.appendRow({});
            for (int col = 0; col < 12; ++col) grid.setTextMatrix(row, col, QStringLiteral("%1-%2").arg(row).arg(col));
        }
        for (int col = 0; col < 12; ++col) grid.setTextMatrix(0, col, QStringLiteral("列%1").arg(col));
        grid.resize(400, 240);
        PinnedColumn pinned(grid);
        grid.show();
        QTest::qWait(1);
        QVERIFY(!pinned.isVisible());
        const QRect place(
            grid.cellRect(0, 1).topLeft(),
            QSize(grid.cellRect(0, 1).width(), grid.cellRect(5, 1).bottom() + 1 - grid.cellRect(0, 1).top()));
        const auto at = grid.cellRect(3, 1).center();
        const QImage before = grid.grab(QRect(at - QPoint(20, 8), QSize(40, 16))).toImage();
        grid.horizontalScrollBar()->setValue(grid.horizontalScrollBar()->maximum());
        QVERIFY(pinned.isVisible());
        QCOMPARE(pinned.geometry().topLeft(), place.topLeft());
        QCOMPARE(pinned.width(), place.width());
        const QImage after = grid.grab(QRect(at - QPoint(20, 8), QSize(40, 16))).toImage();
        QCOMPARE(after, before);

        // A click on it is one on the row.
        QSignalSpy clicks(&grid, &MSFlexGrid::Click);
        QTest::mouseClick(&pinned, Qt::LeftButton, {}, pinned.mapFrom(&grid, at));
        QCOMPARE(clicks.size(), 1);
        QCOMPARE(grid.Row(), 3);
        QCOMPARE(grid.Col(), 1);

        // A cell that a key moves to does not stay under it.
        grid.setCol(11);
        grid.setFocus();
        for (int i = 0; i < 9; ++i) {
            QTest::keyClick(&grid, Qt::Key_Left);
            QTest::qWait(1);
            QVERIFY(grid.cellRect(3, grid.Col()).left() > pinned.geometry().right());
        }
        QCOMPARE(grid.Col(), 2);
    }
};

VM_QT_TEST(tst_GridHeader)
#include "tst_GridHeader.moc"
