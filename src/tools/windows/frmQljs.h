#pragma once

#include "ui/Form.h"

#include <QLabel>
#include <QPushButton>

/// Radius of curvature on a transition curve.
class frmQljs : public Form {
    Q_OBJECT
public:
    frmQljs();

protected:
    bool Form_KeyPress(int keyAscii) override;
    bool commandKey(const QKeyCombination& key) override;  ///< F5 calculates

private:
    void Command1_Click();

    QLineEdit *txtA, *txtR, *txtL0;
    QLabel *lbeL, *lbeR;
    QPushButton* Command1;  ///< the one plain button of the program
};
