#pragma once
// The parameter wizard: which group of parameters to edit.

#include "ui/Form.h"

#include <cstdint>

class QButtonGroup;
class RoadLine;

class frmSelect : public Form {
    Q_OBJECT
public:
    explicit frmSelect(QWidget* parent = nullptr);

    /// Esc goes the way of 返 回: what was edited is loaded.
    void reject() override
    {
        runHandler([this] { cmdSelectBack_Click(); });
    }

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void cmdSelectNext_Click();
    void cmdSelectBack_Click();

    RoadLine* m_road = nullptr;
    QButtonGroup* m_options = nullptr;
    std::int16_t m_option = 0;  ///< index of the last clicked option
};
