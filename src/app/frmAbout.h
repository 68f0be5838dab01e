#pragma once

#include "ui/Form.h"

#include <QLabel>

class XPButton;

/// A text that is clicked.
class ClickLabel : public QLabel {
    Q_OBJECT
public:
    explicit ClickLabel(const QString& text, QWidget* parent = nullptr);

signals:
    void Click();

protected:
    void mouseReleaseEvent(QMouseEvent* event) override;
};

/// What the program is and who makes it.
class frmAbout : public Form {
    Q_OBJECT
public:
    frmAbout();
};
