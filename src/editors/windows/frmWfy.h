#pragma once
// Cut slopes on the right.

#include "editors/windows/SlopeForm.h"

class frmWfy : public SlopeForm {
public:
    explicit frmWfy(QWidget* parent = nullptr) : SlopeForm(kWfy, parent) {}
};
