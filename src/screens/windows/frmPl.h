#pragma once

#include "ui/Form.h"

class frmJgw;

/// 批量计算结构物: start, end and step of a run of structures.
class frmPl : public Form {
    Q_OBJECT
public:
    explicit frmPl(frmJgw& structures);

protected:
    bool Form_KeyPress(int keyAscii) override { return keyAscii == 13 && enterSendsTab(); }

private:
    void butOK_Click();

    frmJgw& m_structures;
    QLineEdit *txtQdlc, *txtZdlc, *txtBc;
};
