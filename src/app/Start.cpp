#include "app/Start.h"

#include "app/Icons.h"
#include "app/frmMain.h"
#include "base/FilePath.h"
#include "base/Machine.h"
#include "dialogs/Messages.h"
#include "project/Workspace.h"
#include "ui/Desktop.h"
#include "ui/Platform.h"
#include "ui/QtDialogs.h"
#include "ui/RunHandler.h"
#include "ui/Theme.h"

#include <QApplication>

#include <exception>
#include <filesystem>
#include <system_error>

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
    keepNoSettings();
    Application app(argc, argv);
    QApplication::setDesktopFileName(QStringLiteral("velumark"));
    applyTheme(app);
    QApplication::setWindowIcon(programIcon());
    QtDialogs qtDialogs;
    setDialogs(&qtDialogs);
    gAppPath = ProgramFolder(argv[0]);
    if (IsUnpackedForAMoment(gAppPath)) {  // what it would make there would be lost
        dialogs().box(Notice("请先把压缩包全部解压，再运行解压出来的 velumark.exe。"));
        return 1;
    }
    std::error_code ignored;
    std::filesystem::current_path(filePath(gAppPath), ignored);

    frmMain window;
    window.show();
    return QApplication::exec();
}
