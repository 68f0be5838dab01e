#include "app/CheckTurns.h"

#include "base/FileBytes.h"
#include "project/Workspace.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QEvent>

#include <exception>

CheckTurns::CheckTurns(QObject* parent) : QObject(parent)
{
    m_timer.setInterval(0);
    connect(&m_timer, &QTimer::timeout, this, &CheckTurns::turn);
}

void CheckTurns::start()
{
    if (!m_run) qApp->installEventFilter(this);
    m_running = ProjectPath(gProject);
    m_run = std::make_unique<CheckRun>(m_running);
    m_turns = 0;
    m_timer.start();
}

void CheckTurns::end()
{
    m_timer.stop();
    m_run.reset();
    qApp->removeEventFilter(this);
}

void CheckTurns::drop()
{
    if (!m_run) return;
    end();
    m_found.reset();
    emit dropped();
}

void CheckTurns::forget(const std::string& folder)
{
    if (m_running == folder) drop();
    if (m_folder == folder) m_found.reset();
}

void CheckTurns::turn()
{
    ++m_turns;
    try {
        QElapsedTimer since;
        since.start();
        while (!m_run->done() && since.elapsed() < endOfTurn) m_run->step();
        if (!m_run->done()) return;
        m_found = m_run->take();
        m_folder = m_running;
    } catch (const std::exception&) {  // a check that cannot be made says nothing
        return drop();
    }
    end();
    emit done();
}

const std::vector<Finding>* CheckTurns::found() const
{
    return m_found && m_folder == ProjectPath(gProject) && FolderExists(m_folder) ? &*m_found : nullptr;
}

bool CheckTurns::eventFilter(QObject*, QEvent* event)
{
    const auto type = event->type();
    if (type == QEvent::KeyPress || type == QEvent::MouseButtonPress || type == QEvent::MouseButtonDblClick) drop();
    return false;
}
