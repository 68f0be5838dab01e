#pragma once

#include "ui/Form.h"

class QPlainTextEdit;
class XPButton;

/// What an import or an export has to say, to be read and copied.
class frmDrBg : public Form {
    Q_OBJECT
public:
    frmDrBg(const QString& caption, const QStringList& lines);

private:
    QPlainTextEdit* txtDrBg;
    XPButton* butDrBgBack;
};
