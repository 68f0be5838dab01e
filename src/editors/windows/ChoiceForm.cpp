#include "editors/windows/ChoiceForm.h"

#include "controls/XPButton.h"
#include "ui/Layout.h"
#include "ui/QuietLine.h"

#include <QRadioButton>

ChoiceForm::ChoiceForm(const ChoiceText& text, std::function<Outcome(bool)> accept, QWidget* parent)
    : Form(QString::fromUtf8(text.form), text.caption, parent), m_accept(std::move(accept)),
      m_first(control<QRadioButton>(text.first, text.firstCaption))
{
    auto* second = control<QRadioButton>(text.second, text.secondCaption);
    m_first->setChecked(true);
    auto* ok = control<XPButton>(text.ok, QStringLiteral("确 定"));
    auto* cancel = control<XPButton>(text.cancel, QStringLiteral("取 消"));
    on(ok, &XPButton::Click, [this] { take(); });
    on(cancel, &XPButton::Click, [this] { unload(); });

    std::vector<ui::Piece> pieces{ui::across({m_first, second})};
    if (!text.note.isEmpty()) {
        auto* note = control<QuietLine>("lblNote");
        note->say(text.note);
        note->setLines(2);
        pieces.emplace_back(note);
    }
    pieces.emplace_back(ui::buttonRow({ok, cancel}));
    ui::arrange(*this, pieces);
    setMinimumWidth(320);
}

bool ChoiceForm::Form_KeyPress(int keyAscii)
{
    if (keyAscii != 13 || !qobject_cast<QRadioButton*>(focusWidget())) return false;
    take();
    return true;
}

void ChoiceForm::take()
{
    if (const Outcome done = m_accept(m_first->isChecked()); !done) return refuse(*done.refusal);
    unload();
}
