#pragma once
// What a paste has converted, as the person sees it before it is taken.

#include "ui/MSFlexGrid.h"

#include <QApplication>
#include <QPointer>
#include <QTimer>
#include <QtTest>

#include <functional>

/// Rows of the preview with "/" between, cells with "|".
inline QString rowsOf(const QWidget& preview)
{
    const auto* grid = preview.findChild<MSFlexGrid*>(QStringLiteral("MsfgZt"));
    QStringList rows;
    for (int row = 1; row < grid->Rows(); ++row)
        rows << grid->TextMatrix(row, 1) + u'|' + grid->TextMatrix(row, 2) + u'|' + grid->TextMatrix(row, 3);
    return rows.join(u'/');
}

/// While `paste` shows the preview, `use` works on it; it is closed if that leaves it open.
inline void withPreview(const std::function<void()>& paste, const std::function<void(QWidget&)>& use)
{
    bool shown = false;
    QTimer::singleShot(0, qApp, [&] {
        const QPointer<QWidget> preview = QApplication::activeModalWidget();
        if (!preview || preview->objectName() != u"frmZt") return;
        shown = true;
        use(*preview);
        if (preview) preview->close();
    });
    paste();
    QVERIFY2(shown, "no preview came up");
}
