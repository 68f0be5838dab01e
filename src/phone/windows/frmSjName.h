#pragma once

#include "ui/Form.h"

class XPButton;

/// Asks for the name under which gProject goes to the phone, and exports it.
class frmSjName : public Form {
    Q_OBJECT
public:
    frmSjName();

signals:
    void listed(const QString& name);  ///< a new line of the phone catalogue

private:
    void sjXmOK_Click();

    QLineEdit* txtsjName;
    XPButton *sjXmOK, *sjxmCancel;
};
