#include "HostCheck/ClockChange.h"

#include <ctime>

namespace {

constexpr char Variable[] = "TZ";
constexpr int SecondsPerHour = 3600;
/// How long ago the former change was, and how far away the one after the next is.
constexpr int DaysBetweenChanges = 60;

/// Returns a moment by the clock as POSIX zones write it, with the days of the year counted from 0.
QString rule(const QDateTime &moment) {
    return QString::number(moment.date().dayOfYear() - 1) +
           moment.time().toString(QStringLiteral("/HH:mm:ss"));
}

void setZone(const QByteArray &zone) {
    qputenv(Variable, zone);
    tzset();
}

}  // namespace

ClockChange ClockChange::tomorrow(Kind kind) {
    const QDateTime now = QDateTime::currentDateTimeUtc();
    const QDate date = now.addSecs(offsetAt(now) * SecondsPerHour).date().addDays(1);
    return {kind, now, QDateTime(date, QTime(kind == Kind::Forward ? 2 : 3, 0), Qt::UTC)};
}

ClockChange ClockChange::at(const QDateTime &moment, Kind kind) {
    const QDateTime now = QDateTime::currentDateTimeUtc();
    return {kind, now, moment.toUTC().addSecs(offsetAt(now) * SecondsPerHour)};
}

ClockChange::ClockChange(Kind kind, const QDateTime &utcNow, const QDateTime &moment)
    : m_hadZone(qEnvironmentVariableIsSet(Variable)),
      m_formerZone(qgetenv(Variable)),
      m_offset(offsetAt(utcNow)) {
    const bool isForward = kind == Kind::Forward;
    const QString other =
        rule(moment.addDays(isForward ? DaysBetweenChanges : -DaysBetweenChanges));
    const QString change = rule(moment);
    // POSIX counts west of Greenwich, and from the standard time.
    const int standard = isForward ? -m_offset : 1 - m_offset;
    setZone(QStringLiteral("AAA%1BBB,%2,%3")
                .arg(standard)
                .arg(isForward ? change : other, isForward ? other : change)
                .toLatin1());
}

ClockChange::~ClockChange() {
    setZone(m_formerZone);
    if (!m_hadZone) {
        qunsetenv(Variable);
        tzset();
    }
}

bool ClockChange::isInEffect() const {
    return QDateTime::currentDateTime().offsetFromUtc() == m_offset * SecondsPerHour;
}

int ClockChange::offsetAt(const QDateTime &utcNow) {
    return 12 - utcNow.time().hour();
}
