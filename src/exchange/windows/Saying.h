#pragma once
// What goes wrong between a window and a file of another program, said in one box.

#include "base/FileError.h"
#include "dialogs/Dialogs.h"
#include "dialogs/FileBox.h"
#include "exchange/ExchangeError.h"

/// Runs the body; false where it ended in a box.
template <class Body>
bool saying(Body body)
{
    try {
        body();
        return true;
    } catch (const ExchangeError& error) {
        dialogs().box({error.what(), "注意", Icon::Exclamation});
    } catch (const FileError& error) {
        dialogs().box(FileBox(error));
    } catch (const RunTimeError& error) {
        dialogs().box({error.what(), "错误", Icon::Critical});
    }
    return false;
}
