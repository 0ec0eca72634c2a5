#include "Engine/Locations/FailureText.h"

#include "Host/SyncStrings.h"

namespace {

QString format(bool isCleanUp) {
    return isCleanUp ? localizedSyncString("“%1” could not be cleaned up at “%2”: %3")
                     : localizedSyncString("“%1” could not be synchronized with “%2”: %3");
}

/// Returns whether `text` contains what `format` has around its places, in the same order.
bool isMadeOf(const QString &format, const QString &text) {
    qsizetype end = 0;
    const QStringList parts = format.split(u'%');
    for (const QString &part : parts) {
        // Each but the first begins with the number of its place.
        const QString fixed = part == parts.first() ? part : part.mid(1);
        const qsizetype start = text.indexOf(fixed, end);
        if (start < 0 || (end == 0 && start > 0)) {
            return false;
        }
        end = start + fixed.size();
    }
    return true;
}

}  // namespace

QString FailureText::of(bool isCleanUp, const QString &name, const QString &title,
                        const QString &reason) {
    return format(isCleanUp).arg(name, title, reason);
}

void FailureText::localize(QVSyncResult &result, const QString &name, const QString &title) {
    if (!result.error || result.summary.isEmpty() ||
        isMadeOf(format(false), result.error->localizedDescription) ||
        isMadeOf(format(true), result.error->localizedDescription)) {
        return;
    }
    result.error->details = result.error->localizedDescription;
    result.error->localizedDescription = of(result.isCleanUp, name, title, result.summary);
}
