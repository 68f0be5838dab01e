#include "editors/windows/EditorForm.h"

#include "base/FileError.h"
#include "base/Numbers.h"
#include "base/RunTimeError.h"
#include "controls/FormScaling.h"
#include "dialogs/FileBox.h"
#include "project/LoadProject.h"
#include "screens/windows/RoadLine.h"
#include "tables/CalcTables.h"
#include "ui/MSFlexGrid.h"

#include <QGuiApplication>
#include <QTimer>

#include <utility>

namespace {

constexpr int kEnter = 13;

std::function<void()> whenSaved;

}  // namespace

void WhenSaved(std::function<void()> run) { whenSaved = std::move(run); }

void EditorForm::Form_Resize()
{
    if (m_table.scales) ResizeForm(*this);
    placeBox();
}

// Entering and leaving a cell

void EditorForm::Grid_Click()
{
    if (enterCell(m_grid->Row(), m_grid->Col()) && gGridLeftDown) applyMouseRule();
}

/// The box goes with the grid's own keys too: a deletion must not show it one cell's text and leave it to another.
void EditorForm::Grid_RowColChange()
{
    if (!QGuiApplication::keyboardModifiers().testFlag(Qt::ShiftModifier)) {
        enterCell(m_grid->Row(), m_grid->Col());
    } else {  // cells are being selected: the grid keeps the keys
        hideBox();
        takeCell(m_grid->Row(), m_grid->Col());
    }
}

void EditorForm::Grid_Scroll()
{
    if (m_table.scrollHides)
        hideBox();
    else
        placeBox();
}

bool EditorForm::enterCell(int row, int col)
{
    m_grid->scrollTo(m_grid->model()->index(row - 1, col - 1));  // first: hiding the box commits to its old cell
    if (!takeCell(row, col)) return false;
    m_box->show();
    m_box->raise();
    m_box->setFocus();
    return true;
}

void EditorForm::openAt(const TextPlace& place)
{
    if (place.file != m_table.file) return;
    QTimer::singleShot(0, this, [this, line = place.line, field = place.field] {
        const auto at = isVisible() ? PlaceInEditor(m_table, m_asRead, line, field) : std::nullopt;
        if (!at) return;
        runHandler([&] {
            if (at->row == 0) {
                m_frameBoxes.at(at->frameBox)->setFocus();
                m_frameBoxes.at(at->frameBox)->selectAll();
                return;
            }
            m_grid->setRow(at->row);
            m_grid->setCol(at->col);
            enterCell(at->row, at->col);
        });
    });
}

bool EditorForm::takeCell(int row, int col)
{
    const bool named = row <= kMaxRow;
    if (!named) hideBox();
    m_history->boxMoved();
    CurRow = toInt16(named ? row : 0);
    CurCol = toInt16(named ? col : 0);
    showRoad();
    if (!named) return false;
    showCellText();
    placeBox();
    return true;
}

void EditorForm::hideBox()
{
    if (m_box->hasFocus()) m_grid->setFocus();
    m_box->hide();
}

void EditorForm::applyMouseRule()
{
    const EditHistory::Together step(*m_history);
    const MouseRule rule = MouseRuleAt(m_table, m_grid->text(), m_grid->Row());
    if (rule == MouseRule::AddRow) {
        addRow();
        fillIn(m_grid->Row(), rule);
    } else if (rule == MouseRule::BackToIncomplete) {
        enterCell(m_grid->Row() - 1, m_grid->Col());
        fillIn(CurRow, rule);
    }
}

void EditorForm::fillIn(int row, MouseRule branch)
{
    const FillIn filled = FillInRow(m_table, m_grid->text(), row, branch);
    for (const CellText& cell : filled.cells) writeCell(cell.row, cell.col, cell.text);
    if (filled.refreshBox) showCellText();
    if (filled.refusal) dialogs().box(*filled.refusal);
}

void EditorForm::CommitCell()
{
    if (m_history->restoring()) return;  // the box still shows what the cell was
    const std::string text = boxText();
    if (boxHasCell() && (!text.empty() || m_table.canBlank)) writeCell(CurRow, CurCol, text);
}

bool EditorForm::Form_KeyPress(int keyAscii)
{
    if (!m_table.enterMoves || m_table.lastColumn() < 1) return false;
    CommitCell();
    if (keyAscii == kEnter) {
        const EditHistory::Together step(*m_history);
        if (!EnterStarted) {
            m_grid->setCol(1);
            Grid_Click();
            EnterStarted = true;
        }
        enterMovesOn();
    }
    CommitCell();
    return false;
}

void EditorForm::enterMovesOn()
{
    if (m_grid->Col() < m_table.lastColumn()) {
        m_grid->setCol(m_grid->Col() + 1);
    } else {
        if (m_grid->Row() + 1 >= m_grid->Rows()) addRow();
        if (m_grid->Row() + 1 >= m_grid->Rows()) return;
        m_grid->setRow(m_grid->Row() + 1);
        m_grid->setCol(1);
    }
    Grid_Click();
}

// Buttons

void EditorForm::cmdInsert_Click()
{
    if (m_grid->Rows() > kMaxRow) return;
    m_history->insertRow(m_grid->Row());
    m_box->setText({});  // not cleared: the box has nothing to undo in the new row
    RenumberGrid(*m_grid);
}

void EditorForm::cmdDel_Click()
{
    attempt([this] {
        m_history->removeRow(m_grid->Row());
        m_box->setText(cellText(m_grid->Row(), m_grid->Col()));
        RenumberGrid(*m_grid);
    });
}

bool EditorForm::askToSave()
{
    return dialogs().box({"数据已修改，是否保存？", "", Icon::Question, Msg::YesNo, Msg::Yes});
}

void EditorForm::cmdBack_Click()
{
    if (Edited && askToSave())
        cmdSave_Click();  // kept on purpose: the window stays, whatever the save did
    else
        unload();
}

bool EditorForm::QueryUnload()
{
    if (!Edited || !askToSave()) return true;
    cmdSave_Click();
    return false;
}

void EditorForm::cmdSave_Click()
{
    if (m_table.lastColumn() < 1) return;
    attempt([this] {
        if (boxHasCell() && !boxText().empty()) writeCell(CurRow, CurCol, boxText());
        std::vector<std::string> frameTexts;
        for (const QLineEdit* box : m_frameBoxes) frameTexts.push_back(toUtf8(box->text()));
        try {
            if (const Outcome saved = SaveEditor(m_table, m_grid->text(), frameTexts, m_keptFrames); !saved)
                return refuse(*saved.refusal);
        } catch (const FileError& error) {
            dialogs().box(FileBox(error));
            return;
        }
        dialogs().box({"数据保存成功！", "", Icon::Information});
        Edited = false;
        m_history->saved();
        if (m_table.loadsProject) LoadProject();
        attempt([this] { m_asRead = EditorFileBytes(m_table); });
        showRoad();
        if (whenSaved) whenSaved();
    });
}

// Small parts

void EditorForm::addRow()
{
    if (m_grid->Rows() > kMaxRow) return;
    m_history->setRows(m_grid->Rows() + 1);
}

QString EditorForm::cellText(int row, int col) const { return m_grid->TextMatrix(row, col); }

void EditorForm::writeCell(int row, int col, const std::string& text) { m_history->setText(row, col, text); }

std::string EditorForm::boxText() const { return std::string(Trim(toUtf8(m_box->text()))); }

/// False before the first cell, and after the row of the box was deleted.
bool EditorForm::boxHasCell() const { return CurRow >= 1 && CurRow < m_grid->Rows() && CurCol >= 1; }

void EditorForm::showCellText()
{
    m_box->setText(cellText(CurRow, CurCol));
    m_box->selectAll();
}

/// The road, and before it what another program did to the file since it was read here: a save would replace that.
void EditorForm::showRoad()
{
    m_road->refresh();
    std::string now = m_asRead;
    attempt([&] { now = EditorFileBytes(m_table); });
    if (now == m_asRead) return;
    const auto told = fromUtf8(std::string(m_table.file) + " 已被其他程序修改，保存会替换它");
    m_road->say(told + QStringLiteral("　") + m_road->text(), true);
}

void EditorForm::changeEvent(QEvent* event)
{
    Form::changeEvent(event);
    if (event->type() == QEvent::ActivationChange && isActiveWindow()) showRoad();
}

void EditorForm::scrollToBox()
{
    if (boxHasCell()) m_grid->scrollTo(m_grid->model()->index(CurRow - 1, CurCol - 1));
}
