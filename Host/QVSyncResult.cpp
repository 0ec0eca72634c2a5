#include "Host/QVSyncResult.h"

#include <QtCore/QMetaProperty>
#include <QtCore/QObject>

#include "Host/QVSyncLocation.h"
#include "Host/QVSyncLocationFormatter.h"
#include "Host/SyncStrings.h"
#include "Platform/Foundation/DateText.h"

bool QVSyncResult::isOfferedBy(const QObject *state) {
    return state->metaObject()->indexOfProperty(Key) >= 0;
}

std::optional<QVSyncResult> QVSyncResult::of(const QObject *state) {
    return isOfferedBy(state) ? state->property(Key).value<std::optional<QVSyncResult>>()
                              : std::nullopt;
}

void QVSyncResult::forgetFailure(QObject *state) {
    const std::optional<QVSyncResult> result = of(state);
    if (result && (result->error || result->problems > 0)) {
        state->setProperty(Key, QVariant::fromValue(std::optional<QVSyncResult>()));
    }
}

std::optional<Error> QVSyncResult::failure(const QString &database,
                                           const QVSyncLocation &location) const {
    std::optional<Error> failed = error;
    if (!failed && problems > 0) {
        failed = Error{
            .domain = SyncErrorDomain,
            .localizedDescription =
                localizedSyncString("Some items of “%1” could not be synchronized with “%2”. Open "
                                    "the log to see which.")
                    .arg(database,
                         QVSyncLocationFormatter::formatterForLocationWithURL(location.URL())
                             ->title())};
    }
    if (failed) {
        failed->details = details(*failed, location, date);
    }
    return failed;
}

QString QVSyncResult::details(const Error &error, const QVSyncLocation &location,
                              const QDateTime &date) {
    QStringList lines{
        localizedSyncString("Address: %1").arg(location.URL().stringWithoutPassword()),
        localizedSyncString("Time: %1").arg(DateText::longDate(date))};
    if (!error.details.isEmpty()) {
        lines.append(error.details);
    }
    return lines.join(u'\n');
}
