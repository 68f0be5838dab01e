#include "dialogs/FileBox.h"

#include "base/FileError.h"

Msg FileBox(const FileError& error)
{
    return {.text = error.text() + "\n" + std::string(error.reason()), .title = "错误", .icon = Icon::Exclamation};
}
