#include "tools/windows/frmQljs.h"

#include "base/Numbers.h"
#include "tools/Qljs.h"
#include "ui/Layout.h"

frmQljs::frmQljs()
    : Form(QStringLiteral("frmQljs"), QStringLiteral("曲率半径计算")), txtA(control<QLineEdit>("txtA")),
      txtR(control<QLineEdit>("txtR")), txtL0(control<QLineEdit>("txtL0")), lbeL(control<QLabel>("lbeL")),
      lbeR(control<QLabel>("lbeR")), Command1(control<QPushButton>("Command1", QStringLiteral("计算")))
{
    for (auto* box : {txtA, txtR, txtL0}) {
        ui::fitDigits(box);
        filterKeys(box, IsSignedDecimalKey);
    }
    for (auto* result : {lbeL, lbeR}) {
        ui::fitDigits(result);
        result->setFrameShape(QFrame::StyledPanel);
        result->setFixedHeight(txtA->sizeHint().height());
        result->setTextInteractionFlags(Qt::TextSelectableByMouse);
    }
    txtA->setToolTip(QStringLiteral("缓和曲线参数，米：A 的平方 = 半径 × 完整缓和曲线长"));
    txtR->setToolTip(QStringLiteral("曲线半径，米，正数"));
    txtL0->setToolTip(QStringLiteral("不完整的缓和曲线长，米：从半径 R 的一端量起"));
    Command1->setAutoDefault(false);
    ui::arrange(*this, {ui::fieldColumn({{QStringLiteral("缓和参数A"), txtA},
                                         {QStringLiteral("曲线半径R"), txtR},
                                         {QStringLiteral("缓和曲线长L0"), txtL0},
                                         {QStringLiteral("完整曲线长"), lbeL},
                                         {QStringLiteral("曲率半径"), lbeR}}),
                        ui::buttonRow({Command1})});
    txtA->setFocus();

    on(Command1, &QPushButton::clicked, [this] { Command1_Click(); });
}

bool frmQljs::Form_KeyPress(int keyAscii)
{
    if (keyAscii != 13) return false;
    if (focusWidget() == Command1) Command1->click();  // on Enter, as the other buttons of the program do
    return enterSendsTab();
}

bool frmQljs::commandKey(const QKeyCombination& key)
{
    if (key != QKeyCombination(Qt::Key_F5)) return false;
    Command1_Click();
    return true;
}

void frmQljs::Command1_Click()
{
    QljsResult result;
    const auto outcome = CalcQljs({toUtf8(txtA->text()), toUtf8(txtR->text()), toUtf8(txtL0->text())}, result);
    if (!outcome) return refuse(*outcome.refusal);
    lbeL->setText(fromUtf8(result.l));
    lbeR->setText(fromUtf8(result.r));
}
