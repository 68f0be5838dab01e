// The controls of an editor and what its load puts into them.

#include "base/FileError.h"
#include "base/Numbers.h"
#include "controls/FormScaling.h"
#include "controls/XPButton.h"
#include "dialogs/FileBox.h"
#include "editors/windows/EditorForm.h"
#include "screens/windows/RoadLine.h"
#include "tables/CalcTables.h"
#include "ui/Layout.h"
#include "ui/MSFlexGrid.h"
#include "ui/Theme.h"

#include <QGroupBox>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QStyledItemDelegate>

#include <algorithm>
#include <utility>

namespace {

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

}  // namespace

EditorForm::EditorForm(EditorTable table, QWidget* parent)
    : Form(named("frm", table.stem), fromUtf8(std::string(table.caption)), parent), m_table(std::move(table))
{
    makeControls();
}

void EditorForm::makeControls()
{
    auto* all = new QVBoxLayout(this);
    all->setContentsMargins(theme::kMargin, theme::kMargin, theme::kMargin, theme::kMargin);
    all->setSpacing(theme::kGrid);
    m_road = control<RoadLine>("lblRoad");
    all->addWidget(m_road);
    if (!m_table.frames.empty()) all->addLayout(makeFrames());

    m_grid = control<MSFlexGrid>(toUtf8(named("Msfg", m_table.stem)).c_str());
    m_grid->setLastColumnFills(true);
    m_history =
        std::make_unique<EditHistory>(*m_grid, m_frameBoxes, [this](const EditStep& step) { enterChanged(step); });
    addToGridMenu();
    all->addWidget(m_grid, 1);
    on(m_grid, &MSFlexGrid::MouseDown, [](int mouseButton, int, int) { gGridLeftDown = mouseButton == 1; });
    on(m_grid, &MSFlexGrid::RowColChange, [this] { Grid_RowColChange(); });
    on(m_grid, &MSFlexGrid::Click, [this] { Grid_Click(); });
    on(m_grid, &MSFlexGrid::Scroll, [this] { Grid_Scroll(); });
    on(m_grid->horizontalHeader(), &QHeaderView::sectionResized, [this] { placeBox(); });

    m_box = control<QLineEdit>(toUtf8(named("txt", m_table.stem, "Input")).c_str());
    m_box->setAlignment(Qt::AlignCenter);
    m_box->setAcceptDrops(false);
    m_box->hide();
    filterKeys(m_box, [this](int keyAscii) { return keysOf(CurCol)(keyAscii); });
    on(m_box, &QLineEdit::textChanged, [this] { Edited = true; });
    on(m_box, &QLineEdit::textEdited, [this] { scrollToBox(); });

    auto* hint = control<QLabel>("lblHint", m_table.enterMoves
                                                ? QStringLiteral("单击单元格输入，回车到下一格，方向键移动，可粘贴表格")
                                                : QStringLiteral("单击单元格输入，方向键移动，可粘贴表格"));
    hint->setForegroundRole(QPalette::PlaceholderText);
    hint->setWordWrap(true);  // beside many buttons on a small screen
    hint->setMinimumWidth(hint->fontMetrics().horizontalAdvance(hint->text()) / 2 + 24);
    m_buttons = new QHBoxLayout;
    m_buttons->setSpacing(theme::kGrid);
    m_buttons->addWidget(hint, 1);
    m_buttons->addSpacing(2 * theme::kGrid);
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
    row->setSpacing(theme::kMargin);
    for (const EditorFrame& frame : m_table.frames) {
        ui::Fields fields;
        for (const FrameBox& field : frame.boxes) {
            auto* box = control<QLineEdit>(std::string(field.control).c_str());
            box->setToolTip(fromUtf8(std::string(field.tip)));
            ui::fitDigits(box);
            filterKeys(box, IsSignedDecimalKey);
            on(box, &QLineEdit::textChanged, [this] { Edited = true; });
            m_frameBoxes.push_back(box);
            fields.emplace_back(fromUtf8(std::string(field.label)), box);
        }
        auto* group = ui::frame(fromUtf8(std::string(frame.caption)), ui::fieldLine(fields));
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
    EditorContent content;
    try {
        m_asRead = EditorFileBytes(m_table);
        content = EditorContentOf(m_table, m_asRead);
    } catch (const FileError& error) {  // an empty grid would replace what is there
        dialogs().box(FileBox(error));
        return stayClosed();
    }
    m_keptFrames = std::move(content.keptFrames);
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
    for (auto& row : content.rows) m_grid->appendRow({{row.begin(), row.end()}, {}});
    m_grid->holdBack(false);
    for (EditorContent::Kept& kept : content.keptCells) m_grid->keepBytes(kept.row, kept.col, std::move(kept.bytes));
    m_grid->scrollToTop();
    for (std::size_t i = 0; i < m_frameBoxes.size(); ++i) m_frameBoxes[i]->setText(fromUtf8(content.frameTexts[i]));
    RenumberGrid(*m_grid);

    const auto buttons = findChildren<XPButton*>();
    int width = 104;
    for (const auto* button : buttons) width = std::max(width, button->sizeHint().width());
    for (auto* button : buttons) button->setMinimumWidth(width);
    fitToContent(*this, {560, 440});
    if (m_table.scales) ResizeInit(*this);
    Edited = false;
}
