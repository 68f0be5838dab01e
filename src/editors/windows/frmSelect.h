#pragma once
// The parameter wizard: which group of parameters to edit.

#include "editors/TextPlace.h"
#include "ui/Form.h"

#include <cstdint>
#include <vector>

class QButtonGroup;
class QuietLine;
class RoadLine;

class frmSelect : public Form {
    Q_OBJECT
public:
    explicit frmSelect(QWidget* parent = nullptr);

    /// Once the wizard is shown it chooses that option and goes on to its window, at the place where that shows it.
    void openAt(int option, const TextPlace& place);

    /// Esc goes the way of 返 回: what was edited is loaded.
    void reject() override
    {
        runHandler([this] { cmdSelectBack_Click(); });
    }

protected:
    void Form_Load() override;
    bool eventFilter(QObject* watched, QEvent* event) override;
    bool Form_KeyPress(int keyAscii) override;  ///< Enter on an option goes on

private:
    void cmdSelectNext_Click() { goOn(nullptr); }
    void cmdSelectBack_Click();
    void goOn(const TextPlace* place);

    void showStates();

    RoadLine* m_road = nullptr;
    std::vector<QuietLine*> m_states;  ///< beside each option, what its file holds
    QButtonGroup* m_options = nullptr;
    std::int16_t m_option = 0;  ///< index of the last clicked option
};
