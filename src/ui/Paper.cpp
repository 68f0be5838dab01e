#include "ui/Paper.h"

#include "base/FileError.h"
#include "base/ReplaceFile.h"
#include "dialogs/Dialogs.h"
#include "dialogs/FileBox.h"
#include "dialogs/Messages.h"
#include "ui/Fields.h"

#include <QBuffer>
#include <QFileInfo>
#include <QPdfWriter>
#include <QPrintDialog>
#include <QPrinter>

QString askPath(const QString& extension, const QString& proposed)
{
    const auto filter = toUtf8(QStringLiteral("(*.%1)|*.%1|").arg(extension));
    const auto chosen =
        proposed.isEmpty() ? dialogs().saveFile(filter) : dialogs().saveFileAs(filter, toUtf8(proposed));
    if (!chosen || chosen->empty()) return {};
    QString path = fromUtf8(*chosen);
    if (QFileInfo(path).suffix().compare(extension, Qt::CaseInsensitive) != 0) path += u'.' + extension;
    if (QFileInfo::exists(path) && !dialogs().box(Question(message::kOverwrite))) return {};
    return path;
}

bool writeOrSay(const QString& path, const std::string& bytes)
{
    try {
        WriteResult(toUtf8(path), bytes);
        return true;
    } catch (const FileError& error) {
        dialogs().box(FileBox(error));
        return false;
    }
}

std::string pdfBytes(const QPageLayout& layout, const QString& title, const PaintPages& paint)
{
    QByteArray bytes;
    {
        QBuffer buffer(&bytes);
        buffer.open(QIODevice::WriteOnly);
        QPdfWriter writer(&buffer);
        writer.setResolution(1200);
        writer.setPageLayout(layout);
        writer.setTitle(title);
        writer.setCreator(QStringLiteral("Velumark"));
        paint(writer);
    }
    return bytes.toStdString();
}

void printOnPaper(QWidget* over, const QPageLayout& layout, const QString& title, const PaintPages& paint)
{
    QPrinter printer(QPrinter::HighResolution);
    printer.setPageLayout(layout);
    printer.setDocName(title);
    QPrintDialog dialog(&printer, over);
    if (dialog.exec() == QDialog::Accepted) paint(printer);
}
