#pragma once
// The horizontal alignment by intersection points, with a view of the compiled main points.

#include "editors/windows/EditorForm.h"

class frmJdpqx : public EditorForm {
    Q_OBJECT
public:
    explicit frmJdpqx(QWidget* parent = nullptr);

private:
    void butJdView_Click();
};
