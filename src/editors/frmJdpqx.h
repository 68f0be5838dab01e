#pragma once
// The horizontal alignment by intersection points, with a view of the compiled main points.

#include "editors/EditorForm.h"

#include <functional>

class frmJdpqx : public EditorForm {
    Q_OBJECT
public:
    explicit frmJdpqx(QWidget* parent = nullptr);

    static inline std::function<void(QWidget* over)> showMainPoints;  ///< opens frmZdcs

private:
    void butJdView_Click();
};
