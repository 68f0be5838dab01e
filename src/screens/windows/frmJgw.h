#pragma once

#include "screens/Jgw.h"
#include "screens/windows/ScreenForm.h"

#include <QRadioButton>

class frmJgwDrawing;

/// 结构物角点放样: four corners a structure.
class frmJgw : public ScreenForm {
    Q_OBJECT
public:
    frmJgw();

    JgwInput read() const;
    /// Also the run that frmPl has prepared.
    void butJgwCalc_Click();

protected:
    void Form_Load() override;
    void Form_Resize() override;
    bool Form_KeyPress(int keyAscii) override { return keyAscii == 13 && enterSendsTab(); }
    ExportData exportData() override;

private:
    void draw();

    JgwStructures m_structures;
    QLineEdit *txtJgwFylc, *txtJgwKq, *txtJgwKh, *txtJgwZz, *txtJgwZy, *txtJgwJj;
    QRadioButton *optJgwZz, *optJgwXz;
    QCheckBox* cheJgwJj;
    frmJgwDrawing* m_drawing;
};
