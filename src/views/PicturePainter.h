#pragma once
// A picture of src/plot on a painter: a window, an image, a page.

#include "plot/Sheets.h"

#include <QPainter>

/// Paints a picture whose coordinates are pixels, y downwards. @param pxPerMm of pens
void paintPicture(QPainter& painter, const plot::Picture& picture, double pxPerMm);
/// Paints a sheet from the upper left corner of the page on.
void paintSheet(QPainter& painter, const plot::Sheet& sheet, double pxPerMm);
/// Sheets as one .pdf, a page each, of their true size.
QByteArray pdfOf(const std::vector<plot::Sheet>& sheets, const QString& title);
/// A sheet as an image.
QImage imageOf(const plot::Sheet& sheet, double dotsPerInch);
