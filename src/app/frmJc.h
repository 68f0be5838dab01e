#pragma once

#include "ui/Form.h"

#include <QTimer>

class CheckTurns;
class MSFlexGrid;
class QuietLine;
class RoadLine;

/// What the check finds in the files of the project. A double click or Enter on a finding opens the wizard with its
/// option, and the editor over it at the row that it names.
class frmJc : public Form {
    Q_OBJECT
public:
    /// @param turns  its findings are shown; without any it begins anew
    explicit frmJc(CheckTurns& turns);

protected:
    void Form_Load() override;
    bool Form_KeyPress(int keyAscii) override;             ///< Enter on a finding opens its editor
    bool commandKey(const QKeyCombination& key) override;  ///< F5 checks again

private:
    void fill();
    void edit();

    CheckTurns& m_turns;
    QTimer m_again;  ///< a check that a press has dropped begins again a moment later
    RoadLine* m_road;
    MSFlexGrid* MsfgJc;
    QuietLine* m_told;
};
