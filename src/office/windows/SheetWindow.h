#pragma once
// A worksheet that is open beside the forms: typed into, changed by program, saved, printed.

#ifndef Q_MOC_RUN  // moc does not read concepts
#include "office/Worksheet.h"
#include "office/windows/SheetPainter.h"
#endif
#include "ui/DocumentWindow.h"

#include <functional>

class SheetView;
class QComboBox;
class QLabel;
class QLineEdit;

class SheetWindow : public DocumentWindow {
    Q_OBJECT
public:
    /// @param sheet what it starts with, no work to be saved
    explicit SheetWindow(Worksheet sheet, const QString& title = QStringLiteral("工作表"));

    const Worksheet& sheet() const;
    SheetView& view() { return *m_view; }
    /// A program's change: shown when it ends, however it ends; one step for undo; unsaved work.
    void change(const std::function<void(Worksheet&)>& body);
    void setPrint(const SheetPrint& how) { m_print = how; }
    double zoom() const { return m_zoom; }
    void setZoom(double zoom);  ///< 1 is as large as on paper; 0.25 to 4

protected:
    void settle() override;
    std::string fileBytes() const override;
    QPageLayout page() const override;
    void print(QPagedPaintDevice& device) const override;

private:
    QComboBox* makeZoomBox();
    void showCurrent();

    SheetView* m_view;
    QLabel* m_address;
    QLineEdit* m_entry;
    QAction *m_undo, *m_redo;
    QComboBox* m_zoomBox;
    double m_zoom = 1;
    SheetPrint m_print;
};
