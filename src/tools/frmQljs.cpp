#include "tools/frmQljs.h"

#include "engine/Numbers.h"
#include "platform/HouseLook.h"
#include "tools/Qljs.h"

#include <QBoxLayout>
#include <QFormLayout>

frmQljs::frmQljs(QWidget* parent)
    : Form(QStringLiteral("frmQljs"), QStringLiteral("曲率半径计算"), parent), txtA(control<QLineEdit>("txtA")),
      txtR(control<QLineEdit>("txtR")), txtL0(control<QLineEdit>("txtL0")), lbeL(control<QLabel>("lbeL")),
      lbeR(control<QLabel>("lbeR")), Command1(control<QPushButton>("Command1", QStringLiteral("计算")))
{
    auto* form = new QFormLayout;
    form->setLabelAlignment(Qt::AlignRight | Qt::AlignVCenter);
    form->setSpacing(house::kGrid);
    form->addRow(QStringLiteral("缓和参数A"), txtA);
    form->addRow(QStringLiteral("曲线半径R"), txtR);
    form->addRow(QStringLiteral("缓和曲线长L0"), txtL0);
    form->addRow(QStringLiteral("完整曲线长"), lbeL);
    form->addRow(QStringLiteral("曲率半径"), lbeR);
    for (auto* box : {txtA, txtR, txtL0}) {
        box->setMinimumWidth(144);
        filterKeys(box, IsSignedDecimalKey);
    }
    for (auto* result : {lbeL, lbeR}) {
        result->setFrameShape(QFrame::StyledPanel);
        result->setMinimumHeight(txtA->sizeHint().height());
        result->setTextInteractionFlags(Qt::TextSelectableByMouse);
    }
    Command1->setAutoDefault(false);
    Command1->setMinimumSize(88, 32);

    auto* all = new QVBoxLayout(this);
    all->setContentsMargins(house::kMargin, house::kMargin, house::kMargin, house::kMargin);
    all->setSpacing(2 * house::kGrid);
    all->addLayout(form);
    all->addStretch(1);
    all->addWidget(Command1, 0, Qt::AlignRight);
    txtA->setFocus();

    on(Command1, &QPushButton::clicked, [this] { Command1_Click(); });
}

void frmQljs::Command1_Click()
{
    QljsResult result;
    const auto outcome = CalcQljs({toUtf8(txtA->text()), toUtf8(txtR->text()), toUtf8(txtL0->text())}, result);
    if (!outcome) return refuse(*outcome.refusal);
    lbeL->setText(fromUtf8(result.l));
    lbeR->setText(fromUtf8(result.r));
}
