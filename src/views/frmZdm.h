#pragma once
// 纵断面图: the grade line with its bands, the elevations under the cursor.

#include "views/ViewForm.h"

class ProfileArea;
class QLineEdit;

class frmZdm : public ViewForm {
    Q_OBJECT
public:
    explicit frmZdm(std::optional<double> stake = {}, ViewSource source = {});

    ProfileArea& area() const { return *m_area; }

protected:
    void reload() override;
    plot::Order order() const override;
    void showStale() override;
    bool Form_KeyPress(int keyAscii) override;

private:
    void cmdZd_Click();
    void say(std::optional<double> stake);

    ProfileArea* m_area;
    QLineEdit* m_stake;
    QComboBox* m_exaggeration;
    QLabel* m_pinned;
    std::optional<double> m_at;
};
