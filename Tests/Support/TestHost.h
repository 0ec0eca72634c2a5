#pragma once

#include <QtCore/QTemporaryDir>

#include "Engine/Plugin/EngineClasses.h"
#include "Engine/Plugin/SyncEngine.h"
#include "Support/TestApplication.h"

/// The real engine in the test's process, with a new profile in a temporary folder. Failures that a
/// test does not expect throw std::runtime_error.
class TestHost {
public:
    /// FirstContents::Inbox gives the open inbox and no location.
    explicit TestHost(FirstContents contents = FirstContents::Inbox);
    /// Fails the current test if the profile or a folder with which it synchronizes is damaged, see
    /// Verification::lastingProblems.
    ~TestHost();
    TestHost(const TestHost &) = delete;
    TestHost &operator=(const TestHost &) = delete;

    TestApplication &application() { return m_application; }
    SyncEngine &engine() { return *m_engine; }
    EngineNoteLibrary &library() { return *m_engine->library(); }
    EngineLocationsController &locations();
    /// The folder of the profile.
    QString directory() const;

    /// Lets the destructor verify nothing, because the test leaves damage: `reason` tells what
    /// kind.
    void leaveUnverified(const char *reason);

    /// Closes the profile without saving and opens it again, as a restart does. Replaces all engine
    /// objects.
    void restart();
    /// Closes the profile without saving, and opens or creates the one of another computer.
    void goToComputer(const QString &name);

    std::shared_ptr<NoteDatabase> inbox() { return library().inbox(); }
    /// Creates and opens a database.
    std::shared_ptr<NoteDatabase> addDatabase(const QString &name);
    void openDatabase(const std::shared_ptr<NoteDatabase> &database);
    void closeDatabase(const std::shared_ptr<NoteDatabase> &database);
    void renameDatabase(const std::shared_ptr<NoteDatabase> &database, const QString &name);

    /// Returns a location that is in no list yet.
    std::shared_ptr<EngineSyncLocation> newLocation(const Url &URL) const;
    /// Appends a location with a new, empty sync store in a folder. Does not save it.
    std::shared_ptr<QVSyncLocation> addLocation();
    /// Appends a location, with a nil URL if the text does not parse. Does not save it.
    std::shared_ptr<QVSyncLocation> addLocation(const QString &URLText);
    /// Returns the state of `database` at `location`. Creates it if there is none.
    std::shared_ptr<QVSyncState> addState(const std::shared_ptr<QVSyncLocation> &location,
                                          const std::shared_ptr<QVDatabase> &database);
    static void setLastSynced(const std::shared_ptr<QVSyncState> &state, const QDateTime &date);
    /// Creates an empty sync store in the test's folder and returns the text of its URL.
    QString makeSyncStore(const QString &name);
    /// The location of the databases on this computer.
    std::shared_ptr<QVSyncLocation> localLocation();
    /// Saves all locations.
    void save();

    /// Makes every write of the engine fail until `letSavesPass`: another connection holds the lock
    /// of the profile's database.
    void makeSavesFail();
    void letSavesPass();

private:
    void start(FirstContents contents);
    void close();

    QTemporaryDir m_directory;
    QString m_profileName = QStringLiteral("Profile");
    /// The other profiles that were opened.
    QSet<QString> m_otherComputers;
    bool m_isVerified = true;
    TestApplication m_application;
    std::unique_ptr<SyncEngine> m_engine;
    std::unique_ptr<EngineClasses> m_classes;
};
