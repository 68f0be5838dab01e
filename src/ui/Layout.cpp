#include "ui/Layout.h"

#include "dialogs/Messages.h"
#include "ui/FieldFlow.h"
#include "ui/Theme.h"

#include <QAbstractScrollArea>
#include <QComboBox>
#include <QGridLayout>
#include <QLabel>

#include <algorithm>

namespace ui {
namespace {

template <class Layout>
Layout* spaced(Layout* layout)
{
    layout->setSpacing(theme::kGrid);
    layout->setContentsMargins(0, 0, 0, 0);
    return layout;
}

QWidget* headOf(const FieldRow& field)
{
    if (field.head) return field.head;
    auto* label = new QLabel(field.label);
    label->setBuddy(field.box);
    label->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    return label;
}

void add(QBoxLayout* layout, const Piece& piece, int stretch)
{
    if (piece.layout)
        layout->addLayout(piece.layout, stretch);
    else
        layout->addWidget(piece.widget, stretch);
}

QBoxLayout* equalButtons(QBoxLayout* layout, const std::vector<QWidget*>& buttons)
{
    int width = 0;
    for (const auto* button : buttons) width = std::max(width, button->sizeHint().width());
    for (auto* button : buttons) {
        button->setMinimumWidth(width);
        layout->addWidget(button);
    }
    return spaced(layout);
}

}  // namespace

QLayout* fieldTable(const std::vector<Fields>& rows)
{
    auto* table = spaced(new QGridLayout);
    for (int row = 0; row < std::ssize(rows); ++row) {
        int column = 0;
        for (const auto& field : rows[static_cast<std::size_t>(row)]) {
            table->addWidget(headOf(field), row, column++, Qt::AlignRight | Qt::AlignVCenter);
            if (field.box) table->addWidget(field.box, row, column);
            ++column;
        }
    }
    auto* fromTheLeft = spaced(new QHBoxLayout);
    fromTheLeft->addLayout(table);
    fromTheLeft->addStretch(1);
    return fromTheLeft;
}

QLayout* fieldColumn(const Fields& fields)
{
    std::vector<Fields> rows;
    for (const auto& field : fields) rows.push_back({field});
    return fieldTable(rows);
}

QLayout* fieldLine(const Fields& fields)
{
    auto* flow = new FieldFlow;
    for (const auto& field : fields) flow->addField(headOf(field), field.box);
    return flow;
}

QGroupBox* frame(const QString& caption, QLayout* content)
{
    auto* box = new QGroupBox(caption);
    auto* fromTheTop = spaced(new QVBoxLayout(box));
    fromTheTop->setContentsMargins(theme::kMargin, theme::kGrid, theme::kMargin, theme::kMargin);
    fromTheTop->addLayout(content);
    fromTheTop->addStretch();
    return box;
}

QLayout* buttonRow(const std::vector<QWidget*>& buttons)
{
    auto* row = new QHBoxLayout;
    row->addStretch(1);
    return equalButtons(row, buttons);
}

QLayout* buttonColumn(const std::vector<QWidget*>& buttons)
{
    auto* column = equalButtons(new QVBoxLayout, buttons);
    column->addStretch(1);
    return column;
}

QLayout* across(const std::vector<Piece>& pieces)
{
    auto* row = spaced(new QHBoxLayout);
    for (const auto& piece : pieces) add(row, piece, 0);
    row->addStretch(1);
    return row;
}

QLayout* down(const std::vector<Piece>& pieces)
{
    auto* column = spaced(new QVBoxLayout);
    for (const auto& piece : pieces) add(column, piece, 0);
    return column;
}

void arrange(QWidget& window, const std::vector<Piece>& pieces)
{
    const auto takesTheRest = [](const Piece& piece) { return qobject_cast<QAbstractScrollArea*>(piece.widget); };
    const bool stretches = std::any_of(pieces.begin(), pieces.end(), takesTheRest);
    auto* column = spaced(new QVBoxLayout);
    for (const auto& piece : pieces) add(column, piece, takesTheRest(piece) ? 1 : 0);
    auto* whole = new QGridLayout;
    whole->setSpacing(0);
    whole->setContentsMargins(theme::kMargin, theme::kMargin, theme::kMargin, theme::kMargin);
    // Controls that need no more room stay together in the middle of a window that has more.
    whole->addLayout(column, 1, 1);
    for (const int around : {0, 2}) {
        whole->setRowStretch(around, stretches ? 0 : 1);
        whole->setColumnStretch(around, stretches ? 0 : 1);
    }
    if (stretches) {
        whole->setRowStretch(1, 1);
        whole->setColumnStretch(1, 1);
    }
    window.setLayout(whole);
}

void fitDigits(QWidget* box, int digits)
{
    box->ensurePolished();
    const bool picks = qobject_cast<QComboBox*>(box);
    box->setFixedWidth(box->fontMetrics().horizontalAdvance(u'0') * digits + (picks ? 36 : 16));
}

void fitText(QLabel* note, int width)
{
    note->ensurePolished();
    note->setWordWrap(true);
    note->setFixedSize(width, note->heightForWidth(width));
}

void placeWaitBox(QLineEdit* box, QWidget* over)
{
    box->setText(QString::fromUtf8(message::kSaving));
    box->setReadOnly(true);
    box->setFocusPolicy(Qt::NoFocus);
    box->setAlignment(Qt::AlignCenter);
    const QSize size(box->fontMetrics().horizontalAdvance(box->text()) + 48, box->fontMetrics().height() + 24);
    const QRect area(over->mapTo(over->window(), QPoint(0, 0)), over->size());
    box->setGeometry(QRect(area.center() - QPoint(size.width() / 2, size.height() / 2), size));
    box->raise();
    box->hide();
}

}  // namespace ui
