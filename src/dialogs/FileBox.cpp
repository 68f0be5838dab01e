#include "dialogs/FileBox.h"

#include "base/FileError.h"
#include "dialogs/Messages.h"

Msg FileBox(const FileError& error)
{
    return {.text = error.text() + "\n" + std::string(error.reason()),
            .title = std::string(message::kError),
            .icon = Icon::Exclamation};
}
