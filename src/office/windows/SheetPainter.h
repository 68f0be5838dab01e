#pragma once
// A sheet as ink, on the screen as on paper.

#include "office/windows/SheetGeometry.h"

#include <QPagedPaintDevice>

#include <functional>
#include <vector>

class QPainter;

/// Paints cells: fills, faint grid lines where wanted, lines, texts. The painter's origin is the sheet's corner.
struct SheetPaint {
    bool gridLines = false;
    CellRef hidden{65536, 256};  ///< the cell whose text an editor covers
};
void paintSheet(QPainter& painter, const Worksheet& sheet, const SheetGeometry& geometry, const CellRange& cells,
                const SheetPaint& how = {});

/// Fonts of the sheet where the machine lacks them: the nearest ones that it has.
void substituteSheetFonts();

/// What a window's print and PDF do beside the page setup of the sheet's file.
struct SheetPrint {
    bool landscape = false, fitToWidth = false;
    int headRows = 0;   ///< at the top of every page
    int lastBlock = 0;  ///< the row from which on all stand on one page; 0: none

    double head = 0, foot = 0;  ///< inches of each page above and below the sheet
    /// Paints what stands there. @param page  all of the page, device pixels; pages count from 1
    std::function<void(QPainter& painter, const QRect& page, int number, int count)> around = {};
};
struct SheetPage {
    CellRange cells;
    int heads;  ///< so many rows of the sheet's top stand above them once more
};
/// How a sheet is parted over pages of a size.
std::vector<SheetPage> sheetPages(const SheetGeometry& geometry, QSize page, const SheetPrint& how);
/// The sheet on pages with its own margins; shrunk to the width of the page where asked for. A page does not begin
/// inside a merged cell of the first column.
void printSheet(const Worksheet& sheet, QPagedPaintDevice& device, const SheetPrint& how = {});
/// Paper and margins of a sheet.
QPageLayout pageLayout(const PageSetup& page, const SheetPrint& how = {});
