#include "exchange/windows/frmScbj.h"

#include "base/FileBytes.h"
#include "base/Numbers.h"
#include "base/ReplaceFile.h"
#include "controls/XPButton.h"
#include "exchange/Xlsx.h"
#include "exchange/windows/Saying.h"
#include "project/Workspace.h"
#include "ui/Layout.h"
#include "ui/MSFlexGrid.h"

#include <QBuffer>
#include <QPageLayout>
#include <QPdfWriter>
#include <QScreen>
#include <QTextDocument>

#include <algorithm>

using namespace Qt::StringLiterals;

frmScbj::frmScbj(const Tables& tables, std::vector<MeasuredPoint> measured)
    : Form(u"frmScbj"_s, u"实测点与设计比较"_s), m_tables(tables), m_measured(std::move(measured)),
      txtScbjPm(control<QLineEdit>("txtScbjPm")), txtScbjGc(control<QLineEdit>("txtScbjGc")),
      MsfgScbj(control<MSFlexGrid>("MsfgScbj")), butScbjFy(control<XPButton>("butScbjFy", u"放样点…"_s)),
      butScbjCalc(control<XPButton>("butScbjCalc", u"计 算"_s)),
      butScbjSave(control<XPButton>("butScbjSave", u"另存为…"_s)),
      butScbjBack(control<XPButton>("butScbjBack", u"返 回"_s))
{
    for (auto* box : {txtScbjPm, txtScbjGc}) {
        filterKeys(box, IsUnsignedDecimalKey);
        ui::fitDigits(box, 8);
    }
    MsfgScbj->setLastColumnFills(true);
    // Every column at once, as far as the screen is wide enough.
    MsfgScbj->setMinimumSize(std::min(1000, screen()->availableSize().width() - 80), 300);
    ui::arrange(*this,
                {ui::frame(u"限差"_s, ui::fieldLine({{u"点位（米）"_s, txtScbjPm}, {u"高差（米）"_s, txtScbjGc}})),
                 MsfgScbj, ui::buttonRow({butScbjFy, butScbjCalc, butScbjSave, butScbjBack})});
    on(butScbjFy, &XPButton::Click, [this] {
        const auto path = dialogs().openFile("点 (*.dat;*.csv;*.txt;*.gsi)|*.dat *.csv *.txt *.gsi|");
        if (!path) return;
        saying([&] { m_setOut = ReadMeasured(*path, ReadBytes(*path)); });
        compute();
    });
    on(butScbjCalc, &XPButton::Click, [this] { compute(); });
    on(butScbjSave, &XPButton::Click, [this] { saveAs(); });
    on(butScbjBack, &XPButton::Click, [this] { unload(); });
}

void frmScbj::Form_Load() { compute(); }

void frmScbj::compute()
{
    const auto tolerance = [](const QLineEdit* box) {
        std::optional<double> value;
        if (!box->text().trimmed().isEmpty()) value = ParseNumber(toUtf8(box->text()));
        return value;
    };
    saying([&] {
        m_points = Compare(m_tables, m_measured, m_setOut, {tolerance(txtScbjPm), tolerance(txtScbjGc)});
        m_rows = ComparedRows(m_points);
        MsfgScbj->setCols(m_rows.cols());
        MsfgScbj->setRows(1);
        for (int c = 0; c < m_rows.cols(); ++c) {
            MsfgScbj->setTextMatrix(0, c, fromUtf8(m_rows.text(0, c)));
            MsfgScbj->setColWidth(c, c == 0 ? 700 : c == 5 ? 1500 : c == 2 || c == 3 ? 1350 : 950);
            MsfgScbj->setColAlignment(c, Qt::AlignCenter);
        }
        for (int r = 1; r < m_rows.rows(); ++r) {
            const auto& point = m_points[static_cast<std::size_t>(r - 1)];
            ResultRow row;
            for (int c = 1; c < m_rows.cols(); ++c) row.cells.emplace_back(m_rows.text(r, c));
            row.warning = point.beyond ? "超过限差" : point.found ? "" : "没有找到对应的桩号";
            MsfgScbj->appendRow(std::move(row));
        }
    });
}

void frmScbj::saveAs()
{
    const auto path = dialogs().saveFile("Excel 工作簿 (*.xlsx)|*.xlsx|PDF (*.pdf)|*.pdf|");
    if (!path) return;
    const bool saved = saying([&] {
        if (fromUtf8(*path).endsWith(u".pdf"_s, Qt::CaseInsensitive)) return print(*path);
        std::vector<bool> marked{false};
        for (const auto& point : m_points) marked.push_back(point.beyond);
        WriteResult(*path, XlsxBytes({m_rows, gProject, marked}));
    });
    if (saved) showBox(u"保存成功！"_s, QString(), Icon::Information);
}

void frmScbj::print(const std::string& path) const
{
    QString html = u"<h3 align='center'>"_s + fromUtf8(gProject).toHtmlEscaped() +
                   u" 实测点与设计比较</h3><table border='1' cellspacing='0' cellpadding='3' width='100%' "
                   "style='border-collapse:collapse; border-style:solid; border-color:#808080'>"_s;
    for (int r = 0; r < m_rows.rows(); ++r) {
        const bool beyond = r > 0 && m_points[static_cast<std::size_t>(r - 1)].beyond;
        html += r == 0 ? u"<thead><tr>"_s : beyond ? u"<tr bgcolor='#FFF3CD'>"_s : u"<tr>"_s;
        const QString tag = r == 0 ? u"th"_s : u"td"_s;
        for (int c = 0; c < m_rows.cols(); ++c)
            html += u"<%1 align='center'>%2</%1>"_s.arg(tag, fromUtf8(m_rows.text(r, c)).toHtmlEscaped());
        html += r == 0 ? u"</tr></thead><tbody>"_s : u"</tr>"_s;
    }
    QBuffer buffer;
    buffer.open(QIODevice::WriteOnly);
    QPdfWriter writer(&buffer);
    writer.setPageSize(QPageSize(QPageSize::A4));
    writer.setPageOrientation(QPageLayout::Landscape);
    writer.setResolution(96);
    QTextDocument document;
    document.setDefaultFont(QFont(font().family(), 8));
    document.setHtml(html + u"</tbody></table>"_s);
    document.print(&writer);
    const auto bytes = buffer.data();
    WriteResult(path, std::string_view(bytes.constData(), static_cast<std::size_t>(bytes.size())));
}
