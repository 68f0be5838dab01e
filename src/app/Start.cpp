#include "app/Start.h"

#include "app/Icons.h"
#include "app/frmMain.h"
#include "platform/HouseLook.h"
#include "platform/QtDesk.h"
#include "project/Workspace.h"

#include <QApplication>
#include <QDir>

int runVelumark(int argc, char** argv)
{
    QApplication app(argc, argv);
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
