#pragma once
// The push button of every window.

#include <QPixmap>
#include <QTimer>
#include <QWidget>

class XPButton : public QWidget {
    Q_OBJECT
public:
    explicit XPButton(QWidget* parent = nullptr);
    explicit XPButton(const QString& caption, QWidget* parent = nullptr);

    QString Caption() const;
    void setCaption(const QString& caption);
    // The other properties, with the same names, stand here: see the control's room.

signals:
    void Click();
};
