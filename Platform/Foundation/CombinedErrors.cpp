#include "Platform/Foundation/CombinedErrors.h"

#include <QtCore/QStringList>
#include <algorithm>

#include "Platform/Foundation/Localization.h"

namespace {

/// The number of failures that one error describes.
constexpr qsizetype MostDescribed = 5;

}  // namespace

Error CombinedErrors::of(const QList<Error> &errors) {
    if (errors.size() == 1) {
        return errors.first();
    }
    QStringList descriptions;
    QStringList details;
    for (const Error &error : errors.first(std::min(errors.size(), MostDescribed))) {
        descriptions.append(error.localizedDescription);
        details.append(error.details);
    }
    if (const qsizetype more = errors.size() - MostDescribed; more > 0) {
        descriptions.append(localizedString(PlatformTable, "Further failures: %1").arg(more));
    }
    details.removeAll(QString());
    return {.domain = errors.first().domain,
            .localizedDescription = descriptions.join(QStringLiteral("\n\n")),
            .details = details.join(QStringLiteral("\n\n"))};
}
