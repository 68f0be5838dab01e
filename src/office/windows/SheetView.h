#pragma once
// A sheet on the screen, typed into directly: the keys, the mouse and the clipboard work as in a spreadsheet.

#ifndef Q_MOC_RUN  // moc does not read concepts
#include "base/DesignNumber.h"
#include "office/Worksheet.h"
#include "office/windows/SheetPainter.h"
#endif

#include <QAbstractScrollArea>

#include <functional>
#include <optional>
#include <vector>

class QLineEdit;

class SheetView : public QAbstractScrollArea {
    Q_OBJECT
public:
    explicit SheetView(Worksheet sheet, QWidget* parent = nullptr);

    const Worksheet& sheet() const { return m_sheet; }
    /// A program's change, shown when it ends, also by an exception. Undo takes its values back in one step.
    void change(const std::function<void(Worksheet&)>& body);

    CellRef current() const { return m_geometry.area(m_active).first; }
    CellRange selection() const;
    void setCurrent(CellRef cell);
    void select(CellRef from, CellRef to);
    QRect cellRect(CellRef cell) const;  ///< of a cell or the merged cell that holds it, in the viewport
    void setZoom(double zoom);

    QString entryText() const;        ///< what the current cell holds, as one would type it
    void enter(const QString& text);  ///< as typed into the current cell
    void edit(const QString& text);   ///< opens the editor in the current cell
    bool isEditing() const;
    void commit();  ///< what is being typed goes into its cell

    bool canUndo() const { return m_done > 0; }
    bool canRedo() const { return m_done < m_steps.size(); }
    void undo();
    void redo();
    void copy() const;
    void cut();
    void paste();
    /// What cells measure: a pasted number that a design table printed in its own way is converted there, and shown
    /// before it goes in. Any other text goes in as it is.
    void setQuantities(std::function<std::optional<Quantity>(CellRef)> quantities);
    void clear();  ///< the contents of the selection
    void selectAll();

signals:
    void changed();                  ///< contents, by whatever means
    void currentChanged();           ///< the current cell or what it holds
    void zoomWanted(double factor);  ///< by Ctrl and the wheel

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void inputMethodEvent(QInputMethodEvent* event) override;
    QVariant inputMethodQuery(Qt::InputMethodQuery query) const override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void scrollContentsBy(int dx, int dy) override;
    bool focusNextPrevChild(bool next) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    struct Edit {
        CellRef cell;
        CellValue before, after;
    };
    using Step = std::vector<Edit>;
    enum class Editing { No, Typing, Amending };  ///< arrows leave the cell while typing and move within while amending

    QPoint origin() const;  ///< of the sheet's corner, in the viewport
    int headWidth() const;
    int headHeight() const;
    void measure();
    void reveal(const CellRange& cells);
    void move(int down, int right, bool extend);
    void leave(int down, int right);
    void jump(CellRef cell, bool extend);
    void startEditing(const QString& text, Editing how);
    void placeEditor();
    bool editorKey(const QKeyEvent& event);
    static bool isNumber(const QString& text);  ///< typed into a cell it becomes one
    void put(CellRef cell, const QString& text, Step& step);
    void store(CellRef cell, const CellValue& value);
    void done(Step step);
    void show(const Step& step, bool after);
    void updateAll();
    void paintHeads(QPainter& painter, const CellRange& cells);
    void paintSelection(QPainter& painter);

    std::function<std::optional<Quantity>(CellRef)> m_quantities = [](CellRef) { return std::nullopt; };
    Worksheet m_sheet;
    SheetGeometry m_geometry;  // in pixels of the window
    SheetGeometry m_ink;       // in pixels of the screen; made when painted
    double m_zoom = 1;
    CellRef m_anchor, m_active;
    Editing m_editing = Editing::No;
    QLineEdit* m_editor;
    std::vector<Step> m_steps;
    std::size_t m_done = 0;
};
