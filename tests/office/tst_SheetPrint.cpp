// A sheet on paper: where pages begin, what stands on each of them; and its ink.

#ifndef Q_MOC_RUN  // moc does not read concepts
#include "office/Worksheet.h"
#include "office/windows/SheetPainter.h"
#endif
#include "office/windows/SheetView.h"
#include "office/windows/SheetWindow.h"
#include "support/QtTests.h"

#include <QAction>
#include <QImage>
#include <QPainter>
#include <QtTest>

namespace {

/// Rows 1 to 3 a head; points on pairs of rows from an even one in columns 1 and 3, legs on pairs from an odd one in
/// column 2; four closing rows.
Worksheet traverse(int points)
{
    Worksheet sheet;
    sheet.setRowHeight("a1", 28.5);
    const int last = 2 * points + 2;
    for (int row = 4; row <= last; row += 2)
        for (const int col : {1, 3}) sheet.merge({row, col, row + 1, col});
    for (int row = 5; row < last; row += 2) sheet.merge({row, 2, row + 1, 2});
    for (int row = 1; row <= last + 5; ++row) sheet.setNumber({row, 1}, row);
    return sheet;
}

std::vector<SheetPage> pagesOf(const Worksheet& sheet, QSize page, const SheetPrint& how)
{
    return sheetPages(SheetGeometry(sheet, 1, sheet.rows(), sheet.cols()), page, how);
}

QImage painted(const Worksheet& sheet, const SheetGeometry& geometry)
{
    QImage image(geometry.size(), QImage::Format_RGB32);
    image.fill(Qt::white);
    QPainter painter(&image);
    paintSheet(painter, sheet, geometry, CellRange(1, 1, geometry.rows(), geometry.cols()));
    return image;
}

int inkIn(const QImage& image)
{
    int dark = 0;
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x) dark += 255 - qGray(image.pixel(x, y));
    return dark;
}

}  // namespace

class tst_SheetPrint : public QObject {
    Q_OBJECT
private slots:
    void pagesBreakBetweenPointsAndRepeatTheHead()
    {
        const int points = 40;
        const Worksheet sheet = traverse(points);
        const SheetGeometry geometry(sheet, 1, sheet.rows(), sheet.cols());
        const QSize paper(2000, 600);
        const auto pages = pagesOf(sheet, paper, {.headRows = 3, .lastBlock = 2 * points});
        QVERIFY(pages.size() > 2);
        int next = 1;
        for (const auto& [cells, heads] : pages) {
            QCOMPARE(cells.first.row, next);
            next = cells.last.row + 1;
            QCOMPARE(heads, cells.first.row == 1 ? 0 : 3);
            if (cells.first.row > 1) QCOMPARE(cells.first.row % 2, 0);
            const int height = geometry.rect(cells).height() + geometry.lines()[static_cast<std::size_t>(heads)];
            QVERIFY(height <= paper.height());
            QVERIFY(&cells == &pages.back().cells || height > paper.height() - 4 * 19);  // no page is left half empty
        }
        QCOMPARE(next, sheet.rows() + 1);
    }
    void theConclusionStaysWithTheLastPoints()
    {
        for (int points = 5; points < 60; ++points) {
            const Worksheet sheet = traverse(points);
            const auto pages = pagesOf(sheet, {2000, 600}, {.headRows = 3, .lastBlock = 2 * points});
            QVERIFY2(pages.back().cells.first.row <= 2 * points, qPrintable(QString::number(points)));
        }
    }
    void aBlockHigherThanThePageIsParted()
    {
        const Worksheet sheet = traverse(20);
        const auto pages = pagesOf(sheet, {2000, 120}, {.headRows = 3, .lastBlock = 4});
        QVERIFY(pages.size() > 5);
        QCOMPARE(pages.back().cells.last.row, sheet.rows());
    }
    void aPageLowerThanARowTakesOne()
    {
        const Worksheet sheet = traverse(5);
        QCOMPARE(static_cast<int>(pagesOf(sheet, {2000, 5}, {}).size()), sheet.rows());
    }

    void descendersOfTheClosingLinesAreWhole()
    {
        const auto inkAtHeight = [](double points) {
            Worksheet sheet;
            sheet.setRowHeight("a1:a3", points);
            sheet.setColumnWidth("a1", 40);
            sheet.setText("a2", "fy=1089.479 -(gjpqy)");
            return inkIn(painted(sheet, SheetGeometry(sheet, 1, 3, 2)));
        };
        const int whole = inkAtHeight(60);
        QVERIFY(whole > 0);
        QVERIFY(std::abs(inkAtHeight(Worksheet::kStandardHeight) - whole) <= whole / 100);
    }

    void ctrlYRedoes()
    {
        Worksheet sheet;
        auto* window = new SheetWindow(sheet);
        window->show();
        QApplication::setActiveWindow(window);
        window->view().setFocus();
        window->view().enter("12");
        QTest::keyClick(window, Qt::Key_Z, Qt::ControlModifier);
        QCOMPARE(QString::fromStdString(window->sheet().text("a1")), "");
        QTest::keyClick(window, Qt::Key_Y, Qt::ControlModifier);
        QCOMPARE(QString::fromStdString(window->sheet().text("a1")), "12");
        delete window;
    }
};

VM_QT_TEST(tst_SheetPrint)
#include "tst_SheetPrint.moc"
