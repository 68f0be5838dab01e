// The window of a plan: what it shows, how it is zoomed and moved, what it writes.

#include "office/windows/DrawingWindow.h"
#include "support/FailingCalls.h"
#include "support/QtTests.h"
#include "support/ScriptedDialogs.h"
#include "ui/Theme.h"

#include <QLabel>
#include <QPainter>
#include <QTemporaryDir>
#include <QtTest>

namespace {

Drawing sample()
{
    Drawing drawing;
    drawing.styles.push_back({"样式", "宋体", true, true, 1, 17});
    drawing.blocks.push_back({"三角形", {5, 0}, {Drawing::Polyline{{{0, 0}, {10, 0}, {5, 5}, {0, 0}}}}});
    drawing.entities = {Drawing::Polyline{{{0, 0}, {1000, 0}, {1000, 500}}}, Drawing::Circle{{1000, 500}, 50},
                        Drawing::Insert{"三角形", {500, 200}, 20, 0}, Drawing::Text{{100, 300}, 100, "点A", "样式"}};
    return drawing;
}

struct Window {
    DrawingWindow window{sample(), "图"};
    Window()
    {
        window.setAttribute(Qt::WA_DeleteOnClose, false);
        window.show();
    }
    DrawingView& view() { return window.view(); }
};

bool near(QPointF a, QPointF b) { return QLineF(a, b).length() < 1e-6; }

/// How many dark pixels there are within a box of the plan.
int ink(const QImage& image, const QTransform& toDevice, QRectF box)
{
    const QRect rect = toDevice.mapRect(box).toAlignedRect();
    int dark = 0;
    for (int x = rect.left(); x <= rect.right(); ++x)
        for (int y = rect.top(); y <= rect.bottom(); ++y) dark += image.pixelColor(x, y).lightness() < 128;
    return dark;
}

}  // namespace

class tst_DrawingWindow : public QObject {
    Q_OBJECT
private slots:
    void initTestCase() { applyTheme(*qApp); }

    void showsEverythingAtStart()
    {
        Window w;
        const QRectF room = w.view().rect();
        for (const Drawing::Point point : {Drawing::Point{0, 0}, {1000, 0}, {1050, 550}, {950, 500}})
            QVERIFY(room.contains(w.view().shownAt(point)));
        // As large as fits, and y goes up.
        QVERIFY(w.view().scale() * 1050 > room.width() * 0.85 || w.view().scale() * 550 > room.height() * 0.85);
        QVERIFY(w.view().shownAt({0, 500}).y() < w.view().shownAt({0, 0}).y());
        w.window.resize(500, 400);
        QVERIFY(QRectF(w.view().rect()).contains(w.view().shownAt({1050, 550})));
    }
    void wheelZoomsAtTheCursor()
    {
        Window w;
        const QPointF where(300, 200), before = w.view().drawnAt(where);
        const double scale = w.view().scale();
        const auto turn = [&](int delta) {
            QWheelEvent wheel(where, where, {}, QPoint(0, delta), Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase,
                              false);
            QApplication::sendEvent(&w.view(), &wheel);
        };
        turn(120);
        QVERIFY(w.view().scale() > scale);
        QVERIFY(near(w.view().drawnAt(where), before));
        turn(-120);
        QVERIFY(qAbs(w.view().scale() - scale) < 1e-9);
        for (int i = 0; i < 400; ++i) turn(-1200);
        QVERIFY(w.view().scale() > 0);
        w.view().zoomExtents();
        QCOMPARE(w.view().scale(), scale);
    }
    void draggingMovesThePlan()
    {
        Window w;
        const QPointF before = w.view().shownAt({0, 0});
        QTest::mousePress(&w.view(), Qt::LeftButton, {}, {100, 100});
        QMouseEvent drag(QEvent::MouseMove, QPointF(130, 90), QPointF(130, 90), Qt::NoButton, Qt::LeftButton, {});
        QApplication::sendEvent(&w.view(), &drag);
        QTest::mouseRelease(&w.view(), Qt::LeftButton, {}, {130, 90});
        QVERIFY(near(w.view().shownAt({0, 0}), before + QPointF(30, -10)));
        QVERIFY(w.window.findChild<QLabel*>("place")->text().startsWith("x "));
        QTest::mouseDClick(&w.view(), Qt::LeftButton, {}, {100, 100});
        QVERIFY(near(w.view().shownAt({0, 0}), before));
    }
    void keysMoveAndZoom()
    {
        Window w;
        const QPointF before = w.view().shownAt({0, 0});
        const double scale = w.view().scale();
        QTest::keyClick(&w.view(), Qt::Key_Right);
        QVERIFY(w.view().shownAt({0, 0}).x() < before.x());
        QTest::keyClick(&w.view(), Qt::Key_Plus);
        QVERIFY(w.view().scale() > scale);
        w.window.findChild<QAction*>("全图")->trigger();
        QVERIFY(near(w.view().shownAt({0, 0}), before));
    }
    void everyKindOfEntityIsDrawnWhereItStands()
    {
        QImage image(1200, 800, QImage::Format_RGB32);
        image.fill(Qt::white);
        const QTransform toDevice(1, 0, 0, -1, 100, 700);
        QPainter painter(&image);
        paintDrawing(painter, sample(), toDevice, 1);
        painter.end();
        QVERIFY(ink(image, toDevice, {495, -2, 10, 4}) > 5);    // the line along y = 0
        QVERIFY(ink(image, toDevice, {948, 495, 4, 10}) > 5);   // left of the circle
        QCOMPARE(ink(image, toDevice, {970, 510, 20, 20}), 0);  // within it
        QVERIFY(ink(image, toDevice, {480, 198, 40, 4}) > 20);  // the foot of the triangle, its middle at 500
        QVERIFY(ink(image, toDevice, {498, 296, 4, 6}) > 0);    // its top, 5 * 20 higher
        // Text: a capital letter is as high as its height says, from its base line up.
        QVERIFY(ink(image, toDevice, {100, 301, 250, 98}) > 1000);
        QVERIFY(ink(image, toDevice, {250, 380, 100, 25}) > 0);
        QCOMPARE(ink(image, toDevice, {100, 425, 250, 20}), 0);
    }
    void emptyAndSinglePointPlansAreShown()
    {
        for (const auto& drawing : {Drawing{}, [] {
                                        Drawing one;
                                        one.entities = {Drawing::Polyline{{{5, 5}, {5, 5}}}};
                                        return one;
                                    }()}) {
            DrawingWindow window(drawing);
            window.setAttribute(Qt::WA_DeleteOnClose, false);
            window.show();
            QVERIFY(window.view().scale() > 0);
            QVERIFY(!window.grab().isNull());
        }
    }
    void savesDxfPdfAndPng()
    {
        Window w;
        QTemporaryDir folder;
        QVERIFY(w.window.isUnsaved());
        ScriptedDialogs dialogs;
        const auto path = [&](const char* name) { return folder.filePath(name).toStdString(); };
        dialogs.save(path("a")).save(path("b.pdf")).save(path("c.png"));
        QVERIFY(w.window.saveAs());
        QVERIFY(!w.window.isUnsaved());
        w.window.findChild<QAction*>("导出PDF")->trigger();
        w.window.findChild<QAction*>("导出PNG")->trigger();
        QFile dxf(folder.filePath("a.dxf")), pdf(folder.filePath("b.pdf"));
        QVERIFY(dxf.open(QIODevice::ReadOnly) && pdf.open(QIODevice::ReadOnly));
        QVERIFY(dxf.readAll().trimmed().endsWith("EOF"));
        QVERIFY(pdf.readAll().startsWith("%PDF"));
        const QImage png(folder.filePath("c.png"));
        QVERIFY(ink(png, {}, QRectF(0, 0, png.width() - 1, png.height() - 1)) > 1000);
        QCOMPARE(dialogs.filters, (std::vector<std::string>{"(*.dxf)|*.dxf|", "(*.pdf)|*.pdf|", "(*.png)|*.png|"}));
    }
    void aDiskThatFillsUpLeavesTheOldPlanPrintAndPicture()
    {
        Window w;
        QTemporaryDir folder;
        ScriptedDialogs dialogs;
        const std::pair<const char*, const char*> commands[] = {
            {"另存为", "a.dxf"}, {"导出PDF", "b.pdf"}, {"导出PNG", "c.png"}};
        for (const auto& [command, name] : commands) {
            const auto path = folder.filePath(QString::fromUtf8(name));
            QFile old(path);
            QVERIFY(old.open(QIODevice::WriteOnly) && old.write("old") == 3);
            old.close();
            dialogs.save(path.toStdString()).yes();
            {
                const FailingCalls full([](const Call& call) { return call.name == "write" ? ENOSPC : 0; });
                w.window.findChild<QAction*>(QString::fromUtf8(command))->trigger();
            }
            QCOMPARE(dialogs.last(),
                     (Msg{"“" + std::string(name) + "”无法写入！\n磁盘已满", "错误", Icon::Exclamation}));
            QVERIFY(old.open(QIODevice::ReadOnly));
            QCOMPARE(old.readAll(), QByteArray("old"));
        }
        QCOMPARE(QDir(folder.path()).entryList(QDir::Files | QDir::Hidden).size(), 3);
        QVERIFY(w.window.isUnsaved());
    }
    void closingAsksForAnUnsavedPlan()
    {
        Window w;
        ScriptedDialogs dialogs;
        dialogs.no();
        QVERIFY(w.window.close());
        QCOMPARE(dialogs.last(), (Msg{"图形尚未保存，是否保存？", "注意", Icon::Question, Msg::YesNo}));
    }
};

VM_QT_TEST(tst_DrawingWindow)
#include "tst_DrawingWindow.moc"
