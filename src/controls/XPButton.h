#pragma once
// The push button of every window.

#include "controls/XPButtonPaint.h"

#include <QPixmap>
#include <QTimer>
#include <QVariantMap>
#include <QWidget>

/// Paints itself, in one of three colour styles; hover is noticed by a timer. None of its events is raised while it is
/// disabled. Positions are pixels; Button is 1 left, 2 right, 4 middle; Shift adds 1 Shift, 2 Ctrl, 4 Alt.
class XPButton : public QWidget {
    Q_OBJECT
    // In the order in which they are stored.
    Q_PROPERTY(QString Caption READ Caption WRITE setCaption NOTIFY PropertyChanged)
    Q_PROPERTY(uint ForeColor READ ForeColor WRITE setForeColor NOTIFY PropertyChanged)
    Q_PROPERTY(int ColorStyle READ ColorStyle WRITE setColorStyle NOTIFY PropertyChanged)
    Q_PROPERTY(bool FocusDottedRect READ FocusDottedRect WRITE setFocusDottedRect NOTIFY PropertyChanged)
    Q_PROPERTY(bool Enabled READ Enabled WRITE setEnabled NOTIFY PropertyChanged)
    Q_PROPERTY(QFont FontType READ FontType WRITE setFontType NOTIFY PropertyChanged)
    Q_PROPERTY(QPixmap Icon READ Icon WRITE setIcon NOTIFY PropertyChanged)
    Q_PROPERTY(QPixmap IconMask READ IconMask WRITE setIconMask NOTIFY PropertyChanged)
    Q_PROPERTY(int RoundedValue READ RoundedValue WRITE setRoundedValue NOTIFY PropertyChanged)
    Q_PROPERTY(int CaptionAlignment READ CaptionAlignment WRITE setCaptionAlignment NOTIFY PropertyChanged)
    Q_PROPERTY(int IconAlignment READ IconAlignment WRITE setIconAlignment NOTIFY PropertyChanged)
public:
    explicit XPButton(QWidget* parent = nullptr);
    explicit XPButton(const QString& caption, QWidget* parent = nullptr);

    QString Caption() const;  ///< the control's name until one is set
    void setCaption(const QString& caption);
    Bgr ForeColor() const { return m_state.foreColor; }
    void setForeColor(Bgr colour);
    int ColorStyle() const { return m_state.colorStyle; }
    void setColorStyle(int style);  ///< 1 to 3; with any other no background is painted
    bool FocusDottedRect() const { return m_state.focusDottedRect; }
    void setFocusDottedRect(bool dotted);
    bool Enabled() const { return isEnabled(); }
    void setEnabled(bool enabled);  ///< the same as QWidget's, but reports also where nothing changes
    QFont FontType() const { return font(); }
    void setFontType(const QFont& font);
    QPixmap Icon() const { return QPixmap::fromImage(m_state.icon); }
    void setIcon(const QPixmap& icon);
    QPixmap IconMask() const { return QPixmap::fromImage(m_state.iconMask); }
    void setIconMask(const QPixmap& mask);  ///< white where the background shows, black under the icon
    int RoundedValue() const { return m_state.roundedValue; }
    void setRoundedValue(int rounded);
    int CaptionAlignment() const { return static_cast<int>(m_state.captionAlignment); }
    void setCaptionAlignment(int alignment);  ///< 0 left, 1 right, 2 centre
    int IconAlignment() const { return static_cast<int>(m_state.iconAlignment); }
    void setIconAlignment(int alignment);  ///< 1 left, 2 right

    /// Sets every property from stored values, in their order; what is not stored takes its default.
    void ReadProperties(const QVariantMap& stored);
    QVariantMap WriteProperties() const;

    bool Hover() const { return m_state.hover; }
    bool Pressed() const { return m_state.pressed; }
    bool HasFocus() const { return m_state.hasFocus; }
    /// What a key press does, for a form that hands keys on itself.
    void pressKey(QKeyEvent& event) { keyPressEvent(&event); }
    /// The access-key event: shows its integer in a plain box.
    void AccessKeyPress(int keyAscii);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return sizeHint(); }

signals:
    void Click();
    void DblClick();
    void KeyDown(int KeyCode, int Shift);
    void KeyPress(int KeyAscii);
    void KeyUp(int KeyCode, int Shift);
    void MouseDown(int Button, int Shift, int X, int Y);
    void MouseMove(int Button, int Shift, int X, int Y);
    void MouseUp(int Button, int Shift, int X, int Y);
    void MouseEnter(int X, int Y);  ///< the cursor's place on the screen
    void MouseLeave(int X, int Y);  ///< likewise
    void PropertyChanged(const QString& name);

protected:
    bool event(QEvent* event) override;
    void changeEvent(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void keyReleaseEvent(QKeyEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;

private:
    void changed(const char* property);
    void set(bool& flag, bool value);
    void checkHover();

    XPButtonState m_state;
    QTimer tmrCheck{this};
    bool m_captionSet = false;
    bool m_pressedBySpace = false;
};
