#pragma once

#include <QtCore/QPointer>
#include <QtWidgets/QMainWindow>
#include <QtWidgets/QMenu>
#include <memory>

class EventLog;
struct FirstStart;
class LocationRemovals;
class LogWindow;
class NoteDatabase;
class NoteLibrary;
struct Note;
class NotesView;
class PreferencesWindow;
class QAction;
class QListWidget;
class QVSyncLocation;
class SynchronizationMonitor;
class UndoBar;
class UnsavedTexts;

/// The main window: the databases of the profile on the left, the notes of the selected one on the
/// right, and below them how the synchronization stands. It is marked as modified, with an asterisk
/// in its title, until typed text is on disk. Must be used on the main thread.
class MainWindow : public QMainWindow {
    Q_OBJECT
public:
    /// `library` and `log` are not owned, must not be null, and must outlive the window.
    /// `profileFolder` is the folder of the profile. Saves the texts that an earlier run could not
    /// save, and presents an error if that fails.
    MainWindow(NoteLibrary *library, EventLog *log, const QString &profileFolder);
    /// Saves typed text if possible, without asking the user.
    ~MainWindow() override;

    /// Restores the place of the window and the selected database from the user's settings, and
    /// keeps both there from now on, as those of Sync Preferences and the log. Must be called
    /// before the window is shown.
    void rememberWindows();

    /// Opens Sync Preferences, or raises the open window. Returns the window, which deletes itself
    /// when it is closed; null if the pane cannot be loaded, after presenting the error.
    PreferencesWindow *showPreferences();
    /// Opens Sync Preferences and, in it, the editor of `location`, which must not be null.
    void editLocation(const std::shared_ptr<QVSyncLocation> &location);
    /// Opens Sync Preferences and lets the user add the location of `start` there, which must have
    /// one. May run a nested event loop.
    void addLocation(const FirstStart &start);
    /// Shows, restores and raises the window.
    void bringToFront();
    /// Saves typed text. If that fails, asks the user what to do with it, running a nested event
    /// loop. Returns whether the text was saved or discarded.
    bool leaveText();
    /// Saves and closes Sync Preferences if it is open. If saving fails, asks the user what to do,
    /// running a nested event loop. Returns whether the changes were saved or discarded.
    bool leavePreferences();
    /// Returns what the status line shows; owned by the window.
    SynchronizationMonitor *monitor() const { return m_monitor; }
    /// Saves all changes without asking the user, also those of an earlier Sync Preferences, and
    /// closes Sync Preferences. Text that cannot be saved is kept for the next start; that ticks
    /// and schedules cannot be saved is presented as an error. Blocks for disk writes.
    void saveAll();

    /// Adds `action`, which is not owned, to the menu Tools.
    void addToolsAction(QAction *action) { m_toolsMenu->addAction(action); }
    /// Announces that the user wants to quit, and closes the window.
    void quit();

Q_SIGNALS:
    /// Emitted before the window is closed because the user has chosen to quit.
    void quitRequested();

protected:
    /// Saves everything first. The window stays open if the user decides to keep editing a text, or
    /// to keep changes of Sync Preferences, that cannot be saved; asking runs a nested event loop.
    void closeEvent(QCloseEvent *event) override;

private:
    /// Lets other windows show what the status line shows while nothing runs, and open the log.
    void connectToApplication();
    void makeActions();
    void makeDatabaseMenu();
    /// Makes the menu of the list of databases.
    void makeListMenu();
    void makeHelpMenu();
    void makeToolBar(const QList<QAction *> &actions);
    /// Updates the list of databases, and then the selected database.
    void showDatabases();
    /// Adds the rows of new databases, and removes those of deleted ones.
    void listDatabases();
    /// Updates the names of the listed databases, with the number of their conflicts.
    void showNames();
    void showName(int row, const NoteDatabase &database);
    /// Shows the notes of the selected database and updates the actions. Selects the former
    /// database again if the user does not leave its text.
    void showDatabase();
    /// Saves what rememberWindows() restores. Has no effect without it.
    void saveWindows() const;
    /// Saves the texts of an earlier run and logs their titles.
    void restoreUnsavedTexts(const UnsavedTexts &unsavedTexts);
    /// Returns the row of `database`; -1 if the library does not know it.
    int rowOf(const std::shared_ptr<NoteDatabase> &database) const;
    /// Returns the database of the current row; null if there is none.
    std::shared_ptr<NoteDatabase> currentDatabase() const;
    /// These ask for a name in a dialog, which runs a nested event loop.
    void createDatabase();
    void renameDatabase();
    /// Opens or closes the selected database. Has no effect for the inbox.
    void toggleOpen();
    /// Deletes the selected database if the user confirms that. Runs a nested event loop.
    void deleteDatabase();
    /// Synchronizes the selected database with the locations that are ticked for it, after saving
    /// typed text. Presents an error if there is none.
    void synchronize();
    /// Restores the database that was deleted last, and selects it.
    void restoreDatabase();
    /// Shows which database can be restored.
    void showDeletions();
    /// Opens the selected database; does nothing if it is open.
    void open();
    /// Presents what failed in the last synchronizations, with the next steps.
    void presentFailure();
    void showLog();
    /// Shows the version and the license of the program.
    void showVersion();
    /// Shows the deleted notes of the database in a sheet.
    void showDeletedNotes();
    /// Shows the earlier versions of the note in a sheet.
    void showEarlierVersions();
    /// Opens the sheet for the database, or for `note` if it has a UUID.
    void showHistory(const Note &note);
    /// Let the user export the database or the note to a file, after saving typed text. Run a
    /// nested event loop.
    void exportDatabase();
    void exportNote();
    /// Enables the actions on the note and on its database.
    void updateNoteActions();

    bool m_remembersWindows = false;
    NoteLibrary *const m_library;
    EventLog *const m_log;
    SynchronizationMonitor *const m_monitor;
    LocationRemovals *const m_removals;
    /// The selected database, open or not; null if there is none.
    std::shared_ptr<NoteDatabase> m_database;
    QListWidget *m_databases;
    /// The databases of the rows.
    QList<std::shared_ptr<NoteDatabase>> m_listed;
    NotesView *m_notes;
    UndoBar *m_undoBar;
    QMenu *m_toolsMenu = nullptr;
    QAction *m_createAction = nullptr;
    QAction *m_renameAction = nullptr;
    QAction *m_openAction = nullptr;
    QAction *m_synchronizeAction = nullptr;
    QAction *m_exportAction = nullptr;
    QAction *m_deleteAction = nullptr;
    QAction *m_restoreAction = nullptr;
    QAction *m_quitAction = nullptr;
    QAction *m_exportNoteAction = nullptr;
    QAction *m_versionsAction = nullptr;
    QAction *m_deletedAction = nullptr;
    /// Null while the window is closed.
    QPointer<PreferencesWindow> m_preferences;
    /// Null until it is opened for the first time.
    QPointer<LogWindow> m_logWindow;
};
