#pragma once
// The widths of carriageway and shoulders, one row a stretch.

#include "editors/windows/EditorForm.h"

class frmCgkd : public EditorForm {
public:
    explicit frmCgkd(QWidget* parent = nullptr) : EditorForm(CgkdTable(), parent) {}
};
