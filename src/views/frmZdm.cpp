#include "views/frmZdm.h"

#include "controls/FormScaling.h"
#include "controls/XPButton.h"
#include "dialogs/Dialogs.h"
#include "plot/ReadOut.h"
#include "ui/Layout.h"
#include "ui/Theme.h"
#include "views/ProfileArea.h"
#include "views/TypedStake.h"

#include <QHBoxLayout>
#include <QLineEdit>

namespace {

constexpr double kTimes[] = {1, 2, 5, 10, 20, 50, 100};

}  // namespace

frmZdm::frmZdm(std::optional<double> stake, ViewSource source)
    : ViewForm(QStringLiteral("frmZdm"), QStringLiteral("纵断面图"), plot::Order::Profile, std::move(source)),
      m_area(control<ProfileArea>("picZdm")), m_stake(control<QLineEdit>("txtLc")),
      m_exaggeration(control<QComboBox>("comFd")), m_pinned(control<QLabel>("lblPinned")), m_at(stake)
{
    auto* go = control<XPButton>("cmdZd", QStringLiteral("转 到"));
    auto* all = control<XPButton>("cmdQt", QStringLiteral("全 图"));
    ui::fitDigits(m_stake);
    m_stake->setPlaceholderText(QStringLiteral("K12+500"));
    m_stake->setToolTip(QStringLiteral("输入里程，回车转到那里"));
    m_exaggeration->addItem(QStringLiteral("自动"));
    for (const double times : kTimes) m_exaggeration->addItem(QStringLiteral("%1 倍").arg(times));
    m_exaggeration->setToolTip(QStringLiteral("高程放大的倍数"));
    for (auto* label : {m_pinned}) {
        label->setFont(numberFont(label->font()));
        label->setTextInteractionFlags(Qt::TextSelectableByMouse);
        label->setFocusPolicy(Qt::NoFocus);
        label->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    }
    auto* top = new QHBoxLayout;
    top->setSpacing(theme::kGrid);
    auto* stakeLabel = new QLabel(QStringLiteral("里程"), this);
    stakeLabel->setBuddy(m_stake);
    auto* timesLabel = new QLabel(QStringLiteral("高程放大"), this);
    timesLabel->setBuddy(m_exaggeration);
    for (QWidget* widget : {static_cast<QWidget*>(stakeLabel), static_cast<QWidget*>(m_stake),
                            static_cast<QWidget*>(go), static_cast<QWidget*>(all)})
        top->addWidget(widget);
    top->addSpacing(2 * theme::kGrid);
    top->addWidget(timesLabel);
    top->addWidget(m_exaggeration);
    top->addStretch(1);
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(theme::kMargin, theme::kMargin, theme::kMargin, theme::kMargin);
    column->setSpacing(theme::kGrid);
    column->addWidget(m_notice);
    column->addLayout(top);
    column->addWidget(m_area, 1);
    column->addWidget(m_readOut);
    column->addWidget(m_pinned);
    column->addLayout(endRow());
    fitToContent(*this, {1040, 720});

    on(go, &XPButton::Click, [this] { cmdZd_Click(); });
    on(all, &XPButton::Click, [this] { m_area->showAll(); });
    on(m_exaggeration, &QComboBox::activated,
       [this](int index) { m_area->setExaggeration(index > 0 ? kTimes[index - 1] : 0); });
    on(m_area, &DrawingArea::hovered, [this](QPointF where) { say(m_area->stakeAt(where)); });
    on(m_area, &DrawingArea::left, [this] { say({}); });
    on(m_area, &DrawingArea::clicked, [this](QPointF where) {
        const double at = m_area->stakeAt(where);
        if (at < m_area->from() || at > m_area->to()) return;
        m_at = at;
        m_area->setCursor(at);
        m_pinned->setText(QStringLiteral("定点：") + fromUtf8(plot::profileReadOut(road(), at)));
    });
}

void frmZdm::reload()
{
    m_area->setRoad(nullptr, 0, 1);
    ViewForm::reload();
    const plot::Order all = plot::orderOf(road(), plot::Order::Profile);
    m_area->setStale(stale());
    m_area->setRoad(&road(), all.from, all.to);
    say({});
    if (!m_at) return;
    m_area->flyTo(*m_at);
    m_area->setCursor(*m_at);
    m_pinned->setText(QStringLiteral("定点：") + fromUtf8(plot::profileReadOut(road(), *m_at)));
}

void frmZdm::showStale() { m_area->setStale(stale()); }

plot::Order frmZdm::order() const
{
    plot::Order what = ViewForm::order();
    if (const int index = m_exaggeration->currentIndex(); index > 0) what.exaggeration = kTimes[index - 1];
    return what;
}

void frmZdm::say(std::optional<double> stake)
{
    if (!stake || *stake < m_area->from() || *stake > m_area->to())
        return ViewForm::say(QStringLiteral("滚轮缩放，拖动平移，单击定点"));
    ViewForm::say(fromUtf8(plot::profileReadOut(road(), *stake)));
}

void frmZdm::cmdZd_Click()
{
    const auto stake = typedStake(*source().tables, toUtf8(m_stake->text()));
    const plot::Order all = plot::orderOf(road(), plot::Order::Profile);
    if (!stake || *stake < all.from || *stake > all.to) {
        dialogs().box({"桩号不在纵断面上！", "注意", Icon::Exclamation});
        m_stake->setFocus();
        return m_stake->selectAll();
    }
    m_at = stake;
    m_area->flyTo(*stake);
    m_area->setCursor(*stake);
    m_pinned->setText(QStringLiteral("定点：") + fromUtf8(plot::profileReadOut(road(), *stake)));
}

bool frmZdm::Form_KeyPress(int keyAscii)
{
    if (keyAscii != 13 || !m_stake->hasFocus()) return false;
    cmdZd_Click();
    return true;
}
