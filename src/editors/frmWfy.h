#pragma once
// Cut slopes on the right.

#include "editors/SlopeForm.h"

class frmWfy : public SlopeForm {
public:
    explicit frmWfy(QWidget* parent = nullptr) : SlopeForm(kWfy, parent) {}
};
