#include "ui/BusyRow.h"

#include "ui/InputGuard.h"

#include <QCoreApplication>
#include <QHBoxLayout>
#include <QLabel>

namespace {

constexpr int kTurnInterval = 40;  // ms between turns of the event loop
constexpr int kShownAfter = 250;   // ms of work that pass without a word

}  // namespace

BusyRow::BusyRow(QWidget* over) : QFrame(over), m_label(new QLabel(this))
{
    setObjectName(QStringLiteral("busyRow"));
    setFrameShape(StyledPanel);
    setAutoFillBackground(true);
    auto* row = new QHBoxLayout(this);
    row->setContentsMargins(12, 6, 12, 6);
    row->addWidget(m_label);
    hide();
    m_sinceStart.start();
    m_sinceTurn.start();
}

void BusyRow::tick(const std::function<QString()>& text)
{
    if (m_sinceTurn.elapsed() < kTurnInterval) return;
    if (m_sinceStart.elapsed() >= kShownAfter) {
        m_label->setText(text());
        const int height = sizeHint().height();
        setGeometry(0, parentWidget()->height() - height, parentWidget()->width(), height);
        show();
        raise();
    }
    const InputGuard guard;
    QCoreApplication::processEvents();
    m_abandoned = m_abandoned || guard.sawEscape();
    m_sinceTurn.restart();
}
