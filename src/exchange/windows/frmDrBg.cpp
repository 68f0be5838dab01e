#include "exchange/windows/frmDrBg.h"

#include "controls/XPButton.h"
#include "ui/Layout.h"

#include <QPlainTextEdit>

using namespace Qt::StringLiterals;

frmDrBg::frmDrBg(const QString& caption, const QStringList& lines)
    : Form(u"frmDrBg"_s, caption), txtDrBg(control<QPlainTextEdit>("txtDrBg")),
      butDrBgBack(control<XPButton>("butDrBgBack", u"返 回"_s))
{
    txtDrBg->setReadOnly(true);
    txtDrBg->setTabChangesFocus(true);
    txtDrBg->setPlainText(lines.join(u'\n'));
    txtDrBg->setMinimumSize(640, 360);
    ui::arrange(*this, {txtDrBg, ui::buttonRow({butDrBgBack})});
    on(butDrBgBack, &XPButton::Click, [this] { unload(); });
}
