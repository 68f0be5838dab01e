#pragma once
// Menu and toolbar of the main window: one table.

#include <span>

class QWidget;

/// A menu or one of its items, and the toolbar button that runs the same.
struct MenuCommand {
    const char* name;
    const char* caption;
    const char* parent;         ///< menu that holds it, "" for the menu bar
    int toolbarIndex = 0;       ///< place in the toolbar, from 1; 0 for none
    const char* toolTip = "";   ///< of the toolbar button
    bool needsProject = false;  ///< disabled until a project has been opened once
    /// Shows its screen over the form that calls; none for a menu that opens a submenu.
    void (*open)(QWidget* caller) = nullptr;
};

/// In the order of the menu bar; a menu stands before its items.
std::span<const MenuCommand> menuCommands();
