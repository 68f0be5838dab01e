#pragma once
// The foot of the main window: which road is open, what the check found in its files, the ways to look at it.

#include <QWidget>

class CheckTurns;
class QLabel;
class QuietLine;
class RoadLine;

/// The links are 参数检查 and the three views. The check is made after each load and after each 保 存 of an editor.
class RoadFoot : public QWidget {
    Q_OBJECT
public:
    explicit RoadFoot(QWidget* parent);
    ~RoadFoot() override;

    /// After whatever may have opened, created or chosen a project, while its box may still stand.
    void refresh();
    /// The same when nothing of it is left to be done: what was opened since is checked.
    void afterWork();
    /// A file of the project was replaced outside the editors: what was found in it may be gone.
    void fileReplaced(const QString& project);
    /// Nothing that was found is told of a new project of that name.
    void projectDeleted(const QString& project);
    /// The program waits without end for a load: nothing here can be used any more.
    void retire();

private:
    void follow(const QString& link);

    CheckTurns* m_turns;
    RoadLine* m_road;
    QuietLine* m_found;
    QLabel* m_links;
    int m_loads;  ///< openRoad.loads when the last check began
};
