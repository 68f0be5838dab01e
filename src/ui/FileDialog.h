#pragma once
// The dialog that asks for one file: drawn by Qt on Linux, Windows' own there.

#include <QString>

class QWidget;

enum class FileDialog { Open, Save };

inline QString titleOf(FileDialog kind)
{
    return kind == FileDialog::Open ? QStringLiteral("打开") : QStringLiteral("另存为");
}

/// The path, "" for Cancel: an existing file to open; one to save as it was given, without a question about overwriting
/// and without an extension added.
/// @param over      the window it stands over; nullptr: none
/// @param filter    caption|patterns pairs, "(*.txt)|*.txt|"
/// @param proposed  a name to begin with
QString askForFile(QWidget* over, FileDialog kind, const QString& filter, const QString& proposed);
