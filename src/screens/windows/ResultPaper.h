#pragma once
// The rows of a calculation window on paper and as a PDF.

#include "screens/Export.h"

#include <QDate>
#include <QString>

class MSFlexGrid;
class QPagedPaintDevice;
class QPageLayout;

/// What stands around the table on each page.
struct ResultPaper {
    QString title, project;
    QString station;  ///< "" for rows without one
    QDate date;
};
/// A4, landscape.
QPageLayout resultLayout();
/// The table with its two head rows on each page; above it title, project, station and date; below it lines to sign,
/// and the page out of how many.
void printResult(const Worksheet& sheet, const ResultPaper& paper, QPagedPaintDevice& device);

/// The entries 打印… and 导出PDF… in the right click menu of a result grid.
/// @param sheet  what a save would write; may throw RunTimeError
void addPaper(MSFlexGrid& grid, std::function<Worksheet()> sheet, std::function<ResultPaper()> paper);
