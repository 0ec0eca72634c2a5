#pragma once

#include <QtCore/QTemporaryDir>
#include <memory>

#include "Host/NoteDatabase.h"
#include "Host/QVApplication.h"
#include "Host/QVSyncLocation.h"

class Engine;

/// The real engine on a profile of its own, and an application that remembers what it is told. The
/// profile begins with the inbox alone.
class TestHost : public QVApplication {
public:
    enum class Debugging { Off, Normal, High };

    TestHost();
    ~TestHost() override;

    // What the application was told
    std::shared_ptr<QVDatabase> inbox() const override;
    void logItemCmd(const QString &title, const QString &info) override;
    void presentError(const Error &error) override { m_presentedErrors.append(error); }
    const QList<Error> &presentedErrors() const { return m_presentedErrors; }
    /// "title info" of each entry.
    const QStringList &logEntries() const { return m_logEntries; }

    QString folder() const { return m_folder.path(); }
    void setDebugging(Debugging debugging);
    void save();
    /// Closes the profile, losing what is not saved, and opens it again.
    void restart();
    /// From now on, until it is allowed again, something else keeps the profile from being written.
    void makeSavingFail();
    void letSavingSucceed();

    std::shared_ptr<NoteDatabase> addDatabase(const QString &name);
    void renameDatabase(const std::shared_ptr<NoteDatabase> &database, const QString &name);
    void openDatabase(const std::shared_ptr<NoteDatabase> &database);
    void closeDatabase(const std::shared_ptr<NoteDatabase> &database);

    QList<std::shared_ptr<QVSyncLocation>> locations() const;
    /// A new location, at the end of the list: a fresh folder store, or whatever the text of a URL
    /// says.
    std::shared_ptr<QVSyncLocation> addLocation();
    std::shared_ptr<QVSyncLocation> addLocation(const QString &URL);
    std::shared_ptr<QVSyncLocation> localLocation() const;
    /// Writes the record of a database into the folder store at `location`.
    void putDatabaseRecord(const std::shared_ptr<QVSyncLocation> &location, const QString &UUID,
                           const QString &name);
    void setLastSynced(const std::shared_ptr<QVSyncState> &state, const QDateTime &date);
    QVSyncSchedulePtr dailySchedule(int hour, int minute) const;
    QString directScheme() const;

private:
    void openEngine();

    QTemporaryDir m_folder;
    std::unique_ptr<Engine> m_engine;
    QList<Error> m_presentedErrors;
    QStringList m_logEntries;
    int m_stores = 0;
};
