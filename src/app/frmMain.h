#pragma once
// The main window: the two catalogues, the menus and the toolbar that start every screen, the end of the process.

#include "app/ListBox.h"
#include "ui/Form.h"

#include <QAction>
#include <QLabel>
#include <QList>

#include <functional>
#include <memory>
#include <string>
#include <vector>

class QMenuBar;
class QToolBar;
class RoadFoot;
class WaysOut;
class XPButton;

class frmMain : public Form {
    Q_OBJECT
public:
    frmMain();
    ~frmMain() override;

    void reject() override {}  ///< Esc does not end the program

protected:
    void showEvent(QShowEvent* event) override { QWidget::showEvent(event); }  ///< placed by the desktop
    void Form_Load() override;
    void Form_Unload() override;
    /// Enter on the list of projects opens the selected one.
    bool Form_KeyPress(int keyAscii) override;
    /// F10 enters the menu bar.
    bool commandKey(const QKeyCombination& key) override;

private:
    using Handler = void (frmMain::*)();
    template <class Sender, class Signal>
    void onIdle(Sender* sender, Signal signal, Handler handler);
    XPButton* button(const char* name, const QString& caption, Handler handler);
    void makeCommands();
    void layOut();
    void showListMenu(const QPoint& at);

    void cmdNewProjects_Click();
    void cmdOpenProjects_Click();
    void cmdProjectsDel_Click();
    void butZh_Click();
    void butDel_Click();

    bool refuseNoSelection(const ListBox& list);
    static void fill(ListBox& list, const std::vector<std::string>& names);
    static void tellFileErrors(const std::function<void()>& body);
    void leaveOnlyTheWaysOut();
    void leave();

    // In the order of the tab key.
    QMenuBar* m_menuBar;
    QToolBar* tbarMain;
    QLabel* Label1;
    ListBox* lstProjects;
    XPButton *cmdNewProjects, *cmdOpenProjects, *cmdProjectsDel;
    QLabel* Label2;
    ListBox* lstSj;
    XPButton *butZh, *butDel, *cmdExit;
    RoadFoot* m_foot;
    QList<QAction*> m_needProject;  ///< enabled by the first project that is opened, never disabled again
    bool m_hanging = false;         ///< a load never comes back
    std::unique_ptr<WaysOut> m_waysOut;
};
