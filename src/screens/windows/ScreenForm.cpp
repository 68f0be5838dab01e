#include "screens/windows/ScreenForm.h"

#include "base/Numbers.h"
#include "exchange/windows/Exchange.h"
#include "project/OpenRoad.h"
#include "screens/Rows.h"
#include "tables/CalcTables.h"
#include "ui/GridSink.h"
#include "ui/Layout.h"

#include <QHBoxLayout>

#include <algorithm>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

/// Hands rows on; each has the doubt about the road among its warnings.
class DoubtedRows : public RowSink {
public:
    DoubtedRows(RowSink& rows, std::string doubt) : m_rows(rows), m_doubt(std::move(doubt)) {}

    void clear() override { m_rows.clear(); }
    void row(ResultRow row) override
    {
        row.warning = warning::Join(m_doubt, row.warning);
        m_rows.row(std::move(row));
    }
    void changed() override { m_rows.changed(); }
    bool abandoned() override { return m_rows.abandoned(); }

private:
    RowSink& m_rows;
    std::string m_doubt;
};

/// What a row of these columns hangs on: the profile where it has an elevation, else the alignment.
std::string doubtOf(std::span<const GridColumn> columns, bool pickedStation)
{
    const RoadDoubts doubts = lookAtRoad();
    const bool elevations =
        std::any_of(columns.begin(), columns.end(), [](const auto& c) { return c.header == "高 程"; });
    return warning::Join(elevations ? doubts.profile : doubts.alignment, pickedStation ? doubts.traverse : "");
}

}  // namespace

ScreenForm::ScreenForm(const ScreenParts& parts) : Form(QString::fromUtf8(parts.form), parts.caption), m_parts(parts) {}

void ScreenForm::run(const std::function<Outcome(RowSink&)>& handler)
{
    Outcome outcome;
    {
        const bool picked = station.pick && !station.typed->isChecked() && station.pick->ListIndex() >= 0;
        GridSink shown(*grid, *results);
        DoubtedRows rows(shown, doubtOf(m_parts.columns, picked));
        outcome = handler(rows);
    }
    if (outcome.refusal) refuse(*outcome.refusal);
}

void ScreenForm::deleteRow() { results->deleteCursorRow(); }

void ScreenForm::save()
{
    SaveResult(m_parts.layout, exportData(), savedState(), [this](bool shown) {
        if (shown) ui::placeWaitBox(wait, grid);
        wait->setVisible(shown);
        dialogs().turn();
    });
}

bool ScreenForm::askToSave() { return AskToSave(); }

void ScreenForm::Form_Load()
{
    grid->setCols(static_cast<int>(m_parts.columns.size()));
    grid->setRows(1);
    for (int col = 0; col < grid->Cols(); ++col) {
        const auto& column = m_parts.columns[static_cast<std::size_t>(col)];
        grid->setTextMatrix(0, col, QString::fromUtf8(column.header));
        grid->setColWidth(col, column.twips);
        grid->setColAlignment(col, Qt::AlignCenter);
    }
    results->state = {};
    road->refresh();
}

void ScreenForm::Form_Unload()
{
    if (results->state.changed && askToSave()) save();
}

QLineEdit* ScreenForm::box(const char* name, KeySet keys)
{
    auto* made = control<QLineEdit>(name);
    filterKeys(made, keys);
    ui::fitDigits(made);
    setLocked(made, false);
    return made;
}

QLineEdit* ScreenForm::lockedBox(const char* name, KeySet keys)
{
    auto* made = box(name, keys);
    setLocked(made, true);
    return made;
}

XPButton* ScreenForm::button(const char* name, const QString& caption) { return control<XPButton>(name, caption); }
QCheckBox* ScreenForm::check(const char* name, const QString& caption) { return control<QCheckBox>(name, caption); }

void ScreenForm::open(QLineEdit* box, bool opened)
{
    setLocked(box, !opened);
    if (opened)
        box->setFocus();
    else
        box->clear();
}

void ScreenForm::opensBox(QCheckBox* check, QLineEdit* box)
{
    on(check, &QCheckBox::toggled, [box](bool ticked) { open(box, ticked); });
}

PickList* ScreenForm::sidePicker(const char* name)
{
    auto* side = control<PickList>(name);
    for (const auto* item : {"中桩", "左边桩", "右边桩"}) side->AddItem(QString::fromUtf8(item));
    side->setText(u"中桩"_s);
    ui::fitDigits(side, 8);
    return side;
}

void ScreenForm::sidePicked(const PickList* side, QLineEdit* offset)
{
    open(offset, side->Text() == u"左边桩"_s || side->Text() == u"右边桩"_s);
}

QWidget* ScreenForm::stationFrame(const StationNames& names)
{
    station.pick = control<PickList>(names.pick);
    // Kept on purpose: a project with a single traverse point shows an empty list.
    if (gDxdCount >= 1)
        for (const auto& name : gDxdName) station.pick->AddItem(fromUtf8(name));
    ui::fitDigits(station.pick, 16);
    station.typed = check(names.typed, u"输入坐标"_s);
    station.x = lockedBox(names.x, IsUnsignedDecimalKey);
    station.y = lockedBox(names.y, IsUnsignedDecimalKey);
    on(station.typed, &QCheckBox::toggled, [this](bool ticked) {
        open(station.y, ticked);
        open(station.x, ticked);
    });
    on(station.pick, &PickList::Click, [this] {
        const auto i = static_cast<std::size_t>(station.pick->ListIndex());
        station.x->setText(fromUtf8(NumText(gDxdX[i])));
        station.y->setText(fromUtf8(NumText(gDxdY[i])));
    });
    auto* line = new QHBoxLayout;
    line->addLayout(ui::fieldLine({{u"测站点"_s, station.pick}}));
    line->addWidget(station.typed);
    line->addLayout(ui::fieldLine({{u"X"_s, station.x}, {u"Y"_s, station.y}}));
    line->addStretch(1);
    line->setSpacing(16);
    return ui::frame(u"测站"_s, line);
}

StationInput ScreenForm::readStation() const
{
    return {station.typed->isChecked(), toUtf8(station.pick->Text()), station.pick->ListIndex(), textOf(station.x),
            textOf(station.y)};
}

void ScreenForm::layOut(std::vector<ui::Piece> fields, std::vector<QWidget*> buttons)
{
    if (m_parts.del) {
        del = button(m_parts.del, u"删除一行"_s);
        on(del, &XPButton::Click, [this] { deleteRow(); });
        buttons.push_back(del);
    }
    saving = button(m_parts.save, m_parts.saveCaption);
    on(saving, &XPButton::Click, [this] { save(); });
    back = button(m_parts.back, m_parts.backCaption);
    on(back, &XPButton::Click, [this] { unload(); });
    buttons.insert(buttons.end(), {saving, back});

    grid = control<MSFlexGrid>(m_parts.grid);
    results.emplace(*grid);
    grid->setHint(m_parts.hint);
    grid->setVerticalScrollMode(QAbstractItemView::ScrollPerItem);
    grid->setLastColumnFills(true);
    addSaveAs(*grid);
    wait = control<QLineEdit>(m_parts.wait);
    ui::placeWaitBox(wait, grid);
    road = control<RoadLine>("lblRoad");
    fields.insert(fields.begin(), road);
    fields.insert(fields.end(), {grid, ui::buttonRow(buttons)});
    ui::arrange(*this, fields);

    // Frames take their boxes behind the grid in the ring of the tab key: the first box starts with the focus.
    for (auto* next = grid->nextInFocusChain(); next != grid; next = next->nextInFocusChain())
        if (qobject_cast<QLineEdit*>(next) && next->focusPolicy() & Qt::TabFocus) return next->setFocus();
}
