#pragma once

#include "dialogs/Dialogs.h"

class FileError;

/// The box of a file that could not be read or written: which file, and why on a line of its own.
Msg FileBox(const FileError& error);
