#include "screens/windows/ScreenForm.h"

#include "base/Numbers.h"
#include "exchange/windows/Exchange.h"
#include "project/OpenRoad.h"
#include "project/Workspace.h"
#include "screens/Doubts.h"
#include "screens/windows/Hints.h"
#include "tables/CalcTables.h"
#include "ui/FileDrop.h"
#include "ui/GridSink.h"
#include "ui/Layout.h"

#include <QHBoxLayout>
#include <QScopedValueRollback>

#include <utility>

using namespace Qt::StringLiterals;

ScreenForm::ScreenForm(const ScreenParts& parts) : Form(QString::fromUtf8(parts.form), parts.caption), m_parts(parts) {}

void ScreenForm::run(const std::function<Outcome(RowSink&)>& handler)
{
    Outcome outcome;
    bool grew = false;
    m_grew = false;
    const QScopedValueRollback running(m_running, true);
    {
        const bool picked = station.pick && !station.typed->isChecked() && station.pick->ListIndex() >= 0;
        GridSink shown(*grid, *results);
        NotedRows rows(shown, RoadNotes(m_parts.columns, lookAtRoad(), picked), station.pick != nullptr);
        outcome = handler(rows);
        grew = rows.count() > 0;
        if (rows.refused()) {
            const bool byStake = m_parts.columns[1].header == kCoordinateColumns[1].header;
            outcome.told += (outcome.told.empty() ? "" : "；") + std::string("已达 32767 行上限") +
                            (byStake ? "，从 " + *rows.refused() + " 起没有计算" : "");
            outcome.doubtful = true;
        }
    }
    m_grew = grew && !outcome.refusal;
    m_told = std::move(outcome.told);
    m_toldDoubtful = outcome.doubtful;
    tell({});
    if (outcome.refusal) refuse(*outcome.refusal);
}

void ScreenForm::tell(const std::string& ofSave)
{
    told->say(fromUtf8(m_told.empty() || ofSave.empty() ? m_told + ofSave : m_told + "　" + ofSave),
              m_toldDoubtful || !ofSave.empty());
}

bool ScreenForm::commandKey(const QKeyCombination& key)
{
    if (key == QKeyCombination(Qt::Key_F5) && calc) {
        calculate();
        return true;
    }
    if (key == (Qt::CTRL | Qt::Key_S)) {
        emit saving->Click();
        return true;
    }
    return false;
}

/// Whoever calculates a row after the other finds the first field ready for the next one.
void ScreenForm::calculate()
{
    m_grew = false;
    emit calc->Click();
    if (!m_grew || !m_first) return;
    m_first->setFocus(Qt::ShortcutFocusReason);
    m_first->selectAll();
}

void ScreenForm::deleteRow() { results->deleteCursorRow(); }

void ScreenForm::save()
{
    tell(station.pick ? OtherStations(results->text(), results->state.rows) : "");
    SaveResult(m_parts.layout, exportData(), savedState(), [this](bool shown) {
        if (shown) ui::placeWaitBox(wait, grid);
        wait->setVisible(shown);
        dialogs().turn();
    });
}

ResultPaper ScreenForm::paper()
{
    const std::string pick = station.pick ? toUtf8(station.pick->Text()) : "";
    return {.title = windowTitle(),
            .project = fromUtf8(gProject),
            .station = station.pick ? fromUtf8(StationText(pick)).trimmed() : QString(),
            .date = QDate::currentDate()};
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

QLineEdit* ScreenForm::box(const char* name, KeySet keys, const QString& tip)
{
    auto* made = control<QLineEdit>(name);
    made->setToolTip(tip);
    filterKeys(made, keys);
    ui::fitDigits(made);
    setLocked(made, false);
    return made;
}

QLineEdit* ScreenForm::lockedBox(const char* name, KeySet keys, const QString& tip)
{
    auto* made = box(name, keys, tip);
    setLocked(made, true);
    return made;
}

QLineEdit* ScreenForm::stakeBox(const char* name, Of group, Shows shows)
{
    auto* made = box(name, IsSignedDecimalKey, hint::stake);
    const auto range = group == Of::Alignment ? alignmentRange() : profileRange();
    if (!range) return made;
    const QString first = fromUtf8(range->first), last = fromUtf8(range->last), both = first + u'～' + last;
    made->setToolTip(hint::stake + (group == Of::Alignment ? u"\n路线：%1 米。"_s : u"\n竖曲线：%1 米。"_s).arg(both));
    // A range that the box cannot show whole stands in the tool tip alone.
    const QString shown = shows == Shows::First ? first : shows == Shows::Last ? last : both;
    constexpr int kAround = 12;  // pixels of frame and margins
    if (made->fontMetrics().horizontalAdvance(shown) + kAround <=
        made->sizeHint().expandedTo(made->minimumSize()).width())
        made->setPlaceholderText(shown);
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
    station.x = lockedBox(names.x, IsUnsignedDecimalKey, hint::stationX);
    station.y = lockedBox(names.y, IsUnsignedDecimalKey, hint::stationY);
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

void ScreenForm::layOut(std::vector<ui::Piece> fields, std::vector<QWidget*> buttons, XPButton* reads)
{
    if (!buttons.empty()) calc = static_cast<XPButton*>(buttons.front());
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
    addPaper(
        *grid, [this] { return ResultSheet(m_parts.layout, exportData()); }, [this] { return paper(); });
    wait = control<QLineEdit>(m_parts.wait);
    ui::placeWaitBox(wait, grid);
    FileDrop::Take take;
    if (reads)
        take = [this, reads](const QString& path) {
            if (m_running || !reads->isEnabled()) return;
            const FileGiven given(toUtf8(path));
            emit reads->Click();
        };
    new FileDrop(this, take);
    road = control<RoadLine>("lblRoad");
    fields.insert(fields.begin(), road);
    told = control<QuietLine>("lblTold");
    fields.insert(fields.end(), {grid, told, ui::buttonRow(buttons)});
    ui::arrange(*this, fields);

    // Frames take their boxes behind the grid in the ring of the tab key: the first box starts with the focus.
    for (auto* next = grid->nextInFocusChain(); next != grid; next = next->nextInFocusChain())
        if (auto* first = qobject_cast<QLineEdit*>(next); first && next->focusPolicy() & Qt::TabFocus) {
            m_first = first;
            return first->setFocus();
        }
}
