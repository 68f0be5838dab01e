#include "app/frmJc.h"

#include "app/CheckTurns.h"
#include "controls/XPButton.h"
#include "editors/TextPlace.h"
#include "editors/windows/frmSelect.h"
#include "project/Workspace.h"
#include "screens/windows/RoadLine.h"
#include "ui/Layout.h"
#include "ui/MSFlexGrid.h"
#include "ui/Twips.h"

#include <QApplication>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

struct Column {
    const char* header;
    int width;  ///< twips
    const char* tip;
};
constexpr Column kColumns[] = {
    {"序号", 700, ""},
    {"文件", 2200, "项目里的参数文件"},
    {"行", 800, "从1数起；空白：整个文件"},
    {"项", 700, "用逗号分开的第几项；空白：整行"},
    {"数值", 1500, "查出的差值或数量"},
    {"说明", 4000, "浅黄色的行：打开项目时会读成别的数，或读到这里就停"},
};
constexpr int kTextColumn = 5;
constexpr const char* kErrorTip = "打开项目时会读成别的数，或读到这里就停";

/// A press and what it started are over by then.
constexpr int kAgain = 300;  // ms

std::string countOf(int number) { return number > 0 ? std::to_string(number) : std::string(); }

}  // namespace

frmJc::frmJc(CheckTurns& turns)
    : Form(u"frmJc"_s, u"参数检查"_s), m_turns(turns), m_road(control<RoadLine>("lblRoad")),
      MsfgJc(control<MSFlexGrid>("MsfgJc")), m_told(control<QuietLine>("lblJc"))
{
    MsfgJc->setCols(static_cast<int>(std::size(kColumns)));
    for (int col = 0; col < MsfgJc->Cols(); ++col) {
        const Column& column = kColumns[col];
        MsfgJc->setTextMatrix(0, col, QString::fromUtf8(column.header));
        MsfgJc->setColWidth(col, column.width);
        MsfgJc->setColAlignment(col, col == kTextColumn ? Qt::AlignLeft | Qt::AlignVCenter : Qt::AlignCenter);
        MsfgJc->setHeaderToolTip(col, QString::fromUtf8(column.tip));
    }
    MsfgJc->setLastColumnFills(true);
    MsfgJc->setMinimumSize(560, 240);
    auto* editButton = control<XPButton>("cmdJcEdit", u"编 辑"_s);
    auto* back = control<XPButton>("cmdJcBack", u"返 回"_s);
    ui::arrange(*this, {m_road, MsfgJc, m_told, ui::buttonRow({editButton, back})});
    resize(880, 430);

    on(MsfgJc, &MSFlexGrid::doubleClicked, [this] { edit(); });
    on(editButton, &XPButton::Click, [this] { edit(); });
    on(back, &XPButton::Click, [this] { unload(); });
    on(&m_turns, &CheckTurns::done, [this] { fill(); });
    m_again.setSingleShot(true);
    m_again.setInterval(kAgain);
    on(&m_turns, &CheckTurns::dropped, [this] { m_again.start(); });
    on(&m_again, &QTimer::timeout, [this] {
        if (QApplication::activeModalWidget() == this) m_turns.start();
    });
}

void frmJc::Form_Load()
{
    if (m_turns.found()) return fill();
    m_told->say(u"正在检查…"_s);
    if (!m_turns.running()) m_turns.start();
}

void frmJc::fill()
{
    const auto* found = m_turns.found();
    if (!found) return m_told->say(u"项目的文件夹不在了"_s);
    const int row = MsfgJc->Row();
    MsfgJc->setRows(1);
    MsfgJc->holdBack(true);
    int width = 0;
    for (const Finding& finding : *found) {
        width = std::max(width, fontMetrics().horizontalAdvance(fromUtf8(finding.text)));
        MsfgJc->appendRow(
            {{finding.file, countOf(finding.line), countOf(finding.field), AmountText(finding.amount), finding.text},
             finding.severity == Severity::Error ? kErrorTip : ""});
    }
    MsfgJc->holdBack(false);
    constexpr int kBeside = 12;  // pixels of a cell beside its text
    MsfgJc->setColWidth(kTextColumn, std::max(kColumns[kTextColumn].width, pixelsToTwips(width + kBeside, *this)));
    MsfgJc->scrollToTop();
    if (row > 0 && !found->empty()) MsfgJc->setRow(std::min(row, MsfgJc->Rows() - 1));

    const QString project = fromUtf8(gProject);
    if (found->empty())
        m_told->say(u"“%1”没有发现问题"_s.arg(project));
    else
        m_told->say(
            u"“%1”发现 %2 个问题。双击一行，在编辑窗口里打开它；F5 再检查一次"_s.arg(project).arg(found->size()));
    MsfgJc->setHint(found->empty() ? u"没有发现问题"_s : QString());
}

bool frmJc::Form_KeyPress(int keyAscii)
{
    if (keyAscii != 13 || focusWidget() != MsfgJc) return false;
    edit();
    return true;
}

bool frmJc::commandKey(const QKeyCombination& key)
{
    if (key != QKeyCombination(Qt::Key_F5)) return false;
    m_turns.start();
    return true;
}

void frmJc::edit()
{
    const int row = MsfgJc->Row();
    if (row < 1 || row >= MsfgJc->Rows()) return;
    const auto number = [&](int col) { return MsfgJc->TextMatrix(row, col).toInt(); };
    const TextPlace place{toUtf8(MsfgJc->TextMatrix(row, 1)), number(2), number(3)};
    const auto option = OptionOf(place);
    if (!option) {
        m_told->say(u"%1 的这一处没有编辑窗口"_s.arg(fromUtf8(place.file)));
        return;
    }
    frmSelect wizard;
    wizard.openAt(*option, place);
    wizard.showModal(this);
    m_road->refresh();
    m_turns.start();
}
