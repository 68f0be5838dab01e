#include "screens/windows/ResultPaper.h"

#include "base/RunTimeError.h"
#include "office/Worksheet.h"
#include "office/windows/SheetPainter.h"
#include "screens/Messages.h"
#include "ui/Fields.h"
#include "ui/MSFlexGrid.h"
#include "ui/Paper.h"
#include "ui/RunHandler.h"

#include <QMenu>
#include <QPainter>

using namespace Qt::StringLiterals;

namespace {

constexpr double kMargin = 0.5, kHead = 0.55, kFoot = 0.45;  // inches
constexpr double kTitlePoints = 14, kPoints = 9;

QFont fontOf(double points)
{
    QFont font;
    font.setPointSizeF(points);
    return font;
}

void paintAround(QPainter& painter, const ResultPaper& paper, const QRect& page, int number, int count)
{
    painter.save();
    painter.setPen(Qt::black);
    painter.setFont(fontOf(kTitlePoints));
    painter.drawText(page, Qt::AlignTop | Qt::AlignHCenter, paper.title);
    const int line = painter.fontMetrics().height();
    painter.setFont(fontOf(kPoints));
    const QRect second = page.adjusted(0, line, 0, 0);
    painter.drawText(second, Qt::AlignTop | Qt::AlignLeft, u"项目："_s + paper.project);
    if (!paper.station.isEmpty())
        painter.drawText(second, Qt::AlignTop | Qt::AlignHCenter, u"测站："_s + paper.station);
    painter.drawText(second, Qt::AlignTop | Qt::AlignRight, u"日期："_s + paper.date.toString(u"yyyy-MM-dd"_s));
    painter.drawText(page, Qt::AlignBottom | Qt::AlignLeft, u"计算：______________　　复核：______________"_s);
    painter.drawText(page, Qt::AlignBottom | Qt::AlignRight, u"第 %1 页，共 %2 页"_s.arg(number).arg(count));
    painter.restore();
}

QString nameOf(const ResultPaper& paper)
{
    return paper.project.isEmpty() ? paper.title : paper.project + u' ' + paper.title;
}

/// Runs with the sheet, where there is one; says what is missing.
void withSheet(const MSFlexGrid& grid, const std::function<Worksheet()>& sheet,
               const std::function<void(const Worksheet&)>& body)
{
    if (grid.Rows() < 2) {
        dialogs().box(Notice(message::kNothingToSave));
        return;
    }
    try {
        body(sheet());
    } catch (const RunTimeError& error) {
        dialogs().box({error.what(), std::string(message::kError), Icon::Exclamation});
    }
}

}  // namespace

QPageLayout resultLayout()
{
    return {QPageSize(QPageSize::A4), QPageLayout::Landscape, QMarginsF(kMargin, kMargin, kMargin, kMargin),
            QPageLayout::Inch};
}

void printResult(const Worksheet& sheet, const ResultPaper& paper, QPagedPaintDevice& device)
{
    SheetPrint how{.landscape = true, .fitToWidth = true, .headRows = sheet.page.titleRows};
    how.head = kHead;
    how.foot = kFoot;
    how.around = [&](QPainter& painter, const QRect& page, int number, int count) {
        paintAround(painter, paper, page, number, count);
    };
    printSheet(sheet, device, how);
}

void addPaper(MSFlexGrid& grid, std::function<Worksheet()> sheet, std::function<ResultPaper()> paper)
{
    const auto add = [&grid](const QString& caption, const QString& name, const std::function<void()>& run) {
        grid.contextMenu()->addAction(caption, &grid, [run] { runHandler(run); })->setObjectName(name);
    };
    add(u"打印…"_s, u"mnuPrint"_s, [&grid, sheet, paper] {
        withSheet(grid, sheet, [&](const Worksheet& made) {
            const ResultPaper around = paper();
            printOnPaper(grid.window(), resultLayout(), nameOf(around),
                         [&](QPagedPaintDevice& device) { printResult(made, around, device); });
        });
    });
    add(u"导出PDF…"_s, u"mnuPdf"_s, [&grid, sheet, paper] {
        withSheet(grid, sheet, [&](const Worksheet& made) {
            const ResultPaper around = paper();
            const QString path = askPath(u"pdf"_s, fromUtf8(ProposedName(toUtf8(around.title), "pdf")));
            if (path.isEmpty()) return;
            const auto bytes = pdfBytes(resultLayout(), nameOf(around),
                                        [&](QPagedPaintDevice& device) { printResult(made, around, device); });
            if (writeOrSay(path, bytes))
                dialogs().box({std::string(message::kSaved), std::string(message::kSuccess), Icon::Information});
        });
    });
}
