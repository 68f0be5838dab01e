#pragma once

#include "screens/windows/ScreenForm.h"

/// 坐标反算桩号: a point, or a file of points, gives stakes and offsets.
class frmFs : public ScreenForm {
    Q_OBJECT
public:
    frmFs();

protected:
    bool Form_KeyPress(int keyAscii) override { return keyAscii == 13 && enterSendsTab(); }

private:
    QLineEdit *txtFsx, *txtFsY;
};
