#include "platform/BusyRow.h"

#include <QApplication>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>

namespace {

constexpr int kTurnInterval = 40;  // ms between turns of the event loop
constexpr int kShownAfter = 250;   // ms of work that pass without a word

bool isInput(QEvent::Type type)
{
    switch (type) {
    case QEvent::KeyPress:
    case QEvent::KeyRelease:
    case QEvent::ShortcutOverride:
    case QEvent::Shortcut:
    case QEvent::InputMethod:
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonRelease:
    case QEvent::MouseButtonDblClick:
    case QEvent::ContextMenu:
    case QEvent::Wheel:
    case QEvent::TouchBegin:
    case QEvent::TouchUpdate:
    case QEvent::TouchEnd:
    case QEvent::DragEnter:
    case QEvent::Drop:
    case QEvent::Close:
        return true;
    default:
        return false;
    }
}

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
    qApp->installEventFilter(this);
}

BusyRow::~BusyRow() = default;

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
    m_turning = true;
    QCoreApplication::processEvents();
    m_turning = false;
    m_sinceTurn.restart();
}

bool BusyRow::eventFilter(QObject*, QEvent* event)
{
    if (!m_turning || !isInput(event->type())) return false;
    const bool isKey = event->type() == QEvent::KeyPress || event->type() == QEvent::ShortcutOverride;
    if (isKey && static_cast<QKeyEvent*>(event)->key() == Qt::Key_Escape) m_abandoned = true;
    event->setAccepted(event->type() != QEvent::Close);
    return true;
}
