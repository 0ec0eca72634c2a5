#include "Support/HostShortcuts.h"
#include "Support/SetDefault.h"

#include <QtCore/QFile>
#include <QtCore/QJsonDocument>
#include <QtCore/QJsonObject>

#include "Host/QVDailySchedule.h"
#include "Host/QVSyncLocation.h"
#include "Platform/Foundation/UserDefaults.h"

void setDebugging(Debugging debugging) {
    setDefault(QStringLiteral("QVSyncDebug"), debugging != Debugging::Off);
    setDefault(QStringLiteral("QVSyncDebugHigh"), debugging == Debugging::High);
}

QVSyncSchedulePtr dailySchedule(int hour, int minute) {
    return requiredHostClass<QVDailySchedule::Class>().initWithHourAndMinute(
        HourAndMinute{hour, minute});
}

void putDatabaseRecord(const std::shared_ptr<QVSyncLocation> &location, const QString &UUID,
                       const QString &name) {
    QFile file(QStringLiteral("%1/databases/%2.json").arg(location->URL().path(), UUID));
    if (!file.open(QIODevice::WriteOnly)) {
        throw std::runtime_error("a record cannot be written");
    }
    file.write(QJsonDocument(QJsonObject{{QStringLiteral("version"), 1},
                                         {QStringLiteral("uuid"), UUID},
                                         {QStringLiteral("name"), name}})
                   .toJson());
}
