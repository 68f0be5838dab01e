#pragma once
// The chainage breaks.

#include "editors/windows/EditorForm.h"

class frmDl : public EditorForm {
public:
    explicit frmDl(QWidget* parent = nullptr) : EditorForm(DlTable(), parent) {}
};
