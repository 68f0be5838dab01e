#pragma once
// How many slope grades the project uses.

#include "editors/TextPlace.h"
#include "ui/Form.h"

#include <optional>

class frmBpjs : public Form {
    Q_OBJECT
public:
    explicit frmBpjs(QWidget* parent = nullptr);

    void openAt(const TextPlace& place);  ///< the box of that line of 其他参数.txt gets the focus

protected:
    void Form_Load() override;
    bool Form_KeyPress(int keyAscii) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void cmdBpjsOk_Click();
    void leave(QLineEdit* box, const std::optional<Msg>& tooMany);

    QLineEdit* txtTfJs;
    QLineEdit* txtWfJs;
    QLineEdit* txtXzcs;
};
