#include "exchange/windows/frmDr.h"

#include "base/Numbers.h"
#include "controls/XPButton.h"
#include "exchange/TakeOver.h"
#include "exchange/windows/Saying.h"
#include "ui/Layout.h"

using namespace Qt::StringLiterals;

frmDr::frmDr(landxml::File file)
    : Form(u"frmDr"_s, u"导入线路"_s), m_file(std::move(file)), m_roads(m_file.alignments()),
      comDrXl(control<PickList>("comDrXl")), txtDrMc(control<QLineEdit>("txtDrMc")),
      txtDrPy(control<QLineEdit>("txtDrPy")), txtDrDl(control<QLineEdit>("txtDrDl")),
      cmdDrOK(control<XPButton>("cmdDrOK", u"导 入"_s)), cmdDrCancel(control<XPButton>("cmdDrCancel", u"取 消"_s))
{
    for (const auto& road : m_roads) comDrXl->AddItem(fromUtf8(road.name));
    if (!m_roads.empty()) {
        comDrXl->setText(fromUtf8(m_roads.front().name));
        txtDrMc->setText(fromUtf8(m_roads.front().name));
    }
    txtDrMc->setMinimumWidth(264);
    txtDrPy->setPlaceholderText(u"起点桩号小于 0 时加的整米数"_s);
    txtDrDl->setPlaceholderText(u"文件没有写的断链，例如 850,5350"_s);
    ui::arrange(*this,
                {ui::fieldColumn(
                     {{u"线路"_s, comDrXl}, {u"项目名称"_s, txtDrMc}, {u"桩号加"_s, txtDrPy}, {u"断链"_s, txtDrDl}}),
                 ui::buttonRow({cmdDrOK, cmdDrCancel})});
    txtDrMc->setFocus();

    on(comDrXl, &PickList::Click, [this] { txtDrMc->setText(comDrXl->Text()); });
    on(cmdDrOK, &XPButton::Click, [this] { cmdDrOK_Click(); });
    on(cmdDrCancel, &XPButton::Click, [this] { unload(); });
}

void frmDr::cmdDrOK_Click()
{
    saying([this] {
        const auto trimmed = [](const QLineEdit* box) { return std::string(Trim(toUtf8(box->text()))); };
        const ImportWishes wishes{.shift = ShiftOfText(trimmed(txtDrPy)), .breaks = BreaksOfText(trimmed(txtDrDl))};
        const auto road = ImportRoad(m_file, FindAlignment(m_file, toUtf8(comDrXl->Text())), wishes);
        const std::string name = trimmed(txtDrMc);
        if (const auto made = MakeProject(name, road); !made) {
            dialogs().box(made.refusal->msg);
            txtDrMc->setFocus();
            return;
        }
        QStringList report;
        for (const auto& line : road.report) report << fromUtf8(line);
        emit created(fromUtf8(name), report);
        unload();
    });
}
