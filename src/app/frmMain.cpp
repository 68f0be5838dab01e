#include "app/frmMain.h"

#include "app/Help.h"
#include "app/Icons.h"
#include "app/ListMenu.h"
#include "app/MenuCommands.h"
#include "app/RoadFoot.h"
#include "app/WaysOut.h"
#include "app/frmNewProjects.h"
#include "base/FileError.h"
#include "base/Numbers.h"
#include "base/RunTimeError.h"
#include "controls/FormScaling.h"
#include "controls/XPButton.h"
#include "dialogs/FileBox.h"
#include "dialogs/Messages.h"
#include "phone/Phone.h"
#include "phone/windows/frmSjName.h"
#include "project/LoadProject.h"
#include "project/ProjectFolders.h"
#include "project/Workspace.h"
#include "ui/DocumentWindow.h"
#include "ui/Layout.h"
#include "ui/Theme.h"
#include "views/Views.h"

#include <QApplication>
#include <QBoxLayout>
#include <QMenu>
#include <QMenuBar>
#include <QToolBar>

#include <map>
#include <string_view>

frmMain::frmMain()
    : Form(QStringLiteral("frmMain"), QStringLiteral("Velumark")), m_menuBar(control<QMenuBar>("menuBar")),
      tbarMain(control<QToolBar>("tbarMain")), Label1(control<QLabel>("Label1", QStringLiteral("电脑版和PPC版参数"))),
      lstProjects(control<ListBox>("lstProjects")),
      cmdNewProjects(button("cmdNewProjects", QStringLiteral("新建项目"), &frmMain::cmdNewProjects_Click)),
      cmdOpenProjects(button("cmdOpenProjects", QStringLiteral("打开项目"), &frmMain::cmdOpenProjects_Click)),
      cmdProjectsDel(button("cmdProjectsDel", QStringLiteral("删除项目"), &frmMain::cmdProjectsDel_Click)),
      Label2(control<QLabel>("Label2", QStringLiteral("手机版参数"))), lstSj(control<ListBox>("lstSj")),
      butZh(button("butZh", QStringLiteral("转 换"), &frmMain::butZh_Click)),
      butDel(button("butDel", QStringLiteral("移 除"), &frmMain::butDel_Click)),
      cmdExit(control<XPButton>("cmdExit", QStringLiteral("退出程序"))), m_foot(new RoadFoot(this))
{
    setModal(false);
    setWindowFlags(Qt::Window);
    setWindowIcon(programIcon());
    makeCommands();
    layOut();
    lstProjects->setContextMenuPolicy(Qt::CustomContextMenu);
    on(lstProjects, &QWidget::customContextMenuRequested, [this](const QPoint& at) { showListMenu(at); });
    onIdle(lstProjects, &ListBox::DblClick, &frmMain::cmdOpenProjects_Click);
    on(cmdExit, &XPButton::Click, [this] { leave(); });
    WhenLoadHangs([this] { leaveOnlyTheWaysOut(); });
    new ViewKeys(this);
    new HelpKey(this);
}

frmMain::~frmMain() { WhenLoadHangs({}); }

template <class Sender, class Signal>
void frmMain::onIdle(Sender* sender, Signal signal, Handler handler)
{
    on(sender, signal, [this, handler] {
        if (m_hanging) return;
        (this->*handler)();
        m_foot->afterWork();
    });
}

XPButton* frmMain::button(const char* name, const QString& caption, Handler handler)
{
    auto* made = control<XPButton>(name, caption);
    onIdle(made, &XPButton::Click, handler);
    return made;
}

void frmMain::makeCommands()
{
    std::map<std::string_view, QMenu*> menus;
    for (const auto& command : menuCommands()) menus.try_emplace(command.parent);
    std::map<int, QAction*> buttons;
    for (const auto& command : menuCommands()) {
        const auto caption = QString::fromUtf8(command.caption);
        auto* parent = menus[command.parent];
        QAction* action = nullptr;
        if (menus.contains(command.name)) {
            auto* menu = parent ? parent->addMenu(caption) : m_menuBar->addMenu(caption);
            menus[command.name] = menu;
            action = menu->menuAction();
        } else {
            action = parent->addAction(commandIcon(command.name), caption);
            on(action, &QAction::triggered, [this, open = command.open] {
                if (m_hanging) return;
                open(this);
                m_foot->afterWork();
            });
        }
        action->setObjectName(QString::fromUtf8(command.name));
        action->setToolTip(QString::fromUtf8(command.toolTip));
        if (command.toolbarIndex) buttons[command.toolbarIndex] = action;
        if (command.needsProject) m_needProject << action;
    }
    for (auto* action : m_needProject) action->setEnabled(false);
    for (const auto& [index, action] : buttons) tbarMain->addAction(action);
    tbarMain->setIconSize({32, 32});
}

void frmMain::layOut()
{
    Label1->setBuddy(lstProjects);
    Label2->setBuddy(lstSj);
    lstProjects->setHint(QStringLiteral("还没有项目。\n请点击“新建项目”。"));
    lstSj->setHint(QStringLiteral("在左边选择一个项目，\n点击“转 换”，即可复制到手机。"));

    auto* lists = new QHBoxLayout;
    lists->setContentsMargins(theme::kMargin, theme::kMargin, theme::kMargin, theme::kMargin);
    lists->setSpacing(2 * theme::kGrid);
    lists->addLayout(ui::down({Label1, lstProjects, ui::buttonRow({cmdNewProjects, cmdOpenProjects, cmdProjectsDel})}),
                     1);
    lists->addLayout(ui::down({Label2, lstSj, ui::buttonRow({butZh, butDel, cmdExit})}), 1);
    auto* all = new QVBoxLayout(this);
    all->setContentsMargins(0, 0, 0, 0);
    all->setSpacing(0);
    all->setMenuBar(m_menuBar);
    all->addWidget(tbarMain);
    all->addLayout(lists, 1);
    all->addWidget(m_foot);
    fitToContent(*this, {680, 464});
    lstProjects->setFocus();
}

/// The menu of the project under the mouse, or of the selected one where the menu key was pressed; else of the list.
void frmMain::showListMenu(const QPoint& at)
{
    if (m_hanging) return;
    const auto* hit = lstProjects->itemAt(at);
    const QString project = hit ? hit->text() : QString();
    auto* menu = new QMenu(this);
    menu->setObjectName(QStringLiteral("mnuProjects"));
    menu->setAttribute(Qt::WA_DeleteOnClose);
    bool ofProject = false;
    for (const auto& command : listCommands()) {
        if (command.ofProject && !hit) continue;
        if (ofProject && !command.ofProject) menu->addSeparator();
        ofProject = command.ofProject;
        auto* entry = menu->addAction(QString::fromUtf8(command.caption));
        entry->setObjectName(QString::fromUtf8(command.name));
        on(entry, &QAction::triggered, [this, run = command.run, project] {
            run(this, *lstProjects, project);
            m_foot->fileReplaced(project);  // 恢复… does it
            m_foot->afterWork();
        });
    }
    menu->popup(lstProjects->viewport()->mapToGlobal(at));
}

void frmMain::Form_Load()
{
    TakeSamples();
    fill(*lstProjects, OpenCatalogue());
    tellFileErrors([this] { fill(*lstSj, ReadPhoneCatalogue()); });
}

void frmMain::Form_Unload() { leave(); }

bool frmMain::Form_KeyPress(int keyAscii)
{
    if (keyAscii != 13 || focusWidget() != lstProjects || lstProjects->ListIndex() < 0) return false;
    if (m_hanging) return true;
    cmdOpenProjects_Click();
    m_foot->afterWork();
    return true;
}

bool frmMain::commandKey(const QKeyCombination& key)
{
    if (key != QKeyCombination(Qt::Key_F10) || m_hanging) return false;
    m_menuBar->setActiveAction(m_menuBar->actions().constFirst());
    return true;
}

void frmMain::fill(ListBox& list, const std::vector<std::string>& names)
{
    list.Clear();
    for (const auto& name : names) list.AddItem(fromUtf8(name));
}

bool frmMain::refuseNoSelection(const ListBox& list)
{
    if (!list.Text().isEmpty()) return false;
    dialogs().box(Notice("请选择一个项目！"));
    return true;
}

void frmMain::cmdNewProjects_Click()
{
    frmNewProjects dialog;
    on(&dialog, &frmNewProjects::created, [this](const QString& name) {
        lstProjects->AddItem(name);
        lstProjects->scrollToBottom();  // the selection stays
    });
    dialog.showModal(this);
}

void frmMain::cmdOpenProjects_Click()
{
    if (refuseNoSelection(*lstProjects)) return;
    gProject = Trim(toUtf8(lstProjects->Text()));
    LoadProject();
    m_foot->refresh();
    // Said whatever the load met, a stake in a chainage gap included.
    showBox(QStringLiteral("打开项目成功！"), QString(), Icon::Information);
    for (auto* action : m_needProject) action->setEnabled(true);
}

void frmMain::cmdProjectsDel_Click()
{
    if (refuseNoSelection(*lstProjects)) return;
    if (!dialogs().box(Question("确定要删除线路参数？"))) return;
    tellFileErrors([this] {
        const Outcome done = DeleteProject(lstProjects->ListIndex(), toUtf8(lstProjects->Text()));
        if (done)
            m_foot->projectDeleted(lstProjects->Text());
        else
            refuse(*done.refusal);
        fill(*lstProjects, OpenCatalogue());
    });
}

void frmMain::butZh_Click()
{
    if (refuseNoSelection(*lstProjects)) return;
    gProject = toUtf8(lstProjects->Text());
    frmSjName dialog;
    on(&dialog, &frmSjName::listed, [this](const QString& name) { lstSj->AddItem(name); });
    dialog.showModal(this);
}

void frmMain::butDel_Click()
{
    if (refuseNoSelection(*lstSj)) return;
    if (!dialogs().box(Question("确定要删除手机版参数？"))) return;
    tellFileErrors([this] {
        const Outcome done = RemovePhoneProject(lstSj->ListIndex(), lstSj->count(), toUtf8(lstSj->Text()));
        if (!done) refuse(*done.refusal);
        fill(*lstSj, ReadPhoneCatalogue());
    });
}

/// A file that fails is said; any other error ends the handler without a word. The list stays as it is then.
void frmMain::tellFileErrors(const std::function<void()>& body)
{
    try {
        body();
    } catch (const FileError& error) {
        dialogs().box(FileBox(error));
    } catch (const RunTimeError&) {  // the list of the file is shorter than what is shown
    }
}

/// A load that hangs has been called by this window or by one over it: none of those comes back. The way out is here.
void frmMain::leaveOnlyTheWaysOut()
{
    m_hanging = true;
    m_foot->retire();
    for (auto* window : QApplication::topLevelWidgets())
        if (window != this && qobject_cast<Form*>(window)) window->hide();
    m_waysOut = std::make_unique<WaysOut>(*this, *cmdExit);
    cmdExit->setFocus();
    activateWindow();
}

void frmMain::leave()
{
    m_waysOut.reset();  // open sheets and drawings are asked about
    leaveProgram();
}
