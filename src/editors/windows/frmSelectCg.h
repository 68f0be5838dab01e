#pragma once
// How superelevation changes along a transition; the editor of the superelevation opens at once.

#include "editors/windows/ChoiceForm.h"

class frmSelectCg : public ChoiceForm {
public:
    explicit frmSelectCg(QWidget* parent = nullptr);
};
