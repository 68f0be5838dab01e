#pragma once
// How the horizontal alignment of the project is described; the editor of that model opens at once.

#include "editors/windows/ChoiceForm.h"

class frmPqxSelect : public ChoiceForm {
public:
    explicit frmPqxSelect(QWidget* parent = nullptr);
};
