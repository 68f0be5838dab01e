#include "app/RoadFoot.h"

#include "app/CheckTurns.h"
#include "app/frmJc.h"
#include "base/FileBytes.h"
#include "editors/windows/EditorForm.h"
#include "project/OpenRoad.h"
#include "project/Workspace.h"
#include "screens/windows/RoadLine.h"
#include "ui/RunHandler.h"
#include "ui/Theme.h"
#include "views/Views.h"

#include <QHBoxLayout>
#include <QVBoxLayout>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

template <class Control>
Control* control(const char* name, QWidget* parent)
{
    auto* made = new Control(parent);
    made->setObjectName(QString::fromUtf8(name));
    return made;
}

QString link(const char* key, const QString& text)
{
    return u"<a href=\"%1\">%2</a>"_s.arg(QString::fromUtf8(key), text);
}

/// A project is open, and there are files to check.
bool canBeChecked() { return openRoad.loads > 0 && FolderExists(ProjectPath(gProject)); }

QString linksText(const std::vector<Finding>* found)
{
    QStringList links;
    if (canBeChecked())
        links << link("check", found && !found->empty() ? u"参数检查&nbsp;(%1)"_s.arg(found->size()) : u"参数检查"_s);
    if (canBeSeen())
        links << link("plan", u"平面图"_s) << link("profile", u"纵断面图"_s) << link("section", u"横断面图"_s);
    return links.join(u"&nbsp; "_s);
}

bool anyError(const std::vector<Finding>& found)
{
    return std::any_of(found.begin(), found.end(), [](const Finding& f) { return f.severity == Severity::Error; });
}

}  // namespace

RoadFoot::RoadFoot(QWidget* parent)
    : QWidget(parent), m_turns(new CheckTurns(this)), m_road(control<RoadLine>("lblRoad", this)),
      m_found(control<QuietLine>("lblFound", this)), m_links(control<QLabel>("lblViews", this)), m_loads(openRoad.loads)
{
    // Room for all that they may say, at all times: nothing above them moves, and a doubt is read to its end.
    m_road->setLines(2);
    auto* line = new QHBoxLayout;
    line->setSpacing(theme::kGrid);
    line->addWidget(m_found, 1);
    line->addWidget(m_links);
    auto* all = new QVBoxLayout(this);
    all->setContentsMargins(theme::kMargin, 0, theme::kMargin, theme::kGrid);
    all->setSpacing(0);
    all->addWidget(m_road);
    all->addLayout(line);

    m_links->setTextInteractionFlags(Qt::LinksAccessibleByMouse | Qt::LinksAccessibleByKeyboard);
    m_links->setToolTip(u"检查参数文件，看打开的线路（F6、F7、F8）"_s);
    connect(m_links, &QLabel::linkActivated, this,
            [this](const QString& which) { runHandler([&] { follow(which); }); });
    connect(m_turns, &CheckTurns::done, this, &RoadFoot::refresh);
    connect(m_turns, &CheckTurns::dropped, this, &RoadFoot::refresh);
    WhenSaved([this] { m_turns->start(); });
    refresh();
}

RoadFoot::~RoadFoot() { WhenSaved({}); }

void RoadFoot::refresh()
{
    m_road->refresh();
    const auto* found = m_turns->found();
    const bool any = found && !found->empty();
    if (any)
        m_found->say(u"发现 %1 个问题"_s.arg(found->size()), anyError(*found));
    else
        m_found->say({});
    // A text that is set anew takes the keyboard from its link.
    if (const QString text = linksText(found); text != m_links->text()) m_links->setText(text);
    m_links->setVisible(!m_links->text().isEmpty());
}

void RoadFoot::afterWork()
{
    refresh();
    if (openRoad.loads == m_loads) return;
    m_loads = openRoad.loads;
    m_turns->start();
}

void RoadFoot::fileReplaced(const QString& project)
{
    if (m_turns->found() && toUtf8(project) == gProject) m_turns->start();
}

void RoadFoot::projectDeleted(const QString& project) { m_turns->forget(ProjectPath(toUtf8(project))); }

void RoadFoot::retire()
{
    m_turns->drop();
    m_links->hide();
}

void RoadFoot::follow(const QString& link)
{
    if (link == u"check") {
        frmJc form(*m_turns);
        form.showModal(window());
    }
    if (link == u"plan") openPlan(window());
    if (link == u"profile") openProfile(window());
    if (link == u"section") openSection(window());
    afterWork();
}
