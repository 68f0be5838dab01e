#include "views/frmHdm.h"

#include "base/Numbers.h"
#include "base/RunTimeError.h"
#include "controls/FormScaling.h"
#include "controls/XPButton.h"
#include "dialogs/Messages.h"
#include "ui/Layout.h"
#include "ui/MSFlexGrid.h"
#include "ui/Paper.h"
#include "ui/Theme.h"
#include "views/SectionArea.h"
#include "views/TypedStake.h"

#include <QApplication>
#include <QCheckBox>
#include <QClipboard>
#include <QHBoxLayout>
#include <QLineEdit>
#include <QSlider>
#include <QSplitter>

#include <array>
#include <cmath>

namespace {

constexpr std::array<std::pair<const char*, int>, 6> kColumns{
    {{"序号", 700}, {"点", 1650}, {"偏距", 1000}, {"设计高程", 1250}, {"扣路面后", 1250}, {"坡度", 900}}};

}  // namespace

frmHdm::frmHdm(std::optional<double> stake, ViewSource source)
    : ViewForm(QStringLiteral("frmHdm"), QStringLiteral("横断面图"), plot::Order::Section, std::move(source)),
      m_area(control<SectionArea>("picHdm")), m_stake(control<QLineEdit>("txtLc")),
      m_thickness(control<QLineEdit>("txtLmhd")), m_pavement(control<QCheckBox>("cheLm", QStringLiteral("扣路面厚度"))),
      m_slopesShown(control<QCheckBox>("cheBp", QStringLiteral("边坡示意"))), m_slider(control<QSlider>("sldLc")),
      m_values(control<MSFlexGrid>("MsfgHdm")), m_first(stake)
{
    auto* go = control<XPButton>("cmdZd", QStringLiteral("转 到"));
    auto* copy = control<XPButton>("cmdFz", QStringLiteral("复 制"));
    auto* points = control<XPButton>("cmdDcd", QStringLiteral("导出点"));
    ui::fitDigits(m_stake);
    ui::fitDigits(m_thickness, 6);
    m_stake->setPlaceholderText(QStringLiteral("K12+500"));
    m_stake->setToolTip(QStringLiteral("输入里程，回车转到那里"));
    m_thickness->setToolTip(QStringLiteral("米"));
    filterKeys(m_thickness, IsUnsignedDecimalKey);
    setLocked(m_thickness, true);
    m_slopesShown->setChecked(true);
    m_slider->setOrientation(Qt::Horizontal);
    m_slider->setToolTip(QStringLiteral("沿线路移动；图上用左右键每次一米，翻页键十米"));
    copy->setToolTip(QStringLiteral("把各点的值复制到剪贴板"));
    points->setToolTip(QStringLiteral("把各点写成 点名,里程,偏距,高程,X,Y 的文件"));
    m_values->setCols(static_cast<int>(kColumns.size()));
    for (int col = 0; col < std::ssize(kColumns); ++col) {
        m_values->setTextMatrix(0, col, QString::fromUtf8(kColumns[static_cast<std::size_t>(col)].first));
        m_values->setColWidth(col, kColumns[static_cast<std::size_t>(col)].second);
        m_values->setColAlignment(col, Qt::AlignCenter);
    }
    m_values->setLastColumnFills(true);
    m_values->setMinimumWidth(220);
    m_values->setHint(QStringLiteral("没有数据"));

    auto* top = new QHBoxLayout;
    top->setSpacing(theme::kGrid);
    auto* label = new QLabel(QStringLiteral("里程"), this);
    label->setBuddy(m_stake);
    for (QWidget* widget : {static_cast<QWidget*>(label), static_cast<QWidget*>(m_stake), static_cast<QWidget*>(go)})
        top->addWidget(widget);
    top->addWidget(m_slider, 1);
    for (QWidget* widget :
         {static_cast<QWidget*>(m_pavement), static_cast<QWidget*>(m_thickness), static_cast<QWidget*>(m_slopesShown)})
        top->addWidget(widget);
    auto* both = new QSplitter(Qt::Horizontal, this);
    both->addWidget(m_area);
    both->addWidget(m_values);
    both->setStretchFactor(0, 1);
    both->setChildrenCollapsible(false);
    both->setSizes({560, 456});
    auto* last = new QHBoxLayout;
    last->setSpacing(theme::kGrid);
    last->addLayout(endRow(), 1);
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(theme::kMargin, theme::kMargin, theme::kMargin, theme::kMargin);
    column->setSpacing(theme::kGrid);
    column->addWidget(m_notice);
    column->addLayout(top);
    column->addWidget(both, 1);
    auto* line = new QHBoxLayout;
    line->setSpacing(theme::kGrid);
    line->addWidget(m_readOut, 1);
    line->addLayout(ui::buttonRow({copy, points}));
    column->addLayout(line);
    column->addLayout(last);
    fitToContent(*this, {1040, 600});

    on(go, &XPButton::Click, [this] { cmdZd_Click(); });
    on(copy, &XPButton::Click, [this] { cmdFz_Click(); });
    on(points, &XPButton::Click, [this] { cmdDcd_Click(); });
    on(m_slider, &QSlider::valueChanged, [this](int metres) { goTo(m_from + metres); });
    on(m_area, &SectionArea::stepped,
       [this](int steps) { goTo(steps > 0 ? std::floor(m_at + 1e-9) + steps : std::ceil(m_at - 1e-9) + steps); });
    on(m_pavement, &QCheckBox::toggled, [this](bool ticked) {
        setLocked(m_thickness, !ticked);
        if (ticked) m_thickness->setFocus();
        showSection();
    });
    on(m_thickness, &QLineEdit::textChanged, [this] { showSection(); });
    on(m_slopesShown, &QCheckBox::toggled, [this] { showSection(); });
}

void frmHdm::reload()
{
    m_area->show(nullptr, {}, false, {});
    ViewForm::reload();
    const plot::Order all = plot::orderOf(road(), plot::Order::Profile);
    m_from = all.from;
    m_to = std::max(all.from, all.to);  // grade changes typed backwards, without an alignment
    const QSignalBlocker quiet(m_slider);
    m_slider->setRange(0, static_cast<int>(std::max(0.0, m_to - m_from)));
    m_slider->setPageStep(20);
    m_at = std::clamp(m_first.value_or(m_from), m_from, m_to);
    goTo(m_at);
}

void frmHdm::goTo(double stake)
{
    m_at = std::clamp(stake, m_from, m_to);
    const QSignalBlocker quiet(m_slider);
    m_slider->setValue(static_cast<int>(m_at - m_from));
    showSection();
}

double frmHdm::thickness() const
{
    double value = 0;
    if (m_pavement->isChecked()) attempt([&] { value = ParseNumber(toUtf8(m_thickness->text())); });
    return value;
}

plot::Section frmHdm::section() const { return plot::sectionOf(road(), m_at, thickness(), slopes()); }

void frmHdm::showSection()
{
    const plot::Section here = section();
    m_area->show(&road(), here, m_slopesShown->isChecked(), stale());
    m_values->setRows(1);
    const auto number = [](const std::optional<double>& v) { return v ? plot::fixed(*v, 3) : std::string(); };
    for (const auto& p : here.points)
        m_values->appendRow(
            {{p.name, plot::fixed(p.offset, 3), number(p.surface), thickness() != 0 ? number(p.bottom) : "",
              p.slope ? plot::shortest(*p.slope * 100, 3) + "%" : ""},
             {}});
    m_values->scrollToTop();
    say(fromUtf8(road().stakeText(m_at)) + QStringLiteral("   左右键移动一米，翻页键十米；没有地面线，边坡是示意"));
}

void frmHdm::showStale() { showSection(); }

plot::Order frmHdm::order() const
{
    plot::Order what = ViewForm::order();
    what.stake = m_at;
    what.thickness = thickness();
    return what;
}

void frmHdm::cmdZd_Click()
{
    const auto stake = typedStake(*source().tables, toUtf8(m_stake->text()));
    if (!stake || *stake < m_from || *stake > m_to) {
        dialogs().box(Notice("桩号不在纵断面上！"));
        m_stake->setFocus();
        return m_stake->selectAll();
    }
    goTo(*stake);
}

void frmHdm::cmdFz_Click()
{
    QApplication::clipboard()->setText(fromUtf8(plot::sectionTable(road(), section(), "\t", "\n")));
    say(QStringLiteral("已复制 ") + fromUtf8(road().stakeText(m_at)));
}

void frmHdm::cmdDcd_Click()
{
    const QString path = askPath(QStringLiteral("csv"));
    // The mark tells spreadsheets that the bytes are UTF-8.
    if (!path.isEmpty() && writeOrSay(path, "\xEF\xBB\xBF" + plot::sectionTable(road(), section(), ",", "\r\n")))
        say(QStringLiteral("已导出：") + path);
}

bool frmHdm::Form_KeyPress(int keyAscii)
{
    if (keyAscii != 13 || !m_stake->hasFocus()) return false;
    cmdZd_Click();
    return true;
}
