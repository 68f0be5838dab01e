#include "ui/FileDialog.h"

#include "ui/QtDialogs.h"

#include <QDialogButtonBox>
#include <QFileDialog>
#include <QFileIconProvider>
#include <QFileInfo>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>

namespace {

/// What the dialog's column of kinds says.
class FileIcons : public QFileIconProvider {
public:
    QString type(const QFileInfo& file) const override
    {
        if (file.isDir()) return QStringLiteral("文件夹");
        return file.suffix().isEmpty() ? QStringLiteral("文件") : file.suffix() + QStringLiteral(" 文件");
    }
};

/// What is typed is one name, quotation marks and all: they don't enclose the names of a list here.
class OneFileDialog : public QFileDialog {
public:
    explicit OneFileDialog(QWidget* over) : QFileDialog(over), m_name(findChild<QLineEdit*>())
    {
        // A name with quotation marks is judged by the pieces between them, which may be nothing at all.
        connect(m_name, &QLineEdit::textChanged, this, [this] {
            if (quoted()) acceptButton()->setEnabled(true);
        });
    }
    QString chosen() const { return m_chosen; }

protected:
    void accept() override
    {
        if (!quoted()) return QFileDialog::accept();
        const QFileInfo file(directory(), m_name->text());
        if (file.isDir()) {
            setDirectory(file.filePath());
            m_name->clear();
        } else if (acceptMode() == AcceptSave || file.exists()) {
            m_chosen = file.filePath();
            done(Accepted);
        } else {
            QMessageBox::warning(
                this, windowTitle(),
                tr("%1\nFile not found.\nPlease verify the correct file name was given.").arg(file.fileName()));
        }
    }
    void done(int result) override
    {
        if (m_chosen.isEmpty()) m_chosen = selectedFiles().value(0);
        QFileDialog::done(result);
    }

private:
    bool quoted() const { return m_name->text().contains(u'"'); }
    QPushButton* acceptButton() const
    {
        auto* buttons = findChild<QDialogButtonBox*>();
        return buttons->button(acceptMode() == AcceptOpen ? QDialogButtonBox::Open : QDialogButtonBox::Save);
    }

    QLineEdit* m_name;
    QString m_chosen;
};

}  // namespace

QString askForFile(QWidget* over, FileDialog kind, const QString& filter, const QString& proposed)
{
    const bool opens = kind == FileDialog::Open;
    FileIcons icons;  // outlives the dialog
    OneFileDialog dialog(over);
    dialog.setAcceptMode(opens ? QFileDialog::AcceptOpen : QFileDialog::AcceptSave);
    dialog.setFileMode(opens ? QFileDialog::ExistingFile : QFileDialog::AnyFile);
    // The dialog's own drawing: a desktop's native one may ask about overwriting or add an extension by itself.
    dialog.setOption(QFileDialog::DontUseNativeDialog);
    dialog.setOption(QFileDialog::DontConfirmOverwrite);
    dialog.setIconProvider(&icons);
    dialog.setWindowTitle(titleOf(kind));
    dialog.setNameFilters(nameFilters(filter));
    if (!proposed.isEmpty()) dialog.selectFile(proposed);
    return dialog.exec() == QDialog::Accepted ? dialog.chosen() : QString();
}
