#include "views/frmPmt.h"

#include "base/FileError.h"
#include "base/Numbers.h"
#include "base/RunTimeError.h"
#include "controls/FormScaling.h"
#include "controls/XPButton.h"
#include "dialogs/Dialogs.h"
#include "editors/Wizard.h"
#include "editors/windows/frmJdpqx.h"
#include "editors/windows/frmJmpqx.h"
#include "engine/Chainage.h"
#include "project/Workspace.h"
#include "tables/CalcTables.h"
#include "ui/Layout.h"
#include "ui/MSFlexGrid.h"
#include "ui/Theme.h"
#include "views/PlanArea.h"
#include "views/TypedStake.h"

#include <QHBoxLayout>
#include <QLineEdit>
#include <QSplitter>
#include <QTimer>

#include <array>
#include <tuple>

namespace {

constexpr std::array<std::pair<const char*, int>, 7> kColumns{{{"序号", 600},
                                                               {"线 形", 1100},
                                                               {"起点里程", 1500},
                                                               {"终点里程", 1500},
                                                               {"长 度", 1000},
                                                               {"半 径", 1500},
                                                               {"A", 1000}}};

/// The column whose header says this, blanks aside; -1 where none does.
int columnOf(const MSFlexGrid& grid, const QString& header)
{
    for (int col = 1; col < grid.Cols(); ++col)
        if (grid.TextMatrix(0, col).remove(u' ') == header) return col;
    return -1;
}

}  // namespace

frmPmt::frmPmt(MSFlexGrid* results, ViewSource source)
    : ViewForm(QStringLiteral("frmPmt"), QStringLiteral("线路平面图"), plot::Order::Plan, std::move(source)),
      m_area(control<PlanArea>("picPmt")), m_elements(control<MSFlexGrid>("MsfgPmt")), m_results(results),
      m_stake(control<QLineEdit>("txtLc")), m_other(control<QComboBox>("comDj")), m_pinned(control<QLabel>("lblPinned"))
{
    auto* go = control<XPButton>("cmdZd", QStringLiteral("转 到"));
    auto* all = control<XPButton>("cmdQt", QStringLiteral("全 图"));
    ui::fitDigits(m_stake);
    m_stake->setPlaceholderText(QStringLiteral("K12+500"));
    m_stake->setToolTip(QStringLiteral("输入里程，回车转到那里"));
    m_pinned->setFont(numberFont(m_pinned->font()));
    m_pinned->setTextInteractionFlags(Qt::TextSelectableByMouse);
    m_pinned->setFocusPolicy(Qt::NoFocus);
    m_pinned->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    m_other->setMinimumWidth(m_other->fontMetrics().horizontalAdvance(QStringLiteral("（不叠加）")) + 64);
    m_other->setToolTip(QStringLiteral("用灰线叠加另一个项目的线路，只看不改"));

    m_elements->setCols(static_cast<int>(kColumns.size()));
    for (int col = 0; col < std::ssize(kColumns); ++col) {
        m_elements->setTextMatrix(0, col, QString::fromUtf8(kColumns[static_cast<std::size_t>(col)].first));
        m_elements->setColWidth(col, kColumns[static_cast<std::size_t>(col)].second);
        m_elements->setColAlignment(col, Qt::AlignCenter);
    }
    m_elements->setLastColumnFills(true);
    m_elements->setMinimumWidth(220);
    m_elements->setHint(QStringLiteral("没有平曲线"));

    auto* top = new QHBoxLayout;
    top->setSpacing(theme::kGrid);
    for (const auto& [text, box] :
         {std::pair<QString, QWidget*>{QStringLiteral("里程"), m_stake}, {QStringLiteral("叠加"), m_other}}) {
        auto* label = new QLabel(text, this);
        label->setBuddy(static_cast<QWidget*>(box));
        top->addWidget(label);
        top->addWidget(box);
        if (box == m_stake) {
            top->addWidget(go);
            top->addWidget(all);
            top->addSpacing(2 * theme::kGrid);
        }
    }
    top->addStretch(1);
    for (const auto& [name, caption, wanted] : {std::tuple{"cmdZdm", QStringLiteral("纵断面"), &frmPmt::profileWanted},
                                                {"cmdHdm", QStringLiteral("横断面"), &frmPmt::sectionWanted}}) {
        auto* button = control<XPButton>(name, caption);
        button->setToolTip(QStringLiteral("打开定点处的%1").arg(caption));
        top->addWidget(button);
        on(button, &XPButton::Click, [this, signal = wanted] { emit(this->*signal)(stakeAtHand()); });
    }
    auto* both = new QSplitter(Qt::Horizontal, this);
    both->addWidget(m_area);
    both->addWidget(m_elements);
    both->setStretchFactor(0, 1);
    both->setChildrenCollapsible(false);
    both->setSizes({600, 580});
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(theme::kMargin, theme::kMargin, theme::kMargin, theme::kMargin);
    column->setSpacing(theme::kGrid);
    column->addWidget(m_notice);
    column->addLayout(top);
    column->addWidget(both, 1);
    column->addWidget(m_readOut);
    column->addWidget(m_pinned);
    column->addLayout(endRow());
    fitToContent(*this, {1210, 640});

    on(go, &XPButton::Click, [this] { cmdZd_Click(); });
    on(all, &XPButton::Click, [this] { m_area->showAll(); });
    on(m_other, &QComboBox::activated, [this](int index) { comDj_Click(index); });
    on(m_area, &DrawingArea::hovered, [this](QPointF where) { hover(where); });
    on(m_area, &DrawingArea::left, [this] { m_hovered.clear(), say(); });
    on(m_area, &DrawingArea::clicked, [this](QPointF where) { click(where); });
    on(m_area, &DrawingArea::doubleClicked, [this](QPointF where) {
        if (const auto out = plot::readOutAt(road(), m_area->local(where))) openEditor(out->foot.element);
    });
    const auto row = [this] { return static_cast<std::size_t>(m_elements->Row()) - 1; };
    on(m_elements, &MSFlexGrid::RowColChange, [this, row] { pickElement(row(), true); });
    on(m_elements, &MSFlexGrid::Click, [this, row] { pickElement(row(), true); });
    on(m_elements, &QAbstractItemView::doubleClicked, [this, row] { openEditor(row()); });
}

void frmPmt::reload()
{
    m_area->setRoad(nullptr);  // the old one goes with the call below
    ViewForm::reload();
    m_area->setStale(stale());
    m_area->setRoad(&road());
    showElements();
    readResults();
    if (m_other->count() == 0) {
        m_other->addItem(QStringLiteral("（不叠加）"));
        for (const auto& name : plot::listedProjects()) m_other->addItem(fromUtf8(name));
    }
    m_hovered.clear();
    if (m_pinnedPlace) pinAt(road().local(m_pinnedPlace->y, m_pinnedPlace->x));
    say();
}

void frmPmt::showElements()
{
    m_elements->setRows(1);
    m_elements->holdBack(true);
    for (const auto& e : road().elements()) {
        const auto a = e.parameter();
        std::string radius = plot::radiusText(e.r1);
        if (e.r2 != e.r1) radius += "～" + plot::radiusText(e.r2);
        m_elements->appendRow({{plot::nameOf(e.bend), road().stakeText(e.from), road().stakeText(e.to),
                                plot::fixed(e.length(), 3), radius, a ? plot::fixed(*a, 3) : ""},
                               {}});
    }
    m_elements->holdBack(false);
    m_elements->scrollToTop();
}

/// The points of the result grid of the window below: X and Y by their headers. Corners of a structure come in fours.
void frmPmt::readResults()
{
    m_marked.clear();
    m_resultRows.clear();
    if (!m_results) return;
    const int x = columnOf(*m_results, QStringLiteral("X坐标")), y = columnOf(*m_results, QStringLiteral("Y坐标"));
    if (x < 0 || y < 0) return;
    for (int row = 1; row < m_results->Rows(); ++row) {
        double north = 0, east = 0;
        if (!attempt([&] {
                north = ParseNumber(toUtf8(m_results->TextMatrix(row, x)));
                east = ParseNumber(toUtf8(m_results->TextMatrix(row, y)));
            }))
            continue;
        const plot::Point p = road().local(north, east);
        m_resultRows.emplace_back(row, p);
        m_marked.push_back({{p}, std::to_string(row), row == m_results->Row()});
    }
    if (columnOf(*m_results, QStringLiteral("点位置")) > 0)
        for (std::size_t i = 0; i + 3 < m_resultRows.size(); i += 4) {
            const auto corner = [&](std::size_t k) { return m_resultRows[i + k].second; };
            m_marked.push_back({{corner(0), corner(1), corner(3), corner(2)}, "", false});
        }
    m_area->setMarked(m_marked);
}

void frmPmt::showStale() { m_area->setStale(stale()); }

plot::Order frmPmt::order() const
{
    plot::Order what = ViewForm::order();
    what.marked = m_marked;
    if (m_otherRoad) what.other = m_otherRoad->road.get();
    return what;
}

void frmPmt::comDj_Click(int index)
{
    m_area->setOther(nullptr);
    m_otherRoad.reset();
    if (index > 0) {
        m_otherRoad = plot::roadOf(ProjectPath(toUtf8(m_other->itemText(index))));
        if (!m_otherRoad->refusal.empty()) {
            const std::string why = m_otherRoad->refusal;
            m_otherRoad.reset();
            m_other->setCurrentIndex(0);
            dialogs().box({why, "注意", Icon::Exclamation});
            return;
        }
        m_area->setOther(m_otherRoad->road.get());
    }
}

void frmPmt::cmdZd_Click()
{
    const auto stake = typedStake(*source().tables, toUtf8(m_stake->text()));
    const auto pose = stake ? road().poseAt(*stake) : std::nullopt;
    if (!pose) {
        dialogs().box({"桩号不在线路上！", "注意", Icon::Exclamation});
        m_stake->setFocus();
        return m_stake->selectAll();
    }
    m_area->flyTo(pose->at, std::max(m_area->scale(), 2.0));
    pinAt(pose->at);
    m_pinnedStake = *stake;
}

void frmPmt::hover(QPointF where)
{
    const auto out = plot::readOutAt(road(), m_area->local(where));
    m_hovered = out ? fromUtf8(out->text) : QString();
    ViewForm::say(m_hovered);
}

void frmPmt::click(QPointF where)
{
    const auto out = plot::readOutAt(road(), m_area->local(where));
    if (!out) return;
    // A result point near by is meant; else the place itself.
    for (std::size_t i = 0; i < m_resultRows.size(); ++i) {
        const QPointF d = m_area->onScreen(m_resultRows[i].second) - where;
        if (d.manhattanLength() > 10) continue;
        for (auto& m : m_marked) m.picked = false;
        m_marked[i].picked = true;
        m_area->setMarked(m_marked);
        m_results->setRow(m_resultRows[i].first);
        break;
    }
    pinAt(m_area->local(where));
    if (std::abs(out->foot.offset) * m_area->scale() < 12) pickElement(out->foot.element, false);
}

void frmPmt::say()
{
    ViewForm::say(m_hovered.isEmpty() ? QStringLiteral("滚轮缩放，拖动平移，单击定点，双击编辑该线元") : m_hovered);
}

/// The cross and its line of numbers always tell of one place.
void frmPmt::pinAt(plot::Point local)
{
    const auto out = plot::readOutAt(road(), local);
    m_pinned->setText(out ? QStringLiteral("定点：") + fromUtf8(out->text) : QString());
    m_area->pin(out ? std::optional(local) : std::nullopt);
    m_pinnedStake = out ? std::optional(out->foot.stake) : std::nullopt;
    m_pinnedPlace = out ? std::optional(plot::Point{out->y, out->x}) : std::nullopt;
}

void frmPmt::pickElement(std::size_t element, bool fromTable)
{
    if (element >= road().elements().size() || m_fromTable) return;
    m_area->pick(element);
    if (fromTable) return m_area->bringIntoSight(road().elements()[element].box);
    m_fromTable = true;  // the table's own signal brings nothing into sight
    m_elements->setRow(static_cast<int>(element) + 1);
    m_elements->scrollTo(m_elements->model()->index(static_cast<int>(element), 0));
    m_fromTable = false;
}

/// The editor of the alignment over this window, at the row that the element stems from.
void frmPmt::openEditor(std::size_t element)
{
    if (element >= road().elements().size() || !source().open()) return;
    const std::size_t row = road().elements()[element].row;
    std::string model;
    try {
        model = SettingsLine(0).value_or("");
    } catch (const FileError&) {  // the editor says what cannot be read
    }
    const bool vertices = model == "交点法";
    // Four elements an intersection point, the first straight before them: the straight belongs to the point before it.
    const int wanted = vertices ? std::max(1, static_cast<int>((row + 3) / 4)) : static_cast<int>(row) + 1;
    const auto atRow = [&](EditorForm& form) {
        QTimer::singleShot(0, &form, [&form, wanted] {
            runHandler([&] {
                auto* grid = form.findChild<MSFlexGrid*>();
                if (!grid || !form.isVisible() || wanted >= grid->Rows()) return;
                // The row is shown, not entered: entering a cell counts as an edit that the editor asks about.
                grid->setRow(wanted);
                grid->setCol(1);
                grid->scrollTo(grid->model()->index(wanted - 1, 0), QAbstractItemView::PositionAtCenter);
            });
        });
        form.showModal(this);
    };
    if (vertices) {
        frmJdpqx form;
        atRow(form);
    } else {
        frmJmpqx form;
        atRow(form);
    }
    reload();
}

double frmPmt::stakeAtHand() const { return m_pinnedStake.value_or(road().start()); }

bool frmPmt::Form_KeyPress(int keyAscii)
{
    if (keyAscii != 13 || !m_stake->hasFocus()) return false;
    cmdZd_Click();
    return true;
}
