// The worksheet window: typing, the clipboard, undo, files, and how it lives beside modal forms.

#include "base/FileError.h"
#include "base/RunTimeError.h"
#include "base/TabText.h"
#include "office/windows/DrawingWindow.h"
#include "office/windows/SheetView.h"
#include "office/windows/SheetWindow.h"
#include "support/PastePreview.h"
#include "support/QtTests.h"
#include "support/ScriptedDialogs.h"
#include "ui/Form.h"
#include "ui/Platform.h"
#include "ui/Theme.h"

#include <QClipboard>
#include <QDir>
#include <QLabel>
#include <QPainter>
#include <QPdfWriter>
#include <QPointer>
#include <QTemporaryDir>
#include <QToolButton>
#include <QtTest>

#include <filesystem>
#include <functional>
#include <new>

namespace {

/// b2:b3 and b4:b5 merged, column a text, a line around everything.
Worksheet sample()
{
    Worksheet sheet;
    sheet.merge("b2:b3");
    sheet.merge("b4:b5");
    sheet.setNumberFormat("a1:a20", "@");
    for (int index = xlEdgeLeft; index <= xlEdgeRight; ++index) sheet.borders("a1:d6", index, xlContinuous, xlMedium);
    return sheet;
}

struct Window {
    QPointer<SheetWindow> window = new SheetWindow(sample(), "样表");
    Window()
    {
        window->show();
        window->activateWindow();
        QApplication::setActiveWindow(window);
        window->view().setFocus();
    }
    ~Window() { delete window; }
    SheetView& view() { return window->view(); }
    void type(const QString& text)
    {
        for (const QChar c : text) QTest::keyClicks(QApplication::focusWidget(), c);
    }
    void press(Qt::Key key, Qt::KeyboardModifiers with = Qt::NoModifier)
    {
        QTest::keyClick(QApplication::focusWidget(), key, with);
    }
    QString at(const char* address) { return QString::fromStdString(window->sheet().text(address)); }
    bool isNumber(const char* address) { return std::holds_alternative<double>(window->sheet().value(address)); }
    QString current() { return QString::fromStdString(view().current().address()); }
    QAction* action(const QString& name) { return window->findChild<QAction*>(name); }
};

QString clipboard() { return QApplication::clipboard()->text(); }

}  // namespace

class tst_SheetWindow : public QObject {
    Q_OBJECT
private slots:
    void initTestCase() { applyTheme(*qApp); }

    // --- Typing ------------------------------------------------------------------------------------------------------
    void enterGoesDownTabGoesRight()
    {
        Window w;
        w.view().setCurrent("b1");
        w.type("12.50");
        w.press(Qt::Key_Return);
        QCOMPARE(w.at("b1"), "12.5");
        QCOMPARE(w.current(), "B2");
        w.type("7");
        w.press(Qt::Key_Return);
        QCOMPARE(w.current(), "B4");  // past the merged cell
        w.type("8");
        w.press(Qt::Key_Tab);
        QCOMPARE(w.at("b4"), "8");
        QCOMPARE(w.current(), "C4");
        w.press(Qt::Key_Backtab, Qt::ShiftModifier);
        QCOMPARE(w.current(), "B4");
        w.press(Qt::Key_Return, Qt::ShiftModifier);
        QCOMPARE(w.current(), "B2");
    }
    void numberTextsBecomeNumbersUnlessTheCellIsText()
    {
        Window w;
        for (const char* address : {"a1", "c1"}) {
            w.view().setCurrent(address);
            w.type("007");
            w.press(Qt::Key_Return);
        }
        QVERIFY(!w.isNumber("a1"));
        QCOMPARE(w.at("a1"), "007");
        QVERIFY(w.isNumber("c1"));
        QCOMPARE(w.at("c1"), "7");
    }
    void fullWidthDigitsAreANumberToo()
    {
        Window w;
        w.view().setCurrent("c1");
        w.view().edit("－１２．５");
        w.press(Qt::Key_Return);
        QVERIFY(w.isNumber("c1"));
        QCOMPARE(w.at("c1"), "-12.5");
        w.view().setCurrent("a1");
        w.view().edit("１号");
        w.press(Qt::Key_Return);
        QCOMPARE(w.at("a1"), "１号");
    }
    void arrowsLeaveTheCellWhileTyping()
    {
        Window w;
        w.view().setCurrent("c1");
        w.type("1");
        w.press(Qt::Key_Right);
        w.type("2");
        w.press(Qt::Key_Down);
        w.type("3");
        w.press(Qt::Key_Left);
        QCOMPARE(w.at("c1") + w.at("d1") + w.at("d2"), "123");
        QCOMPARE(w.current(), "C2");
        w.press(Qt::Key_Up);
        QCOMPARE(w.current(), "C1");
    }
    void f2AmendsAndArrowsStayInTheText()
    {
        Window w;
        w.view().setCurrent("c1");
        w.type("124");
        w.press(Qt::Key_Return);
        w.press(Qt::Key_Up);
        w.press(Qt::Key_F2);
        w.press(Qt::Key_Left);
        w.type("3");
        w.press(Qt::Key_Return);
        QCOMPARE(w.at("c1"), "1234");
    }
    void escapeTakesTheTypingBack()
    {
        Window w;
        w.view().setCurrent("c1");
        w.type("5");
        w.press(Qt::Key_Return);
        w.press(Qt::Key_Up);
        w.type("6");
        w.press(Qt::Key_Escape);
        QCOMPARE(w.at("c1"), "5");
        QVERIFY(!w.view().isEditing());
        QCOMPARE(QApplication::focusWidget(), &w.view());
    }
    void anInputMethodTypesIntoTheCell()
    {
        Window w;
        w.view().setCurrent("a1");
        QInputMethodEvent event;
        event.setCommitString("青山");
        QApplication::sendEvent(&w.view(), &event);
        w.press(Qt::Key_Return);
        QCOMPARE(w.at("a1"), "青山");
    }
    void deleteEmptiesTheSelection()
    {
        Window w;
        w.window->change([](Worksheet& sheet) {
            for (const char* address : {"c1", "c2", "d1"}) sheet.setNumber(address, 1);
        });
        w.view().select("c1", "c2");
        w.press(Qt::Key_Delete);
        QCOMPARE(w.at("c1") + w.at("c2") + w.at("d1"), "1");
        w.view().setCurrent("d1");
        w.press(Qt::Key_Backspace);
        w.press(Qt::Key_Return);
        QCOMPARE(w.at("d1"), "");
    }
    void retypingWhatStandsKeepsAllDigits()
    {
        Window w;
        w.window->change([](Worksheet& sheet) { sheet.setNumber("c1", 1.0 / 3); });
        w.view().setCurrent("c1");
        w.press(Qt::Key_F2);
        w.press(Qt::Key_Return);
        QCOMPARE(*w.window->sheet().number("c1"), 1.0 / 3);
    }
    void theEntryLineShowsAndTakesTheCell()
    {
        Window w;
        auto* entry = w.window->findChild<QLineEdit*>("entry");
        w.window->change([](Worksheet& sheet) { sheet.setNumber("c1", 1.0 / 3); });
        w.view().setCurrent("c1");
        QCOMPARE(w.window->findChild<QLabel*>("address")->text(), "C1");
        QCOMPARE(entry->text(), "0.333333333333333");
        entry->setFocus();
        entry->selectAll();
        QTest::keyClicks(entry, "42");
        QTest::keyClick(entry, Qt::Key_Return);
        QCOMPARE(w.at("c1"), "42");
        QVERIFY(w.view().hasFocus());
    }

    // --- Mouse -------------------------------------------------------------------------------------------------------
    void clickDragAndDoubleClick()
    {
        Window w;
        auto* port = w.view().viewport();
        QTest::mouseClick(port, Qt::LeftButton, {}, w.view().cellRect("b3").center());
        QCOMPARE(w.current(), "B2");
        QTest::mousePress(port, Qt::LeftButton, {}, w.view().cellRect("c1").center());
        QMouseEvent drag(QEvent::MouseMove, w.view().cellRect("d4").center(), port->mapToGlobal(QPoint()), Qt::NoButton,
                         Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(port, &drag);
        QTest::mouseRelease(port, Qt::LeftButton, {}, w.view().cellRect("d4").center());
        QCOMPARE(w.view().selection(), CellRange("c1:d4"));
        w.window->change([](Worksheet& sheet) { sheet.setNumber("c1", 9); });
        QTest::mouseDClick(port, Qt::LeftButton, {}, w.view().cellRect("c1").center());
        QVERIFY(w.view().isEditing());
        w.type("0");
        w.press(Qt::Key_Return);
        QCOMPARE(w.at("c1"), "90");
    }
    void aSelectionHoldsMergedCellsWhole()
    {
        Window w;
        w.view().select("a2", "b2");
        QCOMPARE(w.view().selection(), CellRange("a2:b3"));
    }

    // --- Clipboard ---------------------------------------------------------------------------------------------------
    void copyAndPasteBetweenSpreadsheets()
    {
        Window w;
        QApplication::clipboard()->setText("1\t2\r\n3\t\"a\nb\"\r\n");
        w.view().setCurrent("c1");
        w.action("粘贴")->trigger();
        QCOMPARE(w.at("c1") + w.at("d1") + w.at("c2"), "123");
        QCOMPARE(w.at("d2"), "a\nb");
        QVERIFY(w.isNumber("c2"));
        w.view().select("c1", "d2");
        QApplication::clipboard()->clear();
        w.action("复制")->trigger();
        QCOMPARE(clipboard(), "1\t2\r\n3\t\"a\nb\"\r\n");
        w.action("剪切")->trigger();
        QCOMPARE(w.at("c1") + w.at("d2"), "");
    }
    void aListFillsAColumnOfMergedCells()
    {
        Window w;
        QApplication::clipboard()->setText("10\n20\n30");
        w.view().setCurrent("b2");
        w.view().paste();
        QCOMPARE(w.at("b2") + " " + w.at("b4") + " " + w.at("b6"), "10 20 30");
        w.view().select("b2", "b4");
        w.view().copy();
        QCOMPARE(clipboard(), "10\r\n20\r\n");
    }
    void aBlockWithGapsUnderMergedCellsGoesWhereItStands()
    {
        Window w;
        QApplication::clipboard()->setText("1\tx\n\ty\n2\tz");
        w.view().setCurrent("b2");
        w.view().paste();
        QCOMPARE(w.at("b2") + w.at("b4") + w.at("c2") + w.at("c3") + w.at("c4"), "12xyz");
    }
    void pasteBeyondTheLastColumnIsCutOff()
    {
        Window w;
        QApplication::clipboard()->setText("1\t2\t3");
        w.view().setCurrent(CellRef(1, w.window->sheet().cols()));
        w.view().paste();
        QCOMPARE(w.at("d1") + w.at("e1") + w.at("f1"), "123");
    }

    void aPrintedNumberIsConvertedWhereItsQuantityIsKnown()
    {
        Window w;
        w.view().setQuantities([](CellRef cell) -> std::optional<Quantity> {
            if (cell.col == 3) return Quantity::Angle;
            if (cell.col == 4) return Quantity::Plain;
            return std::nullopt;
        });
        const QString block = "99°01′00″\t1,234.5\t99°01′00″\n12.3456\t-2.5 %\t\nα\t１２．５\t\n－3.25\t1,234\t\n";
        QApplication::clipboard()->setText(block);
        w.view().setCurrent("c1");
        const QString before = w.at("c1") + w.at("d1");
        // A number as a sheet reads it is no matter of a design table, nor is what nobody can read.
        withPreview([&] { w.view().paste(); },
                    [&](QWidget& preview) {
                        QCOMPARE(rowsOf(preview), "C1|99°01′00″|99.0100");
                        QCOMPARE(w.at("c1") + w.at("d1"), before);
                        QTest::keyClick(preview.focusWidget(), Qt::Key_Return);
                    });
        QCOMPARE(w.window->sheet().number("c1"), 99.01);
        QCOMPARE(w.window->sheet().number("d1"), 1234.5);
        QCOMPARE(w.at("e1"), "99°01′00″");
        QCOMPARE(w.window->sheet().number("c2"), 12.3456);
        QCOMPARE(w.at("d2"), "-2.5 %");
        QCOMPARE(w.at("c3"), "α");
        QCOMPARE(w.window->sheet().number("d3"), 12.5);
        QCOMPARE(w.window->sheet().number("c4"), -3.25);
        QCOMPARE(w.window->sheet().number("d4"), 1234.0);
        w.action("撤销")->trigger();  // one step
        QCOMPARE(w.at("c1") + w.at("d1"), before);
        w.view().setCurrent("c1");
        withPreview([&] { w.view().paste(); },
                    [](QWidget& preview) { QTest::keyClick(preview.focusWidget(), Qt::Key_Escape); });
        QCOMPARE(w.at("c1") + w.at("d1"), before);
        QVERIFY(!w.action("撤销")->isEnabled());
    }

    // --- History -----------------------------------------------------------------------------------------------------
    void undoAndRedo()
    {
        Window w;
        QVERIFY(!w.action("撤销")->isEnabled());
        w.view().setCurrent("c1");
        w.type("1");
        w.press(Qt::Key_Return);
        w.view().setCurrent("c1");
        w.type("2");
        w.press(Qt::Key_Return);
        w.action("撤销")->trigger();
        QCOMPARE(w.at("c1"), "1");
        w.action("撤销")->trigger();
        QCOMPARE(w.at("c1"), "");
        QVERIFY(!w.action("撤销")->isEnabled());
        w.action("重做")->trigger();
        w.action("重做")->trigger();
        QCOMPARE(w.at("c1"), "2");
        w.action("撤销")->trigger();
        w.view().setCurrent("d1");
        w.type("9");
        w.press(Qt::Key_Return);
        QVERIFY(!w.action("重做")->isEnabled());
    }
    void aChangeByProgramIsOneStepAlsoWhenItFails()
    {
        Window w;
        w.view().setCurrent("c1");
        w.type("1");  // still being typed: it goes into its cell first
        QVERIFY_EXCEPTION_THROWN(w.window->change([](Worksheet& sheet) {
            QCOMPARE(*sheet.number("c1"), 1.0);
            sheet.setText("c1", "one");
            sheet.setNumber("d1", 2);
            throw RunTimeError(RunTimeError::TypeMismatch);
        }),
                                 RunTimeError);
        QCOMPARE(w.at("c1") + w.at("d1"), "one2");
        w.view().undo();
        QCOMPARE(w.at("c1") + w.at("d1"), "1");
        QVERIFY(w.isNumber("c1"));
    }

    // --- Files -------------------------------------------------------------------------------------------------------
    void savesAsXlsAndAsksBeforeOverwriting()
    {
        Window w;
        QTemporaryDir folder;
        const auto path = folder.filePath("表").toStdString();
        w.window->change([](Worksheet& sheet) { sheet.setText("c1", "桩"); });
        QVERIFY(w.window->isUnsaved() && w.window->isWindowModified());
        ScriptedDialogs dialogs;
        dialogs.save(path);
        QVERIFY(w.window->saveAs());
        QVERIFY(!w.window->isUnsaved());
        QFile file(folder.filePath("表.xls"));
        QVERIFY(file.open(QIODevice::ReadOnly));
        QVERIFY(file.readAll().startsWith("\xD0\xCF\x11\xE0"));
        dialogs.save(path + ".xls").no();
        QVERIFY(!w.window->saveAs());
        QCOMPARE(dialogs.last(), (Msg{"文件已存在！是否覆盖？", "注意", Icon::Question, Msg::YesNo, Msg::No}));
        dialogs.cancelSave();
        QVERIFY(!w.window->saveAs());
    }
    void whatIsStillBeingTypedIsSavedToo()
    {
        Window w;
        QTemporaryDir folder;
        ScriptedDialogs dialogs;
        dialogs.save(folder.filePath("a.xls").toStdString());
        w.view().setCurrent("d1");
        w.type("still typing");
        QVERIFY(w.window->saveAs());
        QVERIFY(!w.view().isEditing());
        QFile file(folder.filePath("a.xls"));
        QVERIFY(file.open(QIODevice::ReadOnly));
        QVERIFY(file.readAll().contains("still typing"));
    }
    void aSelectionByProgramShows()
    {
        Window w;
        w.window->change([](Worksheet& sheet) { sheet.select("b4:d5"); });
        QCOMPARE(w.view().selection(), CellRange("b4:d5"));
        QCOMPARE(w.current(), "B4");
    }
    void aFileThatCannotBeWrittenIsSaid()
    {
        Window w;
        ScriptedDialogs dialogs;
        dialogs.save("/no/such/folder/a.xls");
        QVERIFY(!w.window->saveAs());
        QCOMPARE(dialogs.last(), (Msg{"“a.xls”无法写入！\n文件夹不存在", "错误", Icon::Exclamation}));
    }
    void exportsPdf()
    {
        Window w;
        QTemporaryDir folder;
        w.window->change([](Worksheet& sheet) { sheet.setText("c1", "桩"); });
        ScriptedDialogs dialogs;
        dialogs.save(folder.filePath("a.pdf").toStdString());
        w.action("导出PDF")->trigger();
        QFile file(folder.filePath("a.pdf"));
        QVERIFY(file.open(QIODevice::ReadOnly));
        QVERIFY(file.readAll().startsWith("%PDF"));
        QVERIFY(w.window->isUnsaved());  // a picture of the sheet is not the sheet
    }
    void closingAsksForUnsavedWork()
    {
        const Msg question{"工作表尚未保存，是否保存？", "注意", Icon::Question, Msg::YesNo};
        const auto change = [](Window& w) { w.window->change([](Worksheet& sheet) { sheet.setNumber("c1", 1); }); };
        {
            Window w;
            ScriptedDialogs dialogs;  // nothing typed: nothing asked
            QVERIFY(w.window->close());
        }
        {
            Window w;
            change(w);
            ScriptedDialogs dialogs;
            dialogs.no();
            QVERIFY(w.window->close());
            QCOMPARE(dialogs.messages, std::vector<Msg>{question});
        }
        {
            Window w;
            change(w);
            ScriptedDialogs dialogs;
            dialogs.yes().cancelSave();
            QVERIFY(!w.window->close());
            QVERIFY(w.window->isVisible());
        }
        {
            Window w;
            QTemporaryDir folder;
            w.view().setCurrent("c1");
            w.type("1");  // still in the editor
            ScriptedDialogs dialogs;
            dialogs.yes().save(folder.filePath("a.xls").toStdString());
            QVERIFY(w.window->close());
            QVERIFY(QFile::exists(folder.filePath("a.xls")));
        }
    }

    // --- Looks -------------------------------------------------------------------------------------------------------
    void zoomByWheelAndBox()
    {
        Window w;
        const int before = w.view().cellRect("c1").width();
        QWheelEvent wheel(QPointF(200, 200), QPointF(200, 200), {}, QPoint(0, 120), Qt::NoButton, Qt::ControlModifier,
                          Qt::NoScrollPhase, false);
        QApplication::sendEvent(w.view().viewport(), &wheel);
        QCOMPARE(w.window->zoom(), 1.1);
        w.window->setZoom(2);
        QCOMPARE(w.view().cellRect("c1").width(), before * 2);
        w.window->setZoom(100);
        QCOMPARE(w.window->zoom(), 4.0);
    }
    void whatCellsHoldIsSeenAtEveryZoom()
    {
        Window w;
        w.window->change([](Worksheet& sheet) {
            sheet.setInterior("b2", 35);
            sheet.setText("d2", "■■■");
        });
        for (const double zoom : {1.0, 0.5, 1.5, 1.0}) {
            w.window->setZoom(zoom);
            const QImage image = w.view().viewport()->grab().toImage();
            const double ratio = image.devicePixelRatio();
            const auto found = [&](const char* address, auto&& isIt) {
                const QRect rect = w.view().cellRect(address);
                for (int x = rect.left() + 2; x < rect.right() - 1; ++x)
                    for (int y = rect.top() + 2; y < rect.bottom() - 1; ++y)
                        if (const QPoint at = (QPointF(x, y) * ratio).toPoint();
                            image.rect().contains(at) && isIt(image.pixelColor(at)))
                            return true;
                return false;
            };
            QVERIFY2(found("b2", [](QColor c) { return c == QColor(0xCC, 0xFF, 0xCC); }),
                     qPrintable(QString::number(zoom)));
            QVERIFY2(found("d2", [](QColor c) { return c.lightness() < 128; }), qPrintable(QString::number(zoom)));
        }
    }
    void aMergedCellIsFilledWholeAndRuledAround()
    {
        Worksheet sheet;
        sheet.merge("b2:b3");
        sheet.setInterior("b2", 35);
        sheet.borders("b2:b3", xlEdgeBottom, xlContinuous, xlMedium);
        sheet.borders("b2:b3", xlInsideHorizontal, xlContinuous, xlThin);
        const SheetGeometry geometry(sheet, 1, 5, 4);
        QImage image(geometry.size(), QImage::Format_RGB32);
        image.fill(Qt::white);
        QPainter painter(&image);
        paintSheet(painter, sheet, geometry, "a1:d5");
        painter.end();
        const QRect upper = geometry.rect(CellRef("b2")), lower = geometry.rect(CellRef("b3"));
        QCOMPARE(image.pixelColor(upper.center()), QColor(0xCC, 0xFF, 0xCC));
        QCOMPARE(image.pixelColor(lower.center()), QColor(0xCC, 0xFF, 0xCC));
        QCOMPARE(image.pixelColor(lower.topLeft() + QPoint(9, 0)), QColor(0xCC, 0xFF, 0xCC));  // no line inside
        QCOMPARE(image.pixelColor(lower.left() + 9, lower.bottom() + 1), QColor(Qt::black));
        QCOMPARE(image.pixelColor(lower.left() + 9, lower.bottom()), QColor(Qt::black));  // medium: two pixels
    }
    void textsRunOverEmptyNeighboursOnly()
    {
        const auto inkIn = [](const Worksheet& sheet, const char* address) {
            const SheetGeometry geometry(sheet, 1, 3, 6);
            QImage image(geometry.size(), QImage::Format_RGB32);
            image.fill(Qt::white);
            QPainter painter(&image);
            paintSheet(painter, sheet, geometry, "a1:f3");
            painter.end();
            const QRect rect = geometry.rect(CellRef(address));
            int dark = 0;
            for (int x = rect.left(); x <= rect.right(); ++x)
                for (int y = rect.top(); y <= rect.bottom(); ++y) dark += image.pixelColor(x, y).lightness() < 128;
            return dark;
        };
        Worksheet sheet;
        sheet.setText("a1", "fβ允 = ±10√n = ±24″");
        QVERIFY(inkIn(sheet, "b1") > 0);
        sheet.setText("b1", " ");
        QCOMPARE(inkIn(sheet, "b1"), 0);
    }
    void aPageIsAsWideAsTheSheetWhereItIsToFit()
    {
        Worksheet sheet;
        for (int col = 1; col <= 30; ++col) sheet.setNumber({1, col}, col);
        const auto pages = [&] {
            QTemporaryDir folder;
            QPdfWriter writer(folder.filePath("a.pdf"));
            writer.setPageLayout(pageLayout(sheet.page));
            printSheet(sheet, writer);
            QFile file(folder.filePath("a.pdf"));
            return file.open(QIODevice::ReadOnly) ? file.readAll().count("/Type /Page\n") : -1;
        };
        QVERIFY(pages() > 1);
        sheet.page.fitToWidth = true;
        QCOMPARE(pages(), 1);
    }
    void aSheetOfManyRowsIsPaintedAtOnce()
    {
        Worksheet sheet;
        for (int row = 1; row <= 30000; ++row) sheet.setNumber({row, 1}, row);
        SheetWindow window(sheet);
        window.setAttribute(Qt::WA_DeleteOnClose, false);
        window.show();
        window.view().setCurrent("a30000");
        QVERIFY(window.view().viewport()->rect().contains(window.view().cellRect("a30000")));
        QVERIFY(!window.grab().isNull());
    }

    // --- Beside others -----------------------------------------------------------------------------------------------
    void takesInputBesideAModalFormAndOutlivesIt()
    {
        QWidget main;
        main.show();
        Window w;
        {
            Form form("frmSome", "某个窗口", &main);
            form.show();
            QVERIFY(form.isModal());
            QApplication::setActiveWindow(w.window);
            w.view().setFocus();
            w.view().setCurrent("c1");
            // Through the window system, which is where a modal window would block it.
            QTest::keyClick(w.window->windowHandle(), Qt::Key_7);
            QTest::keyClick(w.window->windowHandle(), Qt::Key_Return);
            QCOMPARE(w.at("c1"), "7");
            const QPoint where = w.view().viewport()->mapTo(w.window.data(), w.view().cellRect("d2").center());
            QTest::mouseClick(w.window->windowHandle(), Qt::LeftButton, {}, where);
            QCOMPARE(w.current(), "D2");
            // The window behind the form is blocked.
            QLineEdit field(&main);
            field.show();
            QTest::mouseClick(main.windowHandle(), Qt::LeftButton, {}, field.geometry().center());
            QVERIFY(!field.hasFocus());
            form.unload();
        }
        QVERIFY(w.window->isVisible());
    }
    void afterTheExitTheProcessEndsWithTheLastDocument()
    {
        QList<int> ends;
        auto& end = platform().endProcess;
        const auto before = end;
        end = [&](int code) { ends << code; };
        {
            QWidget main;
            main.show();
            auto* sheet = new SheetWindow(sample());
            sheet->show();
            auto* plan = new DrawingWindow(Drawing{});
            plan->show();
            leaveProgram();
            QVERIFY(!main.isVisible());
            QVERIFY(sheet->isVisible() && plan->isVisible());
            delete sheet;
            QCOMPARE(ends, QList<int>{});
            delete plan;
            QCOMPARE(ends, QList<int>{0});
        }
        leaveProgram();
        QCOMPARE(ends, (QList<int>{0, 0}));
        end = before;
    }
    void aFatalErrorKeepsUnsavedSheetsInFilesThatItNames_data()
    {
        using Throw = std::function<void()>;
        QTest::addColumn<Throw>("fail");
        QTest::addColumn<QString>("says");
        QTest::newRow("run-time error") << Throw([] { throw RunTimeError(RunTimeError::Subscript); })
                                        << QStringLiteral("9");
        QTest::newRow("a file, which is named") << Throw([] {
            throw FileError("/a/项目名称.txt", FileError::Writing, std::make_error_code(std::errc::no_space_on_device));
        }) << QStringLiteral("“/a/项目名称.txt”无法写入：磁盘已满");
        QTest::newRow("out of memory") << Throw([] { throw std::bad_alloc(); }) << QStringLiteral("内存不足");
        QTest::newRow("file system") << Throw([] {
            throw std::filesystem::filesystem_error("look", "/media/stick/a.txt",
                                                    std::make_error_code(std::errc::io_error));
        }) << QStringLiteral("“/media/stick/a.txt”无法读取：读写错误");
    }
    void aFatalErrorKeepsUnsavedSheetsInFilesThatItNames()
    {
        QFETCH(std::function<void()>, fail);
        QFETCH(QString, says);
        QList<int> ends;
        auto& end = platform().endProcess;
        const auto before = end;
        end = [&](int code) { ends << code; };
        {
            Window unsaved, untouched;
            unsaved.window->change([](Worksheet& sheet) { sheet.setNumber("c1", 1); });
            ScriptedDialogs dialogs;
            runHandler(fail);
            QCOMPARE(ends, QList<int>{1});
            const auto text = QString::fromStdString(dialogs.last().text);
            QVERIFY2(text.contains(says), qPrintable(text));
            const QRegularExpression told("未保存的工作表已存入：(.*\\.xls)");
            QCOMPARE(text.count(told), 1);
            const QString path = told.match(text).captured(1);
            QVERIFY2(QFile::exists(path), qPrintable(path));
            QVERIFY(QFile::remove(path));
        }
        end = before;
    }
};

VM_QT_TEST(tst_SheetWindow)
#include "tst_SheetWindow.moc"
