#pragma once
// The right click menu of the project list: one table.

#include <span>

class ListBox;
class QString;
class QWidget;

/// An entry of the menu. One that works on a project is shown where the click hit a project.
struct ListCommand {
    const char* name;  ///< object name of the entry
    const char* caption;
    bool ofProject;
    /// @param project  the one that was hit, empty where the entry is the list's
    void (*run)(QWidget* caller, ListBox& list, const QString& project);
};

/// In the order of the menu; a line stands between those of a project and those of the list.
std::span<const ListCommand> listCommands();
