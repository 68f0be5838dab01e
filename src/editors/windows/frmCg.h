#pragma once
// The superelevation, one row a stretch over which it changes.

#include "editors/windows/EditorForm.h"

class frmCg : public EditorForm {
public:
    explicit frmCg(QWidget* parent = nullptr) : EditorForm(CgTable(), parent) {}
};
