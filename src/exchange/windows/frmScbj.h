#pragma once

#include "exchange/Compare.h"
#include "ui/Form.h"

class MSFlexGrid;
class XPButton;

/// Measured points beside the design; rows beyond a tolerance are amber.
class frmScbj : public Form {
    Q_OBJECT
public:
    /// @param tables  of the open project
    frmScbj(const Tables& tables, std::vector<MeasuredPoint> measured);

protected:
    void Form_Load() override;

private:
    void compute();
    void saveAs();
    void print(const std::string& path) const;

    const Tables& m_tables;
    std::vector<MeasuredPoint> m_measured, m_setOut;
    std::vector<ComparedPoint> m_points;
    GridText m_rows;
    QLineEdit *txtScbjPm, *txtScbjGc;
    MSFlexGrid* MsfgScbj;
    XPButton *butScbjFy, *butScbjCalc, *butScbjSave, *butScbjBack;
};
