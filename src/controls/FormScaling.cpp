#include "controls/FormScaling.h"

#include <QHash>
#include <QLayout>
#include <QList>
#include <QPointer>
#include <QScreen>
#include <QWidget>

#include <cmath>

std::int32_t FormOldWidth = 0, FormOldHeight = 0;

namespace {

struct Placed {
    QPointer<QWidget> control;
    QRect design;
};

QHash<const QWidget*, QList<Placed>>& placedControls()
{
    static QHash<const QWidget*, QList<Placed>> table;
    return table;
}

void settle(QWidget& container)
{
    container.layout()->activate();
    container.layout()->setGeometry(container.contentsRect());
}

/// The controls of a window are its children and, where a child is a frame around others, its children too.
void remember(QWidget& container, QList<Placed>& placed)
{
    if (container.layout()) settle(container);
    for (auto* control : container.findChildren<QWidget*>(Qt::FindDirectChildrenOnly)) {
        if (control->isWindow() || control->objectName().startsWith(u"qt_")) continue;
        placed.append({control, control->geometry()});
        if (control->layout()) remember(*control, placed);
    }
    delete container.layout();
}

}  // namespace

void fitToContent(QWidget& window)
{
    constexpr QSize frame(16, 48);  // title bar and borders
    if (window.testAttribute(Qt::WA_Resized)) return;
    window.ensurePolished();
    window.resize(window.sizeHint().boundedTo(window.screen()->availableSize() - frame));
}

void ResizeInit(QWidget& form)
{
    form.ensurePolished();
    const QSize least = form.layout() ? form.layout()->totalMinimumSize() : form.minimumSize();
    fitToContent(form);
    form.resize(form.size().expandedTo(least));
    QList<Placed> placed;
    remember(form, placed);
    for (const auto& [control, design] : placed) {
        control->setMinimumSize(0, 0);
        control->setMaximumSize(QWIDGETSIZE_MAX, QWIDGETSIZE_MAX);
    }
    form.setMinimumSize(least);
    FormOldWidth = form.width();
    FormOldHeight = form.height();
    if (!placedControls().contains(&form))
        QObject::connect(&form, &QObject::destroyed, [key = &form] { placedControls().remove(key); });
    placedControls()[&form] = placed;
}

void ResizeForm(QWidget& form)
{
    const auto placed = placedControls().value(&form);
    if (placed.isEmpty()) return;
    const double scaleX = static_cast<double>(form.width()) / FormOldWidth;
    const double scaleY = static_cast<double>(form.height()) / FormOldHeight;
    for (const auto& [control, design] : placed)
        if (control)
            control->setGeometry(qRound(design.x() * scaleX), qRound(design.y() * scaleY),
                                 qRound(design.width() * scaleX), qRound(design.height() * scaleY));
}
