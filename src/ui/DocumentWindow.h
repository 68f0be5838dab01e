#pragma once
// A window that holds a document of its own: a sheet or a drawing. It stays open beside whatever opened it, takes input
// beside modal forms, and asks before unsaved work goes.

#include <QMainWindow>
#include <QPagedPaintDevice>

#include <functional>
#include <string>

class QToolBar;

class DocumentWindow : public QMainWindow {
    Q_OBJECT
public:
    ~DocumentWindow() override;

    bool isUnsaved() const { return m_unsaved; }
    /// Asks for a file and writes it; false: cancelled, or it could not be written (which was said).
    bool saveAs();
    /// Writes a file whole or not at all. @return false: it could not be written
    bool writeFile(const QString& path) const;
    /// The left part of the screen, so that the form that is worked with stays in sight at its right.
    void placeBeside(QWidget& form);

    static bool anyOpen();
    /// Before the process ends in trouble: unsaved documents go into files of their own, beside the program or, where
    /// that cannot be written, into the folder for temporary files. What to tell the user; "" where nothing was
    /// unsaved.
    static std::string keepUnsaved();

protected:
    /// @param kind how its texts call it: 工作表, 图形; @param extension of its file, without a point
    DocumentWindow(const QString& title, const QString& kind, const QString& extension);

    /// What is still being typed goes into the document: before it is saved, printed or closed.
    virtual void settle() {}
    virtual std::string fileBytes() const = 0;
    virtual QPageLayout page() const = 0;
    virtual void print(QPagedPaintDevice& device) const = 0;

    void touched();  ///< the document changed and is not saved
    /// A command with its key; `toolBar` shows it in the tool bar.
    QAction* command(const QString& text, const QKeySequence& key, const QString& tip, std::function<void()> run);
    void separator();
    void addAtEnd(QWidget* widget);  ///< at the right end of the tool bar
    void say(const QString& text);   ///< in the status line
    void exportPdf();
    void closeEvent(QCloseEvent* event) override;

private:
    void printDocument();
    void showTitle();

    QString m_title, m_kind, m_extension, m_path;
    bool m_unsaved = false;
    QToolBar* m_tools;
};

/// The exit of the program: windows without a document go at once; the process ends with the last open document, or
/// now where there is none.
void leaveProgram();
