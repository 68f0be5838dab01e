#pragma once

#include "screens/windows/ScreenForm.h"

/// 批量放样: a run of stakes with their sides, or a file of stakes and offsets.
class frmPlfy : public ScreenForm {
    Q_OBJECT
public:
    frmPlfy();

protected:
    void Form_Load() override;
    void Form_Resize() override;
    bool Form_KeyPress(int keyAscii) override { return keyAscii == 13 && enterSendsTab(); }

private:
    void butPlzbCalc_Click();

    QLineEdit *txtPlzbQdlc, *txtPlzbZdlc, *txtPlzbBc, *txtPlzbPj, *txtPlzbJj;
    QCheckBox* chePlzbJj;
};
