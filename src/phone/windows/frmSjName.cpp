#include "phone/windows/frmSjName.h"

#include "base/Numbers.h"
#include "controls/XPButton.h"
#include "phone/Phone.h"
#include "ui/Layout.h"

#include <QApplication>
#include <QLabel>

frmSjName::frmSjName()
    : Form(QStringLiteral("frmSjName"), QStringLiteral("手机版项目名称")), txtsjName(control<QLineEdit>("txtsjName")),
      sjXmOK(control<XPButton>("sjXmOK", QStringLiteral("确 定"))),
      sjxmCancel(control<XPButton>("sjxmCancel", QStringLiteral("取 消")))
{
    auto* Label1 = control<QLabel>(
        "Label1", QStringLiteral("由于很多手机目录不支持中文目录请在英文输入法状态下输入一个英文的项目名称"));
    ui::fitText(Label1, 320);
    ui::arrange(*this, {Label1, txtsjName, ui::buttonRow({sjXmOK, sjxmCancel})});
    txtsjName->setFocus();

    const auto keep = [](int keyAscii) {
        if (IsPhoneNameKey(keyAscii)) return true;
        QApplication::beep();
        return false;
    };
    filterKeys(txtsjName, keep, WhileCtrl::Filtered, QStringLiteral("只能输入英文字母和数字"));
    on(sjXmOK, &XPButton::Click, [this] { sjXmOK_Click(); });
    on(sjxmCancel, &XPButton::Click, [this] { unload(); });
}

void frmSjName::sjXmOK_Click()
{
    const auto done = ExportForPhone(toUtf8(txtsjName->text()));
    if (done == PhoneExport::Declined) {
        txtsjName->clear();
        txtsjName->setFocus();
    }
    if (done == PhoneExport::Added) emit listed(fromUtf8(std::string(Trim(toUtf8(txtsjName->text())))));
    if (done == PhoneExport::Added || done == PhoneExport::Replaced) unload();
}
