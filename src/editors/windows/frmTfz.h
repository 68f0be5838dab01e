#pragma once
// Fill slopes on the left.

#include "editors/windows/SlopeForm.h"

class frmTfz : public SlopeForm {
public:
    explicit frmTfz(QWidget* parent = nullptr) : SlopeForm(kTfz, parent) {}
};
