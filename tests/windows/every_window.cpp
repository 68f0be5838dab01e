// Every window of the program on the screen that the platform gives: each control inside window and screen, nothing
// cut, nothing overlapping; when it opens, with every option set, at its smallest, and as large as the screen.

#include "support/EveryWindow.h"
#include "support/QtTests.h"
#include "ui/GridHeader.h"
#include "ui/MSFlexGrid.h"

#include <QGroupBox>
#include <QLabel>
#include <QMenuBar>
#include <QRadioButton>
#include <QScreen>
#include <QScrollBar>
#include <QToolBar>
#include <QToolButton>
#include <QtTest>

#include <set>

namespace {

constexpr int kTitleBar = 30, kTaskBar = 40, kBorder = 2;  // what a desktop takes beside a window's content

/// What the eye takes for one control.
bool isControl(const QWidget& widget)
{
    if (widget.objectName().startsWith(u"qt_") && !qobject_cast<const QToolButton*>(&widget)) return false;
    for (const auto* type : {"XPButton", "QLineEdit", "QComboBox", "QCheckBox", "QRadioButton", "QLabel", "QGroupBox",
                             "QAbstractItemView", "QToolButton", "QPushButton", "QMenuBar", "frmJgwDrawing"})
        if (widget.inherits(type)) return true;
    return false;
}

bool isGroup(const QWidget& widget) { return qobject_cast<const QGroupBox*>(&widget); }

/// Controls that can be seen, none of them a part of another.
QList<QWidget*> controlsOf(const QWidget& window)
{
    QList<QWidget*> found;
    for (auto* widget : window.findChildren<QWidget*>()) {
        if (!widget->isVisible() || widget->window() != &window || !isControl(*widget)) continue;
        bool part = false;
        for (const auto* over = widget->parentWidget(); over != &window; over = over->parentWidget())
            part = part || (isControl(*over) && !isGroup(*over));
        if (!part) found << widget;
    }
    return found;
}

QRect placeOf(const QWidget& control) { return {control.mapTo(control.window(), QPoint()), control.size()}; }

QString nameOf(const QWidget& control)
{
    QString text = control.property("text").toString();
    if (const auto* button = qobject_cast<const XPButton*>(&control)) text = button->Caption();
    if (const auto* group = qobject_cast<const QGroupBox*>(&control)) text = group->title();
    const auto r = placeOf(control);
    return QStringLiteral("%1 %2 “%3” (%4,%5 %6x%7)")
        .arg(QString::fromLatin1(control.metaObject()->className()), control.objectName(), text)
        .arg(r.x())
        .arg(r.y())
        .arg(r.width())
        .arg(r.height());
}

/// What a control needs to show its text.
QSize textRoom(const QWidget& control)
{
    const QFontMetrics metrics(control.font());
    if (const auto* button = qobject_cast<const XPButton*>(&control))
        return {metrics.horizontalAdvance(button->Caption()) + 8, metrics.height() + 4};
    if (const auto* label = qobject_cast<const QLabel*>(&control)) {
        if (!label->pixmap(Qt::ReturnByValue).isNull() || label->text().isEmpty()) return {};
        if (label->wordWrap()) return {0, label->heightForWidth(label->width())};
        return label->sizeHint();
    }
    if (const auto* group = qobject_cast<const QGroupBox*>(&control))
        return {metrics.horizontalAdvance(group->title()) + 8, metrics.height()};
    if (const auto* box = qobject_cast<const QLineEdit*>(&control))
        return {metrics.horizontalAdvance(box->text()) + 8, metrics.height() + 4};
    if (const auto* list = qobject_cast<const QComboBox*>(&control))
        return {metrics.horizontalAdvance(list->currentText()) + 28, metrics.height() + 4};
    if (qobject_cast<const QAbstractItemView*>(&control)) return {160, 4 * metrics.height()};
    if (qobject_cast<const QAbstractButton*>(&control)) return control.sizeHint();
    return {1, 1};
}

QStringList faultsOf(QWidget& window)
{
    QStringList faults;
    const auto controls = controlsOf(window);
    for (const auto* control : controls) {
        const QRect place = placeOf(*control);
        for (const auto* over = control->parentWidget(); over; over = over->isWindow() ? nullptr : over->parentWidget())
            if (!over->rect().contains(QRect(control->mapTo(over, QPoint()), control->size())))
                faults << nameOf(*control) + QStringLiteral(" lies beyond ") + over->objectName();
        const QSize needed = textRoom(*control);
        if (needed.width() > place.width() || needed.height() > place.height())
            faults << nameOf(*control) +
                          QStringLiteral(" is cut: needs %1x%2").arg(needed.width()).arg(needed.height());
        for (const auto* other : controls) {
            if (qobject_cast<const QLabel*>(control) && qobject_cast<const XPButton*>(other) &&
                place.adjusted(-7, 0, 7, 0).intersects(placeOf(*other)))
                faults << nameOf(*control) + QStringLiteral(" touches ") + nameOf(*other);
            else if (control < other && !isGroup(*control) && !isGroup(*other) && place.intersects(placeOf(*other)))
                faults << nameOf(*control) + QStringLiteral(" overlaps ") + nameOf(*other);
        }
    }
    return faults;
}

/// Edges of a control along which no line is seen.
QStringList brokenBorders(QWidget& window)
{
    const QImage image = window.grab().toImage();
    const double ratio = image.devicePixelRatio();
    const auto isLine = [&](QPointF at) {
        const QPoint pixel = (at * ratio).toPoint();
        return image.rect().contains(pixel) && qGray(image.pixel(pixel)) < 200;
    };
    QStringList broken;
    for (const auto* control : controlsOf(window)) {
        const auto* label = qobject_cast<const QLabel*>(control);
        if (!control->inherits("QLineEdit") && !control->inherits("QAbstractItemView") &&
            !control->inherits("XPButton") && !(label && label->frameShape() == QFrame::StyledPanel))
            continue;
        const QRectF r = placeOf(*control);
        const struct {
            const char* name;
            QPointF middle, inwards;
        } edges[] = {{"left", {r.left(), r.center().y()}, {1, 0}},
                     {"right", {r.right(), r.center().y()}, {-1, 0}},
                     {"bottom", {r.center().x(), r.bottom()}, {0, -1}}};
        for (const auto& [name, middle, inwards] : edges) {
            bool seen = false;
            for (double depth = -1; depth <= 2.5; depth += 0.5 / ratio) seen = seen || isLine(middle + inwards * depth);
            if (!seen) broken << nameOf(*control) + QStringLiteral(" has no %1 border").arg(QString::fromUtf8(name));
        }
    }
    return broken;
}

/// The largest content that a window may have on its screen.
QSize roomOn(const QScreen& screen) { return screen.size() - QSize(2 * kBorder, kTitleBar + kTaskBar); }

QStringList beyondTheScreen(const QWidget& window)
{
    const QSize room = roomOn(*window.screen());
    if (window.width() <= room.width() && window.height() <= room.height()) return {};
    return {QStringLiteral("%1x%2 where the screen has %3x%4")
                .arg(window.width())
                .arg(window.height())
                .arg(room.width())
                .arg(room.height())};
}

void setEveryOption(const QWidget& window)
{
    for (auto* check : window.findChildren<QCheckBox*>()) check->setChecked(true);
    QApplication::processEvents();
}

void resizeTo(QWidget& window, QSize size)
{
    window.resize(size);
    QApplication::processEvents();
    QApplication::sendPostedEvents();
}

/// Faults by window and state.
QMap<QString, QStringList> survey()
{
    QMap<QString, QStringList> faults;
    forEveryWindow([&](QWidget& window) {
        const auto ask = [&](const char* state, const QStringList& found) {
            if (!found.isEmpty()) faults[window.objectName() + QStringLiteral(", ") + QString::fromUtf8(state)] = found;
        };
        ask("opened", beyondTheScreen(window) + faultsOf(window));
        setEveryOption(window);
        ask("every option set", beyondTheScreen(window) + faultsOf(window));
        const QSize opened = window.size();
        resizeTo(window, {1, 1});
        ask("smallest", beyondTheScreen(window) + faultsOf(window));
        resizeTo(window, roomOn(*window.screen()));
        ask("maximised", faultsOf(window));
        resizeTo(window, opened);
        ask("back again", faultsOf(window));
    });
    return faults;
}

}  // namespace

class tst_EveryWindow : public QObject {
    Q_OBJECT
private slots:
    void initTestCase() { applyTheme(*qApp); }

    void everyControlIsInSightAndUncut()
    {
        const auto faults = survey();
        for (auto state = faults.begin(); state != faults.end(); ++state)
            for (const auto& fault : state.value()) qWarning("%s: %s", qPrintable(state.key()), qPrintable(fault));
        QCOMPARE(faults.keys(), QStringList());
    }

    void bordersAreWhole()
    {
        QStringList broken;
        forEveryWindow([&](QWidget& window) {
            for (const auto& fault : brokenBorders(window)) broken << window.objectName() + u' ' + fault;
        });
        for (const auto& fault : broken) qWarning("%s", qPrintable(fault));
        QCOMPARE(broken, QStringList());
    }

    void theLastColumnReachesTheEdgeOrIsScrolledTo()
    {
        forEveryWindow([&](QWidget& window) {
            for (auto* grid : window.findChildren<MSFlexGrid*>()) {
                const int right = grid->cellRect(0, grid->Cols() - 1).right(),
                          edge = grid->viewport()->geometry().right();
                QVERIFY2(right == edge || (right > edge && grid->horizontalScrollBar()->maximum() > 0),
                         qPrintable(window.objectName()));
            }
        });
    }

    void headerWordsAreNotBrokenOffByOneCharacter()
    {
        forEveryWindow([&](QWidget& window) {
            for (auto* grid : window.findChildren<MSFlexGrid*>())
                for (int col = 1; col < grid->Cols(); ++col) {
                    const int width = grid->cellRect(0, col).width() - 4;
                    const auto lines = evenLines(grid->TextMatrix(0, col), grid->fontMetrics(), width).split(u'\n');
                    for (const auto& line : lines) {
                        QVERIFY(grid->fontMetrics().horizontalAdvance(line) <= width);
                        QVERIFY2(lines.size() == 1 || line.size() > 2, qPrintable(lines.join(u'|')));
                    }
                }
        });
    }

    void resultGridsScrollByRows()
    {
        int asked = 0;
        forEveryWindow([&](QWidget& window) {
            if (!window.inherits("ScreenForm")) return;
            auto* grid = window.findChild<MSFlexGrid*>();
            window.resize(1, 1);
            QApplication::processEvents();
            for (int step = 0; step <= grid->verticalScrollBar()->maximum(); ++step) {
                grid->verticalScrollBar()->setValue(step);
                QCOMPARE(grid->rowViewportPosition(grid->rowAt(0)), 0);
                ++asked;
            }
            const QRect last = grid->cellRect(grid->Rows() - 1, 1);
            QVERIFY(grid->Rows() == 1 || grid->viewport()->geometry().bottom() >= last.bottom());
        });
        QVERIFY(asked > 10);
    }

    void theMainPointsOpenWithEveryCurveInSight()
    {
        int asked = 0;
        forEveryWindow([&](QWidget& window) {
            if (window.objectName() != u"frmZdcs") return;
            auto* grid = window.findChild<MSFlexGrid*>();
            QVERIFY(grid->Rows() > 10);
            QCOMPARE(grid->verticalScrollBar()->maximum(), 0);
            grid->horizontalScrollBar()->setValue(grid->horizontalScrollBar()->maximum());
            auto* pinned = window.findChild<QWidget*>(QStringLiteral("pinnedColumn"));
            QVERIFY(pinned && pinned->isVisible());
            QCOMPARE(pinned->x(), grid->viewport()->x());
            ++asked;
        });
        QCOMPARE(asked, 1);
    }

    /// No window of the sources is left out.
    void allWindowsWereSeen()
    {
        QSet<QString> seen;
        forEveryWindow([&](const QWidget& window) { seen << window.objectName(); });
        QDirIterator sources(QStringLiteral(VM_SOURCE_DIR "/src"), {QStringLiteral("frm*.h")}, QDir::Files,
                             QDirIterator::Subdirectories);
        QStringList missing;
        while (sources.hasNext()) {
            const QString form = QFileInfo(sources.next()).baseName();
            if (form != u"frmJgwDrawing" && !seen.contains(form)) missing << form;
        }
        QCOMPARE(missing, QStringList());
    }
};

VM_QT_TEST(tst_EveryWindow)
#include "every_window.moc"
