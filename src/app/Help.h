#pragma once
// The help beside the program.

#include <QObject>
#include <QString>

/// Shows the help, at a chapter where one is named. Nothing is said where the file or a viewer for it is missing.
/// @param chapter  given name of a window; "" for the beginning
void openHelp(const QString& chapter = {});

/// F1 in any form opens the help at the form's chapter.
class HelpKey : public QObject {
    Q_OBJECT
public:
    explicit HelpKey(QObject* parent);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
};
