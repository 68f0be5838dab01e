// velumark_shots FOLDER [SUFFIX]: a picture of every window, on a workspace of its own with the samples in it.

#include "app/ListBox.h"
#include "app/frmAbout.h"
#include "app/frmMain.h"
#include "app/frmNewProjects.h"
#include "controls/XPButton.h"
#include "phone/Phone.h"
#include "phone/frmSjName.h"
#include "platform/HouseLook.h"
#include "project/Workspace.h"
#include "tools/frmQljs.h"
#include "tools/frmZbzfs.h"

#include <QApplication>
#include <QDir>
#include <QTemporaryDir>

#include <filesystem>

namespace {

/// Says yes to everything and shows nothing.
class SilentDesk final : public Desk {
public:
    bool box(const Msg&) override { return true; }
    void turn() override {}
    std::optional<std::string> openFile(std::string_view) override { return {}; }
    std::optional<std::string> saveFile(std::string_view) override { return {}; }
};

QString folder, suffix;

void shoot(QWidget& window)
{
    window.show();
    QApplication::processEvents();
    const auto file = folder + u'/' + window.objectName() + suffix + QStringLiteral(".png");
    if (!window.grab().save(file)) qFatal("cannot write %s", qPrintable(file));
    window.hide();
}

template <class Form>
void shoot(const std::function<void(Form&)>& prepare = {})
{
    Form form;
    if (prepare) prepare(form);
    shoot(static_cast<QWidget&>(form));
}

void type(QWidget& form, std::initializer_list<std::pair<const char*, const char*>> texts)
{
    for (const auto& [box, text] : texts)
        form.findChild<QLineEdit*>(QString::fromUtf8(box))->setText(QString::fromUtf8(text));
}

void click(QWidget& form, const char* button) { emit form.findChild<XPButton*>(QString::fromUtf8(button))->Click(); }

}  // namespace

int main(int argc, char** argv)
{
    QApplication app(argc, argv);
    applyHouseLook(app);
    SilentDesk silent;
    setDesk(&silent);
    folder = QString::fromLocal8Bit(argc > 1 ? argv[1] : ".");
    suffix = QString::fromLocal8Bit(argc > 2 ? argv[2] : "");

    QTemporaryDir workspace;
    gAppPath = workspace.path().toStdString();
    namespace fs = std::filesystem;
    fs::copy(VM_SOURCE_DIR "/samples", WorkspacePath(), fs::copy_options::recursive);
    gProject = "示例一";
    ExportForPhone("road1");

    shoot<frmMain>([](frmMain& form) {
        form.show();
        form.findChild<ListBox*>(QStringLiteral("lstProjects"))->setCurrentRow(0);
        click(form, "cmdOpenProjects");
    });
    shoot<frmAbout>();
    shoot<frmNewProjects>([](auto& form) { type(form, {{"txtNewProjects", "滨河路"}}); });
    shoot<frmSjName>([](auto& form) { type(form, {{"txtsjName", "binhe"}}); });
    shoot<frmZbzfs>([](auto& form) {
        type(
            form,
            {{"txtZsCzX", "3456789.123"}, {"txtZsCzY", "456123.456"}, {"txtZsFwj", "125.3015"}, {"txtZsJl", "186.42"}});
        click(form, "butZsCalc");
        type(form, {{"txtFsCzx", "3456789.123"},
                    {"txtFsCzy", "456123.456"},
                    {"txtFsHsX", "3456912.408"},
                    {"txtFsHsY", "456001.772"}});
        click(form, "butFsCalc");
    });
    shoot<frmQljs>([](auto& form) {
        type(form, {{"txtA", "100"}, {"txtR", "200"}, {"txtL0", "30"}});
        emit form.template findChild<QPushButton*>(QStringLiteral("Command1"))->clicked();
    });
    return 0;
}
