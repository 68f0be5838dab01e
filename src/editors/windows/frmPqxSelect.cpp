#include "editors/windows/frmPqxSelect.h"

#include "base/ParameterFiles.h"
#include "editors/Wizard.h"
#include "editors/windows/frmJdpqx.h"
#include "editors/windows/frmJmpqx.h"

frmPqxSelect::frmPqxSelect(QWidget* parent)
    : ChoiceForm(
          {"frmPqxSelect", "optPqxSelectJd", "optPqxSelectJm", "cmdPqxSelectOk", "cmdPqxSelectCancel",
           QStringLiteral("平曲线计算模型"), fromUtf8(std::string(model::byIntersectionPoints)),
           fromUtf8(std::string(model::byBlocks)), QStringLiteral("确定以后不能再改，要改只能新建项目。")},
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
