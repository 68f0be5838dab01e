#pragma once
// 横断面图: the surface across the road at a stake, with its values.

#include "views/ViewForm.h"

class MSFlexGrid;
class QCheckBox;
class QLineEdit;
class QSlider;
class SectionArea;

class frmHdm : public ViewForm {
    Q_OBJECT
public:
    explicit frmHdm(std::optional<double> stake = {}, ViewSource source = {});

    double stake() const { return m_at; }

protected:
    void reload() override;
    plot::Order order() const override;
    void showStale() override;
    bool Form_KeyPress(int keyAscii) override;

private:
    void cmdZd_Click();
    void cmdFz_Click();
    void cmdDcd_Click();
    void goTo(double stake);
    void showSection();
    double thickness() const;
    plot::Section section() const;

    SectionArea* m_area;
    QLineEdit *m_stake, *m_thickness;
    QCheckBox *m_pavement, *m_slopesShown;
    QSlider* m_slider;
    MSFlexGrid* m_values;
    double m_at = 0, m_from = 0, m_to = 0;
    std::optional<double> m_first;
};
