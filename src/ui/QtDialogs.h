#pragma once
// The dialogs on Qt: message boxes, file dialogs and turns of the event loop over the active window.

#include "dialogs/Dialogs.h"

#include <QString>
#include <QStringList>

class QtDialogs : public Dialogs {
public:
    bool box(const Msg& msg) override;
    void turn() override;
    void turnWithInput() override;
    std::optional<std::string> openFile(std::string_view filter) override;
    std::optional<std::string> saveFile(std::string_view filter) override;
    std::optional<std::string> saveFileAs(std::string_view filter, std::string_view proposed) override;
};

/// A filter of caption|patterns pairs, "(*.txt)|*.txt|", as a file dialog wants it: one "caption (patterns)" each.
QStringList nameFilters(const QString& filter);
