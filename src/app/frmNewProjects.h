#pragma once

#include "ui/Form.h"

class XPButton;

/// Asks for the name of a new project and creates it.
class frmNewProjects : public Form {
    Q_OBJECT
public:
    frmNewProjects();

signals:
    void created(const QString& name);  ///< the catalogue has it; its settings are still to be written

protected:
    bool Form_KeyPress(int keyAscii) override;  ///< Enter in the box creates the project

private:
    void cmdNewProjectsOK_Click();

    QLineEdit* txtNewProjects;
    XPButton *cmdNewProjectsOK, *cmdNewProjectsCancel;
};
