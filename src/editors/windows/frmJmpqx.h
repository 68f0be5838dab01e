#pragma once
// The horizontal alignment as a chain of blocks; each new block starts where the one above ends.

#include "editors/windows/EditorForm.h"

class frmJmpqx : public EditorForm {
public:
    explicit frmJmpqx(QWidget* parent = nullptr) : EditorForm(JmpqxTable(), parent) {}
};
