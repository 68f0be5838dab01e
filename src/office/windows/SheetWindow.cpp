#include "office/windows/SheetWindow.h"

#include "controls/FormScaling.h"
#include "office/Xls.h"
#include "office/windows/SheetPainter.h"
#include "office/windows/SheetView.h"
#include "ui/Fields.h"
#include "ui/Theme.h"

#include <QAction>
#include <QComboBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QVBoxLayout>

#include <algorithm>
#include <cmath>

SheetWindow::SheetWindow(Worksheet sheet, const QString& title)
    : DocumentWindow(title, QStringLiteral("工作表"), QStringLiteral("xls")), m_view(new SheetView(std::move(sheet))),
      m_address(new QLabel), m_entry(new QLineEdit), m_zoomBox(makeZoomBox())
{
    setObjectName(QStringLiteral("SheetWindow"));
    m_view->setObjectName(QStringLiteral("sheet"));
    m_address->setObjectName(QStringLiteral("address"));
    m_entry->setObjectName(QStringLiteral("entry"));

    separator();
    m_undo =
        command(QStringLiteral("撤销"), QKeySequence::Undo, QStringLiteral("撤销上一步"), [this] { m_view->undo(); });
    m_redo = command(QStringLiteral("重做"), QKeySequence::Redo, QStringLiteral("重做撤销的一步"),
                     [this] { m_view->redo(); });
    auto redoKeys = QKeySequence::keyBindings(QKeySequence::Redo);
    const QKeySequence ctrlY(Qt::CTRL | Qt::Key_Y);  // as in a spreadsheet, whatever the desktop's own key
    if (!redoKeys.contains(ctrlY)) m_redo->setShortcuts(redoKeys << ctrlY);
    separator();
    auto* cut = command(QStringLiteral("剪切"), QKeySequence::Cut, QStringLiteral("剪切选中的单元格"),
                        [this] { m_view->cut(); });
    auto* copy = command(QStringLiteral("复制"), QKeySequence::Copy, QStringLiteral("复制选中的单元格"),
                         [this] { m_view->copy(); });
    auto* paste = command(QStringLiteral("粘贴"), QKeySequence::Paste, QStringLiteral("从选中的单元格起粘贴"),
                          [this] { m_view->paste(); });
    m_view->addActions({cut, copy, paste});
    m_view->setContextMenuPolicy(Qt::ActionsContextMenu);
    auto* all = new QAction(this);
    all->setShortcut(QKeySequence::SelectAll);
    connect(all, &QAction::triggered, m_view, &SheetView::selectAll);
    addAction(all);
    addAtEnd(m_zoomBox);

    m_address->setAlignment(Qt::AlignCenter);
    m_address->setFixedWidth(64);
    m_entry->setMinimumWidth(240);
    m_entry->setToolTip(QStringLiteral("当前单元格的内容"));
    auto* line = new QHBoxLayout;
    line->setContentsMargins(theme::kGrid, theme::kGrid, theme::kGrid, theme::kGrid);
    line->setSpacing(theme::kGrid);
    line->addWidget(m_address);
    line->addWidget(m_entry);
    auto* content = new QWidget;
    auto* column = new QVBoxLayout(content);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    column->addLayout(line);
    column->addWidget(m_view);
    setCentralWidget(content);
    m_view->setFocus();

    connect(m_view, &SheetView::changed, this, [this] { touched(); });
    connect(m_view, &SheetView::currentChanged, this, [this] { showCurrent(); });
    connect(m_view, &SheetView::zoomWanted, this, [this](double factor) { setZoom(zoom() * factor); });
    keepOneLine(m_entry);
    connect(m_entry, &QLineEdit::returnPressed, this, [this] {
        m_view->enter(m_entry->text());
        m_view->setFocus();
    });
    showCurrent();
    fitToContent(*this, {1130, 720});
}

const Worksheet& SheetWindow::sheet() const { return m_view->sheet(); }
void SheetWindow::change(const std::function<void(Worksheet&)>& body) { m_view->change(body); }

QComboBox* SheetWindow::makeZoomBox()
{
    auto* box = new QComboBox;
    box->setObjectName(QStringLiteral("zoom"));
    box->setToolTip(QStringLiteral("显示比例 (Ctrl+滚轮)"));
    box->setEditable(true);
    box->setInsertPolicy(QComboBox::NoInsert);
    keepOneLine(box->lineEdit());
    for (const int percent : {50, 75, 100, 125, 150, 200, 300}) box->addItem(QStringLiteral("%1%").arg(percent));
    box->setCurrentText(QStringLiteral("100%"));
    const auto apply = [this, box] {
        bool ok = false;
        const double percent = box->currentText().remove(u'%').trimmed().toDouble(&ok);
        setZoom(ok ? percent / 100 : m_zoom);
        m_view->setFocus();
    };
    connect(box, &QComboBox::activated, this, apply);
    connect(box->lineEdit(), &QLineEdit::returnPressed, this, apply);
    return box;
}

void SheetWindow::setZoom(double zoom)
{
    m_zoom = std::clamp(std::round(zoom * 100) / 100, 0.25, 4.0);
    m_zoomBox->setEditText(QStringLiteral("%1%").arg(std::lround(m_zoom * 100)));
    m_view->setZoom(m_zoom);
}

void SheetWindow::showCurrent()
{
    m_address->setText(QString::fromStdString(m_view->current().address()));
    if (!m_entry->hasFocus() || !m_entry->isModified()) m_entry->setText(m_view->entryText());
    m_undo->setEnabled(m_view->canUndo());
    m_redo->setEnabled(m_view->canRedo());
}

void SheetWindow::settle() { m_view->commit(); }
std::string SheetWindow::fileBytes() const { return XlsBytes(sheet()); }
QPageLayout SheetWindow::page() const { return pageLayout(sheet().page, m_print); }
void SheetWindow::print(QPagedPaintDevice& device) const { printSheet(sheet(), device, m_print); }
