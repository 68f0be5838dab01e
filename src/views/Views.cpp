#include "views/Views.h"

#include "dialogs/Dialogs.h"
#include "tables/CalcTables.h"
#include "ui/Form.h"
#include "ui/MSFlexGrid.h"
#include "ui/RunHandler.h"
#include "views/frmHdm.h"
#include "views/frmPmt.h"
#include "views/frmZdm.h"

#include <QApplication>
#include <QKeyEvent>

#include <type_traits>

namespace {

/// The plan's buttons open the two others, of the same road, at the pinned stake.
void offerOthers(frmPmt& plan, const ViewSource& source)
{
    QObject::connect(&plan, &frmPmt::profileWanted, &plan, [&plan, source](double stake) {
        frmZdm profile(stake, source);
        profile.showModal(&plan);
    });
    QObject::connect(&plan, &frmPmt::sectionWanted, &plan, [&plan, source](double stake) {
        frmHdm section(stake, source);
        section.showModal(&plan);
    });
}

}  // namespace

bool canBeSeen() { return gElemCount > 0 || gSqxCount > 0; }

void openPlan(QWidget* caller)
{
    // The first grid that names points, if the form has one.
    MSFlexGrid* results = nullptr;
    for (auto* grid : caller ? caller->findChildren<MSFlexGrid*>() : QList<MSFlexGrid*>())
        if (!results && grid->isVisible()) results = grid;
    frmPmt form(results);
    offerOthers(form, {});
    form.showModal(caller);
}

void openProfile(QWidget* caller, std::optional<double> stake)
{
    frmZdm form(stake);
    form.showModal(caller);
}

void openSection(QWidget* caller, std::optional<double> stake)
{
    frmHdm form(stake);
    form.showModal(caller);
}

namespace {

template <class View, class First>
void lookAt(QWidget* caller, const std::string& project)
{
    const auto own = plot::roadOf(ProjectPath(project));
    if (!own->refusal.empty()) {
        dialogs().box({own->refusal, "注意", Icon::Exclamation});
        return;
    }
    const ViewSource source{&own->tables, project, ProjectPath(project)};
    View form(First{}, source);
    if constexpr (std::is_same_v<View, frmPmt>) offerOthers(form, source);
    form.setWindowTitle(form.windowTitle() + QStringLiteral(" - ") + fromUtf8(project));
    form.showModal(caller);
}

}  // namespace

void lookAtPlan(QWidget* caller, const std::string& project) { lookAt<frmPmt, MSFlexGrid*>(caller, project); }
void lookAtProfile(QWidget* caller, const std::string& project)
{
    lookAt<frmZdm, std::optional<double>>(caller, project);
}
void lookAtSection(QWidget* caller, const std::string& project)
{
    lookAt<frmHdm, std::optional<double>>(caller, project);
}

ViewKeys::ViewKeys(QObject* parent) : QObject(parent) { qApp->installEventFilter(this); }

bool ViewKeys::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() != QEvent::KeyPress || !watched->isWidgetType()) return false;
    const auto* key = static_cast<QKeyEvent*>(event);
    if (key->modifiers() != Qt::NoModifier || key->key() < Qt::Key_F6 || key->key() > Qt::Key_F8 || key->isAutoRepeat())
        return false;
    auto* form = qobject_cast<Form*>(static_cast<QWidget*>(watched)->window());
    // Nothing to see before a road has been opened, and no view over itself.
    if (!form || !canBeSeen() || qobject_cast<ViewForm*>(form)) return false;
    runHandler([&] {
        if (key->key() == Qt::Key_F6) openPlan(form);
        if (key->key() == Qt::Key_F7) openProfile(form);
        if (key->key() == Qt::Key_F8) openSection(form);
    });
    return true;
}
