#include "controls/XPButton.h"

#include "controls/KeyCodes.h"
#include "controls/XPButtonAccessible.h"
#include "dialogs/Dialogs.h"

#include <QApplication>
#include <QCursor>
#include <QFontMetrics>
#include <QKeyEvent>
#include <QMetaProperty>
#include <QMouseEvent>
#include <QPainter>
#include <QPointer>
#include <QShortcutEvent>

#include <algorithm>
#include <cmath>

namespace {

constexpr int kHoverInterval = 50;  // ms

struct StoredProperty {
    const char* name;
    QVariant whenNotStored;
};
const std::array<StoredProperty, 11>& storedProperties()
{
    static const std::array<StoredProperty, 11> properties{{{"Caption", QString()},
                                                            {"ForeColor", 0u},
                                                            {"ColorStyle", 1},
                                                            {"FocusDottedRect", true},
                                                            {"Enabled", true},
                                                            {"FontType", {}},
                                                            {"Icon", QPixmap()},
                                                            {"IconMask", QPixmap()},
                                                            {"RoundedValue", 5},
                                                            {"CaptionAlignment", 2},
                                                            {"IconAlignment", 1}}};
    return properties;
}

/// A press can come late: the box that it left has raised a message, and the release went there.
bool isStillHeld(const QMouseEvent& press)
{
    return !press.spontaneous() || QGuiApplication::mouseButtons().testFlag(press.button());
}

int buttonsHeld(Qt::MouseButtons buttons)
{
    int held = 0;
    for (const auto button : {Qt::LeftButton, Qt::RightButton, Qt::MiddleButton})
        if (buttons & button) held += mouseButton(button);
    return held;
}

}  // namespace

XPButton::XPButton(QWidget* parent) : QWidget(parent)
{
    describeButtonsToScreenReaders();
    setFocusPolicy(Qt::StrongFocus);
    setMouseTracking(true);
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
    tmrCheck.setObjectName(QStringLiteral("tmrCheck"));
    tmrCheck.setInterval(kHoverInterval);
    connect(&tmrCheck, &QTimer::timeout, this, &XPButton::checkHover);
    connect(this, &QObject::objectNameChanged, this, [this] {
        updateGeometry();
        update();
    });
}

XPButton::XPButton(const QString& caption, QWidget* parent) : XPButton(parent) { setCaption(caption); }

void XPButton::changed(const char* property)
{
    emit PropertyChanged(QString::fromLatin1(property));
    updateGeometry();
    update();
}

QString XPButton::Caption() const { return m_captionSet ? m_state.caption : objectName(); }

void XPButton::setCaption(const QString& caption)
{
    m_state.caption = caption;
    m_captionSet = true;
    changed("Caption");
}

void XPButton::setForeColor(Bgr colour)
{
    m_state.foreColor = colour;
    changed("ForeColor");
}

void XPButton::setColorStyle(int style)
{
    m_state.colorStyle = style;
    changed("ColorStyle");
}

void XPButton::setFocusDottedRect(bool dotted)
{
    m_state.focusDottedRect = dotted;
    changed("FocusDottedRect");
}

void XPButton::setEnabled(bool enabled)
{
    if (enabled == isEnabled()) return changed("Enabled");
    QWidget::setEnabled(enabled);  // changeEvent reports
}

void XPButton::setFontType(const QFont& font)
{
    setFont(font);
    changed("FontType");
}

void XPButton::setIcon(const QPixmap& icon)
{
    m_state.icon = icon.toImage();
    changed("Icon");
}

void XPButton::setIconMask(const QPixmap& mask)
{
    m_state.iconMask = mask.toImage();
    changed("IconMask");
}

void XPButton::setRoundedValue(int rounded)
{
    m_state.roundedValue = rounded;
    changed("RoundedValue");
}

void XPButton::setCaptionAlignment(int alignment)
{
    m_state.captionAlignment = static_cast<CaptionAlign>(alignment);
    changed("CaptionAlignment");
}

void XPButton::setIconAlignment(int alignment)
{
    m_state.iconAlignment = static_cast<IconAlign>(alignment);
    changed("IconAlignment");
}

void XPButton::ReadProperties(const QVariantMap& stored)
{
    for (const auto& [name, whenNotStored] : storedProperties()) {
        const QVariant ambient = parentWidget() ? parentWidget()->font() : QApplication::font();
        const QVariant otherwise = whenNotStored.isValid() ? whenNotStored : ambient;
        setProperty(name, stored.value(QString::fromLatin1(name), otherwise));
    }
}

QVariantMap XPButton::WriteProperties() const
{
    QVariantMap stored;
    for (const auto& entry : storedProperties()) stored[QString::fromLatin1(entry.name)] = property(entry.name);
    return stored;
}

void XPButton::AccessKeyPress(int keyAscii) { dialogs().box({.text = std::to_string(keyAscii), .title = "Velumark"}); }

/// Room for the caption beside its icon, at any scale of the desktop.
QSize XPButton::sizeHint() const
{
    ensurePolished();
    const QFontMetrics metrics(font());
    const bool withIcon = !m_state.icon.isNull() && !m_state.iconMask.isNull();
    const int beside = withIcon ? m_state.icon.width() + 8 : 0;
    const int width = metrics.horizontalAdvance(Caption()) + 28 + (CaptionAlignment() == 2 ? 2 * beside : beside);
    const int height = std::max(metrics.height() + 12, withIcon ? m_state.icon.height() + 8 : 0);
    return {std::max(width, 76), std::max(height, 28)};
}

void XPButton::set(bool& flag, bool value)
{
    flag = value;
    update();
}

bool XPButton::event(QEvent* event)
{
    if (event->type() == QEvent::Shortcut) {
        const auto key = static_cast<QShortcutEvent*>(event)->key();
        if (isEnabled() && !key.isEmpty()) AccessKeyPress(key[0].key());
        return true;
    }
    return QWidget::event(event);
}

void XPButton::changeEvent(QEvent* event)
{
    QWidget::changeEvent(event);
    if (event->type() == QEvent::EnabledChange) {
        if (!isEnabled()) m_state.pressed = m_pressedBySpace = false;
        changed("Enabled");
    } else if (event->type() == QEvent::FontChange) {
        updateGeometry();
        update();
    }
}

/// The picture is made of whole pixels of the screen: at 100 % and 150 % one wide, at 200 % two.
void XPButton::paintEvent(QPaintEvent*)
{
    const double ratio = devicePixelRatioF();
    const double unit = std::max(1.0, std::floor(ratio));  // screen pixels a pixel of the picture
    XPButtonState state = m_state;
    state.caption = Caption();
    state.enabled = isEnabled();
    state.font = font();
    state.pixelsPerTwip = logicalDpiX() / 1440.0 * ratio / unit;
    if (ratio != unit) state.font.setPixelSize(std::max(1, qRound(QFontInfo(font()).pixelSize() * ratio / unit)));
    QPainter painter(this);
    painter.scale(unit / ratio, unit / ratio);
    paintXPButton(painter, QSize(qRound(width() * ratio / unit), qRound(height() * ratio / unit)), state);
}

void XPButton::showEvent(QShowEvent* event)
{
    QWidget::showEvent(event);
    tmrCheck.start();
}

void XPButton::hideEvent(QHideEvent* event)
{
    QWidget::hideEvent(event);
    tmrCheck.stop();
    m_state.pressed = m_state.hover = m_state.hasFocus = m_pressedBySpace = false;
    update();
}

void XPButton::checkHover()
{
    if (!isEnabled()) return;
    tmrCheck.stop();
    const QPoint cursor = QCursor::pos();
    // Where the desktop tells no positions outside the program's windows, only the leave event says that it is gone.
    const bool over = QApplication::widgetAt(cursor) == this && underMouse();
    const QPointer<XPButton> alive(this);
    if (m_state.hover != over) {
        set(m_state.hover, over);
        if (over)
            emit MouseEnter(cursor.x(), cursor.y());
        else
            emit MouseLeave(cursor.x(), cursor.y());
    }
    if (alive && isVisible()) tmrCheck.start();
}

void XPButton::focusInEvent(QFocusEvent*) { set(m_state.hasFocus, true); }

void XPButton::focusOutEvent(QFocusEvent*)
{
    if (m_pressedBySpace) m_state.pressed = m_pressedBySpace = false;  // its release goes elsewhere
    set(m_state.hasFocus, false);
}

void XPButton::keyPressEvent(QKeyEvent* event)
{
    const int ascii = keyAscii(*event);
    const bool isSpace = event->key() == Qt::Key_Space;
    const bool acts = isSpace || ascii == 13;
    event->setAccepted(acts);
    if (!isEnabled() || (acts && event->isAutoRepeat())) return;
    const QPointer<XPButton> alive(this);
    emit KeyDown(keyCode(*event), shiftState(event->modifiers()));
    if (alive && isSpace) {
        m_pressedBySpace = true;
        set(m_state.pressed, true);
    }
    if (alive && ascii != 0) emit KeyPress(ascii);
    if (alive && ascii == 13) emit Click();
}

void XPButton::keyReleaseEvent(QKeyEvent* event)
{
    const bool isSpace = event->key() == Qt::Key_Space;
    event->setAccepted(isSpace);
    if (!isEnabled() || event->isAutoRepeat()) return;
    const bool clicks = isSpace && m_pressedBySpace;
    const QPointer<XPButton> alive(this);
    emit KeyUp(keyCode(*event), shiftState(event->modifiers()));
    if (!alive || !isSpace) return;
    m_pressedBySpace = false;
    set(m_state.pressed, false);
    if (clicks) emit Click();
}

void XPButton::mousePressEvent(QMouseEvent* event)
{
    const QPoint at = event->position().toPoint();
    const QPointer<XPButton> alive(this);
    emit MouseDown(mouseButton(event->button()), shiftState(event->modifiers()), at.x(), at.y());
    if (alive && event->button() == Qt::LeftButton && isStillHeld(*event)) set(m_state.pressed, true);
}

void XPButton::mouseMoveEvent(QMouseEvent* event)
{
    const QPoint at = event->position().toPoint();
    emit MouseMove(buttonsHeld(event->buttons()), shiftState(event->modifiers()), at.x(), at.y());
}

void XPButton::mouseReleaseEvent(QMouseEvent* event)
{
    const QPoint at = event->position().toPoint();
    const bool left = event->button() == Qt::LeftButton;
    const bool clicks = left && m_state.pressed && rect().contains(at);
    const QPointer<XPButton> alive(this);
    emit MouseUp(mouseButton(event->button()), shiftState(event->modifiers()), at.x(), at.y());
    if (!alive || !left) return;
    set(m_state.pressed, false);
    if (clicks && isEnabled()) emit Click();
}

/// The second press of a double click presses like the first, so that quick clicks are all counted.
void XPButton::mouseDoubleClickEvent(QMouseEvent* event)
{
    const QPointer<XPButton> alive(this);
    mousePressEvent(event);
    if (alive && event->button() == Qt::LeftButton) emit DblClick();
}
