#include "editors/windows/frmPqxSelect.h"

#include "editors/Wizard.h"
#include "editors/windows/frmJdpqx.h"
#include "editors/windows/frmJmpqx.h"

frmPqxSelect::frmPqxSelect(QWidget* parent)
    : ChoiceForm(
          {"frmPqxSelect", "optPqxSelectJd", "optPqxSelectJm", "cmdPqxSelectOk", "cmdPqxSelectCancel",
           QStringLiteral("平曲线计算模型"), QStringLiteral("交点法"), QStringLiteral("积木法")},
          [this](bool byIntersectionPoints) {
              const Outcome stored = StorePqxModel(byIntersectionPoints);
              if (!stored) return stored;
              if (byIntersectionPoints)
                  frmJdpqx(this).showModal();
              else
                  frmJmpqx(this).showModal();
              return stored;
          },
          parent)
{}
