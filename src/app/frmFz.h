#pragma once

#include "ui/Form.h"

class XPButton;

/// Asks for a name and copies a project's parameter files into a new project of that name.
class frmFz : public Form {
    Q_OBJECT
public:
    explicit frmFz(const QString& project);

signals:
    void created(const QString& name);  ///< the copy stands and is listed

protected:
    bool Form_KeyPress(int keyAscii) override;  ///< Enter in the box copies

private:
    void butFzOK_Click();

    const QString m_project;
    QLineEdit* txtFzMc;
    XPButton *butFzOK, *butFzBack;
};
