#pragma once

#include "project/Backups.h"
#include "ui/Form.h"

#include <vector>

class ListBox;
class XPButton;

/// What is kept of a project's files, the newest first; one of them takes the place of the file.
class frmHf : public Form {
    Q_OBJECT
public:
    explicit frmHf(const QString& project);

private:
    void fill();
    void butHf_Click();

    const QString m_project;
    std::vector<Backup> m_backups;  ///< row for row as in the list
    ListBox* lstHf;
    XPButton *butHf, *butHfBack;
};
