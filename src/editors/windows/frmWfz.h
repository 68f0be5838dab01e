#pragma once
// Cut slopes on the left.

#include "editors/windows/SlopeForm.h"

class frmWfz : public SlopeForm {
public:
    explicit frmWfz(QWidget* parent = nullptr) : SlopeForm(kWfz, parent) {}
};
