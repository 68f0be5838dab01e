#pragma once

#include "screens/windows/ScreenForm.h"

/// 主点参数: the main points of the curves, one row an intersection point.
class frmZdcs : public ScreenForm {
    Q_OBJECT
public:
    frmZdcs();

protected:
    void Form_Load() override;
    ExportData exportData() override;
    ScreenState* savedState() override { return nullptr; }
};
