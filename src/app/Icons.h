#pragma once
// The icons of the program: one family, drawn as vectors on a grid of 24, one stroke width, one accent colour.

#include <QIcon>

#include <string_view>

/// The icon of a main-window command, by the command's name; a null icon for a command without one.
QIcon commandIcon(std::string_view command);
/// The icon of the program.
QIcon programIcon();
