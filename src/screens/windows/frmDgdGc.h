#pragma once

#include "screens/windows/ScreenForm.h"

/// 计算单个点高程: a stake and an offset give one row.
class frmDgdGc : public ScreenForm {
    Q_OBJECT
public:
    frmDgdGc();

private:
    void butDgdGcCalc_Click();

    QLineEdit *txtDgdGcFylc, *txtDgdGcPj, *txtDgdLmhd;
    PickList* comDgdGcz;
    QCheckBox* cheDgdLm;
};
