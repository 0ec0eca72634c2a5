#pragma once

#include <QtCore/QTemporaryDir>

#include "Engine/Plugin/SyncEngine.h"
#include "Support/TestApplication.h"

/// The real engine on a fresh profile of its own, in the test's process. Whatever fails that a test
/// takes for granted raises std::runtime_error.
class TestHost {
public:
    /// With FirstContents::Inbox: the inbox (open) and no location.
    explicit TestHost(FirstContents contents = FirstContents::Inbox);
    ~TestHost();
    TestHost(const TestHost &) = delete;
    TestHost &operator=(const TestHost &) = delete;

    TestApplication &application() { return m_application; }
    SyncEngine &engine() { return *m_engine; }
    EngineNoteLibrary &library() { return *m_engine->library(); }
    EngineLocationsController &locations();
    /// The folder of the profile.
    QString directory() const;

    /// Closes the profile without saving and opens it again, as a restart does. All engine objects
    /// are new after that.
    void restart();
    /// Closes the profile without saving and opens, or makes, that of another computer.
    void goToComputer(const QString &name);

    std::shared_ptr<NoteDatabase> inbox() { return library().inbox(); }
    /// Makes and opens one.
    std::shared_ptr<NoteDatabase> addDatabase(const QString &name);
    void openDatabase(const std::shared_ptr<NoteDatabase> &database);
    void closeDatabase(const std::shared_ptr<NoteDatabase> &database);
    void renameDatabase(const std::shared_ptr<NoteDatabase> &database, const QString &name);

    /// Appends a location with a fresh, empty sync store in a folder. Not saved.
    std::shared_ptr<QVSyncLocation> addLocation();
    /// Appends a location; a text that does not parse gives one with a nil URL. Not saved.
    std::shared_ptr<QVSyncLocation> addLocation(const QString &URLText);
    /// The state of `database` at `location`, made where there is none; the inbox has "@inbox".
    std::shared_ptr<QVSyncState> addState(const std::shared_ptr<QVSyncLocation> &location,
                                          const std::shared_ptr<QVDatabase> &database);
    static void setLastSynced(const std::shared_ptr<QVSyncState> &state, const QDateTime &date);
    /// An empty sync store in the test's folder; its URL text.
    QString makeSyncStore(const QString &name);
    /// The location of the databases on this computer.
    std::shared_ptr<QVSyncLocation> localLocation();
    /// Saves all locations.
    void save();

    /// From now on every write of the engine fails, since another connection has taken the lock of
    /// the profile's database, until `letSavesPass`.
    void makeSavesFail();
    void letSavesPass();

private:
    void start(FirstContents contents);

    QTemporaryDir m_directory;
    QString m_profileName = QStringLiteral("Profile");
    TestApplication m_application;
    std::unique_ptr<SyncEngine> m_engine;
    std::unique_ptr<ProfileDatabase> m_otherConnection;
};
