#pragma once

#include <functional>
#include <memory>
#include <optional>

#include "Application/Interface/NoteDatabase.h"
#include "Host/QVSyncState.h"
#include "Support/WebDAVServer.h"
#include "Tour/OtherComputer.h"
#include "Tour/TourPage.h"

class DropboxBrowser;
class DropboxServer;
class NoteLibrary;
class SyncPlugIn;
class QTextBrowser;
class SecretService;

/// The typical use of Sync Preferences, step by step, in the windows of this process. Each step is
/// checked by what it does, and shown in a picture.
class Tour {
public:
    /// What the tour finds; all of it outlives the tour.
    struct Surroundings {
        /// The profile's, which is new and sandboxed.
        NoteLibrary &library;
        SyncPlugIn &sync;
        const SecretService &keyring;
        const DropboxServer &dropbox;
        const DropboxBrowser &browser;
        /// Shows what the browser shows, when it does.
        QTextBrowser &browserWindow;
        /// A folder for what is throw-away; the profile is in it.
        QString folder;
        /// How the other computer is called in the local network; empty where there is none.
        QString nameInNetwork;
        /// Whether this process may mount volumes, which no other process sees.
        bool hasPrivateMounts;
    };

    Tour(const Surroundings &surroundings, TourPage &page);

    /// The whole tour, on a thread that is not the main one. Raises a TourFailure, or
    /// std::runtime_error, where a step does not do what it should.
    void run();
    /// What must never be seen, and never be in a file but the keyring's.
    QStringList secrets() const;

private:
    void startForTheFirstTime();
    void lookAround();
    void addFolder();
    void addWebDAVServer();
    void addOtherComputer();
    void addDropboxAccount();
    void setSchedule();
    void letOthersConnect();
    void grantFolder();
    void writeNote();
    void synchronize();
    void readLog();
    void takeEdit();
    void importDatabase();
    void enterWrongPassword();
    void loseServer();
    /// A disk that becomes full, and then read-only.
    void failToWrite();
    void undoRemoval();
    void undoDeletion();
    void deleteDatabase();
    void editInTwoPlaces();
    void verify();
    void leave();

    void openAddMenu(const QString &item);
    /// Shows what is on the screen, which `sentence` describes.
    void show(const QString &name, const QString &sentence);
    /// Waits for a row of a location that is ticked for the chosen database, and saved.
    void awaitLocation(const QString &title, int count);
    void synchronizeChosenDatabase();
    /// Clicks "Sync Now" and waits until the row of `location` has a warning.
    void failToSynchronize(const QString &location);
    /// Shows the sheet of the selected location, and accepts it.
    void showEditor(const QString &name, const QString &sentence);
    /// Clicks the warning of `location`, and shows the error that the user reads, which contains
    /// `text`.
    void showError(const QString &location, const QString &text, const QString &name,
                   const QString &sentence);
    /// Returns the note that was written in the tour; empty if it was deleted.
    std::optional<Note> tourNote() const;
    /// Appends `line` to that note in the main window.
    void editNote(const QString &line);
    QVSyncStates states() const;
    QString sharedPackage() const;

    const Surroundings m_surroundings;
    TourPage &m_page;
    WebDAVServer m_webDAV{{}};
    OtherComputer m_otherComputer;
};
