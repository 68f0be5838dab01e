#pragma once
// The base of the calculation windows: a result grid with its row counter and data-changed flag, the buttons that every
// screen has, the wait box of a save, the question at closing, the instrument station.

#include "controls/XPButton.h"
#include "dialogs/ResultTable.h"
#include "screens/Columns.h"
#include "screens/Export.h"
#include "screens/Station.h"
#include "screens/windows/ResultPaper.h"
#include "screens/windows/RoadLine.h"
#include "ui/Form.h"
#include "ui/Layout.h"
#include "ui/MSFlexGrid.h"
#include "ui/QuietLine.h"

#include <QCheckBox>

#include <functional>
#include <optional>
#include <span>
#include <vector>

/// What a screen is made of, its given names first.
struct ScreenParts {
    const char* form;
    QString caption;
    const char* grid;
    const char* del = nullptr;  ///< nullptr: no such button
    const char* save;
    const char* back;
    const char* wait;
    QString saveCaption = QStringLiteral("保 存");
    QString backCaption = QStringLiteral("返 回");
    std::span<const GridColumn> columns;
    const ExportLayout& layout;
    QString hint = {};  ///< grey text of the empty grid
};

/// Given names of a form's station controls.
struct StationNames {
    const char *pick, *typed, *x, *y;
};

class ScreenForm : public Form {
    Q_OBJECT
protected:
    explicit ScreenForm(const ScreenParts& parts);

    /// A handler that hands rows over: they appear in the grid; a refusal is shown when they all stand there.
    void run(const std::function<Outcome(RowSink&)>& handler);
    void deleteRow();
    void save();
    bool askToSave();
    /// What the save reads; a screen adds what it has of its own.
    virtual ExportData exportData()
    {
        return {.grid = results->text(),
                .rows = results->state.rows,
                .stationPick = station.pick ? toUtf8(station.pick->Text()) : "",
                .caption = toUtf8(windowTitle())};
    }
    virtual ScreenState* savedState() { return &results->state; }

    /// The grid with its header row alone.
    void Form_Load() override;
    /// Asks about unsaved results; the window goes in any case.
    void Form_Unload() override;

    QLineEdit* box(const char* name, KeySet keys, const QString& tip);        ///< a number box
    QLineEdit* lockedBox(const char* name, KeySet keys, const QString& tip);  ///< one that starts locked
    /// A box for a stake of the road; says which stakes that has.
    enum class Of { Alignment, Profile };
    enum class Shows { Range, First, Last };  ///< as grey text of the empty box
    QLineEdit* stakeBox(const char* name, Of group, Shows shows);
    XPButton* button(const char* name, const QString& caption);
    QCheckBox* check(const char* name, const QString& caption);
    /// Locks and empties the box, or opens it and gives it the focus.
    static void open(QLineEdit* box, bool opened);
    /// The box is open, with the focus, while the check box is ticked, else locked and empty.
    void opensBox(QCheckBox* check, QLineEdit* box);
    /// The pick list of sides that opens the offset box for 左边桩 and 右边桩. Typing sets it back to 中桩.
    PickList* sidePicker(const char* name);
    static void sidePicked(const PickList* side, QLineEdit* offset);

    /// The station controls, in their frame.
    QWidget* stationFrame(const StationNames& names);
    StationInput readStation() const;
    /// The whole window: these fields, the grid, and a row of these buttons with those that every screen has.
    /// @param reads  the button that runs a file: a text file dropped on the window presses it; nullptr: there is none
    void layOut(std::vector<ui::Piece> fields, std::vector<QWidget*> buttons, XPButton* reads = nullptr);

    /// F5 calculates, from any field, and Ctrl+S saves, as their buttons do.
    bool commandKey(const QKeyCombination& key) override;

    RoadLine* road = nullptr;  ///< above the fields
    XPButton* calc = nullptr;  ///< what F5 presses: the first of the buttons handed to layOut
    MSFlexGrid* grid = nullptr;
    QuietLine* told = nullptr;  ///< under the grid: what became of a file, what a save writes otherwise than the rows
    std::optional<ResultTable> results;  ///< the rows of the grid
    XPButton *del = nullptr, *saving = nullptr, *back = nullptr;
    QLineEdit* wait = nullptr;
    struct {
        PickList* pick = nullptr;
        QCheckBox* typed = nullptr;
        QLineEdit *x = nullptr, *y = nullptr;
    } station;

private:
    void tell(const std::string& ofSave);
    void calculate();
    ResultPaper paper();

    const ScreenParts m_parts;
    std::string m_told;  // of the last run
    bool m_toldDoubtful = false;
    bool m_running = false;
    bool m_grew = false;  // the last run added rows and refused nothing
    QLineEdit* m_first = nullptr;
};

inline std::string textOf(const QLineEdit* box) { return toUtf8(box->text()); }
