// velumark_shots FOLDER [SUFFIX [roads]]: a picture of every window, on a workspace of its own with the samples in it,
// and of several roads in the three views; `roads`: of those alone.

#include "RoadShots.h"
#include "support/EveryWindow.h"
#include "ui/Theme.h"

int main(int argc, char** argv)
{
    QApplication app(argc, argv);
    applyTheme(app);
    QApplication::setCursorFlashTime(0);  // the text cursor stands still, in every picture alike
    const QString folder = QString::fromLocal8Bit(argc > 1 ? argv[1] : ".");
    const QString suffix = QString::fromLocal8Bit(argc > 2 ? argv[2] : "");
    const auto save = [&](QWidget& window) {
        if (window.objectName() == u"frmTfy" || window.objectName() == u"frmWfy") return;  // look as 左幅 does
        const auto file = folder + u'/' + window.objectName() + suffix + QStringLiteral(".png");
        if (!window.grab().save(file)) qFatal("cannot write %s", qPrintable(file));
    };
    if (argc < 4) forEveryWindow(save);
    road_shots::forEveryRoad(save);
    return 0;
}
