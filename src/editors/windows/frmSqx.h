#pragma once
// The vertical alignment: start, grade-change points, end.

#include "editors/windows/EditorForm.h"

class frmSqx : public EditorForm {
public:
    explicit frmSqx(QWidget* parent = nullptr) : EditorForm(SqxTable(), parent) {}
};
