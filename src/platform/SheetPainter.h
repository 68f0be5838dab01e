#pragma once
// A sheet as ink, on the screen as on paper.

#include "platform/SheetGeometry.h"

#include <QPagedPaintDevice>

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

/// The sheet on pages with its own margins; shrunk to the width of the page where its page setup says so.
void printSheet(const Worksheet& sheet, QPagedPaintDevice& device);
/// Paper and margins of a sheet.
QPageLayout pageLayout(const PageSetup& page);
