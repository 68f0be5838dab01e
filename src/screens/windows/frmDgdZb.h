#pragma once

#include "screens/windows/ScreenForm.h"

/// 计算单个点坐标: a stake and an offset give one row.
class frmDgdZb : public ScreenForm {
    Q_OBJECT
public:
    frmDgdZb();

protected:
    void Form_Load() override;
    void Form_Resize() override;

private:
    void butDgdCalc_Click();

    QLineEdit *txtDgdZbFylc, *txtDgdPj, *txtDgdJj;
    PickList* comDgdZbz;
    QCheckBox* cheDgdJj;
};
