#pragma once
// Where a copy of a document goes: a file that is asked for, a PDF, a printer.

#include <QPageLayout>
#include <QPagedPaintDevice>
#include <QString>

#include <functional>
#include <string>

/// Asks for a file to write, with the overwrite question; an extension that is missing is added. "" for Cancel and No.
/// @param extension  without a point  @param proposed  a name to begin with, "" for none
QString askPath(const QString& extension, const QString& proposed = {});
/// Writes a file whole or not at all; what fails is said in a box. False: it was not written.
bool writeOrSay(const QString& path, const std::string& bytes);

using PaintPages = std::function<void(QPagedPaintDevice& device)>;
/// What would be printed, as the bytes of a PDF file.
std::string pdfBytes(const QPageLayout& layout, const QString& title, const PaintPages& paint);
/// Asks for the printer and prints.
void printOnPaper(QWidget* over, const QPageLayout& layout, const QString& title, const PaintPages& paint);
