#pragma once
// The traverse points.

#include "editors/windows/EditorForm.h"

class frmDxd : public EditorForm {
public:
    explicit frmDxd(QWidget* parent = nullptr) : EditorForm(DxdTable(), parent) {}
};
