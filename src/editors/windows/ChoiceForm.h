#pragma once
// A choice made once per project: two options, 确 定 and 取 消.

#include "ui/Form.h"

#include <functional>

class QRadioButton;

struct ChoiceText {
    const char* form;
    const char* first;  ///< name of the option that is set at first
    const char* second;
    const char* ok;
    const char* cancel;
    QString caption, firstCaption, secondCaption;
    QString note = {};  ///< grey text under the options
};

class ChoiceForm : public Form {
    Q_OBJECT
public:
    /// @param accept what 确 定 does with "the first option is set", before the form unloads; a refusal keeps it open
    ChoiceForm(const ChoiceText& text, std::function<Outcome(bool first)> accept, QWidget* parent);

protected:
    bool Form_KeyPress(int keyAscii) override;  ///< Enter on an option takes it

private:
    void take();

    std::function<Outcome(bool first)> m_accept;
    QRadioButton* m_first;
};
