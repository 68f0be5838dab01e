#include "editors/EditorForm.h"

#include "controls/FormScaling.h"
#include "controls/XPButton.h"
#include "engine/Numbers.h"
#include "engine/RunTimeError.h"
#include "platform/HouseLook.h"
#include "platform/Layout.h"
#include "platform/MSFlexGrid.h"
#include "platform/Twips.h"
#include "project/CalcTables.h"
#include "project/LoadProject.h"

#include <QApplication>
#include <QClipboard>
#include <QContextMenuEvent>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QMenu>
#include <QMouseEvent>
#include <QRegularExpression>
#include <QStyledItemDelegate>

#include <algorithm>
#include <utility>

namespace {

constexpr int kInset = 45;  // twips from a cell's place to the box over it
constexpr int kEnter = 13;

QString named(std::string_view before, std::string_view stem, std::string_view after = {})
{
    return fromUtf8(std::string(before).append(stem).append(after));
}

/// Paints the stake columns a shade darker, so that they are found again in a wide grid.
class StakeShade : public QStyledItemDelegate {
    using QStyledItemDelegate::QStyledItemDelegate;

protected:
    void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override
    {
        QStyledItemDelegate::initStyleOption(option, index);
        if (option->backgroundBrush.style() == Qt::NoBrush) option->backgroundBrush = QColor(0xF3, 0xF1, 0xE7);
    }
};

bool isMove(int key)
{
    return key == Qt::Key_Up || key == Qt::Key_Down || key == Qt::Key_Left || key == Qt::Key_Right ||
           key == Qt::Key_PageUp || key == Qt::Key_PageDown;
}

}  // namespace

EditorForm::EditorForm(EditorTable table, QWidget* parent)
    : Form(named("frm", table.stem), fromUtf8(std::string(table.caption)), parent), m_table(std::move(table))
{
    makeControls();
}

void EditorForm::makeControls()
{
    auto* all = new QVBoxLayout(this);
    all->setContentsMargins(house::kMargin, house::kMargin, house::kMargin, house::kMargin);
    all->setSpacing(house::kGrid);
    if (!m_table.frames.empty()) all->addLayout(makeFrames());

    m_grid = control<MSFlexGrid>(toUtf8(named("Msfg", m_table.stem)).c_str());
    all->addWidget(m_grid, 1);
    on(m_grid, &MSFlexGrid::MouseDown, [](int mouseButton, int, int) { gGridLeftDown = mouseButton == 1; });
    on(m_grid, &MSFlexGrid::Click, [this] { Grid_Click(); });
    on(m_grid, &MSFlexGrid::Scroll, [this] { Grid_Scroll(); });
    on(m_grid->horizontalHeader(), &QHeaderView::sectionResized, [this] { placeBox(); });

    m_box = control<QLineEdit>(toUtf8(named("txt", m_table.stem, "Input")).c_str());
    m_box->setAlignment(Qt::AlignCenter);
    m_box->setAcceptDrops(false);
    m_box->hide();
    filterKeys(m_box, [this](int keyAscii) {
        const auto accepts = KeySetOf(m_table.columns.at(static_cast<std::size_t>(CurCol)).filter);
        return !accepts || accepts(keyAscii);
    });
    on(m_box, &QLineEdit::textChanged, [this] { Edited = true; });
    on(m_box, &QLineEdit::textEdited, [this] { scrollToBox(); });

    auto* hint = control<QLabel>("lblHint", m_table.enterMoves
                                                ? QStringLiteral("单击单元格输入，回车到下一格，方向键移动，可粘贴表格")
                                                : QStringLiteral("单击单元格输入，方向键移动，可粘贴表格"));
    hint->setForegroundRole(QPalette::PlaceholderText);
    m_buttons = new QHBoxLayout;
    m_buttons->setSpacing(house::kGrid);
    m_buttons->addWidget(hint);
    m_buttons->addStretch(1);
    all->addLayout(m_buttons);
    const auto button = [this](std::string_view name, const QString& caption, auto handler) {
        auto* made = control<XPButton>(toUtf8(named("cmd", m_table.stem, name)).c_str(), caption);
        on(made, &XPButton::Click, handler);
        m_buttons->addWidget(made);
    };
    if (m_table.hasInsert) button("Insert", QStringLiteral("插入一行"), [this] { cmdInsert_Click(); });
    button("Del", QStringLiteral("删除一行"), [this] { cmdDel_Click(); });
    button("Back", QStringLiteral("返 回"), [this] { cmdBack_Click(); });
    button("Save", QStringLiteral("保 存"), [this] { cmdSave_Click(); });
}

QLayout* EditorForm::makeFrames()
{
    auto* row = new QHBoxLayout;
    row->setSpacing(house::kMargin);
    for (const EditorFrame& frame : m_table.frames) {
        house::Fields fields;
        for (const FrameBox& field : frame.boxes) {
            auto* box = control<QLineEdit>(std::string(field.control).c_str());
            box->setToolTip(fromUtf8(std::string(field.tip)));
            house::fitDigits(box);
            filterKeys(box, IsSignedDecimalKey);
            on(box, &QLineEdit::textChanged, [this] { Edited = true; });
            on(box, &QLineEdit::textEdited, [this, at = m_frameBoxes.size()] { spreadOverFrames(at); });
            m_frameBoxes.push_back(box);
            fields.emplace_back(fromUtf8(std::string(field.label)), box);
        }
        auto* group = house::frame(fromUtf8(std::string(frame.caption)), house::fieldLine(fields));
        group->setObjectName(fromUtf8(std::string(frame.control)));
        row->addWidget(group, 1);
    }
    return row;
}

XPButton* EditorForm::addButton(const char* name, const QString& caption)
{
    auto* made = control<XPButton>(name, caption);
    auto* back = findChild<XPButton*>(named("cmd", m_table.stem, "Back"));
    m_buttons->insertWidget(m_buttons->indexOf(back), made);
    setTabOrder(findChild<XPButton*>(named("cmd", m_table.stem, "Del")), made);
    return made;
}

void EditorForm::Form_Load()
{
    EditorContent content = LoadEditor(m_table);
    m_damaged = std::move(content.damaged);
    if (!m_table.columns.empty()) {
        m_grid->setCols(static_cast<int>(m_table.columns.size()));
        for (int col = 0; col <= m_table.lastColumn(); ++col) {
            const EditorColumn& column = m_table.columns[static_cast<std::size_t>(col)];
            m_grid->setTextMatrix(0, col, fromUtf8(column.header));
            m_grid->setColWidth(col, column.width);
            m_grid->setColAlignment(col, Qt::AlignCenter);
            m_grid->setHeaderToolTip(col, fromUtf8(column.tip));
            if (column.isStake) m_grid->setItemDelegateForColumn(col - 1, new StakeShade(m_grid));
        }
    }
    m_grid->holdBack(true);
    for (std::vector<std::string>& row : content.rows) m_grid->appendRow(std::move(row));
    m_grid->holdBack(false);
    m_grid->scrollToTop();
    for (std::size_t i = 0; i < m_frameBoxes.size(); ++i) m_frameBoxes[i]->setText(fromUtf8(content.frameTexts[i]));
    RenumberGrid(*m_grid);

    const auto buttons = findChildren<XPButton*>();
    int width = 104;
    for (const auto* button : buttons) width = std::max(width, button->sizeHint().width());
    for (auto* button : buttons) button->setMinimumWidth(width);
    resize(sizeHint().expandedTo({560, 440}));
    if (m_table.scales) ResizeInit(*this);
    Edited = false;
}

void EditorForm::Form_Resize()
{
    if (m_table.scales) ResizeForm(*this);
    placeBox();
}

// Entering and leaving a cell

void EditorForm::Grid_Click()
{
    if (m_grid->Row() > kMaxRow) return;  // of an overlong file: CurRow cannot name it
    enterCell(m_grid->Row(), m_grid->Col());
    if (gGridLeftDown) applyMouseRule();
}

void EditorForm::Grid_Scroll()
{
    if (!m_table.scrollHides) return placeBox();
    if (m_box->hasFocus()) m_grid->setFocus();
    m_box->hide();
}

void EditorForm::enterCell(int row, int col)
{
    m_grid->scrollTo(m_grid->model()->index(row - 1, col - 1));  // first: hiding the box commits to its old cell
    CurRow = toInt16(row);
    CurCol = toInt16(col);
    showCellText();
    placeBox();
    m_box->show();
    m_box->raise();
    m_box->setFocus();
}

void EditorForm::applyMouseRule()
{
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
    if (filled.refusal) desk().box(*filled.refusal);
}

void EditorForm::CommitCell()
{
    const std::string text = boxText();
    if (boxHasCell() && (!text.empty() || m_table.canBlank)) writeCell(CurRow, CurCol, text);
}

bool EditorForm::Form_KeyPress(int keyAscii)
{
    if (!m_table.enterMoves || m_table.lastColumn() < 1) return false;
    CommitCell();
    if (keyAscii == kEnter) {
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
    m_grid->AddItem({}, m_grid->Row());
    m_box->clear();
    RenumberGrid(*m_grid);
}

void EditorForm::cmdDel_Click()
{
    attempt([this] {
        m_grid->RemoveItem(m_grid->Row());
        m_box->setText(cellText(m_grid->Row(), m_grid->Col()));
        RenumberGrid(*m_grid);
    });
}

bool EditorForm::askToSave()
{
    return desk().box({"数据已修改，是否保存？", "", Icon::Question, Msg::YesNo, Msg::Yes});
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
        if (const Outcome saved = SaveEditor(m_table, m_grid->text(), frameTexts, m_damaged); !saved)
            return refuse(*saved.refusal);
        desk().box({"数据保存成功！", "", Icon::Information});
        Edited = false;
        if (m_table.loadsProject) LoadProject();
    });
}

// Small parts

void EditorForm::addRow()
{
    if (m_grid->Rows() > kMaxRow) return;
    m_grid->setRows(m_grid->Rows() + 1);
    RenumberGrid(*m_grid);
}

QString EditorForm::cellText(int row, int col) const { return m_grid->TextMatrix(row, col); }

void EditorForm::writeCell(int row, int col, const std::string& text)
{
    m_grid->setTextMatrix(row, col, fromUtf8(text));
}

std::string EditorForm::boxText() const { return std::string(Trim(toUtf8(m_box->text()))); }

/// False before the first cell, and after the row of the box was deleted.
bool EditorForm::boxHasCell() const { return CurRow >= 1 && CurRow < m_grid->Rows() && CurCol >= 1; }

void EditorForm::showCellText()
{
    m_box->setText(cellText(CurRow, CurCol));
    m_box->selectAll();
}

void EditorForm::scrollToBox()
{
    if (boxHasCell()) m_grid->scrollTo(m_grid->model()->index(CurRow - 1, CurCol - 1));
}

// Comfort

/// The box over its cell; what would lie outside the grid's cells is not shown.
void EditorForm::placeBox()
{
    if (!boxHasCell()) return;
    const QPoint at(twipsToPixels(m_grid->ColPos(CurCol) + pixelsToTwips(m_grid->x(), *this) + kInset, *this),
                    twipsToPixels(m_grid->RowPos(CurRow) + pixelsToTwips(m_grid->y(), *this) + kInset, *this));
    m_box->setGeometry({at, m_grid->cellRect(CurRow, CurCol).size()});
    const QRect cells = m_grid->viewport()->geometry().translated(m_grid->pos()).translated(-at);
    const QRect seen = cells & m_box->rect();
    if (seen == m_box->rect())
        m_box->clearMask();
    else
        m_box->setMask(seen.isEmpty() ? QRect(-1, -1, 1, 1) : seen);
}

bool EditorForm::boxNeeds(const QKeyEvent& key) const
{
    if (m_box->selectedText() == m_box->text()) return false;
    if (key.key() == Qt::Key_Left) return m_box->hasSelectedText() || m_box->cursorPosition() > 0;
    if (key.key() == Qt::Key_Right) return m_box->hasSelectedText() || m_box->cursorPosition() < m_box->text().size();
    return false;
}

bool EditorForm::moveByKey(const QKeyEvent& key)
{
    if (!isMove(key.key()) || (key.modifiers() & ~Qt::KeypadModifier) || m_table.lastColumn() < 1) return false;
    const bool fromBox = m_box->isVisible() && boxHasCell();
    const int page = std::max(1, m_grid->viewport()->height() / std::max(1, m_grid->cellRect(1, 1).height()) - 1);
    int row = fromBox ? CurRow : m_grid->Row();
    int col = fromBox ? CurCol : m_grid->Col();
    switch (key.key()) {
    case Qt::Key_Up:
        row -= 1;
        break;
    case Qt::Key_Down:
        row += 1;
        break;
    case Qt::Key_PageUp:
        row -= page;
        break;
    case Qt::Key_PageDown:
        row += page;
        break;
    case Qt::Key_Left:
        col -= 1;
        break;
    default:
        col += 1;
    }
    row = std::clamp(row, 1, std::min(m_grid->Rows() - 1, kMaxRow));
    col = std::clamp(col, 1, m_table.lastColumn());
    CommitCell();
    m_grid->setRow(row);
    m_grid->setCol(col);
    enterCell(row, col);
    return true;
}

/// False where the text is no block: it goes into the box as it is.
bool EditorForm::pasteBlock(const QString& text)
{
    if (m_table.lastColumn() < 1 || !IsBlock(toUtf8(text))) return false;
    CommitCell();
    const bool fromBox = m_box->isVisible() && boxHasCell();
    const BlockPaste paste = PlanPaste(m_table, m_grid->text(), fromBox ? CurRow : m_grid->Row(),
                                       fromBox ? CurCol : m_grid->Col(), toUtf8(text));
    if (paste.refusal) {
        desk().box(*paste.refusal);
        return true;
    }
    if (paste.rows > m_grid->Rows()) {
        m_grid->setRows(paste.rows);
        RenumberGrid(*m_grid);
    }
    for (const CellText& cell : paste.cells) writeCell(cell.row, cell.col, cell.text);
    if (!paste.cells.empty()) Edited = true;
    if (boxHasCell()) showCellText();
    return true;
}

/// Cells pasted from a spreadsheet into a frame box go into that box and those after it.
void EditorForm::spreadOverFrames(std::size_t at)
{
    static const QRegularExpression between(QStringLiteral("[\\t\\r\\n]+"));
    if (!IsBlock(toUtf8(m_frameBoxes[at]->text()))) return;
    const QStringList pieces = m_frameBoxes[at]->text().split(between, Qt::SkipEmptyParts);
    m_frameBoxes[at]->clear();
    for (const QString& piece : pieces)
        if (at < m_frameBoxes.size()) m_frameBoxes[at++]->setText(piece);
}

void EditorForm::showBoxMenu(const QPoint& at)
{
    QMenu menu(this);
    const auto add = [&](const QString& caption, bool enabled, auto action) {
        menu.addAction(caption, this, action)->setEnabled(enabled);
    };
    const QString clip = QApplication::clipboard()->text();
    add(QStringLiteral("撤销"), m_box->isUndoAvailable(), [this] { m_box->undo(); });
    menu.addSeparator();
    add(QStringLiteral("剪切"), m_box->hasSelectedText(), [this] { m_box->cut(); });
    add(QStringLiteral("复制"), m_box->hasSelectedText(), [this] { m_box->copy(); });
    add(QStringLiteral("粘贴"), !clip.isEmpty(), [this, clip] {
        if (!pasteBlock(clip)) m_box->paste();
    });
    menu.addSeparator();
    add(QStringLiteral("全选"), !m_box->text().isEmpty(), [this] { m_box->selectAll(); });
    menu.exec(at);
}

bool EditorForm::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == m_box || watched == m_grid) {
        switch (event->type()) {
        case QEvent::FocusOut: {
            const auto reason = static_cast<QFocusEvent*>(event)->reason();
            if (watched == m_box && reason != Qt::ActiveWindowFocusReason && reason != Qt::PopupFocusReason)
                CommitCell();
            break;
        }
        case QEvent::KeyPress: {
            const auto& key = *static_cast<QKeyEvent*>(event);
            if (key.matches(QKeySequence::Paste) && pasteBlock(QApplication::clipboard()->text())) return true;
            if (!(watched == m_box && boxNeeds(key)) && moveByKey(key)) return true;
            if (watched == m_grid && !key.text().isEmpty() && key.text().front().isPrint()) {
                Form::eventFilter(watched, event);
                return true;  // the view would look for a cell that begins with it
            }
            break;
        }
        case QEvent::MouseButtonRelease:
            if (watched == m_box && static_cast<QMouseEvent*>(event)->button() == Qt::MiddleButton &&
                pasteBlock(QApplication::clipboard()->text(QClipboard::Selection)))
                return true;
            break;
        case QEvent::ContextMenu:
            if (watched != m_box) break;
            showBoxMenu(static_cast<QContextMenuEvent*>(event)->globalPos());
            return true;
        case QEvent::Resize:
        case QEvent::Move:
            if (watched == m_grid) placeBox();
            break;
        default:
            break;
        }
    } else if (m_grid && watched == m_grid->viewport() && event->type() == QEvent::Resize) {
        placeBox();
    }
    return Form::eventFilter(watched, event);
}
