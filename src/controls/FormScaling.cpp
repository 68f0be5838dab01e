#include "controls/FormScaling.h"

#include <QHash>
#include <QLayout>
#include <QList>
#include <QPointer>
#include <QScreen>
#include <QWidget>

#include <algorithm>
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

QSize roomFor(const QWidget& window)
{
    constexpr QSize frame(16, 32), taskBar(0, 40);
    const QScreen& screen = *window.screen();
    return (screen.availableSize() - frame).boundedTo(screen.size() - frame - taskBar);
}

void fitToContent(QWidget& window, QSize atLeast)
{
    if (window.testAttribute(Qt::WA_Resized)) return;
    window.ensurePolished();
    const QSize room = roomFor(window);
    QSize size = window.sizeHint().expandedTo(atLeast).boundedTo(room);
    if (const auto* layout = window.layout(); layout && layout->hasHeightForWidth())
        size.setHeight(std::clamp(layout->totalHeightForWidth(size.width()), std::min(atLeast.height(), room.height()),
                                  room.height()));
    window.resize(size);
}

void ResizeInit(QWidget& form)
{
    form.ensurePolished();
    fitToContent(form);
    if (form.layout()) form.resize(form.size().expandedTo(form.layout()->totalMinimumSize()));
    QList<Placed> placed;
    remember(form, placed);
    // Every control shrinks as the window does: the one that can spare least says how far.
    double leastX = 0, leastY = 0;
    for (const auto& [control, design] : placed) {
        const QSize needed = control->minimumSize().expandedTo(control->minimumSizeHint());
        const bool shown = !control->testAttribute(Qt::WA_WState_ExplicitShowHide) || !control->isHidden();
        if (shown && design.width() > 0) leastX = std::max(leastX, 1.0 * needed.width() / design.width());
        if (shown && design.height() > 0) leastY = std::max(leastY, 1.0 * needed.height() / design.height());
        control->setMinimumSize(0, 0);
        control->setMaximumSize(QWIDGETSIZE_MAX, QWIDGETSIZE_MAX);
    }
    const auto least = [](double share, int size) { return static_cast<int>(std::ceil(std::min(share, 1.0) * size)); };
    form.setMinimumSize(least(leastX, form.width()), least(leastY, form.height()));
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
