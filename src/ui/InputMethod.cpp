#include "ui/InputMethod.h"

#include "ui/Fields.h"

#include <QCoreApplication>
#include <QInputMethodEvent>

bool filterCommit(QObject* target, const QInputMethodEvent& event, const std::function<bool(int character)>& keep)
{
    const QString committed = event.commitString();
    QString kept;
    for (const QChar character : upToLineEnd(committed))
        if (keep(character.unicode())) kept += character;
    if (kept == committed) return false;
    QInputMethodEvent rest(event.preeditString(), event.attributes());
    rest.setCommitString(kept, event.replacementStart(), event.replacementLength());
    QCoreApplication::sendEvent(target, &rest);
    return true;
}
