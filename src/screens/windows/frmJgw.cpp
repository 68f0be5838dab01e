#include "screens/windows/frmJgw.h"

#include "base/Numbers.h"
#include "controls/FormScaling.h"
#include "screens/windows/Hints.h"
#include "screens/windows/frmJgwDrawing.h"
#include "screens/windows/frmPl.h"

#include <QGridLayout>

using namespace Qt::StringLiterals;

frmJgw::frmJgw()
    : ScreenForm({.form = "frmJgw",
                  .caption = u"结构物角点放样"_s,
                  .grid = "MsfgJgw",
                  .del = "butJgwDel",
                  .save = "butJgwSave",
                  .back = "butJgwBack",
                  .wait = "txtJgwWait",
                  .columns = kCornerColumns,
                  .layout = kJgwExport,
                  .hint = u"输入结构物中心里程和尺寸，按“计 算”；“从文件读取”的每行为 里程,K前,K后,Z左,Z右"_s})
{
    txtJgwFylc = stakeBox("txtJgwFylc", Of::Alignment, Shows::Range);
    optJgwZz = control<QRadioButton>("optJgwZz", u"斜交正做"_s);
    optJgwXz = control<QRadioButton>("optJgwXz", u"斜交斜做"_s);
    optJgwXz->setChecked(true);
    txtJgwKq = box("txtJgwKq", IsSignedDecimalKey, hint::kq);
    txtJgwKh = box("txtJgwKh", IsSignedDecimalKey, hint::kh);
    txtJgwZz = box("txtJgwZz", IsSignedDecimalKey, hint::zz);
    txtJgwZy = box("txtJgwZy", IsSignedDecimalKey, hint::zy);
    cheJgwJj = check("cheJgwJj", u"夹角"_s);
    txtJgwJj = lockedBox("txtJgwJj", IsSignedDecimalKey, hint::structureSkew);
    m_drawing = control<frmJgwDrawing>("drawJgw");
    auto* size = ui::fieldTable({{{u"结构物中心里程"_s, txtJgwFylc}, {cheJgwJj, txtJgwJj}},
                                 {{u"K前"_s, txtJgwKq}, {u"K后"_s, txtJgwKh}},
                                 {{u"Z左"_s, txtJgwZz}, {u"Z右"_s, txtJgwZy}}});
    auto* mode = ui::across({optJgwZz, optJgwXz});
    auto* structure = ui::frame(u"结构物"_s, ui::across({ui::down({mode, size}), m_drawing}));
    auto* czFrame = stationFrame({"comJgwCz", "cheJgw", "txtJgwCzX", "txtJgwCzY"});
    auto* butJgwCalc = button("butJgwCalc", u"计 算"_s);
    auto* pljs = button("pljs", u"批量计算"_s);
    auto* butTxt = button("butTxt", u"从文件读取"_s);
    layOut({structure, czFrame}, {butJgwCalc, pljs, butTxt}, butTxt);

    opensBox(cheJgwJj, txtJgwJj);
    on(butJgwCalc, &XPButton::Click, [this] { butJgwCalc_Click(); });
    on(pljs, &XPButton::Click, [this] { frmPl(*this).showModal(this); });
    on(butTxt, &XPButton::Click,
       [this] { run([this](RowSink& rows) { return CalcJgwFile(read(), m_structures, rows); }); });

    for (auto* typed : {txtJgwKq, txtJgwKh, txtJgwZz, txtJgwZy, txtJgwJj})
        connect(typed, &QLineEdit::textChanged, this, &frmJgw::draw);
    connect(optJgwXz, &QRadioButton::toggled, this, &frmJgw::draw);
    connect(cheJgwJj, &QCheckBox::toggled, this, &frmJgw::draw);
    draw();
}

void frmJgw::Form_Load()
{
    ScreenForm::Form_Load();
    m_structures = {};
    ResizeInit(*this);
}

void frmJgw::Form_Resize() { ResizeForm(*this); }

JgwInput frmJgw::read() const
{
    return {textOf(txtJgwFylc), optJgwXz->isChecked(), textOf(txtJgwKq), textOf(txtJgwKh), textOf(txtJgwZz),
            textOf(txtJgwZy),   cheJgwJj->isChecked(), textOf(txtJgwJj), readStation()};
}

void frmJgw::butJgwCalc_Click()
{
    run([this](RowSink& rows) { return CalcJgw(read(), m_structures, rows); });
}

ExportData frmJgw::exportData()
{
    ExportData saved = ScreenForm::exportData();
    saved.own = [this](int row) { return JgwParameters(m_structures, optJgwXz->isChecked(), row); };
    return saved;
}

void frmJgw::draw() { m_drawing->follow(read()); }
