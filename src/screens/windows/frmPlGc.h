#pragma once

#include "screens/windows/ScreenForm.h"

/// 批量计算高程: a run of stakes with their sides, or a file of stakes and offsets.
class frmPlGc : public ScreenForm {
    Q_OBJECT
public:
    frmPlGc();

protected:
    bool Form_KeyPress(int keyAscii) override { return keyAscii == 13 && enterSendsTab(); }

private:
    void butPlGcCalc_Click();

    QLineEdit *txtPlGcQdlc, *txtPlGcZdlc, *txtPlGcPj, *txtPlGcJj, *txtLmhd;
    QCheckBox* cheLm;
};
