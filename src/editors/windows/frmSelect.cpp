#include "editors/windows/frmSelect.h"

#include "base/FileError.h"
#include "base/RunTimeError.h"
#include "controls/XPButton.h"
#include "dialogs/FileBox.h"
#include "editors/WizardState.h"
#include "editors/windows/frmBpjs.h"
#include "editors/windows/frmCg.h"
#include "editors/windows/frmCgkd.h"
#include "editors/windows/frmDl.h"
#include "editors/windows/frmDxd.h"
#include "editors/windows/frmJdpqx.h"
#include "editors/windows/frmJmpqx.h"
#include "editors/windows/frmPqxSelect.h"
#include "editors/windows/frmSelectCg.h"
#include "editors/windows/frmSqx.h"
#include "editors/windows/frmTfy.h"
#include "editors/windows/frmTfz.h"
#include "editors/windows/frmWfy.h"
#include "editors/windows/frmWfz.h"
#include "project/LoadProject.h"
#include "screens/windows/RoadLine.h"
#include "ui/Layout.h"
#include "ui/QuietLine.h"
#include "ui/Theme.h"

#include <QButtonGroup>
#include <QGridLayout>
#include <QGroupBox>
#include <QKeyEvent>
#include <QRadioButton>
#include <QTimer>

#include <algorithm>
#include <utility>

namespace {

/// @param place  where to begin, if anywhere
template <class F>
void open(QWidget* over, const TextPlace* place)
{
    F form(over);
    if constexpr (requires { form.openAt(*place); })
        if (place) form.openAt(*place);
    form.showModal();
}

constexpr std::pair<std::string_view, void (*)(QWidget*, const TextPlace*)> kForms[] = {
    {"frmDxd", open<frmDxd>},     {"frmPqxSelect", open<frmPqxSelect>},
    {"frmJdpqx", open<frmJdpqx>}, {"frmJmpqx", open<frmJmpqx>},
    {"frmSqx", open<frmSqx>},     {"frmSelectCg", open<frmSelectCg>},
    {"frmCg", open<frmCg>},       {"frmCgkd", open<frmCgkd>},
    {"frmDl", open<frmDl>},       {"frmBpjs", open<frmBpjs>},
    {"frmTfz", open<frmTfz>},     {"frmTfy", open<frmTfy>},
    {"frmWfz", open<frmWfz>},     {"frmWfy", open<frmWfy>},
};

}  // namespace

frmSelect::frmSelect(QWidget* parent) : Form(QStringLiteral("frmSelect"), QStringLiteral("编辑线路参数"), parent)
{
    auto* options = new QGridLayout;
    options->setHorizontalSpacing(theme::kMargin);
    options->setColumnStretch(1, 1);
    options->setColumnStretch(3, 1);
    options->setVerticalSpacing(theme::kMargin);
    auto* optCs = m_options = new QButtonGroup(this);
    optCs->setObjectName(QStringLiteral("optCs"));
    for (int index = 0; index < std::ssize(kWizardOptions); ++index) {
        const auto caption = std::string(kWizardOptions[static_cast<std::size_t>(index)].caption);
        auto* option = control<QRadioButton>(("optCs" + std::to_string(index)).c_str(), fromUtf8(caption));
        optCs->addButton(option, index);
        const int row = index < 6 ? index : index - 6, col = index < 6 ? 0 : 2;
        options->addWidget(option, row, col);
        auto* state = control<QuietLine>(("lblState" + std::to_string(index)).c_str());
        state->setMinimumWidth(state->fontMetrics().horizontalAdvance(QStringLiteral("交点法，没有数据")) + 4);
        options->addWidget(state, row, col + 1);
        m_states.push_back(state);
    }
    auto* frame = ui::frame(QStringLiteral("参数"), options);
    frame->setObjectName(QStringLiteral("Frame1"));
    frame->setParent(this);  // now: the options come before the buttons in the tab order
    optCs->button(0)->setChecked(true);
    on(optCs, &QButtonGroup::idToggled, [this](int index, bool checked) {
        if (checked) m_option = toInt16(index);
    });

    auto* next = control<XPButton>("cmdSelectNext", QStringLiteral("下一步"));
    auto* back = control<XPButton>("cmdSelectBack", QStringLiteral("返 回"));
    on(next, &XPButton::Click, [this] { cmdSelectNext_Click(); });
    on(back, &XPButton::Click, [this] { cmdSelectBack_Click(); });

    frame->setMinimumWidth(std::max(336, frame->minimumSizeHint().width()));
    m_road = control<RoadLine>("lblRoad");
    m_road->setLines(2);
    ui::arrange(*this, {m_road, frame, ui::buttonRow({next, back})});
    setMinimumWidth(std::max(360, layout()->totalMinimumSize().width()));
}

/// Up and down go through all options in their order, from column to column; left and right between the columns.
bool frmSelect::eventFilter(QObject* watched, QEvent* event)
{
    auto* option = qobject_cast<QRadioButton*>(watched);
    if (event->type() == QEvent::KeyPress && option && m_options && m_options->id(option) >= 0) {
        const auto& key = *static_cast<QKeyEvent*>(event);
        const int step = key.key() == Qt::Key_Down ? 1 : key.key() == Qt::Key_Up ? -1 : 0;
        if (step != 0 && !(key.modifiers() & ~Qt::KeypadModifier)) {
            const auto count = static_cast<int>(kWizardOptions.size());
            auto* next = m_options->button((m_options->id(option) + step + count) % count);
            next->setFocus(Qt::TabFocusReason);
            next->setChecked(true);
            return true;
        }
    }
    return Form::eventFilter(watched, event);
}

void frmSelect::Form_Load() { showStates(); }

void frmSelect::showStates()
{
    const auto states = WizardStates();
    for (std::size_t i = 0; i < states.size(); ++i) m_states[i]->say(fromUtf8(states[i]));
}

bool frmSelect::Form_KeyPress(int keyAscii)
{
    if (keyAscii != 13 || !qobject_cast<QRadioButton*>(focusWidget())) return false;
    cmdSelectNext_Click();
    return true;
}

void frmSelect::openAt(int option, const TextPlace& place)
{
    QTimer::singleShot(0, this, [this, option, place] {
        auto* chosen = m_options->button(option);
        if (!isVisible() || !chosen) return;
        chosen->setChecked(true);
        chosen->setFocus();
        runHandler([&] { goOn(&place); });
    });
}

void frmSelect::goOn(const TextPlace* place)
{
    try {
        const WizardStep step = NextStep(m_option);
        if (step.message) dialogs().box(*step.message);
        for (const auto& [name, show] : kForms)
            if (name == step.form) show(this, place);
        m_road->refresh();
        showStates();
    } catch (const FileError& error) {  // the settings, which decide what opens
        dialogs().box(FileBox(error));
    }
}

void frmSelect::cmdSelectBack_Click()
{
    LoadProject();
    unload();
}
