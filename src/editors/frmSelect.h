#pragma once
// The parameter wizard: which group of parameters to edit.

#include "platform/Form.h"

#include <cstdint>

class frmSelect : public Form {
    Q_OBJECT
public:
    explicit frmSelect(QWidget* parent = nullptr);

private:
    void cmdSelectNext_Click();
    void cmdSelectBack_Click();

    std::int16_t m_option = 0;  ///< index of the last clicked option
};
