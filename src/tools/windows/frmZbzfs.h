#pragma once

#include "ui/Form.h"

class QGroupBox;

/// Coordinates forward and inverse, each in a frame of its own.
class frmZbzfs : public Form {
    Q_OBJECT
public:
    frmZbzfs();

protected:
    bool Form_KeyPress(int keyAscii) override { return keyAscii == 13 && enterSendsTab(); }
    bool commandKey(const QKeyCombination& key) override;  ///< F5 calculates the task that has the focus

private:
    struct Field {
        const char* name;
        QString label;
        KeySet keys;  ///< null: a result, locked
        QLineEdit*& box;
    };
    using Handler = void (frmZbzfs::*)();
    QGroupBox* task(const QString& caption, std::initializer_list<Field> fields, const char* calcName, Handler calc,
                    const char* backName);
    void butZsCalc_Click();
    void butFsCalc_Click();

    QLineEdit *txtZsCzX, *txtZsCzY, *txtZsFwj, *txtZsJl, *txtZsJsdX, *txtZsJsdY;
    QLineEdit *txtFsCzx, *txtFsCzy, *txtFsHsX, *txtFsHsY, *txtFsFwj, *txtFsJl;
};
