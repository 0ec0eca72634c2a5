#include "Platform/Foundation/RelativeDate.h"

#include <QtCore/QLocale>

#include "Platform/Foundation/DateText.h"
#include "Platform/Foundation/Localization.h"

QString relativeDateString(const QDateTime &date, const QDateTime &now) {
    if (!date.isValid()) {
        return {};
    }
    const QDateTime local = date.toLocalTime();
    const QLocale locale;
    const QString time = locale.toString(local.time(), QLocale::ShortFormat);
    switch (now.date().daysTo(local.date())) {
        case -1:
            return localizedString(PlatformTable, "yesterday at %1").arg(time);
        case 0:
            return localizedString(PlatformTable, "today at %1").arg(time);
        case 1:
            return localizedString(PlatformTable, "tomorrow at %1").arg(time);
        default:
            return DateText::shortDate(local);
    }
}
