#include "Platform/Foundation/DateText.h"

#include "Platform/Foundation/Localization.h"

namespace {

/// The locale of the texts' language, in the user's country if it has that language.
QLocale textLocale() {
    const QLocale user;
    const QString language = localizationLanguage(PlatformTable);
    if (!language.isEmpty()) {
        return {QLocale(language).language(), user.territory()};
    }
    return user == QLocale::c() ? user : QLocale(QLocale::English, user.territory());
}

/// The usual time with its seconds. The long format would add the time zone.
QString longTime(const QTime &time) {
    const QLocale user;
    return user.toString(time, user.timeFormat(QLocale::ShortFormat)
                                   .replace(QStringLiteral("mm"), QStringLiteral("mm:ss")));
}

/// Returns the date in a format of the user's region.
template <class Date>
QString formatted(const Date &date, const QString &format) {
    const bool hasNames = format.contains(QStringLiteral("MMM"));
    return hasNames ? textLocale().toString(date, format) : QLocale().toString(date, format);
}

}  // namespace

QString DateText::dayName(int day, QLocale::FormatType format) {
    return textLocale().standaloneDayName(day, format);
}

QString DateText::longDate(const QDate &date) {
    return textLocale().toString(date, QLocale::LongFormat);
}

QString DateText::longDate(const QDateTime &date) {
    const QDateTime local = date.toLocalTime();
    return longDate(local.date()) + u' ' + longTime(local.time());
}

QString DateText::shortDate(const QDate &date) {
    return formatted(date, QLocale().dateFormat(QLocale::ShortFormat));
}

QString DateText::shortDate(const QDateTime &date) {
    return formatted(date, QLocale().dateTimeFormat(QLocale::ShortFormat));
}
