#pragma once
// The pattern of the eleven grid editors: a grid, one in-cell text box on the form, a row of buttons. What differs
// stands in the EditorTable.

#include "editors/EditorFile.h"
#include "editors/EditorRules.h"
#include "editors/EditorTable.h"
#include "editors/TextPlace.h"
#include "editors/windows/EditHistory.h"
#include "ui/Form.h"

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <vector>

class MSFlexGrid;
class QBoxLayout;
class QKeyEvent;
class QLayout;
class QLineEdit;
class RoadLine;
class XPButton;

class EditorForm : public Form {
    Q_OBJECT
public:
    explicit EditorForm(EditorTable table, QWidget* parent = nullptr);

    // The cell that the in-cell box belongs to, whatever the grid's current cell has become; 0 before the first one.
    std::int16_t CurRow = 0, CurCol = 0;
    bool Edited = false;        ///< an input box has changed since the load or the last save
    bool EnterStarted = false;  ///< Enter has been pressed in the window

    const EditorTable& table() const { return m_table; }

    /// Once the form is shown, the cell of that place is entered as a click enters it, without the rule of the mouse;
    /// of the lines above and below the rows, the box gets the focus. A place that the form does not show changes
    /// nothing.
    void openAt(const TextPlace& place);

protected:
    /// A further button of the window, placed before 返 回 and 保 存.
    XPButton* addButton(const char* name, const QString& caption);

    void Form_Load() override;
    bool QueryUnload() override;
    bool Form_KeyPress(int keyAscii) override;
    bool commandKey(const QKeyCombination& key) override;
    bool commandRepeats(const QKeyCombination& key) const override;
    void Form_Resize() override;
    void changeEvent(QEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    // Handlers.
    void Grid_Click();
    void Grid_RowColChange();
    void Grid_Scroll();
    void CommitCell();
    void cmdInsert_Click();
    void cmdDel_Click();
    void cmdBack_Click();
    void cmdSave_Click();

    // Parts of handlers.
    /// False where CurRow cannot name the row of an overlong file: the box belongs to no cell then.
    bool enterCell(int row, int col);
    bool takeCell(int row, int col);
    void hideBox();
    void applyMouseRule();
    void fillIn(int row, MouseRule branch);
    void enterMovesOn();
    bool askToSave();
    void addRow();
    void showCellText();
    void writeCell(int row, int col, const std::string& text);
    QString cellText(int row, int col) const;
    std::string boxText() const;
    bool boxHasCell() const;

    // Comfort.
    struct CellPlace {
        int row, col;
    };
    void showRoad();
    void placeBox();
    void scrollToBox();
    bool boxNeeds(const QKeyEvent& key) const;
    CellPlace activeCell() const;
    bool moveByKey(const QKeyEvent& key);
    bool amendCell();
    bool stepBack(bool back);
    void enterChanged(const EditStep& step);
    void copyAll();
    void addToGridMenu();
    void typeIntoCell(QKeyEvent& key);
    std::function<bool(int)> keysOf(int col) const;
    bool paste(QObject* into, const QString& text);
    bool pasteBlock(const QString& text);
    bool pasteOverFrames(std::size_t at, const QString& text);
    bool pasteEvent(QObject* watched, QEvent* event);
    void showBoxMenu(const QPoint& at);
    void showFrameMenu(QLineEdit& box, const QPoint& at);

    void makeControls();
    QLayout* makeFrames();

    EditorTable m_table;
    RoadLine* m_road = nullptr;
    MSFlexGrid* m_grid = nullptr;
    QLineEdit* m_box = nullptr;
    std::vector<QLineEdit*> m_frameBoxes;
    QBoxLayout* m_buttons = nullptr;
    std::vector<KeptBytes> m_keptFrames;  // see EditorContent
    std::unique_ptr<EditHistory> m_history;
    std::string m_asRead;  // the file's bytes at the load or the last save
};

/// Runs after each 保 存 of an editor that has written its file, when its box is gone. An empty one takes it back.
void WhenSaved(std::function<void()> run);
