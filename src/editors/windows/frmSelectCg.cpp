#include "editors/windows/frmSelectCg.h"

#include "editors/Wizard.h"
#include "editors/windows/frmCg.h"

frmSelectCg::frmSelectCg(QWidget* parent)
    : ChoiceForm(
          {"frmSelectCg", "optCgSelectXx", "optCgSelectPwx", "cmdCgSelectOk", "cmdCgSelectCancel",
           QStringLiteral("选择超高类型"), QStringLiteral("线性超高"), QStringLiteral("三次抛物线")},
          [this](bool linear) {
              const Outcome stored = StoreCgType(linear);
              if (stored) frmCg(this).showModal();
              return stored;
          },
          parent)
{}
