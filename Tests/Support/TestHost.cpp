#include "Support/TestHost.h"

#include <QtCore/QDir>
#include <stdexcept>

#include "Host/InboxUUID.h"
#include "Host/QVSyncStore.h"
#include "Support/Verification.h"

namespace {

const QString OtherConnection = QStringLiteral("test-host-other-connection");

void require(const std::optional<Error> &error) {
    if (error) {
        throw std::runtime_error(error->localizedDescription.toStdString());
    }
}

void require(const Expected<void> &result) {
    if (!result) {
        require(result.error());
    }
}

}  // namespace

TestHost::TestHost(FirstContents contents) {
    start(contents);
}

TestHost::~TestHost() {
    letSavesPass();
    if (m_isVerified && m_engine) {
        Verification::failForLastingProblems(*m_engine);
    }
    close();
    for (const QString &name : std::as_const(m_otherComputers)) {
        if (m_isVerified) {
            Verification::failForLastingProblems(m_directory.filePath(name));
        }
    }
}

void TestHost::close() {
    m_application.setEngine(nullptr);
    m_classes.reset();
    m_engine.reset();
}

void TestHost::leaveUnverified(const char * /*reason*/) {
    m_isVerified = false;
}

void TestHost::start(FirstContents contents) {
    m_engine = std::make_unique<SyncEngine>();
    m_classes = std::make_unique<EngineClasses>(*m_engine);
    m_application.setEngine(m_engine.get());
    require(m_engine->openProfile(directory(), contents));
    // A test need not wait for a lock that is never released.
    const auto set = m_engine->profile().value(QStringLiteral("PRAGMA busy_timeout = 1"));
    require(set.map([](const QVariant &) {}));
}

void TestHost::restart() {
    close();
    start(FirstContents::Inbox);
}

void TestHost::goToComputer(const QString &name) {
    m_otherComputers.insert(m_profileName);
    m_otherComputers.remove(name);
    m_profileName = name;
    restart();
}

EngineLocationsController &TestHost::locations() {
    return static_cast<EngineLocationsController &>(*m_engine->plugin().locationsController());
}

QString TestHost::directory() const {
    return m_directory.filePath(m_profileName);
}

std::shared_ptr<NoteDatabase> TestHost::addDatabase(const QString &name) {
    require(library().createDatabase(name));
    return library().knownDatabases().last();
}

void TestHost::openDatabase(const std::shared_ptr<NoteDatabase> &database) {
    require(library().openDatabase(database));
}

void TestHost::closeDatabase(const std::shared_ptr<NoteDatabase> &database) {
    require(library().closeDatabase(database));
}

void TestHost::renameDatabase(const std::shared_ptr<NoteDatabase> &database, const QString &name) {
    require(library().renameDatabase(database, name));
}

std::shared_ptr<QVSyncLocation> TestHost::addLocation() {
    return addLocation(
        makeSyncStore(QStringLiteral("Store %1").arg(locations().countOfSyncLocations())));
}

std::shared_ptr<QVSyncLocation> TestHost::localLocation() {
    return m_engine->plugin().localStore()->location();
}

std::shared_ptr<EngineSyncLocation> TestHost::newLocation(const Url &URL) const {
    return m_engine->plugin().newLocation(URL);
}

std::shared_ptr<QVSyncLocation> TestHost::addLocation(const QString &URLText) {
    const auto location = newLocation(Url::fromString(URLText));
    locations().insertObjectInSyncLocationsAtIndex(location, locations().countOfSyncLocations());
    return location;
}

std::shared_ptr<QVSyncState> TestHost::addState(const std::shared_ptr<QVSyncLocation> &location,
                                                const std::shared_ptr<QVDatabase> &database) {
    const bool isInbox = database->UUID() == inbox()->UUID();
    return location->addStateForDatabaseWithUUID(isInbox ? InboxUUID : database->UUID(),
                                                 database->name());
}

void TestHost::setLastSynced(const std::shared_ptr<QVSyncState> &state, const QDateTime &date) {
    dynamic_cast<EngineSyncState &>(*state).setLastSynced(date);
}

QString TestHost::makeSyncStore(const QString &name) {
    const QString package = m_directory.filePath(name + QStringLiteral(".qvSyncStore"));
    if (!QDir().mkpath(package + QStringLiteral("/databases")) ||
        !QDir().mkpath(package + QStringLiteral("/transactions"))) {
        throw std::runtime_error("cannot make " + package.toStdString());
    }
    return Url::fileURL(package).absoluteString();
}

void TestHost::save() {
    std::optional<Error> error;
    locations().save(&error);
    require(error);
}

void TestHost::makeSavesFail() {
    auto database = QSqlDatabase::addDatabase(QStringLiteral("QSQLITE"), OtherConnection);
    database.setDatabaseName(m_engine->profile().path());
    if (!database.open() || !QSqlQuery(database).exec(QStringLiteral("BEGIN IMMEDIATE"))) {
        throw std::runtime_error("cannot lock the profile's database");
    }
}

void TestHost::letSavesPass() {
    QSqlDatabase::removeDatabase(OtherConnection);
}
