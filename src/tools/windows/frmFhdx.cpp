#include "tools/windows/frmFhdx.h"

#include "base/Numbers.h"
#include "base/RunTimeError.h"
#include "controls/XPButton.h"
#include "office/windows/DrawingWindow.h"
#include "office/windows/SheetView.h"
#include "office/windows/SheetWindow.h"
#include "tables/CalcTables.h"
#include "tools/Fhdx.h"
#include "ui/Layout.h"

#include <QGroupBox>

frmFhdx::frmFhdx(QWidget* parent)
    : Form(QStringLiteral("frmFhdx"), QStringLiteral("附和导线一般平差"), parent), txtDxd(control<QLineEdit>("txtDxd")),
      optY(control<QRadioButton>("optY", QStringLiteral("右角"))),
      optZ(control<QRadioButton>("optZ", QStringLiteral("左角"))),
      butFhdxBg(control<XPButton>("butFhdxBg", QStringLiteral("生成表格"))),
      butFhdxCalc(control<XPButton>("butFhdxCalc", QStringLiteral("计 算"))),
      butFhdxZd(control<XPButton>("butFhdxZd", QStringLiteral("展 点"))),
      butFhdxBack(control<XPButton>("butFhdxBack", QStringLiteral("返 回")))
{
    // No dialog to the desktop: with a dialog comes the window that it belongs to, and covers the open sheet.
    setWindowFlags(Qt::Window);
    filterKeys(txtDxd, IsIntegerKey);
    ui::fitDigits(txtDxd, 5);
    txtDxd->setToolTip(QStringLiteral("包括两端已知边的四个点，至少5个"));
    optY->setChecked(true);
    butFhdxCalc->setEnabled(false);
    butFhdxZd->setEnabled(false);
    butFhdxBg->setToolTip(QStringLiteral("打开一张空表，在浅绿色的单元格里填写"));
    butFhdxCalc->setToolTip(QStringLiteral("按表中的数据平差，结果写回表中"));
    butFhdxZd->setToolTip(QStringLiteral("按表中的坐标绘出导线"));
    ui::arrange(*this,
                {ui::frame(QStringLiteral("导线"), ui::down({ui::fieldColumn({{QStringLiteral("导线点个数"), txtDxd}}),
                                                             ui::across({optY, optZ})})),
                 ui::buttonColumn({butFhdxBg, butFhdxCalc, butFhdxZd, butFhdxBack})});
    setMinimumWidth(256);  // so that the caption is read
    txtDxd->setFocus();

    on(butFhdxBg, &XPButton::Click, [this] { butFhdxBg_Click(); });
    on(butFhdxCalc, &XPButton::Click, [this] { butFhdxCalc_Click(); });
    on(butFhdxZd, &XPButton::Click, [this] { butFhdxZd_Click(); });
    on(butFhdxBack, &XPButton::Click, [this] { unload(); });
}

bool frmFhdx::commandKey(const QKeyCombination& key)
{
    if (key != QKeyCombination(Qt::Key_F5) || !butFhdxCalc->isEnabled()) return false;
    butFhdxCalc_Click();
    return true;
}

SheetWindow* frmFhdx::openSheet() const { return m_sheet && m_sheet->isVisible() ? m_sheet.data() : nullptr; }

void frmFhdx::butFhdxBg_Click()
{
    std::optional<Worksheet> sheet;
    Outcome outcome;
    const bool done = attempt([&] {
        outcome =
            MakeFhdxSheet(toUtf8(txtDxd->text()), optZ->isChecked(), [&]() -> Worksheet& { return sheet.emplace(); });
    });
    if (sheet) {  // as far as it got
        m_sheet = new SheetWindow(std::move(*sheet), QStringLiteral("附合导线计算表"));
        // Two points at least go with the conclusion.
        m_sheet->setPrint({.landscape = true, .fitToWidth = true, .headRows = 3, .lastBlock = 2 * gFhdxN});
        m_sheet->placeBeside(*this);
        m_sheet->view().setQuantities([points = int(gFhdxN)](CellRef cell) { return FhdxQuantity(cell, points); });
        m_sheet->view().setCurrent("a4");  // the first name to type
        m_sheet->show();
        m_sheet->activateWindow();
    }
    if (!outcome) return refuse(*outcome.refusal);
    if (!done) return;
    butFhdxCalc->setEnabled(true);
    butFhdxBg->setEnabled(false);
}

void frmFhdx::butFhdxCalc_Click()
{
    auto* window = openSheet();
    const bool done =
        window && attempt([&] { window->change([&](Worksheet& sheet) { AdjustFhdx(sheet, optZ->isChecked()); }); });
    if (done)
        butFhdxZd->setEnabled(true);
    else
        dialogs().box(FhdxCalcFault());
    if (auto* sheet = openSheet()) sheet->raise();  // the main window came up with this one
}

void frmFhdx::butFhdxZd_Click()
{
    auto* window = openSheet();
    if (window) window->view().commit();
    Drawing drawing;
    if (!window || !attempt([&] { drawing = DrawFhdx(window->sheet()); })) {
        dialogs().box(FhdxDrawFault());
        return;
    }
    auto* plan = new DrawingWindow(std::move(drawing), QStringLiteral("附合导线图"));
    plan->show();
    plan->activateWindow();
}
