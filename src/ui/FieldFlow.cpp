#include "ui/FieldFlow.h"

#include "ui/Theme.h"

#include <QWidgetItem>

#include <algorithm>

namespace {

constexpr int kNarrowest = 400;  // pixels that a line of fields is never asked to do without

}  // namespace

FieldFlow::~FieldFlow()
{
    for (auto* item : m_items) delete item;
}

void FieldFlow::addField(QWidget* head, QWidget* box)
{
    const auto add = [this](QWidget* widget) -> QLayoutItem* {
        if (!widget) return nullptr;
        addChildWidget(widget);
        addItem(new QWidgetItem(widget));
        return m_items.back();
    };
    auto* first = add(head);
    m_fields.push_back({first, add(box)});
}

void FieldFlow::addItem(QLayoutItem* item) { m_items.push_back(item); }

QLayoutItem* FieldFlow::itemAt(int index) const
{
    return index >= 0 && index < count() ? m_items[static_cast<std::size_t>(index)] : nullptr;
}

QLayoutItem* FieldFlow::takeAt(int index)
{
    auto* item = itemAt(index);
    if (!item) return nullptr;
    std::erase(m_items, item);
    std::erase_if(m_fields, [item](const Field& field) { return field.head == item || field.box == item; });
    return item;
}

FieldFlow::Columns FieldFlow::columns(int count) const
{
    Columns made;
    made.oneLine = count >= static_cast<int>(m_fields.size());
    made.heads.resize(static_cast<std::size_t>(count));
    made.boxes.resize(static_cast<std::size_t>(count));
    for (std::size_t i = 0; i < m_fields.size(); ++i) {
        const std::size_t column = i % static_cast<std::size_t>(count);
        const auto& [head, box] = m_fields[i];
        made.heads[column] = std::max(made.heads[column], head->sizeHint().width());
        if (box) made.boxes[column] = std::max(made.boxes[column], theme::kGrid + box->sizeHint().width());
    }
    for (std::size_t i = 0; i < made.heads.size(); ++i)
        made.width += made.heads[i] + made.boxes[i] + (i > 0 ? 2 * theme::kGrid : 0);
    return made;
}

FieldFlow::Columns FieldFlow::columnsWithin(int width) const
{
    for (int count = static_cast<int>(m_fields.size()); count > 1; --count)
        if (auto made = columns(count); made.width <= width) return made;
    return columns(1);
}

int FieldFlow::lines(const Columns& columns) const
{
    return static_cast<int>((m_fields.size() + columns.heads.size() - 1) / columns.heads.size());
}

int FieldFlow::lineHeight() const
{
    int height = 0;
    for (const auto* item : m_items) height = std::max(height, item->sizeHint().height());
    return height;
}

int FieldFlow::heightForWidth(int width) const
{
    const int count = lines(columnsWithin(width));
    return count * lineHeight() + (count - 1) * theme::kGrid;
}

QSize FieldFlow::sizeHint() const { return {columns(static_cast<int>(m_fields.size())).width, lineHeight()}; }

QSize FieldFlow::minimumSize() const
{
    const Columns narrow = columnsWithin(kNarrowest);
    return {narrow.width, heightForWidth(narrow.width)};
}

void FieldFlow::setGeometry(const QRect& rect)
{
    QLayout::setGeometry(rect);
    const Columns made = columnsWithin(rect.width());
    const int height = lineHeight();
    for (std::size_t i = 0; i < m_fields.size(); ++i) {
        const std::size_t column = i % made.heads.size();
        int x = rect.x();
        for (std::size_t before = 0; before < column; ++before)
            x += made.heads[before] + made.boxes[before] + 2 * theme::kGrid;
        const int y = rect.y() + static_cast<int>(i / made.heads.size()) * (height + theme::kGrid);
        const auto& [head, box] = m_fields[i];
        const QSize headSize = head->sizeHint();
        const int indent = box ? made.heads[column] - headSize.width() : 0;
        head->setGeometry({QPoint(x + indent, y + (height - headSize.height()) / 2), headSize});
        if (!box) continue;
        const QSize boxSize = box->sizeHint();
        box->setGeometry({QPoint(x + made.heads[column] + theme::kGrid, y + (height - boxSize.height()) / 2), boxSize});
    }
}
