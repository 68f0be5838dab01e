#pragma once
// The parameter wizard: which group of parameters to edit.

#include "ui/Form.h"

#include <cstdint>

class QButtonGroup;

class frmSelect : public Form {
    Q_OBJECT
public:
    explicit frmSelect(QWidget* parent = nullptr);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void cmdSelectNext_Click();
    void cmdSelectBack_Click();

    QButtonGroup* m_options = nullptr;
    std::int16_t m_option = 0;  ///< index of the last clicked option
};
