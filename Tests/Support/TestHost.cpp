#include "Support/TestHost.h"

#include <QtCore/QDir>
#include <QtCore/QJsonDocument>
#include <QtCore/QJsonObject>
#include <QtSql/QSqlDatabase>
#include <QtSql/QSqlQuery>

#include "Engine/Engine.h"
#include "Engine/EngineNoteLibrary.h"
#include "Engine/EngineSyncState.h"
#include "Host/QVDailySchedule.h"
#include "Host/QVDirectConnectionServer.h"
#include "Host/QVSyncLocationsController.h"
#include "Host/QVSyncStore.h"
#include "Platform/Foundation/UserDefaults.h"

namespace {

const QString blockerName = QStringLiteral("blocker");

void require(bool isDone, const char *what) {
    if (!isDone) {
        qFatal("The test host cannot %s", what);
    }
}

}  // namespace

TestHost::TestHost() {
    setNSApp(this);
    openEngine();
}

TestHost::~TestHost() {
    letSavingSucceed();
    setDebugging(Debugging::Off);
    m_engine.reset();
    setNSApp(nullptr);
}

void TestHost::openEngine() {
    std::optional<Error> error;
    m_engine = Engine::open(m_folder.path() + QStringLiteral("/profile"),
                            Engine::FreshProfile::InboxOnly, &error);
    require(m_engine != nullptr, "open its profile");
}

std::shared_ptr<QVDatabase> TestHost::inbox() const {
    return m_engine->library()->inbox();
}

void TestHost::logItemCmd(const QString &title, const QString &info) {
    m_logEntries.append(title + u' ' + info);
}

void TestHost::setDebugging(Debugging debugging) {
    UserDefaults::setValue(QStringLiteral("QVSyncDebug"), debugging != Debugging::Off);
    UserDefaults::setValue(QStringLiteral("QVSyncDebugHigh"), debugging == Debugging::High);
}

void TestHost::save() {
    require(m_engine->locationsController()->save(nullptr), "save");
}

void TestHost::restart() {
    m_engine.reset();
    openEngine();
}

void TestHost::makeSavingFail() {
    QSqlDatabase blocker = QSqlDatabase::addDatabase(QStringLiteral("QSQLITE"), blockerName);
    blocker.setDatabaseName(m_folder.path() + QStringLiteral("/profile/profile.sqlite"));
    require(blocker.open(), "open its profile twice");
    require(QSqlQuery(blocker).exec(QStringLiteral("BEGIN IMMEDIATE")), "block its profile");
}

void TestHost::letSavingSucceed() {
    QSqlDatabase::removeDatabase(blockerName);
}

std::shared_ptr<NoteDatabase> TestHost::addDatabase(const QString &name) {
    require(!m_engine->library()->createDatabase(name), "make a database");
    return m_engine->library()->knownDatabases().last();
}

void TestHost::renameDatabase(const std::shared_ptr<NoteDatabase> &database, const QString &name) {
    require(!m_engine->library()->renameDatabase(database, name), "rename a database");
}

void TestHost::openDatabase(const std::shared_ptr<NoteDatabase> &database) {
    require(!m_engine->library()->openDatabase(database), "open a database");
}

void TestHost::closeDatabase(const std::shared_ptr<NoteDatabase> &database) {
    require(!m_engine->library()->closeDatabase(database), "close a database");
}

QList<std::shared_ptr<QVSyncLocation>> TestHost::locations() const {
    return m_engine->locationsController()->syncLocations();
}

std::shared_ptr<QVSyncLocation> TestHost::addLocation() {
    const QString package =
        QStringLiteral("%1/Store %2.qvSyncStore").arg(m_folder.path()).arg(++m_stores);
    require(QDir().mkpath(package + QStringLiteral("/databases")), "make a store");
    require(QDir().mkpath(package + QStringLiteral("/transactions")), "make a store");
    return addLocation(Url::fileURL(package).absoluteString());
}

std::shared_ptr<QVSyncLocation> TestHost::addLocation(const QString &URL) {
    auto &locationClass =
        requiredHostClass<QVSyncLocation::Class>(QStringLiteral("QVSyncLocation"));
    const auto location = locationClass.syncLocationWithURL(Url::fromString(URL));
    QVSyncLocationsController *controller = m_engine->locationsController();
    controller->insertObjectInSyncLocationsAtIndex(location, controller->countOfSyncLocations());
    return location;
}

std::shared_ptr<QVSyncLocation> TestHost::localLocation() const {
    return m_engine->localStore()->location();
}

void TestHost::putDatabaseRecord(const std::shared_ptr<QVSyncLocation> &location,
                                 const QString &UUID, const QString &name) {
    QFile file(QStringLiteral("%1/databases/%2.json").arg(location->URL().path(), UUID));
    require(file.open(QIODevice::WriteOnly), "write a record");
    file.write(QJsonDocument(QJsonObject{{QStringLiteral("version"), 1},
                                         {QStringLiteral("uuid"), UUID},
                                         {QStringLiteral("name"), name}})
                   .toJson());
}

void TestHost::setLastSynced(const std::shared_ptr<QVSyncState> &state, const QDateTime &date) {
    std::static_pointer_cast<EngineSyncState>(state)->setLastSynced(date);
}

QVSyncSchedulePtr TestHost::dailySchedule(int hour, int minute) const {
    return requiredHostClass<QVDailySchedule::Class>(QStringLiteral("QVDailySchedule"))
        .initWithHourAndMinute(HourAndMinute{hour, minute});
}

QString TestHost::directScheme() const {
    return QVDirectConnectionServer::URLScheme();
}
