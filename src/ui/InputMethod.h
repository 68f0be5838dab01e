#pragma once
// What an input method commits, looked at character by character.

#include <functional>

class QInputMethodEvent;
class QObject;

/// Offers each committed character to `keep`. Where it refuses some, the rest is sent to `target` in their place.
/// True: the event is done with and goes no further.
bool filterCommit(QObject* target, const QInputMethodEvent& event, const std::function<bool(int character)>& keep);
