#pragma once
// Fill slopes on the right.

#include "editors/windows/SlopeForm.h"

class frmTfy : public SlopeForm {
public:
    explicit frmTfy(QWidget* parent = nullptr) : SlopeForm(kTfy, parent) {}
};
