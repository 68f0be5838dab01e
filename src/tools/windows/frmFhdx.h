#pragma once

#include "ui/Form.h"

#include <QPointer>
#include <QRadioButton>

class SheetWindow;
class XPButton;

/// Adjustment of a connecting traverse: makes the worksheet, adjusts what is typed into it, draws the plan. The open
/// worksheet is its only store and outlives it.
class frmFhdx : public Form {
    Q_OBJECT
public:
    explicit frmFhdx(QWidget* parent = nullptr);

protected:
    bool commandKey(const QKeyCombination& key) override;  ///< F5 calculates once there is a sheet

private:
    void butFhdxBg_Click();
    void butFhdxCalc_Click();
    void butFhdxZd_Click();
    SheetWindow* openSheet() const;  ///< nullptr once the user has closed it

    QLineEdit* txtDxd;
    QRadioButton *optY, *optZ;
    XPButton *butFhdxBg, *butFhdxCalc, *butFhdxZd, *butFhdxBack;
    QPointer<SheetWindow> m_sheet;
};
