// A text file dropped on a calculation window is run as its button runs it; any other file is refused.

#include "FormDriver.h"
#include "RoadOfDoubts.h"

#include "screens/windows/frmDgdZb.h"
#include "screens/windows/frmFs.h"
#include "screens/windows/frmJgw.h"
#include "screens/windows/frmPlGc.h"
#include "screens/windows/frmPlfy.h"
#include "support/QtTests.h"
#include "support/SharedDiff.h"

#include <QDropEvent>
#include <QMimeData>

using namespace Qt::StringLiterals;

namespace {

/// Drags the files over a widget and lets go. @return whether the drop was taken
bool drop(QWidget* target, const QStringList& paths)
{
    QMimeData data;
    QList<QUrl> urls;
    for (const auto& path : paths) urls << QUrl::fromLocalFile(path);
    data.setUrls(urls);
    const QPoint at = target->rect().center();
    constexpr auto kOffered = Qt::CopyAction | Qt::MoveAction;
    QDragEnterEvent enter(at, kOffered, &data, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(target, &enter);
    QDropEvent dropped(at, kOffered, &data, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(target, &dropped);
    if (enter.isAccepted() != dropped.isAccepted()) qFatal("promised otherwise than done");
    if (dropped.isAccepted() && dropped.dropAction() != Qt::CopyAction) qFatal("the file would be moved away");
    return dropped.isAccepted();
}

struct Run {
    QList<QStringList> rows;
    QString told;
    QByteArray file;
    Shared after;

    bool operator==(const Run& other) const
    {
        return rows == other.rows && told == other.told && file == other.file &&
               differences(after, other.after).empty();
    }
};

/// The rows of a file that came by `how`, on a window just opened.
template <class Form, class How>
Run runOf(const QByteArray& lines, How how)
{
    Workspace w;
    const BatchText file(lines);
    Run run;
    {
        Driven<Form> f;
        how(w, f, file.path);
        QCoreApplication::processEvents();
        for (int row = 1; row <= f.rows(); ++row) run.rows << f.row(row);
        run.told = f.template get<QuietLine>("lblTold")->text();
        run.after = shared;
        w.dialogs.no();
        f.form.close();
    }
    run.file = file.bytes();
    if (!w.dialogs.messages.empty() && w.dialogs.messages.front().buttons != Msg::YesNo) qFatal("a box");
    return run;
}

template <class Form>
void runsAsByTheButton(const char* button, const QByteArray& lines, int rows)
{
    const Run pressed = runOf<Form>(lines, [&](Workspace& w, Driven<Form>& f, const QString& path) {
        w.dialogs.open(path.toStdString());
        f.click(button);
    });
    QCOMPARE(pressed.rows.size(), rows);
    const auto onto = [&](auto target) {
        return runOf<Form>(lines, [&](Workspace&, Driven<Form>& f, const QString& path) {
            QVERIFY(drop(target(f), {path}));
            QCOMPARE(f.rows(), 0);  // the one who dropped it does not wait
        });
    };
    QVERIFY(onto([](Driven<Form>& f) -> QWidget* { return &f.form; }) == pressed);
    QVERIFY(onto([](Driven<Form>& f) -> QWidget* { return f.grid().viewport(); }) == pressed);
    QVERIFY(onto([](Driven<Form>& f) -> QWidget* { return f.form.template findChild<QLineEdit*>(); }) == pressed);
}

}  // namespace

class tst_filedrop : public QObject {
    Q_OBJECT
private slots:
    void theFourScreensThatRunFilesTakeThem()
    {
        runsAsByTheButton<frmPlfy>("bugPlfy", "12100,0\r\n\r\n12110,-3\r\n", 2);
        runsAsByTheButton<frmFs>("butPlfs", "5100,1002\r\n", 1);
        runsAsByTheButton<frmPlGc>("bugPlgc", "12100,0\r\n12200,2\r\n", 2);
        runsAsByTheButton<frmJgw>("butTxt", "12100,1,1,2,2\r\n", 4);
    }

    void otherFilesAreRefusedAndLeftAlone()
    {
        Workspace w;
        QTemporaryDir folder;
        const auto made = [&](const QString& name) {
            QFile file(folder.filePath(name));
            if (!file.open(QIODevice::WriteOnly) || file.write("12100,0\n\n12110,0\n") < 0) qFatal("no file");
            return file.fileName();
        };
        const QString text = made(u"a.TXT"_s), second = made(u"b.csv"_s), sheet = made(u"c.xls"_s);
        QDir(folder.path()).mkdir(u"d.txt"_s);
        Driven<frmPlfy> f;
        auto* box = f.box("txtPlzbQdlc");
        box->setText(u"12100"_s);
        for (const auto& paths :
             {QStringList{text, second}, {sheet}, {folder.filePath(u"d.txt"_s)}, {folder.filePath(u"gone.txt"_s)}})
            for (QWidget* target : {static_cast<QWidget*>(&f.form), static_cast<QWidget*>(box)})
                QVERIFY(!drop(target, paths));
        QCoreApplication::processEvents();
        QCOMPARE(f.rows(), 0);
        QCOMPARE(box->text(), u"12100"_s);
        QFile file(sheet);
        QVERIFY(file.open(QIODevice::ReadOnly));
        QCOMPARE(file.readAll(), QByteArray("12100,0\n\n12110,0\n"));
        QVERIFY(w.dialogs.messages.empty());
    }

    void aWindowWithoutFileRunsTakesNone()
    {
        Workspace w;
        const BatchText file("12100,0\r\n");
        Driven<frmDgdZb> f;
        QVERIFY(!drop(&f.form, {file.path}));
        QVERIFY(!drop(f.box("txtDgdZbFylc"), {file.path}));
        QCoreApplication::processEvents();
        QCOMPARE(f.rows(), 0);
        QCOMPARE(f.text("txtDgdZbFylc"), QString());
    }

    void oneRunAtATime()
    {
        Workspace w;
        const BatchText file("12100,0\r\n");
        Driven<frmPlfy> f;
        // The drop was taken just before the button was pressed, and its turn comes while the box of the run is up.
        w.dialogs.onBox = [] { QCoreApplication::processEvents(); };
        QVERIFY(drop(&f.form, {file.path}));
        emit f.get<XPButton>("butPlzbCalc")->Click();  // refused: nothing is typed
        QCOMPARE(f.rows(), 0);
        QCOMPARE(w.dialogs.messages.size(), std::size_t(1));
    }

    void nothingIsTakenUnderAnotherWindow()
    {
        Workspace w;
        const BatchText file("12100,0\r\n");
        Driven<frmPlfy> f;
        QDialog above(&f.form);
        above.setModal(true);
        above.show();
        QVERIFY(!drop(&f.form, {file.path}));
        above.close();
        QVERIFY(drop(&f.form, {file.path}));
        QCoreApplication::processEvents();
        QCOMPARE(f.rows(), 1);
        w.dialogs.no();
        f.form.close();
    }
};

VM_QT_TEST(tst_filedrop)
#include "tst_filedrop.moc"
