#include "platform/QtDesk.h"

#include "platform/InputGuard.h"

#include <QApplication>
#include <QDeadlineTimer>
#include <QEventLoop>
#include <QFileDialog>
#include <QFileIconProvider>
#include <QMessageBox>
#include <QPushButton>
#include <QTimer>

namespace {

QMessageBox::Icon boxIcon(Icon icon)
{
    switch (icon) {
    case Icon::None:
        return QMessageBox::NoIcon;
    case Icon::Information:
        return QMessageBox::Information;
    case Icon::Exclamation:
        return QMessageBox::Warning;
    case Icon::Critical:
        return QMessageBox::Critical;
    case Icon::Question:
        return QMessageBox::Question;
    }
    return QMessageBox::NoIcon;
}

/// What the dialog's column of kinds says.
class FileIcons : public QFileIconProvider {
public:
    QString type(const QFileInfo& file) const override
    {
        if (file.isDir()) return QStringLiteral("文件夹");
        return file.suffix().isEmpty() ? QStringLiteral("文件") : file.suffix() + QStringLiteral(" 文件");
    }
};

std::optional<std::string> chosenFile(std::string_view filter, QFileDialog::AcceptMode mode)
{
    FileIcons icons;  // outlives the dialog
    QFileDialog dialog(QApplication::activeWindow());
    dialog.setAcceptMode(mode);
    dialog.setFileMode(mode == QFileDialog::AcceptOpen ? QFileDialog::ExistingFile : QFileDialog::AnyFile);
    // The dialog's own drawing: a desktop's native one may ask about overwriting or add an extension by itself.
    dialog.setOption(QFileDialog::DontUseNativeDialog);
    dialog.setOption(QFileDialog::DontConfirmOverwrite);
    dialog.setIconProvider(&icons);
    dialog.setWindowTitle(mode == QFileDialog::AcceptOpen ? QStringLiteral("打开") : QStringLiteral("另存为"));
    dialog.setNameFilters(nameFilters(QString::fromUtf8(filter.data(), static_cast<qsizetype>(filter.size()))));
    if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty()) return std::nullopt;
    return dialog.selectedFiles().constFirst().toStdString();
}

}  // namespace

bool QtDesk::box(const Msg& msg)
{
    QMessageBox box(boxIcon(msg.icon), QString::fromStdString(msg.title), QString::fromStdString(msg.text),
                    QMessageBox::NoButton, QApplication::activeWindow());
    box.setTextFormat(Qt::PlainText);
    if (msg.buttons == Msg::Ok) {
        box.addButton(QStringLiteral("确定"), QMessageBox::AcceptRole);
        box.exec();
        return true;
    }
    auto* yes = box.addButton(QStringLiteral("是(&Y)"), QMessageBox::YesRole);
    auto* no = box.addButton(QStringLiteral("否(&N)"), QMessageBox::NoRole);
    box.setDefaultButton(msg.preset == Msg::Yes ? yes : no);
    box.setEscapeButton(no);
    box.exec();
    return box.clickedButton() == yes;
}

void QtDesk::turn()
{
    const InputGuard guard;
    QCoreApplication::processEvents();
}

void QtDesk::turnWithInput()
{
    QTimer::singleShot(100, [] {});  // wakes the wait below where nothing else happens
    QCoreApplication::processEvents(QEventLoop::AllEvents | QEventLoop::WaitForMoreEvents);
}

std::optional<std::string> QtDesk::openFile(std::string_view filter)
{
    return chosenFile(filter, QFileDialog::AcceptOpen);
}

std::optional<std::string> QtDesk::saveFile(std::string_view filter)
{
    return chosenFile(filter, QFileDialog::AcceptSave);
}

QStringList nameFilters(const QString& filter)
{
    const auto pieces = filter.split(u'|');
    QStringList filters;
    for (int i = 0; i + 1 < pieces.size(); i += 2) {
        const QString patterns = QString(pieces[i + 1]).replace(u';', u' ');
        const QString shown = u'(' + patterns + u')';
        filters << (pieces[i].contains(shown) ? pieces[i] : (pieces[i] + u' ' + shown).trimmed());
    }
    return filters;
}
