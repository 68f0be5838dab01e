#pragma once
// The check of the project's files while nobody does anything: in short turns between the events of the program.

#include "check/Check.h"

#include <QObject>
#include <QTimer>

#include <memory>
#include <optional>
#include <string>
#include <vector>

/// Looks through the files of gProject and keeps what it finds. It begins when the events that wait are done with,
/// takes turns of at most 20 ms, and is dropped at the next press of a key or of the mouse. It writes and asks nothing.
class CheckTurns : public QObject {
    Q_OBJECT
public:
    explicit CheckTurns(QObject* parent = nullptr);

    /// In ms: half of what a turn may take, as the piece that is begun last is finished behind it.
    static inline qint64 endOfTurn = 10;

    /// Anew, whatever was found before. That stands until the new check is done or dropped.
    void start();
    void drop();
    /// What was found in that folder is of no project any more.
    void forget(const std::string& folder);
    bool running() const { return m_run != nullptr; }

    /// What the last check found in the files of gProject; nothing where none was made to its end, where another
    /// project has become gProject since, and where its folder is gone.
    const std::vector<Finding>* found() const;
    /// Turns that the last check took.
    int turns() const { return m_turns; }

signals:
    void done();
    void dropped();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void turn();
    void end();

    QTimer m_timer;
    std::unique_ptr<CheckRun> m_run;
    std::string m_running;  ///< folder that m_run looks at
    std::string m_folder;   ///< folder of m_found
    std::optional<std::vector<Finding>> m_found;
    int m_turns = 0;
};
