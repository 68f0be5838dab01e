#include "app/Start.h"

#include "app/Icons.h"
#include "app/frmMain.h"
#include "platform/HouseLook.h"
#include "platform/QtDesk.h"
#include "platform/RunHandler.h"
#include "project/Workspace.h"

#include <QApplication>
#include <QDir>

#include <exception>

namespace {

/// What painting, models and the like throw would otherwise go through Qt and abort.
class Application : public QApplication {
public:
    using QApplication::QApplication;
    bool notify(QObject* receiver, QEvent* event) override
    {
        try {
            return QApplication::notify(receiver, event);
        } catch (const std::exception&) {
            runHandler([] { throw; });
            return false;
        }
    }
};

}  // namespace

int runVelumark(int argc, char** argv)
{
    Application app(argc, argv);
    QApplication::setDesktopFileName(QStringLiteral("velumark"));
    applyHouseLook(app);
    QApplication::setWindowIcon(programIcon());
    QtDesk qtDesk;
    setDesk(&qtDesk);
    gAppPath = QApplication::applicationDirPath().toStdString();
    QDir::setCurrent(QApplication::applicationDirPath());

    frmMain window;
    window.show();
    return QApplication::exec();
}
