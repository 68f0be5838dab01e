#pragma once
// What the four side-slope editors have in common: their columns follow from the grade count of the project.

#include "editors/Wizard.h"
#include "editors/windows/EditorForm.h"

class SlopeForm : public EditorForm {
public:
    const int GradeCount;  ///< 0 where the project's settings name none

protected:
    SlopeForm(const SlopeKind& kind, QWidget* parent)
        : SlopeForm(kind, GradeCountOf(SettingsLine(kind.settingsLine).value_or(std::string())), parent)
    {}

private:
    SlopeForm(const SlopeKind& kind, int gradeCount, QWidget* parent)
        : EditorForm(SlopeTable(kind, gradeCount), parent), GradeCount(gradeCount)
    {}
};
