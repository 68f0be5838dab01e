#pragma once

#include "exchange/LandXml.h"
#include "ui/Form.h"

class PickList;
class XPButton;

/// Takes a road of a LandXML file over into a new project.
class frmDr : public Form {
    Q_OBJECT
public:
    explicit frmDr(landxml::File file);

signals:
    void created(const QString& name, const QStringList& report);  ///< it stands in the catalogue

private:
    void cmdDrOK_Click();

    landxml::File m_file;
    std::vector<landxml::Summary> m_roads;
    PickList* comDrXl;
    QLineEdit *txtDrMc, *txtDrPy, *txtDrDl;
    XPButton *cmdDrOK, *cmdDrCancel;
};
